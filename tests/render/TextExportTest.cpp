#include "render/export/TextExport.h"

#include "browse/Filters.h"
#include "render/export/TextFields.h"
#include "render/export/TextTemplate.h"
#include "support/TempCatalog.h"
#include "support/TempHome.h"

namespace kelvado {
namespace {

TextEntry Entry(const QString& table, const QString& field)
{
    TextEntry entry;
    entry.TableName = table;
    entry.FieldName = field;
    return entry;
}

TextEntry Padded(TextEntry entry, int width, CellAlign align = CellAlign::Left)
{
    entry.Formated = true;
    entry.FormatedLength = width;
    entry.TextAlign = align;
    return entry;
}

TextEntry Cut(TextEntry entry, int length)
{
    entry.AutoCutt = true;
    entry.AutoCutLength = length;
    return entry;
}

TEST(FormatCell, CutsPadsAlignsAndKeepsOneLine)
{
    const TextEntry title = Entry(u"Movie"_s, u"Title"_s);
    const auto centred = [&](int width) { return Padded(title, width, CellAlign::Centre); };
    const struct
    {
        TextEntry entry;
        QByteArray value;
        QByteArray cell;
    } cases[] = {
        {title, "  Big  Top ", "Big  Top"},
        {Cut(title, 5), "Alien", "Alien"},
        {Cut(title, 4), "Alien", "Alie"},
        {Cut(title, 0), "Alien", ""},
        {Padded(title, 5), "Alien", "Alien"},
        {Padded(title, 7), "Alien", "Alien  "},
        {Padded(title, 7, CellAlign::Right), "Alien", "  Alien"},
        {Padded(title, 2), "Alien", "Alien"},
        {Padded(Cut(title, 3), 5, CellAlign::Right), "Alien", "  Ali"},
        {Padded(title, 3), "", "   "},
        // Half of the blanks, rounded to even, and half of them, rounded down.
        {centred(6), "Alien", "Alien"},
        {centred(7), "Alien", " Alien "},
        {centred(8), "Alien", "  Alien "},
        {centred(10), "Alien", "  Alien  "},
        // A character is one, however many bytes it has.
        {Padded(title, 4), "Été", "Été "},
        {Cut(title, 2), "a😀b", "a😀"},
        {Cut(title, 1), QByteArray("\xC3"), "\uFFFD"},
        {title,
         "a\r\nb\nc\td\x7F"
         "e",
         "a b c d e"},
        {title, "\n a\u2028b\u0085c\u00A0d\r", "a b c\u00A0d"},
        // Fixed texts are taken as they stand.
        {Entry(u"CUSTOMCHAR"_s, u" | "_s), "", " | "},
        {Cut(Entry(u"CUSTOMCHAR"_s, u" | "_s), 2), "", " |"},
        {Entry(u"IMDbLink"_s, u"IMDbLink"_s), " 0047478 ", "http://site/Title?0047478"},
        {Entry(u"IMDbLink"_s, u"IMDbLink"_s), "", "http://site/Title?"},
    };
    for (const auto& [entry, value, cell] : cases) {
        std::string line = "x";
        CellFormat(entry, u"http://site/Title?"_s).FormatCell(line, value);
        EXPECT_EQ(line, "x" + cell.toStdString());
    }
}

class FilmsAsText : public ::testing::Test
{
protected:
    FilmsAsText()
    {
        catalog.Run("INSERT INTO Movie(Movie_ID, Title, Year, Format, \"Index\", \"Group\", IMDB) VALUES "
                    "(1, 'Été ' || char(13, 10) || 'two', 1999, 'DVD', 'i', 'g', '0000001'), (2, 'Brazil', NULL, NULL, NULL, NULL, NULL), "
                    "(3, 'alien', 1979, 'VHS', '', '', '3');"
                    "INSERT INTO Actor(Actor_ID, Actor) VALUES (1, 'Ann'), (2, 'Bob'), (3, NULL);"
                    "INSERT INTO ActorLink(Movie_ID, Actor_ID, Character, \"Order\") VALUES "
                    "(1, 2, 'King' || char(10), 2), (1, 1, NULL, 1), (1, 3, 'Ghost', 3), (3, 2, NULL, 1);"
                    "INSERT INTO Director(Director_ID, Director) VALUES (1, 'Di');"
                    "INSERT INTO DirectorLink(Movie_ID, Director_ID, Extended) VALUES (1, 1, '(part)');"
                    "INSERT INTO GenreLink(Movie_ID, Genre_ID) VALUES (1, 5), (1, 1), (3, 19)");
        text.path = home.Path(u"films.txt"_s);
        text.siteAddress = u"http://site"_s;
        text.makerAddress = u"http://maker"_s;
        text.order = TextOrder(u"Title"_s, false);
        text.entries = {Entry(u"CUSTOMFOOTER"_s, u" last é "_s), Entry(u"Movie"_s, u"Title"_s)};
    }
    ExportDone Export(const GoesOn& goesOn = [](const ExportStep&) { return true; }) const
    {
        Connection connection = OpenCatalog(catalog.Path());
        return BuildTextExport(text, connection, goesOn);
    }
    std::string Written() const { return home.Read(u"films.txt"_s).replace("\r\n", "\n").toStdString(); }

    TempHome home;
    TempCatalog catalog;
    TextExport text;
};

TEST_F(FilmsAsText, TheCatalogIsWrittenToTheLetter)
{
    text.cellEnd = u";"_s;
    text.entries = {Entry(u"CUSTOMFOOTER"_s, u" last é "_s),
                    Padded(Entry(u"Movie"_s, u"Title"_s), 8),
                    Entry(u"CUSTOMHEADER"_s, u"First"_s),
                    Padded(Entry(u"Movie"_s, u"year"_s), 6, CellAlign::Right),
                    Entry(u"Actor"_s, u"Actor"_s),
                    Entry(u"CUSTOMCHAR"_s, u"<>"_s),
                    Entry(u"Actor"_s, u"Character"_s),
                    Cut(Entry(u"Genre"_s, u"Genre"_s), 10),
                    Entry(u"Director"_s, u"Extended"_s),
                    Entry(u"Movie"_s, u"Index"_s),
                    Entry(u"Movie"_s, u"Group"_s),
                    Entry(u"IMDbLink"_s, u"IMDbLink"_s),
                    Entry(u"CUSTOMHEADER"_s, {})};
    const ExportDone done = Export();
    EXPECT_TRUE(done.whole);
    EXPECT_EQ(std::tuple(done.films, done.count), std::tuple(3, 3));
    EXPECT_EQ(Written(), FileContent(u"" KELVADO_SOURCE_DIR "/tests/data/render/films.txt"_s).toStdString());
    EXPECT_EQ(home.Read(u"films.txt"_s).count('\n'), home.Read(u"films.txt"_s).count("\r\n"));
}

TEST_F(FilmsAsText, FiltersAndSortsDecideWhichFilmsStandWhere)
{
    const auto filter = [](const char* key, int operand, const QString& value) {
        const auto element = std::ranges::find_if(FilterElements(), [&](const FilmElement& e) { return std::string_view(e.key) == key; });
        return MakeFilter(*element, operand, value);
    };
    const struct
    {
        QList<FilterRecord> filters;
        const char* sort;
        bool descending;
        const char* titles;
    } cases[] = {
        {{}, "Title", false, "alien Brazil Été two"},
        {{}, "Title", true, "Été two Brazil alien"},
        {{}, "Year", true, "Été two alien Brazil"},
        {{}, "Group", false, "Brazil alien Été two"},
        {{}, "IMDB Link", true, "alien Été two Brazil"},
        {{filter("Movie.Year", 1, u"1980"_s)}, "Title", false, "Été two"},
        {{filter("Movie.IMDbLink", 0, u"3"_s)}, "Title", false, "alien"},
        {{filter("Genre.Genre", -1, u"sci-fi"_s)}, "Title", false, "alien"},
        {{filter("Genre.Genre", -1, u"biography"_s), filter("Genre.Genre", -1, u"Action"_s)}, "Title", false, "Été two"},
        {{filter("Movie.Format", -1, u"a\" OR \"1\" = \"1"_s)}, "Title", false, ""},
    };
    text.entries.removeFirst();
    text.cellEnd = u" "_s;
    for (const auto& c : cases) {
        text.where = JoinFilters(c.filters);
        text.order = TextOrder(QString::fromLatin1(c.sort), c.descending);
        const qint64 films = Export().films;
        const QStringList lines = QString::fromStdString(Written()).split(u'\n').first(films);
        EXPECT_EQ(lines.join(QString()).simplified().toStdString(), c.titles) << c.sort << ' ' << qPrintable(text.where);
    }
    Connection connection = OpenCatalog(catalog.Path());
    const QStringList sorts = TextSorts(connection);
    EXPECT_EQ(sorts.first(2) << sorts.constLast(), (QStringList{u"Title"_s, u"TitleNY"_s, u"IMDB Link"_s}));
    EXPECT_FALSE(sorts.contains(u"Movie_ID"_s) || sorts.contains(u"SeenIt"_s));
}

TEST_F(FilmsAsText, WhatEndsBeforeItsTimeLeavesTheOldFile)
{
    home.Write(u"films.txt"_s, "old");
    const ExportDone done = Export([](const ExportStep& step) { return step.title != u"Brazil"; });
    EXPECT_FALSE(done.whole);
    EXPECT_EQ(done.films, 2);
    text.entries << Entry(u"Movie"_s, u"Nose"_s);
    EXPECT_NE(ErrorTextOf([&] { return Export(); }).find("Movie.Nose"), std::string::npos);
    text.entries.removeLast();
    EXPECT_EQ(Written(), "old");
    text.path = home.Path(u"no folder/films.txt"_s);
    EXPECT_NE(ErrorTextOf([&] { return Export(); }).find("no folder"), std::string::npos);

    catalog.Run("DELETE FROM Movie");
    text.path = home.Path(u"films.txt"_s);
    EXPECT_TRUE(Export().whole);
    EXPECT_EQ(Written(), " last é \n \nMovie list created with Kelvado\n \nhttp://maker\n");
}

TEST_F(FilmsAsText, EveryFieldOfTheTreeCanBeWritten)
{
    Connection connection = OpenCatalog(catalog.Path());
    text.entries.clear();
    QStringList widths;
    for (const TextField& field : TextFields()) {
        if (field.isGroup || CustomTextOf(field))
            continue;
        text.entries << ColumnEntry(field, connection);
        if (QString::fromLatin1(field.key).contains(u"Actor."_s) || text.entries.constLast().TableName == kSiteLink ||
            text.entries.size() < 4)
            widths << text.entries.constLast().Caption + u' ' + QString::number(text.entries.constLast().FormatedLength);
    }
    EXPECT_EQ(widths.join(u", "_s), u"Title 255, Short Title 255, Year 64, Actor 100, Character 255, IMDb Link 33"_s);
    EXPECT_EQ(text.entries.size(), 38);
    EXPECT_TRUE(Export().whole);
}

TEST_F(FilmsAsText, ATemplateComesBackAsItWasSaved)
{
    Connection connection = OpenCatalog(catalog.Path());
    const CustomText* header = CustomTextOf(TextFields()[2]);
    QList<TextEntry> entries{CustomEntry(*header, u"Été <>! ! \"x\""_s),
                             Padded(Cut(Entry(u"Movie"_s, u"Title"_s), 12), 20, CellAlign::Centre), Entry(u"CUSTOMCHAR"_s, u"  <>!"_s),
                             Entry(u"CUSTOMCHAR"_s, {}), Entry(u"Director"_s, u"Extended"_s)};
    EXPECT_EQ(entries[0].Caption, u"Header Line: \"Été <>! ! \"x\"\""_s);
    const QString path = home.Path(u"a.tet"_s);
    WriteTextTemplate(path, entries);
    EXPECT_EQ(ReadTextTemplate(path, connection), entries);
    EXPECT_EQ(home.Read(u"a.tet"_s).split('\n')[1].toStdString(), "<>!!Title<>!!Movie<>!!True<>!!20<>!!True<>!!12<>!!1\r");
    while (entries.size() < 300)
        entries << entries[1];
    WriteTextTemplate(path, entries);
    EXPECT_EQ(ReadTextTemplate(path, connection).size(), 300);
    WriteTextTemplate(path, {});
    EXPECT_TRUE(ReadTextTemplate(path, connection).isEmpty());
    EXPECT_EQ(ErrorOf([&] { return WriteTextTemplate(home.Path(u"no/a.tet"_s), entries), 0; }), kErrFileAccess);
    for (const QString& typed : {u"a\nb"_s, u"\r"_s, u"a<>!!b"_s})
        EXPECT_FALSE(IsStorable(typed));
}

TEST_F(FilmsAsText, ABadTemplateIsNamedWithItsLine)
{
    Connection connection = OpenCatalog(catalog.Path());
    const QByteArray good = "T<>!!title<>!!movie<>!!-1<>!!5<>!!false<>!!0<>!!2";
    const std::pair<QByteArray, const char*> cases[] = {
        {good, ""}, // the last line end may be missing
        {good + "\n" + good + "\r", ""},
        {"\xEF\xBB\xBF" + good, ""},
        {"\xC9t\xE9<>!!x<>!!CUSTOMCHAR<>!!0<>!!5<>!!0<>!!0<>!!2\r\n", ""},
        {good + "\r\n\r\n", "line 2: there are 1 values where 8 belong"},
        {good + "\r\n" + good.first(good.size() - 1), "line 2: \"\" is no alignment: 0, 1 or 2"},
        {good.first(good.size() - 5), "line 1: there are 7 values"},
        {good + "<>!!1", "line 1: there are 9 values"},
        {QByteArray(good).replace("!!5", "!!five"), "line 1: \"five\" is no width from 0 to 9999"},
        {QByteArray(good).replace("!!5", "!!-5"), "\"-5\" is no width"},
        {QByteArray(good).replace("!!5", "!!99999999999"), ""},
        {QByteArray(good).replace("-1", "maybe"), "\"maybe\" is neither True nor False"},
        {QByteArray(good).replace("title", "nose"), "line 1: the catalog has no field \"movie.nose\""},
        {QByteArray(good).replace("movie", "Loans"), "line 1: the catalog has no field \"Loans.title\""},
        {(good + "\n").repeated(1001), "line 1001: a template has 1000 lines at most"},
        {QByteArray(5 << 20, 'x'), "too large"},
    };
    for (const auto& [content, fault] : cases) {
        home.Write(u"b.tet"_s, content);
        const std::string told = ErrorTextOf([&] { return ReadTextTemplate(home.Path(u"b.tet"_s), connection); });
        EXPECT_NE(told.find(fault), std::string::npos) << told;
        EXPECT_EQ(told.find("b.tet") != std::string::npos, !told.empty());
    }
    EXPECT_EQ(ErrorOf([&] { return ReadTextTemplate(home.Path(u"none.tet"_s), connection); }), kErrFileNotFound);
}

} // namespace
} // namespace kelvado
