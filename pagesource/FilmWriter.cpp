#include "FilmWriter.h"

#include "Schema.h"
#include "Text.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace pagesource {

namespace {

// Nothing of a half-written file is ever kept, so the engine need not guard it.
constexpr const char* kFastWriting =
    "PRAGMA page_size=8192; PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF; PRAGMA locking_mode=EXCLUSIVE; "
    "PRAGMA cache_size=-64000; PRAGMA temp_store=FILE;";

// The title readers know the numerals from I to V; a sixth film of one name and year goes without.
constexpr const char* kNumberFilms = R"(
UPDATE film SET ordinal = twin.ordinal FROM (
    SELECT number, row_number() OVER names AS ordinal, count(*) OVER (PARTITION BY title, year) AS twins
    FROM film WINDOW names AS (PARTITION BY title, year ORDER BY number)) AS twin
WHERE twin.number = film.number AND twins > 1 AND twin.ordinal <= 5 AND film.year <> 0)";

void BindText(Statement& statement, int place, std::string_view text)
{
    if (text.empty())
        statement.BindNull(place);
    else
        statement.Bind(place, text);
}

void SyncFile(const std::string& path)
{
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0 || ::fsync(file) != 0) {
        const std::string reason = std::strerror(errno);
        if (file >= 0)
            ::close(file);
        throw Failure(path + ": " + reason);
    }
    ::close(file);
}

// Takes the unfinished file for this process alone, whatever an earlier one has left of it, and empties it.
int LockFile(const std::string& path, const std::string& target)
{
    while (true) {
        const int file = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
        if (file < 0)
            throw Failure(path + ": " + std::strerror(errno));
        struct stat locked
        {
        };
        struct stat named
        {
        };
        const bool mine = ::flock(file, LOCK_EX | LOCK_NB) == 0;
        // Between the two calls, another writer may have put its file in place and freed the name.
        const bool same = mine && ::fstat(file, &locked) == 0 && ::stat(path.c_str(), &named) == 0 && locked.st_ino == named.st_ino;
        if (same && ::ftruncate(file, 0) == 0)
            return file;
        ::close(file);
        if (!mine)
            throw Failure(target + " is being made by another import.");
        if (same)
            throw Failure(path + ": " + std::strerror(errno));
    }
}

} // namespace

struct FilmWriter::Statements
{
    explicit Statements(Database& database)
        : film(database, "INSERT OR IGNORE INTO film(number, kind, title, year, minutes, rating, votes, genres, languages, countries, "
                         "certificate, colour, plot, hasPoster) VALUES(?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
          otherTitle(database, "INSERT OR IGNORE INTO otherTitle VALUES(?, ?, ?, ?, ?)"),
          credit(database, "INSERT OR IGNORE INTO credit VALUES(?, ?, ?, ?, ?)"),
          creditNote(database, "UPDATE credit SET note = ? WHERE film = ? AND section = ? AND person = ?"),
          person(database, "INSERT OR IGNORE INTO person VALUES(?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
          company(database, "INSERT OR IGNORE INTO company VALUES(?, ?)"),
          companyLink(database, "INSERT OR IGNORE INTO companyLink VALUES(?, ?, ?, ?, ?)")
    {
    }
    Statement film;
    Statement otherTitle;
    Statement credit;
    Statement creditNote;
    Statement person;
    Statement company;
    Statement companyLink;
};

FilmWriter::FilmWriter(std::string target)
    : m_target(std::move(target)), m_partial(m_target + ".partial"), m_lock(LockFile(m_partial, m_target))
{
    try {
        m_database = std::make_unique<Database>(m_partial, Database::Mode::Create);
        m_database->Execute(kFastWriting);
        m_database->Execute(kTables);
        m_database->Execute("BEGIN");
        m_add = std::make_unique<Statements>(*m_database);
    } catch (...) {
        Close();
        throw;
    }
}

FilmWriter::~FilmWriter()
{
    Close();
}

void FilmWriter::Close()
{
    if (m_lock < 0)
        return;
    m_add.reset();
    m_database.reset();
    std::error_code ignored;
    std::filesystem::remove(m_partial, ignored);
    ::close(std::exchange(m_lock, -1));
}

bool FilmWriter::AddFilm(const Film& film)
{
    const std::string genres = Join(film.genres, ",");
    const std::string languages = Join(film.languages, ",");
    const std::string countries = Join(film.countries, ",");
    Statement& add = m_add->film;
    add.Bind(1, film.number).Bind(2, static_cast<std::int64_t>(film.kind)).Bind(3, film.title).Bind(4, film.year).Bind(5, film.minutes);
    add.Bind(6, film.ratingTenths).Bind(7, film.votes);
    BindText(add, 8, genres);
    BindText(add, 9, languages);
    BindText(add, 10, countries);
    BindText(add, 11, film.certificate);
    BindText(add, 12, film.colour);
    BindText(add, 13, film.plot);
    add.Bind(14, film.hasPoster ? 1 : 0).Run();
    return m_database->Changes() == 1;
}

void FilmWriter::AddOtherTitle(std::int64_t film, int place, const OtherTitle& title)
{
    Statement& add = m_add->otherTitle;
    add.Bind(1, film).Bind(2, place).Bind(3, title.title);
    BindText(add, 4, title.region);
    BindText(add, 5, title.note);
    add.Run();
}

bool FilmWriter::AddCredit(std::int64_t film, Section section, int place, std::int64_t person, std::string_view note)
{
    Statement& add = m_add->credit;
    add.Bind(1, film).Bind(2, static_cast<std::int64_t>(section)).Bind(3, place).Bind(4, person);
    BindText(add, 5, note);
    add.Run();
    return m_database->Changes() == 1;
}

bool FilmWriter::NoteCredit(std::int64_t film, Section section, std::int64_t person, std::string_view note)
{
    Statement& change = m_add->creditNote;
    BindText(change, 1, note);
    change.Bind(2, film).Bind(3, static_cast<std::int64_t>(section)).Bind(4, person).Run();
    return m_database->Changes() > 0;
}

void FilmWriter::AddPerson(const Person& person)
{
    const std::string professions = Join(person.professions, ",");
    std::string knownFor;
    for (const std::int64_t film : person.knownFor)
        knownFor.append(knownFor.empty() ? "" : ",").append(std::to_string(film));
    Statement& add = m_add->person;
    add.Bind(1, person.number).Bind(2, person.name).Bind(4, person.birthYear).Bind(5, person.deathYear);
    BindText(add, 3, person.birthDay);
    BindText(add, 6, person.birthPlace);
    BindText(add, 7, person.birthName);
    BindText(add, 8, person.height);
    BindText(add, 9, professions);
    BindText(add, 10, knownFor);
    BindText(add, 11, person.biography);
    add.Run();
}

void FilmWriter::AddCompany(std::int64_t number, std::string_view name)
{
    m_add->company.Bind(1, number).Bind(2, name).Run();
}

void FilmWriter::AddCompanyLink(std::int64_t film, CompanySection section, int place, std::int64_t company, std::string_view note)
{
    Statement& add = m_add->companyLink;
    add.Bind(1, film).Bind(2, static_cast<std::int64_t>(section)).Bind(3, place).Bind(4, company);
    BindText(add, 5, note);
    add.Run();
}

void FilmWriter::NumberFilms()
{
    m_database->Execute(kNumberFilms);
}

void FilmWriter::IndexTitles()
{
    m_database->Execute("INSERT INTO search(search, rank) VALUES('hashsize', 33554432)");
    m_database->Execute("CREATE TABLE temp.titles(hash INTEGER, film INTEGER)");
    Statement films(*m_database, "SELECT number, title FROM film ORDER BY votes DESC, rating DESC, number");
    Statement titles(*m_database, "SELECT title FROM otherTitle WHERE film = ? ORDER BY place");
    Statement place(*m_database, "INSERT INTO place VALUES(?, ?)");
    Statement whole(*m_database, "INSERT INTO temp.titles VALUES(?, ?)");
    Statement index(*m_database, "INSERT INTO search(rowid, text) VALUES(?, ?)");
    for (std::int64_t count = 1; films.Step(); ++count) {
        const std::int64_t number = films.Int(0);
        std::string text = "\n";
        const auto add = [&](const std::string& title) {
            const std::string folded = Folded(title);
            if (text.find('\n' + folded + '\n') != std::string::npos)
                return;
            text.append(folded) += '\n';
            whole.Bind(1, static_cast<std::int64_t>(Hash(folded))).Bind(2, number).Run();
        };
        add(films.Text(1));
        titles.Bind(1, number);
        while (titles.Step())
            add(titles.Text(0));
        titles.Reset();
        place.Bind(1, count).Bind(2, number).Run();
        index.Bind(1, count).Bind(2, text).Run();
    }
}

void FilmWriter::Finish(const std::function<void(const char* stage)>& stage)
{
    stage("Numbering films of one name");
    NumberFilms();
    stage("Indexing titles");
    IndexTitles();
    stage("Indexing people");
    m_database->Execute(kIndexes);
    stage("Closing the file");
    m_database->Execute("PRAGMA user_version=" + std::to_string(kDataVersion));
    m_database->Execute("COMMIT");
    m_add.reset();
    m_database.reset();
    SyncFile(m_partial);
    std::error_code fault;
    std::filesystem::rename(m_partial, m_target, fault);
    if (fault)
        throw Failure(m_target + ": " + fault.message());
    ::close(std::exchange(m_lock, -1)); // the name of the unfinished file is free, and may be another writer's from now on
}

} // namespace pagesource
