#pragma once

#include "app/Menus.h"
#include "core/AppState.h"
#include "render/forms/ExportRun.h"

#include <QDialog>
#include <QObject>

#include <functional>

namespace kelvado {

/// Connects the menu entries that write the catalog out for other programs.
class ExportMenus : public QObject
{
    Q_OBJECT
public:
    /// What the entries work on; all of it outlives this object.
    struct Context
    {
        QWidget& window;
        AppState& state;
        Menus& menus;
        ExportRun::Context run;
        /// Asks about all that is unsaved, which would be missing in what is written.
        std::function<void()> askAboutChanges;
    };
    explicit ExportMenus(const Context& context);

    bool IsBusy() const { return m_run.IsBusy(); }
    /// Cancels the export under way without a message, and does `what` when it has ended.
    void EndExport(std::function<void()> what);

private:
    void OnMenu(const char* name, void (ExportMenus::*handler)());
    /// Asks about unsaved changes first. False where no export can begin.
    bool MayExport();
    void ExportXml();
    void ExportText();

    Context m_context;
    ExportRun m_run;
    QDialog* m_window = nullptr; ///< the window of an export while it is open
};

} // namespace kelvado
