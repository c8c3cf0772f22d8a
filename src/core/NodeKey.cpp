#include "core/NodeKey.h"

namespace kelvado {

QString GroupKey(QStringView value)
{
    return u'"' + value.toString() + u'"';
}

QString FilmKey(FilmId movieId, QStringView value)
{
    return u'"' + QString::number(movieId) + u'\n' + value.toString() + u'"';
}

QString ActorKeyInGenre(FilmId movieId, qint64 actorId, QStringView genre)
{
    return u'"' + QString::number(movieId) + u'\n' + QString::number(actorId) + u'\n' + genre.toString() + u'"';
}

QString ValueOfKey(const QString& key)
{
    return key.section(u'\n', 1).chopped(1);
}

FilmId FilmOfKey(const QString& key)
{
    return KeyPart(key, 0).toLongLong();
}

QString KeyPart(const QString& key, int index)
{
    return key.section(u'\n', index, index).remove(u'"');
}

} // namespace kelvado
