#include "store/FilmHistory.h"

namespace kelvado {

QList<HistoryFilm> ReadFilmHistory(const QString& text)
{
    QList<HistoryFilm> films;
    for (const QStringView entry : QStringView(text).split(u'|', Qt::SkipEmptyParts)) {
        const qsizetype end = entry.indexOf(u'\n');
        const QStringView title = entry.left(end).trimmed();
        if (!title.isEmpty())
            films.append({title.toString(), end < 0 ? QString() : entry.mid(end + 1).trimmed().toString()});
    }
    return films;
}

} // namespace kelvado
