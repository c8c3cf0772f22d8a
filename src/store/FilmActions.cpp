#include "store/FilmActions.h"

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
    Connection connection;
    connection.Open(ConnectionString(catalogPath));
    Recordset film;
    film.Open(sql, connection);
    if (film.Eof())
        throw RuntimeError(kErrNoCurrentRecord);
    film[column].Set(value);
    film.Update();
    film.Close();
    connection.Close();
}

} // namespace

void DeleteFilm(const QString& movieId, const QString& catalogPath)
{
    Connection connection;
    connection.Open(ConnectionString(catalogPath));
    DeleteRows(connection, QStringLiteral("SELECT * FROM GenreLink WHERE Movie_ID  = ") + movieId);
    DeleteRows(connection, QStringLiteral("SELECT * FROM ActorLink WHERE Movie_ID = ") + movieId);
    DeleteRows(connection, QStringLiteral("SELECT * FROM DirectorLink WHERE Movie_ID = ") + movieId);
    DeleteRows(connection, QStringLiteral("SELECT * FROM WriterLink WHERE Movie_ID = ") + movieId);
    Recordset film;
    film.Open(QStringLiteral("SELECT * FROM Movie WHERE Movie_ID  = ") + movieId, connection);
    if (film.Eof())
        throw RuntimeError(kErrNoCurrentRecord);
    const Value picture = film[u"Image_ID"].Get();
    film.Delete();
    film.Close();
    if (!picture.IsNull())
        DeleteRows(connection, QStringLiteral("SELECT * FROM Images WHERE Image_ID  = ") + picture.Text());
    DeleteRows(connection, QStringLiteral("SELECT ProducerLink.* FROM ProducerLink WHERE Movie_ID = ") + movieId);
    DeleteRows(connection, QStringLiteral("SELECT CompanyLink.* FROM CompanyLink WHERE Movie_ID = ") + movieId);
    connection.Close();
}

void MoveFilmToRequests(const QString& movieId, const QString& catalogPath)
{
    SetColumn(QStringLiteral("SELECT Movie.* FROM Movie WHERE Movie.Movie_ID  = ") + movieId, u"Format", QStringLiteral("Request"),
              catalogPath);
}

void MoveFilmToMovies(const QString& movieId, const QString& catalogPath)
{
    SetColumn(QStringLiteral("SELECT * FROM Movie WHERE Movie_ID  = ") + movieId, u"Format", Value(), catalogPath);
}

void AddToMovieNight(const QString& movieId, const QString& catalogPath)
{
    SetColumn(QStringLiteral("SELECT * FROM Movie WHERE Movie_ID = ") + movieId, u"MovieNight", 1, catalogPath);
}

void ClearMovieNight(const QString& catalogPath)
{
    Connection connection;
    connection.Open(ConnectionString(catalogPath));
    Recordset films;
    for (films.Open(QStringLiteral("SELECT * FROM Movie WHERE MovieNight = 1"), connection); !films.Eof(); films.MoveNext()) {
        films[u"MovieNight"].Set(0);
        films.Update();
    }
    films.Close();
    connection.Close();
}

} // namespace kelvado
