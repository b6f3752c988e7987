#include "store/money.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <limits>
#include <string>
#include <system_error>

using namespace Qt::StringLiterals;

namespace {

constexpr int kDigits = 15;  // decimal digits that a double keeps

// A number as sign, decimal digits and the place of the point: 0.digits × 10^exponent.
struct Decimal {
    bool negative = false;
    std::string digits;
    int exponent = 0;
};

Decimal DecimalOf(double x) {
    char text[40];
    std::snprintf(text, sizeof text, "%.*e", kDigits - 1, std::fabs(x));
    Decimal d;
    d.negative = std::signbit(x);
    for (const char* c = text; *c && *c != 'e'; ++c)
        if (*c >= '0' && *c <= '9') d.digits += *c;
    d.exponent = std::atoi(std::string(text).substr(std::string(text).find('e') + 1).c_str()) + 1;
    return d;
}

enum class Halves { toEven, awayFromZero };

bool RoundsUp(const std::string& digits, size_t keep, Halves halves) {
    if (keep >= digits.size()) return false;
    const bool exactHalf =
        digits[keep] == '5' && digits.find_first_not_of('0', keep + 1) == std::string::npos;
    if (exactHalf && halves == Halves::toEven) return keep > 0 && (digits[keep - 1] - '0') % 2 == 1;
    return digits[keep] >= '5';
}

// Whole hundredths as text, without sign: "1250" for 12.5.
std::string HundredthsOf(const Decimal& d, Halves halves) {
    const int places = d.exponent + 2;
    if (places < 0) return "0";
    auto digits = d.digits;
    const auto keep = static_cast<size_t>(places);
    const bool up = RoundsUp(digits, keep, halves);
    digits.resize(keep, '0');
    if (up) {
        auto i = digits.size();
        while (i > 0 && digits[i - 1] == '9')
            digits[--i] = '0';
        if (i > 0)
            ++digits[i - 1];
        else
            digits.insert(digits.begin(), '1');
    }
    const auto first = digits.find_first_not_of('0');
    return first == std::string::npos ? "0" : digits.substr(first);
}

// The whole hundredths of an amount that is far enough from a half for 15 digits not to matter: nearly every
// one. The others go through their decimal text.
std::optional<qint64> ClearHundredths(double x) {
    constexpr double kMost = 1e9, kNearHalf = 0.499;
    const double hundredths = x * 100;
    const double whole = std::round(hundredths);
    if (!(std::fabs(x) < kMost) || std::fabs(hundredths - whole) > kNearHalf) return {};
    return static_cast<qint64>(whole);
}

QString TwoPlacesOf(qint64 hundredths) {
    char16_t text[24];
    char16_t* const end = std::end(text);
    char16_t* at = end;
    qint64 rest = std::abs(hundredths);
    for (int digit = 0; digit < 3 || rest > 0; ++digit, rest /= 10) {
        if (digit == 2) *--at = u'.';
        *--at = static_cast<char16_t>(u'0' + rest % 10);
    }
    if (hundredths < 0) *--at = u'-';
    return QString(reinterpret_cast<const QChar*>(at), end - at);
}

QString TwoPlaces(double x, Halves halves) {
    if (const auto clear = ClearHundredths(x)) return TwoPlacesOf(*clear);
    const auto d = DecimalOf(x);
    auto hundredths = HundredthsOf(d, halves);
    const bool zero = hundredths == "0";
    if (hundredths.size() < 3) hundredths.insert(0, 3 - hundredths.size(), '0');
    hundredths.insert(hundredths.size() - 2, ".");
    if (d.negative && !zero) hundredths.insert(0, "-");
    return QString::fromStdString(hundredths);
}

bool HasExponent(const QString& text) {
    return text.contains(u'E') || text.contains(u'e');
}

// The number at the beginning of text, whatever decimal sign the desktop uses; infinite when it has no place
// in a double, 0 when it is none.
double Spelled(const std::string& text) {
    const char* from = text.c_str() + (text.starts_with('+') ? 1 : 0);
    double value = 0;
    const auto end = std::from_chars(from, text.c_str() + text.size(), value);
    return end.ec == std::errc::result_out_of_range ? std::numeric_limits<double>::infinity() : value;
}

// Number of significant digits of a text that is wholly a number, nullopt for any other text.
std::optional<int> SignificantDigits(QStringView text) {
    qsizetype at = 0;
    const auto is = [&](QStringView set) { return at < text.size() && set.contains(text[at]); };
    const auto isDigit = [&] { return is(u"0123456789"); };
    if (is(u"+-")) ++at;
    int digits = 0;
    int significant = 0;
    int zeros = 0;  // of the fraction, which count only before a further digit
    bool point = false;
    for (; isDigit() || (is(u".") && !point); ++at) {
        if (text[at] == u'.') {
            point = true;
            continue;
        }
        ++digits;
        if (text[at] != u'0') {
            significant += zeros + 1;
            zeros = 0;
        } else if (significant > 0) {
            ++(point ? zeros : significant);
        }
    }
    if (digits == 0) return {};
    if (is(u"eE")) {
        ++at;
        if (is(u"+-")) ++at;
        if (!isDigit()) return {};
        while (isDigit())
            ++at;
    }
    if (at != text.size()) return {};
    return significant;
}

}  // namespace

QString PlainNumber(double x) {
    return x == 0 ? u"0"_s : QString::number(x, 'G', kDigits);
}

QString MoneyText(double x) {
    if (!std::isfinite(x) || std::fabs(x) >= 1e15) return PlainNumber(x);
    if (const auto clear = ClearHundredths(x); clear && *clear % 100 == 0)
        return QString::number(*clear / 100);
    auto text = TwoPlaces(x, Halves::toEven);
    if (text.endsWith(u".00"_s)) text.chop(3);
    return text;
}

QString FixedText(double x) {
    return std::isfinite(x) ? TwoPlaces(x, Halves::awayFromZero) : PlainNumber(x);
}

double Val(QStringView text) {
    std::string number;
    bool point = false;
    bool exponent = false;
    for (const QChar c : text) {
        if (c == u' ' || c == u'\t' || c == u'\n' || c == u'\r') continue;
        const char ch = c.unicode() < 128 ? static_cast<char>(c.unicode()) : '\0';
        const bool signAllowed = number.empty() || (exponent && (number.back() == 'e'));
        if (ch >= '0' && ch <= '9') {
            number += ch;
        } else if ((ch == '+' || ch == '-') && signAllowed) {
            number += ch;
        } else if (ch == '.' && !point && !exponent) {
            point = true;
            number += ch;
        } else if ((ch == 'e' || ch == 'E') && !exponent && !number.empty()) {
            exponent = true;
            number += 'e';
        } else {
            break;
        }
    }
    const double value = Spelled(number);
    return std::isfinite(value) ? value : 0;
}

std::optional<double> NumericValue(QStringView text) {
    const auto trimmed = text.trimmed();
    const auto significant = SignificantDigits(trimmed);
    if (!significant || *significant > kDigits) return {};
    const double value = Spelled(trimmed.toLatin1().toStdString());
    if (!std::isfinite(value)) return {};
    return value;
}

bool LooksNumeric(QStringView text) {
    return SignificantDigits(text.trimmed()).has_value();
}

QString CleanAmount(const QString& text) {
    QString clean;
    for (const QChar c : text) {
        if (c.isSpace() || QStringView(u",，￥¥元").contains(c)) continue;
        const char16_t u = c.unicode();
        const bool fullWidth = (u >= u'０' && u <= u'９') || u == u'．' || u == u'－' || u == u'＋';
        if (u == u'。') {
            clean += u'.';
            continue;
        }
        clean += fullWidth ? QChar(static_cast<char16_t>(u - 0xFEE0)) : c;
    }
    return clean;
}

QString TwoDigits(int x) {
    return (x < 0 ? u"-"_s : QString()) + QString::number(std::abs(x)).rightJustified(2, u'0');
}

std::optional<int> Hundredths(double amount) {
    const double whole = std::round(FixedText(amount).toDouble() * 100);
    if (!std::isfinite(whole) || whole > std::numeric_limits<int>::max() ||
        whole < std::numeric_limits<int>::min())
        return {};
    return static_cast<int>(whole);
}

std::optional<int> TypedHundredths(const QString& text) {
    if (text.trimmed().isEmpty()) return 0;
    const auto amount = NumericValue(text);
    return amount ? Hundredths(*amount) : std::nullopt;
}

QString GroupNumber(double x, int nGroup, const QString& separator, const QString& zeroText) {
    return GroupText(PlainNumber(x), nGroup, separator, zeroText);
}

QString GroupText(const QString& plain, int nGroup, const QString& separator, const QString& zeroText) {
    const double x = plain.toDouble();
    const double rounded = std::fabs(x) < 1 ? FixedText(x).toDouble() : x;
    if (rounded == 0) return zeroText;
    if (std::fabs(rounded) < 1) return plain.startsWith(u'.') ? u'0' + plain : plain;
    const bool negative = plain.startsWith(u'-');
    const QString sign = negative ? u"-"_s : QString();
    const QString text = negative ? plain.mid(1) : plain;
    if ((nGroup != 3 && nGroup != 4) || text.size() <= nGroup || HasExponent(text)) return plain;
    const auto point = text.indexOf(u'.');
    QString whole = point < 0 ? text : text.left(point);
    const QString fraction = point < 0 ? QString() : text.mid(point);
    auto groups = whole.size() / nGroup;
    if (whole.size() % nGroup == 0) --groups;
    if (groups >= 6) return plain;
    for (auto i = groups; i > 0; --i)
        whole.insert(whole.size() - (groups - i + 1) * nGroup - (groups - i) * separator.size(), separator);
    return sign + whole + fraction;
}
