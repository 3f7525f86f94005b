#include "LabelsAndButtonsPage.h"

#include "ui/qt/controls/CorrectFontCommandLinkButton.h"
#include "ui/qt/controls/ElidedTextLabel.h"

#include "RoomyStyle.h"

#include <QCheckBox>
#include <QEvent>
#include <QFormLayout>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSplitter>
#include <QStyleFactory>
#include <QVBoxLayout>

#include <utility>

using zelmar::ui::CorrectFontCommandLinkButton;

namespace gallery {

LabelsAndButtonsPage::LabelsAndButtonsPage()
    : GalleryPage(
        tr("Labels and buttons"),
        tr("A label that shortens its text at the beginning and then has the whole text as tool tip; drag the "
           "handle beside the last one. A command link that is never smaller than its texts need."))
    , m_text(new QLineEdit(tr("/measurements/2024/run 17/flow of the second valve.csv")))
    , m_ownToolTip(new QCheckBox(tr("The labels have a tool tip of the &application's own")))
    , m_splitter(new QSplitter)
    , m_toolTip(new QLabel)
    , m_title(new QLineEdit(tr("Open a run")))
    , m_description(new QLineEdit(tr("Reads the files of one run.")))
    , m_pressed(new QCheckBox(tr("The &buttons are pressed")))
{
    auto* form = new QFormLayout;
    addLabels(*form);
    addButtons(*form);
    contents().addLayout(form);
    contents().addStretch();
    showText(m_text->text());
}

LabelsAndButtonsPage::~LabelsAndButtonsPage()
{
    // Deletes the buttons before the styles that they use.
    qDeleteAll(m_buttons);
}

void LabelsAndButtonsPage::addLabels(QFormLayout& form)
{
    form.addRow(tr("&Text"), m_text);
    for (const int letters : {12, 30, 60}) {
        auto* label = new ElidedTextLabel;
        label->setFrameStyle(QFrame::StyledPanel);
        label->setFixedWidth(letters * fontMetrics().averageCharWidth());
        form.addRow(tr("%1 letters wide").arg(letters), label);
        m_labels.append(label);
    }
    form.addRow(tr("To be dragged"), makeSplitter());
    form.addRow(tr("Its tool tip is"), m_toolTip);
    form.addRow(m_ownToolTip);
    m_toolTip->setTextFormat(Qt::PlainText);
    m_toolTip->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    connect(m_text, &QLineEdit::textChanged, this, &LabelsAndButtonsPage::showText);
    connect(m_ownToolTip, &QCheckBox::toggled, this, &LabelsAndButtonsPage::useOwnToolTip);
}

QWidget* LabelsAndButtonsPage::makeSplitter()
{
    auto* label = new ElidedTextLabel;
    label->setFrameStyle(QFrame::StyledPanel);
    m_labels.append(label);
    auto* rest = new QFrame;
    rest->setFrameStyle(QFrame::StyledPanel);
    m_splitter->addWidget(label);
    m_splitter->addWidget(rest);
    m_splitter->setChildrenCollapsible(false);
    m_splitter->setSizes({1000, 1000});
    label->installEventFilter(this);
    return m_splitter;
}

/// Follows the tool tip of the last label, which changes when the label is painted at another width.
bool LabelsAndButtonsPage::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ToolTipChange)
        showToolTip();
    return GalleryPage::eventFilter(watched, event);
}

void LabelsAndButtonsPage::addButtons(QFormLayout& form)
{
    form.addRow(tr("T&itle"), m_title);
    form.addRow(tr("&Description"), m_description);
    auto* grid = new QGridLayout;
    addButton(*grid, tr("Fusion"), std::unique_ptr<QStyle>(QStyleFactory::create(QStringLiteral("Fusion"))));
    addButton(*grid, tr("Windows"), std::unique_ptr<QStyle>(QStyleFactory::create(QStringLiteral("Windows"))));
    addButton(*grid, tr("One with higher buttons"), std::make_unique<RoomyStyle>());
    form.addRow(grid);
    form.addRow(m_pressed);
}

void LabelsAndButtonsPage::addButton(QGridLayout& grid, const QString& styleName, std::unique_ptr<QStyle> style)
{
    auto* button = new CorrectFontCommandLinkButton;
    button->setStyle(style.get());
    button->setText(m_title->text());
    button->setDescription(m_description->text());
    grid.addWidget(new QLabel(styleName), 0, m_buttons.size());
    grid.addWidget(button, 1, m_buttons.size());
    m_buttons.append(button);
    m_styles.push_back(std::move(style));
    connect(m_title, &QLineEdit::textChanged, button, &QCommandLinkButton::setText);
    connect(m_description, &QLineEdit::textChanged, button, &QCommandLinkButton::setDescription);
    connect(m_pressed, &QCheckBox::toggled, button, &QCommandLinkButton::setDown);
}

void LabelsAndButtonsPage::showText(const QString& text)
{
    for (ElidedTextLabel* label : qAsConst(m_labels)) {
        // With another text the label would treat its old tool tip as a tool tip of the application.
        if (!m_ownToolTip->isChecked())
            label->setToolTip(QString());
        label->setText(text);
    }
    showToolTip();
}

void LabelsAndButtonsPage::useOwnToolTip(bool on)
{
    for (ElidedTextLabel* label : qAsConst(m_labels)) {
        label->setToolTip(on ? tr("A tool tip of the application's own") : QString());
        label->update();
    }
    showToolTip();
}

void LabelsAndButtonsPage::showToolTip()
{
    const ElidedTextLabel* label = m_labels.last();
    m_toolTip->setText(label->toolTip().isEmpty() ? tr("none") : tr("\"%1\"").arg(label->toolTip()));
}

} // namespace gallery
