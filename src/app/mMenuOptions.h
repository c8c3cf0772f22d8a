#pragma once

#include "browse/SelectionFacts.h"
#include "core/MenuMarks.h"

#include <functional>

namespace kelvado {

/// What decides which menu entries and toolbar buttons can be used.
struct MenuFacts
{
    bool catalogOpen = false;
    bool canAddFilter = true, hasFilters = false;
    bool hasOlder = false, hasNewer = false; ///< steps of the history
    SelectionFacts selection;
};

/// Enables a toolbar button by its key.
using EnableButton = std::function<void(const QString& key, bool enabled)>;

/// Turns every entry and button that depends on something on or off.
void ApplyMenuRules(const MenuFacts& facts, MenuMarks& menus, const EnableButton& enableButton);

} // namespace kelvado
