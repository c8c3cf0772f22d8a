#pragma once

#include "core/Choices.h"
#include "core/FilmId.h"
#include "panels/PersonKinds.h"
#include "store/mDBConnection.h"

#include <QString>

#include <optional>
#include <vector>

namespace kelvado {

/// One person of a film, as an entry of a panel's list stands for it.
struct FilmPersonEntry
{
    FilmId movieId;
    qint64 personId;
    /// How many entries of the same person stand above it: a person who plays two roles has two entries.
    int place = 0;
};

/// All persons of a kind by name, ready to be shown. Rows without a name are left out: nobody could choose them.
std::vector<Choice> AllPeople(const PersonKind& kind, const QString& catalogPath);

/// How many characters a role or note may have.
qsizetype LongestPersonText(const PersonKind& kind, const QString& catalogPath);

/// Links a person to a film, as the last one of its kind. A text of blanks only is not stored. Returns the stored text.
QString AddFilmPerson(const PersonKind& kind, FilmId movieId, qint64 personId, const QString& text, const WriterContext& context);

/// The same over a connection that is open already, for many people.
QString AddFilmPerson(const PersonKind& kind, FilmId movieId, qint64 personId, const QString& text, Connection& connection,
                      const WriterContext& context);

/// The role or note as it is stored; nothing where the link is gone.
std::optional<QString> FilmPersonText(const PersonKind& kind, const FilmPersonEntry& entry, const QString& catalogPath);

/// Changes the role or note of that entry alone and returns what is stored then; nothing where the link is gone. A text of blanks only
/// changes nothing.
std::optional<QString> ChangeFilmPerson(const PersonKind& kind, const FilmPersonEntry& entry, const QString& text,
                                        const WriterContext& context);

/// Takes that entry's link away, and no other one of the same person. False where it was gone before.
bool RemoveFilmPerson(const PersonKind& kind, const FilmPersonEntry& entry, const QString& catalogPath);

} // namespace kelvado
