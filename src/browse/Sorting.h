#pragma once

#include "core/AppState.h"
#include "core/Literals.h"
#include "core/MenuMarks.h"
#include "core/Shell.h"

#include <QString>

#include <functional>
#include <span>

namespace kelvado {

/// What the custom dialog answers where nothing was chosen.
inline constexpr QLatin1StringView kNothingChosen = "0"_L1;

/// The sort and view menus: they change the view's options and their check marks, and rebuild the tree.
class Sorting
{
public:
    /// Shows the custom dialog and returns the chosen column key, or `kNothingChosen`.
    using AskMethod = std::function<QString()>;

    Sorting(AppState& state, MenuMarks& marks, Shell& shell, AskMethod askMethod);

    /// Entry 0 to 6 of `mnuSortPrimDetail`, or 7 for the custom dialog. The mark of 7 stays once it is set.
    void ChoosePrimary(int entry);
    /// Entry 0 to 3 of `mnuSortSecDetail`, or 4 for the custom dialog.
    void ChooseSecondary(int entry);
    void TogglePrimaryDirection();
    void ToggleSecondaryDirection();
    /// Shows at the next refresh only.
    void TogglePrimaryExpanded();
    /// Entry 0 to 3 of `mnuViewMode`.
    void ChooseViewMode(int entry);

private:
    void Choose(int entry, const QString& menu, std::span<const char* const> keys, QString cOptView::*sort);
    void ToggleDirection(const QString& menu, QString cOptView::*order);

    AppState& m_state;
    MenuMarks& m_marks;
    Shell& m_shell;
    AskMethod m_askMethod;
};

} // namespace kelvado
