#pragma once

#include "core/FilmId.h"
#include "core/Literals.h"
#include <QString>
#include <QStringView>

namespace kelvado {

/// Tags of tree nodes: they say what a node stands for.
inline constexpr QLatin1StringView kTagGroup = "Primary"_L1;
inline constexpr QLatin1StringView kTagFilm = "Movie"_L1;
inline constexpr QLatin1StringView kTagActor = "Actor"_L1;

/// The selected node, as the handlers see it.
struct NodeRef
{
    QString key;
    QString tag;
};

/// The key of a group: its value between double quotes.
QString GroupKey(QStringView value);
/// The key of a film in the group `value`, or of an actor (`value` is then the actor's number): both parts parted by a line feed,
/// between double quotes.
QString FilmKey(FilmId movieId, QStringView value);
/// An actor under a film of the group `genre`.
QString ActorKeyInGenre(FilmId movieId, qint64 actorId, QStringView genre);

/// What stands behind the film's number in a key, quote marks of its own included: the group of a film.
QString ValueOfKey(const QString& key);

/// The film's number in the key of a film or an actor.
FilmId FilmOfKey(const QString& key);

/// Part `index` (from 0) of a key that is split at its line feeds, without quote marks; the empty text where there is no such part.
/// In an actor's key the second part is the actor's number.
QString KeyPart(const QString& key, int index);

} // namespace kelvado
