#include "Page.h"
#include "Pages.h"
#include "Text.h"

#include <algorithm>
#include <iterator>

namespace pagesource {

namespace {

struct WorkList
{
    Section section;
    std::string_view anchor;
    std::string_view label;
};
constexpr WorkList kWorkLists[] = {
    {Section::Cast, "actor", "Actor"},           {Section::Director, "director", "Director"},
    {Section::Writer, "writer", "Writer"},       {Section::Producer, "producer", "Producer"},
    {Section::Composer, "composer", "Composer"}, {Section::Photography, "cinematographer", "Cinematographer"},
    {Section::Editor, "editor", "Editor"},       {Section::Other, "misc", "Miscellaneous Crew"},
};

Dice DiceOf(const PageOptions& options, std::string_view page, const Person& person)
{
    return Dice(options.seed, page, static_cast<std::uint64_t>(person.number));
}

void AddHeadShot(Page& page, const PageOptions& options, const Person& person)
{
    (page << R"(<table><tr><td valign="top"><a name="headshot" href="photogallery">)").Break();
    page << R"(<img border="0" src="http://)";
    if (options.hasPersonPicture)
        page << options.hosts.poster << "/media/people/38m.jpg";
    else
        page << options.hosts.heads << "/Heads/npa.gif";
    page << R"(" width="100")";
    (page.Break() << R"(height="140" alt=")" << PageText(person.name) << R"("></a></td><td valign="top">)").Break();
}

void AddBirth(Page& page, const Person& person)
{
    if (person.birthYear == 0 && person.birthDay.empty() && person.birthPlace.empty())
        return;
    (page << R"(<div class="ch">Date of birth (location)</div>)").Break();
    if (const std::size_t blank = person.birthDay.find(' '); blank != std::string::npos) {
        page << "<a href=\"/OnThisDay?day=" << std::string_view(person.birthDay).substr(0, blank)
             << "&month=" << std::string_view(person.birthDay).substr(blank + 1) << "\">" << PageText(person.birthDay) << "</a> ";
    }
    if (person.birthYear != 0)
        page << "<a href=\"/BornInYear?" << std::int64_t{person.birthYear} << "\">" << std::int64_t{person.birthYear} << "</a>";
    (page << "<br>").Break();
    if (!person.birthPlace.empty())
        (page << "<a href=\"/BornWhere?" << UrlEncoded(person.birthPlace) << "\">" << PageText(person.birthPlace) << "</a><br>").Break();
}

// What the data says of the person, behind it a sentence or two that are made of the films and professions alone.
std::vector<std::string> Biography(FilmStore& store, const Person& person)
{
    constexpr std::size_t kMostFilms = 3;
    std::vector<std::string> paragraphs;
    for (const std::string& paragraph : Split(person.biography, "\n"))
        paragraphs.push_back(PageText(paragraph));
    std::vector<Film> films;
    for (const std::int64_t number : person.knownFor) {
        if (const std::optional<Film> film = store.FindFilm(number))
            films.push_back(*film);
    }
    if (films.empty()) {
        for (const Work& work : store.Works(person.number, Section::Cast))
            films.push_back(work.film);
        films.resize(std::min(films.size(), kMostFilms));
    }
    if (!person.professions.empty())
        paragraphs.push_back(PageText(person.name) + " is listed here as " + PageText(Replaced(Join(person.professions, ", "), "_", " ")) +
                             ".");
    if (!films.empty()) {
        std::string known = "Best known here for ";
        for (std::size_t i = 0; i < films.size(); ++i) {
            known.append(i == 0                  ? ""
                         : i + 1 == films.size() ? " and "
                                                 : ", ")
                .append("<a href=\"/Title?")
                .append(Padded(films[i].number, 7));
            known.append("\">").append(FullTitleHtml(films[i])).append("</a>");
        }
        paragraphs.push_back(known + '.');
    }
    paragraphs.push_back("This collection knows nothing more about " + PageText(person.name) + ".");
    return paragraphs;
}

void AddWorks(Page& page, Dice& dice, FilmStore& store, const WorkList& list, const std::vector<Work>& works)
{
    (page << "<b><a name=\"" << list.anchor << "\">" << list.label << "</a> - filmography</b>").Break();
    page << "<ol>";
    for (const Work& work : works) {
        page << "<li><a href=\"" << FilmPath(work.film.number) << "\">" << TitleHtml(work.film) << "</a> (" << YearHtml(work.film) << ")"
             << KindHtml(work.film);
        if (!work.note.empty())
            page << (list.section == Section::Cast ? "     .... " : " ") << PageText(work.note);
        if (dice.OneIn(2)) {
            for (const OtherTitle& other : store.OtherTitles(work.film.number)) {
                if (other.title == work.film.title)
                    continue;
                page << "<br>... aka " << PageText(other.title);
                if (!other.region.empty())
                    page << " (" << PageText(other.region) << ")";
                break;
            }
        }
        (page << "</li>").Break();
    }
    (page << "</ol>").Break();
}

} // namespace

std::string PersonPage(FilmStore& store, const PageOptions& options, const Person& person)
{
    Dice dice = DiceOf(options, "person", person);
    Page page(dice);
    page.Open(PageText(person.name), false);
    (page << "<h1><strong class=\"title\">" << PageText(person.name) << "</strong></h1>").Break();
    AddHeadShot(page, options, person);
    AddBirth(page, person);
    if (person.deathYear != 0) {
        (page << R"(<div class="ch">Date of death</div>)").Break();
        (page << "<a href=\"/DiedInYear?" << std::int64_t{person.deathYear} << "\">" << std::int64_t{person.deathYear} << "</a><br>")
            .Break();
    }
    if (!person.birthName.empty()) {
        (page << R"(<dl><dt class="ch">Birth name</dt>)").Break();
        (page << "<dd>" << PageText(person.birthName) << "</dd></dl>").Break();
    }
    if (dice.OneIn(2)) {
        (page << R"(<dl><dt class="ch">Mini biography</dt>)").Break();
        (page << "<dd>" << Biography(store, person).front() << " <a href=\"bio\">(show more)</a></dd></dl>").Break();
    }
    (page << "</td></tr></table>").Break();

    // The kind of work with most films stands in front; the first list is the one that readers take.
    struct Filled
    {
        const WorkList* list;
        std::vector<Work> works;
    };
    std::vector<Filled> lists;
    for (const WorkList& list : kWorkLists) {
        std::vector<Work> works = store.Works(person.number, list.section);
        if (!works.empty())
            lists.push_back({&list, std::move(works)});
    }
    std::stable_sort(lists.begin(), lists.end(), [](const Filled& a, const Filled& b) { return a.works.size() > b.works.size(); });
    for (const Filled& filled : lists)
        AddWorks(page, dice, store, *filled.list, filled.works);
    if (lists.empty())
        AddWorks(page, dice, store, kWorkLists[0], {});
    page.Close();
    return page.Html();
}

std::string BiographyPage(FilmStore& store, const PageOptions& options, const Person& person)
{
    Dice dice = DiceOf(options, "biography", person);
    Page page(dice);
    page.Open("Biography for " + PageText(person.name), false);
    (page << "<h1><strong class=\"title\">Biography for <a href=\"" << PersonPath(person.number) << "\">" << PageText(person.name)
          << "</a></strong></h1><dl>")
        .Break();
    if (!person.birthName.empty()) {
        (page << R"(<dt class="ch">Birth name</dt>)").Break();
        (page << "<dd>" << PageText(person.birthName) << "</dd><hr>").Break();
    }
    if (!person.height.empty()) {
        (page << R"(<dt class="ch">Height</dt>)").Break();
        // This one label has its sign by name, unlike all other texts.
        (page << "<dd>" << Replaced(PageText(person.height), "&#34;", "&quot;") << " <hr width=\"90%\"></dd>").Break();
    }
    (page << R"(<dt class="ch">Mini biography</dt>)").Break();
    page << "<dd>";
    for (const std::string& paragraph : Biography(store, person)) {
        page << "<p class=\"biopar\">" << paragraph << "</p>";
        if (dice.OneIn(2))
            page.Break();
    }
    (page << "<hr width=\"90%\"></dd></dl>").Break();
    page.Close();
    return page.Html();
}

std::string MatchingNamesPage(const PageOptions& options, std::string_view name, const std::vector<Person>& people)
{
    Dice dice(options.seed, "names", Hash(name));
    Page page(dice);
    page.Open("Name search", false);
    (page << "<h1>Name search</h1>").Break();
    (page << "<P><B>Matching names...</B>").Break();
    (page << "<OL>").Break();
    for (const Person& person : people) {
        page << "<LI><A HREF=\"" << PersonPath(person.number) << "\">" << PageText(person.name) << "</A> ("
             << (person.professions.empty() ? "" : PageText(Replaced(person.professions.front(), "_", " ")));
        if (person.birthYear != 0)
            page << (person.professions.empty() ? "" : ", ") << "born " << std::int64_t{person.birthYear};
        (page << ")</LI>").Break();
    }
    (page << "</OL>").Break();
    page.Close();
    return page.Html();
}

} // namespace pagesource
