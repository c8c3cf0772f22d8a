#include "intake/forms/fAVIAdd.h"
#include "support/AviBuilder.h"
#include "support/PageSource.h"
#include "web_forms/WebPanels.h"

#include <QMimeData>

namespace kelvado {
namespace {

constexpr const char* kNoFilm = "0 : No Film Selected Or Imdb Search Error.";

/// The panel on two drives and a folder of films.
class FilePanel : public WebPanels
{
protected:
    FilePanel()
    {
        home.Write(u"sr0/The.Lives.of.Others-GRP.avi"_s, AviBuilder().Bytes());
        home.Write(u"sr1/notes.txt"_s, "no film");
        home.Write(u"films/1-a.avi"_s, AviBuilder().Bytes());
        home.Write(u"films/2-b.avi"_s, "no film");
        home.Write(u"films/3-c.avi"_s, AviBuilder().Bytes());
        discs.drives = {{u"sr0"_s, u"LIVES"_s, true}, {u"sr1"_s, u"NOTES"_s, true}, {u"sr2"_s, {}, false}};
        discs.folders = {{u"sr0"_s, home.Path(u"sr0"_s)}, {u"sr1"_s, home.Path(u"sr1"_s)}};
    }
    void StartPanel()
    {
        Start();
        Entry("mnuAddAVI").trigger();
    }
    std::string Label(const char* name) const { return Get<QLabel>(name).text().toStdString(); }
    /// The control with the focus and the button that Enter presses.
    std::string Step() const
    {
        QString step = QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : u"none"_s;
        for (const QPushButton* button : Get("fAVIAdd").findChildren<QPushButton*>()) {
            if (button->isDefault())
                step += u' ' + button->objectName();
        }
        return step.toStdString();
    }
    /// Does `action` in the window of the search when it has found something. The search runs below the window's own event loop, so
    /// nothing may wait for it there.
    void WhenFound(std::function<void(QTreeWidget& list)> action)
    {
        auto* timer = new QTimer(window.get());
        QObject::connect(timer, &QTimer::timeout, timer, [this, timer, action = std::move(action)] {
            auto* list = window->findChild<QTreeWidget*>(u"lstSearch"_s);
            if (!list || list->topLevelItemCount() == 0 || QApplication::activeModalWidget() != list->window())
                return;
            timer->deleteLater();
            timer->stop();
            action(*list);
        });
        timer->start(5);
    }
    void ChooseFilm(const char* number)
    {
        WhenFound([this, number](QTreeWidget& list) {
            list.setCurrentItem(list.findItems(QString::fromLatin1(number), Qt::MatchExactly, 1).value(0));
            EXPECT_EQ(QApplication::focusWidget(), &list);
            Key(Qt::Key_Return);
        });
    }
    /// Sends what a drag of these paths sends when it ends over the window; whether it was taken.
    bool Drop(const QStringList& paths)
    {
        QMimeData data;
        QList<QUrl> urls;
        for (const QString& path : paths)
            urls << QUrl::fromLocalFile(path);
        data.setUrls(urls);
        QDragEnterEvent enter(QPoint(400, 400), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(window.get(), &enter);
        QDropEvent drop(QPoint(400, 400), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(window.get(), &drop);
        QCoreApplication::processEvents();
        return enter.isAccepted() && drop.isAccepted();
    }
    QString Films(const char* name = "") const { return home.Path(u"films/"_s + QLatin1StringView(name)); }
};

TEST_F(FilePanel, EnterAloneLeadsFromTheDiscToTheStoredFilmAndTheNextDisc)
{
    const PageSource source(u"" PAGESOURCE_FOLDER ""_s);
    SetHosts(source.Host());
    Set("DefaultValues", "PromptAKA", u"1"_s);
    StartPanel();
    EXPECT_EQ(Step(), "cboDrives cmdCDScan");
    EXPECT_FALSE(Get("frameAdd").isVisible());
    Get<QCheckBox>("chkEject").setChecked(true);
    Get<QCheckBox>("chkGoNext").setChecked(true);
    Key(Qt::Key_Return);
    EXPECT_EQ(Step(), "txtSearch cmdAddMovie");
    EXPECT_EQ(Get<QLineEdit>("txtSearch").selectedText(), u"the lives of others"_s);
    EXPECT_EQ(Label("lblResolution") + ' ' + Label("lblFPS") + ' ' + Label("lblAudioBitrate"), "640x480 25.000 128Kbp/s");
    EXPECT_EQ(Get<QComboBox>("cboFormat").currentText(), u"XviD"_s);
    Get<QSpinBox>("UpDown1").setValue(2);
    Get<QCheckBox>("chkFilesizeDisc").setChecked(true);
    Get<QLineEdit>("txtIndex").setText(u"A 7"_s);
    Get<QLineEdit>("txtSearch").setText(u"others"_s);

    WhenFound([this](QTreeWidget&) {
        discs.drives[2] = {u"sr2"_s, u"COMES"_s, true};
        discs.Tell(kDiscArrived);
        InWindow("frmAkaSet", [](QWidget& choice) {
            choice.findChild<QListWidget*>(u"lstAkaSel"_s)->setCurrentRow(0);
            QTest::keyClick(&choice, Qt::Key_Return);
        });
        Key(Qt::Key_Return);
    });
    Key(Qt::Key_Return);
    EXPECT_EQ(TakeMessages(), "0 : Successfully added The Lives of Others (2006)");
    EXPECT_EQ(catalog.Ask("SELECT Title || '|' || Filename || '|' || Filesize || '|' || \"Number\" || '|' || \"Group\" || '|' || Format || "
                          "'|' || \"Index\" || '|' || Resolution || '|' || AudChannels FROM Movie WHERE Movie_ID = 4"),
              u"The Lives of Others (2006)|The.Lives.of.Others-GRP.avi|0mb|2|grp|XviD|A 7|640x480|2 channel"_s);
    EXPECT_GT(catalog.Ask("SELECT count(*) FROM ActorLink WHERE Movie_ID = 4").toInt(), 0);
    EXPECT_EQ(discs.ejected, QStringList{u"sr0"_s});
    EXPECT_EQ(Get<QComboBox>("cboDrives").currentText(), u" NOTES (sr1)"_s);
    EXPECT_EQ(Get<QComboBox>("cboDrives").itemText(2), u" COMES (sr2)"_s) << "a disc that came while the window was open";
    EXPECT_EQ(Step(), "cboDrives cmdCDScan");
    EXPECT_FALSE(Get("frameAdd").isVisible());
    EXPECT_EQ(Get<QLineEdit>("txtIndex").text() + Get<QComboBox>("cboFormat").currentText(), QString());

    EXPECT_FALSE(Node(u"The Lives of Others (2006)"_s).isValid());
    Press("ImgTabMovieList");
    EXPECT_TRUE(QTest::qWaitFor([&] { return Node(u"The Lives of Others (2006)"_s).isValid(); })) << "leaving the panel fills the tree";
    EXPECT_FALSE(discs.watcher);
}

TEST_F(FilePanel, WhatFailsOnTheWayToAFileIsToldOrKeptQuiet)
{
    AviBuilder noFrames;
    noFrames.streams[0].length = 0;
    home.Write(u"bad/x-y.avi"_s, noFrames.Bytes());
    discs.folders[u"sr3"_s] = home.Path(u"bad"_s);
    discs.drives << DiscDrive{u"sr3"_s, u"BAD"_s, true} << DiscDrive{u"sr4"_s, u"WORN"_s, true};
    discs.faults[u"sr4"_s] = u"worn"_s;
    StartPanel();
    const std::pair<int, std::string> kDrives[] = {
        {1, ""},
        {2, ""},
        {3, "16 : Run-time error '11':\n\nDivision by zero: " + home.Path(u"bad/x-y.avi"_s).toStdString()},
        {4, "16 : Run-time error '75':\n\nworn"}};
    for (const auto& [drive, message] : kDrives) {
        Get<QComboBox>("cboDrives").setCurrentIndex(drive);
        Press("cmdCDScan");
        EXPECT_EQ(TakeMessages().substr(0, std::max<std::size_t>(message.size(), 1)), message) << drive;
        EXPECT_FALSE(Get("frameAdd").isVisible()) << drive;
    }
    Press("optMethod_1");
    EXPECT_EQ(Step().substr(Step().find(' ')), " cmdBrowse");
    for (const QString& file : {Films("2-b.avi"), home.Path(u"sr1/notes.txt"_s), QString()}) {
        if (!file.isEmpty())
            dialogs.files << file;
        Press("cmdBrowse"); // the last one is cancelled
        EXPECT_FALSE(Get("frameAdd").isVisible()) << qPrintable(file);
    }
    EXPECT_EQ(Get<QLineEdit>("txtFilename").text(), home.Path(u"sr1/notes.txt"_s)) << "the path stays";
    Press("optMethod_0");
    Get<QComboBox>("cboDrives").setCurrentIndex(1);
    discs.drives.removeFirst();
    discs.Tell(kDiscLeft);
    EXPECT_EQ(Get<QComboBox>("cboDrives").currentText(), u" NOTES (sr1)"_s) << "a drive that goes leaves the selection where it was";
    discs.drives.clear();
    discs.whyNone = u"No drive."_s;
    discs.Tell(kDiscLeft);
    EXPECT_EQ(Label("lblNoDrives"), "No drive.");
    EXPECT_TRUE(Get("lblNoDrives").isVisible());
}

TEST_F(FilePanel, AFilmThatIsNotStoredLeavesThePanelAsItWas)
{
    StartPanel();
    EXPECT_TRUE(Drop({Films("1-a.avi")}));
    EXPECT_EQ(Get<QLineEdit>("txtGroup").text(), u"a"_s);
    Press("ImgTabMovieList");
    Entry("mnuAddAVI").trigger();
    EXPECT_TRUE(Get<QRadioButton>("optMethod_1").isChecked()) << "a file that was read waits for the user to come back";
    EXPECT_EQ(Step(), "txtSearch cmdAddMovie");
    Get<QLineEdit>("txtSearch").clear();
    Key(Qt::Key_Return);
    EXPECT_EQ(TakeMessages(), "0 : Title Search must have a value");

    Get<QLineEdit>("txtSearch").setText(u"lion"_s);
    InWindow("fAVIIMDb", [](QWidget& modal) { QTest::keyClick(&modal, Qt::Key_Escape); });
    Key(Qt::Key_Return);
    EXPECT_EQ(TakeMessages(), kNoFilm);
    instead = [](const QByteArray&) { return LoopbackServer::Reply{"HTTP/1.0 200 OK\r\n\r\n Sorry there were no matches for the title"}; };
    Key(Qt::Key_Return);
    EXPECT_EQ(TakeMessages(), std::string("0 : Sorry There Were No Matches Found | ") + kNoFilm);
    instead = nullptr;

    const qsizetype asked = site.Paths().size();
    Get<QCheckBox>("chkFilesizeDisc").setChecked(true);
    Get<QLineEdit>("txtDiscs").setText(u"two"_s);
    ChooseFilm("0912346");
    Press("cmdAddMovie");
    EXPECT_EQ(TakeMessages(), "16 : Run-time error '13':\n\nType mismatch: \"two\" is no number");
    EXPECT_EQ(site.Paths().size(), asked + 1) << "nothing was fetched but the search";
    Get<QLineEdit>("txtDiscs").setText(u"2"_s);

    catalog.Run("UPDATE Movie SET IMDB = '912346' WHERE Movie_ID = 2");
    ChooseFilm("0912346");
    Press("cmdAddMovie");
    EXPECT_EQ(TakeMessages(), "52 : The catalog has this film already:\nBrazil\n\nShall it be stored a second time?");
    titles.remove("0912345");
    ChooseFilm("0912345"); // has no page
    Press("cmdAddMovie");
    EXPECT_NE(TakeMessages().find("could not be fetched or read"), std::string::npos);
    instead = [&](const QByteArray& path) {
        if (path.startsWith("/Plot?"))
            QTimer::singleShot(0, window.get(), [&] { QTest::keyClick(&Get("frmProgress"), Qt::Key_Escape); });
        return path.startsWith("/Plot?") ? LoopbackServer::Reply{{}, LoopbackServer::Then::Stall} : LoopbackServer::Reply{};
    };
    dialogs.answers << kAnswerYes;
    ChooseFilm("0912347");
    Press("cmdAddMovie");
    EXPECT_EQ(TakeMessages(), "4 : Are you sure you wish to cancel IMDb retrieval?");
    EXPECT_EQ(catalog.Ask("SELECT count(*) FROM Movie"), u"3"_s);
    EXPECT_TRUE(window->isEnabled() && Get("frameAdd").isVisible());
    QCoreApplication::processEvents();
    EXPECT_EQ(Step(), "txtSearch cmdAddMovie");
}

TEST_F(FilePanel, TheEndOfTheProgramEndsARetrievalThatStoresNothing)
{
    StartPanel();
    EXPECT_TRUE(Drop({Films("1-a.avi")}));
    Get<QLineEdit>("txtSearch").setText(u"lion"_s);
    instead = [&](const QByteArray& path) {
        if (path.startsWith("/Plot?"))
            QTimer::singleShot(0, window.get(), [&] { window->close(); });
        return path.startsWith("/Plot?") ? LoopbackServer::Reply{{}, LoopbackServer::Then::Stall} : LoopbackServer::Reply{};
    };
    ChooseFilm("0912347");
    Press("cmdAddMovie");
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(catalog.Ask("SELECT count(*) FROM Movie"), u"3"_s);
}

TEST_F(FilePanel, AQueueIsWorkedOffFileByFile)
{
    StartPanel();
    EXPECT_FALSE(Drop({home.Path(u"sr1/notes.txt"_s)}));
    EXPECT_TRUE(Drop({Films()}));
    EXPECT_EQ(Label("lblQueue"), "File 1 of 3: 1-a.avi");
    EXPECT_EQ(Step(), "txtSearch cmdAddMovie");
    EXPECT_TRUE(Drop({Films("3-c.avi"), home.Path(u"sr0"_s)})); // one of them waits already
    EXPECT_EQ(Label("lblQueue"), "File 1 of 4: 1-a.avi");
    Press("ImgTabMovieList");
    Entry("mnuAddAVI").trigger();
    EXPECT_EQ(Label("lblQueue"), "File 1 of 4: 1-a.avi") << "a panel that was left keeps its queue";

    Get<QLineEdit>("txtSearch").setText(u"lion"_s);
    ChooseFilm("0912346");
    Key(Qt::Key_Return);
    EXPECT_EQ(TakeMessages(), "0 : Successfully added Another Affair (1990)");
    EXPECT_TRUE(QTest::qWaitFor([&] { return Label("lblQueue") == "File 3 of 4: 3-c.avi"; })) << "what cannot be read is passed over";
    EXPECT_EQ(Get<QLineEdit>("txtGroup").text(), u"c"_s);
    EXPECT_EQ(Step(), "txtSearch cmdAddMovie");
    Press("cmdSkip");
    EXPECT_EQ(Get<QLineEdit>("txtSearch").text(), u"the lives of others"_s);
    Press("cmdSkip");
    EXPECT_EQ(TakeMessages(), "48 : Files that cannot be read: 1\n\nPath/File access error: " + Films("2-b.avi").toStdString() +
                                  " (there is no video in it)");
    EXPECT_FALSE(Get("frameAdd").isVisible() || Get("cmdSkip").isVisible());
    EXPECT_EQ(Step(), "txtFilename cmdBrowse");

    catalog.Run("DROP TABLE VideoCodecs");
    dialogs.files << Films();
    Press("cmdFolder");
    EXPECT_NE(TakeMessages().find("VideoCodecs"), std::string::npos);
    EXPECT_EQ(Label("lblQueue"), "File 1 of 3: 1-a.avi") << "a failure of the catalog stops the queue";
    EXPECT_TRUE(Get("cmdSkip").hasFocus());
    Press("cmdEndQueue");
    EXPECT_EQ(Step(), "txtFilename cmdBrowse");
    EXPECT_EQ(NewTitles(), "Another Affair (1990)");
}

} // namespace
} // namespace kelvado
