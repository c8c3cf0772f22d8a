#include "store/JetFunctions.h"

#include "core/Conversions.h"
#include "store/CaseBlind.h"

#include <QString>

#include <sqlite3.h>

#include <algorithm>

namespace kelvado {

namespace {

QString TextOf(sqlite3_value* value)
{
    return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_value_text(value)), sqlite3_value_bytes(value));
}

void Answer(sqlite3_context* context, const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    sqlite3_result_text64(context, bytes.constData(), static_cast<sqlite3_uint64>(bytes.size()), SQLITE_TRANSIENT, SQLITE_UTF8);
}

using Arguments = sqlite3_value**;

// Null in gives Null out, as for every function of the dialect but IsNumeric.
void Asc(sqlite3_context* context, Arguments arguments)
{
    const QString text = TextOf(arguments[0]);
    if (!text.isEmpty())
        sqlite3_result_int(context, text.front().unicode());
}

void Left(sqlite3_context* context, Arguments arguments)
{
    Answer(context, TextOf(arguments[0]).left(std::max<sqlite3_int64>(0, sqlite3_value_int64(arguments[1]))));
}

void Right(sqlite3_context* context, Arguments arguments)
{
    Answer(context, TextOf(arguments[0]).right(std::max<sqlite3_int64>(0, sqlite3_value_int64(arguments[1]))));
}

void Ucase(sqlite3_context* context, Arguments arguments)
{
    // Letter by letter: a letter whose capital is more than one letter stays as it is.
    QString text = TextOf(arguments[0]);
    for (QChar& c : text)
        c = c.toUpper();
    Answer(context, text);
}

void IsNumericText(sqlite3_context* context, Arguments arguments)
{
    sqlite3_result_int(context, sqlite3_value_type(arguments[0]) != SQLITE_NULL && IsNumeric(TextOf(arguments[0])) ? 1 : 0);
}

void Fold(sqlite3_context* context, Arguments arguments)
{
    Answer(context, FoldCase(TextOf(arguments[0])));
}

void NumberOf(sqlite3_context* context, Arguments arguments)
{
    const int type = sqlite3_value_type(arguments[0]);
    if (type == SQLITE_INTEGER || type == SQLITE_FLOAT) {
        sqlite3_result_value(context, arguments[0]);
        return;
    }
    const QString text = TextOf(arguments[0]);
    if (IsNumeric(text))
        sqlite3_result_double(context, ToDouble(text));
}

// The edge to the engine: Null is answered here, and no exception gets through.
template<void (*Function)(sqlite3_context*, Arguments), bool PassNull = false>
void Call(sqlite3_context* context, int count, Arguments arguments) noexcept
{
    try {
        const bool anyNull = std::any_of(arguments, arguments + count, [](auto* a) { return sqlite3_value_type(a) == SQLITE_NULL; });
        if (PassNull || !anyNull)
            Function(context, arguments);
    } catch (...) {
        sqlite3_result_error_nomem(context);
    }
}

} // namespace

int RegisterJetFunctions(sqlite3* database)
{
    struct Entry
    {
        const char* name;
        int arguments;
        void (*call)(sqlite3_context*, int, Arguments);
    };
    constexpr Entry kFunctions[] = {
        {"Asc", 1, Call<Asc>},
        {"Left", 2, Call<Left>},
        {"Right", 2, Call<Right>},
        {"Ucase", 1, Call<Ucase>},
        {"IsNumeric", 1, Call<IsNumericText, true>},
        {kNumberFunction, 1, Call<NumberOf>},
        {kFoldFunction, 1, Call<Fold>},
    };
    for (const Entry& entry : kFunctions) {
        const int result =
            sqlite3_create_function_v2(database, entry.name, entry.arguments, SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_DIRECTONLY,
                                       nullptr, entry.call, nullptr, nullptr, nullptr);
        if (result != SQLITE_OK)
            return result;
    }
    return SQLITE_OK;
}

} // namespace kelvado
