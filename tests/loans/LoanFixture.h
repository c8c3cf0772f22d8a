#pragma once

#include "core/AppState.h"
#include "loans/LoanContext.h"
#include "support/ScriptedDialogs.h"
#include "support/TempCatalog.h"

namespace kelvado {

/// A clock that stands still.
class FixedClock : public Clock
{
public:
    QDateTime Now() const override { return {now, QTime(23, 59)}; }

    QDate now{2024, 1, 31};
};

/// Four films: 1 out to Ann (loan 10), 2 back from Bob (loan 11), 3 and 4 never lent.
class LoanFixture : public ::testing::Test
{
protected:
    LoanFixture()
    {
        state.comDiagFile.fileName = catalog.Path();
        catalog.Run("INSERT INTO Movie (Movie_ID, Title, Loan_ID) VALUES (1, 'Alien', 10), (2, 'Brazil', 0), (3, 'Chinatown', 0), "
                    "(4, 'Alien', 0);"
                    "INSERT INTO Loans (Loan_ID, Movie_ID, LoanedTo, LoanDate, DueDate, ReturnDate, Notes) VALUES "
                    "(10, 1, 'Ann O''Neil', '2024-01-02', NULL, NULL, 'with box'),"
                    "(11, 2, 'Bob', '2023-05-01', '2023-05-15', '2023-05-09', NULL);");
    }

    /// Every loan as "number:film:borrower:lent:due:back:notes" and every film that is out as "film=loan".
    QString Stored() const
    {
        return catalog.Ask("SELECT (SELECT group_concat(Loan_ID || ':' || Movie_ID || ':' || LoanedTo || ':' || ifnull(LoanDate, '-') "
                           "|| ':' || ifnull(DueDate, '-') || ':' || ifnull(ReturnDate, '-') || ':' || ifnull(Notes, '-'), ' | ') FROM "
                           "Loans) || ' ; ' || ifnull((SELECT group_concat(Movie_ID || '=' || Loan_ID, ' ') FROM Movie WHERE Loan_ID <> "
                           "0), '')");
    }

    TempCatalog catalog;
    AppState state;
    ScriptedDialogs dialogs;
    FixedClock clock;
    LoanContext context{state, dialogs, clock};

    const QString kAnn = u"10:1:Ann O'Neil:2024-01-02:-:-:with box"_s;
    const QString kBob = u"11:2:Bob:2023-05-01:2023-05-15:2023-05-09:-"_s;
    const QString kBefore = kAnn + u" | "_s + kBob + u" ; 1=10"_s;
};

} // namespace kelvado
