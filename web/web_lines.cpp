#include "web/web_lines.h"

#include "store/money.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

constexpr int kFieldsOfLine = 18;

bool ReadsAsNumber(const QString& text) {
    static const QRegularExpression number(
        uR"(\A[ \t\n\v\f\r]*[+-]?([0-9]+\.?[0-9]*|\.[0-9]+)([eE][+-]?[0-9]+)?[ \t\n\v\f\r]*\z)"_s);
    return number.match(text).hasMatch();
}

}  // namespace

const std::array<WebColumn, kWebFields>& WebColumns() {
    using enum WebColumn::Kind;
    static constexpr std::array<WebColumn, kWebFields> columns{{
        {u"Title1", 1, text},
        {u"Type1", 2, whole},
        {u"TypeName1", 3, text},
        {u"nSign1", 4, whole},
        {u"Value1", 5, amount},
        {u"Date1", 7, text},
        {u"Time1", 8, text},
        {u"Note1", 9, text},
        {u"nSign2", 10, whole},
        {u"Type2", 11, whole},
        {u"TypeName2", 12, text},
        {u"AccId", 13, whole},
        {u"AccName", 14, text},
        {u"AccValue", 15, amount},
        {u"AccSign", 16, whole},
        {u"AccNote", 17, text},
    }};
    return columns;
}

WebDelivery ReadDelivery(const QString& text) {
    WebDelivery delivery;
    for (const QString& line : text.split(u"\r\n"_s)) {
        if (line.isEmpty()) continue;
        ++delivery.count;
        const QStringList fields = line.split(kFieldEnd);
        if (fields.size() != kFieldsOfLine) {
            ++delivery.skipped;
            continue;
        }
        WebLine stored;
        for (size_t i = 0; i < kWebFields; ++i)
            stored[i] = fields[WebColumns()[i].field];
        for (const auto note : {kWebNote, kWebAccountNote})
            stored[note].replace(kBreakInField, u"\r\n"_s);
        delivery.lines.push_back(std::move(stored));
    }
    return delivery;
}

QString StoredText(const WebColumn& column, const QString& field) {
    using enum WebColumn::Kind;
    const bool asNumber = column.kind == amount  ? NumericValue(field).has_value()
                          : column.kind == whole ? ReadsAsNumber(field)
                                                 : false;
    return asNumber ? PlainNumber(Val(field.trimmed())) : field;
}

bool WouldBecomeANumber(const QString& text) {
    return ReadsAsNumber(text) && !NumericValue(text);
}
