#pragma once

#include <QString>

namespace kelvado {

// Each is followed by a number.
inline const QString kLoanById = QStringLiteral("SELECT * FROM Loans WHERE Loan_ID = ");
inline const QString kFilmOfLoan = QStringLiteral("SELECT * FROM Movie WHERE Loan_ID = ");

} // namespace kelvado
