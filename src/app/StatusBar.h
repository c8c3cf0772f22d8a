#pragma once

#include "app/Menus.h"
#include "core/AppState.h"
#include "core/Dialogs.h"
#include "store/mStatusBar.h"
#include "ui/Skinner.h"
#include "ui/StatusCells.h"

#include <QObject>

namespace kelvado {

/// The status bar's cells and the menu that chooses among them.
class StatusBar : public QObject
{
    Q_OBJECT
public:
    /// All of it outlives this object.
    StatusBar(const AppState& state, Dialogs& dialogs, Menus& menus, const Skinner& skinner, StatusCells& cells);

    /// Brings the cells up to date; `recount` asks the catalog anew.
    void Update(bool recount);
    /// Gives the cells the colours of the present skin.
    void TakeColors();
    /// The texts of the cells.
    const QStringList& Shown() const { return m_shown; }

Q_SIGNALS:
    /// The texts were brought up to date.
    void Changed();

private:
    void Toggle(int entry);

    const AppState& m_state;
    Menus& m_menus;
    const Skinner& m_skinner;
    StatusCells& m_cells;
    StatusTexts m_texts;
    QStringList m_shown;
};

} // namespace kelvado
