#pragma once

#include "core/Discs.h"
#include "intake/mAVIInfo.h"
#include "store/FilmRecord.h"

#include <QList>
#include <QString>

#include <optional>

namespace kelvado {

/// What the name of a file tells of its film, in small letters: "The.Matrix-GRP.avi" is "the matrix" by "grp". A name without "-" and "."
/// is all group. `fileName` has no folders.
void DeriveTitleAndGroup(const QString& fileName, QString& group, QString& title);

/// "DivX" or "XviD" where the code of the codec says so; nothing for any other.
std::optional<QString> FormatOfHandler(const QString& fccHandler);

/// The facts as a panel shows them, by the names of its labels.
struct FileLabels
{
    QString lblFilename, lblFilesize, lblFPS, lblResolution, lblRuntime, lblAudioType, lblAudioBitrate, lblVideoType, lblVideoBitrate;
};
FileLabels LabelsOf(const AVIDetails& details);

/// Takes the file's size times the number of discs. Raises `kErrTypeMismatch` where `discs` is no number, `kErrOverflow` where the product
/// is larger than such a file may be; the size then stays.
void MultiplyByDiscs(AVIDetails& details, const QString& discs);

/// Puts the facts into the fields of `film` that tell of its file.
void SetFileFacts(const AVIDetails& details, FilmRecord& film);

/// What the user enters beside the facts.
struct FileEntries
{
    QString discs, group, format, index;
};
/// The same, and `Number`, `Group`, `Format` and `Index`.
void SetFileFilm(const AVIDetails& details, const FileEntries& entries, FilmRecord& film);

/// An entry of the list of drives: " FILM1 (sr0)", with the drive's root as tag.
struct DriveEntry
{
    QString text;
    QString tag;
};
QList<DriveEntry> ListCDDrives(Discs& discs);

/// The entry of the next disc with a name, behind `selected` and then from the first one; `selected` where there is no other. Places count
/// from 0.
int NextDisc(const QList<DriveEntry>& entries, int selected);

/// Opens the drive. Returns the reason where it fails, which nobody has to look at.
QString EjectDrive(const QString& driveRoot, Discs& discs);

} // namespace kelvado
