#include "render/export/cTemplate.h"

#include "support/ErrorOf.h"
#include "support/TempCatalog.h"
#include "support/TempHome.h"

#include <QFile>

namespace kelvado {
namespace {

class Packages : public ::testing::Test
{
protected:
    void Make(const cTemplate& content)
    {
        MakeEmptyPackage(path, content);
        content.SaveTemplate(path);
        package.PackagePath = path;
    }
    QString Unpacked(const QString& name) const { return QString::fromUtf8(FileContent(home.Path(u"out/"_s + name))); }

    TempHome home;
    const QString path = home.Path(u"look.kmt"_s);
    cTemplate package;
};

TEST_F(Packages, WhatIsStoredIsReadBack)
{
    cTemplate made;
    made.Header = u"<h1>“Ünï”</h1>"_s;
    made.Body = u"b"_s;
    made.CSS = u"c"_s;
    made.Nav = made.StandardPage = true;
    made.ThumbnailExtention = u"GIF"_s;
    made.SetThumbnailData(QByteArray(100000, 't') + "end");
    const QByteArray large = QByteArray(250000, 'x') + '\0' + 'y';
    made.AddFile(large, u"a.bin"_s, u"pics/deep"_s);
    made.AddFile("2", u"b.txt"_s, u"\\\\pics\\\\deep//"_s);
    made.AddFile("", u"c.d.txt"_s, QString());
    EXPECT_EQ(made.FileCount(), 3);
    EXPECT_EQ(made.GetFilename(1), u"b.txt"_s);
    EXPECT_EQ(ErrorOf([&] { made.GetFileData(3); }), kErrSubscript);
    Make(made);

    package.LoadSettings(path);
    EXPECT_TRUE(package.Nav && package.StandardPage);
    EXPECT_FALSE(package.FilmsPerPage || package.DetailsPage);
    EXPECT_EQ(package.FileCount(), 3);
    package.LoadTemplate(path);
    EXPECT_EQ(package.Header, made.Header);
    EXPECT_EQ(package.Body + package.Footer + package.Detail + package.CSS, u"bc"_s);
    EXPECT_EQ(package.SaveThumbnail(home.Path(u""_s)), home.Path(u"preview.GIF"_s));
    EXPECT_EQ(FileContent(home.Path(u"preview.GIF"_s)), made.ThumbnailData());

    package.SaveAdditionalFiles(home.Path(u"out"_s));
    EXPECT_EQ(FileContent(home.Path(u"out/pics/deep/a.bin"_s)), large);
    EXPECT_EQ(Unpacked(u"pics/deep/b.txt"_s), u"2"_s);
    EXPECT_EQ(Unpacked(u"c.d.txt"_s), QString());
    EXPECT_EQ(QDir(home.Path(u""_s)).entryList({u"look.kmt*"_s}), QStringList{u"look.kmt"_s}); // no side file stays
}

TEST_F(Packages, NothingIsUnpackedOutsideTheFolder)
{
    QDir().mkpath(home.Path(u"out/in"_s));
    QDir().mkpath(home.Path(u"elsewhere"_s));
    QFile::link(home.Path(u"elsewhere"_s), home.Path(u"out/link"_s));
    struct
    {
        const char* folder;
        const char* name;
    } const cases[] = {{"..", "x"},         {"in/../..", "x"}, {"in\\..\\..", "x"}, {"in", "../../x"},
                       {"in", "..\\..\\x"}, {"link", "x"},     {"in", ""}};
    for (const auto& [folder, name] : cases) {
        cTemplate made;
        made.AddFile("good", u"good.txt"_s, QString());
        made.AddFile("bad", QString::fromLatin1(name), QString::fromLatin1(folder));
        Make(made);
        EXPECT_EQ(ErrorOf([&] { package.SaveAdditionalFiles(home.Path(u"out"_s)); }), kErrFileAccess) << folder << ' ' << name;
        EXPECT_EQ(Unpacked(u"good.txt"_s), u"<missing>"_s) << folder << ' ' << name;
    }
    cTemplate made;
    made.AddFile("1", u"x.txt"_s, u"/etc"_s); // a path is always below the folder
    Make(made);
    package.SaveAdditionalFiles(home.Path(u"out"_s));
    EXPECT_EQ(Unpacked(u"etc/x.txt"_s), u"1"_s);
    OtherProgram(path).Run("UPDATE Previews SET Extention = '/../x'");
    EXPECT_EQ(ErrorOf([&] { package.SaveThumbnail(home.Path(u"out"_s)); }), kErrFileAccess);
}

TEST_F(Packages, WhatIsNoWholePackageIsAnErrorAndChangesNothing)
{
    home.Write(u"look.kmt"_s, "no database at all");
    package.PackagePath = path;
    EXPECT_EQ(ErrorOf([&] { package.LoadSettings(path); }), kErrDatabase);
    EXPECT_EQ(ErrorOf([&] { package.SaveThumbnail(home.Path(u""_s)); }), kErrDatabase);
    EXPECT_EQ(ErrorOf([&] { package.LoadSettings(home.Path(u"none.kmt"_s)); }), kErrDatabase);

    cTemplate flags;
    flags.Nav = true;
    MakeEmptyPackage(path, flags);
    EXPECT_EQ(ErrorOf([&] { package.SaveThumbnail(home.Path(u""_s)); }), kErrNoCurrentRecord);
    EXPECT_EQ(ErrorOf([&] { package.LoadTemplate(path); }), kErrNoCurrentRecord);
    OtherProgram(path).Run("INSERT INTO HTML(Header, Body, Footer, Detail) VALUES ('h', 'b', 'f', 'd')");
    EXPECT_EQ(ErrorOf([&] { package.LoadTemplate(path); }), kErrInvalidNull);
    EXPECT_EQ(package.Header, QString());
    OtherProgram(path).Run("DROP TABLE Files");
    EXPECT_EQ(ErrorOf([&] { package.LoadSettings(path); }), kErrDatabase);
    EXPECT_FALSE(package.Nav);
    EXPECT_EQ(ErrorOf([&] { flags.SaveTemplate(path); }), kErrDatabase);
    EXPECT_EQ(OtherProgram(path).Ask("SELECT count(*) FROM HTML"), u"1"_s);
}

} // namespace
} // namespace kelvado
