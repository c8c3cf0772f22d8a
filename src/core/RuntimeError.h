#pragma once

#include <QString>

#include <exception>

namespace kelvado {

/// Numbers of the run-time failures that our own code raises. Database failures carry `kErrDatabase` and the engine's text.
inline constexpr int kErrInvalidCall = 5;
inline constexpr int kErrOverflow = 6;
inline constexpr int kErrOutOfMemory = 7; ///< also what stands for any failure that is no run-time failure
inline constexpr int kErrSubscript = 9;
inline constexpr int kErrDivisionByZero = 11;
inline constexpr int kErrTypeMismatch = 13;
inline constexpr int kErrFileNotFound = 53;
inline constexpr int kErrFileAccess = 75;
inline constexpr int kErrObjectNotSet = 91;
inline constexpr int kErrInvalidNull = 94;
inline constexpr int kErrObjectRequired = 424;
inline constexpr int kErrInvalidPicture = 481;
inline constexpr int kErrNoCurrentRecord = 3021;
inline constexpr int kErrItemNotFound = 3265;
inline constexpr int kErrCancelled = 32755;
inline constexpr int kErrElementNotFound = 35601;
inline constexpr int kErrDatabase = -2147467259;

/// A failure at run time: a number and a text for the user. It ends the operation that raised it, and is shown at the edge of the
/// handler that began the operation; it never crosses the event loop, a destructor or a C callback.
class RuntimeError : public std::exception
{
public:
    /// Takes the number's standard description.
    explicit RuntimeError(int number);
    /// `detail` follows the standard description, behind a colon.
    static RuntimeError WithDetail(int number, const QString& detail);
    RuntimeError(int number, const QString& description);

    int Number() const { return m_number; }
    const QString& Description() const { return m_description; }
    const char* what() const noexcept override { return m_utf8.constData(); }

private:
    int m_number;
    QString m_description;
    QByteArray m_utf8;
};

/// The standard description of one of the numbers above; a general text for any other.
QString DescriptionOfError(int number);

} // namespace kelvado
