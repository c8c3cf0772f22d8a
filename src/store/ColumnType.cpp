#include "store/ColumnType.h"

#include "core/Literals.h"
#include "core/RuntimeError.h"

#include <algorithm>

namespace kelvado {

namespace {

constexpr qsizetype kMemoSize = 536870910;
constexpr qsizetype kBinarySize = 1073741823;
// Wide enough for the text form of any number, date, truth value or amount.
constexpr qsizetype kPlainSize = 64;

struct DeclaredWord
{
    const char* word;
    ColumnKind kind;
};

// The first word that occurs decides: "FLOATING POINT" has a whole number's word in it too.
constexpr DeclaredWord kDeclaredWords[] = {
    {"CHAR", ColumnKind::Text},      {"CLOB", ColumnKind::Text},   {"TEXT", ColumnKind::Text},    {"BLOB", ColumnKind::Binary},
    {"BINARY", ColumnKind::Binary},  {"DATE", ColumnKind::Date},   {"BOOL", ColumnKind::Boolean}, {"CURRENCY", ColumnKind::Currency},
    {"MONEY", ColumnKind::Currency}, {"REAL", ColumnKind::Number}, {"FLOA", ColumnKind::Number},  {"DOUB", ColumnKind::Number},
    {"SINGLE", ColumnKind::Number},  {"NUM", ColumnKind::Number},  {"DEC", ColumnKind::Number},   {"INT", ColumnKind::Whole},
    {"LONG", ColumnKind::Whole},
};

QString TextInBrackets(const QByteArray& declaration)
{
    const qsizetype open = declaration.indexOf('(');
    const qsizetype close = declaration.indexOf(')', open + 1);
    return open < 0 || close < 0 ? QString() : QString::fromLatin1(declaration.mid(open + 1, close - open - 1)).trimmed();
}

Value StoredDate(const Value& value)
{
    QString text = value.Text().trimmed();
    if (DateFromText(text))
        return text;
    for (const QString& format : {u"MM/dd/yyyy"_s, u"M/d/yyyy"_s}) {
        const QDate date = QDate::fromString(text, format);
        if (date.isValid())
            return date;
    }
    throw RuntimeError(kErrTypeMismatch);
}

Value StoredNumber(const Value& value)
{
    if (!value.IsText() || !IsNumeric(value.Text()))
        return value;
    const double number = value.Number();
    const auto whole = static_cast<std::int64_t>(std::clamp(number, -1e15, 1e15));
    return static_cast<double>(whole) == number ? Value(whole) : Value(number);
}

Value Convert(ColumnKind kind, const Value& value)
{
    switch (kind) {
    case ColumnKind::Text:
        return value.IsText() ? value : Value(value.Text());
    case ColumnKind::Whole:
        return value.Integer();
    case ColumnKind::Number:
        return StoredNumber(value);
    case ColumnKind::Boolean:
        return value.IsText() ? ToBoolean(value.Text()) : value.Number() != 0;
    case ColumnKind::Date:
        return StoredDate(value);
    case ColumnKind::Currency:
        return ToCurrency(value.Text());
    case ColumnKind::Binary:
        return value.Bytes();
    case ColumnKind::Any:
    case ColumnKind::Expression:
        break;
    }
    return value;
}

} // namespace

bool HoldsNoTexts(ColumnKind kind)
{
    return kind == ColumnKind::Whole || kind == ColumnKind::Number || kind == ColumnKind::Boolean || kind == ColumnKind::Date ||
           kind == ColumnKind::Currency;
}

ColumnType TypeOfDeclaration(const char* declaration)
{
    if (!declaration)
        return {ColumnKind::Any, kMemoSize};
    const QByteArray type = QByteArray(declaration).toUpper();
    for (const auto& [word, kind] : kDeclaredWords) {
        if (!type.contains(word))
            continue;
        if (kind == ColumnKind::Binary)
            return {kind, kBinarySize};
        if (kind != ColumnKind::Text)
            return {kind, kPlainSize};
        bool hasSize = false;
        const qsizetype size = TextInBrackets(type).toInt(&hasSize);
        return {kind, hasSize ? size : kMemoSize};
    }
    return {ColumnKind::Any, kMemoSize};
}

Value ToStored(ColumnKind kind, const Value& value, const QString& column)
{
    if (value.IsNull() || (HoldsNoTexts(kind) && value.IsText() && value.Text().trimmed().isEmpty()))
        return {};
    try {
        return Convert(kind, value);
    } catch (const RuntimeError& error) {
        throw RuntimeError(error.Number(), error.Description() + u" ("_s + column + u')');
    }
}

} // namespace kelvado
