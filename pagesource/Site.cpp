#include "Site.h"

#include "Text.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

namespace pagesource {

namespace {

// The search form's first and last year. Whoever asks from or up to them asks without a bound.
constexpr std::int64_t kFirstYearOfForm = 1890;
constexpr std::int64_t kLastYearOfForm = 2009;
constexpr std::int64_t kLastYear = 9999;
// Readers of a list of names give up at a hundred.
constexpr std::size_t kMostNames = 99;
constexpr std::size_t kProductCount = 6;

// One transparent dot, for every small picture of the pages.
constexpr unsigned char kDot[] = {0x47, 0x49, 0x46, 0x38, 0x39, 0x61, 0x01, 0x00, 0x01, 0x00, 0x80, 0x00, 0x00, 0xFF, 0xFF,
                                  0xFF, 0x00, 0x00, 0x00, 0x21, 0xF9, 0x04, 0x01, 0x00, 0x00, 0x00, 0x00, 0x2C, 0x00, 0x00,
                                  0x00, 0x00, 0x01, 0x00, 0x01, 0x00, 0x00, 0x02, 0x02, 0x44, 0x01, 0x00, 0x3B};

Answer Html(std::string html)
{
    Answer answer;
    answer.body = std::move(html);
    return answer;
}

Answer SmallPage(int status, const std::string& title, const std::string& text)
{
    Answer answer =
        Html("<html><head><title>" + title + "</title></head>\r\n<body><h1>" + title + "</h1>\r\n<p>" + text + "</p></body></html>\r\n");
    answer.status = status;
    return answer;
}

Answer NotFound(std::string_view what)
{
    const std::string shown = PageText(what);
    return SmallPage(404, shown + " not found", "There is no page for " + shown + ".");
}

Answer RedirectTo(const std::string& location)
{
    Answer answer = SmallPage(302, "Moved", "The page stands elsewhere.");
    answer.location = location;
    return answer;
}

std::string_view LeadingDigits(std::string_view text)
{
    return text.substr(0, text.find_first_not_of("0123456789"));
}

// A value of the query. The title of a search comes as it was typed, so it ends at the parameter that follows and not at an "&" of its own.
std::string Parameter(std::string_view query, std::string_view name, std::string_view next = "&")
{
    const std::string key = std::string(name) + '=';
    const std::size_t at = query.starts_with(key) ? 0 : query.find('&' + key);
    if (at == std::string_view::npos)
        return {};
    const std::string_view value = query.substr(query.find('=', at) + 1);
    const std::size_t end = value.find(next);
    return UrlDecoded(value.substr(0, end == std::string_view::npos ? value.find('&') : end));
}

// A search for a title as collections keep it, such as "Alien (1979)" or "Alien (1979/II) (TV)": for the title alone, in that year.
// Nothing for a text that does not end so.
std::optional<Search> WithoutYear(Search search)
{
    constexpr std::string_view kinds[] = {"TV", "V", "VG"};
    bool hasYear = false;
    while (!hasYear && search.text.ends_with(')')) {
        const std::size_t open = search.text.rfind(" (");
        if (open == std::string::npos)
            return std::nullopt;
        const std::string mark = search.text.substr(open + 2, search.text.size() - open - 3);
        search.text.resize(open);
        if (std::find(std::begin(kinds), std::end(kinds), mark) != std::end(kinds))
            continue;
        const std::optional<std::int64_t> year = Number(mark.substr(0, mark.find('/')));
        if (!year || *year > kLastYear)
            return std::nullopt;
        search.fromYear = search.toYear = static_cast<int>(*year);
        hasYear = true;
    }
    return hasYear ? std::optional(search) : std::nullopt;
}

} // namespace

struct Site::Route
{
    std::string_view path;
    bool whole; // the path alone, or whatever begins with it
    Ask ask;
};

constexpr Site::Route Site::kRoutes[] = {
    {"/", true, &Site::Index},
    {"/Title", true, &Site::Title},
    {"/Credits", true, &Site::Credits},
    {"/Plot", true, &Site::Plot},
    {"/Companies", true, &Site::Companies},
    {"/Tsearch", true, &Site::TitleSearch},
    {"/Name", true, &Site::PersonByName},
    {"/Bio", true, &Site::BiographyByName},
    {"/name/nm", false, &Site::PersonFolder},
    {"/r/", false, &Site::ShopLink},
    {"/exec/obidos/search", true, &Site::ShopResult},
    {"/exec/obidos/ASIN/", false, &Site::Product},
    {"/media/films/", false, &Site::SmallPicture},
    {"/Covers/", false, &Site::SmallPicture},
    {"/images/P/", false, &Site::ShopPicture},
    {"/media/people/", false, &Site::PersonPicture},
    {"/downloads/autoupdate/index.html", true, &Site::Update},
};

Site::Site(FilmStore& store, Options options) : m_store(store), m_options(std::move(options))
{
    m_options.pages.hasPersonPicture = std::filesystem::exists(PicturePath("person"));
}

Answer Site::Get(std::string_view target)
{
    const std::size_t mark = target.find('?');
    const std::string_view path = target.substr(0, mark);
    const std::string_view query = mark == std::string_view::npos ? std::string_view() : target.substr(mark + 1);
    for (const Route& route : kRoutes) {
        if (route.whole ? path == route.path : path.starts_with(route.path))
            return (this->*route.ask)(path.substr(route.path.size()), query);
    }
    // Counted links lead through another folder to the title's own.
    constexpr std::string_view titleFolder = "/title/tt";
    if (const std::size_t at = path.rfind(titleFolder); at != std::string_view::npos)
        return TitleFolder(path.substr(at + titleFolder.size()), query);
    if (path.ends_with(".gif")) {
        Answer answer;
        answer.type = "image/gif";
        answer.body.assign(reinterpret_cast<const char*>(kDot), sizeof kDot);
        return answer;
    }
    return NotFound(path);
}

Answer Site::Index(std::string_view, std::string_view)
{
    return SmallPage(200, "Page source",
                     "Film pages for Kelvado, on this machine alone. Try <a href=\"/Tsearch?title=the&type=substring\">a search</a>.");
}

std::optional<Film> Site::FilmAt(std::string_view text)
{
    std::optional<Film> film = m_store.FindFilm(Number(LeadingDigits(text)).value_or(-1));
    if (film)
        film->hasPoster = film->hasPoster && std::filesystem::exists(PicturePath(Padded(film->number, 7)));
    return film;
}

Answer Site::Title(std::string_view, std::string_view query)
{
    const std::optional<Film> film = FilmAt(query);
    return film ? Html(TitlePage(m_store, m_options.pages, *film)) : NotFound(query);
}

Answer Site::Credits(std::string_view, std::string_view query)
{
    const std::optional<Film> film = FilmAt(query);
    return film ? Html(CreditsPage(m_store, m_options.pages, *film)) : NotFound(query);
}

Answer Site::Plot(std::string_view, std::string_view query)
{
    const std::optional<Film> film = FilmAt(query);
    return film ? Html(PlotPage(m_options.pages, *film)) : NotFound(query);
}

Answer Site::Companies(std::string_view, std::string_view query)
{
    const std::optional<Film> film = FilmAt(query);
    return film ? Html(CompaniesPage(m_store, m_options.pages, *film)) : NotFound(query);
}

Answer Site::TitleFolder(std::string_view rest, std::string_view query)
{
    const std::string_view number = LeadingDigits(rest);
    const std::string_view page = rest.substr(number.size());
    if (page == "/fullcredits" || page == "/combined")
        return Credits(page, number);
    if (page == "/plotsummary")
        return Plot(page, number);
    if (page == "/companycredits")
        return Companies(page, number);
    return Title(query, number);
}

Answer Site::TitleSearch(std::string_view, std::string_view query)
{
    Search search;
    search.text = Parameter(query, "title", "&type=");
    if (const auto year = Number(Parameter(query, "from_year")); year && *year > kFirstYearOfForm)
        search.fromYear = static_cast<int>(std::min(*year, kLastYear));
    if (const auto year = Number(Parameter(query, "to_year")); year && *year < kLastYearOfForm)
        search.toYear = static_cast<int>(*year);
    search.withTelevision = Parameter(query, "tv") != "off";
    std::vector<Film> hits = m_store.SearchTitles(search);
    if (const std::optional<Search> bare = hits.empty() ? WithoutYear(search) : std::nullopt)
        hits = m_store.SearchTitles(*bare);
    // A title page is known by its genres; a film without any is listed instead.
    if (hits.size() == 1 && !hits.front().genres.empty())
        return RedirectTo(FilmPath(hits.front().number));
    return Html(SearchPage(m_store, m_options.pages, search.text, hits));
}

Answer Site::PersonAnswer(const Person& person, bool biography)
{
    return Html(biography ? BiographyPage(m_store, m_options.pages, person) : PersonPage(m_store, m_options.pages, person));
}

Answer Site::PersonFolder(std::string_view rest, std::string_view)
{
    const std::string_view number = LeadingDigits(rest);
    const std::optional<Person> person = m_store.FindPerson(Number(number).value_or(-1));
    // Stored links may end in a slash of their own, so that two stand before "bio".
    return person ? PersonAnswer(*person, rest.ends_with("/bio") || rest.ends_with("/bio/")) : NotFound("nm" + std::string(number));
}

Answer Site::ByName(std::string_view query, bool biography)
{
    std::string name = UrlDecoded(query);
    if (name.starts_with("nm"))
        if (const std::optional<Person> person = m_store.FindPerson(Number(LeadingDigits(std::string_view(name).substr(2))).value_or(-1)))
            return PersonAnswer(*person, biography);
    if (const std::size_t comma = name.find(", "); comma != std::string::npos)
        name = name.substr(comma + 2) + ' ' + name.substr(0, comma);
    const std::vector<Person> people = m_store.PeopleNamed(name, kMostNames);
    if (people.empty())
        return NotFound(name);
    return people.size() == 1 ? PersonAnswer(people.front(), biography) : Html(MatchingNamesPage(m_options.pages, name, people));
}

Answer Site::PersonByName(std::string_view, std::string_view query)
{
    return ByName(query, false);
}

Answer Site::BiographyByName(std::string_view, std::string_view query)
{
    return ByName(query, true);
}

Answer Site::ShopLink(std::string_view rest, std::string_view)
{
    // Four digits name the shop, those behind them the film.
    constexpr std::size_t shopDigits = 4;
    const std::string_view digits = LeadingDigits(rest);
    if (digits.size() <= shopDigits)
        return NotFound(rest);
    const std::string path = "/exec/obidos/search?film=" + std::string(digits.substr(shopDigits));
    return RedirectTo("http://" + m_options.pages.hosts.shop + path);
}

Answer Site::ShopResult(std::string_view, std::string_view query)
{
    const std::optional<Film> film = FilmAt(Parameter(query, "film"));
    if (!film)
        return NotFound("this product");
    // Other films that share the first words fill the list.
    Search search;
    search.text = film->title.substr(0, film->title.find(' ', 4));
    search.limit = kProductCount;
    std::vector<Film> others = m_store.SearchTitles(search);
    std::erase_if(others, [&film](const Film& other) { return other.number == film->number; });
    return Html(ShopResultPage(m_options.pages, *film, others));
}

Answer Site::Product(std::string_view rest, std::string_view)
{
    const std::optional<Film> film = FilmAt(rest);
    return film ? Html(ProductPage(m_options.pages, *film)) : NotFound("this product");
}

Answer Site::SmallPicture(std::string_view rest, std::string_view)
{
    return Picture(std::string(LeadingDigits(rest)));
}

Answer Site::ShopPicture(std::string_view rest, std::string_view)
{
    const bool large = rest.find(".LZZZZZZZ.") != std::string_view::npos;
    return Picture(std::string(LeadingDigits(rest)) + (large ? "-large" : ""));
}

Answer Site::PersonPicture(std::string_view, std::string_view)
{
    return Picture("person");
}

Answer Site::Update(std::string_view, std::string_view)
{
    return Html(m_options.build + "\r\n");
}

std::string Site::PicturePath(const std::string& name) const
{
    return (std::filesystem::path(m_options.pictures) / (name + ".jpg")).string();
}

Answer Site::Picture(const std::string& name) const
{
    std::ifstream file(PicturePath(name), std::ios::binary);
    if (!file)
        return NotFound("this picture");
    std::ostringstream bytes;
    bytes << file.rdbuf();
    Answer answer;
    answer.type = "image/jpeg";
    answer.body = std::move(bytes).str();
    return answer;
}

} // namespace pagesource
