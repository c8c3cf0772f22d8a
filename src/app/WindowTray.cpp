#include "app/WindowTray.h"

#include "core/Guard.h"
#include "core/Literals.h"

#include <QApplication>
#include <QCursor>
#include <QMenu>
#include <QTimer>

namespace kelvado {

WindowTray::WindowTray(QMainWindow& window, const AppState& state, Dialogs& dialogs, Menus& menus)
    : m_window(window), m_state(state), m_menus(menus)
{
    connect(&m_icon, &TrayIcon::Message, this, [this, &dialogs](int message) { Guarded(dialogs, [&] { OnMessage(message); }); });
}

void WindowTray::Apply()
{
    m_icon.SetIcon(m_window.windowIcon());
    m_icon.SetTipText(m_window.windowTitle());
    if (IsOn(m_state.gOptions->Display.AlwaysInTray) && TrayIcon::IsAvailable())
        m_icon.ShowTrayIcon();
}

void WindowTray::NoteState()
{
    if (!m_window.isMinimized())
        m_lastState = m_window.windowState() & Qt::WindowMaximized;
}

void WindowTray::OnStateChange()
{
    NoteState();
    if (!m_window.isMinimized() || !m_state.gOptions)
        return;
    // Only where there is a tray to come back from.
    if (IsOn(m_state.gOptions->Display.InSysTray) && TrayIcon::IsAvailable()) {
        m_icon.ShowTrayIcon();
        QTimer::singleShot(0, &m_window, &QWidget::hide);
    }
}

void WindowTray::PrepareConfirmation()
{
    if (!m_state.gOptions || (m_window.isVisible() && !m_window.isMinimized()))
        return;
    if (IsOn(m_state.gOptions->Display.RestoreCon))
        Restore();
    if (IsOn(m_state.gOptions->Display.FlashCon)) {
        QApplication::alert(&m_window);
        m_icon.Flash();
    }
}

void WindowTray::End()
{
    m_ended = true;
    m_icon.HideTrayIcon();
}

void WindowTray::OnMessage(int message)
{
    const cOptDisplay& display = m_state.gOptions->Display;
    if (!IsOn(display.InSysTray) && !IsOn(display.AlwaysInTray))
        return;
    switch (message) {
    case kTrayLeftDown:
        if (!m_window.isMinimized())
            m_window.show();
        break;
    case kTrayDoubleClick:
        Restore();
        break;
    case kTrayRightDown:
        m_menus.Menu(u"mnuFile"_s).exec(QCursor::pos());
        Restore();
        break;
    default:
        break;
    }
}

void WindowTray::Restore()
{
    if (m_ended)
        return;
    m_window.setWindowState(m_lastState);
    m_window.show();
    m_window.raise();
    m_window.activateWindow();
}

} // namespace kelvado
