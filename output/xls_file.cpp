#include "output/xls_file.h"

#include "output/xls_storage.h"

#include <QtEndian>

#include <algorithm>
#include <bit>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

// Records of the format.
constexpr quint32 kBof = 0x0809, kEof = 0x000A, kCodePage = 0x0042, kWindow1 = 0x003D, kFont = 0x0031,
                  kFormat = 0x041E, kXf = 0x00E0, kStyle = 0x0293, kBoundSheet = 0x0085, kSst = 0x00FC,
                  kContinue = 0x003C, kColInfo = 0x007D, kDimensions = 0x0200, kLabelSst = 0x00FD,
                  kNumber = 0x0203, kWindow2 = 0x023E;

constexpr qsizetype kMostBytes = 8224;  // of one record
constexpr quint32 kFirstFormat = 164;   // lower numbers are built in
constexpr quint32 kStyleXfs = 15;       // the outline styles that stand before the cells' own
constexpr quint32 kBoldFont = 5;        // number 4 is left out by the format
constexpr quint32 kFontHeight = 220;    // twentieths of a point
constexpr double kWidthUnit = 256, kWidthPadding = 5 * kWidthUnit / 7;  // five pixels of seven

void PutRecord(QByteArray& bytes, quint32 record, const QByteArray& data) {
    Put16(bytes, record);
    Put16(bytes, static_cast<quint32>(data.size()));
    bytes += data;
}

QByteArray Numbers16(std::initializer_list<quint32> values) {
    QByteArray bytes;
    for (const auto value : values)
        Put16(bytes, value);
    return bytes;
}

void PutCharacters(QByteArray& bytes, QStringView text) {
    for (const QChar c : text)
        Put16(bytes, c.unicode());
}

// A text of 16-bit characters behind its length, in one byte or two.
QByteArray Named(const QString& text, bool shortLength) {
    QByteArray bytes;
    if (shortLength)
        bytes.append(static_cast<char>(text.size()));
    else
        Put16(bytes, static_cast<quint32>(text.size()));
    bytes.append('\1');
    PutCharacters(bytes, text);
    return bytes;
}

QByteArray Bof(quint32 kind) {
    return Numbers16({0x0600, kind, 0x0DBB, 0x07CC, 0x0041, 0, 0x0006, 0});
}

QByteArray Font(bool bold) {
    QByteArray font = Numbers16({kFontHeight, 0, 0x7FFF, bold ? 700U : 400U, 0});
    font.append(QByteArray("\0\0\x86\0", 4));  // no underline, any family, Chinese
    return font + Named(u"宋体"_s, true);
}

QByteArray Xf(quint32 font, quint32 format, bool isStyle, XlsSide side) {
    const quint32 across = side == XlsSide::centre ? 2 : side == XlsSide::right ? 3 : 0;
    constexpr quint32 kBottom = 2U << 4;
    return Numbers16({font, format, isStyle ? 0xFFF5U : 0x0001U, across | kBottom, 0,
                      isStyle ? 0xF400U : 0xF800U, 0, 0, 0, 0x20C0});
}

// As much of a text as a cell holds, marked where it was cut; lines end in a line feed alone.
QString Fitting(QString text) {
    text.replace(u"\r\n"_s, u"\n"_s);
    if (text.size() <= XlsSheet::kMostCharacters) return text;
    text.truncate(XlsSheet::kMostCharacters - 1);
    if (text.back().isHighSurrogate()) text.chop(1);
    return text + u'\u2026';
}

/// Writes texts into a record that goes on in further ones where it is full.
class TextRecord {
 public:
    TextRecord(quint32 record, QByteArray start) : record_(record), data_(std::move(start)) {}

    void Add(const QString& text) {
        constexpr qsizetype kHead = 3, kCharacter = 2;
        if (data_.size() + kHead + kCharacter > kMostBytes) Flush();
        Put16(data_, static_cast<quint32>(text.size()));
        data_.append('\1');
        QStringView rest(text);
        while (!rest.isEmpty()) {
            const auto room = (kMostBytes - data_.size()) / kCharacter;
            const auto piece = rest.left(room);
            PutCharacters(data_, piece);
            rest = rest.mid(piece.size());
            if (rest.isEmpty()) break;
            Flush();
            data_.append('\1');  // what goes on tells its kind of characters again
        }
    }
    QByteArray Whole() {
        Flush();
        return whole_;
    }

 private:
    void Flush() {
        PutRecord(whole_, record_, data_);
        record_ = kContinue;
        data_.clear();
    }

    quint32 record_;
    QByteArray data_;
    QByteArray whole_;
};

}  // namespace

void XlsSheet::SetWidth(int column, double characters) {
    widths_.resize(std::max(widths_.size(), static_cast<size_t>(column) + 1));
    widths_[static_cast<size_t>(column)] = characters;
}

void XlsSheet::AddCell(quint32 record, int row, int column, const XlsStyle& style, const QByteArray& value) {
    auto known = std::ranges::find(styles_, style);
    if (known == styles_.end()) known = styles_.insert(known, style);
    rows_ = std::max(rows_, row + 1);
    columns_ = std::max(columns_, column + 1);
    QByteArray cell;
    Put16(cell, static_cast<quint32>(row));
    Put16(cell, static_cast<quint32>(column));
    Put16(cell, kStyleXfs + static_cast<quint32>(known - styles_.begin()));
    PutRecord(cells_, record, cell + value);
}

void XlsSheet::AddText(int row, int column, const QString& text, const XlsStyle& style) {
    if (text.isEmpty()) return;
    const QString kept = Fitting(text);
    auto number = textNumbers_.constFind(kept);
    if (number == textNumbers_.constEnd()) {
        number = textNumbers_.insert(kept, static_cast<quint32>(texts_.size()));
        texts_ << kept;
    }
    ++textCells_;
    QByteArray value;
    Put32(value, *number);
    AddCell(kLabelSst, row, column, style, value);
}

void XlsSheet::AddNumber(int row, int column, double value, const XlsStyle& style) {
    const auto little = qToLittleEndian(std::bit_cast<quint64>(value));
    AddCell(kNumber, row, column, style, QByteArray(reinterpret_cast<const char*>(&little), sizeof little));
}

QByteArray XlsSheet::Strings() const {
    QByteArray counts;
    Put32(counts, textCells_);
    Put32(counts, static_cast<quint32>(texts_.size()));
    TextRecord record(kSst, counts);
    for (const auto& text : texts_)
        record.Add(text);
    return record.Whole();
}

QByteArray XlsSheet::Globals(quint32 sheetAt) const {
    QByteArray bytes;
    PutRecord(bytes, kBof, Bof(0x0005));
    PutRecord(bytes, kCodePage, Numbers16({1200}));
    PutRecord(bytes, kWindow1, Numbers16({0, 0, 0x4000, 0x2000, 0x0038, 0, 0, 1, 0x0258}));
    for (int i = 0; i < 4; ++i)
        PutRecord(bytes, kFont, Font(false));
    PutRecord(bytes, kFont, Font(true));
    QStringList formats;
    for (const auto& style : styles_)
        if (!style.format.isEmpty() && !formats.contains(style.format)) formats << style.format;
    for (qsizetype i = 0; i < formats.size(); ++i)
        PutRecord(bytes, kFormat,
                  Numbers16({kFirstFormat + static_cast<quint32>(i)}) + Named(formats[i], false));
    for (quint32 i = 0; i < kStyleXfs; ++i)
        PutRecord(bytes, kXf, Xf(0, 0, true, XlsSide::general));
    for (const auto& style : styles_) {
        const quint32 format =
            style.format.isEmpty() ? 0 : kFirstFormat + static_cast<quint32>(formats.indexOf(style.format));
        PutRecord(bytes, kXf, Xf(style.bold ? kBoldFont : 0, format, false, style.side));
    }
    PutRecord(bytes, kStyle, Numbers16({0x8000, 0xFF00}));
    QByteArray sheet;
    Put32(sheet, sheetAt);
    Put16(sheet, 0);
    PutRecord(bytes, kBoundSheet, sheet + Named(u"Sheet1"_s, true));
    return bytes;
}

void XlsSheet::AddSheet(QByteArray& bytes) const {
    PutRecord(bytes, kBof, Bof(0x0010));
    for (size_t i = 0; i < widths_.size(); ++i) {
        const auto column = static_cast<quint32>(i);
        const auto width = static_cast<quint32>(std::lround(widths_[i] * kWidthUnit + kWidthPadding));
        PutRecord(bytes, kColInfo, Numbers16({column, column, width, kStyleXfs, 0, 0}));
    }
    QByteArray size;
    Put32(size, 0);
    Put32(size, static_cast<quint32>(rows_));
    PutRecord(bytes, kDimensions, size + Numbers16({0, static_cast<quint32>(columns_), 0}));
    bytes += cells_;
    PutRecord(bytes, kWindow2, Numbers16({0x06B6, 0, 0, 0x0040, 0, 0, 0, 0, 0}));
    PutRecord(bytes, kEof, {});
}

QByteArray XlsSheet::File() const {
    constexpr qsizetype kEofSize = 4;
    const QByteArray strings = Strings();
    const auto globals = static_cast<quint32>(Globals(0).size() + strings.size() + kEofSize);
    QByteArray stream;
    stream.reserve(globals + cells_.size() + kMostBytes);
    stream += Globals(globals);
    stream += strings;
    PutRecord(stream, kEof, {});
    AddSheet(stream);
    return CompoundFile(u"Workbook"_s, std::move(stream));
}
