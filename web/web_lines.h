#pragma once
// The text in which the web ledger's site hands its entries over: lines of 18 fields.

#include <QString>
#include <QStringList>

#include <array>
#include <vector>

inline constexpr QChar kFieldEnd = u'∴';
inline constexpr QChar kBreakInField = u'⊙';

/// The fields of a line that are stored, under the names of their columns and in their order.
enum WebField {
    kWebTitle,
    kWebType1,
    kWebTypeName1,
    kWebSign1,
    kWebValue,
    kWebDate,
    kWebTime,
    kWebNote,
    kWebSign2,
    kWebType2,
    kWebTypeName2,
    kWebAccount,
    kWebAccountName,
    kWebAccountValue,
    kWebAccountSign,
    kWebAccountNote,
    kWebFields
};
using WebLine = std::array<QString, kWebFields>;

struct WebColumn {
    const char16_t* name;
    int field;  ///< place in a line of the site
    enum class Kind { text, whole, amount } kind;
};
const std::array<WebColumn, kWebFields>& WebColumns();

struct WebDelivery {
    std::vector<WebLine> lines;
    int count = 0;    ///< lines that are not empty
    int skipped = 0;  ///< those among them that have another number of fields
};
WebDelivery ReadDelivery(const QString& text);

/// What a field becomes in its column, as a text: two fields are stored alike when these are equal.
QString StoredText(const WebColumn& column, const QString& field);
/// True for a text that SQLite makes a number of when it comes into the column, though it is none by our
/// rules, or none that it could hold.
bool WouldBecomeAnother(const WebColumn& column, const QString& field);
