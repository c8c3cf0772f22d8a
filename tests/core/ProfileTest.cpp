#include "core/Profile.h"

#include "core/Paths.h"
#include "support/TempHome.h"

#include <unistd.h>

namespace kelvado {
namespace {

TEST(Profile, ReadsCaseBlindAndKnowsQuotesCommentsAndLimits)
{
    const TempHome home;
    home.Write(u"a.ini"_s, QByteArray("\xEF\xBB\xBF; head\r\n[ Settings ]\r\n  Skin = Default XP  \r\nSpaced=\" x \"\r\n;Off=1\r\nLong=") +
                               QByteArray(300, 'x') + "\r\nUrl=http://a/?b=c\r\n[Other]\r\nSkin=wrong\r\n");
    const QString file = home.Path(u"a.ini"_s);
    const auto read = [&](const char* key) { return ReadProfileValue(u"SETTINGS"_s, QString::fromLatin1(key), file); };
    EXPECT_EQ(read("sKiN"), u"Default XP");
    EXPECT_EQ(read("Spaced"), u" x ");
    EXPECT_EQ(read("Url"), u"http://a/?b=c");
    EXPECT_EQ(read("Off"), u"");
    EXPECT_EQ(read("Long").size(), 255);
    EXPECT_EQ(ReadProfileValue(u"None"_s, u"Skin"_s, file), u"");
    EXPECT_EQ(ReadProfileValue(u"Settings"_s, u"Skin"_s, home.Path(u"none.ini"_s)), u"");
}

TEST(Profile, WritesOneKeyAndKeepsEverythingElse)
{
    const TempHome home;
    const QString name = u"a.ini"_s;
    const QString file = home.Path(name);
    home.Write(name, "; mine\n[A]\nx=1\n\n; about B\n[b]\nUnknown=kept\n");
    EXPECT_TRUE(WriteProfileValue(u"a"_s, u"X"_s, u"2"_s, file));
    EXPECT_TRUE(WriteProfileValue(u"A"_s, u"new"_s, u" padded "_s, file));
    EXPECT_TRUE(WriteProfileValue(u"C"_s, u"z"_s, u"one\r\ntwo"_s, file));
    EXPECT_EQ(home.Read(name), "; mine\n[A]\nX=2\nnew=\" padded \"\n\n; about B\n[b]\nUnknown=kept\n\n[C]\nz=one two\n");
    for (const QString& value : {u"\"quoted\""_s, u" lead"_s, u"Ünïcode 映画"_s, QString()}) {
        EXPECT_TRUE(WriteProfileValue(u"R"_s, u"v"_s, value, file));
        EXPECT_EQ(ReadProfileValue(u"R"_s, u"v"_s, file), value);
    }
}

TEST(Profile, LeavesTheOldFileWhereItCannotWrite)
{
    const TempHome home;
    EXPECT_FALSE(WriteProfileValue(u"A"_s, u"x"_s, u"1"_s, home.Path(u"no/such/folder.ini"_s)));
    if (geteuid() == 0)
        GTEST_SKIP() << "root writes anywhere";
    home.Write(u"a.ini"_s, "[A]\nx=1\n");
    QFile::setPermissions(home.Path(QString()), QFile::ReadOwner | QFile::ExeOwner);
    EXPECT_FALSE(WriteProfileValue(u"A"_s, u"x"_s, u"2"_s, home.Path(u"a.ini"_s)));
    QFile::setPermissions(home.Path(QString()), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    EXPECT_EQ(home.Read(u"a.ini"_s), "[A]\nx=1\n");
}

TEST(Paths, FindFilesWithoutRegardToCase)
{
    const TempHome home;
    home.Write(u"Skins/Mine/RatingBar/barNA.gif"_s, "x");
    EXPECT_EQ(FindFileCaseBlind(home.Path(u"Skins/Mine"_s), u"\\ratingbar\\BARna.Gif"_s), home.Path(u"Skins/Mine/RatingBar/barNA.gif"_s));
    EXPECT_EQ(FindFileCaseBlind(home.Path(u"Skins"_s), u"mine/none.gif"_s), home.Path(u"Skins/Mine/none.gif"_s));
    EXPECT_EQ(AppPathOf(u"C:\\"_s), u"C:");
    EXPECT_EQ(AppPathOf(u"/opt/kelvado/"_s), u"/opt/kelvado");
}

TEST(Paths, SeeThroughLinksThatLeaveAFolder)
{
    const TempHome home;
    home.Write(u"in/page.html"_s, "x");
    home.Write(u"secret.txt"_s, "x");
    QFile::link(home.Path(u"secret.txt"_s), home.Path(u"in/link.txt"_s));
    const QString folder = home.Path(u"in"_s);
    EXPECT_TRUE(IsInside(folder, folder + u"/page.html"_s));
    EXPECT_FALSE(IsInside(folder, folder + u"/../secret.txt"_s));
    EXPECT_FALSE(IsInside(folder, folder + u"/link.txt"_s));
    EXPECT_FALSE(IsInside(folder, folder + u"/missing.html"_s));
}

} // namespace
} // namespace kelvado
