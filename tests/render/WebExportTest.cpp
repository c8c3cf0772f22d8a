#include "core/Paths.h"
#include "render/export/WebExportByView.h"
#include "support/TempCatalog.h"
#include "support/TempHome.h"

#include <QRegularExpression>
#include <QSet>
#include <QUrl>

#include <csignal>
#include <sys/resource.h>

namespace kelvado {
namespace {

const GoesOn kToTheEnd = [](const ExportStep&) { return true; };

/// All pages of a folder with their names, line ends as "\n".
QByteArray PagesIn(const QString& folder)
{
    QByteArray all;
    for (const QString& name : QDir(folder).entryList({u"*.htm*"_s}, QDir::Files))
        all += "== " + name.toUtf8() + '\n' + FileContent(folder + u'/' + name);
    return all.replace("\r\n", "\n");
}

class WebSites : public ::testing::Test
{
protected:
    WebSites()
    {
        Template("header.html", "<!!CURRENTPAGE!!/!!TOTALPAGES!! !!PAGESIZE!! !!TOTALFILMS!! !!NAVPREV!! !!NAVNEXT!!>");
        Template("body.html",
                 "[!!TITLE!! !!RATEDIMG!! !!RATING!! !!RATINGBAR!! !!IMAGE!! !!GENRE!!: !!ACTOR1!! !!ACTOR2!! !!DIRECTOR1!!]\n");
        Template("footer.html", "foot !!CURRENTPAGE!!");
        Template("header-byview.html", "!!NAV!!\n");
        Template("body-byview.html", "[!!TITLE!! !!IMAGE!! !!DETAILSPAGE!!!!GENRE!! !!WRITER2!! !!ACTOR1!!]\n");
        Template("footer-byview.html", "foot");
        Template("detail-byview.html", "<!!TITLE!! !!IMAGE!! !!ACTOR1!! as !!CHARACTER1!!, !!ACTOR2!!!!RATINGBAR!!>");
        Template("style.css", "css");
        home.Write(u"Skins/Plain/no image.jpg"_s, "none");
        home.Write(u"Skins/Plain/ratings/G.Gif"_s, "G");
        home.Write(u"Skins/Plain/RatingBar/barYes.gif"_s, "yes");
        catalog.Run("INSERT INTO Images(Image_ID, Image, Extention) VALUES (7, x'FFD8FF', 'JPG');"
                    "INSERT INTO Movie(Movie_ID, Title, Format, Rating, Rated, Image_ID, Loan_ID) VALUES"
                    "(1, 'The \"A\" & B', 'Director''s \"cut\"', '7.5', 'NC17', 7, 0), (2, '1984', NULL, NULL, NULL, 99, 0),"
                    "(3, '/slash', 'director''s \"CUT\"', 'N/A', 'NC-17', 0, 3), (4, 'élan', 'Été', '10', 'G', 7, 0),"
                    "(5, '', 'ÉTÉ', '0.0', 'PG', 0, 0), (6, '*batteries', 'Request', '7.6', 'R', 0, 4);"
                    "INSERT INTO Genre(Genre_ID, Genre) VALUES (901, 'O''Dramas'), (902, 'Zero');"
                    "INSERT INTO GenreLink(Movie_ID, Genre_ID) VALUES (1, 901), (1, 902), (2, 901), (2, 901);"
                    "INSERT INTO Actor(Actor_ID, Actor) VALUES (1, 'Ann'); INSERT INTO ActorLink(Movie_ID, Actor_ID) VALUES (1, 1);"
                    "INSERT INTO Writer(Writer_ID, Writer) VALUES (1, 'Wu'); INSERT INTO WriterLink(Movie_ID, Writer_ID) VALUES (1, 1)");
    }

    void Template(const char* name, const QByteArray& text) { home.Write(templates + u'/' + QString::fromUtf8(name), text); }

    ExportDone Export(const GoesOn& goesOn = kToTheEnd)
    {
        Connection connection = OpenCatalog(catalog.Path());
        return ExportWeb(ReadPageTemplates(home.Path(templates)), Site(), connection, goesOn);
    }
    ExportDone ExportView(const GoesOn& goesOn = kToTheEnd)
    {
        Connection connection = OpenCatalog(catalog.Path());
        return ExportWebByView(ReadViewTemplates(home.Path(templates)), Site(), view, connection, goesOn);
    }
    WebSite Site() const { return {out, u"Plain"_s, u"http://site"_s, u"http://maker"_s}; }

    void ExpectGolden(const char* name) const
    {
        EXPECT_EQ(PagesIn(out).toStdString(),
                  FileContent(u"" KELVADO_SOURCE_DIR "/tests/data/render/"_s + QString::fromUtf8(name)).toStdString());
    }
    void SortBy(const QString& primary) { view = {{primary, u"Movie.Title"_s, {}, {}, {}, {}, u"Movies"_s}, {}}; }

    TempHome home;
    TempCatalog catalog;
    const QString templates = u"Skins/Plain/Templates/Web"_s;
    const QString out = home.Path(u"Export/Web"_s);
    ExportedView view;
};

TEST_F(WebSites, PagesAreWrittenToTheLetter)
{
    Template("Export.ini", "[Export]\nPageSize=2\nExtraFiles=STYLE.css|a\\b\\look.css;\n");
    const ExportDone done = Export();
    EXPECT_EQ(std::tuple(done.whole, done.films, done.count, done.pictures), std::tuple(true, 6, 6, 1));
    EXPECT_EQ(done.path, out + u"/index.html"_s);
    EXPECT_EQ(done.missing, QStringList());
    ExpectGolden("web-pages.txt");
    EXPECT_EQ(FileContent(out + u"/Images/7.JPG"_s), "\xFF\xD8\xFF");
    EXPECT_EQ(FileContent(out + u"/a/b/look.css"_s), "css");
    EXPECT_EQ(QDir(out + u"/Images"_s).entryList(QDir::Files), (QStringList{u"7.JPG"_s, u"baryes.Gif"_s, u"G.Gif"_s, u"No Image.jpg"_s}));
}

TEST_F(WebSites, WithoutASizeAllFilmsStandOnOnePage)
{
    Export();
    EXPECT_TRUE(PagesIn(out).startsWith("== index.html\n<1/1 6 6 # #>\n["));
    catalog.Run("DELETE FROM Movie");
    Export();
    EXPECT_TRUE(PagesIn(out).startsWith("== index.html\n<1/1 0 0 # #>\nfoot 1\n<hr"));
}

TEST_F(WebSites, TheViewIsWrittenToTheLetter)
{
    SortBy(u"Movie.Format"_s);
    const ExportDone done = ExportView();
    EXPECT_EQ(std::tuple(done.whole, done.films, done.count, done.pictures), std::tuple(true, 6, 6, 1));
    ExpectGolden("web-view.txt");
    EXPECT_TRUE(QFile::exists(out + u"/Images/baryes.Gif"_s));
}

TEST_F(WebSites, GroupsHoldTheFilmsOfTheTree)
{
    // The films of each group with any, by their numbers, and how many stand on no page.
    struct Case
    {
        const char* sort;
        const char* mode;
        const char* filter;
        const char* groups;
        qint64 left;
    };
    const Case cases[] = {
        {"Movie.Title", "Movies", "", "*:6 3 4 0-9:3 2 T:1", 1},
        {"Movie.IsRequest", "Movies", "", "My Movies:5 1 4 My Requests:6 Loaned Movies:6 3", 1},
        {"Genre.Genre", "Movies", "", "O'Dramas:2 1 Zero:1", 4},
        {"Movie.Format", "Movies", "", "N/A:2 Director's \"cut\":3 1 Request:6 ÉTÉ:5 4", 0},
        {"Movie.Rating", "Movies", "", "N/A:3 2 0.0:5 10:4 7.5:1 7.6:6", 0},
        {"Movie.Format", "Loans", "", "Director's \"cut\":3 Request:6", 4},
        {"Movie.Format", "Requests", "WHERE Movie.Title = \"no WHERE, no ORDER\"", "", 6},
        {"Genre.Genre", "Movies", "WHERE Genre.Genre =\"O'Dramas\" AND Genre.Genre =\"Zero\"", "O'Dramas:1 Zero:1", 5},
    };
    Template("header-byview.html", "");
    Template("body-byview.html", " !!DETAILSPAGE!!");
    Template("footer-byview.html", "");
    for (const Case& c : cases) {
        SortBy(QString::fromUtf8(c.sort));
        view.view.ViewMode = QString::fromUtf8(c.mode);
        view.filterWhere = QString::fromUtf8(c.filter);
        ExportView();
        Connection connection = OpenCatalog(catalog.Path());
        QByteArray films;
        const QList<ViewGroup> groups = BuildViewGroups(view, connection);
        for (qsizetype i = 0; i < groups.size(); ++i) {
            const QByteArray page = FileContent(out + u"/index%1.htm"_s.arg(i == 0 ? QString() : QString::number(i))).replace(".htm", "");
            if (!page.isEmpty())
                films += (films.isEmpty() ? "" : " ") + groups[i].name.toUtf8() + ':' + page.mid(1);
        }
        EXPECT_EQ(films, c.groups) << c.sort << c.filter;
        EXPECT_EQ(FilmsOnNoPage(view, connection), c.left) << c.sort << c.filter;
    }
}

TEST_F(WebSites, WhatIsRefusedIsNamedBeforeAnythingIsWritten)
{
    home.Write(u"secret"_s, "secret");
    QFile::link(home.Path(u"secret"_s), home.Path(templates + u"/link"_s));
    const std::tuple<const char*, int, const char*> cases[] = {
        {"ExtraFiles=style.css|a;../style.css|b", kErrFileAccess, "../style.css"},
        {"ExtraFiles=x\\..\\..\\style.css|b", kErrFileAccess, "x\\..\\..\\style.css"},
        {"ExtraFiles=LINK|b", kErrFileAccess, "link"},
        {"ExtraFiles=/etc/hostname|b", kErrFileAccess, "/etc/hostname"},
        {"ExtraFiles=style.css|..\\b", kErrFileAccess, "..\\b"},
        {"ExtraFiles=style.css|C:\\b", kErrFileAccess, "C:\\b"},
        {"ExtraFiles=style.css|", kErrFileAccess, "\"\""},
        {"ExtraFiles=style.css", kErrSubscript, "\"style.css\" has no target"},
        {"PageSize=many", kErrTypeMismatch, "PageSize=many"},
        {"PageSize=0", kErrInvalidCall, "PageSize=0"},
    };
    for (const auto& [entry, number, text] : cases) {
        Template("Export.ini", QByteArray("[Export]\n") + entry);
        EXPECT_EQ(ErrorOf([&] { return Export(); }), number) << entry;
        EXPECT_NE(ErrorTextOf([&] { return Export(); }).find(text), std::string::npos) << entry;
        EXPECT_FALSE(QFile::exists(home.Path(u"Export"_s))) << entry;
    }
    Template("Export.ini", "[Export]\nExtraFiles=style.css|to/b");
    QDir().mkpath(out);
    for (const QString& target : {home.Path({}), home.Path(u"nothing"_s)}) {
        QFile::remove(out + u"/to"_s);
        QFile::link(target, out + u"/to"_s);
        EXPECT_NE(ErrorTextOf([&] { return Export(); }).find("\"to/b\" leads out of"), std::string::npos);
    }
    EXPECT_FALSE(QFile::exists(home.Path(u"b"_s)) || QFile::exists(out + u"/Images"_s));
    QFile::remove(home.Path(templates + u"/detail-byview.html"_s));
    EXPECT_NE(ErrorTextOf([&] { return ExportView(); }).find("Web/detail-byview.html"), std::string::npos);
}

TEST_F(WebSites, WhatCannotBeWrittenIsNamedAndTheRestIsThere)
{
    catalog.Run("UPDATE Movie SET Rating = '7.x' WHERE Movie_ID = 2; UPDATE Images SET Extention = '/../../x';");
    Template("Export.ini", "[Export]\nPageSize=2\nExtraFiles=lost.css|lost.css");
    QDir().mkpath(out + u"/index2.html"_s); // a folder in the page's place
    QDir().mkpath(out + u"/1.htm"_s);
    const std::string missing = Export().missing.join(u'\n').toStdString();
    for (const char* text : {"Web/lost.css", "1984: Type mismatch: the rating \"7.x\"", "Images/7./../../x", "Web/index2.html"})
        EXPECT_NE(missing.find(text), std::string::npos) << text << " in " << missing;
    EXPECT_EQ(std::count(missing.begin(), missing.end(), '\n'), 3);
    EXPECT_EQ(QDir(out).entryList(QDir::Files), (QStringList{u"index.html"_s, u"index3.html"_s}));
    EXPECT_TRUE(FileContent(out + u"/index3.html"_s).contains("Images\\No Image.jpg"));

    SortBy(u"Genre.Genre"_s); // the same film on several pages is named once
    EXPECT_EQ(ExportView().missing.filter(QRegularExpression(u"1984|1\\.htm"_s)).size(), 2);
}

TEST_F(WebSites, AFolderThatTakesNothingEndsTheExport)
{
    home.Write(u"Export"_s, "a file");
    EXPECT_EQ(ErrorTextOf([&] { return Export(); }).rfind("Path/File access error: " + home.Path(u"Export"_s).toStdString(), 0), 0U);
    QFile::remove(home.Path(u"Export"_s));
    // The system lets no file grow beyond a few bytes, as a full disk would.
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit small{8, before.rlim_max};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &small);
    const std::string error = ErrorTextOf([&] { return Export(); });
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_NE(error.find("Web/index.html"), std::string::npos) << error;
    EXPECT_EQ(PagesIn(out), "");
    EXPECT_EQ(QDir(out).entryList({u"*.part"_s}), QStringList());
}

TEST_F(WebSites, ACancelLeavesWholePagesOnly)
{
    Template("Export.ini", "[Export]\nPageSize=2");
    home.Write(u"Export/Web/index2.html"_s, "old");
    const ExportDone done = Export([](const ExportStep& step) { return step.film < 3; });
    EXPECT_EQ(std::tuple(done.whole, done.films, done.count), std::tuple(false, 3, 6));
    EXPECT_EQ(QDir(out).entryList(QDir::Files), (QStringList{u"index.html"_s, u"index2.html"_s}));
    EXPECT_EQ(FileContent(out + u"/index2.html"_s), "old");

    SortBy(u"Movie.Title"_s);
    EXPECT_FALSE(ExportView([](const ExportStep& step) { return step.film < 1; }).whole);
    EXPECT_EQ(QDir(out).entryList({u"index*.htm"_s}, QDir::Files), QStringList());
}

/// The sites that the delivered templates make of the sample collection.
TEST(SampleSite, EveryLinkAndPictureHasItsFile)
{
    const QString templates = WebTemplateFolder(u"Default XP"_s);
    const QTemporaryDir folder;
    Connection catalog = OpenCatalog(AppPath() + u"/Sample.kvd"_s);
    const auto broken = [&](const QString& site, const ExportDone& done) {
        EXPECT_EQ(done.missing, QStringList());
        QSet<QString> missing;
        QSet<QString> seen{done.path};
        static const QRegularExpression links(uR"re(\b(?:href|src)=(?:"([^"]*)"|([^"\s>]+)))re"_s,
                                              QRegularExpression::CaseInsensitiveOption);
        for (QStringList open{done.path}; !open.isEmpty();) {
            for (const QRegularExpressionMatch& link : links.globalMatch(QString::fromUtf8(FileContent(open.takeFirst())))) {
                const QUrl url =
                    QUrl::fromLocalFile(site + u'/').resolved(QUrl(QString(link.captured(1) + link.captured(2)).replace(u'\\', u'/')));
                const QString path = url.toLocalFile();
                if (!url.isLocalFile() || path == site + u'/' || seen.contains(path) || path.endsWith(u"/N/A"_s))
                    continue; // to elsewhere, to this page, or hidden for want of a value
                seen << path;
                if (!QFile::exists(path))
                    missing << path.sliced(site.size() + 1);
                else if (path.contains(u".htm"_s))
                    open << path;
            }
        }
        EXPECT_EQ(QDir(site).entryList({u"*.htm*"_s}).size(),
                  std::count_if(seen.begin(), seen.end(), [](const QString& path) { return path.contains(u".htm"_s); }) - missing.size());
        return missing;
    };
    WebSite site = SiteOfSkin(u"Default XP"_s);
    site.folder = folder.filePath(u"pages"_s);
    const ExportDone pages = ExportWeb(ReadPageTemplates(templates), site, catalog, kToTheEnd);
    // The second page's way back; the first page has another name, and the style sheet hides the link.
    EXPECT_EQ(broken(site.folder, pages), QSet<QString>{u"index1.html"_s});
    site.folder = folder.filePath(u"view"_s);
    const ExportedView view{{u"Genre.Genre"_s, u"Movie.Title"_s, {}, {}, {}, {}, {}}, {}};
    EXPECT_EQ(broken(site.folder, ExportWebByView(ReadViewTemplates(templates), site, view, catalog, kToTheEnd)), QSet<QString>());
}

} // namespace
} // namespace kelvado
