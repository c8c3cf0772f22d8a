#include "core/Profile.h"

#include "core/Paths.h"
#include "support/TempHome.h"

#include <unistd.h>

namespace kelvado {
namespace {

TEST(Profile, ReadsCaseBlindAndKnowsQuotesCommentsAndLimits)
{
    const TempHome home;
    home.Write(QStringLiteral("a.ini"),
               QByteArray("\xEF\xBB\xBF; head\r\n[ Settings ]\r\n  Skin = Default XP  \r\nSpaced=\" x \"\r\n;Off=1\r\nLong=") +
                   QByteArray(300, 'x') + "\r\nUrl=http://a/?b=c\r\n[Other]\r\nSkin=wrong\r\n");
    const QString file = home.Path(QStringLiteral("a.ini"));
    const auto read = [&](const char* key) { return ReadProfileValue(QStringLiteral("SETTINGS"), QString::fromLatin1(key), file); };
    EXPECT_EQ(read("sKiN"), u"Default XP");
    EXPECT_EQ(read("Spaced"), u" x ");
    EXPECT_EQ(read("Url"), u"http://a/?b=c");
    EXPECT_EQ(read("Off"), u"");
    EXPECT_EQ(read("Long").size(), 255);
    EXPECT_EQ(ReadProfileValue(QStringLiteral("None"), QStringLiteral("Skin"), file), u"");
    EXPECT_EQ(ReadProfileValue(QStringLiteral("Settings"), QStringLiteral("Skin"), home.Path(QStringLiteral("none.ini"))), u"");
}

TEST(Profile, WritesOneKeyAndKeepsEverythingElse)
{
    const TempHome home;
    const QString name = QStringLiteral("a.ini");
    const QString file = home.Path(name);
    home.Write(name, "; mine\n[A]\nx=1\n\n; about B\n[b]\nUnknown=kept\n");
    EXPECT_TRUE(WriteProfileValue(QStringLiteral("a"), QStringLiteral("X"), QStringLiteral("2"), file));
    EXPECT_TRUE(WriteProfileValue(QStringLiteral("A"), QStringLiteral("new"), QStringLiteral(" padded "), file));
    EXPECT_TRUE(WriteProfileValue(QStringLiteral("C"), QStringLiteral("z"), QStringLiteral("one\r\ntwo"), file));
    EXPECT_EQ(home.Read(name), "; mine\n[A]\nX=2\nnew=\" padded \"\n\n; about B\n[b]\nUnknown=kept\n\n[C]\nz=one two\n");
    for (const QString& value : {QStringLiteral("\"quoted\""), QStringLiteral(" lead"), QStringLiteral("Ünïcode 映画"), QString()}) {
        EXPECT_TRUE(WriteProfileValue(QStringLiteral("R"), QStringLiteral("v"), value, file));
        EXPECT_EQ(ReadProfileValue(QStringLiteral("R"), QStringLiteral("v"), file), value);
    }
}

TEST(Profile, LeavesTheOldFileWhereItCannotWrite)
{
    const TempHome home;
    EXPECT_FALSE(
        WriteProfileValue(QStringLiteral("A"), QStringLiteral("x"), QStringLiteral("1"), home.Path(QStringLiteral("no/such/folder.ini"))));
    if (geteuid() == 0)
        GTEST_SKIP() << "root writes anywhere";
    home.Write(QStringLiteral("a.ini"), "[A]\nx=1\n");
    QFile::setPermissions(home.Path(QString()), QFile::ReadOwner | QFile::ExeOwner);
    EXPECT_FALSE(WriteProfileValue(QStringLiteral("A"), QStringLiteral("x"), QStringLiteral("2"), home.Path(QStringLiteral("a.ini"))));
    QFile::setPermissions(home.Path(QString()), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    EXPECT_EQ(home.Read(QStringLiteral("a.ini")), "[A]\nx=1\n");
}

TEST(Paths, FindFilesWithoutRegardToCase)
{
    const TempHome home;
    home.Write(QStringLiteral("Skins/Mine/RatingBar/barNA.gif"), "x");
    EXPECT_EQ(FindFileCaseBlind(home.Path(QStringLiteral("Skins/Mine")), QStringLiteral("\\ratingbar\\BARna.Gif")),
              home.Path(QStringLiteral("Skins/Mine/RatingBar/barNA.gif")));
    EXPECT_EQ(FindFileCaseBlind(home.Path(QStringLiteral("Skins")), QStringLiteral("mine/none.gif")),
              home.Path(QStringLiteral("Skins/Mine/none.gif")));
    EXPECT_EQ(AppPathOf(QStringLiteral("C:\\")), u"C:");
    EXPECT_EQ(AppPathOf(QStringLiteral("/opt/kelvado/")), u"/opt/kelvado");
}

TEST(Paths, SeeThroughLinksThatLeaveAFolder)
{
    const TempHome home;
    home.Write(QStringLiteral("in/page.html"), "x");
    home.Write(QStringLiteral("secret.txt"), "x");
    QFile::link(home.Path(QStringLiteral("secret.txt")), home.Path(QStringLiteral("in/link.txt")));
    const QString folder = home.Path(QStringLiteral("in"));
    EXPECT_TRUE(IsInside(folder, folder + QStringLiteral("/page.html")));
    EXPECT_FALSE(IsInside(folder, folder + QStringLiteral("/../secret.txt")));
    EXPECT_FALSE(IsInside(folder, folder + QStringLiteral("/link.txt")));
    EXPECT_FALSE(IsInside(folder, folder + QStringLiteral("/missing.html")));
}

} // namespace
} // namespace kelvado
