#include "render/pages/Pages.h"

#include "core/NodeKey.h"
#include "store/Connection.h"
#include "support/ScriptedDialogs.h"
#include "support/TempCatalog.h"
#include "support/TempHome.h"

namespace kelvado {
namespace {

/// A catalog with the film 5, selected in the tree, and a program folder with the skin "Plain".
class FilmPages : public ::testing::Test
{
protected:
    FilmPages()
    {
        Write("Skins/Plain/skin.ini", "[Template]\nType=Template\n");
        Write("Skins/Plain/No Image.jpg", "picture");
        catalog.Run("INSERT INTO Movie(Movie_ID, Title) VALUES (5, 'Cops & <Robbers>')");
        state.skin = u"Plain"_s;
        state.CurrentSection = kMovieList;
        state.comDiagFile.fileName = catalog.Path();
    }

    void Write(const char* name, const QByteArray& bytes) { home.Write(QString::fromUtf8(name), bytes); }

    /// The text of a page, with the program folder's path cut to "HOME" and without its line end.
    std::string Text(const std::optional<Page>& page) const
    {
        QString text = QString::fromUtf8(FileContent(page ? page->path : QString()));
        EXPECT_TRUE(text.endsWith(u"\r\n"_s));
        text.chop(2);
        return text.replace(home.Path({}), u"HOME"_s).toStdString();
    }

    std::optional<Page> Show()
    {
        Connection connection = OpenCatalog(catalog.Path());
        return pages.FilmPage(key, connection);
    }
    std::string FilmPage() { return Text(Show()); }

    TempHome home;
    TempCatalog catalog;
    AppState state;
    ScriptedDialogs dialogs;
    QString key = FilmKey(5, u"C");
    Pages pages{state, dialogs};
};

TEST_F(FilmPages, AFilmBecomesAPageThatIsAStepOfTheHistory)
{
    Write("Skins/Plain/templates/Default.HTML", "<h1>!!TITLE!!</h1>!!GENRE!!<a id=\"!!NAVCREDITS!!\">!!WRITER1!!");
    EXPECT_EQ(FilmPage(), "<h1>Cops & <Robbers></h1>N/A<a id=\"SendMessage:PAGE_CREDITS:5\">N/A");
    EXPECT_EQ(Show()->step, u"htmltemp1.html");

    // A number beyond 32 bits is a film's like any other.
    catalog.Run("INSERT INTO Movie(Movie_ID, Title) VALUES (5000000000, 'Zulu')");
    key = FilmKey(5000000000, u"Z");
    Write("Skins/Plain/templates/nfo.html", "!!NFO!!");
    Write("Skins/Plain/templates/credits.html", "!!TITLE!!");
    EXPECT_EQ(FilmPage(), "<h1>Zulu</h1>N/A<a id=\"SendMessage:PAGE_CREDITS:5000000000\">N/A");
    EXPECT_EQ(Text(pages.NfoPage(key)), "N/A");
    EXPECT_EQ(Text(pages.CreditsPage(5000000000)), "Zulu");
}

TEST_F(FilmPages, PagesAndPicturesGoRound)
{
    Write("Skins/Plain/Templates/default.html", "!!IMAGE!! !!IMAGEBACK!!");
    EXPECT_EQ(FilmPage(), "HOME/Skins/Plain/No Image.jpg HOME/Skins/Plain/No Image.jpg");
    catalog.Run("INSERT INTO Images(Image_ID, Image, Extention) VALUES (1, x'FFD8FF', 'JPG'), (2, x'474946', 'GIF')");
    catalog.Run("UPDATE Movie SET Image_ID = 1, ImageBack_ID = 2");
    for (int i = 0; i < 12; ++i)
        EXPECT_EQ(FilmPage(), u"HOME/temp/MImage%1.JPG HOME/temp/MImage%2.GIF"_s.arg(2 * i + 1).arg(2 * i + 2).toStdString());
    EXPECT_EQ(FilmPage(), "HOME/temp/MImage25.JPG HOME/temp/MImage1.GIF");
    EXPECT_EQ(Show()->step, u"htmltemp4.html"); // the fifteenth of ten files

    catalog.Run("UPDATE Movie SET Image_ID = 99, ImageBack_ID = NULL"); // a picture that is lost, and none
    EXPECT_EQ(FilmPage(), "HOME/Skins/Plain/No Image.jpg HOME/Skins/Plain/No Image.jpg");
}

TEST_F(FilmPages, FailuresGiveNoPage)
{
    const auto errorOf = [&](const QString& node) {
        key = node;
        return ErrorOf([&] { return Show(); });
    };
    EXPECT_FALSE(Show());
    ASSERT_EQ(dialogs.boxes.size(), 1);
    EXPECT_TRUE(dialogs.boxes[0].text.contains(u"default.html"_s));
    Write("Skins/Plain/Templates/default.html", "!!TITLE!!");
    EXPECT_EQ(errorOf(FilmKey(6, u"C")), kErrNoCurrentRecord);
    EXPECT_EQ(errorOf(GroupKey(u"C")), kErrTypeMismatch);
    Write("Skins/Plain/skin.ini", "[template]\ntype=XML\n");
    EXPECT_EQ(errorOf(FilmKey(5, u"C")), 0);
    ASSERT_EQ(dialogs.boxes.size(), 2);
    EXPECT_TRUE(dialogs.boxes[1].text.contains(u"Default.xsl"_s));
    Write("Skins/Plain/Templates/Default.xsl", "");
    EXPECT_EQ(errorOf(FilmKey(6, u"C")), kErrNoCurrentRecord);
}

TEST_F(FilmPages, CreditsKeepTheirOddTokensAndMarkers)
{
    catalog.Run("INSERT INTO Actor(Actor_ID, Actor, IMDB_LINK) VALUES (1, 'Ann', '/name/1'), (2, 'Bo', NULL);"
                "INSERT INTO ActorLink(Movie_ID, Actor_ID, Character) VALUES (5, 1, 'Queen'), (5, 2, NULL);"
                "INSERT INTO Writer(Writer_ID, Writer) VALUES (3, 'Wu');"
                "INSERT INTO WriterLink(Movie_ID, Writer_ID, Extended) VALUES (5, 3, '(novel)');"
                "INSERT INTO Director(Director_ID, Director) VALUES (4, 'Di')");
    catalog.Run("INSERT INTO DirectorLink(Movie_ID, Director_ID) VALUES (5, 4)");
    Write("Settings.ini", "[Hosts]\nImdbMainHost=site\n");
    Write("Skins/Plain/Templates/credits.html",
          "(<!--START_ACTOR_CREDIT-->[!!ACTOR!!,!!CHARACTER!!,!!ACTORNAV!!,!!ACTORIMDB!!]<!--END_ACTOR_CREDIT-->)"
          "(<!--START_WRITER_CREDIT-->[!!WRITER!!,!!EXTENDED!!,!!ACTORNAV!!]<!--START_ACTOR_CREDIT--><!--END_WRITER_CREDIT-->)"
          "(<!--START_DIRECTOR_CREDIT-->[!!DIRECTOR!!,!!EXTENDED!!,!!DIRECTORNAV!!,!!WRITERNAV!!]<!--END_DIRECTOR_CREDIT-->)");
    EXPECT_EQ(Text(pages.CreditsPage(5)),
              "([Ann,Queen,SendMessage:ACTORID:1,http://site/name/1][Bo,,SendMessage:ACTORID:2,http://site])"
              "(<!--START_WRITER_CREDIT-->[Wu,(novel),SendMessage:WRITERID:3]<!--END_WRITER_CREDIT-->)"
              "(<!--START_DIRECTOR_CREDIT-->[Di,,SendMessage:WRITERID:4,!!WRITERNAV!!]<!--END_DIRECTOR_CREDIT-->)");

    // A block with one marker only is left alone; a film without people leaves nothing of the block.
    catalog.Run("DELETE FROM ActorLink");
    Write("Skins/Plain/Templates/credits.html",
          "!!TITLE!! <!--START_ACTOR_CREDIT-->x<!--END_ACTOR_CREDIT-->!!WRITER!!<!--END_WRITER_CREDIT-->");
    EXPECT_EQ(Text(pages.CreditsPage(5)), "Cops & <Robbers> !!WRITER!!<!--END_WRITER_CREDIT-->");
}

TEST_F(FilmPages, APersonHasLinksToTheFilmsInTheTreeAndOnTheSite)
{
    const auto valueInTree = [](FilmId film) { return film == 6 ? std::nullopt : std::optional(u"Sci-Fi & \"Noir\""_s); };
    const auto page = [&](qint64 actor) {
        Connection connection = OpenCatalog(catalog.Path());
        return pages.PersonPage(actor, connection, valueInTree);
    };

    Write("Settings.ini", "[Hosts]\nImdbMainHost=site\n");
    Write("Skins/Plain/Templates/person.html",
          "!!IMAGE!! !!NAME!!|!!BIRTHDATE!!|!!BIRTHNAME!!|!!BIRTHLOCATION!!|!!HEIGHT!!|!!BIO!!|!!COMMENTS!! !!HISTORY!! [!!INFILM!!]");
    catalog.Run("INSERT INTO Actor(Actor_ID, Actor, BirthName, Biography, Film_History, Image_ID) VALUES (50000, 'Ann <1>', '', "
                "'a </TextArea> b', 'One (1950)' || char(13, 10) || '0000001|&#34;Two <i>&#34; (1951)' || char(13, 10) || '00\" x=1|', 3),"
                "(50001, 'Bo', NULL, NULL, NULL, 9)");
    catalog.Run("INSERT INTO Images(Image_ID, Image, Extention) VALUES (3, x'FFD8FF', 'JPG');"
                "INSERT INTO Movie(Movie_ID, Title, Format) VALUES (6, 'Alien', 'DVD'), (7, 'Brazil', 'Request')");
    catalog.Run("INSERT INTO ActorLink(Movie_ID, Actor_ID, Character) VALUES (7, 50000, 'Cook'), (5, 50000, 'A < B'), (6, 50000, NULL), "
                "(5, 50000, 'Thief')");
    const auto row = [](const char* id, const char* title, const char* role) {
        return std::string("<tr bgcolor=\"#EAEAEA\"><td width=\"50%\"><a id=\"") + id + "\" href=#>" + title + "</a></td><td>" + role +
               "</td></tr>";
    };
    const char* const film = "SendMessage:GOTO:5:Sci-Fi &amp; &quot;Noir&quot;";
    EXPECT_EQ(Text(page(50000)), "HOME/temp/PImage1.JPG Ann <1>|N/A||N/A|N/A|a &lt;/textarea> b|N/A "
                                 "<A HREF=http://site/Title?0000001 TARGET=\"_blank\">One (1950)</A><BR>"
                                 "<A HREF=http://site/Title?00%22%20x%3D1 TARGET=\"_blank\">&#34;Two &lt;i>&#34; (1951)</A><BR> [" +
                                     row("SendMessage:GOTO:6:", "Alien", "N/A") + row("NA", "Brazil", "Cook") +
                                     row(film, "Cops & &lt;Robbers>", "A &lt; B") + row(film, "Cops & &lt;Robbers>", "Thief") + "]");
    EXPECT_EQ(Text(page(50001)), "HOME/Skins/Plain/No Image.jpg Bo|N/A|N/A|N/A|N/A|N/A|N/A N/A []");
    EXPECT_EQ(page(50001)->step, u"htmltemp2.html");
    EXPECT_EQ(ErrorOf([&] { return page(8); }), kErrNoCurrentRecord);
}

TEST_F(FilmPages, CreditsWithoutATemplateAreToldOnce)
{
    const ScriptedDialogs::Box box{u"The credits template file for skin Plain could not be located.  Please contact Kelvado support."_s,
                                   kBoxCritical, u"Credits Page Error"_s};
    EXPECT_FALSE(pages.CreditsPage(5));
    EXPECT_EQ(dialogs.boxes, QList<ScriptedDialogs::Box>{box});
    Write("Skins/Plain/Templates/credits.html", "");
    EXPECT_FALSE(pages.CreditsPage(5));
    EXPECT_EQ(dialogs.boxes, (QList<ScriptedDialogs::Box>{box, box}));

    Write("Skins/Plain/skin.ini", "[Template]\nType=XML\n");
    const std::optional<Page> xml = pages.CreditsPage(5);
    EXPECT_EQ(xml->step, u"htmltemp0.xml");
    EXPECT_EQ(Text(xml), "");
}

TEST_F(FilmPages, TheNfoPageIsNoStepOfTheHistory)
{
    Write("Skins/Plain/Templates/nfo.html", "<pre>!!NFO!!</pre>");
    EXPECT_EQ(Text(pages.NfoPage(key)), "<pre>N/A</pre>");
    catalog.Run("UPDATE Movie SET Nfo = 'a' || char(13, 10) || '!!TITLE!!'");
    EXPECT_EQ(Text(pages.NfoPage(key)), "<pre>a\r\n!!TITLE!!</pre>");
    EXPECT_EQ(pages.NfoPage(key)->step, QString());
}

} // namespace
} // namespace kelvado
