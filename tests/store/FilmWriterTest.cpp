#include "store/mDBConnection.h"

#include "core/Profile.h"
#include "store/FilmActions.h"
#include "support/FullDisk.h"
#include "support/RecordingShell.h"
#include "support/ScriptedDialogs.h"
#include "support/TempCatalog.h"

#include <QFileInfo>

namespace kelvado {
namespace {

FilmPerson Person(const QString& name, const QString& link = {}, const QString& extended = {}, const QString& character = {})
{
    return {name, 0, link, extended, character};
}

FilmRecord WholeFilm()
{
    FilmRecord film;
    film.Title = u"Brazil (1985)"_s;
    film.TitleNY = u" Brazil "_s;
    film.Year = u"1985"_s;
    film.IMDB = u"0088846"_s;
    film.Rating = u"9.0"_s;
    film.Votes = u"1,234"_s;
    film.Rated = u"R"_s;
    film.Runtime = u"142 min"_s;
    film.Plot = u"A clerk's \"dream\" & <more>\r\n\u0416\u4e2d "_s + QString(10000, u'x');
    film.Format = u"DVD"_s;
    film.Index = u"B'7"_s;
    film.Group = u"group"_s;
    film.Filesize = u"700 MB"_s;
    film.FileName = u"brazil.avi"_s;
    film.PurchasePrice = {125000};
    film.LastViewing = QDate(2004, 2, 29);
    film.SeenIt = true;
    film.MyRating = u"7"_s;
    film.ImageData = QByteArray("\0\xFF picture", 10);
    film.ImageExtention = u"JPG"_s;
    film.ImageURL = u"http://small"_s;
    film.HiResImageURL = u"http://large"_s;
    film.Genres = {{u"Drama"_s, 0}, {u" Satire"_s, 0}, {u""_s, 0}};
    film.Writers = {Person(u"Tom O'Stoppard "_s, u" /name/1 "_s, u" (also) "_s), Person(u"xy"_s), Person(u"a > b"_s)};
    film.Directors = {Person(u"Terry"_s)};
    film.Producers = {Person(u"Arnon"_s, u"/name/2"_s), Person(u"No Link"_s)};
    film.Actors = {Person(u"Zed"_s, {}, {}, u" Sam "_s), Person(u"no"_s), Person(u"Abe"_s, u"/name/3"_s, {}, u"It"_s)};
    film.Companies = {{u"Embassy"_s, 0, u"Production"_s, u"(US)"_s}};
    return film;
}

class FilmWriter : public ::testing::Test
{
protected:
    TempCatalog catalog;
    ScriptedDialogs dialogs;
    RecordingShell shell;
    WriterContext context{catalog.Path(), catalog.Folder() + u"/Settings.ini"_s, dialogs};
    cOptIMDbFilm all = AllParts();
};

TEST_F(FilmWriter, AFilmComesBackAsItWasStored)
{
    const FilmRecord film = WholeFilm();
    EXPECT_EQ(AddFilm(film, all, context), 1);
    const FilmRecord read = ReadFilm(1, catalog.Path());
    EXPECT_EQ((QStringList{read.Title, read.TitleNY, read.Year, read.IMDB, read.Rating, read.Index, read.FileName}).join(u'|'),
              u"Brazil (1985)|Brazil|1985|0088846|9.0|B'7|brazil.avi"_s);
    EXPECT_EQ(read.Plot, film.Plot);
    EXPECT_EQ(read.PurchasePrice, film.PurchasePrice);
    EXPECT_TRUE(read.SeenIt);
    EXPECT_EQ(read.LastViewing, ZeroDate());
    EXPECT_EQ(catalog.Ask("SELECT LastViewing FROM Movie"), u"2004-02-29"_s);
    EXPECT_EQ(read.Image_ID + read.ImageBack_ID, u"10"_s);
    EXPECT_EQ(catalog.Ask("SELECT hex(Image) || Extention || Image_Link FROM Images"), u"00FF2070696374757265JPGhttp://large"_s);
    ASSERT_EQ(read.Genres.size(), 2);
    EXPECT_EQ(read.Genres[1].Genre, u"Satire"_s);
    ASSERT_EQ(read.Writers.size(), 1);
    EXPECT_EQ(read.Writers[0].Name + read.Writers[0].IMDB_Link + read.Writers[0].Extended, u"Tom O'Stoppard/name/1(also)"_s);
    ASSERT_EQ(read.Actors.size(), 2); // in billing order
    EXPECT_EQ(read.Actors[0].Name + read.Actors[0].Character, u"ZedSam"_s);
    EXPECT_EQ(read.Actors[1].Character, QString()); // too short for a role
    EXPECT_EQ(catalog.Ask("SELECT group_concat(\"Order\") FROM ActorLink"), u"1,3"_s);
    ASSERT_EQ(read.Companies.size(), 1);
    EXPECT_EQ(read.Companies[0].Type + read.Companies[0].Extended, u"Production(US)"_s);
    EXPECT_THROW(ReadFilm(2, catalog.Path()), RuntimeError);
}

TEST_F(FilmWriter, NamesAreMatchedBlindToCaseAndNeverTouched)
{
    FilmRecord film = WholeFilm();
    AddFilm(film, all, context);
    film.Writers = {Person(u"TOM O'STOPPARD"_s, u"/name/new"_s)};
    film.Genres = {{u"satire"_s, 0}};
    AddFilm(film, all, context);
    EXPECT_EQ(catalog.Ask("SELECT Writer || IMDB_LINK || count(*) FROM Writer"), u"Tom O'Stoppard/name/11"_s);
    EXPECT_EQ(catalog.Ask("SELECT count(*) FROM Genre WHERE Genre = 'satire'"), u"1"_s);
    EXPECT_EQ(catalog.Ask("SELECT count(*) FROM WriterLink WHERE Writer_ID = 1"), u"2"_s);
}

TEST_F(FilmWriter, ANameFindsItsRowWhateverLettersAndQuotesItHolds)
{
    const std::pair<QString, QString> spellings[] = {
        {u"Émile Zola"_s, u"émile ZOLA"_s},           {u"Ólafur ÓLAFSSON"_s, u"ólafur ólafsson"_s},
        {u"Άννα Σόφος"_s, u"άννα ΣΌΦΟΣ"_s},           {u"Фёдор Достоевский"_s, u"фёдор достоевский"_s},
        {u"Jörg \"O'Neil\""_s, u"JÖRG \"O'NEIL\""_s},
    };
    for (const auto& [first, second] : spellings) {
        for (const QString& spelling : {first, second}) {
            FilmRecord film;
            film.Title = spelling;
            film.Actors = {Person(spelling)};
            film.Genres = {{spelling, 0}};
            AddFilm(film, all, context);
        }
    }
    AddFilm(WholeFilm(), all, context); // names without an É beside those with one
    EXPECT_EQ(catalog.Ask("SELECT count(*) FROM Actor"), u"7"_s);
    EXPECT_EQ(catalog.Ask("SELECT count(*) FROM Genre"), u"30"_s);
    EXPECT_EQ(catalog.Ask("SELECT group_concat(n) FROM (SELECT count(*) AS n FROM ActorLink GROUP BY Actor_ID)"), u"2,2,2,2,2,1,1"_s);
}

TEST_F(FilmWriter, ADeletedFilmIsGoneWithItsListsOrNotAtAll)
{
    AddFilm(WholeFilm(), all, context);
    const char* const rows = "SELECT (SELECT count(*) FROM Movie) || (SELECT count(*) FROM Images) || (SELECT count(*) FROM GenreLink) || "
                             "(SELECT count(*) FROM ActorLink) || (SELECT count(*) FROM WriterLink) || (SELECT count(*) FROM CompanyLink)";
    catalog.Run("CREATE TRIGGER t BEFORE DELETE ON CompanyLink BEGIN SELECT raise(ABORT, 'no'); END");
    EXPECT_TRUE(
        ErrorTextOf([&] { DeleteFilm(1, catalog.Path()); }).ends_with("The film is still in the catalog, with all that belongs to it."));
    EXPECT_EQ(catalog.Ask(rows), u"112211"_s);
    // An empty text where another tool left it is no picture.
    catalog.Run("DROP TRIGGER t; UPDATE Movie SET Image_ID = ''");
    DeleteFilm(1, catalog.Path());
    EXPECT_EQ(catalog.Ask(rows), u"010000"_s);
}

TEST_F(FilmWriter, LinksOfNewPeopleFollowTheirOddRules)
{
    FilmRecord film = WholeFilm();
    AddFilm(film, all, context);
    EXPECT_EQ(catalog.Ask("SELECT IMDB_LINK FROM Director"), u"<null>"_s);
    EXPECT_EQ(catalog.Ask("SELECT group_concat(coalesce(Producer, '-') || '=' || IMDB_LINK) FROM Producer"), u"Arnon=Arnon,-=No Link"_s);
    film.Directors = {Person(u"Second"_s)};
    film.Producers = {Person(u"Third"_s)};
    UpdateFilm(film, 1, all, context, shell);
    EXPECT_EQ(catalog.Ask("SELECT quote(IMDB_LINK) FROM Director WHERE Director = 'Second'"), u"''"_s);
    EXPECT_EQ(catalog.Ask("SELECT IMDB_LINK FROM Producer WHERE Producer = 'Third'"), u"Third"_s);
}

TEST_F(FilmWriter, OptionsGateColumnsAndLists)
{
    cOptIMDbFilm none;
    none.Image = 1;
    EXPECT_EQ(AddFilm(WholeFilm(), none, context), 1);
    EXPECT_EQ(
        catalog.Ask(
            "SELECT Title || coalesce(TitleNY, Votes, Rating, Year, Plot, Rated, Runtime, '/') || IMDB || Format || \"Group\" FROM Movie"),
        u"Brazil (1985)/0088846DVDgroup"_s);
    EXPECT_EQ(catalog.Ask("SELECT (SELECT count(*) FROM GenreLink) + (SELECT count(*) FROM ActorLink) + (SELECT count(*) FROM Writer)"),
              u"0"_s);

    // An update looks at the certificate's option for the rating.
    none.Rating = 1;
    UpdateFilm(WholeFilm(), 1, none, context, shell);
    EXPECT_EQ(catalog.Ask("SELECT Rating || Rated FROM Movie"), u"9.0R"_s);
}

TEST_F(FilmWriter, WithoutPictureOptionsTheLinksBelongToNoFilm)
{
    cOptIMDbFilm parts = AllParts();
    AddFilm(WholeFilm(), parts, context);
    parts.Image = parts.HiImage = 0;
    EXPECT_EQ(AddFilm(WholeFilm(), parts, context), 2);
    UpdateFilm(WholeFilm(), 1, parts, context, shell);
    EXPECT_EQ(catalog.Ask("SELECT group_concat(coalesce(Movie_ID, 'null')) FROM (SELECT Movie_ID FROM GenreLink ORDER BY _rowid_)"),
              u"1,1,null,null,null,null"_s);
    EXPECT_EQ(catalog.Ask("SELECT count(*) FROM Images"), u"1"_s);
}

TEST_F(FilmWriter, AnUpdateKeepsWhatTheNewRecordDoesNotKnow)
{
    FilmRecord film = WholeFilm();
    AddFilm(film, all, context);
    catalog.Run("INSERT INTO ActorLink (Movie_ID, Actor_ID) VALUES (77, 1)");
    FilmRecord fresh;
    fresh.Title = u"Brazil &#233;t&#233;"_s;
    fresh.Votes = u"2000"_s;
    fresh.Runtime = u"   "_s;
    fresh.Filesize = u"other"_s;
    fresh.Actors = {Person(u"New One"_s), Person(u"xx"_s)};
    fresh.Writers = {Person(u"xx"_s)}; // nobody who could take the old one's place
    fresh.ImageData = "new";
    fresh.ImageExtention = u"GIF"_s;
    UpdateFilm(fresh, 1, all, context, shell);

    // What is the user's own, no page knows.
    EXPECT_EQ(
        catalog.Ask("SELECT Votes || Year || Runtime || Filesize || ' ' || PurchasePrice || SeenIt || LastViewing || MyRating FROM Movie"),
        u"20001985142 min700 MB 12.512004-02-297"_s);
    EXPECT_EQ(catalog.Ask("SELECT group_concat(Actor) FROM ActorLink l JOIN Actor USING (Actor_ID) WHERE l.Movie_ID = 1"), u"New One"_s);
    EXPECT_EQ(catalog.Ask("SELECT (SELECT count(*) FROM ActorLink WHERE Movie_ID = 77) || count(*) FROM WriterLink"), u"11"_s);
    EXPECT_EQ(catalog.Ask("SELECT Image_ID FROM Movie"), u"2"_s);
    EXPECT_EQ(catalog.Ask("SELECT group_concat(Extention || ifnull(Image_Link, '')) FROM Images"), u"JPGhttp://large,GIF"_s);
    EXPECT_EQ(shell.calls, (QStringList{u"Retitle 1 Brazil été"_s, u"Rekey 1"_s}));
    EXPECT_THROW(UpdateFilm(fresh, 9, all, context, shell), RuntimeError);
}

TEST_F(FilmWriter, AnEditNeverEmptiesAColumn)
{
    AddFilm(WholeFilm(), all, context);
    FilmRecord edit;
    edit.Title = u"   "_s;
    edit.Comments = u" new "_s;
    SaveFilmEdit(edit, 1, context);
    EXPECT_EQ(catalog.Ask("SELECT Title || Comments || SeenIt FROM Movie"), u"Brazil (1985)new0"_s);
    EXPECT_EQ(catalog.Ask("SELECT count(*) FROM GenreLink"), u"2"_s);
    EXPECT_THROW(SaveFilmEdit(edit, 9, context), RuntimeError);
}

TEST_F(FilmWriter, LongTextsAreCutOrAskedFor)
{
    FilmRecord film;
    film.Title = QString(254, u'a') + u"\U0001F3AC tail"_s;
    film.Format = QString(60, u'f');
    film.Country = QString(120, u'c');
    ASSERT_TRUE(WriteProfileValue(u"IMDb"_s, u"AutoCut"_s, u"-1"_s, context.settingsFile));
    AddFilm(film, all, context);
    EXPECT_EQ(catalog.Ask("SELECT length(Title) || ':' || length(Format) FROM Movie"), u"254:50"_s); // never half a character
    EXPECT_TRUE(dialogs.fieldEdits.isEmpty());

    ASSERT_TRUE(WriteProfileValue(u"IMDb"_s, u"AutoCut"_s, u"0"_s, context.settingsFile));
    dialogs.edits << u" short "_s << u""_s << u"  "_s; // the second and third leave the columns alone
    EXPECT_EQ(AddFilm(film, all, context), 2);
    EXPECT_EQ(dialogs.fieldEdits, (QStringList{u"TITLE:255"_s, u"FORMAT:50"_s, u"COUNTRY:100"_s}));
    EXPECT_EQ(catalog.Ask("SELECT Title || coalesce(Format, '-') || coalesce(Country, '-') FROM Movie WHERE Movie_ID = 2"), u"short--"_s);
}

TEST_F(FilmWriter, AFailureHalfWayNamesTheFilmAndWhatIsMissing)
{
    FilmRecord film = WholeFilm();
    film.Directors.clear();
    catalog.Run(
        "CREATE TRIGGER t BEFORE INSERT ON GenreLink WHEN (SELECT count(*) FROM GenreLink) > 0 BEGIN SELECT raise(ABORT, 'x'); END");
    const std::string failure = ErrorTextOf([&] { AddFilm(film, all, context); });
    EXPECT_NE(failure.find("\"Brazil (1985)\""), std::string::npos) << failure;
    EXPECT_TRUE(failure.ends_with(": genres, writers, producers, actors, companies")) << failure;
    EXPECT_EQ(catalog.Ask("SELECT (SELECT count(*) FROM Movie) || (SELECT count(*) FROM GenreLink) || count(*) FROM WriterLink"), u"110"_s);

    EXPECT_THROW(UpdateFilm(film, 1, all, context, shell), RuntimeError);
    EXPECT_EQ(shell.calls.size(), 2); // the row was stored, so the tree shows it

    // Where the film's own row fails, nothing is stored.
    catalog.Run("ALTER TABLE Movie DROP COLUMN Resolution");
    film.Resolution = u"640x480"_s;
    EXPECT_THROW(AddFilm(film, all, context), RuntimeError);
    catalog.Run("CREATE TRIGGER u BEFORE INSERT ON Movie BEGIN SELECT raise(ABORT, 'x'); END");
    film.Resolution.clear();
    EXPECT_THROW(AddFilm(film, all, context), RuntimeError);
    catalog.Run("CREATE TRIGGER v BEFORE UPDATE ON Movie BEGIN SELECT raise(ABORT, 'x'); END");
    EXPECT_THROW(UpdateFilm(film, 1, all, context, shell), RuntimeError);
    EXPECT_EQ(catalog.Ask("SELECT (SELECT count(*) FROM Movie) || (SELECT count(*) FROM Images)"), u"12"_s);
}

TEST_F(FilmWriter, AListThatCannotBeUpdatedStaysAsItWas)
{
    AddFilm(WholeFilm(), all, context);
    FilmRecord film = WholeFilm();
    film.Writers = {Person(u"New Writer"_s)};
    film.Actors = {Person(u"New Actor"_s)};
    film.Genres = {{u"Western"_s, 0}};
    catalog.Run("CREATE TRIGGER t BEFORE INSERT ON ActorLink BEGIN SELECT raise(ABORT, 'no actors today'); END");
    const std::string failure = ErrorTextOf([&] { UpdateFilm(film, 1, all, context, shell); });
    EXPECT_TRUE(failure.starts_with("no actors today (")) << failure;
    EXPECT_TRUE(failure.ends_with("these lists are as they were: actors, companies")) << failure;
    const FilmRecord read = ReadFilm(1, catalog.Path());
    ASSERT_EQ(read.Genres.size(), 1); // the lists in front of it are stored
    EXPECT_EQ(read.Writers[0].Name, u"New Writer"_s);
    ASSERT_EQ(read.Actors.size(), 2);
    EXPECT_EQ(read.Actors[0].Name, u"Zed"_s);
    EXPECT_EQ(read.Companies.size(), 1);
    EXPECT_EQ(catalog.Ask("SELECT count(*) FROM Actor WHERE Actor = 'New Actor'"), u"0"_s);
}

TEST_F(FilmWriter, AFullDiskStoresNothingOfTheFilmAndSaysNothingElse)
{
    // Files may grow by 100,000 bytes. The small cast fails at the commit, the large one on its way, when the engine's memory is full.
    for (const int actors : {2000, 40000}) {
        FilmRecord film = WholeFilm();
        for (int i = 0; i < actors; ++i)
            film.Actors.append(Person(u"actor %1 "_s.arg(i) + QString(80, u'x')));
        const QString failure = [&] {
            const FullDisk full(QFileInfo(catalog.Path()).size() + 100000);
            return QString::fromStdString(ErrorTextOf([&] { AddFilm(film, all, context); }));
        }();
        EXPECT_TRUE(failure.contains(catalog.Path())) << qPrintable(failure);
        EXPECT_FALSE(failure.contains(u"is in the catalog"_s)) << qPrintable(failure);
        EXPECT_EQ(catalog.Ask("SELECT count(*) FROM Movie"), u"0"_s);
        EXPECT_EQ(catalog.Ask("PRAGMA integrity_check"), u"ok"_s);
    }
}

} // namespace
} // namespace kelvado
