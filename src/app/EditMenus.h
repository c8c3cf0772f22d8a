#pragma once

#include "app/Menus.h"
#include "core/NodeKey.h"
#include "core/SectionTabs.h"
#include "panels/PanelContext.h"
#include "ui/ScrollingImage.h"
#include "ui/Skinner.h"

#include <QObject>
#include <QPointer>
#include <QUrl>

#include <functional>

namespace kelvado {

class FilmPanel;
class Form3;
class frmAddManual;
class frmPeople;

/// Owns the editing panels, puts them into the window and connects the menu entries around them.
class EditMenus : public QObject
{
    Q_OBJECT
public:
    /// What the entries work on; all of it outlives this object.
    struct Context
    {
        QWidget& window;
        PanelContext panels;
        Menus& menus;
        SectionTabs& sections;
        const Skinner& skinner;
        ScrollingImage& host;
        std::function<void(const QString& key)> selectNode;
        std::function<void(const QUrl& address)> openOutside;
        /// Shows a film's page in the list of films.
        std::function<void(FilmId movieId)> openFilm;
        /// Fetches a person's data from the film site; false where nothing came of it.
        std::function<bool(qint64 actorId)> retrieve;
        std::function<void(const QString& number)> visitFilm;
        std::function<void(qint64 actorId, const QString& name)> renameActor;
    };
    explicit EditMenus(const Context& context);
    ~EditMenus() override;

    /// Shows the panel of an editing section, filled with the film or person of `node`; empty without one.
    void Show(const QString& section, const std::optional<NodeRef>& node);
    /// Gives the focus to the first field of the section's panel, where it has one that can be used.
    void FocusPanel(const QString& section);
    /// Stores what is unsaved in the panel of `section`, without a question. Where that fails, the tree's selection goes back to what the
    /// panel shows, and the failure is raised; but changes of a film or person that is gone are dropped, which is told.
    void SaveFirst(const QString& section);
    /// Selects the node of what the panel of `section` shows.
    void SelectShown(const QString& section);
    /// Asks about all that is unsaved, as before the catalog or the program is left.
    void AskAboutChanges();
    /// Reads what the panel of `section` shows anew, where nothing in it is unsaved.
    void ReloadClean(const QString& section);
    /// After the tree was filled: a panel whose film or person is gone, or belongs to another catalog, is emptied.
    void ClearGone();
    /// Whether the panel of `section` shows a film or person.
    bool ShowsAny(const QString& section) const;
    /// Shows the panel in which a film is entered by hand.
    void ShowManualPanel();

private:
    EditPanel* PanelOf(const QString& section) const;
    Form3& FilmEditor();
    frmPeople& PersonEditor();
    void OnRetrieve();
    void ManageList(const char* table);
    void Connect(const char* entry, std::function<void()> handler);
    void ConnectPeople(FilmPanel& panel);
    void OnPersonEntry(const char* entry, void (FilmPanel::*handler)());
    void ShowPersonMenu(FilmPanel& panel, const QPoint& place);

    Context m_context;
    QPointer<Form3> m_film; ///< the window may take its panels along
    QPointer<frmPeople> m_person;
    QPointer<frmAddManual> m_manual;
    QPointer<FilmPanel> m_menuOf;   ///< the panel that the menu of people was opened for
    QString m_filmKey, m_personKey; ///< the nodes of the film and the person on show
};

} // namespace kelvado
