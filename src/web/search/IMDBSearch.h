#pragma once

#include "core/Dialogs.h"
#include "core/Shell.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

namespace kelvado {

/// A row of a panel's result list: the shortened title, a tab and the seven digits of the film; `AkaRow` is the row of the other list
/// that holds the film's other titles, 0 for none.
struct SearchRow
{
    QString Text;
    qsizetype AkaRow = 0;
    friend bool operator==(const SearchRow&, const SearchRow&) = default;
};

/// Cuts a text of 37 characters and more to its first 37, in `text` too, and returns it with " ..." behind; a shorter one as it is.
QString ShortenTitle(QString& text);
/// True for a text that `ShortenTitle` cut.
bool IsShortened(QStringView text);

/// True if the search led to the page of a film.
bool IsTitlePage(QStringView page);
/// True if the page says that nothing was found. A page that begins with these words does not count.
bool HasNoMatches(QStringView page);

/// The other titles in the text of a result row, read from 4 characters behind `start` (0 for the whole text): each behind a line feed,
/// without quotes and bold tags, entities decoded. A title without its tags raises `kErrInvalidCall`.
QString CollectAkaTitles(QStringView text, qsizetype start);

/// Adds what the flattened result page tells to the lists, 50 films at most; with the fiftieth, `page` is emptied. Row 0 of `lstAka` must
/// be there already, so that a row's number says which film has other titles. Says so where there was no match. Shows the moving
/// picture meanwhile. A result row that is not built as expected raises `kErrInvalidCall`; the rows before it stay.
void ParseSearchPage(QString& page, QList<SearchRow>& lstSearch, QStringList& lstAka, Shell& shell, Dialogs& dialogs);

} // namespace kelvado
