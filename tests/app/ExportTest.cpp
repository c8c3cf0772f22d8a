#include "MainWindow.h"
#include "render/forms/TxtExport.h"
#include "ui/BusyPicture.h"
#include "ui/ctxListItem.h"
#include "ui/ctxListObjects.h"
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

/// The window of the text export on the same catalog.
class TextExporting : public Exporting
{
protected:
    /// Opens the window, does `steps` in it and closes it.
    void InWindow(const std::function<void(TxtExport&)>& steps)
    {
        bool seen = false;
        QTimer::singleShot(0, window.get(), [&] {
            auto* dialog = qobject_cast<TxtExport*>(QApplication::activeModalWidget());
            ASSERT_TRUE(dialog);
            dialog->activateWindow();
            ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == dialog; }));
            seen = true;
            steps(*dialog);
            dialog->reject();
        });
        Entry("mnuExportText").trigger();
        EXPECT_TRUE(seen);
        EXPECT_TRUE(window->isEnabled());
    }
    template<typename Control = QPushButton>
    static Control& In(const QWidget& dialog, const char* name)
    {
        return *dialog.findChild<Control*>(QString::fromLatin1(name));
    }
    static void Press(TxtExport& dialog, const char* button) { QTest::mouseClick(&In(dialog, button), Qt::LeftButton); }
    /// The progress window that is shown; those of earlier runs are about to go.
    frmProgress& Progress() const
    {
        const auto all = window->findChildren<frmProgress*>();
        return **std::ranges::find_if(all, &QWidget::isVisible);
    }
    static void AddField(const TxtExport& dialog, const QString& caption)
    {
        auto& fields = In<QTreeWidget>(dialog, "tvExport");
        fields.setCurrentItem(fields.findItems(caption, Qt::MatchExactly | Qt::MatchRecursive).constLast());
        fields.setFocus();
        QTest::keyClick(&fields, Qt::Key_Return);
    }
    static std::string Rows(const TxtExport& dialog)
    {
        auto& rows = In<ctxListObjects>(dialog, "SelOutput");
        QStringList captions;
        for (int row = 1; row <= rows.ListCount(); ++row)
            captions << rows.List(row).Entry().Caption;
        return captions.join(u" | "_s).toStdString();
    }
    std::string Written() const { return home.Read(u"out/films.txt"_s).replace("\r\n", "|").toStdString(); }

    const QString target = home.Path(u"out/films.txt"_s);
};

TEST_F(TextExporting, FieldsFiltersAndSortMakeTheFile)
{
    InWindow([&](TxtExport& dialog) {
        EXPECT_FALSE(In(dialog, "Command1").isEnabled());
        dialogs.inputs << u"a<>!!b"_s << u"First"_s << u"Last"_s;
        for (const char* field : {"Movie", "Header Row", "Footer Row", "Title", "IMDb Link"})
            AddField(dialog, QString::fromLatin1(field));
        EXPECT_EQ(Rows(dialog), "Header Line: \"First\" | Title | IMDb Link | Footer Line: \"Last\"");
        EXPECT_EQ(TakeMessages(), "64 Header row entry: A line end and \"<>!!\" have a meaning of their own in templates and cannot "
                                  "stand in a text.");
        auto& rows = In<ctxListObjects>(dialog, "SelOutput");
        QTest::keyClick(&rows, Qt::Key_Delete); // the link, which was added last
        rows.SetListIndex(2);
        QTest::mouseClick(&In<QCheckBox>(rows.List(2), "chkFieldWidth"), Qt::LeftButton, {}, QPoint(5, 8));
        QTimer::singleShot(0, &dialog, [&] {
            QWidget& filter = *QApplication::activeModalWidget();
            auto& elements = In<QTreeWidget>(filter, "tvFilter");
            elements.setCurrentItem(elements.findItems(u"Year"_s, Qt::MatchExactly | Qt::MatchRecursive).constFirst());
            In<QComboBox>(filter, "CboOperand").setCurrentIndex(1);
            In<QLineEdit>(filter, "txtFilter").setText(u"1960"_s);
            QTest::keyClick(&filter, Qt::Key_Return);
        });
        Press(dialog, "cmdAddFilter");
        EXPECT_EQ(In<QListWidget>(dialog, "lstFilters").item(0)->text(), u"Year Greater Than 1960"_s);
        In<QComboBox>(dialog, "CboSort").setCurrentText(u"Title"_s);
        In<QComboBox>(dialog, "cboOrder").setCurrentIndex(1);
        QTest::keyClicks(&In<QLineEdit>(dialog, "TxtDel"), u";"_s);
        dialogs.files << target;
        bool wasDisabled = false;
        events.hook = [&] { wasDisabled = !dialog.isEnabled() && Progress().isEnabled(); };
        Press(dialog, "Command1");
        EXPECT_EQ(TakeMessages(), "64 : Movie list export to text file complete");
        EXPECT_EQ(dialogs.made, QStringList{target});
        const std::string closing = "Last| |Movie list created with Kelvado| |http://127.0.0.1:8047|";
        EXPECT_EQ(Written(), "First|Brazil;|Alien;|2001;|" + closing);

        EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &dialog; })) << "the window is at hand again";
        In<QWidget>(dialog, "lstFilters").setFocus();
        QTest::keyClick(&In<QListWidget>(dialog, "lstFilters"), Qt::Key_Delete); // answered with No
        dialogs.answers << kAnswerYes << kAnswerYes;
        Press(dialog, "cmdRemoveFilters");
        EXPECT_EQ(TakeMessages(), "4 Remove Filter: Are You Sure You Wish To Remove This Filter ?  | "
                                  "4 Remove Filter: Are You Sure You Wish To Remove This Filter ? ");
        dialogs.files << target;
        Press(dialog, "Command1");
        EXPECT_TRUE(wasDisabled);
        EXPECT_EQ(TakeMessages(), "20 Text Export: File already exists, are you sure you wish to continue? | "
                                  "64 : Movie list export to text file complete");
        EXPECT_EQ(QString::fromStdString(Written()).count(u';'), 23);
        EXPECT_TRUE(QTest::qWaitFor([&] { return In(dialog, "Command1").hasFocus(); }));
    });
}

TEST_F(TextExporting, WhatFailsIsToldAndLeavesFilesAndRowsAsTheyWere)
{
    home.Write(u"Templates/bad.tet"_s, "x<>!!Title<>!!Movie<>!!True<>!!5<>!!False<>!!0<>!!0\r\nshort\r\n");
    InWindow([&](TxtExport& dialog) {
        AddField(dialog, u"Title"_s);
        AddField(dialog, u"Character"_s);
        const QString saved = home.Path(u"out/own.tet"_s);
        dialogs.files << saved << home.Path(u"Templates/bad.tet"_s) << saved;
        for (const char* button : {"cmdSaveTemplate", "cmdLoadTemplate"})
            Press(dialog, button);
        EXPECT_EQ(dialogs.proposed.takeFirst(), home.Path(u"Templates"_s));
        EXPECT_THAT(TakeMessages(), ::testing::HasSubstr("bad.tet, line 2: there are 1 values where 8 belong : 13"));
        EXPECT_EQ(Rows(dialog), "Title | Character");
        Press(dialog, "cmdRemoveRow");
        EXPECT_EQ(Rows(dialog), "Title");
        Press(dialog, "cmdLoadTemplate");
        EXPECT_EQ(Rows(dialog), "Title | Character");

        Press(dialog, "Command1"); // no file is chosen
        EXPECT_EQ(TakeMessages(), "64 : Candel");
        dialogs.files << catalog.Path() << home.Path(u"none/films.txt"_s);
        Press(dialog, "Command1");
        EXPECT_THAT(TakeMessages(), ::testing::HasSubstr("(this is the open catalog) : 75"));
        Press(dialog, "Command1");
        EXPECT_THAT(TakeMessages(), ::testing::HasSubstr("none/films.txt"));
        home.Write(u"out/films.txt"_s, "old");
        dialogs.files << target;
        dialogs.answers << kAnswerYes;
        events.hook = [&] {
            events.hook = nullptr;
            dialog.close(); // it waits
            QTest::keyClick(&Progress(), Qt::Key_Escape);
        };
        Press(dialog, "Command1");
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_THAT(TakeMessages(), ::testing::HasSubstr("after 5 of 23 films. The file was not written"));
        EXPECT_EQ(Written(), "old");
    });
}

TEST_F(TextExporting, TheEndOfTheProgramClosesTheWindow)
{
    bool isClosed = false;
    InWindow([&](TxtExport& dialog) {
        AddField(dialog, u"Title"_s);
        dialogs.files << target;
        events.hook = [&] {
            events.hook = nullptr;
            EXPECT_FALSE(window->close());
        };
        Press(dialog, "Command1");
        isClosed = QTest::qWaitFor([&] { return !dialog.isVisible() && !window->isVisible(); });
    });
    EXPECT_TRUE(isClosed);
    EXPECT_EQ(Written(), "<missing>");
}

} // namespace
} // namespace kelvado
