#pragma once

#include "LoadProgress.h"

#include <QByteArray>
#include <QString>

#include <vector>

namespace gallery {

/// A range of bytes [begin, end), which it does not own.
struct ByteRange
{
    const char* begin = nullptr;
    const char* end = nullptr;

    [[nodiscard]] quint64 size() const { return quint64(end - begin); }
};

/// The encoding of a file. In memory UTF-16 is stored as UTF-8.
enum class TextEncoding { Utf8, Latin1, Utf16 };

/// A text file in memory. Sizes are 64-bit, which QByteArray's are not.
struct TextBytes
{
    std::vector<char> bytes; ///< include the byte order mark, so that it is written again
    TextEncoding encoding = TextEncoding::Utf8;
    quint64 start = 0;        ///< the offset of the text after a byte order mark
    quint64 firstNonUtf8 = 0; ///< Latin-1 only: the offset of a byte that cannot be UTF-8

    [[nodiscard]] bool isLatin1() const { return encoding == TextEncoding::Latin1; }
    [[nodiscard]] ByteRange all() const { return {bytes.data(), bytes.data() + bytes.size()}; }
    /// Decodes \a range, which must fit into a QString.
    [[nodiscard]] QString decoded(ByteRange range) const;
};

/// Reads a regular file completely and reports 0 to 50 percent to \a progress.
/// A file that is not valid UTF-8 and has no UTF-16 byte order mark is read as Latin-1, in which any bytes are valid.
/// Returns the error text, or an empty text.
QString readTextFile(const QString& path, const ProgressCallback& progress, TextBytes& text);

/// Decodes \a bytes, which must be valid UTF-8. Unlike QString::fromUtf8() it keeps a leading U+FEFF.
QString decodeUtf8(ByteRange bytes);

/// Returns the number of bytes that a load may take for the file and its index together.
quint64 loadMemoryLimit();

QString tooBigText();
QString cancelledText();

} // namespace gallery
