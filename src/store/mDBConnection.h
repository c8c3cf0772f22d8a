#pragma once

#include "core/Dialogs.h"
#include "core/Options.h"
#include "core/RuntimeError.h"
#include "core/Shell.h"
#include "store/FilmRecord.h"
#include "store/Recordset.h"

namespace kelvado {

/// A film's row was stored, some of its lists were not; the description names the film and these lists.
class IncompleteFilm : public RuntimeError
{
public:
    IncompleteFilm(int number, const QString& description, FilmId stored) : RuntimeError(number, description), film(stored) {}

    FilmId film; ///< its number in the catalog
};

/// What the writers need beside the film.
struct WriterContext
{
    QString catalogPath;
    QString settingsFile;
    Dialogs& dialogs;
};

/// Adds a film with its picture and links; `options` says which parts are stored. Returns the new `Movie_ID`.
/// With both picture options off the links carry no film number. Raises IncompleteFilm for a failure after the film's row was stored;
/// what was stored stays. With any other failure nothing is stored.
FilmId AddFilm(const FilmRecord& film, const cOptIMDbFilm& options, const WriterContext& context);

/// Stores fresh web data over the film `movieId`, and then gives the selected tree node (through `shell`) the new title and key.
/// Empty values leave the old ones standing; the old links of a list go only where the list is on and has a record to take their place.
/// Raises IncompleteFilm where the film's row was stored and some lists are as they were; with any other failure nothing is changed.
void UpdateFilm(const FilmRecord& film, FilmId movieId, const cOptIMDbFilm& options, const WriterContext& context, Shell& shell);

/// Stores the plain columns of an edit. Links and pictures are not its business.
void SaveFilmEdit(const FilmRecord& film, FilmId movieId, const WriterContext& context);

/// Reads a film with all its lists. Raises `kErrNoCurrentRecord` where there is no such film.
FilmRecord ReadFilm(FilmId movieId, const QString& catalogPath);

/// Puts a value into a column of the row that is being added or edited, and knows the column's size: a longer text is cut
/// (`AutoCut` on) or given to the user to shorten. A value of blanks only never empties a column. `value` becomes what was stored.
void PutField(Value& value, const QString& column, Recordset& recordset, const WriterContext& context);

QString FieldString(const QString& column, const Recordset& recordset);    ///< "" for Null
Currency FieldCurrency(const QString& column, const Recordset& recordset); ///< 0 for Null
double FieldNumber(const QString& column, const Recordset& recordset);     ///< 0 for Null

} // namespace kelvado
