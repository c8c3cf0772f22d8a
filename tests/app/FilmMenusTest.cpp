#include "MainWindow.h"

#include "ui/StatusCells.h"

namespace kelvado {
namespace {

class FilmMenus : public MainWindow
{
protected:
    /// Triggers an entry that opens a modal window, and works in that window by `steps`.
    void InDialog(const char* entry, const std::function<void(QDialog&)>& steps)
    {
        bool shown = false;
        QTimer::singleShot(0, window.get(), [&] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            ASSERT_TRUE(dialog);
            shown = true;
            steps(*dialog);
            if (dialog->isVisible())
                dialog->reject();
        });
        Entry(entry).trigger();
        EXPECT_TRUE(shown) << entry << " opened no window";
    }

    static void Choose(QDialog& dialog, const char* tree, const char16_t* caption)
    {
        auto* view = dialog.findChild<QTreeWidget*>(QString::fromLatin1(tree));
        for (QTreeWidgetItem* entry : view->findItems(QString::fromUtf16(caption), Qt::MatchExactly | Qt::MatchRecursive)) {
            if (entry->childCount() == 0)
                view->setCurrentItem(entry);
        }
    }
    static void PressIn(QDialog& dialog, const char* button)
    {
        QTest::mouseClick(dialog.findChild<QPushButton*>(QString::fromLatin1(button)), Qt::LeftButton);
    }
    QString Column(const char* column, const char* title)
    {
        return catalog.Ask(QByteArray("SELECT ") + column + " FROM Movie WHERE Title LIKE '" + title + "%'");
    }
};

TEST_F(FilmMenus, SortsFiltersAndViewModesReshapeTheTree)
{
    Start();
    Entry("mnuSortPrimDetail_2").trigger();
    EXPECT_EQ(Shown(), "DVD\n Alien\nRequest\n Brazil\nVHS\n 2001");
    Entry("mnuSortPrimDESC").trigger();
    EXPECT_TRUE(Entry("mnuSortPrimDESC").isChecked());
    EXPECT_EQ(Tree().model()->index(0, 0).data().toString(), u"VHS");
    InDialog("mnuSortPrimDetail_7", [](QDialog& dialog) {
        Choose(dialog, "tvSort", u"Movie");
        EXPECT_FALSE(dialog.findChild<QPushButton*>(u"cmdOkay"_s)->isEnabled());
        Choose(dialog, "tvSort", u"Year");
        PressIn(dialog, "cmdOkay");
    });
    EXPECT_EQ(window->State().gOptions->View.PrimarySort, u"Movie.Year");

    InDialog("mnuAddFilter", [this](QDialog& dialog) {
        Choose(dialog, "tvFilter", u"Year");
        dialog.findChild<QLineEdit*>(u"txtFilter"_s)->setText(u"x"_s);
        dialog.findChild<QComboBox*>(u"CboOperand"_s)->setCurrentIndex(1);
        PressIn(dialog, "cmdAddFilter");
        EXPECT_NE(TakeMessages().find("Yearmust be numeric."), std::string::npos);
        Choose(dialog, "tvFilter", u"Title");
        EXPECT_FALSE(dialog.findChild<QComboBox*>(u"CboOperand"_s)->isEnabled());
        dialog.findChild<QLineEdit*>(u"txtFilter"_s)->setText(u"alien"_s);
        PressIn(dialog, "cmdAddFilter");
    });
    EXPECT_EQ(window->State().FilterWhere, u"WHERE Movie.Title =\"alien\"");
    EXPECT_TRUE(Node(u"Alien"_s).isValid());
    EXPECT_FALSE(Node(u"Brazil"_s).isValid());
    EXPECT_EQ(Entry("MnuFilterRemoveSingle_0").text(), u"Title contains alien");
    dialogs.answers << kAnswerYes;
    Entry("mnuFilterRemoveAll").trigger();
    TakeMessages();
    Entry("mnuViewMode_1").trigger();
    EXPECT_TRUE(Node(u"Brazil"_s).isValid());
    EXPECT_FALSE(Node(u"Alien"_s).isValid());
    const QStringList cells = Get<StatusCells>("StatusCells").Cells();
    EXPECT_TRUE(cells.contains(u"View Mode: Requests"_s)) << qPrintable(cells.join(u'|'));
}

TEST_F(FilmMenus, FilmsAreMovedListedAndDeletedAndTheMenusFollow)
{
    Start();
    ClickNode(u"Alien"_s);
    Entry("mnuMovieNightAdd").trigger();
    EXPECT_EQ(Column("MovieNight", "Alien"), u"1");
    Entry("MnuMoveMyRequestE").trigger();
    EXPECT_EQ(Column("Format", "Alien"), u"Request");
    EXPECT_EQ(Tree().Selected(), Node(u"Alien"_s)) << "the new tree has it again";
    dialogs.answers << kAnswerYes;
    Press("Delete");
    EXPECT_NE(TakeMessages().find("Are you sure you want to delete Alien"), std::string::npos);
    EXPECT_EQ(Column("Title", "Alien"), u"<none>");
    EXPECT_FALSE(Node(u"Alien"_s).isValid());
    EXPECT_TRUE(Get<StatusCells>("StatusCells").Cells().contains(u"Total Requests: 1"_s));
    for (const QString& film : {u"Brazil"_s, u"2001"_s}) {
        ClickNode(film);
        dialogs.answers << kAnswerYes;
        Press("Delete");
        TakeMessages();
    }
    Page(u"/Templates/empty.html"_s); // says how to begin
}

TEST_F(FilmMenus, AFilmThatIsStoredAnewIsRenamedWhereItIsStillSelected)
{
    Start();
    ClickNode(u"Alien"_s);
    window->RetitleSelectedNode(2, u"Zulu"_s);
    EXPECT_EQ(Shown(), "0-9\n 2001\nA\n Alien\nB\n Brazil");
    window->RetitleSelectedNode(1, u"Aliens"_s);
    EXPECT_EQ(Shown(), "0-9\n 2001\nA\n Aliens\nB\n Brazil");
}

TEST_F(FilmMenus, FindSelectsWhatItMeetsAndACommandNeverTakesAGroupForAFilm)
{
    Start();
    ClickNode(u"Alien"_s);
    Entry("mnuFind").trigger();
    auto* find = window->findChild<QDialog*>(u"frmFind"_s);
    ASSERT_TRUE(find);
    QTest::keyClicks(find->findChild<QLineEdit*>(u"txtFind"_s), u"a"_s);
    PressIn(*find, "cmdFNext");
    EXPECT_EQ(Tree().Selected().data().toString(), u"A");
    EXPECT_FALSE(Entry("MnuMoveMyRequestE").isEnabled());
    PressIn(*find, "cmdFNext");
    PressIn(*find, "cmdFNext");
    EXPECT_EQ(Tree().Selected().data().toString(), u"Brazil");
    EXPECT_TRUE(Entry("MnuMoveMyMoviesE").isEnabled());
    EXPECT_EQ(TakeMessages(), "") << "a row waits below the film";
    PressIn(*find, "cmdFNext");
    EXPECT_EQ(TakeMessages(), "0 : Finished Searching The Document");
    PressIn(*find, "cmdCancel");
}

TEST_F(FilmMenus, AFilmIsLentAndTakenBackFromTheMenus)
{
    Start();
    ClickNode(u"Alien"_s);
    InDialog("mnuLoanMovieE", [](QDialog& dialog) {
        dialog.findChild<QComboBox*>(u"cboLoanTo"_s)->setEditText(u"Ines"_s);
        PressIn(dialog, "Command1");
    });
    EXPECT_NE(Column("Loan_ID", "Alien"), u"0");
    EXPECT_TRUE(Entry("mnuLoanReturnE").isEnabled());
    Entry("mnuLoanReturnE").trigger();
    EXPECT_EQ(Column("Loan_ID", "Alien"), u"0");
    EXPECT_TRUE(Entry("mnuLoanMovieE").isEnabled());
    Entry("mnuLoansManage").trigger();
    EXPECT_TRUE(window->findChild<QDialog*>(u"fLoan"_s));
}

TEST_F(FilmMenus, TheStatusMenuShowsAndHidesCells)
{
    Start();
    const auto cells = [this] { return Get<StatusCells>("StatusCells").Cells().join(u' '); };
    EXPECT_TRUE(cells().contains(u"Total Movies") && !cells().contains(u"Total Actors"));
    Entry("mnuStatusItem_9").trigger();
    Entry("mnuStatusItem_1").trigger();
    EXPECT_TRUE(!cells().contains(u"Total Movies") && cells().contains(u"Total Actors: "));
}

} // namespace
} // namespace kelvado
