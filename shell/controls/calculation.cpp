#include "shell/controls/calculation.h"

#include <algorithm>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {
__extension__ using Wide = __int128;

constexpr int kDigits = 15;

Wide Power(int n) {
    Wide result = 1;
    for (int i = 0; i < n; ++i)
        result *= 10;
    return result;
}

int DigitsOf(Wide m) {
    int digits = 0;
    for (; m != 0; m /= 10)
        ++digits;
    return digits;
}

// At most 15 digits and at most 15 decimals, halves away from zero, no trailing zeros in the mantissa.
std::optional<Decimal> Normal(Wide m, int e) {
    const int drop = std::max(DigitsOf(m) - kDigits, -kDigits - e);
    if (drop > 0) {
        const Wide unit = Power(std::min(drop, 37));
        m = (m + (m < 0 ? -unit / 2 : unit / 2)) / unit;
        e += drop;
    }
    if (m == 0) return Decimal{};
    for (; m % 10 == 0; m /= 10)
        ++e;
    if (DigitsOf(m) + e > kDigits) return std::nullopt;
    return Decimal{static_cast<qint64>(m), e};
}

QString SignOf(QChar key) {
    if (key == u'*') return u"×"_s;
    if (key == u'/') return u"÷"_s;
    return key == u'-' ? u"−"_s : u"+"_s;
}
}  // namespace

std::optional<Decimal> Decimal::FromText(QStringView text) {
    Wide m = 0;
    int decimals = -1;
    bool any = false;
    const bool minus = text.startsWith(u'-');
    for (const QChar c : minus ? text.mid(1) : text) {
        if (c == u'.' && decimals < 0) {
            decimals = 0;
            continue;
        }
        if (c < u'0' || c > u'9' || DigitsOf(m) > 2 * kDigits) return std::nullopt;
        m = m * 10 + c.digitValue();
        any = true;
        if (decimals >= 0) ++decimals;
    }
    if (!any) return std::nullopt;
    return Normal(minus ? -m : m, -std::max(decimals, 0));
}

QString Decimal::Text() const {
    QString digits = QString::number(std::abs(mantissa));
    if (exponent >= 0) {
        digits += QString(exponent, u'0');
    } else {
        digits = digits.rightJustified(1 - exponent, u'0');
        digits.insert(digits.size() + exponent, u'.');
    }
    return mantissa < 0 ? u"-"_s + digits : digits;
}

std::optional<Decimal> Add(const Decimal& a, const Decimal& b) {
    const int e = std::min(a.exponent, b.exponent);
    return Normal(a.mantissa * Power(a.exponent - e) + b.mantissa * Power(b.exponent - e), e);
}

std::optional<Decimal> Multiply(const Decimal& a, const Decimal& b) {
    return Normal(static_cast<Wide>(a.mantissa) * b.mantissa, a.exponent + b.exponent);
}

std::optional<Decimal> Divide(const Decimal& a, const Decimal& b) {
    if (b.mantissa == 0) return std::nullopt;
    // The numerator gets as many digits as 128 bits hold, so that 15 of the quotient are exact.
    const int more = 2 * kDigits + 7 - DigitsOf(a.mantissa);
    return Normal(a.mantissa * Power(more) / b.mantissa, a.exponent - b.exponent - more);
}

void Calculation::Start(const QString& value) {
    *this = Calculation{};
    if (const auto number = Decimal::FromText(value)) entry_ = number->Text();
}

void Calculation::Press(QChar key) {
    if (key == u'C') return Start({});
    if (failed_) return;
    if (key.isDigit() || key == u'.') return Digit(key);
    switch (key.unicode()) {
        case u'B':
            if (fresh_) return;
            entry_.chop(1);
            if (entry_.isEmpty() || entry_ == u"-"_s) entry_ = u"0"_s;
            return;
        case u'N':
            if (entry_ != u"0"_s) entry_ = entry_.startsWith(u'-') ? entry_.mid(1) : u"-"_s + entry_;
            fresh_ = fresh_ && pending_.isNull();
            return;
        case u'%':
            return Percent();
        case u'=':
            Equals();
            return;
        default:
            Operator(key);
    }
}

void Calculation::Digit(QChar key) {
    if (fresh_) entry_ = u"0"_s;
    fresh_ = false;
    if (key == u'.') {
        if (!entry_.contains(u'.')) entry_ += key;
        return;
    }
    const auto digits = std::count_if(entry_.cbegin(), entry_.cend(), [](QChar c) { return c.isDigit(); });
    if (digits >= kDigits) return;
    if (entry_ == u"0"_s) entry_.clear();
    entry_ += key;
}

void Calculation::Percent() {
    const auto number = Decimal::FromText(entry_);
    const auto part = number ? Multiply(*number, {1, -2}) : std::nullopt;
    if (part) entry_ = part->Text();
    fresh_ = false;
}

void Calculation::Operator(QChar key) {
    if (fresh_ && !pending_.isNull()) {
        trail_.chop(1);
    } else {
        const QString typed = entry_.endsWith(u'.') ? entry_.chopped(1) : entry_;
        if (!Apply()) return;
        trail_ += (trail_.isEmpty() ? QString() : u" "_s) + typed + u" "_s;
    }
    trail_ += SignOf(key);
    pending_ = key;
    fresh_ = true;
}

void Calculation::Equals() {
    if (!Apply()) return;
    pending_ = QChar();
    trail_.clear();
    fresh_ = true;
}

// The pending operation on the sum so far and the number on display.
bool Calculation::Apply() {
    const auto number = Decimal::FromText(entry_);
    std::optional<Decimal> sum = number;
    if (number && pending_ == u'+') sum = Add(total_, *number);
    if (number && pending_ == u'-') sum = Add(total_, {-number->mantissa, number->exponent});
    if (number && pending_ == u'*') sum = Multiply(total_, *number);
    if (number && pending_ == u'/') sum = Divide(total_, *number);
    failed_ = !sum;
    if (failed_) return false;
    total_ = *sum;
    entry_ = sum->Text();
    return true;
}

std::optional<QString> Calculation::Result() {
    if (!failed_) Equals();
    return failed_ ? std::nullopt : std::optional(entry_);
}
