#include "Page.h"
#include "Pages.h"
#include "Text.h"

#include <algorithm>
#include <iterator>

namespace pagesource {

namespace {

constexpr int kFirstBilled = 15;
constexpr std::size_t kShortPlot = 200;

struct CreditTable
{
    Section section;
    std::string_view anchor;
    std::string_view label;
};
constexpr CreditTable kCreditTables[] = {
    {Section::Director, "/Glossary/D#director", "Directed by"},
    {Section::Writer, "/Glossary/W#writer", "Writing credits"},
    {Section::Cast, "/Glossary/C#cast", "Cast"},
    {Section::Producer, "/Glossary/P#producer", "Produced by"},
    {Section::Composer, "/Glossary/M#music", "Original Music by"},
    {Section::Photography, "/Glossary/C#cinematographer", "Cinematography by"},
    {Section::Editor, "/Glossary/F#filmeditor", "Film Editing by"},
    {Section::Other, "/Glossary/O#other", "Other crew"},
};

struct CompanyList
{
    CompanySection section;
    std::string_view label;
};
constexpr CompanyList kCompanyLists[] = {
    {CompanySection::Production, "Production Companies"},
    {CompanySection::Distributor, "Distributors"},
    {CompanySection::Effects, "Special Effects"},
    {CompanySection::Other, "Other Companies"},
};

struct Shop
{
    std::string_view name;
    std::string_view prefix;
};
constexpr Shop kShops[] = {{"Amazon.com", "/r/5040"}, {"Amazon.co.uk", "/r/5041"}, {"Amazon.ca", "/r/5042"}, {"Amazon.de", "/r/5043"}};

// What other countries saw is known of no film here. Pages with a seed say so all the same, as real ones did.
struct OtherCut
{
    std::string_view country;
    int minutesMore;
    std::string_view note;
};
constexpr OtherCut kOtherCuts[] = {{"Germany", -1, " (cut version)"}, {"UK", 4, " (director's cut)"}, {"Argentina", -6, ""}};
constexpr std::string_view kOtherCertificates[] = {"UK:15", "Germany:12"};

Dice DiceOf(const PageOptions& options, std::string_view page, const Film& film)
{
    return Dice(options.seed, page, static_cast<std::uint64_t>(film.number));
}

// The first sentence, or as many words as fit where it does not end.
std::string Outline(const std::string& plot)
{
    for (std::size_t at = plot.find(". "); at != std::string::npos; at = plot.find(". ", at + 1)) {
        if (at >= 30)
            return plot.substr(0, at + 1);
    }
    return plot;
}

std::string Words(const std::string& plot, std::size_t length)
{
    return plot.size() <= length ? plot : plot.substr(0, plot.rfind(' ', length));
}

std::string Cell(std::string_view name, std::string_view link, std::string_view note)
{
    std::string row = "<td valign=\"top\"><a href=\"";
    row.append(link).append("\">").append(name).append(R"(</a></td><td valign="top" nowrap="1"> .... </td><td valign="top">)");
    return row.append(note).append("</td>");
}

std::string CreditCell(const Credit& credit, bool noteInLink)
{
    std::string note = PageText(credit.note);
    if (noteInLink && !note.empty() && note.front() != '(')
        note = "<a href=\"/characters/\">" + note + "</a>";
    return Cell(PageText(credit.name), PersonPath(credit.person), note);
}

void AddHeading(Page& page, Dice& dice, const Film& film)
{
    page << "<h1><strong class=\"title\">" << TitleHtml(film) << " ";
    if (dice.OneIn(2))
        page.Break();
    page << "<small>(<a href=\"/Sections/Years/" << std::int64_t{film.year} << "\">" << YearHtml(film) << "</a>)" << KindHtml(film)
         << "</small>";
    if (dice.OneIn(3))
        page.Break();
    (page << "</strong></h1>").Break();
}

void AddPoster(Page& page, Dice& dice, const PageOptions& options, const Film& film)
{
    const std::string number = Padded(film.number, 7);
    const std::string title = TitleHtml(film);
    const Hosts& hosts = options.hosts;
    page << R"(<table border="0" cellpadding="0" cellspacing="0"><tr><td valign="top" width="110">)";
    if (!film.hasPoster) {
        if (dice.OneIn(3)) {
            page << R"(<img border="0" alt="no picture" src="http://)" << hosts.heads << R"(/Heads/npa.gif" height="121" width="100">)";
        } else {
            page
                << R"(<a href="/rg/title_noposter2//publicity/" title="Poster Not Submitted"><img border="0" alt="Poster Not Submitted" src="http://)"
                << hosts.poster << R"(/media/none/29.gif" height="121" width="100"></a>)";
        }
    } else {
        switch (dice.Below(5)) {
        case 0: // no name, an older host
            page << R"(<img border="0" alt="cover" src="http://)" << hosts.oldPoster << "/Covers/" << number
                 << R"(.jpg" height="150" width="100">)";
            break;
        case 1: // the shop's picture
            page << "<a href=\"" << kShops[0].prefix << number << "/\"><img border=\"0\" alt=\"cover\" src=\"http://" << hosts.shopImage
                 << "/images/P/" << number << R"(.01.MZZZZZZZ.jpg" height="150" width="100"></a>)";
            break;
        case 2:
            page << R"(<a name="poster" href="photogallery" title=")" << title << R"("><img border="0" alt=")" << title << R"(" title=")"
                 << title << R"(" src="http://)" << hosts.poster << "/media/films/" << number
                 << R"(/48m.jpg" height="150" width="100"></a>)";
            break;
        default:
            page << R"(<a name="poster" href="photogallery"><img border="0" alt="cover" src="http://)" << hosts.poster << "/media/films/"
                 << number << R"(/48m.jpg" height="150" width="100"></a>)";
        }
    }
    (page << "</td><td valign=\"top\">").Break();
}

// "Label:" on a line of its own, then links that hold the values, parted by slashes.
void AddLinks(Page& page, std::string_view label, std::string_view path, const std::vector<std::string>& values, bool withMore,
              std::string_view number)
{
    if (values.empty())
        return;
    (page << "<b class=\"ch\">" << label << ":</b>").Break();
    bool first = true;
    for (const std::string& value : values) {
        const std::string text = PageText(value);
        page << (first ? "" : " / ") << "<a href=\"" << path << text << "/\">" << text << "</a>";
        first = false;
    }
    if (withMore)
        page << " <a href=\"/rg/title-tease/keywords/title/tt" << number << "/keywords\">(more)</a>";
}

void AddRating(Page& page, Dice& dice, const Film& film)
{
    (page << "<b class=\"ch\">User Rating:</b>").Break();
    int gold = 0;
    if (film.ratingTenths > 0)
        gold = std::max(1, dice.OneIn(2) ? film.ratingTenths / 10 : (film.ratingTenths + 5) / 10);
    for (int star = 0; star < 10; ++star)
        page << "<img src=\"/images/" << (star < gold ? "goldstar.gif" : "greystar.gif")
             << R"(" width="12" height="12" border="0" alt="*">)";
    page.Break();
    if (gold == 0) {
        page << "<small>(awaiting 5 votes)</small>";
    } else {
        page << "<b>" << std::int64_t{film.ratingTenths / 10} << "." << std::int64_t{film.ratingTenths % 10} << "/10</b> ("
             << Thousands(film.votes) << (film.votes == 1 ? " vote)" : " votes)");
    }
    (page.Break() << "<br><br>").Break();
}

void AddPlotTeaser(Page& page, const Film& film, std::string_view number, bool summary)
{
    if (film.plot.empty())
        return;
    if (summary)
        page << "<b class=\"ch\">Plot Summary:</b> " << PageText(Words(film.plot, 90)) << "... ";
    else
        page << "<b class=\"ch\">Plot Outline:</b> " << PageText(Outline(film.plot)) << " ";
    page << "<a href=\"/rg/title-tease/plotsummary/title/tt" << number << "/plotsummary\">(more)</a>";
    (page.Break() << "<br><br>").Break();
}

void AddFirstCast(Page& page, Dice& dice, FilmStore& store, const Film& film)
{
    const std::vector<Credit> cast = store.Credits(film.number, Section::Cast);
    if (cast.empty())
        return;
    page << R"(<table border="0" cellpadding="1" cellspacing="0"><tr><td colspan="3"><b class="blackcatheader">)"
         << (cast.size() > kFirstBilled ? "Cast overview, first billed only:" : "Credited cast:") << "</b></td></tr>";
    for (std::size_t i = 0; i < cast.size() && i < kFirstBilled; ++i)
        page << "<tr>" << CreditCell(cast[i], dice.OneIn(12)) << "</tr>";
    (page << R"(<tr><td colspan="3">&nbsp;&#160;<a href="fullcredits">(more)</a></td></tr></table>)").Break();
    (page << "<br>").Break();
}

void AddCertificate(Page& page, std::string_view certificate)
{
    page << "<a href=\"/List?certificates=" << certificate << "&&heading=13;" << certificate << "\">" << certificate << "</a>";
}

void AddCertificates(Page& page, Dice& dice, const PageOptions& options, const Film& film)
{
    if (film.certificate.empty())
        return;
    const std::string certificate = PageText(film.certificate);
    const int shape = dice.Below(3);
    if (shape != 0)
        (page << R"(<b class="ch"><a href="/mpaa">MPAA</a>:</b> Rated )" << certificate << ".<br>").Break();
    if (shape != 1) {
        (page << "<b class=\"ch\">Certification:</b>").Break();
        AddCertificate(page, "USA:" + certificate);
        for (const std::string_view other : kOtherCertificates) {
            if (options.seed != 0 && dice.OneIn(2))
                AddCertificate(page << " / ", other);
        }
        (page.Break() << "<br>").Break();
    }
}

void AddRuntime(Page& page, Dice& dice, const PageOptions& options, const Film& film)
{
    page << "<b class=\"ch\">Runtime:</b>";
    if (options.seed != 0 && dice.OneIn(3))
        page << " ";
    page.Break() << std::int64_t{film.minutes} << " min";
    if (options.seed != 0 && dice.OneIn(3)) {
        const OtherCut& cut = kOtherCuts[dice.Below(std::size(kOtherCuts))];
        page << "  / " << cut.country << ":" << std::int64_t{std::max(1, film.minutes + cut.minutesMore)} << " min" << cut.note;
    }
    if (options.seed != 0 && dice.OneIn(3))
        page << " ";
    (page.Break() << "<br>").Break();
}

void AddFacts(Page& page, Dice& dice, const PageOptions& options, const Film& film)
{
    if (film.minutes > 0)
        AddRuntime(page, dice, options, film);
    if (!film.countries.empty()) {
        AddLinks(page, "Country", "/Sections/Countries/", film.countries, false, {});
        (page.Break() << "<br>").Break();
    }
    if (!film.languages.empty()) {
        AddLinks(page, "Language", "/Sections/Languages/", film.languages, false, {});
        (page.Break() << "<br>").Break();
    }
    if (!film.colour.empty()) {
        (page << "<b class=\"ch\">Color:</b>").Break();
        (page << "<a href=\"/List?color-info=" << PageText(film.colour) << "\">" << PageText(film.colour) << "</a>").Break();
        (page << "<br>").Break();
    }
    AddCertificates(page, dice, options, film);
}

// A row of shops. They sell what has a poster; the rest is "unavailable", without a link.
void AddShops(Page& page, Dice& dice, const PageOptions& options, const Film& film)
{
    const std::string_view medium = film.year < 1996 && dice.OneIn(4) ? "VHS" : "DVD";
    const std::string number = Padded(film.number, 7);
    (page << R"(<table border="0" cellpadding="2"><tr>)").Break();
    for (const Shop& shop : kShops) {
        std::string text =
            TitleHtml(film).append(" ").append(medium).append(film.hasPoster ? " available at " : " unavailable at ").append(shop.name);
        const std::string picture =
            "<img src=\"/images/shop_" + Padded(&shop - kShops, 2) + R"(.gif" width="90" height="28" border="0" alt=")" + text + "\">";
        if (!film.hasPoster) {
            (page << "<td>" << picture << "</td>").Break();
            continue;
        }
        page << "<td><a href=\"" << shop.prefix << number << "/\"";
        if (dice.OneIn(3))
            page.Break() << " ";
        else
            page << (options.seed != 0 && dice.OneIn(3) ? "  " : " ");
        (page << "title=\"" << text << "\">" << picture << "</a></td>").Break();
    }
    (page << "</tr></table>").Break();
}

} // namespace

std::string TitlePage(FilmStore& store, const PageOptions& options, const Film& film)
{
    Dice dice = DiceOf(options, "title", film);
    Page page(dice);
    const std::string number = Padded(film.number, 7);
    const bool summary = !film.plot.empty() && dice.OneIn(4);
    // Without an outline, readers take the page's first characters for one, until a longer plot replaces it.
    page.Open(FullTitleHtml(film), film.plot.empty() || (summary && film.plot.size() < kShortPlot));
    AddHeading(page, dice, film);
    // The first address of a title on the page is the film's own.
    (page << "<form action=\"" << FilmPath(film.number) << R"(vote" method="post"><input type="hidden" name="from" value="head"></form>)")
        .Break();
    AddPoster(page, dice, options, film);
    const std::vector<Credit> directors = store.Credits(film.number, Section::Director);
    if (!directors.empty()) {
        (page << "<b class=\"blackcatheader\">Directed by</b><br>").Break();
        for (const Credit& director : directors)
            (page << "<a href=\"" << PersonPath(director.person) << "\">" << PageText(director.name) << "</a><br>").Break();
        (page << "<br>").Break();
    }
    if (!film.genres.empty()) {
        AddLinks(page, "Genre", "/Sections/Genres/", film.genres, dice.OneIn(2), number);
        (page.Break() << "<br><br>").Break();
    }
    AddPlotTeaser(page, film, number, summary);
    AddRating(page, dice, film);
    AddFirstCast(page, dice, store, film);
    AddFacts(page, dice, options, film);
    (page << "</td></tr></table>").Break();
    AddShops(page, dice, options, film);
    page.Close();
    return page.Html();
}

std::string CreditsPage(FilmStore& store, const PageOptions& options, const Film& film)
{
    Dice dice = DiceOf(options, "credits", film);
    Page page(dice);
    page.Open(FullTitleHtml(film), false);
    AddHeading(page, dice, film);
    // The guild lists films of its own country, from its first years on.
    bool guild = film.year >= 1942 && dice.OneIn(2);
    guild = guild && std::find(film.countries.begin(), film.countries.end(), "USA") != film.countries.end();
    for (const CreditTable& table : kCreditTables) {
        const std::vector<Credit> credits = store.Credits(film.number, table.section);
        if (credits.empty())
            continue;
        page << R"(<table border="0" cellpadding="1" cellspacing="0"><tr><td colspan="3" valign="bottom" height="24"><a href=")"
             << table.anchor << R"("><b class="blackcatheader">)" << table.label << "</b></a>";
        if (table.section == Section::Writer && guild)
            page << R"( (<a href="/wga">WGA</a>))";
        page << "</td></tr>";
        for (std::size_t i = 0; i < credits.size(); ++i) {
            if (table.section == Section::Cast && i == kFirstBilled)
                page << R"(<tr><td colspan="3" align="center"><small>rest of cast listed alphabetically:</small></td></tr>)";
            page << "<tr>" << CreditCell(credits[i], table.section == Section::Cast && dice.OneIn(10)) << "</tr>";
        }
        (page << "</table>").Break();
        (page << "<br>").Break();
    }
    page.Close();
    return page.Html();
}

std::string PlotPage(const PageOptions& options, const Film& film)
{
    Dice dice = DiceOf(options, "plot", film);
    Page page(dice);
    page.Open("Plot summary for " + FullTitleHtml(film), false);
    AddHeading(page, dice, film);
    if (!film.plot.empty()) {
        // A line end takes the place of no blank: readers that drop it keep the words apart.
        std::string text = PageText(film.plot);
        if (const std::size_t blank = text.find(' ', 60); blank != std::string::npos && dice.OneIn(2)) {
            page << "<p class=\"plotpar\">" << std::string_view(text).substr(0, blank + 1);
            page.Break() << std::string_view(text).substr(blank + 1);
        } else {
            page << "<p class=\"plotpar\">" << text;
        }
        const std::string_view author = R"(<i>Written by <a href="/SearchPlotWriters?The+sample">the sample collection</a></i>)";
        if (options.seed != 0 && dice.OneIn(3))
            (page << "<br>" << author << "</p>").Break();
        else
            (page << "</p>").Break() << author;
        page.Break();
        if (dice.OneIn(3))
            (page << "<p class=\"plotpar\">" << PageText(Outline(film.plot)) << "</p>").Break();
    } else {
        (page << "<p>There is no plot summary for this title yet.</p>").Break();
    }
    page.Close();
    return page.Html();
}

std::string CompaniesPage(FilmStore& store, const PageOptions& options, const Film& film)
{
    Dice dice = DiceOf(options, "companies", film);
    Page page(dice);
    page.Open("Company credits for " + FullTitleHtml(film), false);
    AddHeading(page, dice, film);
    const bool inLines = dice.OneIn(2);
    for (const CompanyList& list : kCompanyLists) {
        const std::vector<Company> companies = store.Companies(film.number, list.section);
        if (companies.empty())
            continue;
        page << "<h2>" << list.label << "</h2><ul>";
        for (const Company& company : companies) {
            if (inLines)
                page.Break();
            page << "<li><a href=\"/company/co" << Padded(company.number, 7) << "/\">" << PageText(company.name) << "</a>"
                 << (company.note.empty() ? "" : " (" + PageText(company.note) + ")") << "</li>";
        }
        (page << "</ul>").Break();
    }
    (page << R"(<p><a href="/registration/update">Add companies to this title</a></p>)").Break();
    page.Close();
    return page.Html();
}

} // namespace pagesource
