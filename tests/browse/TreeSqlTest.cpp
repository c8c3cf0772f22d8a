#include "TreeFixture.h"

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
    const std::pair<const char16_t*, qint64> modes[] = {
        {u"Movies", 3}, {u"Requests", 1}, {u"Loans", 1}, {u"MovieNight", 1}, {u"Unknown", 3}};
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

TEST_F(TreeSqlTest, AFiltersTextMayHoldWordsOfTheLanguage)
{
    catalog.Run("INSERT INTO Movie (Title, Format) VALUES ('The ORDER of WHERE', 'Request')");
    cOptView& view = state.gOptions->View;
    for (const char16_t* mode : {u"Movies", u"Requests"}) {
        view.ViewMode = QString::fromUtf16(mode);
        EXPECT_EQ(Rows(BuildLevelSql(u"Movie.Title"_s, 2, view, u"WHERE Movie.Title =\"The ORDER of WHERE\""_s)), 1);
    }
}

} // namespace
} // namespace kelvado
