#include "Pages.h"

#include "Text.h"

namespace pagesource {

std::string TitleHtml(const Film& film)
{
    const std::string title = PageText(film.title);
    return film.kind == Kind::Series ? "&#34;" + title + "&#34;" : title;
}

std::string YearHtml(const Film& film)
{
    constexpr std::string_view numerals[] = {"", "/I", "/II", "/III", "/IV", "/V"};
    if (film.year == 0)
        return "????";
    return std::to_string(film.year).append(numerals[film.ordinal]);
}

std::string_view KindHtml(const Film& film)
{
    switch (film.kind) {
    case Kind::Television:
        return " (TV)";
    case Kind::Video:
        return " (V)";
    case Kind::Game:
        return " (VG)";
    default:
        return "";
    }
}

std::string FullTitleHtml(const Film& film)
{
    return TitleHtml(film).append(" (").append(YearHtml(film)).append(")").append(KindHtml(film));
}

std::string FilmPath(std::int64_t number)
{
    return "/title/tt" + Padded(number, 7) + '/';
}

std::string PersonPath(std::int64_t number)
{
    return "/name/nm" + Padded(number, 7) + '/';
}

} // namespace pagesource
