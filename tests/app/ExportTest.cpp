#include "MainWindow.h"
#include "ui/BusyPicture.h"
#include "web/forms/frmProgress.h"

namespace kelvado {
namespace {

/// A catalog that is large enough for events to be served while it is written.
class Exporting : public MainWindow
{
protected:
    Exporting()
    {
        catalog.Run("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 20)"
                    "INSERT INTO Movie (Title) SELECT 'Z & ' || i FROM n");
        QDir().mkpath(folder);
        Start();
    }

    /// Chooses the entry and does `action` when events are served for the first time.
    void ExportXml(const std::function<void(frmProgress&)>& action)
    {
        dialogs.files << folder;
        events.hook = [&, action] {
            events.hook = nullptr;
            action(Get<frmProgress>("frmProgress"));
        };
        Entry("mnuExportXML").trigger();
        events.hook = nullptr;
    }
    QByteArray Exported() const { return FileContent(folder + u"/MyMovies.XML"_s); }

    const QString folder = home.Path(u"out"_s);
};

TEST_F(Exporting, TheWorkIsShownAndItsEndTold)
{
    ExportXml([&](const frmProgress& progress) {
        EXPECT_TRUE(progress.isVisible() && progress.isEnabled() && Get<BusyPicture>("Working").IsBusy());
        EXPECT_FALSE(window->isEnabled());
        EXPECT_EQ(progress.findChild<QLabel*>(u"lblFilmOf"_s)->text(), u"Film 1 of 23");
        EXPECT_EQ(Get<QProgressBar>("ProgressMain").value(), 5 * 100 / 23);
    });
    EXPECT_EQ(TakeMessages(), "64 : Data Export Completed Successfully");
    EXPECT_EQ(Exported().count("<Movie>"), 23);
    EXPECT_TRUE(window->isEnabled());
    EXPECT_FALSE(Get<BusyPicture>("Working").IsBusy());
    EXPECT_EQ(Get<QProgressBar>("ProgressMain").value(), 0);

    Entry("mnuExportXML").trigger(); // no folder is chosen
    EXPECT_EQ(TakeMessages(), "");
}

TEST_F(Exporting, ACancelIsToldAndLeavesTheOldFile)
{
    home.Write(u"out/MyMovies.XML"_s, "old");
    ExportXml([](frmProgress& progress) { QTest::keyClick(&progress, Qt::Key_Escape); });
    EXPECT_EQ(TakeMessages(),
              "64 : The export was cancelled after 5 of 23 films. MyMovies.XML was not written; an older one is as it was.");
    EXPECT_EQ(Exported(), "old");
    EXPECT_TRUE(window->isEnabled());
}

TEST_F(Exporting, TheEndOfTheProgramWaitsForTheExportsEnd)
{
    ExportXml([this](const frmProgress&) {
        EXPECT_FALSE(window->close());
        EXPECT_TRUE(window->isVisible());
    });
    EXPECT_EQ(Exported(), "<missing>");
    EXPECT_TRUE(QTest::qWaitFor([this] { return !window->isVisible(); }));
}

TEST_F(Exporting, ATargetThatCannotBeWrittenIsNamed)
{
    QDir().mkpath(folder + u"/MyMovies.XML"_s);
    ExportXml([](const frmProgress&) {});
    EXPECT_THAT(TakeMessages(), ::testing::HasSubstr("out/MyMovies.XML"));
    EXPECT_TRUE(window->isEnabled());
}

TEST_F(Exporting, WebPagesAreWrittenAndTold)
{
    Entry("mnuWebExport").trigger();
    const QString site = home.Path(u"Export/Web"_s);
    EXPECT_EQ(TakeMessages(), "64 Web Export Complete: Web Export has completed and has been saved to\n" + site.toStdString());
    EXPECT_EQ(dialogs.made, QStringList{site + u"/index.html"_s});
    EXPECT_EQ(FileContent(site + u"/index.html"_s).count("<article"), 23);

    QFile::remove(home.Path(u"Skins/Default XP/Templates/Web/body.html"_s));
    Entry("mnuWebExport").trigger();
    EXPECT_THAT(TakeMessages(),
                ::testing::HasSubstr("File not found: " + home.Path(u"Skins/Default XP/Templates/Web/body.html"_s).toStdString()));
}

TEST_F(Exporting, TheExportByViewAsksWhereFilmsAreLeftOut)
{
    Entry("mnuWebExportByView").trigger(); // by title, where each film has its page
    EXPECT_EQ(TakeMessages(), "64 : Complete");
    Entry("mnuViewMode_2").trigger();
    QDir(home.Path(u"Export"_s)).removeRecursively();
    Entry("mnuWebExportByView").trigger();
    EXPECT_THAT(TakeMessages(), ::testing::StartsWith("4 Web Export: 22 films stand on no page"));
    EXPECT_FALSE(QFile::exists(home.Path(u"Export"_s)));
    dialogs.answers << kAnswerYes;
    Entry("mnuWebExportByView").trigger();
    EXPECT_THAT(TakeMessages(), ::testing::EndsWith("64 : Complete"));
    EXPECT_EQ(QDir(home.Path(u"Export/Web"_s)).entryList({u"3.htm"_s, u"1.htm"_s}), QStringList{u"3.htm"_s});
}

} // namespace
} // namespace kelvado
