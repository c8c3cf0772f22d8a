#include "core/Literals.h"

// Runs the painter as the build does and looks at what it made.

#include <QColor>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QImage>
#include <QImageReader>
#include <QProcess>
#include <QSettings>
#include <QTemporaryDir>

#include <gtest/gtest.h>

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

QByteArray Read(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

void Write(const QString& path, const QByteArray& bytes)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    file.write(bytes);
}

void Replace(const QString& path, const QByteArray& before, const QByteArray& after)
{
    QByteArray text = Read(path);
    ASSERT_TRUE(text.contains(before)) << path.toStdString();
    Write(path, text.replace(before, after));
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

TEST_F(PaintedSkin, HasEveryPictureThatTheWindowNamesAndItsTwinInDoubleSize)
{
    QStringList names{u"ToolRight.BMP"_s};
    for (const QString& folder : {QString(), u"Searchbar/"_s}) {
        for (const QString& piece : Words("ToolLeft ToolLeftSel ToolEnd ToolEndSel ToolFrontNoNo ToolFrontNoYes ToolFrontYesNo ToolSpacer"))
            names << folder + piece + u".BMP"_s;
    }
    for (const QString& tab :
         Words("ToolMovieList ToolMovieGrab ToolMovieEdit ToolActorInfo Searchbar/ToolIMDB Searchbar/ToolDVDEmp Searchbar/ToolManual")) {
        names << tab + u".BMP"_s << tab + u"Sel.BMP"_s;
        EXPECT_EQ(Skin(tab + u".BMP"_s).size(), Skin(tab + u"Sel.BMP"_s).size()) << tab.toStdString();
    }
    for (const QString& key :
         Words("Back Forward New Open Save Print Refresh AddFilter Delete AddIMDb AddDVDEmp AddManual CheckOut CheckIn Edit")) {
        for (const QString& state : {QString(), u"-over"_s, u"-down"_s, u"-disabled"_s})
            names << u"Toolbar/"_s + key + state + u".png"_s;
    }
    for (int number = 1; number <= 13; ++number)
        names << u"Tree/%1.png"_s.arg(number);

    for (const QString& name : names) {
        const QImage single = Skin(name);
        EXPECT_EQ(Skin(Double(name)).size(), single.size() * 2) << name.toStdString();
        const int height = name.startsWith(u"Toolbar/") ? 24 : name.startsWith(u"Tree/") ? 16 : name.startsWith(u"Searchbar/") ? 36 : 40;
        EXPECT_EQ(single.height(), height) << name.toStdString();
    }
    for (const QString& certificate : Words("NA G PG PG-13 R NC-17"))
        EXPECT_EQ(Skin(u"ratings/%1.Gif"_s.arg(certificate)).height(), 48);
    for (const QString& segment : Words("barna barLeft barYes barHalf barNo barRight"))
        EXPECT_EQ(Skin(u"RatingBar/%1.gif"_s.arg(segment)).height(), 40);
    EXPECT_GE(Skin(u"No Image.jpg"_s).height(), 600);
    for (const int side : {16, 24, 32, 48, 64, 128, 256})
        EXPECT_EQ(Picture(Path(u"bin/kelvado-%1.png"_s.arg(side))).size(), QSize(side, side));
    EXPECT_FALSE(QFile::exists(Path(u"skin/art"_s)));
}

TEST_F(PaintedSkin, TabsJoinWithoutASeamWhicheverIsSelected)
{
    const std::pair<QString, QStringList> rows[] = {{QString(), Words("ToolMovieList ToolMovieGrab ToolMovieEdit ToolActorInfo")},
                                                    {u"Searchbar/"_s, Words("ToolIMDB ToolDVDEmp ToolManual")}};
    for (const auto& [folder, tabs] : rows) {
        for (int selected = 0; selected < tabs.size(); ++selected) {
            const auto sel = [selected](int tab) { return tab == selected ? u"Sel"_s : QString(); };
            QStringList pieces{u"ToolLeft"_s + sel(0)};
            for (int tab = 0; tab < tabs.size(); ++tab) {
                pieces << tabs[tab] + sel(tab);
                if (tab + 1 == tabs.size())
                    pieces << u"ToolEnd"_s + sel(tab);
                else
                    pieces << (tab == selected ? u"ToolFrontYesNo"_s : tab + 1 == selected ? u"ToolFrontNoYes"_s : u"ToolFrontNoNo"_s);
            }
            pieces << u"ToolSpacer"_s;
            for (const QString& scale : {QString(), u"@2x"_s}) {
                for (int i = 0; i + 1 < pieces.size(); ++i) {
                    const QImage left = Skin(folder + pieces[i] + scale + u".BMP"_s);
                    const QImage right = Skin(folder + pieces[i + 1] + scale + u".BMP"_s);
                    for (int y = 0; y < left.height(); ++y)
                        ASSERT_EQ(left.pixel(left.width() - 1, y), right.pixel(0, y))
                            << pieces[i].toStdString() << " | " << pieces[i + 1].toStdString() << ", line " << y;
                }
            }
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

double Contrast(const QColor& a, const QColor& b)
{
    return (std::max(Luminance(a), Luminance(b)) + 0.05) / (std::min(Luminance(a), Luminance(b)) + 0.05);
}

TEST_F(PaintedSkin, TextAndStarsStandOutFromEachGroundThatTheyAreOn)
{
    const QSettings palette(Path(u"skin/palette.ini"_s), QSettings::IniFormat);
    const QSettings skin(Path(u"skin/skin.ini"_s), QSettings::IniFormat);
    const auto check = [](const QSettings& file, const QString& section, const char* mark, const char* grounds, double least) {
        const auto color = [&](const QString& key) { return QColor(u'#' + file.value(section + u'/' + key).toString()); };
        for (const QString& ground : Words(grounds))
            EXPECT_GE(Contrast(color(QString::fromLatin1(mark)), color(ground)), least) << mark << " on " << ground.toStdString();
    };
    check(palette, u"Colours"_s, "Ink", "Window Strip Surface AccentSoft", 4.5);
    check(palette, u"Colours"_s, "InkMuted", "Window Strip Surface", 4.5);
    check(palette, u"Colours"_s, "Accent", "Window Surface AccentSoft OnAccent", 4.5);
    check(palette, u"Colours"_s, "Rating", "Window Surface", 3);
    check(palette, u"Colours"_s, "RatingEmpty", "Window Surface", 3);
    check(skin, u"Skin"_s, "LabelFontColor", "LabelBackColor StatusBackColor", 4.5);
    check(skin, u"Skin"_s, "TextFontColor", "TextBackColor", 4.5);
    check(skin, u"Skin"_s, "SubNavSelect", "GeneralBackColor", 4.5);
    check(skin, u"Skin"_s, "SubNavInActive", "GeneralBackColor", 4.5);
    check(skin, u"Skin"_s, "TreeItemFront", "TreeItemBack TreeBackColor", 4.5);
}

/// A copy of the delivered skin, and the folder that it is made into.
class OwnSkin : public PaintedSkin
{
protected:
    OwnSkin()
    {
        for (QDirIterator files(kSkin, QDir::Files, QDirIterator::Subdirectories); files.hasNext();) {
            const QString path = files.next();
            Write(Source(path.mid(kSkin.size() + 1)), Read(path));
        }
    }

    QString Source(const QString& name) const { return m_folder.filePath(u"source/"_s + name); }
    QString Made(const QString& name) const { return m_folder.filePath(u"made/"_s + name); }
    Outcome Make() const { return RunPainter({m_folder.filePath(u"source"_s), kArt, m_folder.filePath(u"made"_s)}); }

private:
    QTemporaryDir m_folder;
};

TEST_F(OwnSkin, TakesAPaletteAndADrawingOfItsOwnAndTheRestFromTheCommonOnes)
{
    Replace(Source(u"palette.ini"_s), "Strip=E4E9EF", "Strip=101820");
    Write(Source(u"art/icons/back.svg"_s),
          R"(<svg xmlns:skin="urn:kelvado:skin" viewBox="0 0 8 8"><path d="M0 0H8V8H0Z" skin:fill="{Ink}"/></svg>)");
    // A list of its own may ask for more than the common one.
    QByteArray list = Read(kArt + u"/skin.json"_s);
    list.insert(list.indexOf('{') + 1, R"("Tabs/Movie-Sections.bmp": {"drawing": "strip.svg", "Ink": "{Accent}"},)");
    Write(Source(u"art/skin.json"_s), list);
    Write(Source(u"art/strip.svg"_s),
          R"(<svg xmlns:skin="urn:kelvado:skin" viewBox="0 0 50 20"><rect width="50" height="20" skin:fill="{Strip 50% #ffffff}"/>
        <image x="20" width="20" height="20" href="icons/back.svg"/></svg>)");
    const Outcome outcome = Make();
    ASSERT_EQ(outcome.code, 0) << outcome.message.toStdString();

    EXPECT_EQ(Picture(Made(u"ToolSpacer@2x.BMP"_s)).pixelColor(3, 3), QColor(0x10, 0x18, 0x20));
    EXPECT_TRUE(Read(Made(u"Templates/default.html"_s)).contains("--Strip: #101820;"));
    EXPECT_EQ(QSettings(Made(u"skin.ini"_s), QSettings::IniFormat).value(u"Skin/StatusBackColor"_s), u"101820"_s);
    const QImage strip = Picture(Made(u"Tabs/Movie-Sections@2x.bmp"_s));
    EXPECT_EQ(strip.size(), QSize(100, 40));
    EXPECT_EQ(strip.pixelColor(5, 5), QColor(0x88, 0x8C, 0x90));
    EXPECT_EQ(strip.pixelColor(60, 20), QColor(0x2B, 0x5F, 0xA6));

    // Each state of the button is made of the one drawing that was changed, and no other button follows.
    const QColor muted(0x4B, 0x58, 0x68), accent(0x2B, 0x5F, 0xA6);
    const auto middle = [&](const QString& name) { return Picture(Made(u"Toolbar/"_s + name)).pixelColor(2, 20); };
    EXPECT_EQ(middle(u"Back.png"_s), muted);
    EXPECT_EQ(middle(u"Back-over.png"_s), accent);
    EXPECT_NEAR(middle(u"Back-disabled.png"_s).alphaF(), 0.38, 0.01);
    EXPECT_EQ(Picture(Made(u"Toolbar/Forward-over@2x.png"_s)), Skin(u"Toolbar/Forward-over@2x.png"_s));
    EXPECT_NE(Picture(Made(u"Toolbar/Forward.png"_s)), Picture(Made(u"Toolbar/Forward-over.png"_s)));
}

TEST_F(OwnSkin, EndsWithAMessageThatNamesTheFaultyFile)
{
    struct Fault
    {
        const char* file;
        const char* text;
        const char* message;
    };
    const QByteArray start = R"(<svg xmlns:skin="urn:kelvado:skin" viewBox="0 0 16 16">)";
    const Fault faults[] = {
        {"art/tree/heart.svg", "<path d=\"M0 0\">", "Premature"},
        {"art/tree/heart.svg", "<path skin:fill=\"{Lilac}\"/></svg>", "Lilac"},
        {"art/tree/heart.svg", "<path skin:fill=\"{Ink 50%}\"/></svg>", "Ink 50%"},
        {"art/tree/heart.svg", "<path skin:x=\"{Ink - 2}\"/></svg>", "no number"},
        {"art/tree/heart.svg", "\n<filter id=\"blur\"/></svg>", "line 2: <filter>"},
        {"art/tree/heart.svg", "<path d=\"M0 0L1 hello\"/></svg>", "path"},
        {"art/tree/heart.svg", "<image href=\"heart.svg\"/></svg>", "without an end"},
        {"art/tree/heart.svg", "<image href=\"../lost.svg\"/></svg>", "lost.svg"},
        {"art/tabs/strip.svg", "</svg>", "ToolEnd.BMP"},
        {"art/skin.json", "[1]", "skin.json"},
        {"palette.ini", "[Colours]\nWindow=lilac blue\n", "Window"},
        {"palette.ini", "", "palette.ini"},
    };
    for (const Fault& fault : faults) {
        const QString path = Source(QString::fromLatin1(fault.file));
        const QByteArray before = QFile::exists(path) ? Read(path) : QByteArray();
        Write(path, path.endsWith(u".svg") ? start + fault.text : QByteArray(fault.text));
        const Outcome outcome = Make();
        EXPECT_EQ(outcome.code, 1) << fault.text;
        EXPECT_TRUE(outcome.message.contains(QString::fromLatin1(fault.message))) << fault.text << ": " << outcome.message.toStdString();
        if (!path.endsWith(u"strip.svg")) {
            EXPECT_TRUE(outcome.message.contains(path)) << fault.text << ": " << outcome.message.toStdString();
        }
        before.isEmpty() ? static_cast<void>(QFile::remove(path)) : Write(path, before);
    }
    QFile::remove(Source(u"palette.ini"_s));
    EXPECT_EQ(Make().code, 1);
    EXPECT_EQ(RunPainter({}).code, 2);
    EXPECT_EQ(RunPainter({kSkin, kArt, u"/dev/null/skin"_s}).code, 1);
}

} // namespace
} // namespace kelvado
