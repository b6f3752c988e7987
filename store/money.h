#pragma once
// Numbers as texts. All rounding works on the 15-digit decimal text of a number, not on its binary value.

#include <QString>
#include <QStringView>

#include <optional>

/// Amounts lie below it, with twelve whole digits: their sums stay right to the fen.
inline constexpr double kTooMuch = 1e12;

/// Plain number text with at most 15 significant digits; exponent form from 1E+15 on.
QString PlainNumber(double x);

/// x rounded to 2 places, halves to the even digit: "12", "12.50".
QString MoneyText(double x);

/// x rounded to 2 places, halves away from zero, always with two decimals: "12.00".
QString FixedText(double x);

/// The number that the leading characters of text spell; 0 if there is none or it is not finite.
double Val(QStringView text);

/// The value of a text that is wholly a number: sign, digits with at most one point, exponent; finite and
/// of at most 15 significant digits. Blanks at the ends do not count.
std::optional<double> NumericValue(QStringView text);

/// The general number test of codes: as NumericValue, with any number of digits.
bool LooksNumeric(QStringView text);

/// What an amount box makes of typed or pasted text: separators, currency signs and blanks drop out,
/// full-width digits become ASCII. Nothing else is refused.
QString CleanAmount(const QString& text);

/// A whole number with at least two digits: "07", "-01".
QString TwoDigits(int x);

/// Whole hundredths of an amount, if they fit 32 bits.
std::optional<int> Hundredths(double amount);
/// Those of a text; 0 for a blank one, nullopt for one that is no number.
std::optional<int> TypedHundredths(const QString& text);

/// x in groups of nGroup digits (3 or 4, otherwise none); zeroText when it rounds to 0.
/// Decimals beyond two survive.
QString GroupNumber(double x, int nGroup, const QString& separator, const QString& zeroText);
/// The same on a number's text, for cells that hold texts already.
QString GroupText(const QString& plain, int nGroup, const QString& separator, const QString& zeroText);
