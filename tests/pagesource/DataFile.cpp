#include "DataFile.h"

#include <QFile>

#include <zlib.h>

namespace pagesource::test {

void TempFolder::Write(const std::string& name, const std::string& content) const
{
    QFile file(m_folder.filePath(QString::fromStdString(name)));
    if (file.open(QIODevice::WriteOnly))
        file.write(QByteArray::fromStdString(content));
}

void TempFolder::WritePacked(const std::string& name, const std::string& content) const
{
    const gzFile file = gzopen(Path(name).c_str(), "wb");
    gzwrite(file, content.data(), static_cast<unsigned>(content.size()));
    gzclose(file);
}

std::string TempFolder::Read(const std::string& name) const
{
    QFile file(m_folder.filePath(QString::fromStdString(name)));
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "<missing>";
}

Film FullFilm(std::int64_t number, const std::string& title, int year)
{
    Film film;
    film.number = number;
    film.title = title;
    film.year = year;
    film.minutes = 101;
    film.ratingTenths = 70;
    film.votes = 41310;
    film.genres = {"Drama", "War"};
    film.languages = {"English", "Russian"};
    film.countries = {"USA", "UK"};
    film.certificate = "PG-13";
    film.colour = "Color";
    film.plot = "A clerk finds a key and a map in a coat that is not his, and he follows both. What he finds there is not what was "
                "drawn on the map at all, but it is where he stays, with the others who came after the same coat.";
    return film;
}

std::string MakeData(const TempFolder& folder, const std::function<void(FilmWriter&)>& fill)
{
    const std::string path = folder.Path("test.db");
    FilmWriter writer(path);
    fill(writer);
    writer.Finish([](const char*) {});
    return path;
}

} // namespace pagesource::test
