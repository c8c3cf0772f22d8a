#pragma once

#include "app/Menus.h"
#include "core/AppState.h"
#include "core/Discs.h"
#include "ui/ScrollingImage.h"
#include "ui/Skinner.h"
#include "web/forms/GrabSelectRow.h"
#include "web/forms/StepRun.h"
#include "web/retrieval/FilmDesk.h"

#include <QObject>
#include <QPointer>

#include <functional>

class QDropEvent;

namespace kelvado {

class fAVIAdd;

/// Connects the menu entries that take films in from files and discs, puts their panel into the window, and takes what is dropped on it.
class IntakeMenus : public QObject
{
    Q_OBJECT
public:
    /// What the entries work on; all of it outlives this object.
    struct Context
    {
        QWidget& window;
        AppState& state;
        Menus& menus;
        FilmDesk& desk;
        Discs& discs;
        const Skinner& skinner;
        GrabSelectRow& sources;
        ScrollingImage& host;
        /// Goes to the section in which films are added; False where the user stays.
        std::function<bool()> enterSection;
        /// Opens the menu of a film that was found.
        std::function<void(const QPoint& place, const QString& number)> showRowMenu;
    };
    explicit IntakeMenus(const Context& context);
    ~IntakeMenus() override;

    bool IsBusy() const { return m_run.IsBusy(); }
    /// Cancels the run under way without a message, and does `what` when it has ended.
    void EndRun(std::function<void()> what) { m_run.End(std::move(what)); }

protected:
    /// Video files and folders can be dropped anywhere on the window.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void OnMenu(const char* name, void (IntakeMenus::*handler)());
    bool ShowPanel();
    void ShowFilePanel();
    void ImportTitles();
    bool MayDrop(const QDropEvent& event) const;

    Context m_context;
    StepRun m_run;
    QPointer<fAVIAdd> m_panel; ///< its host may go before this object and takes it along
};

} // namespace kelvado
