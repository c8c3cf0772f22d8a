#pragma once

#include "core/MenuMarks.h"

#include <QString>

#include <functional>

namespace kelvado {

/// Enables a toolbar button by its key.
using EnableButton = std::function<void(const QString& key, bool enabled)>;

/// Enables what depends on an open catalog, group by group: the entries that add films, the view's, those on one film, the status bar's,
/// and the rest. Entries on one film stay off here: they follow the selection.
void ApplyMenuRules(bool catalogOpen, MenuMarks& menus, const EnableButton& enableButton);

} // namespace kelvado
