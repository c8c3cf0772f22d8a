#include "store/FilmHistory.h"

#include "core/Conversions.h"
#include "core/Literals.h"

namespace kelvado {

QList<HistoryFilm> ReadFilmHistory(const QString& text)
{
    QList<HistoryFilm> films;
    for (const QStringView entry : QStringView(text).split(u'|', Qt::SkipEmptyParts)) {
        const qsizetype end = entry.indexOf(u'\n');
        // Decoded behind the split: an entity may stand for the sign that parts the films.
        const QString title = DecodeEntities(entry.left(end).trimmed().toString());
        if (!title.isEmpty())
            films.append({title, end < 0 ? QString() : entry.mid(end + 1).trimmed().toString()});
    }
    return films;
}

} // namespace kelvado
