#include "IgnoreMessages.h"

IgnoreMessages* IgnoreMessages::s_current = nullptr;

IgnoreMessages::IgnoreMessages(const QString& pattern)
    : m_pattern(pattern)
{
    m_pattern.optimize(); // compiles the pattern now, because other threads log as well
    s_current = this;
    m_previous = qInstallMessageHandler(&IgnoreMessages::handle);
}

IgnoreMessages::~IgnoreMessages()
{
    qInstallMessageHandler(m_previous);
    s_current = nullptr;
}

void IgnoreMessages::handle(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (!s_current->m_pattern.match(text).hasMatch())
        s_current->m_previous(type, context, text);
}
