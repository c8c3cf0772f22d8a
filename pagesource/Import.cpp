#include "Import.h"

#include "FilmWriter.h"
#include "Text.h"
#include "TsvFile.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <optional>

namespace pagesource {

namespace {

constexpr std::int64_t kLastFilmNumber = 9'999'999;
constexpr std::int64_t kLastPersonNumber = 99'999'999;
constexpr std::size_t kComplaintCount = 10;
constexpr std::int64_t kProgressRows = 1 << 16;

struct KindName
{
    std::string_view name;
    Kind kind;
};
constexpr KindName kKinds[] = {
    {"movie", Kind::Film},         {"short", Kind::Film},           {"tvMovie", Kind::Television},
    {"tvShort", Kind::Television}, {"tvSpecial", Kind::Television}, {"video", Kind::Video},
    {"videoGame", Kind::Game},     {"tvSeries", Kind::Series},      {"tvMiniSeries", Kind::Series},
};

struct Category
{
    std::string_view name;
    Section section;
    std::string_view remark; // behind the note
};
constexpr Category kCategories[] = {
    {"actor", Section::Cast, ""},
    {"actress", Section::Cast, ""},
    {"self", Section::Cast, ""},
    {"archive_footage", Section::Cast, "(archive footage)"},
    {"archive_sound", Section::Cast, "(archive sound)"},
    {"director", Section::Director, ""},
    {"writer", Section::Writer, ""},
    {"producer", Section::Producer, ""},
    {"composer", Section::Composer, ""},
    {"cinematographer", Section::Photography, ""},
    {"editor", Section::Editor, ""},
    {"production_designer", Section::Other, "(production design)"},
    {"casting_director", Section::Other, "(casting)"},
};

// "tt0017136" and "nm0000001": the number behind two letters.
std::optional<std::int64_t> NumberBehind(std::string_view prefix, std::string_view text)
{
    if (!text.starts_with(prefix))
        return std::nullopt;
    return Number(text.substr(prefix.size()));
}

// Null, which is 0, or a number of at most four digits more than a year has.
std::optional<int> SmallNumber(std::string_view text)
{
    if (text.empty())
        return 0;
    const std::optional<std::int64_t> number = Number(text);
    return number && *number < 100'000'000 ? std::optional<int>(static_cast<int>(*number)) : std::nullopt;
}

// ["Katczinsky","A Guest"] as "Katczinsky / A Guest".
std::string CharacterNames(std::string_view list)
{
    std::string names;
    bool inText = false;
    for (std::size_t i = 0; i < list.size(); ++i) {
        const char c = list[i];
        if (c == '"') {
            inText = !inText;
            if (inText && !names.empty())
                names += " / ";
        } else if (inText && c == '\\' && i + 1 < list.size()) {
            names += list[++i];
        } else if (inText) {
            names += c;
        }
    }
    return names;
}

// Calls `use` for each part of a comma-separated list.
template<typename Use>
void ForEachPart(std::string_view list, Use use)
{
    for (std::size_t from = 0; from < list.size();) {
        const std::size_t end = std::min(list.find(',', from), list.size());
        use(list.substr(from, end - from));
        from = end + 1;
    }
}

class Importer
{
public:
    Importer(std::string folder, const std::string& target, const ImportProgress& progress)
        : m_folder(std::move(folder)), m_progress(progress), m_writer(target), m_films(kLastFilmNumber + 1), m_people(kLastPersonNumber + 1)
    {
    }

    ImportReport Run()
    {
        const auto start = std::chrono::steady_clock::now();
        ReadRatings();
        ReadTitles();
        m_votes = {};
        m_ratings = {};
        ReadOtherTitles();
        ReadCrew();
        ReadPrincipals();
        ReadNames();
        m_writer.Finish([this](const char* stage) { m_progress(stage, 0); });
        m_report.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        return m_report;
    }

private:
    // The packed file or the plain one; empty if neither is there.
    std::string PathOf(const std::string& name) const
    {
        for (const char* ending : {".tsv.gz", ".tsv"}) {
            const std::filesystem::path path = std::filesystem::path(m_folder) / (name + ending);
            if (std::filesystem::exists(path))
                return path.string();
        }
        return {};
    }

    // Reads a file's rows; `take` answers with what is wrong with the row, or nullptr.
    template<std::size_t Count, typename Take>
    void ReadRows(const std::string& name, const std::array<std::string_view, Count>& columns, const char* consequence, Take take)
    {
        const std::string path = PathOf(name);
        if (path.empty()) {
            m_report.notices.push_back("There is no " + name + ".tsv.gz: " + consequence);
            return;
        }
        TsvFile file(path, columns);
        m_progress(file.Name(), 0);
        std::int64_t rows = 0;
        for (TsvFile::Line line; (line = file.Next()) != TsvFile::Line::End;) {
            const char* const fault = line == TsvFile::Line::Malformed ? "another number of columns than the first line" : take(file);
            if (fault)
                Complain(file, fault);
            if (++rows % kProgressRows == 0)
                m_progress(file.Name(), rows);
        }
        m_report.rows += rows;
        m_progress(file.Name(), rows);
    }

    void Complain(const TsvFile& file, const char* fault)
    {
        ++m_report.malformed;
        if (m_report.complaints.size() < kComplaintCount)
            m_report.complaints.push_back(file.Place() + ": " + fault);
    }

    void ReadRatings()
    {
        constexpr std::array<std::string_view, 3> columns = {"tconst", "averageRating", "numVotes"};
        ReadRows("title.ratings", columns, "films have no rating.", [this](const TsvFile& row) -> const char* {
            const auto number = NumberBehind("tt", row[0]);
            const std::string rating(row[1]);
            char* end = nullptr;
            const double value = std::strtod(rating.c_str(), &end);
            const auto votes = Number(row[2]);
            if (!number || rating.empty() || *end || !(value >= 0 && value <= 10) || !votes || *votes > UINT32_MAX)
                return "no rating";
            if (*number > kLastFilmNumber)
                return nullptr;
            if (m_votes.empty()) {
                m_votes.resize(kLastFilmNumber + 1);
                m_ratings.resize(kLastFilmNumber + 1);
            }
            m_votes[*number] = static_cast<std::uint32_t>(*votes);
            m_ratings[*number] = static_cast<std::uint8_t>(std::lround(value * 10));
            return nullptr;
        });
    }

    void ReadTitles()
    {
        if (PathOf("title.basics").empty())
            throw Failure(m_folder + " holds neither title.basics.tsv.gz nor title.basics.tsv.");
        constexpr std::array<std::string_view, 7> columns = {"tconst",    "titleType",      "primaryTitle", "originalTitle",
                                                             "startYear", "runtimeMinutes", "genres"};
        Film film;
        ReadRows("title.basics", columns, "", [this, &film](const TsvFile& row) -> const char* {
            const auto number = NumberBehind("tt", row[0]);
            const auto year = SmallNumber(row[4]);
            const auto minutes = SmallNumber(row[5]);
            if (!number || row[1].empty() || row[2].empty() || !year || !minutes)
                return "no title";
            const auto* const kind =
                std::find_if(std::begin(kKinds), std::end(kKinds), [&row](const KindName& k) { return k.name == row[1]; });
            if (kind == std::end(kKinds))
                return nullptr;
            if (*number > kLastFilmNumber) {
                ++m_report.leftOut;
                return nullptr;
            }
            film.number = *number;
            film.kind = kind->kind;
            film.title = row[2];
            film.year = *year;
            film.minutes = *minutes;
            film.genres.assign(row[6].empty() ? 0 : 1, std::string(row[6]));
            film.votes = m_votes.empty() ? 0 : m_votes[*number];
            film.ratingTenths = m_ratings.empty() ? 0 : m_ratings[*number];
            if (!m_writer.AddFilm(film))
                return "a number for the second time";
            m_films[*number] = true;
            ++m_report.films;
            if (!row[3].empty() && row[3] != row[2])
                m_writer.AddOtherTitle(*number, 0, {std::string(row[3]), "", "original title"});
            return nullptr;
        });
    }

    void ReadOtherTitles()
    {
        constexpr std::array<std::string_view, 6> columns = {"titleId", "ordering", "title", "region", "types", "attributes"};
        ReadRows("title.akas", columns, "films have no other titles.", [this](const TsvFile& row) -> const char* {
            const auto number = NumberBehind("tt", row[0]);
            const auto place = SmallNumber(row[1]);
            if (!number || !place || row[2].empty())
                return "no title";
            if (!IsFilm(*number) || row[4] == "original")
                return nullptr;
            std::string note(row[5].empty() ? row[4] : row[5]);
            if (note == "working")
                note = "working title";
            else if (note == "imdbDisplay" || note == "alternative")
                note.clear();
            m_writer.AddOtherTitle(*number, *place, {std::string(row[2]), std::string(row[3]), Replaced(note, "\x02", ", ")});
            ++m_report.otherTitles;
            return nullptr;
        });
    }

    void ReadCrew()
    {
        constexpr std::array<std::string_view, 3> columns = {"tconst", "directors", "writers"};
        ReadRows("title.crew", columns, "directors and writers are those among the principals.", [this](const TsvFile& row) -> const char* {
            const auto number = NumberBehind("tt", row[0]);
            if (!number)
                return "no title number";
            if (!IsFilm(*number))
                return nullptr;
            const bool whole = AddCrew(*number, Section::Director, row[1]) && AddCrew(*number, Section::Writer, row[2]);
            return whole ? nullptr : "no list of people";
        });
    }

    bool AddCrew(std::int64_t film, Section section, std::string_view people)
    {
        int place = 0;
        bool whole = true;
        ForEachPart(people, [&](std::string_view part) {
            const auto person = NumberBehind("nm", part);
            whole = whole && person && *person <= kLastPersonNumber;
            if (whole)
                AddCredit(film, section, ++place, *person, {});
        });
        return whole;
    }

    void ReadPrincipals()
    {
        constexpr std::array<std::string_view, 6> columns = {"tconst", "ordering", "nconst", "category", "job", "characters"};
        ReadRows("title.principals", columns, "films have no cast.", [this](const TsvFile& row) -> const char* {
            const auto film = NumberBehind("tt", row[0]);
            const auto place = SmallNumber(row[1]);
            const auto person = NumberBehind("nm", row[2]);
            if (!film || !place || !person || *person > kLastPersonNumber || row[3].empty())
                return "no person of a film";
            if (!IsFilm(*film))
                return nullptr;
            const auto* const category =
                std::find_if(std::begin(kCategories), std::end(kCategories), [&row](const Category& c) { return c.name == row[3]; });
            if (category == std::end(kCategories))
                return nullptr;
            const bool cast = category->section == Section::Cast;
            m_note = row[5].empty() ? std::string(row[4]) : CharacterNames(row[5]);
            if (!cast && !m_note.empty())
                m_note = '(' + m_note + ')';
            // A remark follows a role, and stands in for a note that is missing.
            if (!category->remark.empty() && (cast || m_note.empty()))
                m_note.append(m_note.empty() ? "" : " ").append(category->remark);
            // Directors and writers are there from the crew list, in its order; here they get their notes.
            const bool crew = category->section == Section::Director || category->section == Section::Writer;
            if (!crew || !m_writer.NoteCredit(*film, category->section, *person, m_note))
                AddCredit(*film, category->section, crew ? kBehindCrew + *place : *place, *person, m_note);
            return nullptr;
        });
    }

    void ReadNames()
    {
        constexpr std::array<std::string_view, 6> columns = {"nconst",    "primaryName",       "birthYear",
                                                             "deathYear", "primaryProfession", "knownForTitles"};
        Person person;
        ReadRows("name.basics", columns, "credits have no names and stay empty.", [this, &person](const TsvFile& row) -> const char* {
            const auto number = NumberBehind("nm", row[0]);
            const auto birth = SmallNumber(row[2]);
            const auto death = SmallNumber(row[3]);
            if (!number || *number > kLastPersonNumber || row[1].empty() || !birth || !death)
                return "no person";
            if (!m_people[*number])
                return nullptr;
            person.number = *number;
            person.name = row[1];
            person.birthYear = *birth;
            person.deathYear = *death;
            person.professions.assign(row[4].empty() ? 0 : 1, std::string(row[4]));
            person.knownFor.clear();
            ForEachPart(row[5], [this, &person](std::string_view title) {
                if (const auto film = NumberBehind("tt", title); film && IsFilm(*film))
                    person.knownFor.push_back(*film);
            });
            m_writer.AddPerson(person);
            ++m_report.people;
            return nullptr;
        });
    }

    bool IsFilm(std::int64_t number) const { return number <= kLastFilmNumber && m_films[number]; }

    void AddCredit(std::int64_t film, Section section, int place, std::int64_t person, std::string_view note)
    {
        if (!m_writer.AddCredit(film, section, place, person, note))
            return;
        m_people[person] = true;
        ++m_report.credits;
    }

    static constexpr int kBehindCrew = 10'000;

    std::string m_folder;
    const ImportProgress& m_progress;
    FilmWriter m_writer;
    ImportReport m_report;
    std::vector<std::uint32_t> m_votes; // by film number; empty without ratings
    std::vector<std::uint8_t> m_ratings;
    std::vector<bool> m_films; // by number: which ones were taken
    std::vector<bool> m_people;
    std::string m_note;
};

} // namespace

ImportReport ImportDataSets(const std::string& folder, const std::string& target, const ImportProgress& progress)
{
    return Importer(folder, target, progress).Run();
}

} // namespace pagesource
