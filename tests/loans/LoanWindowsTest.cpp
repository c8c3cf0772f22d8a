#include "LoanFixture.h"

#include "loans/forms/fLoan.h"
#include "loans/forms/fLoanAdd.h"
#include "ui/DatePicker.h"
#include "ui/Skinner.h"
#include "ui/ctxToolbar.h"

#include <QTest>
#include <QtWidgets>

namespace kelvado {
namespace {

template<typename Control>
Control& Find(QWidget& window, const char* name)
{
    return *window.findChild<Control*>(QString::fromLatin1(name));
}

void Press(QWidget& window, const char* button)
{
    QTest::mouseClick(&Find<QAbstractButton>(window, button), Qt::LeftButton);
}

void Show(QWidget& window)
{
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
}

class LoanWindows : public LoanFixture
{
protected:
    /// What happens in the entry dialog that the next action opens.
    void InDialog(std::function<void(fLoanAdd&)> steps)
    {
        m_seen = false;
        QTimer::singleShot(0, &m_owner, [this, steps] {
            auto* dialog = qobject_cast<fLoanAdd*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            m_seen = true;
            steps(*dialog);
            if (dialog->isVisible())
                dialog->reject();
        });
    }
    bool DialogWasSeen() const { return m_seen; }

    static QTreeView& List(fLoan& window) { return Find<QTreeView>(window, "lvLoans"); }
    static void Select(fLoan& window, int row) { List(window).setCurrentIndex(List(window).model()->index(row, 0)); }
    static QString Cell(fLoan& window, int row, LoanColumn column)
    {
        return List(window).model()->index(row, static_cast<int>(column)).data().toString();
    }
    QString LastBox() const { return dialogs.boxes.isEmpty() ? QString() : dialogs.boxes.constLast().text; }

    Skinner skinner;

private:
    QObject m_owner;
    bool m_seen = false;
};

TEST_F(LoanWindows, ACheckedInLoanStaysSelectedAndAFailureLeavesTheWindowOpen)
{
    fLoan window(context, skinner, nullptr);
    Show(window);
    Select(window, 0);
    Press(window, "CheckIn");
    EXPECT_TRUE(dialogs.boxes.isEmpty());
    EXPECT_EQ(Cell(window, 0, LoanColumn::ReturnDate), u"2024-01-31"_s);
    QTest::keyClick(&window, Qt::Key_I, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !dialogs.boxes.isEmpty(); }));
    EXPECT_EQ(LastBox(), u"Run-time error '3021':\n\nThere is no current record"_s);
    EXPECT_TRUE(window.isVisible());
}

TEST_F(LoanWindows, ActionsOnALoanNeedASelectedRow)
{
    fLoan window(context, skinner, nullptr);
    Show(window);
    const auto anyOn = [&] {
        ctxToolbar& tools = Find<ctxToolbar>(window, "toolMain");
        return tools.IsButtonEnabled(2) || tools.IsButtonEnabled(3) || tools.IsButtonEnabled(4);
    };
    EXPECT_FALSE(anyOn());
    for (const char* button : {"CheckIn", "Edit", "delete"})
        Press(window, button);
    QTest::keyClick(&List(window), Qt::Key_Delete);
    EXPECT_TRUE(dialogs.boxes.isEmpty());
    Select(window, 1);
    EXPECT_TRUE(anyOn());
    List(window).clearSelection();
    EXPECT_FALSE(anyOn());
}

TEST_F(LoanWindows, DeletingAsksFirstAndSelectsNoOtherLoan)
{
    fLoan window(context, skinner, nullptr);
    Show(window);
    Select(window, 0);
    QTest::keyClick(&List(window), Qt::Key_Delete); // answered with No
    EXPECT_EQ(dialogs.boxes, QList<ScriptedDialogs::Box>({{u"Are you sure you with to permanetly remove this loan ?"_s, 52, QString()}}));
    EXPECT_EQ(dialogs.lossQuestions.size(), 1);
    EXPECT_EQ(Stored(), kBefore);
    dialogs.answers << kAnswerYes;
    Press(window, "delete");
    EXPECT_EQ(Stored(), kBob + u" ; "_s);
    EXPECT_EQ(List(window).model()->rowCount(), 1);
    EXPECT_FALSE(List(window).selectionModel()->hasSelection());
}

TEST_F(LoanWindows, ANewLoanShowsAtTheNextRefresh)
{
    fLoan window(context, skinner, nullptr);
    Show(window);
    InDialog([&](fLoanAdd& dialog) {
        EXPECT_EQ(dialog.windowTitle(), u"Loan A Movie"_s);
        Find<QComboBox>(dialog, "cboMovie").setCurrentIndex(3);
        Find<QComboBox>(dialog, "cboLoanTo").setEditText(u"Eve"_s);
        Press(dialog, "Command1");
    });
    Press(window, "CheckOut");
    ASSERT_TRUE(DialogWasSeen());
    EXPECT_EQ(Stored(), kAnn + u" | "_s + kBob + u" | 12:3:Eve:2024-01-31:2024-02-14:-:- ; 1=10 3=12"_s);
    EXPECT_EQ(List(window).model()->rowCount(), 2);
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(&List(window), Qt::Key_F5);
    EXPECT_EQ(List(window).model()->rowCount(), 3);
}

TEST_F(LoanWindows, EnterEditsTheSelectedLoan)
{
    fLoan window(context, skinner, nullptr);
    Show(window);
    Select(window, 0);
    InDialog([&](fLoanAdd& dialog) {
        EXPECT_EQ(dialog.windowTitle(), u"Edit Loan"_s);
        EXPECT_EQ(Find<QLabel>(dialog, "lblMovie").text().remove(u'&'), u"Loaned Movie:"_s);
        EXPECT_FALSE(Find<QComboBox>(dialog, "cboMovie").isEnabled());
        EXPECT_EQ(Find<QComboBox>(dialog, "cboLoanTo").currentText(), u"Ann O'Neil"_s);
        Find<DatePicker>(dialog, "DTDate").SetDate(std::nullopt); // leaves the stored one
        Find<DatePicker>(dialog, "DTDue").SetDate(QDate(2024, 4, 5));
        Press(dialog, "Command1");
    });
    QTest::keyClick(&List(window), Qt::Key_Return);
    ASSERT_TRUE(DialogWasSeen());
    EXPECT_EQ(Cell(window, 0, LoanColumn::LoanDate) + u' ' + Cell(window, 0, LoanColumn::DueDate), u"2024-01-02 2024-04-05"_s);
}

TEST_F(LoanWindows, TheManagerNeverTouchesALoanOfAnotherCatalog)
{
    TempCatalog other;
    other.Run("INSERT INTO Movie (Movie_ID, Title, Loan_ID) VALUES (7, 'Diva', 10); INSERT INTO Loans (Loan_ID, Movie_ID, LoanedTo) "
              "VALUES (10, 7, 'Zoe')");
    fLoan window(context, skinner, nullptr);
    Show(window);
    Select(window, 0);
    state.comDiagFile.fileName = other.Path();
    dialogs.answers << kAnswerYes;
    Press(window, "delete");
    EXPECT_TRUE(LastBox().startsWith(u"Run-time error '91'"_s));
    EXPECT_EQ(other.Ask("SELECT count(*) FROM Loans"), u"1"_s);
    EXPECT_EQ(Cell(window, 0, LoanColumn::FilmTitle), u"Diva"_s);
}

TEST_F(LoanWindows, TheEntryIsFilledByKeyboardAlone)
{
    fLoanAdd dialog(LoanMode::Loan, context, nullptr);
    dialog.Load_NewLoan();
    Show(dialog);
    EXPECT_EQ(Find<QLabel>(dialog, "lblMovie").text().remove(u'&'), u"Movie to Loan:"_s);
    EXPECT_FALSE(Find<DatePicker>(dialog, "DTReturn").isEnabled());
    const auto key = [](Qt::Key code) { QTest::keyClick(QApplication::focusWidget(), code); };
    const auto type = [](const QString& text) { QTest::keyClicks(QApplication::focusWidget(), text); };
    ASSERT_TRUE(Find<QComboBox>(dialog, "cboMovie").hasFocus());

    type(u"LIE"_s); // of the two films "Alien" the second is picked, the one that is out
    auto* popup = Find<QComboBox>(dialog, "cboMovie").completer()->popup();
    ASSERT_TRUE(popup->isVisible());
    for (const Qt::Key press : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return})
        QTest::keyClick(popup, press);
    key(Qt::Key_Tab);
    type(u"an"_s); // not completed to the known name
    popup = Find<QComboBox>(dialog, "cboLoanTo").findChild<QCompleter*>()->popup();
    ASSERT_TRUE(popup->isVisible());
    QTest::keyClick(popup, Qt::Key_Tab);
    key(Qt::Key_Space); // without a loan date
    key(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget()->accessibleName(), u"Has a Due Date"_s);
    key(Qt::Key_Tab);
    type(u"2024-03-09"_s);
    key(Qt::Key_Tab);
    EXPECT_TRUE(Find<QPlainTextEdit>(dialog, "txtNotes").hasFocus());
    type(u"x"_s);
    key(Qt::Key_Tab);
    key(Qt::Key_Return);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(Stored(), kAnn + u" | "_s + kBob + u" | 12:1:an:-:2024-03-09:-:x ; 1=12"_s);
}

TEST_F(LoanWindows, ATextThatIsNoFilmIsNoChoice)
{
    fLoanAdd dialog(LoanMode::Loan, context, nullptr);
    dialog.Load_NewLoan();
    Show(dialog);
    QComboBox& films = Find<QComboBox>(dialog, "cboMovie");
    Find<QComboBox>(dialog, "cboLoanTo").setEditText(u"Eve"_s);
    films.setCurrentIndex(2);
    for (const QString& text : {u""_s, u"Braz"_s}) {
        films.setEditText(text);
        Press(dialog, "Command1");
    }
    EXPECT_EQ(dialogs.boxes.size(), 2);
    EXPECT_TRUE(dialog.isVisible());
    films.setEditText(u"chinatown"_s);
    catalog.Run("ALTER TABLE Loans RENAME TO Away");
    Press(dialog, "Command1");
    EXPECT_TRUE(dialog.isVisible()) << "what could not be stored can be tried again";
    catalog.Run("ALTER TABLE Away RENAME TO Loans");
    Press(dialog, "Command1");
    EXPECT_EQ(catalog.Ask("SELECT Loan_ID FROM Movie WHERE Movie_ID = 3"), u"12"_s);
}

TEST_F(LoanWindows, AGivenFilmStandsAndACancelWritesNothing)
{
    InDialog([&](fLoanAdd& dialog) {
        EXPECT_EQ(Find<QComboBox>(dialog, "cboMovie").currentText(), u"Chinatown"_s);
        EXPECT_FALSE(Find<QComboBox>(dialog, "cboMovie").isEnabled());
        EXPECT_EQ(Find<QComboBox>(dialog, "cboLoanTo").currentText(), QString());
        Find<QComboBox>(dialog, "cboLoanTo").setEditText(u"Eve"_s);
        Press(dialog, "cmdCancel");
    });
    LoanFilm(3, context, skinner, nullptr);
    ASSERT_TRUE(DialogWasSeen());
    EXPECT_EQ(Stored(), kBefore);
}

TEST(DatePickers, ADateCanBeAbsentAndComesBack)
{
    DatePicker picker;
    picker.SetOffer(QDate(2024, 1, 31));
    auto* box = picker.findChild<QCheckBox*>();
    auto* field = picker.findChild<QDateEdit*>();
    EXPECT_EQ(picker.Date(), std::nullopt);
    EXPECT_EQ(field->text().trimmed(), QString());
    box->click();
    EXPECT_EQ(field->text(), u"2024-01-31"_s);
    field->setDate(QDate(1850, 7, 1)); // before the calendar's usual first year
    box->click();
    EXPECT_EQ(picker.Date(), std::nullopt);
    box->click();
    EXPECT_EQ(picker.Date(), QDate(1850, 7, 1));
}

} // namespace
} // namespace kelvado
