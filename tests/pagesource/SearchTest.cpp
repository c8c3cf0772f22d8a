#include "DataFile.h"
#include "Text.h"

#include <gmock/gmock.h>

using namespace pagesource;
using namespace pagesource::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class Searching : public testing::Test
{
protected:
    Searching()
    {
        const std::string data = MakeData(folder, [](FilmWriter& writer) {
            const std::tuple<std::int64_t, const char*, int, int> rows[] = {
                {1, "M", 1931, 500},
                {2, "Up", 2009, 900},
                {3, "The Matrix", 1999, 1000},
                {4, "Matrix", 1973, 1},
                {5, "Matrix Reborn", 2001, 700},
                {6, "Dot Matrix Printer", 1985, 800},
                {7, "Biomatrix", 1990, 2000},
                {8, "L\u00e9on, \u0141\u00f3d\u017a & \u00c9mile", 1994, 50},
                {9, "Spider-Man: \"No\" Way", 2021, 60},
                {10, "\u041c\u043e\u0441\u043a\u0432\u0430", 1979, 10},
                {11, "Matrix at Home", 2003, 5000},
                {12, "...", 2000, 1},
                {13, "Super Upper", 1960, 3},
                {14, "Hiccup", 1961, 4},
            };
            for (const auto& [number, title, year, votes] : rows) {
                Film film = FullFilm(number, title, year);
                film.votes = votes;
                film.kind = number == 11 ? Kind::Television : Kind::Film;
                writer.AddFilm(film);
            }
            writer.AddOtherTitle(1, 1, {"Eine Stadt sucht einen M\u00f6rder", "DE", ""});
        });
        store.emplace(data);
    }

    std::vector<std::int64_t> Find(const Search& search)
    {
        std::vector<std::int64_t> numbers;
        for (const Film& film : store->SearchTitles(search))
            numbers.push_back(film.number);
        return numbers;
    }
    std::vector<std::int64_t> Find(const std::string& text) { return Find(Search{.text = text}); }

    TempFolder folder;
    std::optional<FilmStore> store;
};

TEST_F(Searching, WholeTitlesComeBeforeWordsAndWordsBeforeParts)
{
    // Each group by votes: whole titles, articles aside; then words that begin so; then the rest.
    EXPECT_THAT(Find("matrix"), ElementsAre(3, 4, 11, 6, 5, 7));
    EXPECT_THAT(Find("up"), ElementsAre(2, 13, 14));
    EXPECT_THAT(Find("m"), ElementsAre(1, 11, 3, 6, 5, 9, 4)) << "one letter finds words alone";
}

TEST_F(Searching, FindsTitlesHoweverTheyAreTyped)
{
    const std::pair<const char*, std::vector<std::int64_t>> cases[] = {
        {"leon", {8}},
        {"L\u00c9ON", {8}},
        {"lodz  emile", {8}},
        {"Spider Man", {9}},
        {"spider-man no way", {9}},
        {"morder", {1}},
        {"...", {12}},
        {"atri", {11, 7, 3, 6, 5, 4}},
        {"\u043e\u0441\u043a", {10}},
        {"\u041c\u043e\u0441", {10}},
        {"zzz", {}},
        {"zz", {}},
        {"", {}},
        {"   ", {}},
        {"\" OR \"matrix", {}},
        {"a 'quote\" (*) ^", {}},
    };
    for (const auto& [text, numbers] : cases)
        EXPECT_EQ(Find(text), numbers) << text;
    EXPECT_THAT(Find(std::string(3, '\0')), IsEmpty());
    EXPECT_THAT(Find(std::string("matrix\0", 7)), IsEmpty());
}

TEST_F(Searching, KeepsToYearsKindsAndLimit)
{
    EXPECT_THAT(Find(Search{.text = "matrix", .fromYear = 1990, .toYear = 2001}), ElementsAre(3, 5, 7));
    EXPECT_THAT(Find(Search{.text = "matrix", .withTelevision = false}), ElementsAre(3, 4, 6, 5, 7));
    EXPECT_THAT(Find(Search{.text = "matrix", .limit = 2}), ElementsAre(3, 4));
}

TEST(Texts, BecomeAsciiWithDecimalEntities)
{
    const std::pair<const char*, const char*> cases[] = {
        {"Plain 'text', 100%", "Plain 'text', 100%"},
        {"M\u00f6we", "M&#246;we"},
        {"\"Fast\" & <Far>", "&#34;Fast&#34; &#38; &#60;Far&#62;"},
        {"Keys \u2013 Milo\u0161\u2019s", "Keys &#150; Milo&#154;&#146;s"}, // code page 1252
        {"Kie\u015blowski", "Kie&#347;lowski"},
        {"\u041c\u0438\u0440", "&#1052;&#1080;&#1088;"},
        {"\U0001F3AC", "&#127916;"},
        {"bad \xC3( \xFF end \xE2\x82", "bad ?( ? end ??"},
        {"tab\tand\nline", "tab and line"},
    };
    for (const auto& [text, page] : cases)
        EXPECT_EQ(PageText(text), page);
    EXPECT_EQ(UrlDecoded("a%20b+c%C3%A9"), "a b c\u00e9");
    EXPECT_EQ(UrlDecoded("caf%E9 \xE9 100%"), "caf\u00e9 \u00e9 100%") << "what is no UTF-8 is Latin-1";
    EXPECT_EQ(Thousands(41310), "41,310");
    EXPECT_EQ(Thousands(999), "999");
}

} // namespace
