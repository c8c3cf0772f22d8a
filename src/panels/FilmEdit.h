#pragma once

#include "core/AppState.h"
#include "store/FilmRecord.h"
#include "store/NameTables.h"
#include "store/mDBConnection.h"

#include <QHash>
#include <QList>
#include <QStringList>

#include <array>
#include <optional>

namespace kelvado {

/// A table of ticks: the names that a film can have any number of.
extern const NameTable kFeature;

/// A row of a table of names.
struct NamedRow
{
    qint64 id;
    QString name;
};

/// A film as the edit panel shows it: the record, and what the record leaves out.
struct FilmOnShow
{
    FilmRecord record;
    QDate lastViewing; ///< the zero date where there is none
    QString shopLink;  ///< as the catalog holds it
};

/// Reads a film. Raises `kErrNoCurrentRecord` where there is no such film.
FilmOnShow ReadFilmOnShow(FilmId movieId, const QString& catalogPath);

bool FilmExists(FilmId movieId, const QString& catalogPath);

/// All genres, or features, in the order of their numbers.
QList<NamedRow> ReadTickNames(const NameTable& names, const QString& catalogPath);

/// How many characters each of `columns` of the table `Movie` holds, in their order.
QList<qsizetype> ReadColumnSizes(const QStringList& columns, const QString& catalogPath);

/// Links the film to a genre or feature, or takes the link away, at once.
/// Raises `kErrNoCurrentRecord` where the film is gone; nothing is then stored.
void StoreTick(const NameTable& names, FilmId movieId, qint64 nameId, bool ticked, const QString& catalogPath);

/// The number of the genre called `name`, whatever the case of its letters; a name that is not there is added.
qint64 AddGenre(const QString& name, const QString& catalogPath);
/// Deletes the genre itself; the links of films to it stay.
void DeleteGenre(qint64 genreId, const QString& catalogPath);

/// Stores the text as the film's NFO. Raises `kErrNoCurrentRecord` where the film is gone.
void StoreNfo(FilmId movieId, const QString& text, const QString& catalogPath);

/// Adds a film that was entered by hand, with everything that was entered, and returns its number; `backCover` is a picture file, or empty.
/// Raises IncompleteFilm where the film was stored, but not all of it; with any other failure nothing is stored.
FilmId AddManualFilm(const FilmRecord& film, const QString& backCover, const WriterContext& context);

/// Links a company to the film, and adds it to the companies where it is new; its name is matched as a retrieved film's. Returns its
/// number; nothing, and stores nothing, for a name that is too short to be one.
std::optional<qint64> AddFilmCompany(FilmId movieId, const FilmCompany& company, const WriterContext& context);
/// Takes the company off one of the film's company lists. Its row stays for other films.
void RemoveFilmCompany(FilmId movieId, qint64 companyId, int list, const QString& catalogPath);

/// Which of the four company lists shows a company of this type: 0 to 2 for those of `kCompanyTypes`, 3 for any other.
int CompanyList(const QString& type);
inline constexpr int kCompanyLists = 4;
inline constexpr std::array<QLatin1StringView, kCompanyLists - 1> kCompanyTypes{"Production"_L1, "Special Effects"_L1, "Distributor"_L1};

/// What is stored as the type of a company that the user adds to one of the lists.
QString CompanyType(int list);

/// The values of the film that decide on its place and looks in the tree; a change of any of them asks for another tree.
QStringList ReadTreeFacts(FilmId movieId, const AppState& state);

} // namespace kelvado
