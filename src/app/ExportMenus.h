#pragma once

#include "app/Menus.h"
#include "core/AppState.h"
#include "core/Dialogs.h"
#include "core/Events.h"
#include "core/Shell.h"
#include "render/mXMLOutput.h"
#include "ui/Skinner.h"

#include <QElapsedTimer>
#include <QObject>

#include <functional>
#include <memory>

namespace kelvado {

class frmProgress;

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
        Dialogs& dialogs;
        Events& events;
        Menus& menus;
        Shell& shell;
        const Skinner& skinner;
        /// Asks about all that is unsaved, which would be missing in what is written.
        std::function<void()> askAboutChanges;
    };
    explicit ExportMenus(const Context& context);
    ~ExportMenus() override;

    /// An export serves events, so its window can be reached meanwhile.
    bool IsBusy() const { return m_progress != nullptr; }
    /// Cancels the export under way without a message, and does `what` when it has ended.
    void EndExport(std::function<void()> what);

private:
    void ExportXml();
    XmlExport WriteXml(const QString& folder);
    bool ShowStep(const XmlStep& step, QElapsedTimer& shown);
    void TellEnd(const XmlExport& done, const QString& folder);

    Context m_context;
    std::unique_ptr<frmProgress> m_progress;
    std::function<void()> m_afterExport;
    bool m_cancelled = false;
};

} // namespace kelvado
