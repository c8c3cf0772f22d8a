#include "render/export/CollectionPrint.h"
#include "render/export/PrintPages.h"

#include "support/ErrorOf.h"
#include "support/TempCatalog.h"
#include "support/TempHome.h"

namespace kelvado {
namespace {

TEST(PrintPages, ThreeFilmsAPageFromTheSecondOneOn)
{
    const TempHome home;
    const QString catalog = home.Path(u"keldb3.mdb"_s);
    EXPECT_EQ(ErrorOf([&] { return WritePrintPages(catalog, home.Path(u""_s)); }), kErrDatabase);
    home.Write(u"keldb3.mdb"_s, "");
    const auto pages = [&] { return WritePrintPages(catalog, home.Path(u"."_s)).size(); };
    OtherProgram old(catalog);
    old.Run("CREATE TABLE Movie(Title TEXT, TitleNY TEXT, Year NUMBER, Format TEXT, \"Index\" TEXT, Runtime TEXT, Plot TEXT, Image TEXT);"
            "CREATE TABLE Actor(Title TEXT, Actor TEXT)");
    EXPECT_EQ(pages(), 0);
    old.Run("INSERT INTO Movie(Title) VALUES ('First')");
    EXPECT_EQ(pages(), 0);
    old.Run("INSERT INTO Movie(Title, TitleNY, Year, Image) VALUES ('Second (1950)', 'Rock ''n'' Roll', 1950, 'C:\\a.jpg');"
            "INSERT INTO Movie(Title, Plot) VALUES ('Third', 'P'), ('Fourth', NULL);"
            "INSERT INTO Actor VALUES ('Rock ''n'' Roll', 'Ann'), ('Rock ''n'' Roll', 'Bob'), ('Rock ''n'' Roll', 'Cid')");
    EXPECT_EQ(pages(), 1);
    const QString page = QString::fromUtf8(home.Read(u"print1.html"_s));
    EXPECT_TRUE(page.startsWith(u"<html>\r\n<head>\r\n<title></title>\r\n</head>\r\n<body>\r\n<table width=\"647\""_s));
    for (const QString& text : {u"Rock 'n' Roll"_s, u">1950<"_s, u"src = \"C:\\a.jpg\" width"_s, u">Ann<"_s, u">Bob<"_s, u">P<"_s,
                                u"Third"_s, u"src = \"\" width"_s, u"No Plot Summary Available"_s, u">N/A<"_s})
        EXPECT_TRUE(page.contains(text)) << text.toStdString();
    for (const QString& text : {u"First"_s, u"Second"_s, u"Cid"_s})
        EXPECT_FALSE(page.contains(text)) << text.toStdString();
    old.Run("INSERT INTO Movie(Title) VALUES ('Fifth')");
    EXPECT_EQ(pages(), 2);
}

class CollectionPages : public ::testing::Test
{
protected:
    CollectionPages()
    {
        const std::pair<const char*, const char*> files[] = {{"header", "[!!TOTALFILMS!!]"}, {"footer", "."},
                                                             {"group", "<!!GROUPNAME!!:"},   {"group-end", ">"},
                                                             {"row", "(!!TITLE!!)"},         {"film", "{!!TITLE!! !!IMAGE!! !!ACTOR1!!}"}};
        for (const auto& [name, text] : files)
            home.Write(u"Skins/Plain/Templates/Print/"_s + QString::fromLatin1(name) + u".html"_s, text);
        catalog.Run(
            "INSERT INTO Images(Image_ID, Image, Extention) VALUES (7, 'pic', 'JPG');"
            "INSERT INTO Movie(Movie_ID, Title, Image_ID, Rating) VALUES (1, 'One', 7, NULL), (2, 'Two', 99, '7.x'), (3, 'Three', 99, '')");
    }
    QString Print(
        PrintForm form, const GoesOn& goesOn = [](const ExportStep&) { return true; })
    {
        Connection connection = OpenCatalog(catalog.Path());
        done =
            WriteCollectionPage({{u"A & B"_s, {3, 1}}, {u"none"_s, {}}, {u"C"_s, {1, 2, 77}}}, connection, {form, u"Plain"_s, {}}, goesOn);
        return QString::fromUtf8(FileContent(done.path));
    }

    TempHome home;
    TempCatalog catalog;
    ExportDone done;
};

TEST_F(CollectionPages, AListHasItsGroupsAndNamesWhatCannotBePrinted)
{
    EXPECT_EQ(Print(PrintForm::List), u"[5]<A &amp; B:(Three)(One)><C:(One)>."_s);
    EXPECT_TRUE(done.whole);
    ASSERT_EQ(done.missing.size(), 2);
    EXPECT_TRUE(done.missing[0].startsWith(u"Two: "_s) && done.missing[1].startsWith(u"Film 77: "_s));
}

TEST_F(CollectionPages, PagesHaveTheirCoversAndOldOnesGo)
{
    home.Write(u"temp/print/old.JPG"_s, "");
    const QString temp = home.Path(u"temp/print/"_s);
    EXPECT_EQ(Print(PrintForm::FilmPages),
              u"[5]{Three %1 N/A}{One %2 N/A}{One %2 N/A}."_s.arg(home.Path(u"Skins/Plain/No Image.jpg"_s), temp + u"7.JPG"_s));
    EXPECT_EQ(home.Read(u"temp/print/7.JPG"_s), "pic");
    EXPECT_EQ(home.Read(u"temp/print/old.JPG"_s), "<missing>");

    EXPECT_EQ(Print(PrintForm::FilmPages, [](const ExportStep& step) { return step.film < 2; }), u"<missing>"_s);
    EXPECT_FALSE(done.whole);
    catalog.Run("DROP TABLE Movie");
    EXPECT_EQ(ErrorOf([&] { return Print(PrintForm::FilmPages); }), kErrDatabase) << "no page of missing films";
    QFile::remove(home.Path(u"Skins/Plain/Templates/Print/film.html"_s));
    EXPECT_EQ(ErrorOf([&] { return Print(PrintForm::FilmPages); }), kErrFileNotFound);
}

} // namespace
} // namespace kelvado
