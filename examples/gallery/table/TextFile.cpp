#include "TextFile.h"

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

/// Reads until the end of the file instead of its size, because the file may grow or shrink meanwhile.
std::string readFile(const QString& path, const ProgressCallback& progress)
{
    // Reading a pipe or a device may never end, and even opening it may block.
    if (QFileInfo::exists(path) && !QFileInfo(path).isFile())
        throw TableError{TableText::tr("This is not a regular file.")};
    QFile file(path);
    std::string bytes;
    for (bool isReadable = file.open(QIODevice::ReadOnly | QIODevice::Unbuffered); isReadable;) {
        const size_t done = bytes.size();
        const quint64 size = std::max<quint64>(file.size(), done);
        if (size > loadMemoryLimit())
            throw TableError{tooBigText()};
        report(progress, 0, 40, done, size);
        bytes.reserve(size_t(size) + ReportStep);
        bytes.resize(done + ReportStep);
        const qint64 count = file.read(&bytes[done], ReportStep);
        bytes.resize(done + size_t(std::max<qint64>(count, 0)));
        if (count == 0)
            return bytes;
        isReadable = count > 0;
    }
    throw TableError{TableText::tr("The file cannot be read: %1").arg(file.errorString())};
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
        throw TableError{TableText::tr("Loading was cancelled.")};
}

TextFile readTextFile(const QString& path, const ProgressCallback& progress)
{
    TextFile file{readFile(path, progress), QStringLiteral("UTF-8")};
    const auto startsWith = [&](std::string_view mark) { return file.text.compare(0, mark.size(), mark) == 0; };
    if (startsWith("\xFF\xFE") || startsWith("\xFE\xFF"))
        file = {utf16ToUtf8(file.text), QStringLiteral("UTF-16")};
    else if (startsWith(Utf8Mark))
        file.text.erase(0, Utf8Mark.size());
    if (file.text.find('\0') != std::string::npos)
        throw TableError{TableText::tr("This is not a text file, because it contains binary data.")};
    if (!isUtf8(file.text, progress))
        file = {latin1ToUtf8(file.text), QStringLiteral("Latin-1")};
    return file;
}

QString decodeUtf8(std::string_view bytes)
{
    const QString text = QString::fromUtf8(bytes.data(), int(bytes.size()));
    return bytes.substr(0, Utf8Mark.size()) == Utf8Mark ? QChar(QChar::ByteOrderMark) + text : text;
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
    return TableText::tr("The file is too big for this machine's memory.");
}

} // namespace gallery
