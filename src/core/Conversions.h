#pragma once

#include "core/FilmId.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QDate>
#include <QString>
#include <QStringView>

#include <cstdint>
#include <optional>

namespace kelvado {

/// An amount of money as a whole number of ten-thousandths, so that sums stay exact.
struct Currency
{
    std::int64_t tenThousandths = 0;
    friend bool operator==(const Currency&, const Currency&) = default;
};

/// The date that stands for "no date": 1899-12-30. It is stored like any other and shows as the empty text.
QDate ZeroDate();

/// True for a text that reads as a number: blanks around it, a sign, a decimal point, thousands commas and an exponent are allowed.
/// False for the empty text.
bool IsNumeric(QStringView text);

/// The number that `text` reads as. Raises `kErrTypeMismatch` where `IsNumeric` is false.
double ToDouble(QStringView text);

/// The whole number that `text` reads as, ties rounded to even. Raises `kErrTypeMismatch` for no number, `kErrOverflow` outside 32 bits.
std::int32_t ToLong(QStringView text);

/// `value` as a whole number, ties rounded to even. Raises `kErrOverflow` outside 32 bits.
std::int32_t RoundToLong(double value);

/// The film's number that `text` is. Raises `kErrTypeMismatch` for any other text.
FilmId ToFilmId(QStringView text);

/// Rounds to a whole number, ties to even.
double RoundHalfEven(double value);

/// Reads "True" and "False" in any case and numbers (0 is false). Raises `kErrTypeMismatch` for any other text.
bool ToBoolean(QStringView text);

/// True if `text` says that a setting is on, as "-1" and "True" do; never raises.
bool EqualsTrue(QStringView text);

/// The amount that `text` reads as, ties rounded to even at the fourth decimal. Raises `kErrTypeMismatch` for no number, `kErrOverflow`
/// outside the range.
Currency ToCurrency(QStringView text);

/// The shortest decimal text of a number: "8", "7.5", "-0.25"; at most 15 digits, a point as decimal sign.
QString NumberText(double value);
QString CurrencyText(Currency amount);

/// yyyy-mm-dd; the empty text for the zero date and for an invalid date.
QString DateText(QDate date);

/// Reads yyyy-mm-dd. Nothing for any other text.
std::optional<QDate> DateFromText(QStringView text);

/// The text without outer blanks; tabs and other white space stay.
QString TrimBlanks(QStringView text);

/// The text of bytes in Windows-1252; the five places that the code page leaves open keep their number. Never raises.
QString FromWindows1252(QByteArrayView bytes);
/// The bytes of a text in Windows-1252, with "?" for what the code page does not hold. Never raises.
QByteArray ToWindows1252(QStringView text);

/// Replaces numeric entities ("&#246;") by the characters of those codes in Windows-1252, and above 255 by their letters. The first "&#"
/// and the first ";" of the text make the entity, and every occurrence of it goes at once. The decoding ends quietly at the first one that
/// cannot be read: no ";", a ";" in front of the "&#", a hexadecimal code, a code that is no letter, a position above 32767, the 513th
/// different entity. Never raises.
QString DecodeEntities(const QString& text);

} // namespace kelvado
