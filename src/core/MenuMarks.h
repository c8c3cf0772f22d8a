#pragma once

#include <QString>

namespace kelvado {

/// The check marks of the main window's menus. Some of them are the only home of an option while the program runs.
class MenuMarks
{
public:
    virtual ~MenuMarks() = default;

    /// `index` is the entry of a menu array, -1 for a single entry. An entry that does not exist is left alone and counts as unchecked.
    virtual void SetChecked(const QString& menu, int index, bool checked) = 0;
    virtual bool IsChecked(const QString& menu, int index) const = 0;
    virtual void SetEnabled(const QString& menu, int index, bool enabled) = 0;
};

} // namespace kelvado
