#include "panels/PersonEdit.h"

#include "core/Conversions.h"
#include "core/Literals.h"

namespace kelvado {

namespace {

const QString kActorById = u"SELECT * FROM Actor WHERE Actor_ID = "_s;
const QString kFilmsOfActor = u"SELECT ActorLink.Actor_ID, ActorLink.Character, Movie.Title, Movie.Format, Movie.IMDB, Movie.Movie_ID "
                              "FROM ActorLink INNER JOIN Movie ON ActorLink.Movie_ID = Movie.Movie_ID WHERE ActorLink.Actor_ID = "_s;
const QString kActorsOfFilm =
    u"SELECT Actor.Actor"
    " FROM Movie INNER JOIN (Actor INNER JOIN ActorLink ON Actor.Actor_ID = ActorLink.Actor_ID) ON Movie.Movie_ID = ActorLink.Movie_ID "
    "WHERE Movie.Movie_ID = "_s;

constexpr std::array<QLatin1StringView, kPersonFields> kColumns{"Actor"_L1,     "Birthname"_L1, "Birthlocation"_L1,
                                                                "Birthdate"_L1, "Biography"_L1, "Height"_L1};

void OpenPerson(qint64 actorId, Recordset& person, Connection& connection)
{
    person.Open(kActorById + QString::number(actorId), connection);
    if (person.Eof())
        throw RuntimeError(kErrNoCurrentRecord, u"This person is no longer in the catalog"_s);
}

void ReadFilms(PersonPage& page, qint64 actorId, Connection& connection)
{
    Recordset films;
    films.Open(kFilmsOfActor + QString::number(actorId), connection, LockType::ReadOnly);
    for (; !films.Eof(); films.MoveNext()) {
        const bool isWanted = films.Text(3) == u"Request"_s;
        std::vector<PersonFilm>& list = isWanted ? page.want : page.have;
        list.push_back({films.Integer(5), DecodeEntities(films.Text(2)), DecodeEntities(films.Text(1)), films.Text(4)});
    }
}

} // namespace

PersonPage Actor_Edit_Page(qint64 actorId, const QString& catalogPath)
{
    PersonPage page;
    Connection connection = OpenCatalog(catalogPath);
    Recordset person;
    OpenPerson(actorId, person, connection);
    for (std::size_t i = 0; i < page.texts.size(); ++i) {
        const Field field = person[QString(kColumns[i])];
        page.texts[i] = field.IsNull() ? QString() : DecodeEntities(field.Get().Text());
        page.limits[i] = field.DefinedSize();
    }
    page.history = ReadFilmHistory(FieldString(u"Film_History"_s, person));
    for (HistoryFilm& film : page.history)
        film.title = DecodeEntities(film.title);
    page.isOnSite = !FieldString(u"IMDB_LINK"_s, person).isEmpty();
    ReadFilms(page, actorId, connection);
    return page;
}

void Actor_Edit_Save(qint64 actorId, const PersonTexts& texts, const WriterContext& context)
{
    Connection connection = OpenCatalog(context.catalogPath);
    Recordset person;
    OpenPerson(actorId, person, connection);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        Value value = texts[i];
        PutField(value, QString(kColumns[i]), person, context);
    }
    person.Update();
    person.Close();
    connection.Close();
}

QStringList ActorsBeside(qint64 actorId, FilmId movieId, const QString& catalogPath)
{
    Connection connection = OpenCatalog(catalogPath);
    Recordset actors;
    actors.Open(kActorsOfFilm + QString::number(movieId) + u" AND Actor.Actor_ID <> "_s + QString::number(actorId), connection,
                LockType::ReadOnly);
    QStringList names;
    for (; !actors.Eof(); actors.MoveNext())
        names << DecodeEntities(actors.Text(0));
    return names;
}

} // namespace kelvado
