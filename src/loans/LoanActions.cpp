#include "loans/LoanActions.h"

#include "core/Literals.h"
#include "core/RuntimeError.h"
#include "loans/LoanQueries.h"
#include "store/Recordset.h"

namespace kelvado {

namespace {

// The two blanks are those of the given query.
const QString kFilmOnShow = u"SELECT * FROM Movie WHERE Movie_ID  = "_s;

void EndLoan(qint64 loanId, Connection& connection, const Clock& clock)
{
    Recordset film;
    film.Open(kFilmOfLoan + QString::number(loanId), connection);
    if (film.Eof())
        throw RuntimeError(kErrNoCurrentRecord);
    Recordset loan;
    loan.Open(kLoanById + QString::number(loanId), connection);
    loan[u"ReturnDate"].Set(clock.Now().toString(u"MM/dd/yyyy"_s));
    loan.Update();
    film[u"Loan_ID"].Set(0);
    film.Update();
}

} // namespace

void Return_Item(qint64 loanId, const QString& catalogPath, const Clock& clock)
{
    Connection connection = OpenCatalog(catalogPath);
    connection.AllOrNothing([&] { EndLoan(loanId, connection, clock); });
    connection.Close();
}

void ReturnFilm(FilmId movieId, const QString& catalogPath, const Clock& clock)
{
    Connection connection = OpenCatalog(catalogPath);
    Recordset film;
    film.Open(kFilmOnShow + QString::number(movieId), connection);
    if (film.Eof())
        throw RuntimeError(kErrNoCurrentRecord);
    const qint64 loanId = film[u"Loan_ID"].IsNull() ? 0 : film[u"Loan_ID"].Get().Integer();
    film.Close();
    connection.AllOrNothing([&] { EndLoan(loanId, connection, clock); });
    connection.Close();
}

void Delete_Loan(qint64 loanId, const QString& catalogPath)
{
    Connection connection = OpenCatalog(catalogPath);
    connection.AllOrNothing([&] {
        Recordset loan;
        loan.Open(kLoanById + QString::number(loanId), connection);
        if (!loan.Eof())
            loan.Delete();
        loan.Close();
        Recordset film;
        film.Open(kFilmOfLoan + QString::number(loanId), connection);
        if (!film.Eof()) {
            film[u"Loan_ID"].Set(0);
            film.Update();
        }
    });
    connection.Close();
}

} // namespace kelvado
