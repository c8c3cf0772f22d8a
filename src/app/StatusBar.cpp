#include "app/StatusBar.h"

#include "core/Guard.h"
#include "core/Literals.h"

namespace kelvado {

namespace {

const QString kMenu = u"mnuStatusItem"_s;

} // namespace

StatusBar::StatusBar(const AppState& state, Dialogs& dialogs, Menus& menus, const Skinner& skinner, StatusCells& cells)
    : m_state(state), m_menus(menus), m_skinner(skinner), m_cells(cells)
{
    for (int entry = 1; entry <= kStatusCells; ++entry)
        connect(&m_menus.Entry(kMenu, entry), &QAction::triggered, this,
                [this, entry, &dialogs] { Guarded(dialogs, [&] { Toggle(entry); }); });
}

void StatusBar::Update(bool recount)
{
    TakeColors();
    if (recount)
        m_texts.Recount(m_state.CatalogPath());
    m_texts.TakeView(m_state);
    m_shown = m_texts.Shown(m_state.gOptions->Status);
    m_cells.SetCells(m_shown);
    Q_EMIT Changed();
}

void StatusBar::TakeColors()
{
    const SkinValues& colors = m_skinner.Values();
    m_cells.SetColors(colors.statusLight, colors.statusBack, colors.statusDark);
}

// The press has turned the entry's mark over already.
void StatusBar::Toggle(int entry)
{
    m_state.gOptions->Status.*StatusOption(entry) = m_menus.IsChecked(kMenu, entry) ? 1 : 0;
    Update(false);
}

} // namespace kelvado
