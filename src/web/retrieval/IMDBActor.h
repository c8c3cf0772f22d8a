#pragma once

#include "web/readers/mIMDBActorParse.h"
#include "web/retrieval/FilmDesk.h"

#include <QList>

#include <optional>

namespace kelvado {

/// What the user sees while a person is retrieved: a waiting window, which gives way to the choice among several people of one name.
class PersonWindows : public JobWindow
{
public:
    /// The place of the person who is meant; nothing where the user leaves without a choice. With one, the waiting window
    /// is open again.
    virtual std::optional<qsizetype> ChooseMatch(const QList<ActorMatch>& matches) = 0;
};

/// Fetches the pages and the picture of the person `actorId` and stores what they tell over the person's row, by the link that it holds.
/// The catalog is open only while it is read and written, and changed as a whole or not at all. False where nothing was stored: after a
/// cancel, without a choice, and after a failure that was told. Raises `kErrNoCurrentRecord` for an unknown person, `kErrInvalidCall`
/// for pages that cannot be read, and `kErrCancelled` where the program ends.
bool RetrieveActor(qint64 actorId, FilmDesk& desk, PersonWindows& windows);

/// The same as a job, with the waiting window above the disabled main one; what is selected is shown again with what was stored.
bool RunActorRetrieval(qint64 actorId, FilmDesk& desk, PersonWindows& windows);

} // namespace kelvado
