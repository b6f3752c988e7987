#pragma once
// The pocket calculator's arithmetic: decimal, from left to right, 15 digits.

#include <QString>
#include <QStringView>

#include <optional>

/// mantissa × 10^exponent, the mantissa of at most 15 digits.
struct Decimal {
    qint64 mantissa = 0;
    int exponent = 0;

    static std::optional<Decimal> FromText(QStringView text);
    QString Text() const;
};

std::optional<Decimal> Add(const Decimal& a, const Decimal& b);
std::optional<Decimal> Multiply(const Decimal& a, const Decimal& b);
/// Nothing for a division by 0, and nothing where the result has more than 15 digits before the point.
std::optional<Decimal> Divide(const Decimal& a, const Decimal& b);

/// Keys: digits, '.', '+', '-', '*', '/', '=', '%' (the number divided by 100), 'C' clears, 'B' takes the
/// last digit away, 'N' changes the sign.
class Calculation {
 public:
    void Start(const QString& value);
    void Press(QChar key);
    /// What the display shows: a plain number, or 错误.
    QString Shown() const { return failed_ ? QStringLiteral("错误") : entry_; }
    /// The running sum above it, such as "12 ÷ 3 +".
    QString Trail() const { return trail_; }
    bool Failed() const { return failed_; }
    /// Finishes the pending operation and returns the value; nothing after an error.
    std::optional<QString> Result();

 private:
    void Digit(QChar key);
    void Percent();
    void Operator(QChar key);
    void Equals();
    bool Apply();

    QString entry_ = QStringLiteral("0");
    QString trail_;
    Decimal total_;
    QChar pending_;
    bool fresh_ = true;  ///< the next digit begins a new number
    bool failed_ = false;
};
