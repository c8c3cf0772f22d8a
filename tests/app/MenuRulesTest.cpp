#include "browse/SelectionMenus.h"

#include "core/RuntimeError.h"
#include "support/TempCatalog.h"

#include <gtest/gtest.h>

namespace kelvado {
namespace {

// The names of all entries that are on; a visible one is written "+name".
QStringList On(const std::vector<MenuRule>& rules)
{
    QStringList on;
    for (const MenuRule& rule : rules)
        if (rule.on)
            on << (rule.effect == MenuRule::Effect::Show ? u'+' + rule.name : rule.name);
    return on;
}

QStringList Names(const char* names)
{
    return QString::fromLatin1(names).split(u' ');
}

TEST(SelectionRules, FollowTheSelectedFilmOrActor)
{
    const TempCatalog catalog;
    catalog.Run("INSERT INTO Movie (Movie_ID, Title, Format, Loan_ID, IMDB, iSONEWS, Nfo) VALUES "
                "(1, 'Owned', NULL, 0, '0012345', 'x', 'text'), (2, 'Wanted', 'Request', 0, '', NULL, NULL), (3, 'Lent', 'request', 8, "
                "NULL, '', '');"
                "INSERT INTO Actor (Actor_ID, Actor, IMDB_LINK) VALUES (4, 'Ann', '/name/nm1/'), (5, 'Ben', NULL)");
    const struct
    {
        qint64 film, actor;
        const char* on;
    } cases[] = {
        {1, 0,
         "mnuDelete mnuDeleteE Delete MnuNfoView MnuViewNfo MnuMoveMyRequest MnuMoveMyRequestE mnuLoans mnuLoansE mnuLoanMovie "
         "mnuLoanMovieE "
         "mnuisonewsvisit mnuIsonewsVisitV mnuImdbVisit mnuImdbVisitV +mnuUpdateMovieInfo mnuMovieNightAdd mnuEdit"},
        {2, 0,
         "mnuDelete mnuDeleteE Delete MnuMoveMyMovies MnuMoveMyMoviesE mnuLoanMovie mnuLoanMovieE +mnuMovieRetrieve mnuMovieNightAdd "
         "mnuEdit"},
        {3, 0,
         "mnuDelete mnuDeleteE Delete MnuMoveMyRequest MnuMoveMyRequestE mnuLoans mnuLoansE mnuLoanReturn mnuLoanReturnE +mnuMovieRetrieve "
         "mnuMovieNightAdd mnuEdit"},
        {1, 4, "mnuImdbVisit mnuImdbVisitV +mnuActorRetreive mnuActorRetreive mnuEdit"},
        {1, 5, "+mnuActorRetreive mnuEdit"},
    };
    for (const auto& [film, actor, on] : cases) {
        const NodeRef node =
            actor ? NodeRef{FilmKey(film, QString::number(actor)), QString(kTagActor)} : NodeRef{FilmKey(film, u"65"), QString(kTagFilm)};
        EXPECT_EQ(On(SelectionRules(node, catalog.Path())), Names(on)) << film << ' ' << actor;
    }
    EXPECT_TRUE(On(SelectionRules(std::nullopt, {})).isEmpty());
    EXPECT_TRUE(On(SelectionRules(NodeRef{GroupKey(u"65"), QString(kTagGroup)}, {})).isEmpty());
    EXPECT_TRUE(On(SelectionRules(NodeRef{FilmKey(99, u"65"), QString(kTagFilm)}, catalog.Path())).isEmpty());
}

} // namespace
} // namespace kelvado
