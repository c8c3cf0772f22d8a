#include "DataFile.h"

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <zlib.h>

namespace pagesource::test {

TempFolder::TempFolder()
{
    std::string pattern = (std::filesystem::temp_directory_path() / "pagesource-XXXXXX").string();
    if (!mkdtemp(pattern.data()))
        throw Failure("no temporary folder");
    m_path = pattern;
}

TempFolder::~TempFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

void TempFolder::Write(const std::string& name, const std::string& content) const
{
    std::ofstream(m_path / name, std::ios::binary) << content;
}

void TempFolder::WritePacked(const std::string& name, const std::string& content) const
{
    const gzFile file = gzopen((m_path / name).c_str(), "wb");
    gzwrite(file, content.data(), static_cast<unsigned>(content.size()));
    gzclose(file);
}

std::string ReadBytes(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return std::move(bytes).str();
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
    film.plot = "A clerk finds a key and a map in a coat that is not his, and he follows both. What he finds there is not what was drawn "
                "on the map at "
                "all, but it is where he stays, with the others who came after the same coat.";
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
