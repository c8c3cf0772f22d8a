#pragma once

#include <QList>
#include <QString>

namespace kelvado {

/// One film of a person's filmography.
struct HistoryFilm
{
    QString title;  ///< with the year in brackets
    QString number; ///< of the film site, seven digits
};

/// The films of a column `Film_History`, which runs them together as title, line end, number and "|". The texts are as they are stored,
/// with their character references. What has no title is left out. Never raises.
QList<HistoryFilm> ReadFilmHistory(const QString& text);

} // namespace kelvado
