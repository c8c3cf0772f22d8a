#pragma once

#include "intake/FileFilm.h"
#include "web/retrieval/FilmQueue.h"

#include <QStringList>

#include <functional>
#include <optional>

namespace kelvado {

/// A film that was chosen for a file, and what the user has entered beside the file's facts.
struct FileChoice
{
    SearchRow row;
    const QStringList& otherTitles; ///< by the row's `AkaRow`
    ChooseTitle chooseTitle;        ///< empty: the film keeps the title of its page
    FileEntries entries;
    bool multiplyByDiscs = false;
};

/// Retrieves the chosen film within a `RunJob` and stores it with the facts of its file. It asks first where the catalog has the film
/// already. Returns the film's title, entities decoded, where it is stored; what such a film lacks is told. Nothing where the user
/// leaves it out or cancels.
/// With `multiplyByDiscs`, the size in `details` is the product once the film is stored. Raises what `MultiplyByDiscs` raises, before
/// anything is fetched, and what retrieval and store raise; nothing is stored then.
std::optional<QString> AddFileFilm(AVIDetails& details, const FileChoice& choice, FilmDesk& desk);

/// Whether one of `paths`, of files and folders, is a video file or may hold some.
bool MayHoldFilms(const QStringList& paths);

/// Told about each file or folder before it is looked into, with its number, from 1; False ends the search.
using LookStep = std::function<bool(const QString& path, qsizetype done)>;
/// The video files among `paths` and below the folders among them, in this order. Raises `kErrFileNotFound` for a folder that is missing.
QStringList FilmsAmong(const QStringList& paths, const LookStep& step = {});

/// Files that wait to be filed one after the other.
class FilmFileQueue
{
public:
    /// Puts files behind those that wait; a file that waits already, and the one in work, are left out.
    void Add(const QStringList& files);
    /// Takes the next file into work; nothing where none is left, and the count then begins anew.
    std::optional<QString> TakeNext();
    /// Leaves all files that wait, and the one in work.
    void Leave();
    bool IsAtWork() const { return !m_current.isEmpty(); }
    /// "File 3 of 120: film.avi"
    QString PlaceText() const;

    /// Keeps why the file in work cannot be read; the failure names it.
    void NoteFailure(const RuntimeError& error);
    /// What to tell of the failures since the last call; empty without any.
    QString TakeFailures();

private:
    QStringList m_waiting;
    QString m_current;
    qsizetype m_taken = 0;
    QStringList m_failures;
};

} // namespace kelvado
