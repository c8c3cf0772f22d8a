#pragma once

#include "core/AppState.h"
#include "core/Dialogs.h"
#include "core/Events.h"
#include "core/Shell.h"
#include "core/Transport.h"
#include "web/retrieval/mIMDB.h"

#include <QtGlobal>

namespace kelvado {

/// What the panels that bring films in from the web work with, one copy in the program; all of it outlives them.
struct FilmDesk
{
    AppState& state;
    Shell& shell;
    Dialogs& dialogs;
    Events& events;
    Transport& transport;
    RetrievalProgress& progress;
    RetrievalBatch batch;
    bool fetching = false; ///< a handler waits for the web; every other one that would fetch stays out
};

/// The turn of one handler at the web. Only a turn that was had gives the web free at its end.
class FetchTurn
{
public:
    explicit FetchTurn(FilmDesk& desk) : m_desk(desk), m_mine(!desk.fetching) { desk.fetching = true; }
    ~FetchTurn()
    {
        if (m_mine)
            m_desk.fetching = false;
    }
    Q_DISABLE_COPY_MOVE(FetchTurn)

    explicit operator bool() const { return m_mine; }

private:
    FilmDesk& m_desk;
    bool m_mine;
};

/// As a `FetchTurn`, and says so where another handler has the web.
bool TakeTurn(const FetchTurn& turn, Dialogs& dialogs);

/// What a retrieval works with, by the present settings.
Retrieval MakeRetrieval(FilmDesk& desk);
/// What the writers work with: the open catalog.
WriterContext MakeWriter(FilmDesk& desk);

} // namespace kelvado
