#pragma once

#include "core/NodeKey.h"

#include <QString>

#include <optional>
#include <vector>

namespace kelvado {

/// What is to become of one menu entry or toolbar button.
struct MenuRule
{
    enum class Effect { Enable, Show, Button };
    QString name; ///< of the menu entry, or the toolbar button's key
    Effect effect;
    bool on;
    friend bool operator==(const MenuRule&, const MenuRule&) = default;
};

/// What the selected node allows: reads the film's or actor's row from the catalog and says for every entry that depends on it whether it
/// is on. No node, a group, a placeholder and a row that is gone turn all of them off. Raises what the engine raises.
std::vector<MenuRule> SelectionRules(const std::optional<NodeRef>& node, const QString& catalogPath);

} // namespace kelvado
