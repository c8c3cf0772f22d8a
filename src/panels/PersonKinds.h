#pragma once

#include "core/Literals.h"
#include "store/FilmRecord.h"
#include "store/NameTables.h"

#include <array>

namespace kelvado {

/// One of the four ways in which a person takes part in a film, as the panels show and store it. All texts are the system's own.
struct PersonKind
{
    const NameTable& names;
    QLatin1StringView textColumn; ///< the column of the link table for the role or the credit's note
    QString FilmPerson::*text;    ///< the same in the record
    QList<FilmPerson> FilmRecord::*list;
    QLatin1StringView personLabel, textLabel; ///< above the two columns of the list; `textLabel` may be empty
    QLatin1StringView add, remove, edit;      ///< menu entries
    QLatin1StringView editTitle;              ///< of the box that asks for the role or note
    QLatin1StringView choose, chooseText;     ///< labels of the window that adds a person
};

inline constexpr int kPersonKinds = 4;

/// The kinds 1 to 4 at the places 0 to 3: actor, writer, director, producer.
const std::array<PersonKind, kPersonKinds>& PersonKinds();

} // namespace kelvado
