#pragma once

#include "app/Menus.h"
#include "browse/CatalogModel.h"
#include "core/NodeKey.h"
#include "ui/CatalogTreeView.h"
#include "ui/ScrollingImage.h"
#include "ui/Skinner.h"
#include "web/forms/ActorWindows.h"
#include "web/forms/FilmProgress.h"
#include "web/forms/GrabSelectRow.h"
#include "web/retrieval/FilmDesk.h"
#include "web/transport/Hraw.h"

#include <QObject>
#include <QPointer>

#include <functional>
#include <memory>
#include <optional>

namespace kelvado {

class Form2;
class frmAddSingleIMDb;
class frmImportIMDb;

/// Owns the way to the web and the panels that bring films in from there, and connects the menu entries around them.
class WebMenus : public QObject
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
        CatalogTreeView& tree;
        CatalogModel& catalog;
        const Skinner& skinner;
        GrabSelectRow& sources;
        ScrollingImage& host;
        std::function<std::optional<NodeRef>()> selectedNode;
        std::function<void(const QUrl& address)> openOutside;
        std::function<void()> showManualPanel;
        /// Before a film or person is retrieved anew: what is unsaved would be stored over what is fetched, or lost.
        std::function<void()> askAboutChanges;
    };
    explicit WebMenus(const Context& context);
    ~WebMenus() override;

    /// Shows the panel of the first film source.
    void ShowAddPanel();
    /// Shows the panel in which a film is entered by hand.
    void ShowManualPanel();
    /// Retrieves the person whose node is selected and shows the selection again. False where nothing was stored: there is no such person,
    /// the user has cancelled, or a failure was told. Raises what pages and catalog raise.
    bool RetrieveSelectedPerson();
    /// The same for the person with this number, who need not be selected.
    bool RetrievePerson(qint64 actorId);
    /// Shows the page of a film of the film site in the desktop's browser.
    void VisitFilm(const QString& number);
    /// What other panels that bring films in from the web work with.
    FilmDesk& Desk() { return m_desk; }
    /// Opens the menu of a film that was found in a window; `number` is empty where none is selected.
    void ShowFoundMenu(const QPoint& place, const QString& number);
    /// For the end of the program: a run under way stores nothing more.
    void EndRun();

private:
    void Connect(const char* entry, std::function<void()> handler);
    void ShowSource(const QString& mode);
    /// The number of the selected film; nothing where the selected node is none.
    std::optional<FilmId> SelectedFilm() const;
    void OnUpdateMovieInfo();
    void OnMovieRetrieve();
    void OnImport();
    void OnHelpUpdate();
    void VisitSite();
    void VisitShop();
    void Visit(const QString& address);
    void ShowRowMenu(const char* menu, const char* entry, const QPoint& place, const QString& number);

    Context m_context;
    Hraw m_web;
    FilmProgress m_progress;
    FilmDesk m_desk;
    ActorWindows m_actorWindows;
    QPointer<Form2> m_addPanel; ///< its host may go before this object and takes it along
    QPointer<frmAddSingleIMDb> m_retrieveWindow;
    QPointer<frmImportIMDb> m_importWindow;
    QString m_rowNumber;
};

} // namespace kelvado
