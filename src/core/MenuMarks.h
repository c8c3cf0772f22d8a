#pragma once

#include <QString>

namespace kelvado {

/// The entries of the main window's menus, as the logic sees them. Some check marks are the only home of an option while the
/// program runs.
class MenuMarks
{
public:
    virtual ~MenuMarks() = default;

    /// `index` is the entry of a menu array, -1 for a single entry. An entry that does not exist is left alone and counts as unchecked.
    virtual void SetChecked(const QString& menu, int index, bool checked) = 0;
    virtual bool IsChecked(const QString& menu, int index) const = 0;
    virtual void SetEnabled(const QString& menu, int index, bool enabled) = 0;
    virtual void SetVisible(const QString& menu, int index, bool visible) = 0;
    /// `caption` is shown as it stands: "&" marks no key in it.
    virtual void SetCaption(const QString& menu, int index, const QString& caption) = 0;
};

} // namespace kelvado
