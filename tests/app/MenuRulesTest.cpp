#include "app/mMenuOptions.h"
#include "core/Literals.h"
#include "store/Connection.h"
#include "support/MapMarks.h"
#include "support/TempCatalog.h"

#include <gtest/gtest.h>

namespace kelvado {
namespace {

/// The names of all entries and buttons that are on, but those of `without`.
QStringList On(const MenuFacts& facts, const QStringList& without = {})
{
    MapMarks menus;
    QMap<QString, bool> buttons;
    ApplyMenuRules(facts, menus, [&](const QString& key, bool enabled) { buttons[key] = enabled; });
    QStringList on;
    for (const auto& states : {buttons, menus.enabled, menus.visible}) {
        for (const QString& name : states.keys(true))
            if (!without.contains(name) && menus.visible.value(name, true))
                on << name;
    }
    on.removeDuplicates();
    return on;
}

QStringList Names(const char* names)
{
    return QString::fromLatin1(names).split(u' ', Qt::SkipEmptyParts);
}

TEST(MenuRules, FollowTheSelectedFilmOrPerson)
{
    const TempCatalog catalog;
    catalog.Run("INSERT INTO Movie (Movie_ID, Title, Format, Loan_ID, IMDB, iSONEWS, Nfo) VALUES "
                "(1, 'Owned', NULL, 0, '0012345', 'x', 'text'), (2, 'Wanted', 'Request', 0, '', NULL, NULL), (3, 'Lent', 'request', 8, "
                "NULL, '', '');"
                "INSERT INTO Actor (Actor_ID, Actor, IMDB_LINK) VALUES (4, 'Ann', '/name/nm1/'), (5, 'Ben', NULL)");
    const struct
    {
        NodeRef node;
        const char* on;
    } cases[] = {
        {{FilmKey(1, u"65"), QString(kTagFilm)},
         "Delete MnuMoveMyRequest MnuMoveMyRequestE MnuNfoView MnuViewNfo mnuDelete mnuDeleteE mnuEdit mnuImdbVisit mnuImdbVisitV "
         "mnuIsonewsVisitV mnuLoanMovie mnuLoanMovieE mnuLoans mnuLoansE mnuMovieNightAdd mnuisonewsvisit mnuUpdateMovieInfo"},
        {{FilmKey(2, u"65"), QString(kTagFilm)},
         "Delete MnuMoveMyMovies MnuMoveMyMoviesE mnuDelete mnuDeleteE mnuEdit mnuLoanMovie mnuLoanMovieE mnuMovieNightAdd "
         "mnuMovieRetrieve"},
        {{FilmKey(3, u"65"), QString(kTagFilm)},
         "Delete MnuMoveMyRequest MnuMoveMyRequestE mnuDelete mnuDeleteE mnuEdit mnuLoanReturn mnuLoanReturnE mnuLoans mnuLoansE "
         "mnuMovieNightAdd mnuMovieRetrieve"},
        {{FilmKey(1, u"4"), QString(kTagActor)}, "mnuActorRetreive mnuEdit mnuImdbVisit mnuImdbVisitV"},
        {{FilmKey(1, u"5"), QString(kTagActor)}, "mnuEdit mnuActorRetreive"},
        {{GroupKey(u"65"), QString(kTagGroup)}, ""},
        {{FilmKey(99, u"65"), QString(kTagFilm)}, ""},
    };
    Connection connection = OpenCatalog(catalog.Path());
    for (const auto& [node, on] : cases) {
        MenuFacts facts;
        facts.selection = ReadSelectionFacts(node, connection);
        EXPECT_EQ(On(facts), Names(on)) << qPrintable(node.key);
    }
}

TEST(MenuRules, FollowTheCatalogItsFiltersAndTheHistory)
{
    EXPECT_TRUE(On({}).isEmpty());
    MenuFacts facts;
    facts.catalogOpen = true;
    const QStringList open = On(facts);
    EXPECT_TRUE(open.contains(u"Save"_s) && open.contains(u"mnuImdb"_s) && open.contains(u"AddFilter"_s));
    for (const char* never : {"Print", "MnuPrint", "mnuExportWebWizard", "mnuTreeview", "frmEdit", "mnuExcel"})
        EXPECT_FALSE(open.contains(QLatin1StringView(never))) << never;
    facts.canAddFilter = false;
    const QStringList full = On(facts);
    EXPECT_EQ(open.size() - full.size(), 2);
    EXPECT_FALSE(full.contains(u"AddFilter"_s) || full.contains(u"mnuAddFilter"_s));
    facts.hasFilters = true;
    EXPECT_EQ(On(facts, open), Names("mnuFilterRemoveAll"));
    facts.hasFilters = false;
    facts.hasOlder = true;
    EXPECT_EQ(On(facts, open), Names("Back"));
    facts.hasNewer = true;
    EXPECT_EQ(On(facts, open), Names("Back Forward"));
}

} // namespace
} // namespace kelvado
