#include "store/FilmActions.h"

#include "core/Literals.h"
#include "core/RuntimeError.h"
#include "store/Recordset.h"

namespace kelvado {

namespace {

void DeleteRows(Connection& connection, const QString& sql)
{
    Recordset rows;
    for (rows.Open(sql, connection); !rows.Eof(); rows.MoveNext())
        rows.Delete();
}

void SetColumn(const QString& sql, QStringView column, const Value& value, const QString& catalogPath)
{
    Connection connection = OpenCatalog(catalogPath);
    Recordset film;
    film.Open(sql, connection);
    if (film.Eof())
        throw RuntimeError(kErrNoCurrentRecord);
    film[column].Set(value);
    film.Update();
    film.Close();
    connection.Close();
}

void DeleteFilmRows(FilmId movieId, Connection& connection)
{
    const QString id = QString::number(movieId);
    DeleteRows(connection, u"SELECT * FROM GenreLink WHERE Movie_ID  = "_s + id);
    DeleteRows(connection, u"SELECT * FROM ActorLink WHERE Movie_ID = "_s + id);
    DeleteRows(connection, u"SELECT * FROM DirectorLink WHERE Movie_ID = "_s + id);
    DeleteRows(connection, u"SELECT * FROM WriterLink WHERE Movie_ID = "_s + id);
    Recordset film;
    film.Open(u"SELECT * FROM Movie WHERE Movie_ID  = "_s + id, connection);
    if (film.Eof())
        throw RuntimeError(kErrNoCurrentRecord);
    const Value picture = film[u"Image_ID"].Get();
    film.Delete();
    film.Close();
    if (!picture.IsNull())
        DeleteRows(connection, u"SELECT * FROM Images WHERE Image_ID  = "_s + picture.Text());
    DeleteRows(connection, u"SELECT ProducerLink.* FROM ProducerLink WHERE Movie_ID = "_s + id);
    DeleteRows(connection, u"SELECT CompanyLink.* FROM CompanyLink WHERE Movie_ID = "_s + id);
}

} // namespace

void DeleteFilm(FilmId movieId, const QString& catalogPath)
{
    Connection connection = OpenCatalog(catalogPath);
    try {
        connection.AllOrNothing([&] { DeleteFilmRows(movieId, connection); });
        connection.Close();
    } catch (const RuntimeError& error) {
        if (error.Number() == kErrNoCurrentRecord)
            throw; // another program was faster
        throw RuntimeError(error.Number(), error.Description() + u"\r\nThe film is still in the catalog, with all that belongs to it."_s);
    }
}

void MoveFilmToRequests(FilmId movieId, const QString& catalogPath)
{
    SetColumn(u"SELECT Movie.* FROM Movie WHERE Movie.Movie_ID  = "_s + QString::number(movieId), u"Format", u"Request"_s, catalogPath);
}

void MoveFilmToMovies(FilmId movieId, const QString& catalogPath)
{
    SetColumn(u"SELECT * FROM Movie WHERE Movie_ID  = "_s + QString::number(movieId), u"Format", Value(), catalogPath);
}

void AddToMovieNight(FilmId movieId, const QString& catalogPath)
{
    SetColumn(u"SELECT * FROM Movie WHERE Movie_ID = "_s + QString::number(movieId), u"MovieNight", 1, catalogPath);
}

void ClearMovieNight(const QString& catalogPath)
{
    Connection connection = OpenCatalog(catalogPath);
    Recordset films;
    for (films.Open(u"SELECT * FROM Movie WHERE MovieNight = 1"_s, connection); !films.Eof(); films.MoveNext()) {
        films[u"MovieNight"].Set(0);
        films.Update();
    }
    films.Close();
    connection.Close();
}

QStringList ValuesInUse(const QString& column, const QString& catalogPath)
{
    Connection connection = OpenCatalog(catalogPath);
    Recordset values;
    values.Open(u"SELECT DISTINCT %1 FROM Movie WHERE %1 <> '' ORDER BY %1"_s.arg(column), connection);
    QStringList texts;
    for (; !values.Eof(); values.MoveNext())
        texts << values.Text(0);
    return texts;
}

bool CatalogIsEmpty(const QString& catalogPath)
{
    Connection connection = OpenCatalog(catalogPath);
    Recordset films;
    films.Open(u"SELECT Movie_ID FROM Movie LIMIT 1"_s, connection);
    return films.Eof();
}

} // namespace kelvado
