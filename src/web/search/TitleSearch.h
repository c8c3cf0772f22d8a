#pragma once

#include "web/retrieval/FilmDesk.h"
#include "web/search/IMDBSearch.h"

#include <functional>

namespace kelvado {

/// The result list of a panel and the two ways of filling it: a search by title and a look-up by number.
class TitleSearch
{
public:
    /// `onChange` is called when a search begins, with the rows gone, and when it has ended in whatever way. `desk` outlives this object.
    TitleSearch(FilmDesk& desk, std::function<void()> onChange);

    /// Replaces the rows by what the site finds for `title`. Does nothing while a search runs.
    /// A page that is not built as expected raises `kErrInvalidCall`; the rows before the fault stay.
    void Search(const QString& title);
    /// Replaces the rows by the one film of this number. Says so where `number` is not seven digits, and where the site has no such film.
    /// A page without any title locks the search, until `Unlock` or the next look-up.
    void LookUp(const QString& number);
    /// Ends a search that waits for its page; it raises `kErrCancelled` and finds nothing.
    void Stop();

    /// True while a search waits for its page, and where one was locked.
    bool SearchRunning() const { return m_running; }
    /// True while a search waits for its page.
    bool Waiting() const { return m_waiting; }
    /// For a panel that is opened anew. A search that still waits for its page goes on.
    void Unlock() { m_running = m_waiting; }
    void Clear();

    const QList<SearchRow>& Rows() const { return m_rows; }
    void Add(const SearchRow& row) { m_rows.append(row); }
    SearchRow Take(qsizetype index) { return m_rows.takeAt(index); }
    /// The other titles of films, by the rows' `AkaRow`. Row 0 stands for none.
    const QStringList& OtherTitles() const { return m_otherTitles; }

private:
    /// Runs a search, where it is this panel's turn; `work` returns false where it locks.
    void Run(const std::function<bool()>& work);
    QString Fetch(const QString& url);
    bool FindNumber(const QString& number);

    FilmDesk& m_desk;
    std::function<void()> m_onChange;
    QList<SearchRow> m_rows;
    QStringList m_otherTitles;
    bool m_running = false;
    bool m_waiting = false;
};

} // namespace kelvado
