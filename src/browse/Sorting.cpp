#include "browse/Sorting.h"

#include "core/Literals.h"
#include "core/RuntimeError.h"
#include "core/ViewKeys.h"

namespace kelvado {

Sorting::Sorting(AppState& state, MenuMarks& marks, Shell& shell, AskMethod askMethod)
    : m_state(state), m_marks(marks), m_shell(shell), m_askMethod(std::move(askMethod))
{
}

void Sorting::ChoosePrimary(int entry)
{
    Choose(entry, u"mnuSortPrimDetail"_s, kPrimarySorts, &cOptView::PrimarySort);
}

void Sorting::ChooseSecondary(int entry)
{
    Choose(entry, u"mnuSortSecDetail"_s, kSecondarySorts, &cOptView::SecondarySort);
}

void Sorting::Choose(int entry, const QString& menu, std::span<const char* const> keys, QString cOptView::*sort)
{
    const int custom = static_cast<int>(keys.size());
    if (entry < 0 || entry > custom)
        throw RuntimeError(kErrSubscript);
    for (int i = 0; i < custom; ++i)
        m_marks.SetChecked(menu, i, i == entry);
    m_marks.SetChecked(menu, entry, true);
    const QString key = entry < custom ? QString::fromLatin1(keys[static_cast<std::size_t>(entry)]) : m_askMethod();
    if (key == kNothingChosen)
        return;
    m_state.gOptions->View.*sort = key;
    m_shell.RefreshCatalogTree();
}

void Sorting::TogglePrimaryDirection()
{
    ToggleDirection(u"mnuSortPrimDESC"_s, &cOptView::PrimaryOrder);
}

void Sorting::ToggleSecondaryDirection()
{
    ToggleDirection(u"mnuSortSecDESC"_s, &cOptView::SecondaryOrder);
}

void Sorting::ToggleDirection(const QString& menu, QString cOptView::*order)
{
    const bool descending = !m_marks.IsChecked(menu, -1);
    m_state.gOptions->View.*order = descending ? u"DESC"_s : QString();
    m_marks.SetChecked(menu, -1, descending);
    m_shell.RefreshCatalogTree();
}

void Sorting::TogglePrimaryExpanded()
{
    const QString menu = u"mnuSortPrimExpanded"_s;
    m_marks.SetChecked(menu, -1, !m_marks.IsChecked(menu, -1));
}

void Sorting::ChooseViewMode(int entry)
{
    if (entry < 0 || entry >= static_cast<int>(std::size(kViewModes)))
        throw RuntimeError(kErrSubscript);
    m_state.gOptions->View.ViewMode = QString::fromLatin1(kViewModes[entry]);
    for (int i = 0; i < static_cast<int>(std::size(kViewModes)); ++i)
        m_marks.SetChecked(u"mnuViewMode"_s, i, i == entry);
    m_shell.RefreshCatalogTree();
}

} // namespace kelvado
