// What the catalog costs beside the bare engine: catalog_bench FILMS.jsonl [FOLDER] [benchmark flags].
// The catalog is built in FOLDER, unless it is there, and stays there for the next run, which can measure reading alone
// (--benchmark_filter=-Store).
// Every measure stands beside the same work done by the engine's own calls on the same file; the table at the end holds their ratios.

#include "FilmLines.h"
#include "browse/Tree.h"
#include "core/Literals.h"
#include "core/Paths.h"
#include "core/RuntimeError.h"
#include "panels/FilmEdit.h"
#include "panels/forms/frmEditAddChar.h"
#include "panels/forms/frmPeople.h"
#include "render/export/TextExport.h"
#include "render/export/TextFields.h"
#include "render/export/WebExportByView.h"
#include "render/export/mXMLOutput.h"
#include "store/CaseBlind.h"
#include "store/CatalogTemplate.h"
#include "store/FilmLinks.h"
#include "store/mDBConnection.h"
#include "store/mStatusBar.h"
#include "support/IdleEvents.h"
#include "support/MapMarks.h"
#include "support/RecordingShell.h"
#include "support/ScriptedDialogs.h"

#include <QApplication>
#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTreeView>

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>

#include <unistd.h>

using namespace kelvado;

namespace {

constexpr const char* kSorts[] = {"Movie.Title", "Genre.Genre", "Movie.Year", "Movie.IsRequest"};

QString g_folder;
std::vector<FilmRecord> g_films;

QString CatalogPath()
{
    return g_folder + u"/films.kvd"_s;
}

QByteArray ReadSource(const char* name)
{
    QFile file(u"" KELVADO_SOURCE_DIR "/data/"_s + QLatin1StringView(name));
    if (!file.open(QIODevice::ReadOnly))
        throw RuntimeError::WithDetail(kErrFileNotFound, file.fileName());
    return file.readAll();
}

QString Blank(const QString& name)
{
    QString path = g_folder + u'/' + name;
    BuildBlankCatalog(path, QString::fromUtf8(ReadSource("catalog/schema.sql")));
    return path;
}

class Engine
{
public:
    explicit Engine(const QString& path) { Check(sqlite3_open(path.toUtf8().constData(), &m_db)); }
    ~Engine()
    {
        for (const auto& [sql, statement] : m_kept)
            sqlite3_finalize(statement);
        sqlite3_close(m_db);
    }
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    void Run(const std::string& sql) { Check(sqlite3_exec(m_db, sql.c_str(), nullptr, nullptr, nullptr)); }

    /// Runs a statement with texts and numbers bound, reads every column of every row as text, and returns the first column of the
    /// first row as a number.
    qint64 Ask(const char* sql, const QList<QByteArray>& texts, const QList<qint64>& numbers = {})
    {
        sqlite3_stmt* statement = nullptr;
        Check(sqlite3_prepare_v2(m_db, sql, -1, &statement, nullptr));
        int place = 0;
        for (const QByteArray& text : texts)
            sqlite3_bind_text(statement, ++place, text.constData(), static_cast<int>(text.size()), SQLITE_STATIC);
        for (const qint64 number : numbers)
            sqlite3_bind_int64(statement, ++place, number);
        qint64 first = 0;
        qint64 rows = 0;
        while (sqlite3_step(statement) == SQLITE_ROW) {
            if (rows++ == 0)
                first = sqlite3_column_int64(statement, 0);
            for (int i = 0; i < sqlite3_column_count(statement); ++i)
                benchmark::DoNotOptimize(sqlite3_column_text(statement, i));
        }
        Check(sqlite3_finalize(statement));
        return first;
    }
    /// Reads every column of every row as text and calls `onRow` with the first column; the statement is kept for the next call.
    template<typename OnRow>
    void Walk(const char* sql, qint64 number, const OnRow& onRow)
    {
        sqlite3_stmt*& statement = m_kept[sql];
        if (!statement)
            Check(sqlite3_prepare_v2(m_db, sql, -1, &statement, nullptr));
        if (sqlite3_bind_parameter_count(statement) > 0)
            sqlite3_bind_int64(statement, 1, number);
        while (sqlite3_step(statement) == SQLITE_ROW) {
            for (int i = 0; i < sqlite3_column_count(statement); ++i)
                benchmark::DoNotOptimize(sqlite3_column_text(statement, i));
            onRow(sqlite3_column_int64(statement, 0));
        }
        sqlite3_reset(statement);
    }
    qint64 LastKey() const { return sqlite3_last_insert_rowid(m_db); }

private:
    void Check(int code)
    {
        if (code != SQLITE_OK) {
            std::fprintf(stderr, "engine: %s\n", m_db ? sqlite3_errmsg(m_db) : "no memory");
            std::exit(1);
        }
    }
    sqlite3* m_db = nullptr;
    std::map<std::string, sqlite3_stmt*> m_kept;
};

// Stores one film with the engine's own calls, matching names as the writer does, in one transaction on a connection of its own.
void StoreBare(const QString& path, const FilmRecord& film)
{
    Engine engine(path);
    engine.Run("BEGIN IMMEDIATE");
    engine.Ask("INSERT INTO Movie (Title, TitleNY, Year, Plot, Format) VALUES (?, ?, ?, ?, ?)",
               {film.Title.toUtf8(), film.TitleNY.toUtf8(), film.Year.toUtf8(), film.Plot.toUtf8(), film.Format.toUtf8()});
    const qint64 movie = engine.LastKey();
    for (const FilmGenre& genre : film.Genres) {
        qint64 id = engine.Ask("SELECT Genre_ID FROM Genre WHERE Genre = ?", {genre.Genre.toUtf8()});
        if (id == 0) {
            engine.Ask("INSERT INTO Genre (Genre) VALUES (?)", {genre.Genre.toUtf8()});
            id = engine.LastKey();
        }
        engine.Ask("INSERT INTO GenreLink (Movie_ID, Genre_ID) VALUES (?, ?)", {}, {movie, id});
    }
    qint64 order = 0;
    for (const FilmPerson& actor : film.Actors) {
        qint64 id = engine.Ask("SELECT Actor_ID FROM Actor WHERE Actor = ?", {actor.Name.toUtf8()});
        if (id == 0) {
            engine.Ask("INSERT INTO Actor (Actor) VALUES (?)", {actor.Name.toUtf8()});
            id = engine.LastKey();
        }
        engine.Ask("INSERT INTO ActorLink (Movie_ID, Actor_ID, \"Order\") VALUES (?, ?, ?)", {}, {movie, id, ++order});
    }
    engine.Run("COMMIT");
}

void BuildCatalog()
{
    ScriptedDialogs dialogs;
    const WriterContext context{Blank(u"films.kvd"_s), QString(), dialogs};
    const cOptIMDbFilm everything = cOptIMDbFilm::Everything();
    for (const FilmRecord& film : g_films)
        AddFilm(film, everything, context);
}

// The catalog that the measures of reading work on.
QString BuiltCatalog()
{
    if (!QFile::exists(CatalogPath()))
        BuildCatalog();
    return CatalogPath();
}

void StoreFilms(benchmark::State& state)
{
    for ([[maybe_unused]] const auto round : state)
        BuildCatalog();
    state.counters["films/s"] = benchmark::Counter(static_cast<double>(g_films.size()), benchmark::Counter::kIsRate);
}

void StoreFilmsBare(benchmark::State& state)
{
    const QString path = Blank(u"bare.kvd"_s);
    for ([[maybe_unused]] const auto round : state) {
        for (const FilmRecord& film : g_films)
            StoreBare(path, film);
    }
    state.counters["films/s"] = benchmark::Counter(static_cast<double>(g_films.size()), benchmark::Counter::kIsRate);
}

void ReadFilms(benchmark::State& state)
{
    const QString catalog = BuiltCatalog();
    qint64 id = 0;
    for ([[maybe_unused]] const auto round : state)
        benchmark::DoNotOptimize(ReadFilm(id++ * 37 % static_cast<qint64>(g_films.size()) + 1, catalog));
}

void ReadFilmsBare(benchmark::State& state)
{
    constexpr const char* kQueries[] = {
        "SELECT * FROM Movie WHERE Movie_ID = ?",
        "SELECT Genre.Genre, Genre.Genre_ID FROM Genre INNER JOIN GenreLink ON Genre.Genre_ID = GenreLink.Genre_ID WHERE "
        "GenreLink.Movie_ID = ?",
        "SELECT Features.Feature, Features.Feature_ID FROM Features INNER JOIN Feature_Link ON Features.Feature_ID = "
        "Feature_Link.Feature_ID WHERE "
        "Feature_Link.Movie_ID = ?",
        "SELECT Writer.Writer_ID, Writer.Writer, Writer.IMDB_Link, WriterLink.Extended FROM Writer INNER JOIN WriterLink ON "
        "Writer.Writer_ID = "
        "WriterLink.Writer_ID WHERE WriterLink.Movie_ID = ?",
        "SELECT Producer.Producer_ID, Producer.Producer, Producer.IMDB_Link, ProducerLink.Extended FROM Producer INNER JOIN ProducerLink "
        "ON "
        "Producer.Producer_ID = ProducerLink.Producer_ID WHERE ProducerLink.Movie_ID = ?",
        "SELECT Director.Director_ID, Director.Director, Director.IMDB_Link, DirectorLink.Extended FROM Director INNER JOIN DirectorLink "
        "ON "
        "Director.Director_ID = DirectorLink.Director_ID WHERE DirectorLink.Movie_ID = ?",
        "SELECT Actor.Actor_ID, Actor.Actor, Actor.IMDB_Link, ActorLink.Character FROM Actor INNER JOIN ActorLink ON Actor.Actor_ID = "
        "ActorLink.Actor_ID WHERE ActorLink.Movie_ID = ?",
        "SELECT Company.Company_ID, Company.Company, CompanyLink.Type, CompanyLink.Extended FROM Company INNER JOIN CompanyLink ON "
        "Company.Company_ID = CompanyLink.Company_ID WHERE CompanyLink.Movie_ID = ?"};
    const QString catalog = BuiltCatalog();
    qint64 id = 0;
    for ([[maybe_unused]] const auto round : state) {
        Engine engine(catalog);
        const qint64 movie = id++ * 37 % static_cast<qint64>(g_films.size()) + 1;
        for (const char* query : kQueries)
            engine.Ask(query, {}, {movie});
    }
}

struct Browser
{
    Browser()
    {
        qputenv("KELVADO_HOME", g_folder.toUtf8());
        QFile settings(SettingsFile());
        if (!settings.exists() && settings.open(QIODevice::WriteOnly))
            settings.write(ReadSource("Settings.ini"));
        settings.close();
        state.gOptions = std::make_unique<cOptions>(SettingsFile(), marks);
        state.comDiagFile.fileName = BuiltCatalog();
    }
    void Sort(const char* primary) { state.gOptions->View.PrimarySort = QString::fromLatin1(primary); }

    AppState state;
    MapMarks marks;
    IdleEvents events;
    RecordingShell shell;
    CatalogModel model;
    Tree tree{{state, marks, events, shell, model}};
};

void FillTree(benchmark::State& state)
{
    Browser browser;
    browser.Sort(kSorts[state.range(0)]);
    state.SetLabel(kSorts[state.range(0)]);
    for ([[maybe_unused]] const auto round : state)
        browser.tree.FillTree();
}

void FillTreeBare(benchmark::State& state)
{
    Browser browser;
    browser.Sort(kSorts[state.range(0)]);
    state.SetLabel(kSorts[state.range(0)]);
    const cOptView& view = browser.state.gOptions->View;
    const QByteArray groups = BuildLevelSql(view.PrimarySort, 1, view, {}).toUtf8();
    const QByteArray films = BuildLevelSql(view.PrimarySort, 2, view, {}).toUtf8();
    for ([[maybe_unused]] const auto round : state) {
        Engine engine(browser.state.CatalogPath());
        engine.Ask(groups.constData(), {});
        engine.Ask(films.constData(), {});
    }
}

void ExpandFilm(benchmark::State& state)
{
    Browser browser;
    browser.Sort("Movie.Title");
    browser.tree.FillTree();
    qint64 id = 0;
    for ([[maybe_unused]] const auto round : state) {
        state.PauseTiming();
        const FilmId film = id++ * 37 % static_cast<qint64>(g_films.size()) + 1;
        const QModelIndex node = browser.model.Find(browser.tree.FilmNodeKeys(film).constFirst());
        state.ResumeTiming();
        try {
            browser.tree.ExpandFilmNode(node);
        } catch (const RuntimeError&) {
            // A few casts of the file name one person twice.
        }
    }
}

// Looks up the names with letters beyond A to Z among all people of the catalog, in another case than they are stored in.
void MatchNames(benchmark::State& state)
{
    Connection connection = OpenCatalog(BuiltCatalog());
    QStringList names;
    Recordset people;
    for (people.Open(u"SELECT Actor FROM Actor"_s, connection); !people.Eof(); people.MoveNext()) {
        if (HasOtherLetters(people.Text(0)))
            names << people.Text(0).toUpper();
    }
    state.counters["people"] = static_cast<double>(people.RecordCount());
    state.counters["names"] = static_cast<double>(names.size());
    people.Close();
    qsizetype next = 0;
    double slowest = 0;
    for ([[maybe_unused]] const auto round : state) {
        QElapsedTimer timer;
        timer.start();
        benchmark::DoNotOptimize(FindName(u"Actor"_s, names[next++ % names.size()], connection));
        slowest = std::max(slowest, static_cast<double>(timer.nsecsElapsed()) / 1000.0);
    }
    state.counters["slowest_us"] = slowest;
}

// The tree with a filter on year and a text, as a user narrows it down.
void FillFiltered(benchmark::State& state)
{
    Browser browser;
    browser.Sort("Movie.Title");
    browser.state.FilterWhere = u"WHERE Movie.Year >= \"1950\" AND Movie.Format = \"DVD\""_s;
    for ([[maybe_unused]] const auto round : state)
        browser.tree.FillTree();
}

void RecountStatus(benchmark::State& state)
{
    StatusTexts texts;
    const QString catalog = BuiltCatalog();
    for ([[maybe_unused]] const auto round : state)
        texts.Recount(catalog);
}

// The person with the most films, until the panel is painted; then a film of the largest cast is chosen, which gets 300 actors first.
void OpenPerson(benchmark::State& state)
{
    Browser browser;
    const QString copy = g_folder + u"/people.kvd"_s;
    QFile::remove(copy);
    QFile::copy(browser.state.CatalogPath(), copy);
    browser.state.comDiagFile.fileName = copy;
    Connection connection = OpenCatalog(copy);
    Recordset most;
    most.Open(u"SELECT Actor_ID, Count(*) AS Films FROM ActorLink GROUP BY Actor_ID ORDER BY Count(*) DESC LIMIT 1"_s, connection);
    const qint64 person = most.Integer(0);
    state.counters["films"] = most.Number(1);
    most.Close();
    connection.Execute(u"INSERT INTO ActorLink (Movie_ID, Actor_ID) SELECT (SELECT Movie_ID FROM ActorLink WHERE Actor_ID = ? LIMIT 1), "
                       "Actor_ID FROM Actor LIMIT 300"_s,
                       {Value(person)});
    connection.Close();

    ScriptedDialogs dialogs;
    frmPeople panel({browser.state, dialogs, browser.shell});
    panel.resize(900, 620);
    panel.show();
    const auto* films = panel.findChild<QTreeView*>(u"lstFHave"_s);
    const auto* beside = panel.findChild<QTreeView*>(u"lstPeople"_s);
    double slowestChoice = 0;
    for ([[maybe_unused]] const auto round : state) {
        panel.Actor_Edit_Page(person);
        QCoreApplication::processEvents();
        state.PauseTiming();
        QElapsedTimer timer;
        timer.start();
        films->selectionModel()->setCurrentIndex(films->model()->index(0, 0),
                                                 QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        QCoreApplication::processEvents();
        slowestChoice = std::max(slowestChoice, static_cast<double>(timer.nsecsElapsed()) / 1e6);
        state.ResumeTiming();
    }
    state.counters["beside"] = beside->model()->rowCount();
    state.counters["beside_ms"] = slowestChoice;
    QFile::remove(copy);
}

// The window that adds an actor to a film, with all people of the catalog, until it is painted.
void ChoosePerson(benchmark::State& state)
{
    const QString catalog = BuiltCatalog();
    for ([[maybe_unused]] const auto round : state) {
        frmEditAddChar window(PersonKinds()[0], catalog, nullptr);
        window.show();
        QCoreApplication::processEvents();
    }
}

// One change of a film that is stored at once, and the saving of a film in which one field was changed.
void StoreTicks(benchmark::State& state)
{
    const QString catalog = BuiltCatalog();
    bool ticked = false;
    for ([[maybe_unused]] const auto round : state)
        StoreTick(kFeature, 1, 1, ticked = !ticked, catalog);
    StoreTick(kFeature, 1, 1, false, catalog);
}

void SaveEdits(benchmark::State& state)
{
    const QString catalog = BuiltCatalog();
    ScriptedDialogs dialogs;
    FilmRecord film = ReadFilm(1, catalog);
    int changes = 0;
    for ([[maybe_unused]] const auto round : state) {
        film.Index = QString::number(++changes);
        SaveFilmEdit(film, 1, {catalog, {}, dialogs});
    }
}

// The same two changes by the engine's own calls: open, one statement, close.
void StoreChangesBare(benchmark::State& state)
{
    const QString catalog = BuiltCatalog();
    int changes = 0;
    for ([[maybe_unused]] const auto round : state)
        Engine(catalog).Run("UPDATE Movie SET \"Index\" = '" + std::to_string(++changes) + "' WHERE Movie_ID = 1");
}

// All films as XML, and what that takes at the least: the same queries, and the same bytes written and forced onto the disk.
void ExportXml(benchmark::State& state)
{
    const QString catalog = BuiltCatalog();
    for ([[maybe_unused]] const auto round : state) {
        Connection connection = OpenCatalog(catalog);
        BuildCatalogXml(g_folder + u"/xml"_s, connection, {u"Default XP"_s, u"http://site"_s}, [](const ExportStep&) { return true; });
    }
    state.counters["bytes"] = static_cast<double>(QFileInfo(g_folder + u"/xml/MyMovies.XML"_s).size());
}

void ExportXmlBare(benchmark::State& state)
{
    constexpr const char* kPeople[] = {
        "SELECT ActorLink.*, Actor.* FROM Actor INNER JOIN ActorLink ON Actor.Actor_ID = ActorLink.Actor_ID WHERE ActorLink.Movie_ID = ?",
        "SELECT Writer.*, WriterLink.* FROM Writer INNER JOIN WriterLink ON Writer.Writer_ID = WriterLink.Writer_ID WHERE "
        "WriterLink.Movie_ID = ?",
        "SELECT Director.*, DirectorLink.* FROM Director INNER JOIN DirectorLink ON Director.Director_ID = DirectorLink.Director_ID WHERE "
        "DirectorLink.Movie_ID = ?",
        "SELECT Producer.*, ProducerLink.* FROM Producer INNER JOIN ProducerLink ON Producer.Producer_ID = ProducerLink.Producer_ID WHERE "
        "ProducerLink.Movie_ID = ?"};
    QFile written(g_folder + u"/xml/MyMovies.XML"_s);
    if (!written.open(QIODevice::ReadOnly))
        return state.SkipWithError("run ExportXml first, in the same folder");
    const QByteArray bytes = written.readAll();
    const QString catalog = BuiltCatalog();
    for ([[maybe_unused]] const auto round : state) {
        Engine engine(catalog);
        engine.Walk("SELECT * FROM Movie", 0, [&](qint64 film) {
            for (const char* query : kPeople)
                engine.Walk(query, film, [](qint64) {});
        });
        QFile file(g_folder + u"/xml/bare.xml"_s);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush() || fsync(file.handle()) != 0)
            return state.SkipWithError("the bytes cannot be written");
    }
}

// The catalog with a cover of 60,000 bytes for 2,000 films.
QString CatalogWithPictures()
{
    QString path = g_folder + u"/pictures.kvd"_s;
    if (QFile::exists(path))
        return path;
    QFile::copy(BuiltCatalog(), path);
    Engine engine(path);
    engine.Run("BEGIN; INSERT INTO Images (Image_ID, Movie_ID, Image, Extention) SELECT Movie_ID, Movie_ID, randomblob(60000), 'JPG' FROM "
               "Movie WHERE Movie_ID % 18 = 0 LIMIT 2000;"
               "UPDATE Movie SET Image_ID = Movie_ID WHERE Movie_ID IN (SELECT Image_ID FROM Images); COMMIT");
    return path;
}

const QString kDelivered = u"" KELVADO_SOURCE_DIR "/data/art/skin/Templates/Web"_s;
const GoesOn kToTheEnd = [](const ExportStep&) { return true; };

WebSite SiteIn(const QString& name)
{
    qputenv("KELVADO_HOME", g_folder.toUtf8());
    return {g_folder + u'/' + name, {}, u"http://site"_s, u"http://maker"_s};
}

void CountFilms(benchmark::State& state, const QString& site)
{
    double bytes = 0;
    double files = 0;
    for (QDirIterator file(site, QDir::Files, QDirIterator::Subdirectories); file.hasNext(); ++files) {
        file.next();
        bytes += static_cast<double>(file.fileInfo().size());
    }
    state.counters["bytes"] = bytes;
    state.counters["files"] = files;
    const double films = static_cast<double>(g_films.size()) * static_cast<double>(state.iterations());
    state.counters["films/s"] = benchmark::Counter(films, benchmark::Counter::kIsRate);
}

// All films as web pages by the delivered templates: on pages of 60, and by the title's first letter with a page for each film.
void ExportWebPages(benchmark::State& state)
{
    WebTemplates templates = ReadPageTemplates(kDelivered);
    templates.extraFiles.clear(); // pictures that only a painted skin has
    const QString catalog = CatalogWithPictures();
    for ([[maybe_unused]] const auto round : state) {
        Connection connection = OpenCatalog(catalog);
        ExportWeb(templates, SiteIn(u"pages"_s), connection, kToTheEnd);
    }
    CountFilms(state, g_folder + u"/pages"_s);
}

void ExportWebView(benchmark::State& state)
{
    WebTemplates templates = ReadViewTemplates(kDelivered);
    templates.extraFiles.clear();
    const ExportedView view{{QString::fromLatin1(kSorts[state.range(0)]), u"Movie.Title"_s, {}, {}, {}, {}, {}}, {}};
    state.SetLabel(kSorts[state.range(0)]);
    const QString catalog = CatalogWithPictures();
    const QString site = u"view%1"_s.arg(state.range(0));
    for ([[maybe_unused]] const auto round : state) {
        Connection connection = OpenCatalog(catalog);
        ExportWebByView(templates, SiteIn(site), view, connection, kToTheEnd);
    }
    CountFilms(state, g_folder + u'/' + site);
}

// The same queries, and the same bytes written to as many files.
void CopySite(benchmark::State& state, const QString& site)
{
    constexpr const char* kPeople[] = {
        "SELECT Genre.Genre FROM GenreLink INNER JOIN Genre ON GenreLink.Genre_ID = Genre.Genre_ID WHERE GenreLink.Movie_ID = ?",
        "SELECT Producer.* FROM Producer INNER JOIN ProducerLink ON Producer.Producer_ID = ProducerLink.Producer_ID WHERE Movie_ID = ?",
        "SELECT Director.* FROM Director INNER JOIN DirectorLink ON Director.Director_ID = DirectorLink.Director_ID WHERE Movie_ID = ?",
        "SELECT Writer.* FROM Writer INNER JOIN WriterLink ON Writer.Writer_ID = WriterLink.Writer_ID WHERE Movie_ID = ?",
        "SELECT Actor.Actor, Character FROM Actor INNER JOIN ActorLink ON Actor.Actor_ID = ActorLink.Actor_ID WHERE Movie_ID = ?",
        "SELECT Images.* FROM Images INNER JOIN Movie ON Movie.Image_ID = Images.Image_ID WHERE Movie.Movie_ID = ?"};
    std::vector<QByteArray> files;
    for (QDirIterator file(g_folder + u'/' + site, QDir::Files, QDirIterator::Subdirectories); file.hasNext();) {
        QFile written(file.next());
        if (written.open(QIODevice::ReadOnly))
            files.push_back(written.readAll());
    }
    if (files.empty())
        return state.SkipWithError("run the export first, in the same folder");
    const QString catalog = CatalogWithPictures();
    const QString target = g_folder + u"/bare-"_s + site;
    QDir().mkpath(target);
    for ([[maybe_unused]] const auto round : state) {
        Engine engine(catalog);
        engine.Walk("SELECT * FROM Movie ORDER BY Title", 0, [&](qint64 film) {
            for (const char* query : kPeople)
                engine.Walk(query, film, [](qint64) {});
        });
        for (std::size_t i = 0; i < files.size(); ++i) {
            QFile file(target + u'/' + QString::number(i));
            if (!file.open(QIODevice::WriteOnly) || file.write(files[i]) != files[i].size())
                return state.SkipWithError("the bytes cannot be written");
        }
    }
    CountFilms(state, target);
}

void ExportWebPagesBare(benchmark::State& state)
{
    CopySite(state, u"pages"_s);
}

void ExportWebViewBare(benchmark::State& state)
{
    CopySite(state, u"view%1"_s.arg(state.range(0)));
}

// All films as text: with columns of their own alone, and with genres and actors.
void ExportText(benchmark::State& state)
{
    const bool hasNames = state.range(0) != 0;
    state.SetLabel(hasNames ? "with names" : "own columns");
    Connection connection = OpenCatalog(BuiltCatalog());
    TextExport text;
    text.path = g_folder + (hasNames ? u"/names.txt"_s : u"/films.txt"_s);
    text.order = TextOrder(u"Title"_s, false);
    for (const TextField& field : TextFields()) {
        const QByteArray key = field.key;
        const bool isName = key == "Genre.Genre" || key == "Actor.Actor";
        if (key == "Movie.Title" || key == "Movie.Year" || key == "Movie.Format" || (hasNames && isName)) {
            text.entries << ColumnEntry(field, connection);
            text.entries.last().Formated = !isName;
        }
    }
    connection.Close();
    for ([[maybe_unused]] const auto round : state) {
        connection = OpenCatalog(BuiltCatalog());
        BuildTextExport(text, connection, [](const ExportStep&) { return true; });
    }
    state.counters["bytes"] = static_cast<double>(QFileInfo(text.path).size());
}

// What that takes at the least: the same columns read, and the same bytes written.
void ExportTextBare(benchmark::State& state)
{
    const bool hasNames = state.range(0) != 0;
    state.SetLabel(hasNames ? "with names" : "own columns");
    QFile written(g_folder + (hasNames ? u"/names.txt"_s : u"/films.txt"_s));
    if (!written.open(QIODevice::ReadOnly))
        return state.SkipWithError("run ExportText first, in the same folder");
    const QByteArray bytes = written.readAll();
    const QString catalog = BuiltCatalog();
    for ([[maybe_unused]] const auto round : state) {
        Engine engine(catalog);
        engine.Walk("SELECT Movie_ID, Title, Year, Format FROM Movie ORDER BY Title", 0, [&](qint64 film) {
            if (!hasNames)
                return;
            engine.Walk("SELECT Genre.Genre FROM GenreLink JOIN Genre USING (Genre_ID) WHERE Movie_ID = ?", film, [](qint64) {});
            engine.Walk("SELECT Actor.Actor FROM ActorLink JOIN Actor USING (Actor_ID) WHERE Movie_ID = ?", film, [](qint64) {});
        });
        QFile file(g_folder + u"/bare.txt"_s);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush())
            return state.SkipWithError("the bytes cannot be written");
    }
}

BENCHMARK(StoreFilms)->Iterations(1)->Unit(benchmark::kSecond)->UseRealTime();
BENCHMARK(StoreFilmsBare)->Iterations(1)->Unit(benchmark::kSecond)->UseRealTime();
BENCHMARK(ReadFilms)->Unit(benchmark::kMicrosecond)->Repetitions(5)->ReportAggregatesOnly();
BENCHMARK(ReadFilmsBare)->Unit(benchmark::kMicrosecond)->Repetitions(5)->ReportAggregatesOnly();
BENCHMARK(FillTree)->DenseRange(0, 3)->Unit(benchmark::kMillisecond)->Repetitions(7)->ReportAggregatesOnly();
BENCHMARK(FillTreeBare)->DenseRange(0, 3)->Unit(benchmark::kMillisecond)->Repetitions(7)->ReportAggregatesOnly();
BENCHMARK(FillFiltered)->Unit(benchmark::kMillisecond)->Repetitions(7)->ReportAggregatesOnly();
BENCHMARK(RecountStatus)->Unit(benchmark::kMillisecond)->Repetitions(7)->ReportAggregatesOnly();
BENCHMARK(MatchNames)->Iterations(5000)->Unit(benchmark::kMicrosecond);
BENCHMARK(ExpandFilm)->Unit(benchmark::kMicrosecond)->Repetitions(5)->ReportAggregatesOnly();
BENCHMARK(StoreTicks)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly()->UseRealTime();
BENCHMARK(SaveEdits)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly()->UseRealTime();
BENCHMARK(StoreChangesBare)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly()->UseRealTime();
BENCHMARK(ExportXml)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly()->UseRealTime();
BENCHMARK(ExportXmlBare)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly()->UseRealTime();
BENCHMARK(ExportWebPages)->Iterations(1)->Unit(benchmark::kMillisecond)->Repetitions(3)->ReportAggregatesOnly()->UseRealTime();
BENCHMARK(ExportWebPagesBare)->Iterations(1)->Unit(benchmark::kMillisecond)->Repetitions(3)->ReportAggregatesOnly()->UseRealTime();
BENCHMARK(ExportWebView)
    ->DenseRange(0, 2)
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(3)
    ->ReportAggregatesOnly()
    ->UseRealTime();
BENCHMARK(ExportWebViewBare)
    ->DenseRange(0, 2)
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(3)
    ->ReportAggregatesOnly()
    ->UseRealTime();
BENCHMARK(ExportText)->DenseRange(0, 1)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly()->UseRealTime();
BENCHMARK(ExportTextBare)->DenseRange(0, 1)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly()->UseRealTime();
BENCHMARK(OpenPerson)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly();
BENCHMARK(ChoosePerson)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly();

// Keeps the medians (or the single run) by name, for the table of ratios.
class MedianKeeper : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs)
            if (run.run_type == Run::RT_Iteration || run.aggregate_name == "median")
                medians[run.run_name.function_name + (run.run_name.args.empty() ? "" : "/" + run.run_name.args)] =
                    run.GetAdjustedRealTime();
        ConsoleReporter::ReportRuns(runs);
    }
    std::map<std::string, double> medians;
};

} // namespace

int main(int argc, char** argv)
{
    // The panels are measured without a display.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (argc != 2 && argc != 3) {
        std::fprintf(stderr, "usage: catalog_bench FILMS.jsonl [FOLDER] [benchmark flags]\n");
        return 2;
    }
#ifndef NDEBUG
    std::fprintf(stderr, "This build is not optimised: its figures say little.\n");
#endif
    try {
        const QTemporaryDir folder;
        g_folder = argc == 3 ? QDir(QString::fromLocal8Bit(argv[2])).absolutePath() : folder.path();
        QDir().mkpath(g_folder);
        g_films = ReadFilmLines(QString::fromLocal8Bit(argv[1]));
        std::printf("%zu films, engine %s\n", g_films.size(), sqlite3_libversion());
        MedianKeeper keeper;
        benchmark::RunSpecifiedBenchmarks(&keeper);
        std::printf("\n%-18s %12s %12s %7s\n", "median", "ours", "bare", "ratio");
        for (const auto& [name, time] : keeper.medians) {
            const std::string bare =
                name.substr(0, name.find('/')) + "Bare" + (name.find('/') == std::string::npos ? "" : name.substr(name.find('/')));
            if (const auto twin = keeper.medians.find(bare); twin != keeper.medians.end())
                std::printf("%-18s %12.2f %12.2f %7.2f\n", name.c_str(), time, twin->second, time / twin->second);
        }
        return 0;
    } catch (const RuntimeError& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
