#include "browse/SelectionMenus.h"

#include "core/Literals.h"
#include "store/Recordset.h"

#include <array>

namespace kelvado {

namespace {

enum class Fact {
    FilmSelected,
    HasNfo,
    IsRequest,
    IsOwned,
    CanLend,
    AtHome,
    OnLoan,
    HasShopLink,
    HasSiteLink,
    NeedsRetrieval,
    CanUpdate,
    ActorSelected,
    ActorHasLink,
    CanEdit,
    Count
};
using Facts = std::array<bool, static_cast<std::size_t>(Fact::Count)>;

struct Entry
{
    const char* name;
    MenuRule::Effect effect;
    Fact fact;
};

using Effect = MenuRule::Effect;
constexpr Entry kEntries[] = {
    {"mnuDelete", Effect::Enable, Fact::FilmSelected},
    {"mnuDeleteE", Effect::Enable, Fact::FilmSelected},
    {"Delete", Effect::Button, Fact::FilmSelected},
    {"MnuNfoView", Effect::Enable, Fact::HasNfo},
    {"MnuViewNfo", Effect::Enable, Fact::HasNfo},
    {"MnuMoveMyMovies", Effect::Enable, Fact::IsRequest},
    {"MnuMoveMyMoviesE", Effect::Enable, Fact::IsRequest},
    {"MnuMoveMyRequest", Effect::Enable, Fact::IsOwned},
    {"MnuMoveMyRequestE", Effect::Enable, Fact::IsOwned},
    {"mnuLoans", Effect::Enable, Fact::CanLend},
    {"mnuLoansE", Effect::Enable, Fact::CanLend},
    {"mnuLoanMovie", Effect::Enable, Fact::AtHome},
    {"mnuLoanMovieE", Effect::Enable, Fact::AtHome},
    {"mnuLoanReturn", Effect::Enable, Fact::OnLoan},
    {"mnuLoanReturnE", Effect::Enable, Fact::OnLoan},
    {"mnuisonewsvisit", Effect::Enable, Fact::HasShopLink},
    {"mnuIsonewsVisitV", Effect::Enable, Fact::HasShopLink},
    {"mnuImdbVisit", Effect::Enable, Fact::HasSiteLink},
    {"mnuImdbVisitV", Effect::Enable, Fact::HasSiteLink},
    {"mnuMovieRetrieve", Effect::Show, Fact::NeedsRetrieval},
    {"mnuUpdateMovieInfo", Effect::Show, Fact::CanUpdate},
    {"mnuActorRetreive", Effect::Show, Fact::ActorSelected},
    {"mnuActorRetreive", Effect::Enable, Fact::ActorHasLink},
    {"mnuMovieNightAdd", Effect::Enable, Fact::FilmSelected},
    {"mnuEdit", Effect::Enable, Fact::CanEdit},
};

void Set(Facts& facts, Fact fact, bool on)
{
    facts[static_cast<std::size_t>(fact)] = on;
}

// False where the row is gone: nothing can be done with it then.
bool OpenRow(Recordset& row, Connection& connection, const QString& sql, const QString& catalogPath)
{
    connection = OpenCatalog(catalogPath);
    row.Open(sql, connection);
    return !row.Eof();
}

void ReadFilmFacts(Facts& facts, const QString& movieId, const QString& catalogPath)
{
    Connection connection;
    Recordset film;
    if (!OpenRow(film, connection, u"SELECT * FROM Movie WHERE Movie_ID = "_s + movieId, catalogPath))
        return;
    const auto filled = [&](QStringView column) { return !film[column].IsNull() && !film[column].Get().Text().isEmpty(); };
    const bool request = filled(u"Format") && film[u"Format"].Get().Text() == u"Request";
    const bool home = film[u"Loan_ID"].IsNull() || film[u"Loan_ID"].Get().Number() == 0;
    // A film without a number has no page to visit from either menu, and can be edited like any other.
    const bool onSite = filled(u"IMDB");
    Set(facts, Fact::FilmSelected, true);
    Set(facts, Fact::CanEdit, true);
    Set(facts, Fact::HasNfo, filled(u"Nfo"));
    Set(facts, Fact::IsRequest, request);
    Set(facts, Fact::IsOwned, !request);
    Set(facts, Fact::CanLend, !request);
    Set(facts, Fact::AtHome, home);
    Set(facts, Fact::OnLoan, !home);
    Set(facts, Fact::HasShopLink, filled(u"iSONEWS"));
    Set(facts, Fact::HasSiteLink, onSite);
    Set(facts, Fact::NeedsRetrieval, !onSite);
    Set(facts, Fact::CanUpdate, onSite);
}

void ReadActorFacts(Facts& facts, const QString& actorId, const QString& catalogPath)
{
    Connection connection;
    Recordset actor;
    if (!OpenRow(actor, connection, u"SELECT * FROM Actor WHERE Actor_ID = "_s + actorId, catalogPath))
        return;
    const bool linked = !actor[u"IMDB_LINK"].IsNull();
    Set(facts, Fact::ActorSelected, true);
    Set(facts, Fact::ActorHasLink, linked);
    Set(facts, Fact::HasSiteLink, linked);
    Set(facts, Fact::CanEdit, true);
}

} // namespace

std::vector<MenuRule> SelectionRules(const std::optional<NodeRef>& node, const QString& catalogPath)
{
    Facts facts{};
    if (node && node->tag == kTagFilm)
        ReadFilmFacts(facts, KeyPart(node->key, 0), catalogPath);
    else if (node && node->tag == kTagActor)
        ReadActorFacts(facts, KeyPart(node->key, 1), catalogPath);
    std::vector<MenuRule> rules;
    rules.reserve(std::size(kEntries));
    for (const Entry& entry : kEntries)
        rules.push_back({QString::fromLatin1(entry.name), entry.effect, facts[static_cast<std::size_t>(entry.fact)]});
    return rules;
}

} // namespace kelvado
