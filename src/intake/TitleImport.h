#pragma once

#include "core/Dialogs.h"
#include "core/Shell.h"

#include <QLatin1StringView>
#include <QString>
#include <QStringList>

#include <functional>

namespace kelvado {

/// What the file dialog for a list of titles offers.
inline constexpr QLatin1StringView kTitleFileFilter{"Text Files (*.txt)|*.txt"};

/// Called again and again in a long job with how far it is; False cancels it. It may serve events.
using TitleStep = std::function<bool(qsizetype done, qsizetype count)>;

/// The lines of the file that are not empty, as they stand, in order: UTF-8, UTF-16 with its mark, or Windows-1252, with any line ends.
/// `step` counts characters. Raises `kErrFileNotFound`, `kErrFileAccess`, also for more than 512 MiB, and `kErrCancelled` behind a cancel.
QStringList ReadTitles(const QString& path, const TitleStep& step = {});

/// "Proccessing 3 of 10"
QString TitleProgress(qsizetype done, qsizetype count);

/// Stores a film of nothing but its title for each of `titles`, all of them or none: where one fails, or `step` cancels, the catalog is as
/// it was. A failure says which title it was, and that none is stored; a cancel raises `kErrCancelled`. `step` is called before each title
/// with its number, from 1; the catalog is locked meanwhile, so it must not reach it.
void StoreTitles(const QStringList& titles, const QString& catalogPath, const TitleStep& step = {});

/// The whole import: the working picture, `StoreTitles`, the tree anew, the stop picture, and the message at the end. Raises what
/// `StoreTitles` raises, with the stop picture shown; a tree that cannot be filled is told of.
void ImportTitles(const QStringList& titles, const QString& catalogPath, Shell& shell, Dialogs& dialogs, const TitleStep& step = {});

} // namespace kelvado
