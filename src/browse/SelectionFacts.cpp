#include "browse/SelectionFacts.h"

#include "core/Literals.h"
#include "store/Recordset.h"

namespace kelvado {

namespace {

SelectionFacts FactsOfFilm(const Recordset& film)
{
    const auto filled = [&](QStringView column) { return !film[column].IsNull() && !film[column].Get().Text().isEmpty(); };
    SelectionFacts facts;
    facts.film = true;
    facts.nfo = filled(u"Nfo");
    facts.request = filled(u"Format") && film[u"Format"].Get().Text() == "Request"_L1;
    facts.owned = !facts.request;
    facts.atHome = film[u"Loan_ID"].IsNull() || film[u"Loan_ID"].Get().Number() == 0;
    facts.onLoan = !facts.atHome;
    facts.shopLink = filled(u"iSONEWS");
    facts.siteLink = filled(u"IMDB");
    return facts;
}

} // namespace

SelectionFacts ReadSelectionFacts(const NodeRef& node, Connection& catalog)
{
    Recordset row;
    SelectionFacts facts;
    if (node.tag == kTagFilm) {
        row.Open("SELECT * FROM Movie WHERE Movie_ID = "_L1 + KeyPart(node.key, 0), catalog);
        if (!row.Eof())
            facts = FactsOfFilm(row);
    } else if (node.tag == kTagActor) {
        row.Open("SELECT * FROM Actor WHERE Actor_ID = "_L1 + KeyPart(node.key, 1), catalog);
        facts.person = !row.Eof();
        facts.siteLink = facts.person && !row[u"IMDB_LINK"].IsNull();
    }
    return facts;
}

} // namespace kelvado
