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

const QString kPalette = QStringLiteral(KELVADO_SKIN_DIR "/palette.ini");

struct Outcome
{
    int code;
    QString message;
};

Outcome RunPainter(const QStringList& arguments)
{
    QProcess painter;
    painter.start(QStringLiteral(PAINTSKIN), arguments);
    EXPECT_TRUE(painter.waitForFinished(60000));
    return {painter.exitCode(), QString::fromUtf8(painter.readAllStandardError())};
}

class PaintedSkin : public ::testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        s_folder = new QTemporaryDir;
        ASSERT_EQ(RunPainter({kPalette, s_folder->filePath(QStringLiteral("skin"))}).code, 0);
        ASSERT_EQ(RunPainter({QStringLiteral("--busy"), kPalette, s_folder->filePath(QStringLiteral("bin"))}).code, 0);
    }
    static void TearDownTestSuite() { delete s_folder; }

    static QString Path(const QString& name) { return s_folder->filePath(name); }
    static QImage Skin(const QString& name)
    {
        const QImage picture(Path(QStringLiteral("skin/") + name));
        EXPECT_FALSE(picture.isNull()) << name.toStdString();
        return picture;
    }

private:
    static inline QTemporaryDir* s_folder = nullptr;
};

QString Double(QString name)
{
    return name.insert(name.lastIndexOf(u'.'), QStringLiteral("@2x"));
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
        names << piece + QStringLiteral(".BMP") << QStringLiteral("Searchbar/") + piece + QStringLiteral(".BMP");
    names << QStringLiteral("ToolRight.BMP");
    for (const QString& tab :
         Words("ToolMovieList ToolMovieGrab ToolMovieEdit ToolActorInfo Searchbar/ToolIMDB Searchbar/ToolDVDEmp Searchbar/ToolManual"))
        names << tab + QStringLiteral(".BMP") << tab + QStringLiteral("Sel.BMP");
    for (const QString& key :
         Words("Back Forward New Open Save Print Refresh AddFilter Delete AddIMDb AddDVDEmp AddManual CheckOut CheckIn Edit")) {
        for (const QString& state : {QString(), QStringLiteral("-over"), QStringLiteral("-down"), QStringLiteral("-disabled")})
            names << QStringLiteral("Toolbar/") + key + state + QStringLiteral(".png");
    }
    for (int number = 1; number <= 13; ++number)
        names << QStringLiteral("Tree/%1.png").arg(number);

    for (const QString& name : names) {
        const QImage single = Skin(name);
        EXPECT_EQ(Skin(Double(name)).size(), single.size() * 2) << name.toStdString();
        const int height = name.startsWith(u"Toolbar/") ? 24 : name.startsWith(u"Tree/") ? 16 : name.startsWith(u"Searchbar/") ? 36 : 40;
        EXPECT_EQ(single.height(), height) << name.toStdString();
        if (name.endsWith(u"Sel.BMP") && !kJoints.contains(name.section(u'/', -1).chopped(4))) {
            EXPECT_EQ(single.width(), Skin(QString(name).remove(QStringLiteral("Sel"))).width()) << name.toStdString();
        }
    }
    EXPECT_GE(Skin(QStringLiteral("No Image.jpg")).height(), 600);
}

TEST_F(PaintedSkin, TabsJoinWithoutASeamWhicheverIsSelected)
{
    struct Row
    {
        QString folder;
        QStringList tabs;
    };
    const Row rows[] = {{QString(), Words("ToolMovieList ToolMovieGrab ToolMovieEdit ToolActorInfo")},
                        {QStringLiteral("Searchbar/"), Words("ToolIMDB ToolDVDEmp ToolManual")}};
    for (const Row& row : rows) {
        for (int selected = 0; selected < row.tabs.size(); ++selected) {
            const auto sel = [selected](int tab) { return tab == selected ? QStringLiteral("Sel") : QString(); };
            QStringList pieces{QStringLiteral("ToolLeft") + sel(0)};
            for (int tab = 0; tab < row.tabs.size(); ++tab) {
                pieces << row.tabs[tab] + sel(tab);
                if (tab + 1 == row.tabs.size())
                    pieces << QStringLiteral("ToolEnd") + sel(tab);
                else
                    pieces << (tab == selected       ? QStringLiteral("ToolFrontYesNo")
                               : tab + 1 == selected ? QStringLiteral("ToolFrontNoYes")
                                                     : QStringLiteral("ToolFrontNoNo"));
            }
            pieces << QStringLiteral("ToolSpacer");
            for (const QString& scale : {QString(), QStringLiteral("@2x")}) {
                for (int i = 0; i + 1 < pieces.size(); ++i) {
                    const QImage left = Skin(row.folder + pieces[i] + scale + QStringLiteral(".BMP"));
                    const QImage right = Skin(row.folder + pieces[i + 1] + scale + QStringLiteral(".BMP"));
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
        paths << Path(QStringLiteral("skin/") + name);
    for (const QString& name : Words("working.gif working@2x.gif stop.gif stop@2x.gif"))
        paths << Path(QStringLiteral("bin/") + name);
    for (const QString& path : paths) {
        int error = 0;
        GifFileType* file = DGifOpenFileName(QFile::encodeName(path).constData(), &error);
        ASSERT_NE(file, nullptr) << path.toStdString();
        EXPECT_EQ(DGifSlurp(file), GIF_OK) << path.toStdString();
        EXPECT_EQ(file->ImageCount, path.contains(u"working") ? 12 : 1) << path.toStdString();
        DGifCloseFile(file, &error);
    }
    for (const QString& segment : Words("barna barLeft barYes barHalf barNo barRight"))
        EXPECT_EQ(Skin(QStringLiteral("RatingBar/%1.gif").arg(segment)).height(), 40);
    EXPECT_EQ(Skin(QStringLiteral("RatingBar/barYes.gif")).size(), Skin(QStringLiteral("RatingBar/barNo.gif")).size());
}

TEST_F(PaintedSkin, TheBusyPictureMovesForEverOnTheGroundOfTheIdleOne)
{
    const QImage idle(Path(QStringLiteral("bin/stop.gif")));
    QImageReader reader(Path(QStringLiteral("bin/working.gif")));
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
    QFile palette(folder.filePath(QStringLiteral("bad.ini")));
    ASSERT_TRUE(palette.open(QIODevice::WriteOnly));
    palette.write("[Colours]\nWindow=lilac blue\n");
    palette.close();
    for (const QString& path : {palette.fileName(), folder.filePath(QStringLiteral("missing.ini"))}) {
        const Outcome outcome = RunPainter({path, folder.path()});
        EXPECT_EQ(outcome.code, 1);
        EXPECT_TRUE(outcome.message.contains(path)) << outcome.message.toStdString();
    }
    EXPECT_EQ(RunPainter({}).code, 2);
    EXPECT_EQ(RunPainter({kPalette, QStringLiteral("/dev/null/skin")}).code, 1);
}

} // namespace
} // namespace kelvado
