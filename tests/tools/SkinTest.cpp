// Runs the painter as the build does and looks at what it made.

#include "Drawing.h"
#include "support/TempHome.h"

#include <QColor>
#include <QDirIterator>
#include <QImage>
#include <QImageReader>
#include <QProcess>
#include <QSettings>

#include <cmath>

namespace kelvado {
namespace {

const QString kSkin = u"" KELVADO_DATA_SOURCE "/Skins/Default XP"_s;
const QString kArt = u"" KELVADO_DATA_SOURCE "/art"_s;

struct Outcome
{
    int code;
    QString message;
};

Outcome RunPainter(const QStringList& arguments)
{
    QProcess painter;
    painter.start(u"" PAINTSKIN ""_s, arguments);
    EXPECT_TRUE(painter.waitForFinished(60000));
    return {painter.exitCode(), QString::fromUtf8(painter.readAllStandardError())};
}

QImage Picture(const QString& path)
{
    const QImage picture(path);
    EXPECT_FALSE(picture.isNull()) << path.toStdString();
    return picture.convertToFormat(QImage::Format_ARGB32);
}

class PaintedSkin : public ::testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        s_folder = new QTemporaryDir;
        ASSERT_EQ(RunPainter({kSkin, kArt, s_folder->filePath(u"skin"_s)}).code, 0);
        ASSERT_EQ(RunPainter({u"--program"_s, kSkin, kArt, s_folder->filePath(u"bin"_s)}).code, 0);
    }
    static void TearDownTestSuite() { delete s_folder; }

    static QString Path(const QString& name) { return s_folder->filePath(name); }
    static QImage Skin(const QString& name) { return Picture(Path(u"skin/"_s + name)); }

private:
    static inline QTemporaryDir* s_folder = nullptr;
};

QString Double(QString name)
{
    return name.insert(name.lastIndexOf(u'.'), u"@2x"_s);
}

QStringList Words(const char* words)
{
    return QString::fromLatin1(words).split(u' ');
}

TEST_F(PaintedSkin, HasEveryPictureThatIsAskedForAndItsTwinInDoubleSize)
{
    const char* const pieces = "ToolLeft ToolLeftSel ToolEnd ToolEndSel ToolFrontNoNo ToolFrontNoYes ToolFrontYesNo ToolSpacer";
    // The names' pattern, the names, the states between bars, the height, and whether there is a twin.
    const std::tuple<const char*, const char*, const char*, int, bool> kinds[] = {
        {"skin/%1.BMP", pieces, "", 40, true},
        {"skin/ToolRight.BMP", "", "", 40, true},
        {"skin/%1%2.BMP", "ToolMovieList ToolMovieGrab ToolMovieEdit ToolActorInfo", "|Sel", 40, true},
        {"skin/Searchbar/%1.BMP", pieces, "", 36, true},
        {"skin/Searchbar/%1%2.BMP", "ToolIMDB ToolDVDEmp ToolManual", "|Sel", 36, true},
        {"skin/Toolbar/%1%2.png",
         "Back Forward New Open Save Print Refresh AddFilter Delete AddIMDb AddDVDEmp AddManual CheckOut CheckIn Add Edit",
         "|-over|-down|-disabled", 24, true},
        {"skin/Tree/%1.png", "1 2 3 4 5 6 7 8 9 10 11 12 13", "", 16, true},
        {"skin/ratings/%1.Gif", "NA G PG PG-13 R NC-17", "", 48, false},
        {"skin/RatingBar/%1.gif", "barna barLeft barYes barHalf barNo barRight", "", 40, false},
        {"skin/No Image.jpg", "", "", 750, false},
        {"bin/%1.gif", "working stop", "", 32, true},
        {"bin/kelvado-%1.png", "16 24 32 48 64 128 256", "", 0, false},
    };
    for (const auto& [pattern, names, states, height, hasTwin] : kinds) {
        for (const QString& name : Words(names)) {
            QSize before;
            for (const QString& state : QString::fromLatin1(states).split(u'|')) {
                const QString path = Path(QString::fromLatin1(pattern).replace(u"%1"_s, name).replace(u"%2"_s, state));
                const QSize size = Picture(path).size();
                EXPECT_EQ(size.height(), height == 0 ? name.toInt() : height) << path.toStdString();
                EXPECT_TRUE(before.isEmpty() || before == size) << path.toStdString();
                before = size;
                if (hasTwin) {
                    EXPECT_EQ(Picture(Double(path)).size(), size * 2) << path.toStdString();
                }
            }
        }
    }
    EXPECT_FALSE(QFile::exists(Path(u"skin/art"_s)));
}

TEST_F(PaintedSkin, TabsJoinWithoutASeamWhicheverIsSelected)
{
    const std::pair<QString, QStringList> rows[] = {{QString(), Words("ToolMovieList ToolMovieGrab ToolMovieEdit ToolActorInfo")},
                                                    {u"Searchbar/"_s, Words("ToolIMDB ToolDVDEmp ToolManual")}};
    for (const auto& [folder, tabs] : rows) {
        for (const QString& kind : {u".BMP"_s, u"@2x.BMP"_s}) {
            const auto join = [&, folder = folder](const QString& left, const QString& right) {
                const QImage a = Skin(folder + left + kind);
                const QImage b = Skin(folder + right + kind);
                EXPECT_EQ(a.copy(a.width() - 1, 0, 1, a.height()), b.copy(0, 0, 1, b.height()))
                    << left.toStdString() << " | " << right.toStdString() << kind.toStdString();
            };
            for (const QString& tab : tabs) {
                for (const QString& left : Words("ToolLeft ToolFrontNoNo ToolFrontYesNo"))
                    join(left, tab);
                for (const QString& right : Words("ToolEnd ToolFrontNoNo ToolFrontNoYes"))
                    join(tab, right);
                for (const QString& left : Words("ToolLeftSel ToolFrontNoYes"))
                    join(left, tab + u"Sel"_s);
                for (const QString& right : Words("ToolEndSel ToolFrontYesNo"))
                    join(tab + u"Sel"_s, right);
            }
            join(u"ToolEnd"_s, u"ToolSpacer"_s);
            join(u"ToolEndSel"_s, u"ToolSpacer"_s);
        }
    }
}

TEST_F(PaintedSkin, TheBusyPictureMovesForEverOnTheGroundOfTheIdleOne)
{
    const QImage idle = Picture(Path(u"bin/stop.gif"_s));
    QImageReader reader(Path(u"bin/working.gif"_s));
    EXPECT_EQ(reader.loopCount(), -1);
    QImage before;
    for (int frame = 0; frame < 12; ++frame) {
        const QImage picture = reader.read();
        ASSERT_EQ(picture.size(), idle.size());
        EXPECT_EQ(picture.pixel(0, 0), idle.pixel(0, 0));
        EXPECT_NE(picture, before) << "frame " << frame;
        EXPECT_EQ(reader.nextImageDelay(), 80);
        before = picture;
    }
    EXPECT_FALSE(reader.canRead());
}

double Luminance(const QColor& color)
{
    const auto linear = [](double part) { return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4); };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

TEST_F(PaintedSkin, TextAndStarsStandOutFromEachGroundThatTheyAreOn)
{
    const std::tuple<const char*, const char*, double> marks[] = {{"Ink", "Window Strip Surface AccentSoft", 4.5},
                                                                  {"InkMuted", "Window Strip Surface", 4.5},
                                                                  {"Accent", "Window Surface AccentSoft OnAccent", 4.5},
                                                                  {"Rating", "Window Surface", 3},
                                                                  {"RatingEmpty", "Window Surface", 3}};
    const Values palette = ReadPalette(kSkin + u"/palette.ini"_s);
    const auto light = [&](const QString& name) { return Luminance(QColor(palette[name])) + 0.05; };
    for (const auto& [mark, grounds, least] : marks) {
        for (const QString& ground : Words(grounds)) {
            const auto [dark, bright] = std::minmax({light(QString::fromLatin1(mark)), light(ground)});
            EXPECT_GE(bright / dark, least) << mark << " on " << ground.toStdString();
        }
    }
}

/// A copy of the delivered skin in "source", made into "made".
class OwnSkin : public PaintedSkin
{
protected:
    OwnSkin()
    {
        for (QDirIterator files(kSkin, QDir::Files, QDirIterator::Subdirectories); files.hasNext();) {
            const QString path = files.next();
            home.Write(u"source"_s + path.mid(kSkin.size()), FileBytes(path));
        }
    }

    Outcome Make() const { return RunPainter({home.Path(u"source"_s), kArt, home.Path(u"made"_s)}); }

    TempHome home;
};

TEST_F(OwnSkin, TakesAPaletteAndADrawingOfItsOwnAndTheRestFromTheCommonOnes)
{
    home.Write(u"source/palette.ini"_s, home.Read(u"source/palette.ini"_s).replace("Strip=E4E9EF", "Strip=101820"));
    home.Write(u"source/art/icons/back.svg"_s,
               R"(<svg xmlns:skin="urn:kelvado:skin" viewBox="0 0 8 8"><path d="M0 0H8V8H0Z" skin:fill="{Ink}"/></svg>)");
    // A list of its own may ask for more than the common one.
    QByteArray list = FileBytes(kArt + u"/skin.json"_s);
    list.insert(list.indexOf('{') + 1, R"("Tabs/Own-Sections.bmp": {"drawing": "strip.svg", "Ink": "{Accent}"},
        "wait.gif": {"drawing": "wait{Frame}.svg", "frames": 2, "hundredths": 5},)");
    for (const char* number : {"1", "2"})
        home.Write(u"source/art/wait%1.svg"_s.arg(QLatin1StringView(number)),
                   QByteArray(R"(<svg viewBox="0 0 9 9"><path d="M0 0H9V9H0Z" fill="#a0a0a)") + number + R"("/></svg>)");
    home.Write(u"source/art/skin.json"_s, list);
    home.Write(u"source/art/strip.svg"_s,
               R"(<svg xmlns:skin="urn:kelvado:skin" viewBox="0 0 50 20"><rect width="50" height="20" skin:fill="{Strip 50% #ffffff}"/>
        <image x="20" width="20" height="20" href="icons/back.svg"/></svg>)");
    const Outcome outcome = Make();
    ASSERT_EQ(outcome.code, 0) << outcome.message.toStdString();

    EXPECT_EQ(Picture(home.Path(u"made/ToolSpacer@2x.BMP"_s)).pixelColor(3, 3), QColor(0x10, 0x18, 0x20));
    EXPECT_TRUE(home.Read(u"made/Templates/default.html"_s).contains("--Strip: #101820;"));
    EXPECT_EQ(QSettings(home.Path(u"made/skin.ini"_s), QSettings::IniFormat).value(u"Skin/StatusBackColor"_s), u"101820"_s);
    const QImage strip = Picture(home.Path(u"made/Tabs/Own-Sections@2x.bmp"_s));
    EXPECT_EQ(strip.size(), QSize(100, 40));
    EXPECT_EQ(strip.pixelColor(5, 5), QColor(0x88, 0x8C, 0x90));
    EXPECT_EQ(strip.pixelColor(60, 20), QColor(0x2B, 0x5F, 0xA6));

    QImageReader wait(home.Path(u"made/wait.gif"_s));
    EXPECT_EQ(wait.read().pixelColor(4, 4), QColor(0xA0, 0xA0, 0xA1));
    EXPECT_EQ(wait.read().pixelColor(4, 4), QColor(0xA0, 0xA0, 0xA2));

    // Each state of the button is made of the one drawing that was changed, and no other button follows.
    const QColor muted(0x4B, 0x58, 0x68), accent(0x2B, 0x5F, 0xA6);
    const auto middle = [&](const QString& name) { return Picture(home.Path(u"made/Toolbar/"_s + name)).pixelColor(2, 20); };
    EXPECT_EQ(middle(u"Back.png"_s), muted);
    EXPECT_EQ(middle(u"Back-over.png"_s), accent);
    EXPECT_NEAR(middle(u"Back-disabled.png"_s).alphaF(), 0.38, 0.01);
    EXPECT_EQ(Picture(home.Path(u"made/Toolbar/Forward-over@2x.png"_s)), Skin(u"Toolbar/Forward-over@2x.png"_s));
    EXPECT_NE(Picture(home.Path(u"made/Toolbar/Forward.png"_s)), Picture(home.Path(u"made/Toolbar/Forward-over.png"_s)));
}

TEST_F(OwnSkin, EndsWithAMessageThatNamesTheFaultyFile)
{
    const QByteArray start = R"(<svg xmlns:skin="urn:kelvado:skin" viewBox="0 0 16 16">)";
    const std::tuple<const char*, const char*, const char*> faults[] = {
        {"art/no-picture.svg", "<path d=\"M0 0\">", "Premature"},
        {"art/no-picture.svg", "<path skin:fill=\"{Lilac}\"/></svg>", "Lilac"},
        {"art/no-picture.svg", "<path skin:fill=\"{Ink 50%}\"/></svg>", "Ink 50%"},
        {"art/no-picture.svg", "<path skin:x=\"{Ink - 2}\"/></svg>", "no number"},
        {"art/no-picture.svg", "\n<filter id=\"blur\"/></svg>", "line 2: <filter>"},
        {"art/no-picture.svg", "<path d=\"M0 0L1 hello\"/></svg>", "path"},
        {"art/no-picture.svg", "<image href=\"no-picture.svg\"/></svg>", "without an end"},
        {"art/no-picture.svg", "<image href=\"lost.svg\"/></svg>", "lost.svg"},
        {"art/tabs/strip.svg", "</svg>", "ToolEnd.BMP"},
        {"art/skin.json", "[1]", "is no list"},
        {"art/skin.json", "{\"a.png\": {\"drawing\": \"lost.svg\"}}", "a.png: lost.svg"},
        {"art/skin.json", "{\"a.png\": {}}", "a.png: "},
        {"palette.ini", "[Colours]\nWindow=lilac blue\n", "Window"},
        {"palette.ini", "", "palette.ini"},
    };
    for (const auto& [file, text, message] : faults) {
        const QString name = u"source/"_s + QString::fromLatin1(file);
        const QString path = home.Path(name);
        const QByteArray before = QFile::exists(path) ? home.Read(name) : QByteArray();
        home.Write(name, name.endsWith(u".svg") ? start + text : QByteArray(text));
        const Outcome outcome = Make();
        EXPECT_EQ(outcome.code, 1) << text;
        EXPECT_TRUE(outcome.message.contains(QString::fromLatin1(message))) << text << ": " << outcome.message.toStdString();
        if (!path.endsWith(u"strip.svg")) {
            EXPECT_TRUE(outcome.message.contains(path)) << text << ": " << outcome.message.toStdString();
        }
        before.isEmpty() ? static_cast<void>(QFile::remove(path)) : home.Write(name, before);
    }
    QFile::remove(home.Path(u"source/palette.ini"_s));
    EXPECT_EQ(Make().code, 1);
    EXPECT_EQ(RunPainter({}).code, 2);
    EXPECT_EQ(RunPainter({kSkin, kArt, u"/dev/null/skin"_s}).code, 1);
}

} // namespace
} // namespace kelvado
