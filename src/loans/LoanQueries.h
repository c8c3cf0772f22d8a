#pragma once

#include "core/Literals.h"

#include <QString>

namespace kelvado {

// Each is followed by a number.
inline const QString kLoanById = u"SELECT * FROM Loans WHERE Loan_ID = "_s;
inline const QString kFilmOfLoan = u"SELECT * FROM Movie WHERE Loan_ID = "_s;

} // namespace kelvado
