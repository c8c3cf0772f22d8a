#pragma once

#include "FilmWriter.h"
#include "core/Literals.h"

#include <QTemporaryDir>

#include <functional>
#include <string>

namespace pagesource::test {

/// A folder that goes with the test.
class TempFolder
{
public:
    std::string Path(const std::string& name) const { return m_folder.filePath(QString::fromStdString(name)).toStdString(); }
    void Write(const std::string& name, const std::string& content) const;
    void WritePacked(const std::string& name, const std::string& content) const;
    std::string Read(const std::string& name) const;

private:
    QTemporaryDir m_folder;
};

/// A film with something in every field.
Film FullFilm(std::int64_t number, const std::string& title, int year);

/// A data file in the folder, filled by `fill`.
std::string MakeData(const TempFolder& folder, const std::function<void(FilmWriter&)>& fill);

} // namespace pagesource::test
