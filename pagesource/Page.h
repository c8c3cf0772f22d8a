#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace pagesource {

/// Decides the shape of one page: the same seed, kind of page and number always give the same shape.
class Dice
{
public:
    Dice(std::uint64_t seed, std::string_view page, std::uint64_t number);

    /// From 0 to below `count`.
    int Below(int count);
    bool OneIn(int count) { return Below(count) == 0; }

private:
    std::uint64_t m_state;
};

/// A page in the making. Lines end as the page's dice decide, in CR LF or in LF.
class Page
{
public:
    explicit Page(Dice& dice);

    /// Appends HTML as it stands; the short names keep the markup readable.
    Page& operator<<(std::string_view html);
    Page& operator<<(std::int64_t number);
    /// A line end.
    Page& Break();

    /// From the first tag to the title tag and the scripts, navigation and advertisements behind it, 200 to 250 lines.
    /// `title` is HTML. In a quiet opening nothing but blanks stands between the first two tags, so that a reader that takes the page's
    /// first characters for a plot finds none.
    void Open(std::string_view title, bool quietOpening);
    /// What stands behind the last fact: words of visitors, more navigation, the footer.
    void Close();

    const std::string& Html() const { return m_html; }

private:
    void AddNoise(int lines);

    Dice& m_dice;
    std::string_view m_lineEnd;
    std::string m_html;
};

} // namespace pagesource
