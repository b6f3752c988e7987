#include "web/web_lines.h"

#include "store/money.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kFieldsOfLine = 18;

/// What SQLite reads a number in, looked through from one end to the other.
class NumberReader {
 public:
    explicit NumberReader(QStringView text) : text_(text) {}
    bool IsNumber() {
        Skip(u" \t\n\v\f\r");
        Sign();
        const bool whole = Digits();
        const bool part = Take(u'.') && Digits();
        if (!whole && !part) return false;
        if (Take(u'e') || Take(u'E')) {
            Sign();
            if (!Digits()) return false;
        }
        Skip(u" \t\n\v\f\r");
        return at_ == text_.size();
    }

 private:
    bool Take(char16_t c) {
        if (at_ == text_.size() || text_[at_] != c) return false;
        ++at_;
        return true;
    }
    void Skip(QStringView these) {
        while (at_ < text_.size() && these.contains(text_[at_]))
            ++at_;
    }
    void Sign() { (void)(Take(u'+') || Take(u'-')); }
    bool Digits() {
        const auto from = at_;
        while (at_ < text_.size() && text_[at_] >= u'0' && text_[at_] <= u'9')
            ++at_;
        return at_ > from;
    }

    QStringView text_;
    qsizetype at_ = 0;
};

bool ReadsAsNumber(const QString& text) {
    return NumberReader(text).IsNumber();
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
                          : column.kind == whole ? ReadsAsNumber(field) && !WouldBecomeAnother(column, field)
                                                 : false;
    return asNumber ? PlainNumber(Val(field.trimmed())) : field;
}

bool WouldBecomeAnother(const WebColumn& column, const QString& field) {
    if (column.kind == WebColumn::Kind::text || !ReadsAsNumber(field)) return false;
    if (column.kind == WebColumn::Kind::amount) return !NumericValue(field);
    bool fits = false;
    field.trimmed().toDouble(&fits);
    return !fits;
}
