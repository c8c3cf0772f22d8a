#pragma once

#include "FilmStore.h"

#include <functional>
#include <memory>

namespace pagesource {

/// Makes a data file. It is written beside its target and takes its place in Finish; without Finish nothing is left of it.
class FilmWriter
{
public:
    /// Raises Failure where another writer is at work on the same target.
    explicit FilmWriter(std::string target);
    ~FilmWriter();
    FilmWriter(const FilmWriter&) = delete;
    FilmWriter& operator=(const FilmWriter&) = delete;

    /// `ordinal` is not stored: Finish counts the films of one title and year. False where the number is taken.
    bool AddFilm(const Film& film);
    void AddOtherTitle(std::int64_t film, int place, const OtherTitle& title);
    /// False where the place is taken.
    bool AddCredit(std::int64_t film, Section section, int place, std::int64_t person, std::string_view note);
    /// Gives the person's credits in that section of the film a note; false if there are none.
    bool NoteCredit(std::int64_t film, Section section, std::int64_t person, std::string_view note);
    void AddPerson(const Person& person);
    void AddCompany(std::int64_t number, std::string_view name);
    void AddCompanyLink(std::int64_t film, CompanySection section, int place, std::int64_t company, std::string_view note);

    /// Indexes what was added and puts the file in its place. `stage` is told what is being done.
    void Finish(const std::function<void(const char* stage)>& stage);

private:
    struct Statements;

    void Close();
    void NumberFilms();
    void IndexTitles();

    std::string m_target;
    std::string m_partial;
    int m_lock = -1; // a descriptor of the unfinished file, which no other writer gets as long as it is open
    std::unique_ptr<Database> m_database;
    std::unique_ptr<Statements> m_add;
};

} // namespace pagesource
