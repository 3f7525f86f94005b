#pragma once

#include <QString>
#include <QStringList>

#include <random>
#include <vector>

/// A generator of random texts of few different code units, so that one text often contains another. The code units
/// include both cases, special case foldings, surrogate pairs, single surrogates and null characters.
class RandomTexts
{
public:
    explicit RandomTexts(unsigned seed)
        : m_random(seed)
    {
    }

    /// Returns a number in the range [0, `end`).
    int upTo(int end) { return int(m_random() % unsigned(end)); }

    QString text(int longest)
    {
        QString text;
        for (int length = upTo(longest + 1); length > 0; --length)
            text += character();
        return text;
    }

    /// Returns a random substring of `text`, converted to upper case with a probability of one half.
    QString partOf(const QString& text)
    {
        const int start = upTo(text.size() + 1);
        const QString part = text.mid(start, 1 + upTo(4));
        return upTo(2) == 0 ? part.toUpper() : part;
    }

private:
    QString character()
    {
        static const QString plain = QString::fromUtf8("abABkKKſsSåÅÅσςΣßẞiIİı1_ ");
        const int kind = upTo(40);
        if (kind == 0)
            return QString::fromUtf8(upTo(2) == 0 ? "𐐀" : "𐐨"); // a surrogate pair with a case folding
        if (kind == 1)
            return QString::fromUtf8("😀");
        if (kind == 2)
            return QString(upTo(2) == 0 ? QChar(0xd801) : QChar(0xdc00)); // a single surrogate
        if (kind == 3)
            return QString(QChar(0));
        return plain.at(upTo(plain.size()));
    }

    std::mt19937 m_random;
};

/// Texts without a terminator, each in a buffer of exactly its size, so that the sanitizers detect reads beyond its
/// end.
class ExactTexts
{
public:
    explicit ExactTexts(const QStringList& texts)
    {
        for (const QString& text : texts) {
            m_buffers.emplace_back(text.begin(), text.end());
            m_texts += QString::fromRawData(m_buffers.back().data(), text.size());
        }
    }

    const QStringList& texts() const { return m_texts; }

private:
    std::vector<std::vector<QChar>> m_buffers;
    QStringList m_texts;
};
