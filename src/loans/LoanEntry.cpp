#include "loans/LoanEntry.h"

#include "core/Conversions.h"
#include "core/Literals.h"
#include "core/RuntimeError.h"
#include "loans/LoanQueries.h"
#include "store/Recordset.h"

namespace kelvado {

namespace {

const QString kAllFilms = u"SELECT Title, Movie_ID FROM Movie"_s;
const QString kTitleOfFilm = u"SELECT Title FROM Movie WHERE Movie_ID = "_s;
const QString kTitleOfLoan = u"SELECT Title FROM Movie WHERE Loan_ID = "_s;
const QString kFilmToLend = u"SELECT * FROM Movie WHERE Movie_ID = "_s;
const QString kBorrowers = u"SELECT DISTINCT LoanedTo FROM Loans"_s;
const QString kBorrowerOfEachLoan = u"SELECT LoanedTo FROM Loans"_s;
const QString kAllLoans = u"SELECT * FROM Loans"_s;

const QString kNewCaption = u"Loan A Movie"_s;
const QString kEditCaption = u"Edit Loan"_s;
const QString kMessageTitle = u"Add Loan"_s;
constexpr int kLoanDays = 14;

QStringList ReadBorrowers(const QString& sql, Connection& connection)
{
    Recordset loans;
    loans.Open(sql, connection);
    QStringList names;
    for (; !loans.Eof(); loans.MoveNext()) {
        if (!loans.IsNull(0))
            names << loans.Text(0);
    }
    return names;
}

Choice ReadChoice(const QString& sql, qint64 number, Connection& connection)
{
    Recordset film;
    film.Open(sql + QString::number(number), connection);
    return {film.Text(0), number};
}

LoanEntry EmptyEntry()
{
    LoanEntry entry;
    entry.caption = kNewCaption;
    return entry;
}

LoanEntry NewEntry(const Clock& clock)
{
    LoanEntry entry = EmptyEntry();
    entry.terms.loanDate = clock.Now().date();
    entry.terms.dueDate = entry.terms.loanDate->addDays(kLoanDays);
    return entry;
}

// Other programs may have stored a time of day behind the day.
std::optional<QDate> DateOf(const Recordset& loan, const QString& column)
{
    constexpr qsizetype kDayLength = 10;
    return DateFromText(loan.Text(loan.ColumnIndex(column)).left(kDayLength));
}

void PutTerms(const LoanTerms& terms, Recordset& loan)
{
    loan[u"LoanedTo"].Set(terms.loanedTo);
    if (terms.loanDate)
        loan[u"LoanDate"].Set(*terms.loanDate);
    if (terms.dueDate)
        loan[u"DueDate"].Set(*terms.dueDate);
    // Notes that were emptied leave the old ones in place.
    if (!TrimBlanks(terms.notes).isEmpty())
        loan[u"Notes"].Set(terms.notes);
}

void AddLoan(FilmId movieId, const LoanTerms& terms, const QString& catalogPath)
{
    Connection connection = OpenCatalog(catalogPath);
    connection.AllOrNothing([&] {
        Recordset loans;
        loans.Open(kAllLoans, connection);
        loans.AddNew();
        loans[u"Movie_ID"].Set(movieId);
        PutTerms(terms, loans);
        const Value loanId = loans[u"Loan_ID"].Get();
        loans.Update();
        loans.Close();
        Recordset film;
        film.Open(kFilmToLend + QString::number(movieId), connection);
        film[u"Loan_ID"].Set(loanId);
        film.Update();
    });
    connection.Close();
}

void SaveLoan(qint64 loanId, const LoanTerms& terms, const QString& catalogPath)
{
    Connection connection = OpenCatalog(catalogPath);
    Recordset loan;
    loan.Open(kLoanById + QString::number(loanId), connection);
    PutTerms(terms, loan);
    loan.Update();
    loan.Close();
    connection.Close();
}

} // namespace

LoanEntry Load_NewLoan(const QString& catalogPath, const Clock& clock)
{
    LoanEntry entry = NewEntry(clock);
    Connection connection = OpenCatalog(catalogPath);
    {
        Recordset films;
        films.Open(kAllFilms, connection);
        for (; !films.Eof(); films.MoveNext())
            entry.films.push_back({films.Text(0), films.Integer(1)});
    }
    entry.borrowers = ReadBorrowers(kBorrowers, connection);
    connection.Close();
    return entry;
}

LoanEntry Load_DirectLoan(FilmId movieId, const QString& catalogPath, const Clock& clock)
{
    if (movieId == 0)
        return EmptyEntry();
    LoanEntry entry = NewEntry(clock);
    Connection connection = OpenCatalog(catalogPath);
    entry.films.push_back(ReadChoice(kTitleOfFilm, movieId, connection));
    entry.filmIsGiven = true;
    entry.borrowers = ReadBorrowers(kBorrowerOfEachLoan, connection);
    connection.Close();
    return entry;
}

LoanEntry Edit_Loan(qint64 loanId, const QString& catalogPath)
{
    if (loanId == 0)
        return EmptyEntry();
    Connection connection = OpenCatalog(catalogPath);
    LoanEntry entry;
    entry.caption = kEditCaption;
    entry.films.push_back(ReadChoice(kTitleOfLoan, loanId, connection));
    entry.filmIsGiven = true;
    Recordset loan;
    loan.Open(kLoanById + QString::number(loanId), connection);
    entry.terms.loanedTo = loan.Text(loan.ColumnIndex(u"LoanedTo"));
    entry.borrowers << entry.terms.loanedTo;
    entry.returnDate = DateOf(loan, u"ReturnDate"_s);
    entry.terms.loanDate = DateOf(loan, u"LoanDate"_s);
    entry.terms.dueDate = DateOf(loan, u"DueDate"_s);
    entry.terms.notes = loan.Text(loan.ColumnIndex(u"Notes"));
    loan.Close();
    connection.Close();
    return entry;
}

bool StoreLoan(LoanMode mode, const LoanAnswer& answer, const QString& catalogPath, Dialogs& dialogs)
{
    if (!answer.film) {
        dialogs.MessageBox(u"You must select a movie to loan."_s, kBoxPlain, kMessageTitle);
        return false;
    }
    if (answer.terms.loanedTo.isEmpty()) {
        dialogs.MessageBox(u"You must loan the movie to someone."_s, kBoxPlain, kMessageTitle);
        return false;
    }
    if (mode == LoanMode::Edit)
        SaveLoan(*answer.film, answer.terms, catalogPath);
    else
        AddLoan(*answer.film, answer.terms, catalogPath);
    return true;
}

} // namespace kelvado
