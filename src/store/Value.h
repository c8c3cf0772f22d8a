#pragma once

#include "core/Conversions.h"

#include <QByteArray>
#include <QDate>
#include <QString>

#include <variant>

namespace kelvado {

/// One value of a catalog column. Dates, currency and booleans are kept as the catalog keeps them:
/// a date as yyyy-mm-dd, an amount as a decimal number, a boolean as 0 or 1.
class Value
{
public:
    Value() = default; ///< Null
    Value(std::int64_t number) : m_data(number) {}
    Value(long long number) : m_data(static_cast<std::int64_t>(number)) {}
    Value(int number) : m_data(static_cast<std::int64_t>(number)) {}
    Value(double number) : m_data(number) {}
    Value(bool flag) : m_data(static_cast<std::int64_t>(flag ? 1 : 0)) {}
    Value(const QString& text) : m_data(text) {}
    Value(QString&& text) : m_data(std::move(text)) {}
    Value(const QByteArray& bytes) : m_data(bytes) {}
    Value(QDate date); ///< Null for an invalid date
    Value(Currency amount);
    Value(const char*) = delete;

    bool IsNull() const { return std::holds_alternative<std::monostate>(m_data); }
    bool IsBytes() const { return std::holds_alternative<QByteArray>(m_data); }
    bool IsText() const { return std::holds_alternative<QString>(m_data); }

    /// The text form. Raises `kErrInvalidNull` for Null.
    QString Text() const;
    /// The number that the value holds or reads as. Raises `kErrInvalidNull` for Null, `kErrTypeMismatch` for a text that is no number.
    double Number() const;
    /// As `Number`, rounded, ties to even. Raises `kErrOverflow` outside 64 bits.
    std::int64_t Integer() const;
    /// The bytes; a text's UTF-8. Raises `kErrInvalidNull` for Null.
    QByteArray Bytes() const;

    const std::variant<std::monostate, std::int64_t, double, QString, QByteArray>& Data() const { return m_data; }

    friend bool operator==(const Value&, const Value&) = default;

private:
    std::variant<std::monostate, std::int64_t, double, QString, QByteArray> m_data;
};

} // namespace kelvado
