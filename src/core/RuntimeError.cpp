#include "core/RuntimeError.h"

#include "core/Literals.h"

#include <array>
#include <utility>

namespace kelvado {

namespace {

constexpr std::array<std::pair<int, const char*>, 13> kDescriptions{{
    {kErrInvalidCall, "Invalid procedure call or argument"},
    {kErrOverflow, "Overflow"},
    {kErrSubscript, "Subscript out of range"},
    {kErrDivisionByZero, "Division by zero"},
    {kErrTypeMismatch, "Type mismatch"},
    {kErrFileNotFound, "File not found"},
    {kErrFileAccess, "Path/File access error"},
    {kErrObjectNotSet, "Object variable not set"},
    {kErrInvalidNull, "Invalid use of Null"},
    {kErrObjectRequired, "Object required"},
    {kErrInvalidPicture, "Invalid picture"},
    {kErrNoCurrentRecord, "There is no current record"},
    {kErrCancelled, "Cancel was selected"},
}};

} // namespace

QString DescriptionOfError(int number)
{
    for (const auto& [known, text] : kDescriptions) {
        if (known == number)
            return QString::fromLatin1(text);
    }
    if (number == kErrItemNotFound)
        return u"Item cannot be found in the collection corresponding to the requested name or ordinal"_s;
    if (number == kErrElementNotFound)
        return u"Element not found"_s;
    return u"Application-defined or object-defined error"_s;
}

RuntimeError::RuntimeError(int number) : RuntimeError(number, DescriptionOfError(number)) {}

RuntimeError::RuntimeError(int number, const QString& description)
    : m_number(number), m_description(description), m_utf8(description.toUtf8())
{
}

RuntimeError RuntimeError::WithDetail(int number, const QString& detail)
{
    return {number, DescriptionOfError(number) + u": "_s + detail};
}

} // namespace kelvado
