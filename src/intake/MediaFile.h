#pragma once

#include "core/Literals.h"
#include "intake/mAVIInfo.h"

#include <QStringList>

#include <functional>
#include <optional>

namespace kelvado {

/// What a file dialog for a film offers.
QString VideoFileFilter();

/// Whether the name of a file is that of a video; the case of its ending does not count.
bool IsVideoFile(QStringView path);
/// Whether its last three characters are "AVI", in any case.
bool EndsInAvi(QStringView path);
/// `fileName` without the ending of a video file other than ".avi"; any other name as it is.
QString WithoutVideoEnding(const QString& fileName);

/// The facts of a video file of any kind, which its content tells and not its name: an AVI goes to `GetAVIDetails`, with its failures. Any
/// other file raises `kErrFileAccess` with its path where it is no video or cannot be read, `kErrFileNotFound` where it is missing. Its
/// `FileSize` may have any size; facts that it does not tell are empty or 0. Codecs that the catalog does not know are added to it.
AVIDetails GetMediaDetails(const QString& path, const QString& catalogPath);

/// The same for a file that the user chose by name. Nothing, without a message, for a name that is no video's, and for an AVI that cannot
/// be read; one of 2 GiB and more raises `kErrOverflow` all the same.
std::optional<AVIDetails> ReadChosenFile(const QString& path, const QString& catalogPath);

/// The first film in the folder itself, by name: an AVI where there is one, else any video. Nothing where there is none.
std::optional<QString> FirstFilmIn(const QString& folder);

/// All video files below `folder`, sorted by their paths without regard to case. Folders that are links are left out, as are hidden ones
/// and what lies deeper than 16 folders, and of a film on a video disc all files but its first. `goesOn` is called at every folder; where
/// it returns False, what was found so far is returned. Raises `kErrFileNotFound` for a folder that is missing.
QStringList FindVideoFiles(const QString& folder, const std::function<bool()>& goesOn = {});

} // namespace kelvado
