#pragma once

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

class QLabel;

namespace kelvado {

class frmFind;

/// Connects the menu entries that sort, filter and search the tree or act on its selected film.
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
        const QLabel& idLabel;
        const Skinner& skinner;
    };
    explicit BrowseMenus(const Context& context);

private:
    void Connect(const char* entry, int index, std::function<void()> handler);
    void ConnectArray(const char* menu, int entries, const std::function<void(int)>& handler);
    QString AskMethod();
    FilterRecord AskFilter();
    void ShowFind();
    void FindNext(const QString& text);

    Context m_context;
    Sorting m_sorting;
    Filters m_filters;
    FilmCommands m_films;
    Find m_find;
    QPointer<frmFind> m_findWindow;
};

} // namespace kelvado
