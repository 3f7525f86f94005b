#pragma once

#include "LoadProgress.h"

#include <QByteArray>
#include <QString>

#include <vector>

namespace gallery {

/// Bytes [begin, end), owned by someone else.
struct ByteRange
{
    const char* begin = nullptr;
    const char* end = nullptr;

    [[nodiscard]] quint64 size() const { return quint64(end - begin); }
};

/// How a file was read, not how its bytes are held: UTF-16 is held as UTF-8.
enum class TextEncoding { Utf8, Latin1, Utf16 };

/// A text file in memory. Sizes are 64-bit, which QByteArray's are not.
struct TextBytes
{
    std::vector<char> bytes; ///< with the byte order mark, so that it is written back
    TextEncoding encoding = TextEncoding::Utf8;
    quint64 start = 0;        ///< where the text begins, past a byte order mark
    quint64 firstNonUtf8 = 0; ///< Latin-1 only: the offset of a byte that cannot be UTF-8

    [[nodiscard]] bool isLatin1() const { return encoding == TextEncoding::Latin1; }
    [[nodiscard]] ByteRange all() const { return {bytes.data(), bytes.data() + bytes.size()}; }
    /// \a range has to fit a QString.
    [[nodiscard]] QString decoded(ByteRange range) const;
};

/// Reads the whole of a regular file, using percents 0 to 50 of \a progress.
/// What is not valid UTF-8 and has no UTF-16 mark is taken as Latin-1, which any bytes are.
/// Returns the error text, or an empty one.
QString readTextFile(const QString& path, const ProgressCallback& progress, TextBytes& text);

/// \a bytes must be UTF-8. Unlike QString::fromUtf8() it keeps U+FEFF where the text starts with it.
QString decodeUtf8(ByteRange bytes);

/// The most bytes a load may take for the file and its index together.
quint64 loadMemoryLimit();

QString tooBigText();
QString cancelledText();

} // namespace gallery
