#include "store/Value.h"

#include "core/RuntimeError.h"

namespace kelvado {

Value::Value(QDate date)
{
    if (date.isValid())
        m_data = date.toString(Qt::ISODate);
}

Value::Value(Currency amount)
{
    if (amount.tenThousandths % 10000 == 0)
        m_data = amount.tenThousandths / 10000;
    else
        m_data = static_cast<double>(amount.tenThousandths) / 10000.0;
}

QString Value::Text() const
{
    if (const auto* text = std::get_if<QString>(&m_data))
        return *text;
    if (const auto* whole = std::get_if<std::int64_t>(&m_data))
        return QString::number(*whole);
    if (const auto* number = std::get_if<double>(&m_data))
        return NumberText(*number);
    if (const auto* bytes = std::get_if<QByteArray>(&m_data))
        return QString::fromUtf8(*bytes);
    throw RuntimeError(kErrInvalidNull);
}

double Value::Number() const
{
    if (const auto* number = std::get_if<double>(&m_data))
        return *number;
    if (const auto* whole = std::get_if<std::int64_t>(&m_data))
        return static_cast<double>(*whole);
    return ToDouble(Text());
}

std::int64_t Value::Integer() const
{
    if (const auto* whole = std::get_if<std::int64_t>(&m_data))
        return *whole;
    const double rounded = RoundHalfEven(Number());
    // 2 to the 63rd is the first double that 64 bits cannot hold.
    if (!(rounded >= -9223372036854775808.0 && rounded < 9223372036854775808.0))
        throw RuntimeError(kErrOverflow);
    return static_cast<std::int64_t>(rounded);
}

QByteArray Value::Bytes() const
{
    if (const auto* bytes = std::get_if<QByteArray>(&m_data))
        return *bytes;
    return Text().toUtf8();
}

} // namespace kelvado
