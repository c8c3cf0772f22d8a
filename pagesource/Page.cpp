#include "Page.h"

#include "Text.h"

#include <iterator>
#include <span>

namespace pagesource {

namespace {

// "#" becomes a number, so that no two blocks are alike. None of these lines may hold a marker by which facts are found.
constexpr std::string_view kScript[] = {
    R"(<script language="JavaScript" type="text/javascript">)",
    R"(<!--)",
    R"(var slot_# = "top_banner_#"; var tile_# = #;)",
    R"(function swap_#(name, file) { if (document.images) document.images[name].src = file; })",
    R"(function reload_#(init) { if (init == true) with (navigator) { if (appName == "Netscape") onresize = reload_#; } })",
    R"(if (document.layers) { window.onresize = reload_#; document.captureEvents(Event.RESIZE); })",
    R"(document.write('<img src="/images/t#.gif" width="1" height="1" border="0" alt="">');)",
    R"(var pop_# = false; var day_# = new Date(); var random_# = Math.round(Math.random() * 100000#);)",
    R"(//-->)",
    R"(</script>)",
};
constexpr std::string_view kNavigation[] = {
    R"(<table border="0" cellpadding="0" cellspacing="0" width="100%"><tr>)",
    R"(<td align="center" nowrap="nowrap"><a href="combined"><font size="-2" face="Verdana,Arial">combined details</font></a></td>)",
    R"(<td align="center" nowrap="nowrap"><a href="fullcredits"><font size="-2" face="Verdana,Arial">full listing</font></a></td>)",
    R"(<td align="center" nowrap="nowrap"><a href="plotsummary"><font size="-2" face="Verdana,Arial">plot summary</font></a></td>)",
    R"(<td align="center" nowrap="nowrap"><a href="companycredits"><font size="-2" face="Verdana,Arial">company details</font></a></td>)",
    R"(<td bgcolor="#000000" width="#"><img src="/images/nav_#.gif" width="#" height="16" border="0" alt="page #"></td>)",
    R"(<td valign="middle" align="left"><a href="/tips/#"><b>Tip #</b></a>&nbsp;&#160;<a href="/help/#">help</a></td>)",
    R"(</tr></table>)",
};
constexpr std::string_view kForm[] = {
    R"(<form action="/find" method="get" name="find_#"><select name="s">)",
    R"(<option value="all">All</option><option value="tt" selected="selected">Titles</option><option value="nm">Names</option>)",
    R"(</select><input type="text" name="q" size="#" maxlength="100"><input type="image" src="/images/go_#.gif" name="go"></form>)",
    R"(<font face="Verdana,Arial" size="-1"><a href="/search">more searches</a> | <a href="/list?#">browse by letter</a></font><br>)",
};
constexpr std::string_view kAdvertisement[] = {
    R"(<!-- begin slot # -->)",
    R"(<iframe src="/ads/slot#.html" width="468" height="60" frameborder="0" marginheight="0" marginwidth="0" scrolling="no"></iframe>)",
    R"(<img src="/images/spacer#.gif" width="1" height="8" border="0" alt=""><br clear="all">)",
    R"(<noscript><a href="/ads/click#" target="_top"><img src="/ads/banner#.gif" width="468" height="60" border="0"></a></noscript>)",
    R"(<!-- end slot # -->)",
};
constexpr std::span<const std::string_view> kBlocks[] = {kScript, kNavigation, kForm, kAdvertisement};

constexpr std::string_view kVisitors[] = {
    "I went to see this twice in one week, and the second time I took my neighbours along.",
    "Some of my friends were asleep after an hour; I thought about it for days.",
    "The copy on the disc is clean, the sound could be louder, and the box is far too big for the shelf.",
    "If you have an evening to spare and a comfortable chair, you could do a lot worse.",
    "Nobody in our club could agree on the ending, which is the best thing one can say of an ending.",
};

constexpr std::string_view kTypes[] = {
    R"(<!DOCTYPE HTML PUBLIC "-//W3C//DTD HTML 4.01 Transitional//EN">)",
    R"(<!DOCTYPE html PUBLIC "-//W3C//DTD XHTML 1.0 Transitional//EN">)",
    "",
};

} // namespace

Dice::Dice(std::uint64_t seed, std::string_view page, std::uint64_t number)
    : m_state(Hash(page) ^ (seed * 0x9E3779B97F4A7C15) ^ (number << 20))
{
}

int Dice::Below(int count)
{
    m_state += 0x9E3779B97F4A7C15;
    std::uint64_t mixed = m_state;
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EB;
    return static_cast<int>((mixed ^ (mixed >> 31)) % static_cast<std::uint64_t>(count));
}

Page::Page(Dice& dice) : m_dice(dice), m_lineEnd(dice.OneIn(2) ? "\r\n" : "\n")
{
    m_html.reserve(32768);
}

Page& Page::operator<<(std::string_view html)
{
    m_html += html;
    return *this;
}

Page& Page::operator<<(std::int64_t number)
{
    m_html += std::to_string(number);
    return *this;
}

Page& Page::Break()
{
    return *this << m_lineEnd;
}

void Page::Open(std::string_view title, bool quietOpening)
{
    if (!quietOpening) {
        const std::string_view type = kTypes[m_dice.Below(std::size(kTypes))];
        if (!type.empty())
            (*this << type).Break();
    }
    (*this << "<html>").Break();
    *this << (quietOpening ? "            <head>" : "<head>");
    if (m_dice.OneIn(2))
        Break();
    (*this << "<title>" << title << "</title>").Break();
    (*this << R"(<meta http-equiv="Content-Type" content="text/html; charset=iso-8859-1">)").Break();
    (*this << R"(<meta name="description" content="A page about a film, the people who made it and those who saw it.">)").Break();
    (*this << R"(<link rel="stylesheet" type="text/css" href="/style/main.css"></head>)").Break();
    (*this << R"(<body bgcolor="#ffffff" text="#000000" link="#003399" alink="#ff3300" vlink="#996600" topmargin="0" leftmargin="4">)")
        .Break();
    AddNoise(194 + m_dice.Below(44));
}

void Page::AddNoise(int lines)
{
    while (lines > 0) {
        const auto& block = kBlocks[m_dice.Below(std::size(kBlocks))];
        for (const std::string_view line : block) {
            for (std::string_view rest = line; !rest.empty();) {
                const std::size_t at = rest.find('#');
                *this << rest.substr(0, at);
                if (at == std::string_view::npos)
                    break;
                // A colour or an entity keeps its sign.
                const bool counted = at + 1 == rest.size() || (rest[at + 1] < '0' || rest[at + 1] > '9');
                if (counted)
                    *this << std::int64_t{2 + m_dice.Below(97)};
                else
                    *this << "#";
                rest.remove_prefix(at + 1);
            }
            Break();
            --lines;
        }
    }
}

void Page::Close()
{
    (*this << R"(<hr><table border="0" cellpadding="2" width="100%"><tr><td><a name="comment"><b class="ch">User comments:</b></a>)")
        .Break();
    const int count = 1 + m_dice.Below(3);
    for (int i = 0; i < count; ++i)
        (*this << "<p>" << kVisitors[m_dice.Below(std::size(kVisitors))] << " <a href=\"/comments/" << std::int64_t{1 + i}
               << "/\">more</a></p>")
            .Break();
    (*this << R"(Was this helpful to you? <a href="/vote/yes/">Yes</a> / <a href="/vote/no/">No</a></td></tr></table>)").Break();
    AddNoise(20 + m_dice.Below(20));
    (*this << R"(<ul><li><a href="/recent">Recently seen</a></li><li><a href="/board">Message board</a></li></ul>)").Break();
    (*this
     << R"(<table width="100%"><tr><td valign="top"><a href="/terms/">Terms</a></td><td valign="top"><a href="/privacy/">Privacy</a></td></tr></table>)")
        .Break();
    (*this << "</body></html>").Break();
}

} // namespace pagesource
