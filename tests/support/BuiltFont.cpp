#include "BuiltFont.h"

#include <QDataStream>
#include <QVector>

#include <initializer_list>

namespace {

const quint16 unitsPerEm = 1000;
const quint16 squareSize = 800;
const quint16 glyphCount = 2; // the glyph for missing characters and the square
const quint16 firstLetter = 'A';
const quint16 lastLetter = 'Z';

/// A buffer of big-endian numbers, as font tables contain them.
class Writer
{
public:
    Writer& u8(quint8 value)
    {
        bytes.append(char(value));
        return *this;
    }
    Writer& u16(int value) { return u8(quint8(value >> 8)).u8(quint8(value)); }
    Writer& u32(quint32 value) { return u16(int(value >> 16)).u16(int(value & 0xffffU)); }
    Writer& zeros(int count)
    {
        bytes.append(count, '\0');
        return *this;
    }
    Writer& words(std::initializer_list<int> values)
    {
        for (const int value : values)
            u16(value);
        return *this;
    }

    QByteArray bytes;
};

QByteArray head()
{
    Writer table;
    table.u32(0x00010000).u32(0x00010000).u32(0).u32(0x5F0F3CF5); // versions, sum, the magic number
    table.words({0, unitsPerEm}).zeros(16);                       // flags, size, dates
    table.words({0, 0, squareSize, squareSize});                  // bounds
    table.words({0, 8, 2, 1, 0});                                 // regular, pixels, direction, long offsets
    return table.bytes;
}

QByteArray hhea()
{
    Writer table;
    table.u32(0x00010000).words({squareSize, -200, 0, unitsPerEm, 0, 0, squareSize, 1, 0, 0});
    return table.zeros(10).u16(glyphCount).bytes;
}

QByteArray maxp()
{
    return Writer().u32(0x00010000).words({glyphCount, 4, 1, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0}).bytes;
}

QByteArray hmtx()
{
    return Writer().words({unitsPerEm, 0, unitsPerEm, 0}).bytes;
}

QByteArray os2()
{
    Writer table;
    table.words({3, unitsPerEm, 400, 5, 0}).zeros(20).u16(0); // version, width, weight; sub- and superscript
    table.zeros(10).u32(0).u32(0).u32(0).u32(0).u32(0x20202020);
    table.words({0x40, firstLetter, lastLetter, squareSize, -200, 0, squareSize, 200}).u32(1).u32(0);
    return table.words({500, squareSize, 0, 32, 1}).bytes;
}

/// Returns a table with one segment for all letters, which maps each to glyph 1 through a glyph array, and the final
/// segment.
QByteArray cmap()
{
    const int letters = lastLetter - firstLetter + 1;
    Writer table;
    table.words({0, 1, 3, 1}).u32(12); // one table, for Unicode
    table.words({4, 32 + 2 * letters, 0, 4, 4, 1, 0});
    table.words({lastLetter, 0xffff, 0, firstLetter, 0xffff, 0, 1, 4, 0});
    for (int i = 0; i < letters; ++i)
        table.u16(1);
    return table.bytes;
}

/// Returns the table of the family, style, full and PostScript names, for the platform Windows in Unicode.
QByteArray name(const QString& family)
{
    const QVector<QPair<int, QString>> names = {
        {1, family}, {2, QStringLiteral("Regular")}, {4, family}, {6, QStringLiteral("BuiltFont")}};
    Writer table;
    Writer texts;
    const int count = int(names.size());
    table.words({0, count, 6 + 12 * count});
    for (const auto& [id, text] : names) {
        table.words({3, 1, 0x409, id, 2 * int(text.size()), int(texts.bytes.size())});
        for (const QChar letter : text)
            texts.u16(letter.unicode());
    }
    return table.bytes + texts.bytes;
}

QByteArray post()
{
    return Writer().u32(0x00030000).u32(0).words({-100, 50}).zeros(20).bytes;
}

QByteArray square()
{
    Writer glyph;
    glyph.words({1, 0, 0, squareSize, squareSize, 3, 0}).u8(1).u8(1).u8(1).u8(1);
    glyph.words({0, 0, squareSize, 0, 0, squareSize, 0, -squareSize});
    return glyph.bytes;
}

QByteArray loca()
{
    return Writer().u32(0).u32(0).u32(quint32(square().size())).bytes;
}

struct Table
{
    const char* tag;
    QByteArray bytes;
};

quint32 checksum(QByteArray bytes)
{
    bytes.append((4 - bytes.size() % 4) % 4, '\0');
    QDataStream stream(bytes);
    quint32 sum = 0;
    while (!stream.atEnd()) {
        quint32 word = 0;
        stream >> word;
        sum += word;
    }
    return sum;
}

} // namespace

QByteArray builtFont(const QString& family)
{
    const QVector<Table> tables = {{"OS/2", os2()},        {"cmap", cmap()}, {"glyf", square()}, {"head", head()},
                                   {"hhea", hhea()},       {"hmtx", hmtx()}, {"loca", loca()},   {"maxp", maxp()},
                                   {"name", name(family)}, {"post", post()}};
    const int tableCount = int(tables.size());
    Writer font;
    font.u32(0x00010000).words({tableCount, 128, 3, 16 * tableCount - 128});
    QByteArray contents;
    for (const Table& table : tables) {
        font.bytes.append(table.tag, 4);
        font.u32(checksum(table.bytes)).u32(quint32(12 + 16 * tables.size() + contents.size()));
        font.u32(quint32(table.bytes.size()));
        contents += table.bytes;
        contents.append((4 - contents.size() % 4) % 4, '\0');
    }
    return font.bytes + contents;
}
