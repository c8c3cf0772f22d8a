#pragma once

#include "browse/FilmElements.h"
#include "core/AppState.h"
#include "core/Dialogs.h"
#include "core/MenuMarks.h"
#include "core/Shell.h"

#include <QString>

#include <array>
#include <functional>
#include <span>

namespace kelvado {

/// One condition on the films: its SQL and the text of its menu entry. A cancelled dialog gives a `WhereText` of "0".
struct FilterRecord
{
    QString WhereText;
    QString Caption;
};

/// The captions of the comparisons of a numeric element, in their order. A text element is compared for equality alone; all of them
/// include the value itself.
std::span<const char* const> FilterOperands();

/// What the dialog has to say before it accepts; the empty text where all is well. `element` is null where none is selected, `operand`
/// -1 where none is chosen.
QString FilterFault(const FilmElement* element, int operand, const QString& text);
/// The condition that the dialog stands for. The value stands in double quotes; those that it holds are doubled.
FilterRecord MakeFilter(const FilmElement& element, int operand, const QString& text);

/// The conditions as one clause: "WHERE ", the first, " AND ", the next, and so on; empty for none.
QString JoinFilters(std::span<const FilterRecord> filters);
/// `sql` for a query of films. Where it lacks the genres (`hasGenres` false), a condition on them means the films that are linked to such
/// a genre. So do several conditions where it has them, as each row has one genre.
QString WithLinkedGenres(const QString& sql, bool hasGenres);

/// The active filters, at most five, joined by AND, with their menu entries. They last as long as the program runs.
class Filters
{
public:
    static constexpr int kMost = 5;
    using AskFilter = std::function<FilterRecord()>;

    Filters(AppState& state, Dialogs& dialogs, MenuMarks& marks, Shell& shell, AskFilter askFilter);

    void Add();
    /// Asks first.
    void RemoveAll();
    /// Asks first, then removes record `index` and hides the menu entry that was clicked. The other entries keep their places, so behind a
    /// removal in the middle entries and records no longer stand side by side; entry k still removes record k.
    void RemoveSingle(int index);
    /// Puts `FilterWhere` of the state together from the active filters.
    void BuildFilterWhere();

private:
    void Apply();

    AppState& m_state;
    Dialogs& m_dialogs;
    MenuMarks& m_marks;
    Shell& m_shell;
    AskFilter m_askFilter;
    std::array<FilterRecord, kMost + 1> m_active; ///< those from `FilterCount` on are stale
};

} // namespace kelvado
