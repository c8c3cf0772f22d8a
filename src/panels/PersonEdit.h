#pragma once

#include "core/FilmId.h"
#include "store/FilmHistory.h"
#include "store/mDBConnection.h"

#include <QStringList>

#include <array>
#include <vector>

namespace kelvado {

/// The fields of a person that can be edited, in the order in which they are stored.
enum class PersonField { Name, BirthName, BirthLocation, BirthDate, Biography, Height };
inline constexpr int kPersonFields = 6;
using PersonTexts = std::array<QString, kPersonFields>;

/// One part of a person in a film of the catalog.
struct PersonFilm
{
    FilmId movieId;
    QString title, character, imdb;
};

/// A person as the panel shows it; the picture is read by `ReadPicture`.
struct PersonPage
{
    PersonTexts texts;
    std::array<qsizetype, kPersonFields> limits{}; ///< the most characters that each field's column takes
    QList<HistoryFilm> history;
    bool isOnSite = false; ///< the person's page at the film site is known
    std::vector<PersonFilm> have, want;
};

/// Raises `kErrNoCurrentRecord` where there is no such person.
PersonPage Actor_Edit_Page(qint64 actorId, const QString& catalogPath);

/// Stores the fields; an empty one leaves what is stored. Raises `kErrNoCurrentRecord` where the person is gone.
void Actor_Edit_Save(qint64 actorId, const PersonTexts& texts, const WriterContext& context);

/// The other actors of a film, once for each of their roles.
QStringList ActorsBeside(qint64 actorId, FilmId movieId, const QString& catalogPath);

} // namespace kelvado
