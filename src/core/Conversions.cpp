#include "core/Conversions.h"

#include "core/Literals.h"
#include "core/RuntimeError.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

namespace kelvado {

namespace {

// A number's text without outer blanks, thousands commas and a leading plus, in the form that QString::toDouble reads; empty where
// `text` is no number.
QByteArray PlainNumber(QStringView text)
{
    const QStringView trimmed = text.trimmed();
    QByteArray plain;
    plain.reserve(trimmed.size());
    bool anyDigit = false;
    bool afterPoint = false;
    bool inExponent = false;
    for (const QChar character : trimmed) {
        const char16_t c = character.unicode();
        if (c >= u'0' && c <= u'9') {
            anyDigit = true;
        } else if (c == u'+' || c == u'-') {
            const bool leads = plain.isEmpty() || (inExponent && (plain.back() == 'e'));
            if (!leads)
                return {};
        } else if (c == u'.') {
            if (afterPoint || inExponent)
                return {};
            afterPoint = true;
        } else if (c == u',') {
            if (!anyDigit || afterPoint || inExponent)
                return {};
            continue;
        } else if (c == u'e' || c == u'E' || c == u'd' || c == u'D') {
            if (inExponent || !anyDigit)
                return {};
            inExponent = true;
            plain.append('e');
            continue;
        } else {
            return {};
        }
        plain.append(static_cast<char>(c));
    }
    if (!anyDigit || plain.back() == 'e' || (inExponent && (plain.back() == '+' || plain.back() == '-')))
        return {};
    return plain;
}

// The upper half of Windows-1252 where it differs from Latin-1; places that the code page leaves open keep their number.
constexpr char16_t kCodePageUpper[32] = {0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
                                         0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
                                         0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

} // namespace

QDate ZeroDate()
{
    return {1899, 12, 30};
}

bool IsNumeric(QStringView text)
{
    const QByteArray plain = PlainNumber(text);
    if (plain.isEmpty())
        return false;
    bool ok = false;
    plain.toDouble(&ok);
    return ok;
}

double ToDouble(QStringView text)
{
    const QByteArray plain = PlainNumber(text);
    bool ok = false;
    const double number = plain.isEmpty() ? 0 : plain.toDouble(&ok);
    if (!ok)
        throw RuntimeError::WithDetail(kErrTypeMismatch, u"\"%1\" is no number"_s.arg(text.left(60)));
    return number;
}

std::int32_t ToLong(QStringView text)
{
    return RoundToLong(ToDouble(text));
}

std::int32_t RoundToLong(double value)
{
    const double rounded = RoundHalfEven(value);
    if (!(rounded >= std::numeric_limits<std::int32_t>::min() && rounded <= std::numeric_limits<std::int32_t>::max()))
        throw RuntimeError(kErrOverflow);
    return static_cast<std::int32_t>(rounded);
}

FilmId ToFilmId(QStringView text)
{
    bool isNumber = false;
    const FilmId film = text.toLongLong(&isNumber);
    if (!isNumber)
        throw RuntimeError(kErrTypeMismatch);
    return film;
}

double RoundHalfEven(double value)
{
    const double whole = std::floor(value);
    const double rest = value - whole;
    if (rest < 0.5)
        return whole;
    if (rest > 0.5)
        return whole + 1;
    return std::fmod(whole, 2.0) == 0 ? whole : whole + 1;
}

bool ToBoolean(QStringView text)
{
    const QStringView trimmed = text.trimmed();
    if (trimmed.compare(u"True", Qt::CaseInsensitive) == 0)
        return true;
    if (trimmed.compare(u"False", Qt::CaseInsensitive) == 0)
        return false;
    return ToDouble(trimmed) != 0;
}

bool EqualsTrue(QStringView text)
{
    const QStringView trimmed = text.trimmed();
    return trimmed.compare(u"True", Qt::CaseInsensitive) == 0 || (IsNumeric(trimmed) && ToDouble(trimmed) == -1);
}

Currency ToCurrency(QStringView text)
{
    const double scaled = RoundHalfEven(ToDouble(text) * 10000.0);
    if (!(std::abs(scaled) < 9.2e18))
        throw RuntimeError(kErrOverflow);
    return {static_cast<std::int64_t>(scaled)};
}

QString NumberText(double value)
{
    return value == 0 ? u"0"_s : QString::number(value, 'g', 15);
}

QString CurrencyText(Currency amount)
{
    const bool negative = amount.tenThousandths < 0;
    const auto magnitude =
        negative ? 0 - static_cast<std::uint64_t>(amount.tenThousandths) : static_cast<std::uint64_t>(amount.tenThousandths);
    QString text = QString::number(magnitude / 10000);
    QString decimals = QString::number(magnitude % 10000).rightJustified(4, u'0');
    while (decimals.endsWith(u'0'))
        decimals.chop(1);
    if (!decimals.isEmpty())
        text += u'.' + decimals;
    return negative ? u'-' + text : text;
}

QString DateText(QDate date)
{
    return !date.isValid() || date == ZeroDate() ? QString() : date.toString(Qt::ISODate);
}

std::optional<QDate> DateFromText(QStringView text)
{
    const QDate date = QDate::fromString(text.toString(), Qt::ISODate);
    return date.isValid() && text.size() == 10 ? std::optional(date) : std::nullopt;
}

QString TrimBlanks(QStringView text)
{
    while (text.startsWith(u' '))
        text = text.sliced(1);
    while (text.endsWith(u' '))
        text.chop(1);
    return text.toString();
}

QString FromWindows1252(QByteArrayView bytes)
{
    QString text = QString::fromLatin1(bytes);
    for (QChar& c : text) {
        if (c >= u'\x80' && c < u'\xA0')
            c = kCodePageUpper[c.unicode() - 0x80];
    }
    return text;
}

QByteArray ToWindows1252(QStringView text)
{
    QByteArray bytes;
    bytes.reserve(text.size());
    for (const QChar c : text) {
        if (c < u'\x80' || (c >= u'\xA0' && c <= u'\xFF')) {
            bytes.append(static_cast<char>(c.unicode()));
            continue;
        }
        const auto* const upper = std::find(std::begin(kCodePageUpper), std::end(kCodePageUpper), c.unicode());
        bytes.append(upper == std::end(kCodePageUpper) ? '?' : static_cast<char>(0x80 + (upper - std::begin(kCodePageUpper))));
    }
    return bytes;
}

QString DecodeEntities(const QString& text)
{
    constexpr qsizetype kLastPosition = 32767;
    // Each pass reads the whole text for one spelling of a code. No text has more of them but one that is made to hold the program up.
    constexpr int kMostPasses = 512;
    QString decoded = text;
    for (int pass = 0; pass < kMostPasses; ++pass) {
        const qsizetype start = decoded.indexOf(u"&#");
        if (start < 0)
            return decoded;
        const qsizetype end = decoded.indexOf(u';');
        if (end < start || start + 1 > kLastPosition || end + 1 > kLastPosition)
            return decoded;
        const QStringView digits = QStringView(decoded).sliced(start + 2, end - start - 2);
        if (!IsNumeric(digits))
            return decoded;
        const double code = RoundHalfEven(ToDouble(digits));
        if (!(code >= 0 && code <= 0x10FFFF) || QChar::isSurrogate(static_cast<char32_t>(code)))
            return decoded;
        const auto place = static_cast<char32_t>(code);
        const char32_t letter = place >= 0x80 && place < 0xA0 ? kCodePageUpper[place - 0x80] : place;
        const QString entity = decoded.sliced(start, end - start + 1);
        decoded.replace(entity, QStringView(QChar::fromUcs4(letter)).toString());
    }
    return decoded;
}

} // namespace kelvado
