#pragma once

#include "core/Choices.h"
#include "core/Clock.h"
#include "core/Dialogs.h"
#include "core/FilmId.h"

#include <QDate>
#include <QStringList>

#include <optional>
#include <vector>

namespace kelvado {

enum class LoanMode { Loan, Edit };

/// What a loan says. An absent date is not stored, and leaves the one that is stored alone.
struct LoanTerms
{
    QString loanedTo;
    std::optional<QDate> loanDate, dueDate;
    QString notes;
};

/// What the entry dialog starts with.
struct LoanEntry
{
    QString caption;
    std::vector<Choice> films; ///< numbered by film for a new loan, by loan for an edit
    bool filmIsGiven = false;  ///< the one film is chosen and stays
    QStringList borrowers;
    LoanTerms terms;
    std::optional<QDate> returnDate;
};

/// A new loan of any film, those on loan too.
LoanEntry Load_NewLoan(const QString& catalogPath, const Clock& clock);

/// A new loan of one film; an entry without a film for the number 0. The borrowers stand there once for each of their loans.
/// Raises `kErrNoCurrentRecord` where there is no such film.
LoanEntry Load_DirectLoan(FilmId movieId, const QString& catalogPath, const Clock& clock);

/// An existing loan; an empty entry for the number 0. Raises `kErrNoCurrentRecord` where no film is out under it: an ended loan cannot be
/// edited.
LoanEntry Edit_Loan(qint64 loanId, const QString& catalogPath);

/// What the user accepted. `film` is the number behind the chosen film; nothing where none is chosen.
struct LoanAnswer
{
    std::optional<qint64> film;
    LoanTerms terms;
};

/// Stores a new loan, or the terms of an edited one. False, with nothing written and the user told, where film or borrower is missing.
/// Raises `kErrNoCurrentRecord`, with nothing written, where the film of a new loan or the edited loan is gone.
bool StoreLoan(LoanMode mode, const LoanAnswer& answer, const QString& catalogPath, Dialogs& dialogs);

} // namespace kelvado
