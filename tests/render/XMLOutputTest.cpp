#include "render/export/mXMLOutput.h"

#include "core/NodeKey.h"
#include "render/pages/Pages.h"
#include "support/ScriptedDialogs.h"
#include "support/TempCatalog.h"
#include "support/TempHome.h"

#include <QXmlStreamReader>

namespace kelvado {
namespace {

class FilmsAsXml : public ::testing::Test
{
protected:
    FilmsAsXml() { home.Write(u"Skins/Plain/RatingBar/BarYes.GIF"_s, "yes"); }

    ExportDone Export(const std::function<bool(const ExportStep&)>& goesOn = [](const ExportStep&) { return true; })
    {
        Connection connection = OpenCatalog(catalog.Path());
        return BuildCatalogXml(folder, connection, {u"Plain"_s, u"http://site"_s}, goesOn);
    }
    QByteArray Exported() const { return FileContent(folder + u"/MyMovies.XML"_s); }

    TempHome home;
    TempCatalog catalog;
    const QString folder = home.Path(u"out"_s);
};

TEST_F(FilmsAsXml, TheCatalogIsWrittenToTheLetter)
{
    catalog.Run(
        "INSERT INTO Images(Image_ID, Image, Extention) VALUES (7, x'FFD8FF', 'JPG');"
        "INSERT INTO Movie(Movie_ID, Title, Year, Number, \"Index\", Plot, Rated, Image_ID, ImageBack_ID, Filesize, AudChannels, IMDB, "
        "Rating, MyRating, SeenIt, IsRequest, PurchasePrice, LastViewing, UserURL1) VALUES "
        "(3, 'Cops & <Robbers>', 1954, 2, '', 'a ]]> b', 'NC17', 7, 99, '700', '6', '0047478', '2.6', 10, 1, 1, 9.5, '2020-02-29', 'u');"
        "INSERT INTO Movie(Movie_ID, Filename, Rating, SeenIt, IsRequest, LastViewing) "
        "VALUES (4, 'a.avi', 'N/A', NULL, NULL, '1899-12-30');"
        "INSERT INTO Actor(Actor_ID, Actor, IMDB_LINK) VALUES (1, 'Ann', '/name/1'), (2, NULL, NULL);"
        "INSERT INTO ActorLink(Movie_ID, Actor_ID, Character, \"Order\") VALUES (3, 1, 'Queen', 2), (3, 2, NULL, 1);"
        "INSERT INTO Writer(Writer_ID, Writer) VALUES (1, 'Wu');"
        "INSERT INTO WriterLink(Movie_ID, Writer_ID, Extended) VALUES (3, 1, '(novel)');"
        "INSERT INTO Director(Director_ID, Director) VALUES (1, 'Di');"
        "INSERT INTO DirectorLink(Movie_ID, Director_ID) VALUES (3, 1);"
        "INSERT INTO Producer(Producer_ID, Producer) VALUES (1, 'Pa');"
        "INSERT INTO ProducerLink(Movie_ID, Producer_ID) VALUES (3, 1)");
    const ExportDone done = Export();
    EXPECT_TRUE(done.whole);
    EXPECT_EQ(std::tuple(done.films, done.count, done.pictures), std::tuple(2, 2, 1));
    const QByteArray golden = FileContent(u"" KELVADO_SOURCE_DIR "/tests/data/render/MyMovies.XML"_s);
    EXPECT_EQ(Exported().replace(home.Path({}).toUtf8(), "HOME").toStdString(), QByteArray(golden).replace('\n', "\r\n").toStdString());
    EXPECT_EQ(FileContent(folder + u"/images/7.JPG"_s), "\xFF\xD8\xFF");
}

TEST_F(FilmsAsXml, APageHasItsStyleSheetAndThePicturesOfPages)
{
    catalog.Run("INSERT INTO Images(Image_ID, Image, Extention) VALUES (7, x'FFD8FF', 'JPG');"
                "INSERT INTO Movie(Movie_ID, Title, Image_ID) VALUES (5, 'One', 7)");
    home.Write(u"Skins/It's 5% #1/skin.ini"_s, "[Template]\nType=XML\n");
    home.Write(u"Skins/It's 5% #1/Templates/Default.xsl"_s, "");
    AppState state;
    state.skin = u"It's 5% #1"_s;
    ScriptedDialogs dialogs;
    Connection connection = OpenCatalog(catalog.Path());
    const std::optional<Page> page = Pages(state, dialogs).FilmPage(FilmKey(5, u"O"), connection);
    EXPECT_EQ(page->step, u"htmltemp0.xml");
    const QString text = QString::fromUtf8(FileContent(page->path)).replace(home.Path({}), u"HOME"_s);
    EXPECT_TRUE(text.startsWith(u"<?xml version='1.0' ?>\r\n<?xml-stylesheet type='text/xsl' "
                                "href='HOME/Skins/It%27s 5%25 %231/Templates/Default.xsl' ?>\r\n<list title='Film'>\r\n<Config>\r\n"
                                "    <maxDirectors>2</maxDirectors>\r\n    <maxWriters>2</maxWriters>\r\n    <maxActors>2</maxActors>\r\n"
                                "</Config>\r\n\r\n<Movie>\r\n    <Title>One</Title>\r\n"_s));
    EXPECT_TRUE(text.endsWith(u"</CustomDetails>\r\n</Movie></list>\r\n\r\n"_s));
    EXPECT_TRUE(text.contains(u"<ImageFront>HOME/temp/MImage1.JPG</ImageFront>"_s));
    EXPECT_TRUE(text.contains(u"<ImageBack>HOME/Skins/It's 5%25 %231/No Image.jpg</ImageBack>"_s));
}

TEST_F(FilmsAsXml, AnyTextIsWellFormed)
{
    // Markup, control characters, half a pair of surrogates, bytes that are no UTF-8, a character that XML does not have.
    const std::pair<const char*, QString> cases[] = {
        {"'<!--&amp;]]><?x ?>\"'''", u"<!--&amp;]]><?x ?>\"'"_s},
        {"'a' || char(1, 9, 31, 127) || 'b'", u"a\uFFFD\t\uFFFD\u007Fb"_s},
        {"CAST(x'61EDA08062' AS TEXT)", u"a\uFFFD\uFFFD\uFFFDb"_s},
        {"CAST(x'C3' AS TEXT)", u"\uFFFD"_s},
        {"'x' || char(65534, 65535, 65533, 128512)", u"x\uFFFD\uFFFD\uFFFD😀"_s},
    };
    catalog.Run("INSERT INTO Movie(Movie_ID, Title) VALUES (1, 'One'); INSERT INTO Actor(Actor_ID) VALUES (1);"
                "INSERT INTO ActorLink(Movie_ID, Actor_ID) VALUES (1, 1)");
    for (const auto& [sql, text] : cases) {
        const QByteArray value = sql;
        catalog.Run(("UPDATE Movie SET Title = " + value + ", Format = " + value + ", IMDB = " + value + ", Rated = " + value).constData());
        catalog.Run(("UPDATE Actor SET Actor = " + value).constData());
        Export();
        QStringList found;
        QXmlStreamReader reader(Exported());
        while (!reader.atEnd()) {
            if (reader.readNext() == QXmlStreamReader::StartElement &&
                QStringList{u"Title"_s, u"Format"_s, u"IMDbNumber"_s, u"Rated"_s, u"Name"_s}.contains(reader.name()))
                found << reader.readElementText();
        }
        EXPECT_FALSE(reader.hasError()) << sql << ": " << qPrintable(reader.errorString());
        EXPECT_EQ(found, QStringList(5, text)) << sql;
    }
}

TEST_F(FilmsAsXml, WhatEndsBeforeItsTimeLeavesTheOldFile)
{
    home.Write(u"out/MyMovies.XML"_s, "old");
    catalog.Run("INSERT INTO Movie(Title, Rating) VALUES ('One', '7.0'), ('Two', '7.x'), ('Three', '7.0')");
    EXPECT_NE(ErrorTextOf([&] { return Export(); }).find("7.x\" does not end with a digit (Two)"), std::string::npos);
    EXPECT_EQ(Exported(), "old");

    catalog.Run("UPDATE Movie SET Rating = NULL");
    QStringList titles;
    const ExportDone done = Export([&](const ExportStep& step) { return (titles << step.title).size() < step.count - 1; });
    EXPECT_FALSE(done.whole);
    EXPECT_EQ(titles, (QStringList{u"One"_s, u"Two"_s}));
    EXPECT_EQ(Exported(), "old");
    EXPECT_EQ(QDir(folder).entryList(QDir::Files), QStringList{u"MyMovies.XML"_s});
}

TEST_F(FilmsAsXml, ATargetThatCannotBeWrittenIsNamed)
{
    QDir().mkpath(folder + u"/MyMovies.XML"_s); // a folder in the file's place
    EXPECT_NE(ErrorTextOf([&] { return Export(); }).find("out/MyMovies.XML"), std::string::npos);
    home.Write(u"file"_s, "x");
    Connection connection = OpenCatalog(catalog.Path());
    EXPECT_EQ(ErrorOf([&] { return BuildCatalogXml(home.Path(u"file"_s), connection, {}, {}); }), kErrFileAccess);
}

} // namespace
} // namespace kelvado
