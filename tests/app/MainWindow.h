#pragma once

#include "app/DesktopSeams.h"
#include "app/Form1.h"
#include "support/ScriptedDialogs.h"
#include "support/ScriptedDiscs.h"
#include "support/TempCatalog.h"
#include "support/TempHome.h"
#include "ui/CatalogTreeView.h"

#include <QSignalSpy>
#include <QTest>
#include <QtWidgets>

#include <functional>

namespace kelvado {

/// Serves events as the desktop does, and lets a test do something in the midst of a long job.
class HookedEvents : public DesktopEvents
{
public:
    void ServeEvents() override
    {
        RunHook();
        DesktopEvents::ServeEvents();
    }
    void ServeWithoutInput() override
    {
        RunHook();
        DesktopEvents::ServeWithoutInput();
    }

    /// Counts the pause, and makes it only where it is wanted.
    void Pause(int milliseconds) override
    {
        paused += milliseconds;
        if (pauses)
            DesktopEvents::Pause(milliseconds);
    }

    std::function<void()> hook;
    bool pauses = true;
    int paused = 0;

private:
    void RunHook() const
    {
        if (const std::function<void()> running = hook) // a hook may take itself away
            running();
    }
};

/// The assembled main window on a program folder of its own, with a catalog of three films: "2001" (VHS, lent), "Alien" (DVD, with a
/// cast of two, credits and an NFO) and "Brazil" (a request). A test takes every message that it expects; one left over fails it.
class MainWindow : public ::testing::Test
{
protected:
    MainWindow();
    ~MainWindow() override;

    /// Brings the window up and waits until the first activation is done.
    void Start();
    /// Starts with a command line or settings that stop the start; returns number and text of the failure.
    QString FailureOfStart(const QStringList& arguments = {});

    void Set(const char* section, const char* key, const QString& value);
    QString Setting(const char* section, const char* key) const;

    /// All messages since the last call, "type title: text" each, parted by " | ".
    std::string TakeMessages();

    template<typename Widget = QWidget>
    Widget& Get(const char* name) const
    {
        auto* widget = window->findChild<Widget*>(QString::fromLatin1(name));
        if (!widget)
            throw std::runtime_error(std::string("no control ") + name);
        return *widget;
    }
    CatalogTreeView& Tree() const;
    QAction& Entry(const char* name) const { return Get<QAction>(name); }
    bool IsOn(const char* entryOrButton) const;

    /// The first node with this text, at any level; invalid where there is none.
    QModelIndex Node(const QString& text) const;
    /// The texts of the groups and, indented, of the films.
    std::string Shown() const;
    /// Opens the group above a film and clicks the node with the mouse.
    void ClickNode(const QString& text, Qt::MouseButton button = Qt::LeftButton);
    void Press(const char* control) { QTest::mouseClick(&Get(control), Qt::LeftButton); }
    /// Opens a menu of the menu bar and clicks one of its entries.
    void Choose(const char* menu, const char* entry);
    /// Sends a key to the control that has the focus.
    void Key(Qt::Key key, int times = 1);

    /// Waits until the page view shows this file of the temp folder, or "about:blank", and returns the page's text.
    QString Page(const QString& name);
    QVariant RunInPage(const QString& script);
    void ClickInPage(const char* selector);

    TempHome home;
    TempCatalog catalog;
    ScriptedDialogs dialogs;
    HookedEvents events;
    ScriptedDiscs discs;
    std::unique_ptr<Form1> window;

private:
    std::unique_ptr<QSignalSpy> m_complete;
};

} // namespace kelvado
