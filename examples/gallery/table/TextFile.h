#pragma once

#include <QCoreApplication>
#include <QString>

#include <functional>
#include <string>
#include <string_view>

namespace gallery {

/// The translation context of the texts about tables and files.
struct TableText
{
    Q_DECLARE_TR_FUNCTIONS(gallery::TableText)
};

/// An exception that ends reading or writing a table. The text is for the user.
struct TableError
{
    QString text;
};

/// A function that receives the progress of a load in percent, which never decreases. It runs on the loading thread. If
/// it returns false, the load stops at the next step.
using ProgressCallback = std::function<bool(int percent)>;

/// Calls `progress`, if there is one, with the percentage after a part of the step from `first` to `last` percent.
/// Throws TableError if the load must stop. Call it after each ReportStep bytes, which take milliseconds.
void report(const ProgressCallback& progress, int first, int last, quint64 done, quint64 total);
constexpr size_t ReportStep = 1U << 16;

/// A text file in memory. The text is UTF-8 without a byte order mark. Its size is 64-bit, which QByteArray's is not.
struct TextFile
{
    std::string text;
    QString encodingName; ///< the encoding of the file: "UTF-8", "UTF-16" or "Latin-1"
};

/// Reads a regular file completely and reports 0 to 50 percent to `progress`.
/// A file that is not valid UTF-8 and has no UTF-16 byte order mark is read as Latin-1, in which any bytes are valid.
/// Throws TableError, also if the file contains NUL, as binary files do.
TextFile readTextFile(const QString& path, const ProgressCallback& progress);

/// Decodes UTF-8. Unlike QString::fromUtf8() it keeps a leading U+FEFF.
QString decodeUtf8(std::string_view bytes);

/// Returns the number of bytes that a load may take for the texts and their index together.
quint64 loadMemoryLimit();
QString tooBigText();

} // namespace gallery
