#include "Page.h"
#include "Pages.h"
#include "Text.h"

#include <algorithm>
#include <iterator>

namespace pagesource {

namespace {

constexpr std::size_t kShownOtherTitles = 5;
constexpr std::string_view kRow = "<tr><td width=100% valign=top>";
constexpr std::string_view kLoneRow = "<tr valign=top><td>";
// Product pages lead with this much markup without a link: readers look for the picture's address a hundred characters ahead of its label.
constexpr std::string_view kProductLead =
    R"(<table width="100%" border="0" cellspacing="0" cellpadding="0" align="center"><tr><td width="180" valign="top" align="center" bgcolor="#ffffff">)"
    R"(<img src="/images/shop_frame.gif" width="175" height="1" border="0" hspace="0" vspace="0" alt=""><br clear="all"><br>)";

std::string OtherTitlesHtml(FilmStore& store, const Film& film)
{
    std::string html;
    std::vector<std::string> shown{film.title};
    for (const OtherTitle& other : store.OtherTitles(film.number)) {
        if (std::find(shown.begin(), shown.end(), other.title) != shown.end())
            continue;
        shown.push_back(other.title);
        // With the year, as titles have it: it tells readers where a title that they take ends.
        html.append("<br>&#160;aka <em>\"").append(PageText(other.title)).append(" (").append(YearHtml(film)).append(")\"</em>");
        if (!other.region.empty())
            html.append(" - ").append(PageText(other.region));
        if (!other.note.empty())
            html.append(" <em>(").append(PageText(other.note)).append(")</em>");
        if (shown.size() > kShownOtherTitles)
            break;
    }
    return html;
}

std::string Thumbnail(const PageOptions& options, const Film& film)
{
    std::string html = "<a href=\"" + FilmPath(film.number) + "\"><img src=\"http://" + options.hosts.poster + "/media/films/";
    return html.append(Padded(film.number, 7)).append(R"(/38m.jpg" width="23" height="32" border="0"></a>)");
}

// Unquoted attributes and rows like these are how readers of the shop's lists find the products.
void AddProduct(Page& page, Dice& dice, std::string_view rowStart, const Film& film, std::string_view medium)
{
    page << rowStart << "<b><a href=/exec/obidos/ASIN/" << Padded(film.number, 7) << "/>" << FullTitleHtml(film) << "</a></b>"
         << "<font face=verdana,arial,helvetica size=-1> " << medium;
    page.Break() << "<br>Our Price: see the product's page";
    if (dice.OneIn(2))
        page << " <b>Used &amp; new</b>";
    (page << "</font></td></tr>").Break();
}

} // namespace

std::string SearchPage(FilmStore& store, const PageOptions& options, std::string_view text, const std::vector<Film>& hits)
{
    Dice dice(options.seed, "search", Hash(text));
    Page page(dice);
    page.Open("Title search", false);
    if (hits.empty()) {
        (page << "<h1>Title search</h1><p>Sorry there were no matches for the title <b>" << PageText(text) << "</b>.</p>").Break();
        page.Close();
        return page.Html();
    }
    (page << "<h1>Title search for \"" << PageText(text) << "\"</h1>").Break();
    (page << "<p><b>" << static_cast<std::int64_t>(hits.size()) << "</b> titles found, the closest ones first.</p>").Break();
    page << "<ol>";
    for (const Film& film : hits) {
        const bool thumbnail = film.hasPoster && dice.OneIn(4);
        const bool inFront = options.seed != 0 && dice.OneIn(2);
        page << "<li>";
        if (thumbnail && inFront)
            page << Thumbnail(options, film) << "&nbsp;";
        page << "<a href=\"" << FilmPath(film.number) << "\">" << TitleHtml(film) << "</a> (" << YearHtml(film) << ")" << KindHtml(film);
        page << OtherTitlesHtml(store, film);
        if (thumbnail && !inFront)
            page << "<br>" << Thumbnail(options, film);
        page << "</li>";
    }
    (page << "</ol>").Break();
    page.Close();
    return page.Html();
}

std::string ShopResultPage(const PageOptions& options, const Film& film, const std::vector<Film>& others)
{
    constexpr std::string_view headings[] = {"You clicked on this item", "Customers who clicked on this item", "Sort by:"};
    Dice dice(options.seed, "shop", static_cast<std::uint64_t>(film.number));
    Page page(dice);
    page.Open("The shop: DVD", false);
    const int heading = dice.Below(static_cast<int>(std::size(headings)) + 1);
    if (heading == static_cast<int>(std::size(headings)))
        (page << "<p>" << std::int64_t{1} + static_cast<std::int64_t>(others.size()) << " results for <b>" << TitleHtml(film) << "</b></p>")
            .Break();
    else
        (page << "<p><b>" << headings[heading] << "</b></p>").Break();
    (page << "<table border=0 cellpadding=2 width=100%>").Break();
    // The film stands among the others, not always in front.
    const std::size_t place = dice.Below(static_cast<int>(others.size()) + 1);
    for (std::size_t i = 0; i <= others.size(); ++i) {
        const Film& product = i == place ? film : others[i < place ? i : i - 1];
        AddProduct(page, dice, others.empty() && dice.OneIn(2) ? kLoneRow : kRow, product, dice.OneIn(3) ? "VHS" : "DVD");
    }
    (page << "</table>").Break();
    page.Close();
    return page.Html();
}

std::string ProductPage(const PageOptions& options, const Film& film)
{
    Dice dice(options.seed, "product", static_cast<std::uint64_t>(film.number));
    Page page(dice);
    page.Open("The shop: " + TitleHtml(film), false);
    (page << "<b class=\"sans\">" << FullTitleHtml(film) << "</b><br>").Break();
    (page << kProductLead).Break();
    page << "<a href=\"http://" << options.hosts.shopImage << "/images/P/" << Padded(film.number, 7) << ".01.LZZZZZZZ.jpg\">";
    if (dice.OneIn(2))
        page.Break();
    (page << "see larger picture</a></td>").Break();
    (page << "<td valign=\"top\"><b>Availability:</b> This shop sells nothing; it only has pictures.</td></tr></table>").Break();
    page.Close();
    return page.Html();
}

} // namespace pagesource
