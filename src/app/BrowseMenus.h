#pragma once

#include "app/DesktopSeams.h"
#include "app/Menus.h"
#include "browse/FilmCommands.h"
#include "browse/Filters.h"
#include "browse/Find.h"
#include "browse/Sorting.h"
#include "ui/CatalogTreeView.h"
#include "ui/Skinner.h"

#include <QObject>
#include <QPointer>

#include <functional>
#include <optional>

namespace kelvado {

class fLoan;
class frmFind;

/// Connects the menu entries that sort, filter and search the tree, act on its selected film or lend it.
class BrowseMenus : public QObject
{
    Q_OBJECT
public:
    /// What the entries work on; all of it outlives this object.
    struct Context
    {
        QWidget& window;
        AppState& state;
        Dialogs& dialogs;
        Menus& menus;
        Shell& shell;
        CatalogModel& model;
        CatalogTreeView& tree;
        const Skinner& skinner;
        /// Brings the entries that depend on the selected film up to date.
        std::function<void()> updateSelectionMenus;
    };
    explicit BrowseMenus(const Context& context);

private:
    void Connect(const char* entry, int index, std::function<void()> handler);
    void ConnectArray(const char* menu, int entries, const std::function<void(int)>& handler);
    QString AskMethod();
    FilterRecord AskFilter();
    void DeleteSelected();
    void LoanSelected();
    void ReturnSelected();
    void ManageLoans();
    void AfterLoan();
    void ShowFind();
    void FindNext(const QString& text);

    Context m_context;
    Sorting m_sorting;
    Filters m_filters;
    FilmCommands m_films;
    std::optional<Find> m_find; ///< from the start again with each window
    QPointer<frmFind> m_findWindow;
    DesktopClock m_clock;
    QPointer<fLoan> m_loansWindow;
};

} // namespace kelvado
