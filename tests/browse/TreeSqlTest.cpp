#include "TreeFixture.h"

#include "core/Literals.h"

namespace kelvado {
namespace {

// Every key that a tree can be sorted by.
constexpr const char* kSortKeys[] = {"Movie.IsRequest",   "Movie.Title",      "Movie.Format",   "Genre.Genre",       "Movie.Year",
                                     "Movie.Index",       "Movie.Custom1",    "Movie.Runtime",  "Movie.Number",      "Movie.Rated",
                                     "Movie.Color",       "Movie.Country",    "Movie.Language", "Movie.SubLanguage", "Movie.Rating",
                                     "Movie.Votes",       "Movie.IMDb",       "Movie.ISONEWS",  "Movie.UserURL1",    "Movie.UserURL2",
                                     "Movie.TrailerURL",  "Movie.AudType",    "Movie.VidType",  "Movie.AudBitrate",  "Movie.VidBitrate",
                                     "Movie.AudChannels", "Movie.Resolution", "Movie.Filename", "Movie.Filesize",    "Movie.Group",
                                     "Movie.Custom2",     "Movie.Custom3"};

TEST(LevelSql, IsPutTogetherLetterByLetter)
{
    cOptView view;
    view.SecondarySort = u"Movie.Year"_s;
    view.PrimaryOrder = u"DESC"_s;
    view.ViewMode = u"Movies"_s;
    EXPECT_EQ(BuildLevelSql(u"Movie.Index"_s, 1, view, u"WHERE 1"_s),
              u"SELECT Movie.Index, Count(Movie.Index) As lCount FROM Movie GROUP BY Movie.Index ORDER BY Movie.Index DESC");
    EXPECT_EQ(BuildLevelSql(u"Movie.IsRequest"_s, 1, view, {}),
              u"SELECT Movie.IsRequest, Loan_ID FROM Movie ORDER BY Movie.IsRequest DESC");
    EXPECT_EQ(BuildLevelSql(u"Genre.Genre"_s, 1, view, {}),
              u"SELECT Genre.Genre, Count(Genre.Genre) AS lCount FROM Movie INNER JOIN (Genre INNER JOIN GenreLink ON Genre.Genre_ID = "
              u"GenreLink.Genre_ID) ON Movie.Movie_ID = GenreLink.Movie_ID GROUP BY Genre.Genre ORDER BY Genre.Genre DESC");
    EXPECT_EQ(BuildLevelSql(u"Movie.Title"_s, 2, view, {}),
              u"SELECT Movie.Title, Movie.Year, Movie.Movie_ID, Movie.Title, Movie.Format, Movie.Loan_ID FROM Movie  ORDER BY Movie.Year ");
    view.ViewMode = u"Loans"_s;
    EXPECT_EQ(BuildLevelSql(u"Movie.Title"_s, 2, view, {}),
              u"SELECT Movie.Title, Movie.Year, Movie.Movie_ID, Movie.Title, Movie.Format, Movie.Loan_ID FROM Movie  WHERE Loan_ID <> 0 "
              u"ORDER BY Movie.Year ");
    // A filter value that holds the words is altered with them.
    view.ViewMode = u"Requests"_s;
    EXPECT_TRUE(BuildLevelSql(u"Movie.Title"_s, 2, view, u"WHERE Movie.Title = \"WHERE\""_s)
                    .contains(u"WHERE Format = 'Request' AND Movie.Title = \"WHERE Format = 'Request' AND\""));
}

class TreeSqlTest : public TreeFixture
{
protected:
    qint64 Rows(const QString& sql) const
    {
        Connection connection = OpenCatalog(catalog.Path());
        Recordset rows;
        rows.Open(sql, connection);
        return rows.RecordCount();
    }
};

TEST_F(TreeSqlTest, EverySortViewModeAndDirectionRunsOnRealRows)
{
    catalog.Run("INSERT INTO Movie (Movie_ID, Title, Year, Format, Loan_ID, MovieNight, \"Index\", \"Group\", Custom1) VALUES "
                "(1, 'It''s \"so\"', 1979, 'DVD', 0, 1, 'A', 'g', 'x'), (2, 'Ran', 1985, 'Request', 0, 0, NULL, NULL, NULL), "
                "(3, 'Heat', 1995, NULL, 9, 0, 'B', '', 'X');"
                "INSERT INTO Genre (Genre_ID, Genre) VALUES (901, 'Tragedy'); INSERT INTO GenreLink (Movie_ID, Genre_ID) VALUES (1, 901), "
                "(2, 901), (3, 901)");
    const struct
    {
        const char16_t* mode;
        qint64 films;
    } modes[] = {{u"Movies", 3}, {u"Requests", 1}, {u"Loans", 1}, {u"MovieNight", 1}, {u"Unknown", 3}};
    cOptView& view = state.gOptions->View;
    for (const char* primary : kSortKeys) {
        for (const char* secondary : {"Movie.Title", "Movie.Index", "Movie.Format", "Movie.Year", "Movie.Group"}) {
            Sort(primary, secondary);
            view.PrimaryOrder = view.SecondaryOrder = view.PrimaryOrder.isEmpty() ? u"DESC"_s : QString();
            for (const auto& [mode, films] : modes) {
                view.ViewMode = QString::fromUtf16(mode);
                EXPECT_NO_THROW(Rows(BuildLevelSql(view.PrimarySort, 1, view, {}))) << primary;
                EXPECT_EQ(Rows(BuildLevelSql(view.PrimarySort, 2, view, {})), films) << primary << ' ' << qPrintable(view.ViewMode);
                EXPECT_EQ(Rows(BuildLevelSql(view.PrimarySort, 2, view, u"WHERE Movie.Year >= \"1979\" AND Movie.Title = \"RAN\""_s)),
                          films == 3 || view.ViewMode == u"Requests" ? 1 : 0)
                    << primary;
            }
        }
    }
}

TEST_F(TreeSqlTest, FiltersCompareNumbersWhereAColumnHoldsThemAndTextsElsewhere)
{
    catalog.Run("INSERT INTO Movie (Title, Year, Rating, Votes, IMDB, AudChannels, \"Number\", Runtime) VALUES "
                "('Nine', 1979, '9.0', '1200', '0012345', '2', 2, '90'), ('Ten', 1979, '10.0', '99', '0099999', '6', 10, '100'), "
                "('None', NULL, 'N/A', NULL, NULL, '', NULL, NULL)");
    const struct
    {
        const char16_t* where;
        qint64 films;
    } cases[] = {
        {u"Movie.Rating >= \"9\"", 2},        {u"Movie.Rating = \"9\"", 1},   {u"Movie.Rating <= \"9.5\"", 1},
        {u"Movie.Votes >= \"100\"", 1},       {u"Movie.IMDb = \"12345\"", 1}, {u"Movie.AudChannels >= \"3\"", 1},
        {u"Movie.Number >= \"3\"", 1},        {u"Movie.Year <= \"1979\"", 2}, {u"Movie.Runtime = \"90\"", 1},
        {u"Movie.Title = \"nine\"", 1},       {u"Movie.Title = \"N%\"", 0},   {u"Movie.Rating >= \"1e0\"", 2},
        {u"Movie.Title = \"it's; DROP\"", 0},
    };
    for (const auto& [where, films] : cases) {
        const QString filter = u"WHERE "_s + QString::fromUtf16(where);
        EXPECT_EQ(Rows(BuildLevelSql(u"Movie.Title"_s, 2, state.gOptions->View, filter)), films) << qPrintable(filter);
    }
    for (const char16_t* where : {u"Movie.IMDbLink = \"1\"", u"Movie.Title = \"a\"b\""})
        EXPECT_THROW(Rows(BuildLevelSql(u"Movie.Title"_s, 2, state.gOptions->View, u"WHERE "_s + QString::fromUtf16(where))), RuntimeError);
}

} // namespace
} // namespace kelvado
