#include "Import.h"
#include "DataFile.h"

#include <gmock/gmock.h>

using namespace pagesource;
using namespace pagesource::test;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

constexpr const char* kTitles = "tconst\ttitleType\tprimaryTitle\toriginalTitle\tisAdult\tstartYear\tendYear\truntimeMinutes\tgenres\n"
                                "tt0000010\tmovie\tThe Coat\tDer Mantel\t0\t1931\t\\N\t88\tDrama,War\n"
                                "tt0000011\ttvSeries\tKeys\tKeys\t0\t\\N\t\\N\t\\N\t\\N\n"
                                "tt0000012\ttvEpisode\tThe First Key\tThe First Key\t0\t1990\t\\N\t20\tDrama\n"
                                "tt0000013\tmovie\tThe Coat\tThe Coat\t0\t1931\t\\N\t70\tDrama\n"
                                "tt10000000\tmovie\tToo Late\tToo Late\t0\t2020\t\\N\t90\tDrama\n";

class Import : public testing::Test
{
protected:
    ImportReport Run()
    {
        return ImportDataSets(folder.Path(""), target, [](const std::string&, std::int64_t) {});
    }
    std::string FailureOfRun()
    {
        try {
            Run();
            return "none";
        } catch (const Failure& failure) {
            return failure.what();
        }
    }

    TempFolder folder;
    std::string target = folder.Path("data.db");
};

TEST_F(Import, ReadsAllSixFilesPackedOrPlain)
{
    folder.WritePacked("title.basics.tsv.gz", kTitles);
    folder.Write("title.ratings.tsv", "tconst\taverageRating\tnumVotes\ntt0000010\t7.9\t1234\n");
    folder.Write("title.akas.tsv", "titleId\tordering\ttitle\tregion\tlanguage\ttypes\tattributes\tisOriginalTitle\n"
                                   "tt0000010\t1\tLe manteau\tFR\t\\N\timdbDisplay\t\\N\t0\n"
                                   "tt0000010\t2\tCoat of Keys\tUSA\t\\N\tworking\t\\N\t0\n");
    folder.Write("title.crew.tsv", "tconst\tdirectors\twriters\ntt0000010\tnm0000002,nm0000001\tnm0000003\n");
    folder.Write("title.principals.tsv", "tconst\tordering\tnconst\tcategory\tjob\tcharacters\n"
                                         "tt0000010\t1\tnm0000001\tactor\t\\N\t[\"The \\\"Clerk\\\"\",\"Guest\"]\n"
                                         "tt0000010\t2\tnm0000003\twriter\tnovel\t\\N\n"
                                         "tt0000010\t3\tnm0000004\tproducer\tproducer\t\\N\n"
                                         "tt0000012\t1\tnm0000005\tactor\t\\N\t\\N\n");
    folder.Write("name.basics.tsv", "nconst\tprimaryName\tbirthYear\tdeathYear\tprimaryProfession\tknownForTitles\r\n"
                                    "nm0000001\tAnna Muster\t1901\t\\N\tactress,director\ttt0000010,tt0000012\r\n"
                                    "nm0000002\tBo Muster\t\\N\t\\N\t\\N\t\\N\r\nnm0000003\tCy Muster\t\\N\t\\N\t\\N\t\\N\r\n"
                                    "nm0000004\tDi Muster\t\\N\t\\N\t\\N\t\\N\r\nnm0000005\tOf Episodes\t\\N\t\\N\t\\N\t\\N\r\n");
    const ImportReport report = Run();
    EXPECT_EQ(report.films, 3);
    EXPECT_EQ(report.people, 4);
    EXPECT_EQ(report.leftOut, 1);
    EXPECT_EQ(report.malformed, 0) << testing::PrintToString(report.complaints);
    EXPECT_THAT(report.notices, IsEmpty());

    FilmStore store(target);
    const std::optional<Film> film = store.FindFilm(10);
    ASSERT_TRUE(film);
    EXPECT_EQ(film->title, "The Coat");
    EXPECT_EQ(film->ordinal, 1) << "a second film has the same title and year";
    EXPECT_TRUE(film->year == 1931 && film->minutes == 88 && film->ratingTenths == 79 && film->votes == 1234);
    EXPECT_THAT(film->genres, ElementsAre("Drama", "War"));
    EXPECT_TRUE(store.FindFilm(11)->kind == Kind::Series && store.FindFilm(11)->year == 0);
    EXPECT_FALSE(store.FindFilm(12)) << "episodes stay out";

    const auto titles = store.OtherTitles(10);
    ASSERT_EQ(titles.size(), 3U);
    EXPECT_EQ(titles[0].title, "Der Mantel");
    EXPECT_EQ(titles[2].note, "working title");
    EXPECT_EQ(store.Credits(10, Section::Director).at(0).name, "Bo Muster") << "the crew file has the order";
    const auto writers = store.Credits(10, Section::Writer);
    ASSERT_EQ(writers.size(), 1U) << "a writer in both files is one credit";
    EXPECT_EQ(writers[0].note, "(novel)");
    EXPECT_EQ(store.Credits(10, Section::Cast).at(0).note, "The \"Clerk\" / Guest");
    EXPECT_EQ(store.FindPerson(1).value().birthYear, 1901);
    EXPECT_THAT(store.FindPerson(1)->knownFor, ElementsAre(10));
}

TEST_F(Import, SkipsAndNamesMalformedRows)
{
    folder.Write("title.basics.tsv", std::string(kTitles) + "tt0000014\tmovie\tShort Row\n"
                                                            "0000015\tmovie\tNo Prefix\tNo Prefix\t0\t1990\t\\N\t90\tDrama\n"
                                                            "tt0000016\tmovie\tBad Year\tBad Year\t0\tMCMX\t\\N\t90\tDrama\n"
                                                            "tt0000010\tmovie\tTwice\tTwice\t0\t1990\t\\N\t90\tDrama\n"
                                                            "\n"
                                                            "tt0000017\tmovie\tGood\tGood\t0\t1990\t\\N\t90\tDrama");
    const ImportReport report = Run();
    EXPECT_EQ(report.films, 4);
    EXPECT_EQ(report.malformed, 4);
    ASSERT_EQ(report.complaints.size(), 4U);
    EXPECT_THAT(report.complaints[0], HasSubstr("title.basics.tsv:7: another number of columns"));
    EXPECT_THAT(report.complaints[3], HasSubstr("title.basics.tsv:10:"));
    EXPECT_EQ(report.notices.size(), 5U) << "each file that is not there is told";
    FilmStore store(target);
    EXPECT_EQ(store.FindFilm(10)->title, "The Coat");
    EXPECT_TRUE(store.FindFilm(17)) << "a last line without an end is a row";
}

TEST_F(Import, LeavesTheOldDataWhereItCannotEnd)
{
    folder.WritePacked("title.basics.tsv.gz", kTitles);
    Run();
    const std::string before = folder.Read("data.db");

    std::string many = "titleId\tordering\ttitle\tregion\tlanguage\ttypes\tattributes\tisOriginalTitle\n";
    for (int i = 1; i < 5000; ++i)
        many += "tt0000010\t" + std::to_string(i) + "\tTitle " + std::to_string(i * 7919) + "\t\\N\t\\N\t\\N\t\\N\t0\n";
    folder.WritePacked("title.akas.tsv.gz", many);
    const std::string whole = folder.Read("title.akas.tsv.gz");
    std::string damaged = whole;
    damaged[damaged.size() / 2] = static_cast<char>(damaged[damaged.size() / 2] ^ 0x55);
    const std::pair<std::string, const char*> cases[] = {
        {whole.substr(0, whole.size() / 2), "title.akas.tsv.gz"},       // cut
        {whole.substr(0, whole.size() - 4), "is cut behind line 5000"}, // its last bytes are missing
        {damaged, "title.akas.tsv.gz"},
        {"", "is empty"},
        {"titleId\tordering\ttitle\n", "has no column \"region\""},
    };
    for (const auto& [content, message] : cases) {
        folder.Write("title.akas.tsv.gz", content);
        EXPECT_THAT(FailureOfRun(), HasSubstr(message));
        EXPECT_EQ(folder.Read("data.db"), before);
        EXPECT_EQ(folder.Read("data.db.partial"), "<missing>");
    }
}

TEST_F(Import, LeavesTheFileOfAnotherOneToTheSameTargetAlone)
{
    folder.Write("title.basics.tsv", kTitles);
    folder.Write("data.db.partial", "what an import that was killed has left");
    {
        FilmWriter other(target);
        EXPECT_THROW(Run(), Failure);
        other.AddFilm(FullFilm(77, "Other", 1990));
        other.Finish([](const char*) {});
    }
    EXPECT_TRUE(FilmStore(target).FindFilm(77));
    EXPECT_EQ(Run().films, 3);
    EXPECT_FALSE(FilmStore(target).FindFilm(77));
}

TEST_F(Import, NeedsTheTitles)
{
    folder.Write("title.ratings.tsv", "tconst\taverageRating\tnumVotes\n");
    EXPECT_THAT(FailureOfRun(), HasSubstr("holds neither title.basics.tsv.gz nor title.basics.tsv"));
    EXPECT_EQ(folder.Read("data.db"), "<missing>");
}

TEST(FilmStore, RefusesWhatIsNoDataFile)
{
    const TempFolder folder;
    folder.Write("text.db", "this is a text and by no means a database, however long it may be");
    EXPECT_THROW(FilmStore(folder.Path("text.db")), Failure);
    EXPECT_THROW(FilmStore(folder.Path("nothing.db")), Failure);
    {
        Database other(folder.Path("other.db"), Database::Mode::Create);
    }
    EXPECT_THROW(FilmStore(folder.Path("other.db")), Failure);
}

} // namespace
