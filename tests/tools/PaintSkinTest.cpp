#include "core/Literals.h"

// Runs the painter as the build does and looks at what it made.

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QImage>
#include <QImageReader>
#include <QProcess>
#include <QTemporaryDir>

#include <gif_lib.h>
#include <gtest/gtest.h>

namespace kelvado {
namespace {

const QString kPalette = u"" KELVADO_SKIN_DIR "/palette.ini"_s;

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

class PaintedSkin : public ::testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        s_folder = new QTemporaryDir;
        ASSERT_EQ(RunPainter({kPalette, s_folder->filePath(u"skin"_s)}).code, 0);
        ASSERT_EQ(RunPainter({u"--busy"_s, kPalette, s_folder->filePath(u"bin"_s)}).code, 0);
    }
    static void TearDownTestSuite() { delete s_folder; }

    static QString Path(const QString& name) { return s_folder->filePath(name); }
    static QImage Skin(const QString& name)
    {
        const QImage picture(Path(u"skin/"_s + name));
        EXPECT_FALSE(picture.isNull()) << name.toStdString();
        return picture;
    }

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

const QStringList kJoints = Words("ToolLeft ToolLeftSel ToolEnd ToolEndSel ToolFrontNoNo ToolFrontNoYes ToolFrontYesNo ToolSpacer");

TEST_F(PaintedSkin, HasEveryPictureThatTheWindowNamesAndItsTwinInDoubleSize)
{
    QStringList names;
    for (const QString& piece : kJoints)
        names << piece + u".BMP"_s << u"Searchbar/"_s + piece + u".BMP"_s;
    names << u"ToolRight.BMP"_s;
    for (const QString& tab :
         Words("ToolMovieList ToolMovieGrab ToolMovieEdit ToolActorInfo Searchbar/ToolIMDB Searchbar/ToolDVDEmp Searchbar/ToolManual"))
        names << tab + u".BMP"_s << tab + u"Sel.BMP"_s;
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
        if (name.endsWith(u"Sel.BMP") && !kJoints.contains(name.section(u'/', -1).chopped(4))) {
            EXPECT_EQ(single.width(), Skin(QString(name).remove(u"Sel"_s)).width()) << name.toStdString();
        }
    }
    EXPECT_GE(Skin(u"No Image.jpg"_s).height(), 600);
}

TEST_F(PaintedSkin, TabsJoinWithoutASeamWhicheverIsSelected)
{
    struct Row
    {
        QString folder;
        QStringList tabs;
    };
    const Row rows[] = {{QString(), Words("ToolMovieList ToolMovieGrab ToolMovieEdit ToolActorInfo")},
                        {u"Searchbar/"_s, Words("ToolIMDB ToolDVDEmp ToolManual")}};
    for (const Row& row : rows) {
        for (int selected = 0; selected < row.tabs.size(); ++selected) {
            const auto sel = [selected](int tab) { return tab == selected ? u"Sel"_s : QString(); };
            QStringList pieces{u"ToolLeft"_s + sel(0)};
            for (int tab = 0; tab < row.tabs.size(); ++tab) {
                pieces << row.tabs[tab] + sel(tab);
                if (tab + 1 == row.tabs.size())
                    pieces << u"ToolEnd"_s + sel(tab);
                else
                    pieces << (tab == selected ? u"ToolFrontYesNo"_s : tab + 1 == selected ? u"ToolFrontNoYes"_s : u"ToolFrontNoNo"_s);
            }
            pieces << u"ToolSpacer"_s;
            for (const QString& scale : {QString(), u"@2x"_s}) {
                for (int i = 0; i + 1 < pieces.size(); ++i) {
                    const QImage left = Skin(row.folder + pieces[i] + scale + u".BMP"_s);
                    const QImage right = Skin(row.folder + pieces[i + 1] + scale + u".BMP"_s);
                    for (int y = 0; y < left.height(); ++y)
                        ASSERT_EQ(left.pixel(left.width() - 1, y), right.pixel(0, y))
                            << pieces[i].toStdString() << " | " << pieces[i + 1].toStdString() << ", line " << y;
                }
            }
        }
    }
}

TEST_F(PaintedSkin, EveryGifReadsWholeWithTheReferenceReader)
{
    const QStringList pages =
        Words("ratings/NA.Gif ratings/G.Gif ratings/PG.Gif ratings/PG-13.Gif ratings/R.Gif ratings/NC-17.Gif RatingBar/barna.gif "
              "RatingBar/barLeft.gif RatingBar/barYes.gif RatingBar/barHalf.gif RatingBar/barNo.gif RatingBar/barRight.gif");
    QStringList paths;
    for (const QString& name : pages)
        paths << Path(u"skin/"_s + name);
    for (const QString& name : Words("working.gif working@2x.gif stop.gif stop@2x.gif"))
        paths << Path(u"bin/"_s + name);
    for (const QString& path : paths) {
        int error = 0;
        GifFileType* file = DGifOpenFileName(QFile::encodeName(path).constData(), &error);
        ASSERT_NE(file, nullptr) << path.toStdString();
        EXPECT_EQ(DGifSlurp(file), GIF_OK) << path.toStdString();
        EXPECT_EQ(file->ImageCount, path.contains(u"working") ? 12 : 1) << path.toStdString();
        DGifCloseFile(file, &error);
    }
    for (const QString& segment : Words("barna barLeft barYes barHalf barNo barRight"))
        EXPECT_EQ(Skin(u"RatingBar/%1.gif"_s.arg(segment)).height(), 40);
    EXPECT_EQ(Skin(u"RatingBar/barYes.gif"_s).size(), Skin(u"RatingBar/barNo.gif"_s).size());
}

TEST_F(PaintedSkin, TheBusyPictureMovesForEverOnTheGroundOfTheIdleOne)
{
    const QImage idle(Path(u"bin/stop.gif"_s));
    QImageReader reader(Path(u"bin/working.gif"_s));
    EXPECT_EQ(reader.loopCount(), -1);
    QImage before;
    for (int frame = 0; frame < 12; ++frame) {
        const QImage picture = reader.read();
        ASSERT_EQ(picture.size(), idle.size());
        EXPECT_EQ(picture.pixel(0, 0), idle.pixel(0, 0));
        EXPECT_NE(picture, before) << "frame " << frame;
        EXPECT_GT(reader.nextImageDelay(), 0);
        before = picture;
    }
}

TEST(PaintSkin, APaletteThatIsNoneEndsWithAMessageThatNamesIt)
{
    const QTemporaryDir folder;
    QFile palette(folder.filePath(u"bad.ini"_s));
    ASSERT_TRUE(palette.open(QIODevice::WriteOnly));
    palette.write("[Colours]\nWindow=lilac blue\n");
    palette.close();
    for (const QString& path : {palette.fileName(), folder.filePath(u"missing.ini"_s)}) {
        const Outcome outcome = RunPainter({path, folder.path()});
        EXPECT_EQ(outcome.code, 1);
        EXPECT_TRUE(outcome.message.contains(path)) << outcome.message.toStdString();
    }
    EXPECT_EQ(RunPainter({}).code, 2);
    EXPECT_EQ(RunPainter({kPalette, u"/dev/null/skin"_s}).code, 1);
}

} // namespace
} // namespace kelvado
