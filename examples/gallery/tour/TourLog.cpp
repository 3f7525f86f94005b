#include "TourLog.h"

#include <QMutexLocker>

#include <cstdio>

namespace gallery {

TourLog* TourLog::s_current = nullptr;

TourLog::TourLog(const QString& path)
    : m_file(path)
{
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        fail(QStringLiteral("cannot write %1: %2").arg(path, m_file.errorString()));
    s_current = this;
    m_previousHandler = qInstallMessageHandler(&TourLog::handleMessage);
}

TourLog::~TourLog()
{
    qInstallMessageHandler(m_previousHandler);
    s_current = nullptr;
}

void TourLog::write(const QString& line)
{
    const QMutexLocker lock(&m_mutex);
    writeTo(stdout, line);
}

void TourLog::fail(const QString& what)
{
    const QMutexLocker lock(&m_mutex);
    ++m_failureCount;
    writeTo(stderr, QStringLiteral("FAILED: ") + what);
}

int TourLog::failureCount() const
{
    const QMutexLocker lock(&m_mutex);
    return m_failureCount;
}

void TourLog::writeTo(FILE* stream, const QString& line)
{
    const QByteArray text = line.toUtf8() + '\n';
    std::fputs(text.constData(), stream);
    // Keeps the lines of both streams in order and loses none if the program is killed.
    std::fflush(stream);
    if (m_file.isOpen()) {
        m_file.write(text);
        m_file.flush();
    }
}

void TourLog::handleMessage(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (type != QtDebugMsg && type != QtInfoMsg)
        s_current->fail(QStringLiteral("Qt warns: ") + text);
    s_current->m_previousHandler(type, context, text);
}

} // namespace gallery
