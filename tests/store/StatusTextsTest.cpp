#include "store/mStatusBar.h"

#include "support/TempCatalog.h"

namespace kelvado {
namespace {

TEST(StatusTexts, CountTheCatalogAndShowTheChosenCellsInTheirOrder)
{
    const TempCatalog catalog;
    cOptStatus all;
    for (int entry = 1; entry <= 12; ++entry)
        all.*StatusOption(entry) = 1;
    StatusTexts texts;
    texts.Recount(catalog.Path());
    EXPECT_EQ(texts.Shown(all).at(3), u"Total Discs: ");
    catalog.Run("INSERT INTO Movie (Title, Format, Loan_ID, \"Number\") VALUES ('a', 'DVD', 0, 2), ('b', NULL, 4, 3), ('c', 'Request', 5, "
                "NULL), ('d', 'VHS', 6, 1);"
                "INSERT INTO Actor (Actor) VALUES ('x'), ('y'); INSERT INTO Director (Director) VALUES ('z')");
    texts.Recount(catalog.Path());
    EXPECT_EQ(texts.Shown(all).mid(0, 8),
              (QStringList{u"Total Movies: 2"_s, u"Total Requests: 1"_s, u"Loaned Movies: 3"_s, u"Total Discs: 6"_s, u"Total Actors: 2"_s,
                           u"Total Writers: 0"_s, u"Total Directors: 1"_s, u"Total Producers: 0"_s}));
    cOptStatus some;
    some.*StatusOption(11) = 1;
    some.*StatusOption(4) = 1;
    EXPECT_EQ(texts.Shown(some), (QStringList{u"Total Discs: 6"_s, u"Total Directors: 1"_s}));
    EXPECT_TRUE(texts.Shown({}).isEmpty());
    EXPECT_THROW(StatusOption(0), RuntimeError);
}

} // namespace
} // namespace kelvado
