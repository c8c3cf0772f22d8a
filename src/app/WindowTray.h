#pragma once

#include "app/Menus.h"
#include "core/AppState.h"
#include "core/Dialogs.h"
#include "ui/TrayIcon.h"

#include <QMainWindow>

namespace kelvado {

/// The main window's life in the tray, as the display options want it. Before the options are loaded there is none.
class WindowTray : public QObject
{
    Q_OBJECT
public:
    /// All of it outlives this object.
    WindowTray(QMainWindow& window, const AppState& state, Dialogs& dialogs, Menus& menus);

    /// Shows the icon where it is always there.
    void Apply();
    /// The window was minimised, maximised or made normal.
    void OnStateChange();
    /// Remembers how the window is to come back; for every change of its size.
    void NoteState();
    /// Brings the window back, or lets it blink, as the settings want it before a question.
    void PrepareConfirmation();
    /// Shows the window as it was before it was minimised, in front.
    void Restore();
    /// The window goes for good.
    void End();

private:
    void OnMessage(int message);

    QMainWindow& m_window;
    const AppState& m_state;
    Menus& m_menus;
    TrayIcon m_icon;
    Qt::WindowStates m_lastState = Qt::WindowNoState; ///< normal or maximised, for the way back
    bool m_ended = false;
};

} // namespace kelvado
