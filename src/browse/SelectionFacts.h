#pragma once

#include "core/NodeKey.h"

#include <QString>

namespace kelvado {

class Connection;

/// What the selected node is, and what its row in the catalog allows. All false for a group, a placeholder, and a row that is gone.
struct SelectionFacts
{
    bool film = false, person = false;
    // of a film
    bool nfo = false, request = false, owned = false, atHome = false, onLoan = false, shopLink = false;
    /// The site has a page of this film or person.
    bool siteLink = false;
};

/// Reads the film's or person's row. Raises what the engine raises.
SelectionFacts ReadSelectionFacts(const NodeRef& node, Connection& catalog);

} // namespace kelvado
