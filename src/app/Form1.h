#pragma once

#include "app/DesktopSeams.h"
#include "app/Menus.h"
#include "app/PageDesk.h"
#include "browse/SelectionFacts.h"
#include "core/AppState.h"
#include "core/Discs.h"
#include "core/Guard.h"
#include "core/SectionTabs.h"
#include "core/Shell.h"
#include "render/pages/PageMessages.h"
#include "render/pages/Pages.h"
#include "store/CatalogFile.h"
#include "ui/Skinner.h"

#include <QMainWindow>
#include <QPointer>

#include <memory>

namespace Ui {
class Form1;
}

namespace kelvado {

class BrowseMenus;
class CatalogModel;
class CatalogPane;
class EditMenus;
class ExportMenus;
class IntakeMenus;
class LookMenus;
class StatusBar;
class WebMenus;
class WindowTray;

/// The main window: it owns the process-wide state and the panels, and turns what the user does into calls of the logic.
class Form1 : public QMainWindow, public Shell
{
    Q_OBJECT
public:
    /// All of it outlives the window.
    Form1(Dialogs& dialogs, kelvado::Events& events, Discs& discs, QWidget* parent = nullptr);
    ~Form1() override;

    AppState& State() { return m_state; }
    Menus& MenuBar() { return m_menus; }
    kelvado::Events& Events() { return m_events; }
    frmPageView& PageView() { return *m_pageView; }
    CatalogModel& Catalog();

    // What the start needs, in the order of its use.
    /// Takes the skin of this name, or where it cannot be shown another one, which is told. Raises what its pictures raise where there is
    /// no other.
    void TakeSkin(const QString& skin);
    /// Brings the window back, or lets it blink, as the settings want it before a question.
    void PrepareConfirmation();
    /// Brings the window back from the tray or the task bar, in front of all others.
    void ComeToFront();
    /// Window state, pane widths; shows the window.
    void LayOutAtStart();

    // Shell
    void RefreshCatalogTree() override;
    void ShowSelection() override;
    void ApplyMenuRules() override;
    void UpdateStatus(bool recount) override;
    void ShowStatusText(const QString& text) override;
    void ShowWorking(bool busy) override;
    void ShowProgress(int percent) override;
    void EnableMainWindow(bool enabled) override;
    void RetitleSelectedNode(FilmId movieId, const QString& title) override;
    void RekeySelectedNode(FilmId movieId) override;

    void ShowSection(const QString& section);
    void ShowManualEntry();
    void ShowCreditsPage(FilmId movieId);
    void GoBack();
    void GoForward();
    /// Hands an address of the web or of mail to the desktop; any other is dropped. The only way out of the program.
    void OpenOutside(const QUrl& address);

Q_SIGNALS:
    /// The first activation is done: the default catalog is open, or none is.
    void Ready();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void ConnectMenus();
    void ConnectControls();
    void OnMenu(const char* name, void (Form1::*handler)());
    void OnFirstActivation();
    void OpenDefaultCatalog();
    void OnButton(const QString& key);
    void OnNodeClick();
    void SaveBeforeNode();
    void OnPageClick(const PageClick& click);
    void OnFilled();
    void RefreshPanel();
    void LoadPictures();
    void LoadToolRow();
    void OnSkinChanged();
    void ShowCaption();
    void ShowFilmMenu();
    void LayOutPanes();
    void SaveSettings();

    /// Whether the section is one of the editing panels.
    bool IsEditing() const;
    std::optional<NodeRef> SelectedNode() const;
    void ApplyFacts();
    void ShowPageOf(const NodeRef& node);
    void GoTo(const QString& key);
    /// Shows a film's page in the list of films, where the tree has it.
    void OpenFilm(FilmId movieId);
    void TakeId();
    void ChooseSection(const QString& section);
    void Show(const SectionView& view);
    void ShowPanel(QWidget* panel);
    void Open(const std::optional<Page>& page, const PageDesk::Make& again);
    std::optional<Page> PageOf(const NodeRef& node, Connection& catalog);
    /// Shows the blank page, or the one that says how to begin where the catalog has no film.
    void ShowBlankPage();
    void WalkTo(const History::Step* step);
    bool IsInTree(const QString& key) const;
    void ShowAbout();
    void ShowNfo();
    template<typename Handler>
    void Guard(Handler&& handler)
    {
        Guarded(m_dialogs, std::forward<Handler>(handler));
    }

    std::unique_ptr<Ui::Form1> m_ui;
    AppState m_state;
    Dialogs& m_dialogs;
    kelvado::Events& m_events;
    Menus m_menus;
    Skinner m_skinner;
    QPointer<QWidget> m_focusBefore; ///< while the window is disabled: where the focus goes back to
    CatalogFile m_catalogFile;
    SectionTabs m_sections;
    Pages m_pages;
    frmPageView* m_pageView;
    PageDesk m_pageDesk;
    std::unique_ptr<CatalogPane> m_catalog;
    std::unique_ptr<WindowTray> m_tray;
    std::unique_ptr<BrowseMenus> m_browseMenus;
    std::unique_ptr<StatusBar> m_statusBar;
    std::unique_ptr<EditMenus> m_editMenus;
    std::unique_ptr<WebMenus> m_webMenus;
    std::unique_ptr<ExportMenus> m_exportMenus;
    std::unique_ptr<IntakeMenus> m_intakeMenus;
    std::unique_ptr<LookMenus> m_lookMenus;
    SelectionFacts m_selection; ///< as read last
    bool m_activating = false;
    bool m_saved = false;
};

} // namespace kelvado
