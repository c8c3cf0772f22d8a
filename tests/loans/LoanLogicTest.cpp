#include "LoanFixture.h"

#include "loans/LoanActions.h"
#include "loans/LoanEntry.h"
#include "loans/LoanModel.h"

#include <QFile>

namespace kelvado {
namespace {

class LoanLogic : public LoanFixture
{
protected:
    bool Store(LoanMode mode, std::optional<qint64> film, const LoanTerms& terms)
    {
        return StoreLoan(mode, {film, terms}, catalog.Path(), dialogs);
    }
    static QStringList Films(const LoanEntry& entry)
    {
        QStringList films;
        for (const Choice& film : entry.films)
            films << film.text + u' ' + QString::number(film.number);
        films.sort();
        return films;
    }
    QStringList Row(const LoanModel& model, int row) const
    {
        QStringList texts;
        for (int column = 0; column < model.columnCount(); ++column)
            texts << model.index(row, column).data().toString();
        return texts;
    }
};

TEST_F(LoanLogic, ACheckInDatesTheLoanAndFreesTheFilmOrWritesNothing)
{
    catalog.Run("UPDATE Movie SET Loan_ID = 77 WHERE Movie_ID = 3"); // its loan is gone
    const QString before = Stored();
    for (const qint64 loan : {11, 77, 99, 0})
        EXPECT_EQ(ErrorOf([&] { Return_Item(loan, catalog.Path(), clock); }), kErrNoCurrentRecord) << loan;
    for (const qint64 film : {2, 3, 99})
        EXPECT_EQ(ErrorOf([&] { ReturnFilm(film, catalog.Path(), clock); }), kErrNoCurrentRecord) << film;
    EXPECT_EQ(Stored(), before);
    ReturnFilm(1, catalog.Path(), clock);
    const QString returned = u"10:1:Ann O'Neil:2024-01-02:-:2024-01-31:with box | "_s + kBob + u" ; 3=77"_s;
    EXPECT_EQ(Stored(), returned);
    clock.now = QDate(2024, 2, 20);
    EXPECT_EQ(ErrorOf([&] { Return_Item(10, catalog.Path(), clock); }), kErrNoCurrentRecord); // a second time
    EXPECT_EQ(Stored(), returned);
}

TEST_F(LoanLogic, DeletingTakesTheLoanAndFreesItsFilmWhereThereAreAny)
{
    Delete_Loan(99, catalog.Path());
    EXPECT_EQ(Stored(), kBefore);
    Delete_Loan(11, catalog.Path());
    EXPECT_EQ(Stored(), kAnn + u" ; 1=10"_s);
    catalog.Run("UPDATE Movie SET Loan_ID = 77 WHERE Movie_ID = 3");
    Delete_Loan(77, catalog.Path()); // only the film knows of it
    Delete_Loan(10, catalog.Path());
    EXPECT_EQ(catalog.Ask("SELECT (SELECT count(*) FROM Loans) || ' ' || (SELECT sum(Loan_ID) FROM Movie)"), u"0 0"_s);
}

TEST_F(LoanLogic, WhatFailsHalfWayIsNotStored)
{
    catalog.Run("CREATE TRIGGER full BEFORE UPDATE ON Movie BEGIN SELECT RAISE(FAIL, 'disk full'); END");
    EXPECT_EQ(ErrorOf([&] { Return_Item(10, catalog.Path(), clock); }), kErrDatabase);
    EXPECT_EQ(ErrorOf([&] { ReturnFilm(1, catalog.Path(), clock); }), kErrDatabase);
    EXPECT_EQ(ErrorOf([&] { Delete_Loan(10, catalog.Path()); }), kErrDatabase);
    EXPECT_EQ(ErrorOf([&] { Store(LoanMode::Loan, 3, {u"Eve"_s, std::nullopt, std::nullopt, QString()}); }), kErrDatabase);
    EXPECT_EQ(Stored(), kBefore);
}

TEST_F(LoanLogic, TheListHasARowForEachLoanOfAFilmThatIsThereAndABlankForNull)
{
    catalog.Run(
        "INSERT INTO Loans (Loan_ID, Movie_ID, LoanedTo, DueDate, Notes) VALUES (12, 3, NULL, '1899-12-30', 'two' || char(10) || 'lines'), "
        "(13, 99, 'Eve', NULL, NULL), (14, 2, 'Eve', NULL, NULL)"); // 14: lent again
    LoanModel model;
    model.Refresh(catalog.Path());
    ASSERT_EQ(model.rowCount(), 4);
    EXPECT_EQ(model.RowOf(14), 3);
    EXPECT_EQ(Row(model, 0), QStringList({u"Alien"_s, u"Ann O'Neil"_s, u"2024-01-02"_s, u" "_s, u" "_s, u"with box"_s}));
    EXPECT_EQ(Row(model, 1), QStringList({u"Brazil"_s, u"Bob"_s, u"2023-05-01"_s, u"2023-05-15"_s, u"2023-05-09"_s, u" "_s}));
    EXPECT_EQ(Row(model, 2), QStringList({u"Chinatown"_s, u" "_s, u" "_s, u""_s, u" "_s, u"two lines"_s}));
    EXPECT_EQ(model.index(1, 3).data(LoanModel::TagRole), 11);
    EXPECT_EQ(model.headerData(5, Qt::Horizontal), u"Loan Notes"_s);
    EXPECT_EQ(ErrorOf([&] { model.Refresh(catalog.Folder() + u"/none.kvd"_s); }), kErrDatabase);
    EXPECT_EQ(model.rowCount(), 4); // the list that cannot be read anew stays
    EXPECT_EQ(model.CatalogPath(), catalog.Path());
}

TEST_F(LoanLogic, ANewLoanOffersEveryFilmAndEveryNameOnce)
{
    catalog.Run("INSERT INTO Loans (Movie_ID, LoanedTo) VALUES (3, 'bob'), (3, NULL), (3, 'Ann O''Neil')");
    const LoanEntry entry = Load_NewLoan(catalog.Path(), clock);
    EXPECT_EQ(Films(entry), QStringList({u"Alien 1"_s, u"Alien 4"_s, u"Brazil 2"_s, u"Chinatown 3"_s}));
    EXPECT_FALSE(entry.filmIsGiven);
    EXPECT_EQ(entry.borrowers, QStringList({u"Ann O'Neil"_s, u"Bob"_s}));
    EXPECT_EQ(entry.terms.loanDate, QDate(2024, 1, 31));
    EXPECT_EQ(entry.terms.dueDate, QDate(2024, 2, 14));
    EXPECT_EQ(entry.returnDate, std::nullopt);
}

TEST_F(LoanLogic, ADirectLoanHasOneFilmAndANameForEachLoan)
{
    catalog.Run("INSERT INTO Loans (Movie_ID, LoanedTo) VALUES (3, 'Bob')");
    const LoanEntry entry = Load_DirectLoan(3, catalog.Path(), clock);
    EXPECT_EQ(Films(entry), QStringList(u"Chinatown 3"_s));
    EXPECT_TRUE(entry.filmIsGiven);
    EXPECT_EQ(entry.borrowers, QStringList({u"Ann O'Neil"_s, u"Bob"_s, u"Bob"_s}));
    EXPECT_EQ(entry.terms.dueDate, QDate(2024, 2, 14));

    const LoanEntry none = Load_DirectLoan(0, catalog.Path(), clock);
    EXPECT_TRUE(none.films.empty() && none.borrowers.isEmpty() && !none.terms.loanDate);
    EXPECT_EQ(ErrorOf([&] { Load_DirectLoan(99, catalog.Path(), clock); }), kErrNoCurrentRecord);
}

TEST_F(LoanLogic, OnlyAnOpenLoanCanBeEdited)
{
    const LoanEntry entry = Edit_Loan(10, catalog.Path());
    EXPECT_EQ(entry.caption, u"Edit Loan"_s);
    EXPECT_EQ(Films(entry), QStringList(u"Alien 10"_s)); // the loan's number, not the film's
    EXPECT_EQ(entry.borrowers, QStringList(entry.terms.loanedTo));
    EXPECT_EQ(entry.terms.loanedTo, u"Ann O'Neil"_s);
    EXPECT_EQ(entry.terms.loanDate, QDate(2024, 1, 2));
    EXPECT_EQ(entry.terms.dueDate, std::nullopt);
    EXPECT_EQ(entry.terms.notes, u"with box"_s);

    EXPECT_TRUE(Edit_Loan(0, catalog.Path()).films.empty());
    EXPECT_EQ(ErrorOf([&] { Edit_Loan(11, catalog.Path()); }), kErrNoCurrentRecord);
}

TEST_F(LoanLogic, AFilmAndABorrowerAreAskedForInThisOrder)
{
    EXPECT_FALSE(Store(LoanMode::Loan, std::nullopt, {}));
    EXPECT_FALSE(Store(LoanMode::Edit, 10, {}));
    EXPECT_EQ(dialogs.boxes, QList<ScriptedDialogs::Box>({{u"You must select a movie to loan."_s, kBoxPlain, u"Add Loan"_s},
                                                          {u"You must loan the movie to someone."_s, kBoxPlain, u"Add Loan"_s}}));
    EXPECT_EQ(Stored(), kBefore);
}

TEST_F(LoanLogic, ANewLoanStoresWhatIsGivenAndMarksItsFilm)
{
    EXPECT_TRUE(Store(LoanMode::Loan, 3, {u"D'Arcy"_s, QDate(2024, 1, 31), QDate(2024, 2, 14), u" 2 discs"_s}));
    EXPECT_TRUE(Store(LoanMode::Loan, 1, {u"Eve"_s, std::nullopt, std::nullopt, u"   "_s})); // is out: the old loan stays open
    EXPECT_EQ(ErrorOf([&] { Store(LoanMode::Loan, 99, {u"Eve"_s, std::nullopt, std::nullopt, QString()}); }), kErrNoCurrentRecord);
    EXPECT_EQ(Stored(), kAnn + u" | "_s + kBob +
                            u" | 12:3:D'Arcy:2024-01-31:2024-02-14:-: 2 discs | 13:1:Eve:-:-:-:- ; "
                            "3=12 1=13"_s);
    EXPECT_EQ(ErrorOf([&] { Return_Item(10, catalog.Path(), clock); }), kErrNoCurrentRecord);
}

TEST_F(LoanLogic, AnEditLeavesAloneWhatItDoesNotGive)
{
    EXPECT_TRUE(Store(LoanMode::Edit, 10, {u"Ann"_s, std::nullopt, QDate(2024, 3, 1), u"  "_s}));
    EXPECT_EQ(Stored(), u"10:1:Ann:2024-01-02:2024-03-01:-:with box | "_s + kBob + u" ; 1=10"_s);
    EXPECT_EQ(ErrorOf([&] { Store(LoanMode::Edit, 99, {u"Ann"_s, std::nullopt, std::nullopt, QString()}); }), kErrNoCurrentRecord);
}

} // namespace
} // namespace kelvado
