#include "FilmLines.h"

#include "core/Literals.h"
#include "core/RuntimeError.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

using namespace kelvado;

std::vector<FilmRecord> ReadFilmLines(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw RuntimeError::WithDetail(kErrFileNotFound, path);
    constexpr const char* kFormats[] = {"DVD", "DVD", "VHS", "DivX", "Request", ""};
    std::vector<FilmRecord> films;
    while (!file.atEnd()) {
        const QJsonObject line = QJsonDocument::fromJson(file.readLine()).object();
        FilmRecord film;
        film.Title = line["title"_L1].toString();
        film.TitleNY = film.Title;
        film.Year = QString::number(line["year"_L1].toInt());
        film.Plot = line["extract"_L1].toString();
        film.Format = QString::fromLatin1(kFormats[films.size() % std::size(kFormats)]);
        // The lines hold a few names twice; a catalog has one link of each.
        QSet<QString> seen;
        for (const auto genre : line["genres"_L1].toArray()) {
            if (!seen.contains(genre.toString().toCaseFolded()))
                film.Genres << FilmGenre{genre.toString(), 0};
            seen.insert(genre.toString().toCaseFolded());
        }
        for (const auto name : line["cast"_L1].toArray()) {
            FilmPerson actor;
            actor.Name = name.toString();
            film.Actors << actor;
        }
        films.push_back(std::move(film));
    }
    return films;
}
