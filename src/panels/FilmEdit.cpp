#include "panels/FilmEdit.h"

#include "core/Paths.h"
#include "core/RuntimeError.h"
#include "panels/FilmPeople.h"
#include "panels/PictureStore.h"
#include "store/FilmLinks.h"
#include "store/Recordset.h"
#include "store/mDBConnection.h"

#include <algorithm>

namespace kelvado {

const NameTable kFeature{u"Features"_s, u"Feature_ID"_s, u"Feature_Link"_s};

namespace {

const QString kFilmById = u"SELECT * FROM Movie WHERE Movie_ID = "_s;

// The column of the names; only that of the features is not called like its table.
QString NameColumn(const NameTable& names)
{
    return &names == &kFeature ? u"Feature"_s : names.table;
}

void OpenFilm(Recordset& film, FilmId movieId, Connection& connection)
{
    film.Open(kFilmById + QString::number(movieId), connection);
    if (film.Eof())
        throw RuntimeError(kErrNoCurrentRecord, u"The film is no longer in the catalog."_s);
}

} // namespace

FilmOnShow ReadFilmOnShow(FilmId movieId, const QString& catalogPath)
{
    FilmOnShow shown{ReadFilm(movieId, catalogPath), ZeroDate(), {}};
    Connection connection = OpenCatalog(catalogPath);
    Recordset film;
    OpenFilm(film, movieId, connection);
    shown.lastViewing = DateFromText(FieldString(u"LastViewing"_s, film)).value_or(ZeroDate());
    shown.shopLink = FieldString(u"iSONEWS"_s, film);
    return shown;
}

bool FilmExists(FilmId movieId, const QString& catalogPath)
{
    Connection connection = OpenCatalog(catalogPath);
    Recordset film;
    film.Open(kFilmById + QString::number(movieId), connection);
    return !film.Eof();
}

QList<NamedRow> ReadTickNames(const NameTable& names, const QString& catalogPath)
{
    Connection connection = OpenCatalog(catalogPath);
    Recordset rows;
    rows.Open(u"SELECT * FROM "_s + names.table + u" Order by "_s + names.idColumn, connection);
    const int id = rows.ColumnIndex(names.idColumn);
    const int name = rows.ColumnIndex(NameColumn(names));
    QList<NamedRow> list;
    for (; !rows.Eof(); rows.MoveNext())
        list.append({rows.Integer(id), rows.Text(name)});
    return list;
}

QList<qsizetype> ReadColumnSizes(const QStringList& columns, const QString& catalogPath)
{
    Connection connection = OpenCatalog(catalogPath);
    Recordset film;
    film.Open(u"SELECT Top 1 * FROM Movie"_s, connection);
    QList<qsizetype> sizes;
    for (const QString& column : columns)
        sizes << film[column].DefinedSize();
    return sizes;
}

void StoreTick(const NameTable& names, FilmId movieId, qint64 nameId, bool ticked, const QString& catalogPath)
{
    Connection connection = OpenCatalog(catalogPath);
    Recordset film;
    OpenFilm(film, movieId, connection);
    film.Close();
    Recordset links;
    links.Open(u"SELECT * FROM "_s + names.linkTable + u" WHERE Movie_ID = "_s + QString::number(movieId) + u" AND "_s + names.idColumn +
                   u" = "_s + QString::number(nameId),
               connection);
    if (!ticked) {
        for (; !links.Eof(); links.MoveNext())
            links.Delete();
    } else if (links.Eof()) {
        links.AddNew();
        links[names.idColumn].Set(nameId);
        links[u"Movie_ID"].Set(movieId);
        links.Update();
    }
    links.Close();
    connection.Close();
}

qint64 AddGenre(const QString& name, const QString& catalogPath)
{
    Connection connection = OpenCatalog(catalogPath);
    if (const std::optional<qint64> known = FindName(kGenre.table, name, connection))
        return *known;
    Recordset genres;
    genres.Open(u"SELECT * FROM Genre"_s, connection);
    genres.AddNew();
    const Field text = genres[u"Genre"];
    text.Set(name.left(text.DefinedSize()));
    const qint64 id = genres[u"Genre_ID"].Get().Integer();
    genres.Update();
    genres.Close();
    connection.Close();
    return id;
}

void DeleteGenre(qint64 genreId, const QString& catalogPath)
{
    Connection connection = OpenCatalog(catalogPath);
    Recordset genre;
    genre.Open(u"SELECT * FROM Genre WHERE Genre_ID = "_s + QString::number(genreId), connection);
    if (!genre.Eof())
        genre.Delete();
    genre.Close();
    connection.Close();
}

void StoreNfo(FilmId movieId, const QString& text, const QString& catalogPath)
{
    Connection connection = OpenCatalog(catalogPath);
    Recordset film;
    OpenFilm(film, movieId, connection);
    film[u"Nfo"].Set(text);
    film.Update();
    film.Close();
    connection.Close();
}

FilmId AddManualFilm(const FilmRecord& film, const QString& backCover, const WriterContext& context)
{
    // People were chosen by their numbers: looked up by name, namesakes would be mixed up, and short names and roles left out.
    FilmRecord first = film;
    for (const PersonKind& kind : PersonKinds())
        (first.*kind.list).clear();
    first.FileName.clear(); // the panel does not limit it: what is too long is asked about once, below
    FilmId movieId = 0;
    std::optional<RuntimeError> failure;
    try {
        // What was typed is stored whatever is fetched from web pages.
        movieId = AddFilm(first, cOptIMDbFilm::Everything(), context);
    } catch (const IncompleteFilm& error) {
        movieId = error.film;
        failure = error;
    }
    // The film is in the catalog: whatever fails now, the rest of it is stored.
    const auto store = [&](const auto& part) {
        try {
            part();
        } catch (const RuntimeError& error) {
            failure = failure ? RuntimeError(failure->Number(), failure->Description() + u"\r\n"_s + error.Description()) : error;
        }
    };
    store([&] { SaveFilmEdit(film, movieId, context); });
    store([&] {
        Connection connection = OpenCatalog(context.catalogPath);
        for (const PersonKind& kind : PersonKinds()) {
            for (const FilmPerson& person : film.*kind.list)
                AddFilmPerson(kind, movieId, person.ID, person.*kind.text, connection, context);
        }
        connection.Close();
    });
    store([&] {
        if (!backCover.isEmpty())
            ReplacePicture(BackCover(movieId), backCover, context.catalogPath);
    });
    if (failure)
        throw IncompleteFilm(failure->Number(), u"\"%1\" was added, but not all of it: "_s.arg(film.Title) + failure->Description(),
                             movieId);
    return movieId;
}

std::optional<qint64> AddFilmCompany(FilmId movieId, const FilmCompany& company, const WriterContext& context)
{
    if (!IsUsableName(company.Company))
        return std::nullopt;
    Connection connection = OpenCatalog(context.catalogPath);
    Recordset movie;
    OpenFilm(movie, movieId, connection);
    movie.Close();
    FilmRecord film;
    film.Companies = {company};
    cOptIMDbFilm options;
    options.Companies = 1;
    if (const auto failure = StoreFilmLinks(film, movieId, LinkMode::Add, options, context, connection))
        throw failure->error;
    const std::optional<qint64> id = FindName(kCompany.table, company.Company, connection);
    connection.Close();
    return id;
}

void RemoveFilmCompany(FilmId movieId, qint64 companyId, int list, const QString& catalogPath)
{
    Connection connection = OpenCatalog(catalogPath);
    Recordset links;
    links.Open(u"SELECT * FROM CompanyLink WHERE Movie_ID = %1 AND Company_ID = %2"_s.arg(movieId).arg(companyId), connection);
    for (; !links.Eof(); links.MoveNext()) {
        if (CompanyList(FieldString(u"Type"_s, links)) == list) {
            links.Delete();
            break;
        }
    }
    links.Close();
    connection.Close();
}

QString CompanyType(int list)
{
    return list < kCompanyLists - 1 ? QString(kCompanyTypes[static_cast<std::size_t>(list)]) : u"Other"_s;
}

int CompanyList(const QString& type)
{
    const auto* known =
        std::ranges::find_if(kCompanyTypes, [&](QLatin1StringView name) { return type.compare(name, Qt::CaseInsensitive) == 0; });
    return static_cast<int>(known - kCompanyTypes.begin());
}

QStringList ReadTreeFacts(FilmId movieId, const AppState& state)
{
    QStringList columns{u"Title"_s, u"Format"_s, u"Year"_s, u"SeenIt"_s};
    for (const QString& sort : {state.gOptions->View.PrimarySort, state.gOptions->View.SecondarySort}) {
        if (sort.startsWith("Movie."_L1, Qt::CaseInsensitive))
            columns << sort.mid(sort.indexOf(u'.') + 1);
    }
    Connection connection = OpenCatalog(state.CatalogPath());
    Recordset film;
    OpenFilm(film, movieId, connection);
    QStringList facts;
    for (const QString& column : columns) {
        if (column.compare("IsRequest"_L1, Qt::CaseInsensitive) != 0 && column.compare("IMDbLink"_L1, Qt::CaseInsensitive) != 0)
            facts << FieldString(column, film);
    }
    return facts;
}

} // namespace kelvado
