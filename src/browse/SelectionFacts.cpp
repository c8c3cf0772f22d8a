#include "browse/SelectionFacts.h"

#include "core/Literals.h"
#include "store/Recordset.h"
#include "store/mDBConnection.h"

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

SelectionFacts ReadSelectionFacts(const std::optional<NodeRef>& node, const QString& catalogPath)
{
    const bool isFilm = node && node->tag == kTagFilm;
    if (!isFilm && !(node && node->tag == kTagActor))
        return {};
    Connection connection = OpenCatalog(catalogPath);
    Recordset row;
    if (isFilm)
        row.Open("SELECT * FROM Movie WHERE Movie_ID = "_L1 + KeyPart(node->key, 0), connection);
    else
        row.Open("SELECT * FROM Actor WHERE Actor_ID = "_L1 + KeyPart(node->key, 1), connection);
    if (row.Eof())
        return {};
    if (isFilm)
        return FactsOfFilm(row);
    SelectionFacts facts;
    facts.person = true;
    facts.siteLink = !row[u"IMDB_LINK"].IsNull();
    return facts;
}

} // namespace kelvado
