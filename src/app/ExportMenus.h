#pragma once

#include "app/Menus.h"
#include "browse/CatalogModel.h"
#include "core/AppState.h"
#include "render/export/PackageExport.h"
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
        const CatalogModel& catalog;
        std::function<QModelIndex()> selectedNode;
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
    /// Shows the window of an export until it is closed.
    void Show(QDialog& window);
    void ExportXml();
    void ExportText();
    void ShowWizard();
    void ExportByPackage(QWidget& wizard, const WebChoice& choice);
    void PrintCollection();
    void ExportPages();
    void ExportPagesByView();
    /// False where the user wants no export that leaves films out.
    bool MayLeaveOut(qint64 films);

    Context m_context;
    ExportRun m_run;
    QDialog* m_window = nullptr; ///< that is shown
};

} // namespace kelvado
