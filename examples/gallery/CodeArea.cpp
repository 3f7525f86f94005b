#include "CodeArea.h"

#include <QClipboard>
#include <QEvent>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QToolButton>

namespace gallery {

namespace {

const int shownLines = 14;

} // namespace

CodeArea::CodeArea(const QString& code)
    : m_button(new QToolButton)
    , m_panel(new QWidget)
    , m_text(new QPlainTextEdit(code))
{
    addWidgets();
    connect(m_button, &QToolButton::toggled, this, &CodeArea::showCode);
    showCode(false);
}

CodeArea::~CodeArea() = default;

void CodeArea::addWidgets()
{
    m_button->setText(tr("So&urce code"));
    m_button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_button->setAutoRaise(true);
    m_button->setCheckable(true);

    m_text->setReadOnly(true);
    m_text->setTabChangesFocus(true);
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_text->setAccessibleName(tr("Code"));
    m_text->setLayoutDirection(Qt::LeftToRight);
    m_text->setFixedHeight(m_text->fontMetrics().lineSpacing() * shownLines);
    auto* copy = new QPushButton(tr("Cop&y the code"));
    connect(copy, &QPushButton::clicked, this, &CodeArea::copyAll);

    auto* panelLayout = new QVBoxLayout(m_panel);
    panelLayout->setContentsMargins(0, 0, 0, 0);
    panelLayout->addWidget(m_text);
    panelLayout->addWidget(copy, 0, Qt::AlignLeft);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_button);
    layout->addWidget(m_panel);
}

void CodeArea::showCode(bool on)
{
    m_panel->setVisible(on);
    showArrow();
    if (on)
        m_text->setFocus(); // which scrolls the page to the code
}

void CodeArea::showArrow()
{
    const Qt::ArrowType closed = isRightToLeft() ? Qt::LeftArrow : Qt::RightArrow;
    m_button->setArrowType(m_button->isChecked() ? Qt::DownArrow : closed);
}

void CodeArea::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LayoutDirectionChange)
        showArrow();
    QWidget::changeEvent(event);
}

void CodeArea::copyAll()
{
    QGuiApplication::clipboard()->setText(m_text->toPlainText());
}

} // namespace gallery
