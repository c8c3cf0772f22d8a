#include "Reader.h"

#include "Text.h"

#include <algorithm>
#include <cctype>
#include <stdexcept>

namespace pagesource::test {

namespace {

constexpr std::size_t kNone = std::string_view::npos;

std::size_t Find(std::string_view page, std::string_view marker, std::size_t from = 0)
{
    const std::size_t at = page.find(marker, from);
    if (at == kNone)
        throw std::out_of_range(std::string(marker).append(" is missing from ").append(std::to_string(from)));
    return at;
}

std::string Cut(std::string_view page, std::size_t from, std::size_t to)
{
    if (to < from)
        throw std::out_of_range("negative length");
    return std::string(page.substr(from, to - from));
}

std::string Lower(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

std::string WithoutTags(std::string text)
{
    for (std::size_t from; (from = text.find('<')) != kNone;)
        text.erase(from, Find(text, ">", from) - from + 1);
    return text;
}

std::vector<std::string> ReadGenres(const std::string& page)
{
    std::vector<std::string> genres;
    const std::size_t start = page.find("Genre:</b>");
    if (start == kNone)
        return genres;
    const std::size_t end = Find(page, "</a><br><br>", start);
    std::size_t a = Find(page, "/\">", start);
    std::size_t b = Find(page, "</a>", a);
    genres.push_back(Cut(page, a + 3, b));
    for (std::size_t from = a + 19; (a = Find(page, "/\">", from)) <= end; from = b + 19) {
        b = Find(page, "</a>", a);
        genres.push_back(Cut(page, a + 3, b));
    }
    return genres;
}

std::string ReadLanguages(const std::string& page)
{
    constexpr std::string_view marker = "Sections/Languages/";
    std::string result;
    std::size_t at = page.find(marker);
    std::size_t start = at == kNone ? 18 : at + marker.size();
    while (true) {
        const std::size_t stop = Find(page, "/\">", start);
        result.append("/ ").append(Cut(page, start, stop));
        at = page.find(marker, stop);
        if (at == kNone)
            break;
        start = at + marker.size();
    }
    return result.size() - 1 >= 151 ? std::string() : result.substr(1);
}

std::string ReadPoster(const std::string& page, const std::string& host)
{
    if (page.find("http://" + host + "/Heads/npa.gif") != kNone || page.find("title_noposter2") != kNone)
        return {};
    const std::size_t named = page.find("\"poster\"");
    const std::size_t a = Find(page, "http://" + host, named == kNone ? 0 : named);
    return Cut(page, a, Find(page, "\"", a + 5));
}

std::string ReadRated(const std::string& page)
{
    struct Marker
    {
        std::string_view text;
        std::size_t skipped;
    };
    constexpr Marker markers[] = {{"Rated PG-13", 6}, {"Rated R", 6},   {"Rated NC-17", 6}, {"Rated PG", 6},
                                  {"USA:R", 4},       {"USA:PG-13", 4}, {"USA:PG", 4},      {"USA:NC-17", 4}};
    for (const Marker& marker : markers) {
        if (page.find(marker.text) != kNone)
            return std::string(marker.text.substr(marker.skipped));
    }
    return {};
}

std::string ReadShopLink(const std::string& page)
{
    std::size_t at = page.find("DVD available at Amazon");
    if (at == kNone)
        at = page.find("VHS available at Amazon");
    if (at == kNone)
        return {};
    const std::size_t from = page.rfind("href=\"", at) + 6;
    const std::size_t to = page.find("\" title", from);
    return to == kNone ? std::string() : Cut(page, from, to);
}

} // namespace

std::string Flattened(std::string_view page)
{
    std::string flat(page);
    std::erase_if(flat, [](char c) { return c == '\r' || c == '\n' || c == '\t'; });
    return flat;
}

std::string Between(std::string_view page, std::string_view before, std::string_view after, std::size_t from)
{
    const std::size_t start = Find(page, before, from) + before.size();
    return Cut(page, start, Find(page, after, start));
}

ReadTitle ReadTitlePage(const std::string& page, const std::string& host)
{
    ReadTitle title;
    title.rawTitle = Between(page, "<title>", "</title>");
    title.number = page.substr(Find(page, "/title/tt") + 9, 7);
    if (const std::size_t gold = page.find("goldstar.gif"); gold != kNone) {
        title.rating = Between(page, "<b>", "/10", gold);
        title.votes = Between(page, "</b> (", ")", gold);
    }
    title.genres = ReadGenres(page);
    title.languages = ReadLanguages(page);
    if (const std::size_t at = page.find("Runtime:</b>"); at != kNone)
        title.runtime = Cut(page, at + 12, Find(page, "<br>", at));
    title.poster = ReadPoster(page, host);
    const std::size_t outline = page.find("Outline:</b>");
    const std::size_t behind = outline == kNone ? 12 : outline + 13;
    title.outline = Cut(page, behind - 1, Find(page, "<", behind));
    title.rated = ReadRated(page);
    title.shopLink = ReadShopLink(page);
    return title;
}

std::optional<std::vector<ReadPerson>> ReadCredits(const std::string& page, std::string_view section, std::string_view linkEnd)
{
    const std::string marker = std::string(section).append("</b></a>");
    const std::size_t at = page.find(marker);
    if (at == kNone)
        return std::nullopt;
    std::vector<ReadPerson> people;
    std::size_t cursor = at + marker.size();
    const std::size_t end = Find(page, "</table>", cursor);
    for (std::size_t a; (a = Find(page, "</a>", cursor)) < end;) {
        if (section == "Writing credits" && Lower(page).find("wga", cursor) != kNone)
            a = Find(page, "</a>", a + 1);
        const std::size_t link = Find(page, "<a href=\"/name/", cursor) + 15;
        const std::size_t linkStop = Find(page, linkEnd, link);
        const std::size_t note = Find(page, "valign=\"top\">", a + 13) + 13;
        cursor = Find(page, "</td>", note);
        people.push_back({Cut(page, linkStop + linkEnd.size(), a), Cut(page, link, linkStop), WithoutTags(Cut(page, note, cursor))});
    }
    return people;
}

std::vector<std::pair<std::string, std::string>> ReadCompanies(const std::string& page, std::string_view section)
{
    std::vector<std::pair<std::string, std::string>> rows;
    std::size_t cursor = page.find(std::string(section) + "</h2>");
    if (cursor == kNone)
        return rows;
    const std::size_t end = Find(page, "</ul>", cursor);
    for (std::size_t row; (row = Find(page, "\">", cursor) + 2) < end;) {
        cursor = Find(page, "</li>", row);
        const std::string text = Cut(page, row, cursor);
        const std::size_t name = Find(text, "</a>");
        rows.emplace_back(text.substr(0, name), text.substr(name + 4));
    }
    return rows;
}

std::vector<ReadHit> ReadSearch(const std::string& page)
{
    constexpr std::string_view marker = "<a href=\"/title/tt";
    std::vector<ReadHit> hits;
    for (std::size_t at = page.find(marker); at != kNone && hits.size() < 50; at = page.find(marker, at)) {
        ReadHit hit;
        hit.number = Cut(page, at + marker.size(), Find(page, "</a><", at)).substr(0, 7);
        const std::size_t row = Find(page, "\">", at) + 2;
        at = Find(page, "</li>", row);
        hit.title = Cut(page, row, at);
        constexpr std::string_view aka = "&#160;aka";
        for (std::size_t other = hit.title.find(aka); other != kNone; other = hit.title.find(aka, other + 4))
            hit.others.push_back(Between(hit.title, "<em>", "</em>", other));
        hit.title = hit.title.substr(0, hit.title.find("<br>"));
        for (std::size_t tag; (tag = hit.title.find("</a>")) != kNone;)
            hit.title.erase(tag, 4);
        hits.push_back(hit);
    }
    return hits;
}

std::vector<std::string> ReadFilmography(const std::string& page)
{
    std::vector<std::string> films;
    const std::size_t start = Find(page, "filmography</b>");
    const std::size_t end = Find(page, "</ol>", start);
    std::size_t at = page.find("/title/tt", start);
    while (at != kNone && std::to_string(at + 1) <= std::to_string(end + 1)) {
        const std::size_t title = Find(page, "\">", at) + 2;
        const std::size_t titleEnd = Find(page, "</", title);
        const std::size_t year = Find(page, "(", titleEnd) + 1;
        films.push_back(Cut(page, title, titleEnd).append(" (").append(page, year, 4).append(") ").append(page, at + 9, 7));
        at = page.find("/title/tt", year);
    }
    return films;
}

std::string ReadBestProduct(const std::string& page, const std::string& filmTitle)
{
    std::size_t start = kNone;
    for (const std::string_view marker : {"ou clicked on this item", "clicked on this item", "Sort by:", "results for <"}) {
        if (start = page.find(marker); start != kNone)
            break;
    }
    if (start == kNone)
        throw std::out_of_range("no list of products");
    const auto pieces = [](const std::string& text) {
        std::vector<std::string> words{""};
        for (const char c : text) {
            if (c == ' ')
                words.emplace_back();
            else
                words.back() += c;
        }
        return words;
    };
    std::size_t row = page.find("<td width=100% valign=top>", start);
    if (row == kNone)
        row = page.find("<tr valign=top>", start);
    std::string bestLink;
    double bestScore = 0;
    while (row != kNone) {
        const std::size_t link = Find(page, "href=", row) + 5;
        const std::size_t linkEnd = Find(page, ">", link);
        const std::size_t font = Find(page, "<font", linkEnd + 1);
        const std::string title = Replaced(Cut(page, linkEnd + 1, font), "</a></b>", " ");
        double words = 0;
        double letters = 0;
        for (const std::string& word : pieces(filmTitle)) {
            if (Lower(title).find(Lower(word)) != kNone) {
                ++words;
                letters += static_cast<double>(word.size());
            }
        }
        const auto letterCount = static_cast<double>(title.size() - std::count(title.begin(), title.end(), ' '));
        const double score = 0.5 * words / static_cast<double>(pieces(title).size()) + 0.5 * letters / letterCount;
        if (score > bestScore) {
            bestScore = score;
            bestLink = Cut(page, link, linkEnd);
        }
        row = page.find("<td width=100% valign=top>", font);
    }
    return bestLink;
}

} // namespace pagesource::test
