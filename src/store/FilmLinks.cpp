#include "store/FilmLinks.h"

#include "core/Conversions.h"
#include "core/Literals.h"
#include "store/CaseBlind.h"
#include "store/JetFunctions.h"
#include "store/NameTables.h"

#include <algorithm>
#include <functional>

namespace kelvado {

namespace {

constexpr qsizetype kShortestName = 3;

class LinkWriter
{
public:
    LinkWriter(const Value& movieId, LinkMode mode, const WriterContext& context, Connection& connection)
        : m_movieId(movieId), m_mode(mode), m_context(context), m_connection(connection)
    {
    }

    void StoreGenres(const FilmRecord& film);
    void StoreWriters(const FilmRecord& film) { StoreCrew(kWriter, film.Writers); }
    void StoreDirectors(const FilmRecord& film) { StoreCrew(kDirector, film.Directors); }
    void StoreProducers(const FilmRecord& film) { StoreCrew(kProducer, film.Producers); }
    void StoreActors(const FilmRecord& film);
    void StoreCompanies(const FilmRecord& film);

private:
    using FillRow = std::function<void(Recordset&)>;

    void StoreCrew(const NameTable& names, const QList<FilmPerson>& people);
    /// Links the film to the row called `name`; a row that has to be added is filled by `fillName`.
    void StoreName(const NameTable& names, const QString& name, const FillRow& fillName, const FillRow& fillLink);
    void FillPerson(Recordset& row, const NameTable& names, const FilmPerson& person) const;

    Value m_movieId;
    LinkMode m_mode;
    const WriterContext& m_context;
    Connection& m_connection;
};

// Unlike all other names, a genre's is looked up untrimmed.
void LinkWriter::StoreGenres(const FilmRecord& film)
{
    for (const FilmGenre& genre : film.Genres) {
        if (genre.Genre.isEmpty())
            continue;
        Recordset link;
        link.Open(u"SELECT * FROM GenreLink"_s, m_connection);
        std::optional<qint64> id = FindName(kGenre.table, genre.Genre, m_connection);
        if (!id) {
            Recordset all;
            all.Open(u"SELECT * FROM Genre"_s, m_connection);
            all.AddNew();
            all[u"Genre"].Set(TrimBlanks(genre.Genre));
            id = all[u"Genre_ID"].Get().Integer();
            all.Update();
        }
        link.AddNew();
        link[u"Genre_ID"].Set(*id);
        link[u"Movie_ID"].Set(m_movieId);
        link.Update();
    }
}

void LinkWriter::StoreCrew(const NameTable& names, const QList<FilmPerson>& people)
{
    for (const FilmPerson& person : people) {
        if (!IsUsableName(person.Name))
            continue;
        StoreName(
            names, person.Name, [&](Recordset& row) { FillPerson(row, names, person); },
            [&](Recordset& link) {
                Value note = person.Extended;
                PutField(note, u"Extended"_s, link, m_context);
            });
    }
}

void LinkWriter::StoreActors(const FilmRecord& film)
{
    int order = 0;
    for (const FilmPerson& actor : film.Actors) {
        ++order; // an actor that is left out uses up a number too
        if (!IsUsableName(actor.Name))
            continue;
        StoreName(
            kActor, actor.Name, [&](Recordset& row) { FillPerson(row, kActor, actor); },
            [&](Recordset& link) {
                link[u"Order"].Set(order);
                if (IsUsableName(actor.Character))
                    link[u"Character"].Set(TrimBlanks(actor.Character));
            });
    }
}

void LinkWriter::StoreCompanies(const FilmRecord& film)
{
    for (const FilmCompany& company : film.Companies) {
        if (!IsUsableName(company.Company))
            continue;
        StoreName(
            kCompany, company.Company, [&](Recordset& row) { row[kCompany.table].Set(TrimBlanks(company.Company)); },
            [&](Recordset& link) {
                Value note = company.Extended;
                PutField(note, u"Extended"_s, link, m_context);
                Value type = company.Type;
                PutField(type, u"Type"_s, link, m_context);
            });
    }
}

void LinkWriter::StoreName(const NameTable& names, const QString& name, const FillRow& fillName, const FillRow& fillLink)
{
    Recordset link;
    link.Open(u"SELECT * FROM "_s + names.linkTable, m_connection);
    const std::optional<qint64> match = FindName(names.table, TrimBlanks(name), m_connection);
    Recordset all;
    all.Open(u"SELECT * FROM "_s + names.table, m_connection);

    Value id;
    if (match) {
        id = *match;
    } else {
        all.AddNew();
        fillName(all);
        id = all[names.idColumn].Get();
    }
    link.AddNew();
    link[names.idColumn].Set(id);
    fillLink(link);
    link[u"Movie_ID"].Set(m_movieId);
    all.Update();
    link.Update();
}

// The columns of a person who is new to the catalog. Users' catalogs hold what these rules gave, so they stay as they are:
// a producer's link column holds the name, and an added producer without a link has no name.
void LinkWriter::FillPerson(Recordset& row, const NameTable& names, const FilmPerson& person) const
{
    const bool isProducer = &names == &kProducer;
    const bool isUpdate = m_mode == LinkMode::Update;
    const QString name = TrimBlanks(person.Name);
    const QString link = isProducer ? name : TrimBlanks(person.IMDB_Link);
    if (!isProducer || isUpdate || !person.IMDB_Link.isEmpty())
        row[names.table].Set(name);
    if (isProducer || isUpdate || !person.IMDB_Link.isEmpty())
        row[u"IMDB_LINK"].Set(link);
}

template<typename Entry>
bool AnyUsable(const QList<Entry>& list, QString Entry::*name)
{
    return std::ranges::any_of(list, [name](const Entry& entry) { return IsUsableName(entry.*name); });
}

// One list of a film, on its way into the catalog. The table stands in the order of storing.
struct ListStep
{
    QString name;
    const NameTable& names;
    std::int32_t cOptIMDbFilm::*gate;
    bool (*hasRecords)(const FilmRecord&);
    void (LinkWriter::*store)(const FilmRecord&);
};

const ListStep kListSteps[] = {
    {u"genres"_s, kGenre, &cOptIMDbFilm::Genres,
     [](const FilmRecord& film) { return std::ranges::any_of(film.Genres, [](const FilmGenre& g) { return !g.Genre.isEmpty(); }); },
     &LinkWriter::StoreGenres},
    {u"writers"_s, kWriter, &cOptIMDbFilm::Writers, [](const FilmRecord& film) { return AnyUsable(film.Writers, &FilmPerson::Name); },
     &LinkWriter::StoreWriters},
    {u"directors"_s, kDirector, &cOptIMDbFilm::Directors,
     [](const FilmRecord& film) { return AnyUsable(film.Directors, &FilmPerson::Name); }, &LinkWriter::StoreDirectors},
    {u"producers"_s, kProducer, &cOptIMDbFilm::Producers,
     [](const FilmRecord& film) { return AnyUsable(film.Producers, &FilmPerson::Name); }, &LinkWriter::StoreProducers},
    {u"actors"_s, kActor, &cOptIMDbFilm::Actors, [](const FilmRecord& film) { return AnyUsable(film.Actors, &FilmPerson::Name); },
     &LinkWriter::StoreActors},
    {u"companies"_s, kCompany, &cOptIMDbFilm::Companies,
     [](const FilmRecord& film) { return AnyUsable(film.Companies, &FilmCompany::Company); }, &LinkWriter::StoreCompanies},
};

const QString kReadGenres = u"SELECT Genre.Genre, Genre.Genre_ID FROM Genre INNER JOIN GenreLink ON "
                            "Genre.Genre_ID = GenreLink.Genre_ID WHERE GenreLink.Movie_ID = "_s;
const QString kReadFeatures = u"SELECT Features.Feature, Features.Feature_ID FROM Features INNER JOIN Feature_Link ON "
                              "Features.Feature_ID = Feature_Link.Feature_ID WHERE Feature_Link.Movie_ID = "_s;
const QString kReadWriters =
    u"SELECT Writer.Writer_ID, Writer.Writer, Writer.IMDB_Link, WriterLink.Extended FROM Writer INNER JOIN WriterLink ON "
    "Writer.Writer_ID = WriterLink.Writer_ID WHERE WriterLink.Movie_ID = "_s;
const QString kReadProducers =
    u"SELECT Producer.Producer_ID, Producer.Producer, Producer.IMDB_Link, ProducerLink.Extended FROM Producer INNER JOIN ProducerLink ON "
    "Producer.Producer_ID = ProducerLink.Producer_ID WHERE ProducerLink.Movie_ID = "_s;
const QString kReadDirectors =
    u"SELECT Director.Director_ID, Director.Director, Director.IMDB_Link, DirectorLink.Extended FROM Director INNER JOIN DirectorLink ON "
    "Director.Director_ID = DirectorLink.Director_ID WHERE DirectorLink.Movie_ID = "_s;
const QString kReadActors = u"SELECT Actor.Actor_ID, Actor.Actor, Actor.IMDB_Link, ActorLink.Character FROM Actor INNER JOIN ActorLink ON "
                            "Actor.Actor_ID = ActorLink.Actor_ID WHERE ActorLink.Movie_ID = "_s;
const QString kReadCompanies =
    u"SELECT Company.Company_ID, Company.Company, CompanyLink.Type, CompanyLink.Extended FROM Company INNER JOIN CompanyLink ON "
    "Company.Company_ID = CompanyLink.Company_ID WHERE CompanyLink.Movie_ID = "_s;

void ReadPeople(QList<FilmPerson>& people, const QString& sql, QString FilmPerson::*note, Connection& connection)
{
    Recordset rows;
    for (rows.Open(sql, connection); !rows.Eof(); rows.MoveNext()) {
        FilmPerson person;
        person.ID = rows.Integer(0);
        person.Name = rows.Text(1);
        person.IMDB_Link = rows.Text(2);
        person.*note = rows.Text(3);
        people.append(person);
    }
}

} // namespace

bool IsUsableName(const QString& text)
{
    return text.size() >= kShortestName && !text.contains(u'>');
}

std::optional<qint64> FindName(const QString& table, const QString& name, Connection& connection)
{
    const QString query = u"SELECT "_s + table + u"_ID FROM "_s + table + u" WHERE "_s + table;
    Recordset match;
    match.Open(query + u" = ?"_s, {Value(name)}, connection);
    if (!match.Eof())
        return match.Integer(0);
    if (!HasOtherLetters(name))
        return std::nullopt;
    // The index compares other letters by case: it leads to the names that begin in one of the possible ways.
    const Value folded(FoldCase(name));
    for (const QString& beginning : BeginningsOf(name)) {
        const Value last(beginning + u"\U0010FFFF"_s);
        match.Open(query + u" BETWEEN ? AND ? AND "_s + QLatin1StringView(kFoldFunction) + u'(' + table + u") = ?"_s,
                   {Value(beginning), last, folded}, connection);
        if (!match.Eof())
            return match.Integer(0);
    }
    return std::nullopt;
}

std::optional<LinkFailure> StoreFilmLinks(const FilmRecord& film, const Value& movieId, LinkMode mode, const cOptIMDbFilm& options,
                                          const WriterContext& context, Connection& connection)
{
    LinkWriter writer(movieId, mode, context, connection);
    const auto isDue = [&](const ListStep& step) { return IsOn(options.*step.gate) && step.hasRecords(film); };
    for (const ListStep& step : kListSteps) {
        if (!isDue(step))
            continue;
        try {
            if (mode == LinkMode::Add) {
                (writer.*step.store)(film);
                continue;
            }
            connection.AllOrNothing([&] {
                if (!movieId.IsNull())
                    connection.Execute(u"DELETE FROM "_s + step.names.linkTable + u" WHERE Movie_ID = "_s + movieId.Text());
                (writer.*step.store)(film);
            });
        } catch (const RuntimeError& error) {
            LinkFailure failure{error, {}};
            for (const ListStep* later = &step; later != std::end(kListSteps); ++later) {
                if (isDue(*later))
                    failure.lists.append(later->name);
            }
            return failure;
        }
    }
    return std::nullopt;
}

void ReadFilmLinks(FilmRecord& film, FilmId movieId, Connection& connection)
{
    const QString id = QString::number(movieId);
    Recordset rows;
    for (rows.Open(kReadGenres + id, connection); !rows.Eof(); rows.MoveNext())
        film.Genres.append({rows.Text(0), rows.Integer(1)});
    for (rows.Open(kReadFeatures + id, connection); !rows.Eof(); rows.MoveNext())
        film.Features.append({rows.Text(0), rows.Integer(1)});
    ReadPeople(film.Writers, kReadWriters + id, &FilmPerson::Extended, connection);
    ReadPeople(film.Producers, kReadProducers + id, &FilmPerson::Extended, connection);
    ReadPeople(film.Directors, kReadDirectors + id, &FilmPerson::Extended, connection);
    ReadPeople(film.Actors, kReadActors + id, &FilmPerson::Character, connection);
    for (rows.Open(kReadCompanies + id, connection); !rows.Eof(); rows.MoveNext())
        film.Companies.append({rows.Text(1), rows.Integer(0), rows.Text(2), rows.Text(3)});
}

} // namespace kelvado
