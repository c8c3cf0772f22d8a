#pragma once

#include "core/Clock.h"
#include "core/FilmId.h"

#include <QString>

namespace kelvado {

// Each routine opens its own connection to the catalog and raises what the engine raises; nothing is written then.

/// Ends a loan: its `ReturnDate` becomes today, and the film that is out under it is in again. Raises `kErrNoCurrentRecord`, with nothing
/// written, where no film is out under this number (as when it is back already) or the loan itself is gone.
void Return_Item(qint64 loanId, const QString& catalogPath, const Clock& clock);

/// Ends the loan that the film `movieId` is out under. Raises `kErrNoCurrentRecord`, with nothing written, where the film is in or gone.
void ReturnFilm(FilmId movieId, const QString& catalogPath, const Clock& clock);

/// Removes a loan, open or ended, from the catalog; a film that is out under it is in again. What is missing is passed over.
void Delete_Loan(qint64 loanId, const QString& catalogPath);

} // namespace kelvado
