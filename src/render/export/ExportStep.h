#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace kelvado {

/// How far an export is: behind which film, of how many.
struct ExportStep
{
    qint64 film = 0; ///< from 1
    qint64 count = 0;
    QString title;
};

/// Called behind each film of an export; False cancels it.
using GoesOn = std::function<bool(const ExportStep& step)>;

/// What an export has made when it ends.
struct ExportDone
{
    QString path; ///< what a user would open: the file, or the first page
    qint64 films = 0;
    qint64 count = 0;
    qint64 pictures = 0;
    bool whole = false;  ///< false after a cancel
    QStringList missing; ///< what could not be written, a line each: the film or page, and why
};

} // namespace kelvado
