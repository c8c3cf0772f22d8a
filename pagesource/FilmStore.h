#pragma once

#include "Database.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pagesource {

enum class Kind { Film, Television, Video, Game, Series };

/// What a person did for a film, in the order in which a credits page lists it.
enum class Section { Director, Writer, Cast, Producer, Composer, Photography, Editor, Other };

enum class CompanySection { Production, Distributor, Effects, Other };

struct Film
{
    std::int64_t number = 0;
    Kind kind = Kind::Film;
    std::string title;
    int year = 0;    // 0: not known
    int ordinal = 0; // 1 for the first of several films of this title and year, 0 for the only one
    int minutes = 0;
    int ratingTenths = 0; // 0: not rated
    std::int64_t votes = 0;
    std::vector<std::string> genres;
    std::vector<std::string> languages;
    std::vector<std::string> countries;
    std::string certificate;
    std::string colour;
    std::string plot;
    bool hasPoster = false;
};

struct OtherTitle
{
    std::string title;
    std::string region;
    std::string note;
};

struct Credit
{
    std::int64_t person = 0;
    std::string name;
    std::string note; // the role, or what the work was; may be empty
};

struct Company
{
    std::int64_t number = 0;
    std::string name;
    std::string note;
};

struct Person
{
    std::int64_t number = 0;
    std::string name;
    std::string birthDay; // "3 July"
    int birthYear = 0;
    int deathYear = 0;
    std::string birthPlace;
    std::string birthName;
    std::string height; // 5' 7"
    std::vector<std::string> professions;
    std::vector<std::int64_t> knownFor;
    std::string biography; // paragraphs parted by line ends
};

/// One film of a person.
struct Work
{
    Film film;
    std::string note;
};

/// What a title search asks for.
struct Search
{
    std::string text;
    int fromYear = 0;
    int toYear = 9999;
    bool withTelevision = true;
    std::size_t limit = 200;
};

/// Reads films and people from a data file that a FilmWriter made. One thread at a time.
class FilmStore
{
public:
    /// Raises Failure for a file that is not there or of another kind.
    explicit FilmStore(const std::string& path);

    std::optional<Film> FindFilm(std::int64_t number);
    std::vector<OtherTitle> OtherTitles(std::int64_t film);
    std::vector<Credit> Credits(std::int64_t film, Section section);
    std::vector<Company> Companies(std::int64_t film, CompanySection section);
    /// Films whose title, or one of whose other titles, holds the text, whatever its case and accents: whole titles first, then those with
    /// a word that begins with it, then the rest; the film with more votes first.
    std::vector<Film> SearchTitles(const Search& search);

    std::optional<Person> FindPerson(std::int64_t number);
    /// Those who bear the name, letter case aside, `limit` at most, those with the most credits first.
    std::vector<Person> PeopleNamed(std::string_view name, std::size_t limit);
    /// The newest first.
    std::vector<Work> Works(std::int64_t person, Section section);

private:
    struct Pass;
    void AddWholeTitles(const std::string& text, const Search& search, std::vector<Film>& hits);
    /// Whether one of the film's titles, folded and between line ends, holds one of the texts.
    bool HasTitle(const Film& film, const std::vector<std::string>& texts);
    std::string RarestTerms(std::string_view text);
    std::string TermsBeginningWith(const std::string& text);
    void AddHits(const Pass& pass, const Search& search, std::vector<Film>& hits);
    void AddRows(Statement& rows, const std::vector<std::string>& texts, const Search& search, std::vector<Film>& hits);

    Database m_database;
    Statement m_film;
    Statement m_otherTitles;
    Statement m_credits;
    Statement m_companies;
    Statement m_search;
    Statement m_wholeTitles;
    Statement m_termFilms;
    Statement m_terms;
    Statement m_person;
    Statement m_named;
    Statement m_works;
};

} // namespace pagesource
