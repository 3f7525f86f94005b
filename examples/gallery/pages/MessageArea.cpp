#include "MessageArea.h"

#include <QGridLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

namespace gallery {

MessageArea::MessageArea()
    : m_text(new QPlainTextEdit)
{
    m_text->setReadOnly(true);
    m_text->setTabChangesFocus(true);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_text->setAccessibleName(tr("Messages"));
    m_text->setFixedHeight(fontMetrics().lineSpacing() * 4);
    auto* label = new QLabel(tr("&Messages"));
    label->setBuddy(m_text);
    auto* clearButton = new QPushButton(tr("C&lear"));
    connect(clearButton, &QPushButton::clicked, this, &MessageArea::clear);

    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(label, 0, 0);
    layout->addWidget(m_text, 1, 0);
    layout->addWidget(clearButton, 1, 1, Qt::AlignTop);
    hide();
}

MessageArea::~MessageArea() = default;

void MessageArea::add(const QString& message)
{
    m_text->appendPlainText(message);
    show();
}

void MessageArea::clear()
{
    m_text->clear();
    hide();
}

QString MessageArea::text() const
{
    return m_text->toPlainText();
}

} // namespace gallery
