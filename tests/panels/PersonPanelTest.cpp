#include "PanelFixture.h"

#include "panels/forms/frmPeople.h"
#include "ui/PictureBox.h"

#include <QSignalSpy>
#include <QTest>
#include <QtWidgets>

namespace kelvado {
namespace {

class PersonPanel : public PanelFixture
{
protected:
    PersonPanel()
    {
        catalog.Run("UPDATE Actor SET BirthName = 'Z&#246;e', BirthLocation = 'Rome', Biography = 'Lo' || char(13, 10) || 'ng.',"
                    "IsRetreived = 1, IMDB_LINK = 'nm1',"
                    "Film_History = 'Alien (1979)' || char(13, 10) || '0078748|Caf&#233; &#124; Bar (1990)' || char(13, 10) || '0000007|' "
                    "WHERE Actor_ID = 1");
    }
    void SetUp() override
    {
        panel.Actor_Edit_Page(1);
        panel.show();
        panel.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&panel));
    }
    template<typename Control>
    Control& Find(const char* name)
    {
        return *panel.findChild<Control*>(QLatin1StringView(name));
    }
    QString Box(const char* name) { return Find<QLineEdit>(name).text(); }
    QTreeView& List(const char* name) { return Find<QTreeView>(name); }
    QStringList Rows(const char* name)
    {
        QStringList rows;
        const QAbstractItemModel& model = *List(name).model();
        for (int row = 0; row < model.rowCount(); ++row) {
            QStringList cells;
            for (int column = 0; column < model.columnCount(); ++column)
                cells << model.index(row, column).data().toString();
            rows << cells.join(u'|');
        }
        return rows;
    }
    void Choose(const char* list, int row) { List(list).setCurrentIndex(List(list).model()->index(row, 0)); }
    QString Row(int id = 1) const
    {
        return catalog.Ask(qPrintable(u"SELECT Actor || '|' || ifnull(BirthName, '-') || '|' || ifnull(BirthDate, '-') || '|' || "
                                      "ifnull(BirthLocation, '-') || '|' || ifnull(Biography, '-') || '|' || ifnull(Height, '-') || '|' || "
                                      "IsRetreived FROM Actor WHERE Actor_ID = %1"_s.arg(id)));
    }

    frmPeople panel{context};
};

TEST_F(PersonPanel, ShowsThePersonDecodedWithAllFilms)
{
    EXPECT_EQ(Box("txtBirthName"), u"Zöe"_s);
    EXPECT_EQ(Find<QPlainTextEdit>("txtBio").toPlainText(), u"Lo\nng."_s);
    EXPECT_EQ(Rows("lstFHave"), QStringList({u"Alien|Queen"_s, u"Alien|Twin"_s}));
    EXPECT_EQ(Rows("lstFWant"), QStringList({u"Diva|Zoe"_s}));
    EXPECT_EQ(Rows("lstHistory"), QStringList({u"Alien (1979)"_s, u"Café | Bar (1990)"_s}));
    EXPECT_FALSE(panel.HasChanges());

    QSignalSpy menu(&panel, &frmPeople::HistoryMenuWanted);
    Q_EMIT List("lstHistory").customContextMenuRequested({5, 5});
    EXPECT_TRUE(menu.isEmpty()) << "nothing is selected";
    Choose("lstHistory", 1);
    Q_EMIT List("lstHistory").customContextMenuRequested({5, 5});
    EXPECT_EQ(menu.size(), 1);
    EXPECT_EQ(panel.HistoryNumber(), u"0000007"_s);
}

TEST_F(PersonPanel, AFilmShowsItsOtherActorsAndEnterOpensIt)
{
    Choose("lstFHave", 1);
    EXPECT_EQ(Rows("lstPeople"), QStringList({u"Bob Holm"_s}));
    Choose("lstFWant", 0);
    EXPECT_EQ(Rows("lstPeople"), QStringList());
    EXPECT_FALSE(List("lstFHave").selectionModel()->hasSelection());
    QSignalSpy film(&panel, &frmPeople::FilmWanted);
    List("lstFWant").setFocus();
    QTest::keyClick(&List("lstFWant"), Qt::Key_Return);
    ASSERT_EQ(film.size(), 1);
    EXPECT_EQ(film[0][0].toLongLong(), 2);
}

TEST_F(PersonPanel, EveryFieldIsSavedAndShowsWhatTheCatalogThenHolds)
{
    const QString others = Row(3);
    for (const char* name : {"txtName", "txtBirthName", "txtBirthDate", "txtBirthLocation", "txtHeight"}) {
        panel.Actor_Edit_Page(1);
        QTest::keyClicks(&Find<QLineEdit>(name), u"x"_s);
        EXPECT_TRUE(panel.HasChanges()) << name;
    }
    panel.Actor_Edit_Page(1);
    EXPECT_FALSE(panel.HasChanges());
    Find<QLineEdit>("txtName").setText(u" Zoe O'More "_s);
    Find<QLineEdit>("txtBirthDate").setText(u"1 May"_s);
    Find<QLineEdit>("txtBirthLocation").clear(); // an empty box leaves what is stored
    Find<QLineEdit>("txtHeight").setText(QString(150, u'1'));
    QSignalSpy stored(&panel, &frmPeople::PersonStored);
    QTest::keyClick(&panel, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(dialogs.boxes, QList<ScriptedDialogs::Box>({{u"Actor Information saved successfully."_s, kBoxPlain, QString()}}));
    EXPECT_EQ(Row(), u"Zoe O'More|Zöe|1 May|Rome|Lo\r\nng.|"_s + QString(100, u'1') + u"|1"_s);
    EXPECT_EQ(Row(3), others);
    EXPECT_EQ(Box("txtName") + u'|' + Box("txtBirthLocation"), u"Zoe O'More|Rome"_s);
    EXPECT_FALSE(panel.HasChanges());
    ASSERT_EQ(stored.size(), 1);
    EXPECT_EQ(stored[0][1].toString(), u"Zoe O'More"_s);

    Find<QPlainTextEdit>("txtBio").setPlainText(u"Short."_s);
    EXPECT_TRUE(panel.HasChanges());
    panel.Save();
    EXPECT_EQ(catalog.Ask("SELECT Biography FROM Actor WHERE Actor_ID = 1"), u"Short."_s);
}

TEST_F(PersonPanel, ARetrievalAsksAboutChangesFirst)
{
    QSignalSpy retrieve(&panel, &frmPeople::RetrieveWanted);
    Find<QLineEdit>("txtHeight").setText(u"6 ft"_s);
    dialogs.answers << kAnswerYes;
    Find<QPushButton>("cmdRetreive").click();
    EXPECT_EQ(retrieve.size(), 1);
    EXPECT_EQ(dialogs.Texts().value(0), u"You Have Made Changes To Zoe Moor.  Do You Want To Save These Changes?"_s);
    EXPECT_EQ(catalog.Ask("SELECT Height FROM Actor WHERE Actor_ID = 1"), u"6 ft"_s);
}

TEST_F(PersonPanel, APersonWhoIsGoneLeavesAnEmptyPanelAndAFailedSaveLosesNothing)
{
    Find<QLineEdit>("txtHeight").setText(u"6 ft"_s);
    catalog.Run("DELETE FROM Actor WHERE Actor_ID = 1");
    Find<QPushButton>("cmdSave").click();
    EXPECT_TRUE(dialogs.Texts().value(0).contains(u"This person is no longer in the catalog"_s));
    EXPECT_EQ(Box("txtHeight"), u"6 ft"_s);
    EXPECT_TRUE(panel.HasChanges());
    EXPECT_EQ(ErrorOf([&] { return panel.Actor_Edit_Page(1), 0; }), kErrNoCurrentRecord);
    EXPECT_EQ(Box("txtName") + Rows("lstHistory").join(u' ') + Rows("lstFHave").join(u' '), QString());
    EXPECT_FALSE(panel.isEnabled() || panel.HasChanges());
}

TEST_F(PersonPanel, NothingIsSavedIntoAnotherCatalog)
{
    TempCatalog other;
    other.Run("INSERT INTO Actor (Actor_ID, Actor) VALUES (1, 'Somebody Else')");
    Find<QLineEdit>("txtHeight").setText(u"6 ft"_s);
    state.comDiagFile.fileName = other.Path();
    Find<QPushButton>("cmdSave").click();
    EXPECT_EQ(other.Ask("SELECT Height FROM Actor"), u"<null>"_s);
    EXPECT_EQ(catalog.Ask("SELECT Height FROM Actor WHERE Actor_ID = 1"), u"6 ft"_s);
    panel.ClearIfGone();
    EXPECT_EQ(panel.ActorId(), 0);
}

TEST_F(PersonPanel, APictureIsStoredAtOnceWhicheverWayItCame)
{
    QImage picture(40, 60, QImage::Format_RGB32);
    picture.fill(Qt::red);
    ASSERT_TRUE(picture.save(home.Path(u"red.png"_s)));
    auto& box = Find<PictureBox>("Image1");
    auto& button = Find<QPushButton>("CmdImage");
    EXPECT_EQ(button.text().remove(u'&'), u"Set Image"_s);
    button.click(); // cancelled
    EXPECT_TRUE(dialogs.boxes.isEmpty());

    Find<QLineEdit>("txtHeight").setText(u"6 ft"_s);
    dialogs.files << home.Path(u"red.png"_s);
    button.click();
    EXPECT_EQ(button.text().remove(u'&'), u"Change Image"_s);
    EXPECT_TRUE(box.HasPicture());
    EXPECT_TRUE(panel.HasChanges()) << "the fields still wait";

    QGuiApplication::clipboard()->setImage(picture);
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return catalog.Ask("SELECT Image_ID FROM Actor WHERE Actor_ID = 1") == u"2"_s; }));
    EXPECT_EQ(catalog.Ask("SELECT group_concat(Image_ID || Extention) FROM Images"), u"2png"_s);

    for (const char* content : {"", "no picture at all"}) {
        home.Write(u"bad.jpg"_s, content);
        dialogs.files << home.Path(u"bad.jpg"_s);
        button.click();
    }
    EXPECT_EQ(dialogs.Texts(), (QStringList{home.Path(u"bad.jpg"_s) + u" empty or not found."_s,
                                            home.Path(u"bad.jpg"_s) + u" is not a picture that can be shown."_s}));
    EXPECT_TRUE(box.HasPicture());
    catalog.Run("CREATE TRIGGER stop BEFORE INSERT ON Images BEGIN SELECT RAISE(FAIL, 'stop'); END");
    dialogs.files << home.Path(u"red.png"_s);
    button.click();
    EXPECT_TRUE(dialogs.Texts().value(2).contains(u"An Error Has Occured, Kelvado will now be closed"_s));
    EXPECT_TRUE(panel.isVisible());
}

TEST(PictureBoxes, OnlyAPictureIsTakenAndNeverMoved)
{
    const TempHome home;
    home.Write(u"a.txt"_s, "text");
    QImage(4000, 20, QImage::Format_RGB32).save(home.Path(u"wide.png"_s));
    PictureBox box;
    QSignalSpy chosen(&box, &PictureBox::FileChosen);
    const auto drop = [&](const QString& name, Qt::DropActions offered) {
        QMimeData files;
        files.setUrls({QUrl::fromLocalFile(home.Path(name))});
        QDragEnterEvent enter({5, 5}, offered, &files, Qt::LeftButton, Qt::NoModifier);
        enter.setAccepted(false);
        QApplication::sendEvent(&box, &enter);
        if (!enter.isAccepted())
            return Qt::IgnoreAction;
        QDropEvent event({5, 5}, offered, &files, Qt::LeftButton, Qt::NoModifier);
        event.setDropAction(Qt::MoveAction); // what a file manager proposes
        QApplication::sendEvent(&box, &event);
        return event.dropAction();
    };
    EXPECT_EQ(drop(u"a.txt"_s, Qt::CopyAction), Qt::IgnoreAction);
    EXPECT_EQ(drop(u"wide.png"_s, Qt::MoveAction), Qt::IgnoreAction);
    EXPECT_EQ(drop(u"wide.png"_s, Qt::CopyAction | Qt::MoveAction), Qt::CopyAction);
    QCoreApplication::processEvents();
    ASSERT_EQ(chosen.size(), 1);
    box.SetPicture(chosen[0][0].toString());
    EXPECT_TRUE(box.HasPicture());
    QImage(7000, 7000, QImage::Format_Mono).save(home.Path(u"huge.png"_s)); // a few kilobytes that unpack to 196 MB
    QImage(8, 8, QImage::Format_RGB32).save(home.Path(u"claim.jpg"_s));
    QByteArray claim = home.Read(u"claim.jpg"_s);
    home.Write(u"claim.jpg"_s, claim.replace(claim.indexOf("\xFF\xC0") + 5, 4, "\x75\x30\x75\x30")); // 30000 by 30000
    home.Write(u"drawing.jpg"_s, R"(<svg xmlns="http://www.w3.org/2000/svg" width="9" height="9"><rect width="5" height="5"/></svg>)");
    for (const QString& name : {u"a.txt"_s, u"huge.png"_s, u"claim.jpg"_s, u"drawing.jpg"_s, u"gone.png"_s}) {
        box.SetPicture(home.Path(name));
        EXPECT_FALSE(box.HasPicture()) << name.toStdString();
    }
}

} // namespace
} // namespace kelvado
