#include "GalleryPage.h"

#include "CodeArea.h"
#include "PageCode.h"

#include <QFontInfo>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace gallery {

namespace {

QFont headingFont(const QWidget& widget)
{
    QFont font = widget.font();
    // Not font.pointSizeF(), which is -1 if the desktop defines its font in pixels.
    font.setPointSizeF(QFontInfo(font).pointSizeF() * 1.4);
    font.setBold(true);
    return font;
}

bool hasWords(const QString& searched, const QString& text)
{
    const QStringList words = text.simplified().split(QLatin1Char(' '));
    return std::all_of(words.begin(), words.end(),
                       [&](const QString& word) { return searched.contains(word, Qt::CaseInsensitive); });
}

} // namespace

GalleryPage::GalleryPage(QString title, const QString& description)
    : m_title(std::move(title))
    , m_searchedText(m_title + QLatin1Char('\n') + description)
    , m_contents(new QVBoxLayout)
{
    auto* layout = new QVBoxLayout(this);
    addHeading(*layout, description);
    layout->addLayout(m_contents, 1);
}

GalleryPage::~GalleryPage() = default;

void GalleryPage::offerCode(const PageCode& code)
{
    layout()->addWidget(new CodeArea(code.text()));
    m_searchedText += QLatin1Char('\n') + code.includedNames().join(QLatin1Char('\n'));
}

bool GalleryPage::matches(const QString& text) const
{
    return hasWords(m_searchedText, text);
}

bool GalleryPage::titleMatches(const QString& text) const
{
    return hasWords(m_title, text);
}

void GalleryPage::addHeading(QVBoxLayout& layout, const QString& description)
{
    auto* heading = new QLabel(m_title);
    heading->setTextFormat(Qt::PlainText);
    heading->setFont(headingFont(*this));
    layout.addWidget(heading);

    auto* text = new QLabel(description);
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    layout.addWidget(text);
    layout.addSpacing(fontMetrics().height() / 2);
}

} // namespace gallery
