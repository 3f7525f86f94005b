#include "TextFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <cstring>
#include <limits>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace gallery {

namespace {

constexpr qint64 BlockSize = 1 << 20;
constexpr const char* Utf8Mark = "\xEF\xBB\xBF";
constexpr int Utf8MarkSize = 3;

bool startsWith(ByteRange bytes, const char* prefix, int size)
{
    return bytes.size() >= quint64(size) && std::memcmp(bytes.begin, prefix, size_t(size)) == 0;
}

QString openError(const QString& path, QFile& file)
{
    const QFileInfo info(path);
    if (!info.exists())
        return QCoreApplication::translate("gallery::TextFile", "The file does not exist.");
    if (info.isDir())
        return QCoreApplication::translate("gallery::TextFile", "This is a folder, not a file.");
    // Reading a pipe or a device may never end, and even opening it may block.
    if (!info.isFile())
        return QCoreApplication::translate("gallery::TextFile", "This is not a regular file.");
    if (quint64(info.size()) > loadMemoryLimit())
        return tooBigText();
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return QCoreApplication::translate("gallery::TextFile", "The file cannot be read: %1").arg(file.errorString());
    return {};
}

/// Reads until the end of the file instead of its size, because the file may grow or shrink meanwhile.
QString readAll(QFile& file, const ProgressCallback& progress, std::vector<char>& bytes)
{
    ProgressStage stage(progress, 0, 40, quint64(file.size()));
    bytes.reserve(size_t(file.size() + BlockSize));
    for (;;) {
        const size_t done = bytes.size();
        if (!stage.reached(done))
            return cancelledText();
        if (done > loadMemoryLimit())
            return tooBigText();
        bytes.resize(done + size_t(BlockSize));
        const qint64 count = file.read(bytes.data() + done, BlockSize);
        bytes.resize(done + size_t(qMax<qint64>(count, 0)));
        if (count < 0)
            return QCoreApplication::translate("gallery::TextFile", "The file cannot be read: %1")
                .arg(file.errorString());
        if (count == 0)
            return {};
    }
}

bool isContinuation(char byte)
{
    return (uchar(byte) & 0xC0) == 0x80;
}

/// Returns the length of the UTF-8 sequence at \a pos, or 0 if it is invalid.
int sequenceLength(const char* pos, const char* end)
{
    const auto lead = uchar(*pos);
    if (lead < 0x80)
        return 1;
    const int length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || end - pos < length)
        return 0;
    for (int i = 1; i < length; ++i) {
        if (!isContinuation(pos[i]))
            return 0;
    }
    const auto second = uchar(pos[1]);
    const bool overlong = (lead == 0xE0 && second < 0xA0) || (lead == 0xF0 && second < 0x90);
    const bool surrogate = lead == 0xED && second > 0x9F;
    const bool beyondUnicode = lead == 0xF4 && second > 0x8F;
    return overlong || surrogate || beyondUnicode ? 0 : length;
}

/// Skips eight ASCII bytes at a time, because most of a table is ASCII.
const char* skipAscii(const char* pos, const char* end)
{
    quint64 word = 0;
    while (end - pos >= qint64(sizeof word)) {
        std::memcpy(&word, pos, sizeof word);
        if ((word & Q_UINT64_C(0x8080808080808080)) != 0)
            break;
        pos += sizeof word;
    }
    while (pos != end && uchar(*pos) < 0x80)
        ++pos;
    return pos;
}

QString detectEncoding(const ProgressCallback& progress, TextBytes& text)
{
    const ByteRange all = text.all();
    ProgressStage stage(progress, 40, 50, all.size());
    const char* pos = all.begin;
    while (pos != all.end) {
        if (!stage.reached(quint64(pos - all.begin)))
            return cancelledText();
        pos = skipAscii(pos, all.end - pos > BlockSize ? pos + BlockSize : all.end);
        if (pos == all.end)
            break;
        const int length = sequenceLength(pos, all.end);
        if (length == 0) {
            text.encoding = TextEncoding::Latin1;
            text.firstNonUtf8 = quint64(pos - all.begin);
            break;
        }
        pos += length;
    }
    return {};
}

QString decodeUtf16(QSysInfo::Endian byteOrder, const char* bytes, qint64 unitCount)
{
    QString text(int(unitCount), Qt::Uninitialized);
    auto* const units = reinterpret_cast<quint16*>(text.data());
    if (byteOrder == QSysInfo::BigEndian)
        qFromBigEndian<quint16>(bytes, unitCount, units);
    else
        qFromLittleEndian<quint16>(bytes, unitCount, units);
    return text;
}

/// Converts the text to UTF-8. A byte order mark is kept and converted, too; an odd byte at the end is dropped.
QString convertFromUtf16(QSysInfo::Endian byteOrder, const ProgressCallback& progress, TextBytes& text)
{
    std::vector<char> converted;
    const ByteRange all = text.all();
    ProgressStage stage(progress, 40, 50, all.size());
    const char* pos = all.begin;
    while (all.end - pos >= 2) {
        if (!stage.reached(quint64(pos - all.begin)))
            return cancelledText();
        const qint64 unitsLeft = (all.end - pos) / 2;
        QString units = decodeUtf16(byteOrder, pos, qMin(unitsLeft, BlockSize));
        // A surrogate pair is converted as a whole, with the next block.
        if (units.size() < unitsLeft && units.at(units.size() - 1).isHighSurrogate())
            units.chop(1);
        const QByteArray block = units.toUtf8();
        converted.insert(converted.end(), block.begin(), block.end());
        pos += qint64(2) * units.size();
    }
    text.bytes = std::move(converted);
    text.encoding = TextEncoding::Utf16;
    return {};
}

} // namespace

QString TextBytes::decoded(ByteRange range) const
{
    return isLatin1() ? QString::fromLatin1(range.begin, int(range.size())) : decodeUtf8(range);
}

QString readTextFile(const QString& path, const ProgressCallback& progress, TextBytes& text)
{
    QFile file(path);
    QString error = openError(path, file);
    if (error.isEmpty())
        error = readAll(file, progress, text.bytes);
    if (!error.isEmpty())
        return error;
    if (startsWith(text.all(), "\xFF\xFE", 2))
        error = convertFromUtf16(QSysInfo::LittleEndian, progress, text);
    else if (startsWith(text.all(), "\xFE\xFF", 2))
        error = convertFromUtf16(QSysInfo::BigEndian, progress, text);
    else
        error = detectEncoding(progress, text);
    text.start = startsWith(text.all(), Utf8Mark, Utf8MarkSize) ? Utf8MarkSize : 0;
    return error;
}

QString decodeUtf8(ByteRange bytes)
{
    int marks = 0;
    for (; startsWith(bytes, Utf8Mark, Utf8MarkSize); ++marks)
        bytes.begin += Utf8MarkSize;
    const QString rest = QString::fromUtf8(bytes.begin, int(bytes.size()));
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
    return QCoreApplication::translate("gallery::TextFile", "The file is too big for this machine's memory.");
}

QString cancelledText()
{
    return QCoreApplication::translate("gallery::TextFile", "Loading was cancelled.");
}

} // namespace gallery
