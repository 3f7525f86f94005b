#include "LoadBar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

namespace gallery {

LoadBar::LoadBar()
    : m_label(new QLabel)
    , m_bar(new QProgressBar)
    , m_cancel(new QPushButton(tr("&Cancel")))
{
    m_label->setTextFormat(Qt::PlainText);
    m_bar->setRange(0, 100);
    m_bar->setAccessibleName(tr("Loading"));

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_label);
    layout->addWidget(m_bar, 1);
    layout->addWidget(m_cancel);
    connect(m_cancel, &QPushButton::clicked, this, &LoadBar::cancelled);
}

LoadBar::~LoadBar() = default;

void LoadBar::start(const QString& name)
{
    // A long file name must leave space for the progress bar and the button.
    const QString shown = fontMetrics().elidedText(name, Qt::ElideMiddle, fontMetrics().averageCharWidth() * 30);
    m_label->setText(tr("Loading %1").arg(shown));
    m_bar->setValue(0);
}

void LoadBar::setPercent(int percent)
{
    m_bar->setValue(percent);
}

} // namespace gallery
