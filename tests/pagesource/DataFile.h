#pragma once

#include "FilmWriter.h"

#include <filesystem>
#include <functional>
#include <string>

namespace pagesource::test {

/// A folder that goes with the test.
class TempFolder
{
public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    std::string Path(const std::string& name) const { return (m_path / name).string(); }
    void Write(const std::string& name, const std::string& content) const;
    void WritePacked(const std::string& name, const std::string& content) const;

private:
    std::filesystem::path m_path;
};

std::string ReadBytes(const std::string& path);

/// A film with something in every field.
Film FullFilm(std::int64_t number, const std::string& title, int year);

/// A data file in the folder, filled by `fill`.
std::string MakeData(const TempFolder& folder, const std::function<void(FilmWriter&)>& fill);

} // namespace pagesource::test
