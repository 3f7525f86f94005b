#include "TextFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <limits>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace gallery {

namespace {

constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";

QString tr(const char* text)
{
    return QCoreApplication::translate("gallery::TextFile", text);
}

bool startsWith(std::string_view text, std::string_view prefix)
{
    return text.substr(0, prefix.size()) == prefix;
}

void openFile(const QString& path, QFile& file)
{
    const QFileInfo info(path);
    if (!info.exists())
        throw TableError{tr("The file does not exist.")};
    if (info.isDir())
        throw TableError{tr("This is a folder, not a file.")};
    // Reading a pipe or a device may never end, and even opening it may block.
    if (!info.isFile())
        throw TableError{tr("This is not a regular file.")};
    if (quint64(info.size()) > loadMemoryLimit())
        throw TableError{tooBigText()};
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        throw TableError{tr("The file cannot be read: %1").arg(file.errorString())};
}

/// Reads until the end of the file instead of its size, because the file may grow or shrink meanwhile.
std::string readAll(QFile& file, const ProgressCallback& progress)
{
    std::string bytes;
    bytes.reserve(size_t(file.size()) + ReportStep);
    for (;;) {
        const size_t done = bytes.size();
        report(progress, 0, 40, done, quint64(file.size()));
        if (done > loadMemoryLimit())
            throw TableError{tooBigText()};
        bytes.resize(done + ReportStep);
        const qint64 count = file.read(&bytes[done], ReportStep);
        if (count < 0)
            throw TableError{tr("The file cannot be read: %1").arg(file.errorString())};
        bytes.resize(done + size_t(count));
        if (count == 0)
            return bytes;
    }
}

/// Compares each block with its decoded and encoded form, in which invalid sequences are replaced.
bool isUtf8(std::string_view text, const ProgressCallback& progress)
{
    const auto isContinuation = [](char byte) { return (uchar(byte) & 0xC0) == 0x80; };
    for (size_t pos = 0; pos < text.size();) {
        report(progress, 40, 50, pos, text.size());
        size_t size = std::min(ReportStep, text.size() - pos);
        while (size > ReportStep - 4 && pos + size < text.size() && isContinuation(text[pos + size]))
            --size;
        const std::string_view block = text.substr(pos, size);
        if (decodeUtf8(block).toStdString() != block)
            return false;
        pos += size;
    }
    return true;
}

std::string latin1ToUtf8(std::string_view bytes)
{
    std::string text;
    for (size_t pos = 0; pos < bytes.size(); pos += ReportStep) {
        const std::string_view block = bytes.substr(pos, ReportStep);
        text += QString::fromLatin1(block.data(), int(block.size())).toStdString();
    }
    return text;
}

std::string utf16ToUtf8(const std::string& bytes)
{
    // Qt counts the bytes of the result with an int, and they may be half as many again.
    if (bytes.size() > (1U << 30))
        throw TableError{tooBigText()};
    return QString::fromUtf16(reinterpret_cast<const char16_t*>(bytes.data()), int(bytes.size() / 2)).toStdString();
}

} // namespace

void report(const ProgressCallback& progress, int first, int last, quint64 done, quint64 total)
{
    const double share = total > 0 ? qMin(1.0, double(done) / double(total)) : 1.0;
    if (progress && !progress(first + int(share * (last - first))))
        throw TableError{tr("Loading was cancelled.")};
}

TextFile readTextFile(const QString& path, const ProgressCallback& progress)
{
    QFile file(path);
    openFile(path, file);
    TextFile result{readAll(file, progress), QStringLiteral("UTF-8")};
    if (startsWith(result.text, "\xFF\xFE") || startsWith(result.text, "\xFE\xFF"))
        result = {utf16ToUtf8(result.text), QStringLiteral("UTF-16")};
    else if (startsWith(result.text, Utf8Mark))
        result.text.erase(0, Utf8Mark.size());
    if (isBinary(result.text))
        throw TableError{tr("This is not a text file, because it contains binary data.")};
    if (!isUtf8(result.text, progress))
        result = {latin1ToUtf8(result.text), QStringLiteral("Latin-1")};
    return result;
}

bool isBinary(std::string_view bytes, quint64 offset)
{
    constexpr quint64 beginning = 1000;
    const auto isControl = [](char byte) {
        return uchar(byte) < 0x20 && std::string_view("\t\n\f\r").find(byte) == std::string_view::npos;
    };
    const std::string_view checked = bytes.substr(0, size_t(beginning - std::min(offset, beginning)));
    return bytes.find('\0') != std::string_view::npos || std::any_of(checked.begin(), checked.end(), isControl);
}

QString decodeUtf8(std::string_view bytes)
{
    int marks = 0;
    for (; startsWith(bytes, Utf8Mark); ++marks)
        bytes.remove_prefix(Utf8Mark.size());
    const QString rest = QString::fromUtf8(bytes.data(), int(bytes.size()));
    return marks == 0 ? rest : QString(marks, QChar(QChar::ByteOrderMark)) + rest;
}

quint64 loadMemoryLimit()
{
#ifdef Q_OS_UNIX
    // The kernel overcommits memory, so that a failing allocation is no protection.
    static const quint64 limit = quint64(sysconf(_SC_PHYS_PAGES)) / 2 * quint64(sysconf(_SC_PAGESIZE));
    return limit;
#else
    return std::numeric_limits<size_t>::max() / 2;
#endif
}

QString tooBigText()
{
    return tr("The file is too big for this machine's memory.");
}

} // namespace gallery
