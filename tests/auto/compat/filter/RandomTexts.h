#pragma once

#include <QString>

#include <random>

/// Texts of few letters, so that they contain each other often: in both cases, with more than two spellings, outside
/// the first plane, and halves of surrogate pairs.
class RandomTexts
{
public:
    explicit RandomTexts(unsigned seed)
        : m_random(seed)
    {
    }

    /// From 0 to before `end`.
    int upTo(int end) { return int(m_random() % unsigned(end)); }

    QString text(int longest)
    {
        QString text;
        for (int length = upTo(longest + 1); length > 0; --length)
            text += letter();
        return text;
    }

    /// Of a text of letters in the first plane, a part in some case.
    QString partOf(const QString& text)
    {
        const int start = upTo(text.size() + 1);
        const QString part = text.mid(start, 1 + upTo(4));
        return upTo(2) == 0 ? part.toUpper() : part;
    }

private:
    QString letter()
    {
        static const QString plain = QString::fromUtf8("abABkKſKsSåÅÅσςΣ1_ ");
        const int kind = upTo(40);
        if (kind == 0)
            return QString::fromUtf8(upTo(2) == 0 ? "𐐀" : "𐐨"); // a pair that folds
        if (kind == 1)
            return QString::fromUtf8("😀");
        if (kind == 2)
            return QString(upTo(2) == 0 ? QChar(0xd801) : QChar(0xdc00)); // half a pair
        return plain.at(upTo(plain.size()));
    }

    std::mt19937 m_random;
};
