#include "MainWindow.h"

#include "core/Literals.h"
#include "panels/forms/Form3.h"
#include "panels/forms/frmAddManual.h"
#include "panels/forms/frmPeople.h"
#include "ui/cTabControl.h"

#include <QAccessible>

namespace kelvado {
namespace {

class Editing : public MainWindow
{
protected:
    Form3& Film() const { return Get<Form3>("Form3"); }
    QLineEdit& Box(const char* name, const QWidget* panel = nullptr) const
    {
        return *(panel ? panel : &Film())->findChild<QLineEdit*>(QLatin1StringView(name));
    }
    QString Selected() const { return Tree().currentIndex().data().toString(); }
    QString Title(int id) const { return catalog.Ask(qPrintable(u"SELECT Title FROM Movie WHERE Movie_ID = %1"_s.arg(id))); }
    void EditAlien()
    {
        ClickNode(u"Alien"_s);
        Press("ImgTabMovieEdit");
    }
    void ClickActor(const QString& name)
    {
        Tree().expand(Node(u"A"_s));
        Tree().expand(Node(u"Alien"_s));
        ClickNode(name);
    }
};

TEST_F(Editing, TheTabAsksBeforeItIsLeftAndTheTreeFollowsWhatWasSaved)
{
    Start();
    EditAlien();
    EXPECT_EQ(Box("txtTitle").text(), u"Alien"_s);
    EXPECT_EQ(QApplication::focusWidget(), &Box("txtTitle"));
    QTest::keyClicks(&Box("txtTitle"), u"Zalien"_s);
    Press("ImgTabMovieList");
    EXPECT_EQ(TakeMessages(), "4 Edit Interface: You Have Made Changes To Zalien.  Do You Want To Save These Changes? | "
                              "0 Edit Interface: Changed To Zalien Have Been Disregarded.");
    EXPECT_EQ(Title(1), u"Alien"_s);

    Press("ImgTabMovieEdit");
    EXPECT_EQ(Box("txtTitle").text(), u"Alien"_s);
    Box("txtTitle").setText(u"Dropped"_s);
    Press("ImgTabMovieEdit"); // its own tab asks too
    ClickNode(u"2001"_s);
    ClickNode(u"Alien"_s);
    TakeMessages();
    EXPECT_EQ(Title(1), u"Alien"_s) << "what was disregarded is never stored";
    Box("txtTitle").setText(u"Old"_s);
    catalog.Run("UPDATE Movie SET Title = 'Fetched' WHERE Movie_ID = 1");
    window->ShowSelection(); // as after a retrieval
    EXPECT_EQ(Title(1) + Box("txtTitle").text(), u"FetchedFetched"_s);
    Box("txtTitle").setFocus();
    Box("txtTitle").selectAll();
    QTest::keyClicks(&Box("txtTitle"), u"Zalien"_s);
    QTest::keyClick(&Box("txtTitle"), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(TakeMessages(), "0 Edit Interface: Your Changes Have Been Saved");
    EXPECT_EQ(Selected(), u"Zalien"_s);
    EXPECT_EQ(Node(u"Zalien"_s).parent().data(), u"Z"_s);
    EXPECT_EQ(Box("txtTitle").text(), u"Zalien"_s);
    EXPECT_FALSE(Film().HasChanges());
}

TEST_F(Editing, AnotherFilmInTheTreeSavesFirstOrStaysWhereThatFails)
{
    Start();
    EditAlien();
    Box("txtIndex").setText(u"A-1"_s);
    ClickNode(u"2001"_s);
    EXPECT_EQ(catalog.Ask("SELECT [Index] FROM Movie WHERE Movie_ID = 1"), u"A-1"_s);
    EXPECT_EQ(Box("txtTitle").text(), u"2001"_s);
    Box("txtPurchasePrice").setText(u"much"_s);
    ClickNode(u"Alien"_s);
    EXPECT_NE(TakeMessages().find("Purchase Price"), std::string::npos);
    EXPECT_EQ(Selected() + Box("txtTitle").text() + Box("txtPurchasePrice").text(), u"20012001much"_s);
    Box("txtPurchasePrice").setText(u"3"_s);
    ClickActor(u"Tom Skerritt"_s); // from the film's panel straight to the person's
    EXPECT_EQ(window->State().CurrentSection, kActorInfo);
    EXPECT_EQ(catalog.Ask("SELECT PurchasePrice FROM Movie WHERE Movie_ID = 3"), u"3"_s);
}

TEST_F(Editing, TheProgramDoesNotEndOverChangesThatCannotBeSaved)
{
    Start();
    EditAlien();
    Entry("MnuMoveMyRequestE").trigger();
    EXPECT_EQ(Get<QComboBox>("cboFormat").currentText(), u"Request"_s) << "a clean panel follows what menus do";
    Box("txtTitle").setText(u"Aliens"_s);
    Box("txtPurchasePrice").clear();
    dialogs.answers << kAnswerYes;
    EXPECT_FALSE(window->close());
    EXPECT_NE(TakeMessages().find("Purchase Price"), std::string::npos);
    Box("txtPurchasePrice").setText(u"1"_s);
    catalog.Run("DELETE FROM Movie WHERE Movie_ID = 1");
    ClickNode(u"2001"_s);
    EXPECT_NE(TakeMessages().find("no longer in the catalog"), std::string::npos);
    EXPECT_EQ(Box("txtTitle").text(), u"2001"_s) << "a film that is gone keeps nobody";
    Entry("mnuManualEntry").trigger();
    const auto& manual = Get<frmAddManual>("frmAddManual");
    Box("txtTitle", &manual).setText(u"By Hand"_s);
    Entry("mnuImdb").trigger();
    EXPECT_FALSE(manual.isVisible());
    dialogs.answers << kAnswerYes;
    EXPECT_TRUE(window->close());
    EXPECT_NE(TakeMessages().find("Successfully Added By Hand"), std::string::npos);
}

TEST_F(Editing, APersonIsRenamedAndLeadsToAFilm)
{
    Start();
    ClickActor(u"Tom Skerritt"_s);
    Press("ImgTabActorInfo");
    auto& panel = Get<frmPeople>("frmPeople");
    Box("txtName", &panel).setText(u"Tom S."_s);
    panel.findChild<QPushButton*>(u"cmdSave"_s)->click();
    EXPECT_EQ(TakeMessages(), "0 : Actor Information saved successfully.");
    EXPECT_EQ(Selected(), u"Tom S."_s);
    auto& films = *panel.findChild<QTreeView*>(u"lstFHave"_s);
    films.setCurrentIndex(films.model()->index(0, 0));
    QTest::keyClick(&films, Qt::Key_Return);
    EXPECT_EQ(window->State().CurrentSection, kMovieList);
    EXPECT_EQ(Selected(), u"Alien"_s);
    ClickNode(u"2001"_s);
    Press("ImgTabActorInfo");
    EXPECT_EQ(TakeMessages(), "64 : No Kelvado Catolog is open");
    EXPECT_FALSE(panel.isEnabled());
}

TEST_F(Editing, AFilmThatIsDeletedAndACatalogThatIsChangedEmptyThePanel)
{
    Start();
    EditAlien();
    dialogs.answers << kAnswerYes;
    Entry("mnuDelete").trigger();
    TakeMessages();
    EXPECT_FALSE(Film().Film().has_value());

    ClickNode(u"2001"_s);
    Box("txtTitle").setText(u"2010"_s);
    const TempCatalog other;
    other.Run("INSERT INTO Movie (Movie_ID, Title) VALUES (3, 'Other')");
    dialogs.answers << kAnswerYes;
    dialogs.files << other.Path();
    Entry("mnuFileOpen").trigger();
    EXPECT_EQ(TakeMessages(), "4 Edit Interface: You Have Made Changes To 2010.  Do You Want To Save These Changes?");
    EXPECT_EQ(Title(3), u"2010"_s);
    EXPECT_EQ(other.Ask("SELECT Title FROM Movie"), u"Other"_s);
}

TEST_F(Editing, AFilmIsEnteredByKeysAlone)
{
    Start();
    Entry("mnuManualEntry").trigger();
    const auto& panel = Get<frmAddManual>("frmAddManual");
    EXPECT_EQ(QApplication::focusWidget(), &Box("txtTitle", &panel));
    const auto type = [](const char* text) {
        QTest::keyClicks(QApplication::focusWidget(), QLatin1StringView(text));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    };
    for (const char* text : {"Metropolis (1927)", "Metropolis", "1927", "DVD", "2"})
        type(text);
    const auto nextPage = [&] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_PageDown, Qt::ControlModifier); };
    for (int page = 0; page < 3; ++page)
        nextPage();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), u"sldMyRating"_s);
    for (int star = 0; star < 8; ++star)
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    nextPage();
    nextPage();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QTest::keyClicks(QApplication::focusWidget(), u"Drama"_s); // the list goes to the genre
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(TakeMessages(), "0 Manual Add Successful: Successfully Added Metropolis (1927)");
    EXPECT_EQ(
        catalog.Ask("SELECT Title || TitleNY || Year || Format || Number || MyRating || (SELECT Genre FROM Genre JOIN GenreLink USING "
                    "(Genre_ID) WHERE Movie_ID = 4) FROM Movie WHERE Movie_ID = 4"),
        u"Metropolis (1927)Metropolis1927DVD28Drama"_s);
    EXPECT_TRUE(Node(u"Metropolis (1927)"_s).isValid());
    EXPECT_EQ(QApplication::focusWidget(), &Box("txtTitle", &panel));
}

TEST_F(Editing, EveryControlOfThePanelsIsReachedByTabAndHasAName)
{
    Start();
    EditAlien();
    auto& strip = Get<cTabControl>("TabBarMovie");
    QStringList passed;
    for (int page = 1; page <= 7; ++page) {
        strip.setFocus();
        do {
            QWidget* control = QApplication::focusWidget();
            EXPECT_FALSE(QAccessible::queryAccessibleInterface(control)->text(QAccessible::Name).isEmpty())
                << qPrintable(control->objectName());
            passed << control->objectName();
            QTest::keyClick(control, Qt::Key_Tab);
        } while (Film().isAncestorOf(QApplication::focusWidget()) && passed.size() < 200);
        strip.setFocus();
        QTest::keyClick(&strip, Qt::Key_Right);
    }
    for (const QWidget* control : Film().findChildren<QWidget*>()) {
        const QString name = control->objectName();
        const bool isField = name.startsWith(u"txt", Qt::CaseInsensitive) || name.startsWith(u"cbo") || name.startsWith(u"cmd");
        const bool isStop = control->isEnabled() && (control->focusPolicy() & Qt::TabFocus) != 0 && !name.startsWith(u"TxtInfos");
        EXPECT_TRUE(!isField || !isStop || passed.contains(name)) << qPrintable(name);
    }
}

} // namespace
} // namespace kelvado
