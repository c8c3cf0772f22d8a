#include "FilmStore.h"

#include "Schema.h"
#include "Text.h"

#include <algorithm>

namespace pagesource {

namespace {

constexpr std::string_view kFilmColumns =
    "film.number, kind, film.title, year, ordinal, minutes, rating, votes, genres, languages, countries, "
    "certificate, colour, plot, hasPoster";
constexpr int kFilmColumnCount = 15;
constexpr std::string_view kPersonColumns =
    "number, name, birthDay, birthYear, deathYear, birthPlace, birthName, height, professions, knownFor, biography";

Film ReadFilm(const Statement& row)
{
    Film film;
    film.number = row.Int(0);
    film.kind = static_cast<Kind>(row.Int(1));
    film.title = row.Text(2);
    film.year = static_cast<int>(row.Int(3));
    film.ordinal = static_cast<int>(row.Int(4));
    film.minutes = static_cast<int>(row.Int(5));
    film.ratingTenths = static_cast<int>(row.Int(6));
    film.votes = row.Int(7);
    film.genres = Split(row.Text(8), ",");
    film.languages = Split(row.Text(9), ",");
    film.countries = Split(row.Text(10), ",");
    film.certificate = row.Text(11);
    film.colour = row.Text(12);
    film.plot = row.Text(13);
    film.hasPoster = row.Int(14) != 0;
    return film;
}

// What `read` makes of each row that is left.
template<typename Read>
auto AllRows(Statement& rows, const Read& read)
{
    std::vector<decltype(read(rows))> list;
    while (rows.Step())
        list.push_back(read(rows));
    return list;
}

Person ReadPerson(const Statement& row)
{
    Person person;
    person.number = row.Int(0);
    person.name = row.Text(1);
    person.birthDay = row.Text(2);
    person.birthYear = static_cast<int>(row.Int(3));
    person.deathYear = static_cast<int>(row.Int(4));
    person.birthPlace = row.Text(5);
    person.birthName = row.Text(6);
    person.height = row.Text(7);
    person.professions = Split(row.Text(8), ",");
    for (const std::string& number : Split(row.Text(9), ","))
        person.knownFor.push_back(Number(number).value_or(0));
    person.biography = row.Text(10);
    return person;
}

// How many terms of a text are asked for. The rarest ones leave so few films that reading their titles costs less than more terms.
constexpr std::size_t kTermCount = 3;

// A term of the search index in its query language.
std::string Quoted(std::string_view term)
{
    return '"' + Replaced(term, "\"", "\"\"") + '"';
}

// The characters of a valid text, each as its bytes.
std::vector<std::string_view> Characters(std::string_view text)
{
    std::vector<std::string_view> characters;
    for (std::size_t from = 0; from < text.size();) {
        std::size_t end = from + 1;
        while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80)
            ++end;
        characters.push_back(text.substr(from, end - from));
        from = end;
    }
    return characters;
}

// Binds what both searches ask for behind their own parameters.
void BindBounds(Statement& statement, int behind, const Search& search)
{
    // Without television, both kinds of it are left out; otherwise two kinds that no film has.
    const std::int64_t television = search.withTelevision ? -1 : static_cast<std::int64_t>(Kind::Television);
    const std::int64_t series = search.withTelevision ? -1 : static_cast<std::int64_t>(Kind::Series);
    statement.Bind(behind + 1, search.fromYear).Bind(behind + 2, search.toYear).Bind(behind + 3, television).Bind(behind + 4, series);
}

Database OpenedData(const std::string& path)
{
    Database database(path, Database::Mode::Read);
    Statement version(database, "PRAGMA user_version");
    if (!version.Step() || version.Int(0) != kDataVersion)
        throw Failure(path + " is no data file of this page source.");
    database.Execute("PRAGMA mmap_size=1073741824; PRAGMA cache_size=-32000");
    return database;
}

std::string Sql(std::string_view before, std::string_view columns, std::string_view after)
{
    return std::string(before).append(columns).append(after);
}

} // namespace

FilmStore::FilmStore(const std::string& path)
    : m_database(OpenedData(path)), m_film(m_database, Sql("SELECT ", kFilmColumns, " FROM film WHERE number = ?")),
      m_otherTitles(m_database, "SELECT title, region, note FROM otherTitle WHERE film = ? ORDER BY place"),
      m_credits(m_database,
                "SELECT person, name, note FROM credit JOIN person ON number = person WHERE film = ? AND section = ? ORDER BY place"),
      m_companies(m_database, "SELECT number, name, note FROM companyLink JOIN company ON number = company WHERE film = ? AND section = ? "
                              "ORDER BY place"),
      // The rows of the index are numbered by votes, so that the first ones found are the ones wanted and the rest is never read.
      m_search(m_database, Sql("SELECT ", kFilmColumns,
                               " FROM search CROSS JOIN place ON place.place = search.rowid CROSS JOIN film ON film.number = place.film "
                               "WHERE search MATCH ? AND year BETWEEN ? AND ? AND kind NOT IN (?, ?) ORDER BY search.rowid")),
      m_wholeTitles(m_database, Sql("SELECT ", kFilmColumns,
                                    " FROM wholeTitle CROSS JOIN film ON number = film WHERE hash IN (?, ?, ?, ?) "
                                    "AND year BETWEEN ? AND ? AND kind NOT IN (?, ?) ORDER BY votes DESC, rating DESC, number")),
      m_termFilms(m_database, "SELECT films FROM term WHERE term = ?"),
      m_terms(m_database, "SELECT term FROM term WHERE term >= ? AND term < ?"),
      m_person(m_database, Sql("SELECT ", kPersonColumns, " FROM person WHERE number = ?")),
      m_named(m_database, Sql("SELECT ", kPersonColumns,
                              " FROM person WHERE name = ? COLLATE NOCASE "
                              "ORDER BY (SELECT count(*) FROM credit WHERE person = number) DESC, number LIMIT ?")),
      m_works(m_database, Sql("SELECT ", kFilmColumns,
                              ", note FROM credit JOIN film ON film.number = credit.film WHERE person = ? AND section = ? "
                              "ORDER BY year DESC, film.number LIMIT 1000"))
{
}

std::optional<Film> FilmStore::FindFilm(std::int64_t number)
{
    m_film.Reset();
    m_film.Bind(1, number);
    if (!m_film.Step())
        return std::nullopt;
    return ReadFilm(m_film);
}

std::vector<OtherTitle> FilmStore::OtherTitles(std::int64_t film)
{
    m_otherTitles.Reset();
    m_otherTitles.Bind(1, film);
    return AllRows(m_otherTitles, [](const Statement& row) { return OtherTitle{row.Text(0), row.Text(1), row.Text(2)}; });
}

std::vector<Credit> FilmStore::Credits(std::int64_t film, Section section)
{
    m_credits.Reset();
    m_credits.Bind(1, film).Bind(2, static_cast<std::int64_t>(section));
    return AllRows(m_credits, [](const Statement& row) { return Credit{row.Int(0), row.Text(1), row.Text(2)}; });
}

std::vector<Company> FilmStore::Companies(std::int64_t film, CompanySection section)
{
    m_companies.Reset();
    m_companies.Bind(1, film).Bind(2, static_cast<std::int64_t>(section));
    return AllRows(m_companies, [](const Statement& row) { return Company{row.Int(0), row.Text(1), row.Text(2)}; });
}

// One way of looking: what the index is asked for, and the texts of which a title must hold one.
struct FilmStore::Pass
{
    std::string match;
    std::vector<std::string> texts;
};

bool FilmStore::HasTitle(const Film& film, const std::vector<std::string>& texts)
{
    const auto holds = [&texts](const std::string& title) {
        const std::string line = '\n' + Folded(title) + '\n';
        return std::any_of(texts.begin(), texts.end(), [&line](const std::string& text) { return line.find(text) != std::string::npos; });
    };
    bool found = holds(film.title);
    m_otherTitles.Reset();
    m_otherTitles.Bind(1, film.number);
    while (!found && m_otherTitles.Step())
        found = holds(m_otherTitles.Text(0));
    m_otherTitles.Reset();
    return found;
}

// The query for films that hold the rarest three-character terms of the text; "" where no film holds one of them.
std::string FilmStore::RarestTerms(std::string_view text)
{
    struct Term
    {
        std::int64_t films;
        std::string_view text;
    };
    std::vector<Term> terms;
    const std::vector<std::string_view> characters = Characters(text);
    for (std::size_t i = 0; i + 2 < characters.size(); ++i) {
        const std::size_t from = characters[i].data() - text.data();
        const std::string_view term = text.substr(from, characters[i].size() + characters[i + 1].size() + characters[i + 2].size());
        m_termFilms.Reset();
        m_termFilms.Bind(1, term);
        if (!m_termFilms.Step())
            return {};
        terms.push_back({m_termFilms.Int(0), term});
    }
    std::sort(terms.begin(), terms.end(), [](const Term& a, const Term& b) { return a.films < b.films; });
    terms.resize(std::min(terms.size(), kTermCount));
    std::vector<std::string> quoted;
    quoted.reserve(terms.size());
    for (const Term& term : terms)
        quoted.push_back(Quoted(term.text));
    return Join(quoted, " AND ");
}

// The query for films that hold any term that begins so; a text too short for the index is looked for by them.
std::string FilmStore::TermsBeginningWith(const std::string& text)
{
    std::vector<std::string> terms;
    std::string end = text;
    end.back() = static_cast<char>(end.back() + 1);
    m_terms.Reset();
    m_terms.Bind(1, text).Bind(2, end);
    while (m_terms.Step())
        terms.push_back(Quoted(m_terms.Text(0)));
    return Join(terms, " OR ");
}

// Films whose title is the text, also behind an article.
void FilmStore::AddWholeTitles(const std::string& text, const Search& search, std::vector<Film>& hits)
{
    std::vector<std::string> texts;
    m_wholeTitles.Reset();
    for (const char* article : {"", "the ", "a ", "an "}) {
        const std::string title = article + text;
        texts.push_back('\n' + title + '\n');
        m_wholeTitles.Bind(static_cast<int>(texts.size()), static_cast<std::int64_t>(Hash(title)));
    }
    BindBounds(m_wholeTitles, static_cast<int>(texts.size()), search);
    AddRows(m_wholeTitles, texts, search, hits);
}

void FilmStore::AddHits(const Pass& pass, const Search& search, std::vector<Film>& hits)
{
    if (pass.match.empty() || hits.size() >= search.limit)
        return;
    m_search.Reset();
    m_search.Bind(1, pass.match);
    BindBounds(m_search, 1, search);
    AddRows(m_search, pass.texts, search, hits);
}

void FilmStore::AddRows(Statement& rows, const std::vector<std::string>& texts, const Search& search, std::vector<Film>& hits)
{
    const auto known = static_cast<std::ptrdiff_t>(hits.size());
    while (hits.size() < search.limit && rows.Step()) {
        const std::int64_t number = rows.Int(0);
        if (std::any_of(hits.begin(), hits.begin() + known, [number](const Film& hit) { return hit.number == number; }))
            continue;
        Film film = ReadFilm(rows);
        if (HasTitle(film, texts))
            hits.push_back(std::move(film));
    }
    rows.Reset();
}

std::vector<Film> FilmStore::SearchTitles(const Search& search)
{
    std::vector<Film> hits;
    const std::string text = Folded(search.text);
    // No title holds a NUL, and the index could not be asked for one.
    if (text.empty() || search.text.find('\0') != std::string::npos)
        return hits;
    AddWholeTitles(text, search, hits);
    // Each title stands between line ends in the index, so that "\n" and a blank begin a word.
    const std::vector<std::string> words = {'\n' + text, ' ' + text};
    const std::vector<std::string_view> characters = Characters(text);
    if (characters.size() == 1) {
        std::vector<std::string> terms = {TermsBeginningWith(words[0]), TermsBeginningWith(words[1])};
        std::erase(terms, "");
        AddHits({Join(terms, " OR "), words}, search, hits);
        return hits;
    }
    const std::string beginning = text.substr(0, characters[0].size() + characters[1].size());
    const std::string starts = '(' + Quoted('\n' + beginning) + " OR " + Quoted(' ' + beginning) + ')';
    if (characters.size() == 2) {
        AddHits({starts, words}, search, hits);
        AddHits({TermsBeginningWith(text), {text}}, search, hits);
    } else if (const std::string terms = RarestTerms(text); !terms.empty()) {
        AddHits({terms + " AND " + starts, words}, search, hits);
        AddHits({terms, {text}}, search, hits);
    }
    return hits;
}

std::optional<Person> FilmStore::FindPerson(std::int64_t number)
{
    m_person.Reset();
    m_person.Bind(1, number);
    if (!m_person.Step())
        return std::nullopt;
    return ReadPerson(m_person);
}

std::vector<Person> FilmStore::PeopleNamed(std::string_view name, std::size_t limit)
{
    m_named.Reset();
    m_named.Bind(1, name).Bind(2, static_cast<std::int64_t>(limit));
    return AllRows(m_named, ReadPerson);
}

std::vector<Work> FilmStore::Works(std::int64_t person, Section section)
{
    m_works.Reset();
    m_works.Bind(1, person).Bind(2, static_cast<std::int64_t>(section));
    return AllRows(m_works, [](const Statement& row) { return Work{ReadFilm(row), row.Text(kFilmColumnCount)}; });
}

} // namespace pagesource
