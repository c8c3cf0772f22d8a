#include "app/Form1.h"

#include "app/BrowseMenus.h"
#include "app/CatalogPane.h"
#include "app/EditMenus.h"
#include "app/ExportMenus.h"
#include "app/IntakeMenus.h"
#include "app/LookMenus.h"
#include "app/StatusBar.h"
#include "app/WebMenus.h"
#include "app/WindowPlace.h"
#include "app/WindowTray.h"
#include "app/mMenuOptions.h"
#include "browse/SelectionFacts.h"
#include "core/Afterwards.h"
#include "core/Literals.h"
#include "core/OutsideAddress.h"
#include "core/Paths.h"
#include "core/Profile.h"
#include "core/RuntimeError.h"
#include "core/WindowLayout.h"
#include "render/forms/frmPageView.h"
#include "store/FilmActions.h"
#include "store/LockWait.h"
#include "ui/SkinPictures.h"
#include "ui/frmAbout.h"
#include "ui_Form1.h"

#include <QCloseEvent>
#include <QCursor>
#include <QDesktopServices>
#include <QFileInfo>
#include <QMenu>
#include <QScreen>
#include <QShortcut>
#include <QTimer>

#include <algorithm>

namespace kelvado {

namespace {

struct ToolButton
{
    const char* key; ///< empty for a separator
    const char* caption;
    const char* toolTip;
};

constexpr ToolButton kToolButtons[] = {
    {"Back", "Back", "Back"},
    {"Forward", "Forward", "Forward"},
    {"", "", ""},
    {"New", "", "Create a new File..."},
    {"Open", "", "Open an existing file ..."},
    {"Save", "", "Save existing file in different location..."},
    {"Print", "", "Print movie list..."},
    {"", "", ""},
    {"Refresh", "", "Refresh"},
    {"AddFilter", "", "Add a new filter..."},
    {"Delete", "", "Delete Selected Film..."},
    {"", "", ""},
    {"AddIMDb", "", "Add a movie from IMDb..."},
    {"AddDVDEmp", "", "Add a movie from DVD Empire..."},
    {"AddManual", "", "Manually enter a movie..."},
};

// Buttons that do what a menu entry does.
struct ButtonEntry
{
    const char* key;
    const char* entry;
};
constexpr ButtonEntry kButtonEntries[] = {
    {"New", "mnuNew"},           {"Open", "mnuFileOpen"},        {"Save", "mnuFileSaveAs"}, {"Refresh", "mnuViewRefresh"},
    {"Print", "MnuPrint"},       {"AddFilter", "mnuAddFilter"},  {"Delete", "mnuDeleteE"},  {"AddIMDb", "mnuImdb"},
    {"AddDVDEmp", "mnuisonews"}, {"AddManual", "mnuManualEntry"}};

const QString kNotInTree = u"the tree does not show it; another sort, the view or a filter leaves it out"_s;
constexpr int kStateMaximised = 2;
constexpr int kTreeMargin = 1;

// The open catalog's name stands first, where the desktop's lists of windows show it.
QString Caption(const QString& catalog)
{
    const QString product = u"%1 %2 (Beta)"_s.arg(frmAbout::ProductName(), frmAbout::Version());
    return catalog.isEmpty() ? product : QFileInfo(catalog).completeBaseName() + u" – "_s + product;
}

} // namespace

Form1::Form1(Dialogs& dialogs, kelvado::Events& events, Discs& discs, QWidget* parent)
    : QMainWindow(parent), m_ui([this] {
          auto ui = std::make_unique<Ui::Form1>();
          ui->setupUi(this);
          return ui;
      }()),
      m_dialogs(dialogs), m_events(events), m_menus(*this), m_catalogFile(m_state, dialogs, *this), m_sections(m_state, dialogs),
      m_pages(m_state, dialogs), m_pageView(new frmPageView(m_ui->PicForm)), m_pageDesk(m_pages, m_state.history, *m_pageView)
{
    setWindowTitle(Caption({}));
    setWindowIcon(QIcon(AppPath() + u"/kelvado.png"_s));
    m_ui->picGrabSelect->hide();
    m_ui->FormScroll->hide();
    m_ui->panelHost->addWidget(m_pageView);
    m_pageView->hide();
    m_catalog = std::make_unique<CatalogPane>(CatalogPane::Context{m_state, dialogs, events, m_menus, *this, m_skinner, *m_ui->TreeView1});
    m_tray = std::make_unique<WindowTray>(*this, m_state, dialogs, m_menus);
    // The picture moves while the catalog is waited for, and stops soon after the last round.
    constexpr int kWaitIsOver = 200;
    auto* waitIsOver = new QTimer(this);
    waitIsOver->setSingleShot(true);
    waitIsOver->setInterval(kWaitIsOver);
    connect(waitIsOver, &QTimer::timeout, this, [this] { ShowWorking(m_catalog->IsBusy()); });
    WhileLocked().meanwhile = [this, waitIsOver] {
        ShowWorking(true);
        waitIsOver->start();
        m_events.ServeWithoutInput();
    };
    ConnectMenus();
    ConnectControls();
    m_browseMenus = std::make_unique<BrowseMenus>(
        BrowseMenus::Context{*this, m_state, dialogs, m_menus, *this, m_catalog->Model(), *m_ui->TreeView1, m_skinner, [this] {
                                 ApplyMenuRules();
                                 RefreshPanel();
                             }});
    m_statusBar = std::make_unique<StatusBar>(m_state, dialogs, m_menus, m_skinner, *m_ui->StatusCells);
    m_editMenus = std::make_unique<EditMenus>(
        EditMenus::Context{*this,
                           {m_state, dialogs, *this},
                           m_menus,
                           m_sections,
                           m_skinner,
                           *m_ui->FormScroll,
                           [this](const QString& key) { m_catalog->Select(key); },
                           [this](const QUrl& address) { OpenOutside(address); },
                           [this](FilmId film) { OpenFilm(film); },
                           [this](qint64 actor) { return m_webMenus->RetrievePerson(actor); },
                           [this](const QString& number) { m_webMenus->VisitFilm(number); },
                           [this](qint64 actor, const QString& name) { m_catalog->Model().SetActorName(actor, name); }});
    m_webMenus = std::make_unique<WebMenus>(WebMenus::Context{
        *this, m_state, dialogs, events, m_menus, *this, *m_ui->TreeView1, m_catalog->Model(), m_skinner, *m_ui->picGrabSelect,
        *m_ui->FormScroll, [this] { return SelectedNode(); }, [this](const QUrl& address) { OpenOutside(address); },
        [this] { m_editMenus->ShowManualPanel(); }, [this] { m_editMenus->AskAboutChanges(); }});
    m_exportMenus = std::make_unique<ExportMenus>(ExportMenus::Context{*this,
                                                                       m_state,
                                                                       m_menus,
                                                                       m_catalog->Model(),
                                                                       [this] { return m_ui->TreeView1->currentIndex(); },
                                                                       {dialogs, events, *this, m_skinner},
                                                                       [this] { m_editMenus->AskAboutChanges(); }});
    m_intakeMenus = std::make_unique<IntakeMenus>(
        IntakeMenus::Context{*this, m_state, m_menus, m_webMenus->Desk(), discs, m_skinner, *m_ui->picGrabSelect, *m_ui->FormScroll,
                             [this] {
                                 ShowSection(kMovieGrab);
                                 return m_state.CurrentSection == kMovieGrab;
                             },
                             [this](const QPoint& place, const QString& number) { m_webMenus->ShowFoundMenu(place, number); }});
    m_lookMenus = std::make_unique<LookMenus>(LookMenus::Context{*this, m_state, dialogs, m_menus, m_skinner, [this] { LoadPictures(); },
                                                                 [this] {
                                                                     m_catalog->TakeColors();
                                                                     ShowCaption();
                                                                 },
                                                                 [this] { return m_catalog->IsBusy() || m_exportMenus->IsBusy(); }});
    connect(&m_skinner, &Skinner::Changed, this, [this] { Guard([this] { OnSkinChanged(); }); });
    connect(m_statusBar.get(), &StatusBar::Changed, this, &Form1::ShowCaption);
}

Form1::~Form1()
{
    WhileLocked() = {};
}

CatalogModel& Form1::Catalog()
{
    return m_catalog->Model();
}

void Form1::OnMenu(const char* name, void (Form1::*handler)())
{
    connect(&m_menus.Entry(QString::fromLatin1(name)), &QAction::triggered, this, [this, handler] { Guard([&] { (this->*handler)(); }); });
}

void Form1::ConnectMenus()
{
    const auto onFile = [this](const char* name, void (CatalogFile::*handler)()) {
        connect(&m_menus.Entry(QString::fromLatin1(name)), &QAction::triggered, this, [this, handler] {
            Guard([&] {
                if (handler != &CatalogFile::SetDefault)
                    m_editMenus->AskAboutChanges(); // they belong to the catalog that is open now
                (m_catalogFile.*handler)();
            });
        });
    };
    onFile("mnuNew", &CatalogFile::New);
    onFile("mnuFileOpen", &CatalogFile::Open);
    onFile("mnuFileSaveAs", &CatalogFile::SaveAs);
    onFile("mnuFileDefault", &CatalogFile::SetDefault);
    OnMenu("mnuViewRefresh", &Form1::RefreshCatalogTree);
    OnMenu("MnuViewNfo", &Form1::ShowNfo);
    OnMenu("MnuNfoView", &Form1::ShowNfo);
    OnMenu("mnuHelpAbout", &Form1::ShowAbout);
    connect(&m_menus.Entry(u"mnuExit"_s), &QAction::triggered, this, &QWidget::close);
    connect(&m_menus.Entry(u"mnuImdb"_s), &QAction::triggered, this, [this] {
        Guard([&] {
            if (m_state.CurrentSection == kMovieGrab)
                m_webMenus->ShowAddPanel();
            else
                ShowSection(kMovieGrab);
        });
    });
    connect(&m_menus.Entry(u"mnuManualEntry"_s), &QAction::triggered, this, [this] { Guard([&] { ShowManualEntry(); }); });
}

void Form1::ConnectControls()
{
    for (const ToolButton& button : kToolButtons) {
        const QString key = QString::fromLatin1(button.key);
        m_ui->cToolbar->Add({}, key.isEmpty() ? ctxToolbar::Style::Separator : ctxToolbar::Style::Button, key,
                            QString::fromLatin1(button.caption), QString::fromLatin1(button.toolTip));
    }
    // The page is the last in the order of Tab, wherever its engine puts the control that takes the keys: the tree stands before it.
    if (auto* last = m_ui->cToolbar->findChild<QWidget*>(QString::fromLatin1(kToolButtons[std::size(kToolButtons) - 1].key)))
        setTabOrder(last, m_ui->TreeView1);
    // Alt+Left and Alt+Right, and the side buttons of the mouse.
    for (const auto& [keys, entry] : {std::pair(QKeySequence::Back, u"Back"_s), std::pair(QKeySequence::Forward, u"Forward"_s)}) {
        auto* shortcut = new QShortcut(keys, this);
        connect(shortcut, &QShortcut::activated, this, [this, key = entry] { Guard([&] { OnButton(key); }); });
    }
    qApp->installEventFilter(this);
    connect(m_ui->cToolbar, &ctxToolbar::ButtonClick, this, [this](const QString& key) { Guard([&] { OnButton(key); }); });
    connect(m_ui->picTabs, &SectionTabRow::TabClick, this, [this](const QString& section) { Guard([&] { ShowSection(section); }); });
    connect(m_ui->picSplitter, &PaneSplitter::Moved, this, [this] { Guard([&] { LayOutPanes(); }); });
    connect(m_catalog.get(), &CatalogPane::Filled, this, [this] { Guard([&] { OnFilled(); }); });
    connect(m_ui->TreeView1, &CatalogTreeView::NodeClick, this, [this] { Guard([&] { OnNodeClick(); }); });
    connect(m_ui->TreeView1, &CatalogTreeView::MenuRequested, this, [this](const QPoint& place) {
        Guard([&] {
            ApplyMenuRules();
            m_menus.Popup(u"mnuTreeview"_s, place);
        });
    });
    connect(m_ui->PicStatusBar, &QWidget::customContextMenuRequested, this, [this](const QPoint& place) {
        if (m_state.CatalogOpen)
            m_menus.Popup(u"mnuStatus"_s, m_ui->PicStatusBar->mapToGlobal(place));
    });
    connect(m_pageView, &frmPageView::Clicked, this, [this](const PageClick& click) { Guard([&] { OnPageClick(click); }); });
    connect(m_pageView, &frmPageView::ContextMenu, this, [this] { Guard([&] { ShowFilmMenu(); }); });
}

// --- Start ---------------------------------------------------------------------------------------------------------------------------

void Form1::TakeSkin(const QString& skin)
{
    m_lookMenus->ChangeToUsable(skin);
}

// Of the tabs all pictures, so that a skin that lacks one is found out before it is used.
void Form1::LoadPictures()
{
    LoadToolRow();
    if (m_state.CurrentSection.isEmpty())
        return; // the tabs come with the first section
    for (const QLatin1StringView section : {kMovieList, kMovieGrab, kMovieEdit, kActorInfo})
        m_ui->picTabs->LoadPictures(m_state.skin, PicturesOfSection(section));
    m_ui->picTabs->LoadPictures(m_state.skin, PicturesOfSection(m_state.CurrentSection));
    m_ui->picGrabSelect->ReloadSearchBar(m_state.skin);
}

void Form1::OnSkinChanged()
{
    m_ui->cToolbar->SetSelectionColor(m_skinner.Values().progressFront);
    m_catalog->TakeColors();
    m_statusBar->TakeColors();
    m_pageDesk.OutdateAll();
    if (m_state.CurrentSection == kMovieList)
        m_pageDesk.Refresh();
    else
        m_editMenus->ReloadClean(m_state.CurrentSection); // the picture that stands for a missing one
}

void Form1::LoadToolRow()
{
    const qreal scale = devicePixelRatioF();
    for (const ToolButton& button : kToolButtons) {
        const QString key = QString::fromLatin1(button.key);
        if (key.isEmpty())
            continue;
        const auto load = [&](const char* ending) {
            return LoadSkinPicture(m_state.skin, u"Toolbar/"_s + key + QLatin1StringView(ending), scale);
        };
        m_ui->cToolbar->SetPictures(key, {load(".png"), load("-over.png"), load("-down.png"), load("-disabled.png")});
    }
    m_ui->picTabs->LoadEnds(m_state.skin);
    m_ui->Working->Load({SkinFolder(m_state.skin), AppPath()});
    std::array<QIcon, CatalogModel::kImages + 1> images;
    QPixmap blank(LoadSkinPicture(m_state.skin, u"Tree/1.png"_s, scale));
    blank.fill(Qt::transparent);
    images[0] = QIcon(blank);
    for (int i = 1; i <= CatalogModel::kImages; ++i)
        images[static_cast<std::size_t>(i)] = QIcon(LoadSkinPicture(m_state.skin, u"Tree/%1.png"_s.arg(i), scale));
    m_catalog->Model().SetImages(images);
}

void Form1::LayOutAtStart()
{
    // Room for title bar and frame, whose sizes are known once the window is on the screen.
    constexpr QSize kFrame(16, 48);
    const cOptDisplay& display = m_state.gOptions->Display;
    const std::optional<WindowPlace> before = ReadWindowPlace(SettingsFile());
    if (before)
        setGeometry(before->normal);
    resize(size().boundedTo(screen()->availableGeometry().size() - kFrame));
    int windowWidth = width();
    if (before ? before->isMaximised : display.WindowState == kStateMaximised) {
        setWindowState(Qt::WindowMaximized);
        windowWidth = screen()->availableGeometry().width(); // the window has this width only once it is on the screen
    }
    ensurePolished();
    // Whatever width the settings hold, the divider stays in the window.
    m_ui->picSplitter->SetTag(before ? before->dividerPercent
                                     : std::clamp(SplitterPercent(display.LeftPane, windowWidth * kTwipsPerPixel), 0, 99));
    show();
}

void Form1::ComeToFront()
{
    if (!m_state.Activated)
        return; // it is about to come up by itself
    m_tray->Restore();
    QApplication::alert(this); // for desktops that let no window take the focus
}

void Form1::showEvent(QShowEvent* event)
{
    QMainWindow::showEvent(event);
    if (m_state.gOptions && !std::exchange(m_activating, true))
        QTimer::singleShot(0, this, [this] {
            Guard([&] { OnFirstActivation(); });
            Q_EMIT Ready();
        });
}

void Form1::OnFirstActivation()
{
    // The end also where a part of it fails, so that the window can be worked with. The browser inside the page view is costly to make:
    // the window is drawn and the tree filled first.
    Afterwards(
        [this] {
            ShowSection(kMovieList);
            m_state.Activated = true;
            m_skinner.ApplySkin(m_state.skin);
            LayOutPanes();
            m_state.ComDiag.fileName.clear();
            m_tray->Apply();
            OpenDefaultCatalog();
        },
        [this] {
            m_state.Activated = true;
            QTimer::singleShot(0, m_pageView, &frmPageView::CreateBrowser);
        });
}

void Form1::OpenDefaultCatalog()
{
    const QString catalog = ReadProfileValue(u"Settings"_s, u"Default"_s, SettingsFile());
    if (catalog.isEmpty())
        return;
    if (!QFileInfo(catalog).isFile()) {
        m_state.CatalogOpen = false;
        m_state.comDiagFile.fileName.clear();
        return;
    }
    m_state.comDiagFile.fileName = catalog;
    m_state.CatalogOpen = true;
    ApplyMenuRules();
    RefreshCatalogTree();
}

// --- Layout --------------------------------------------------------------------------------------------------------------------------

void Form1::resizeEvent(QResizeEvent* event)
{
    QMainWindow::resizeEvent(event);
    m_tray->NoteState();
    if (!isMinimized() && m_state.gOptions)
        QTimer::singleShot(0, this, &Form1::LayOutPanes);
}

void Form1::LayOutPanes()
{
    const QWidget& area = *m_ui->picPanes;
    const PaneLayout panes =
        kelvado::LayOutPanes(m_ui->picSplitter->Tag(), area.width() * kTwipsPerPixel, 0, m_ui->picSplitter->width() * kTwipsPerPixel);
    const auto pixels = [](int twips) { return twips / kTwipsPerPixel; };
    m_ui->picLeftPane->setGeometry(0, 0, pixels(panes.leftWidth), area.height());
    m_ui->picSplitter->setGeometry(pixels(panes.splitterLeft), 0, m_ui->picSplitter->width(), area.height());
    m_ui->picRightPane->setGeometry(pixels(panes.rightLeft), 0, pixels(panes.rightWidth), area.height());
    // The tree's border falls outside its pane.
    m_ui->TreeView1->setGeometry(-kTreeMargin, -kTreeMargin, m_ui->picLeftPane->width() + 2 * kTreeMargin, area.height() + 2 * kTreeMargin);
}

// --- Shell ---------------------------------------------------------------------------------------------------------------------------

void Form1::RefreshCatalogTree()
{
    m_catalog->Fill();
}

bool Form1::IsEditing() const
{
    return m_state.CurrentSection == kMovieEdit || m_state.CurrentSection == kActorInfo;
}

void Form1::ShowSelection()
{
    const std::optional<NodeRef> node = SelectedNode();
    if (!node)
        return;
    TakeId();
    if (m_state.CurrentSection == kMovieList && node->tag != kTagGroup)
        return ShowPageOf(*node);
    ApplyMenuRules();
    if (m_state.CurrentSection == kMovieList)
        return ShowBlankPage();
    if (node->tag == kTagGroup || !IsEditing())
        return;
    const QString panel = node->tag == kTagFilm ? kMovieEdit : kActorInfo;
    if (m_state.CurrentSection == panel)
        return m_editMenus->Show(panel, node);
    const QString before = m_state.CurrentSection;
    try {
        ChooseSection(panel); // the keys stay with the tree
    } catch (...) {
        if (m_state.CurrentSection == before)
            m_editMenus->SelectShown(before);
        throw;
    }
}

void Form1::ApplyMenuRules()
{
    if (m_catalog->IsFilling())
        return;
    const std::optional<NodeRef> node = SelectedNode();
    m_selection = {};
    if (node && node->tag != kTagGroup) {
        Connection catalog = OpenCatalog(m_state.CatalogPath());
        m_selection = ReadSelectionFacts(*node, catalog);
    }
    ApplyFacts();
}

void Form1::ApplyFacts()
{
    const History::InTree inTree = [this](const QString& key) { return IsInTree(key); };
    const MenuFacts facts{m_state.CatalogOpen,
                          m_state.canAddFilter,
                          m_state.FilterCount > 0,
                          m_state.history.HasOlder(inTree),
                          m_state.history.HasNewer(inTree),
                          m_selection};
    kelvado::ApplyMenuRules(facts, m_menus, [this](const QString& key, bool enabled) {
        m_ui->cToolbar->SetButtonEnabled(m_ui->cToolbar->ButtonIndex(key), enabled);
    });
    m_menus.CloseEmptyMenus();
    ShowCaption();
}

void Form1::ShowCaption()
{
    QStringList parts(Caption(m_state.CatalogPath()));
    if (m_state.gOptions && kelvado::IsOn(m_state.gOptions->Display.StatusCaption) && !m_statusBar->Shown().isEmpty())
        parts << m_statusBar->Shown().join(u", "_s);
    setWindowTitle(parts.join(u" – "_s));
}

void Form1::UpdateStatus(bool recount)
{
    m_statusBar->Update(recount);
}

void Form1::ShowStatusText(const QString& text)
{
    m_ui->StatusCells->SetCells({text});
}

void Form1::ShowWorking(bool busy)
{
    m_ui->Working->SetBusy(busy);
}

void Form1::ShowProgress(int percent)
{
    m_ui->ProgressMain->setValue(percent);
}

void Form1::EnableMainWindow(bool enabled)
{
    // A control that is disabled loses the focus, and nothing gives it back.
    if (!enabled && isEnabled())
        m_focusBefore = focusWidget();
    setEnabled(enabled);
    if (enabled && m_focusBefore)
        std::exchange(m_focusBefore, nullptr)->setFocus();
}

void Form1::RetitleSelectedNode(FilmId movieId, const QString& title)
{
    m_catalog->Retitle(movieId, title);
}

void Form1::RekeySelectedNode(FilmId movieId)
{
    m_catalog->Rekey(movieId);
}

// --- Sections and pages --------------------------------------------------------------------------------------------------------------

std::optional<NodeRef> Form1::SelectedNode() const
{
    return m_catalog->Selected();
}

bool Form1::IsInTree(const QString& key) const
{
    return m_catalog->Model().Find(key).isValid();
}

// The number of the selected film or person, as text.
void Form1::TakeId()
{
    const std::optional<NodeRef> node = SelectedNode();
    if (node && node->tag == kTagActor)
        m_ui->ID->setText(KeyPart(node->key, 1));
    else if (node && node->tag == kTagFilm)
        m_ui->ID->setText(KeyPart(node->key, 0));
}

void Form1::ShowSection(const QString& section)
{
    const QString before = m_state.CurrentSection;
    ChooseSection(section);
    if (m_state.CurrentSection != before)
        m_editMenus->FocusPanel(section);
}

void Form1::ChooseSection(const QString& section)
{
    if (const std::optional<SectionView> view = m_sections.Choose(section, SelectedNode()))
        Show(*view);
}

void Form1::Show(const SectionView& view)
{
    m_ui->TreeView1->setEnabled(view.treeEnabled);
    try {
        m_ui->picTabs->LoadPictures(m_state.skin, view.pictures);
    } catch (const RuntimeError&) {
        TakeSkin(QString(m_state.skin)); // it was taken away while it was in use
    }
    m_ui->picTabs->SetSelected(view.section);
    if (view.section == kMovieList) {
        ShowPanel(m_pageView);
        ShowBlankPage();
        if (!m_state.history.walking) // a step of the history brings its own page
            ShowSelection();
    } else if (view.section == kMovieGrab) {
        ShowPanel(m_ui->FormScroll);
        m_webMenus->ShowAddPanel();
    } else {
        ShowPanel(m_ui->FormScroll);
        m_editMenus->Show(view.section, view.node);
        if (!view.node)
            m_dialogs.MessageBox(kNoCatalogOpen, kBoxInformation);
    }
    ApplyFacts();
}

void Form1::ShowManualEntry()
{
    ShowSection(kMovieGrab);
    if (m_state.CurrentSection == kMovieGrab)
        m_webMenus->ShowManualPanel();
}

void Form1::ShowPanel(QWidget* panel)
{
    m_ui->picGrabSelect->setVisible(m_state.CurrentSection == kMovieGrab);
    m_pageView->setVisible(panel == m_pageView);
    m_ui->FormScroll->setVisible(panel == m_ui->FormScroll);
}

void Form1::Open(const std::optional<Page>& page, const PageDesk::Make& again)
{
    if (!page)
        return;
    const std::optional<NodeRef> node = SelectedNode();
    if (node && !page->step.isEmpty())
        m_state.history.Push(node->key, m_state.CurrentSection, page->step);
    m_pageDesk.Show(*page, again);
    ApplyFacts(); // the step makes Back possible
}

void Form1::ShowBlankPage()
{
    const bool empty = !m_state.CatalogPath().isEmpty() && !m_catalog->Model().HasFilms() && CatalogIsEmpty(m_state.CatalogPath());
    const PageDesk::Make page = [this, empty] {
        const QString path = empty ? m_pages.EmptyCatalogPage() : QString();
        return std::optional(Page{path.isEmpty() ? u"about:blank"_s : path, {}});
    };
    m_pageDesk.Show(*page(), page);
}

// The catalog is opened once for the menus and the page.
void Form1::ShowPageOf(const NodeRef& node)
{
    Connection catalog = OpenCatalog(m_state.CatalogPath());
    m_selection = ReadSelectionFacts(node, catalog);
    ApplyFacts();
    Open(PageOf(node, catalog), [this, node] {
        Connection again = OpenCatalog(m_state.CatalogPath());
        return PageOf(node, again);
    });
}

std::optional<Page> Form1::PageOf(const NodeRef& node, Connection& catalog)
{
    if (node.tag == kTagFilm)
        return m_pages.FilmPage(node.key, catalog);
    const auto valueInTree = [&tree = m_catalog->Model()](FilmId film) {
        const QModelIndex place = tree.FindFilm(film);
        return place.isValid() ? std::optional(ValueOfKey(tree.Key(place))) : std::nullopt;
    };
    return m_pages.PersonPage(KeyPart(node.key, 1).toLongLong(), catalog, valueInTree);
}

// A page's message ends a value at its first colon.
void Form1::OpenFilm(FilmId movieId)
{
    const QModelIndex film = m_catalog->Model().FindFilm(movieId);
    if (!film.isValid())
        throw RuntimeError::WithDetail(kErrElementNotFound, kNotInTree);
    m_catalog->Select(m_catalog->Model().Key(film));
    ShowSection(kMovieList);
}

void Form1::GoTo(const QString& key)
{
    const CatalogModel& tree = m_catalog->Model();
    QModelIndex node = tree.Find(key);
    if (!node.isValid()) {
        const QModelIndex film = tree.FindFilm(FilmOfKey(key));
        if (tree.Key(film).startsWith(key.chopped(1) + u':', Qt::CaseInsensitive))
            node = film;
    }
    if (!node.isValid())
        throw RuntimeError::WithDetail(kErrElementNotFound, kNotInTree);
    m_catalog->Select(tree.Key(node));
    ShowSelection();
}

void Form1::ShowCreditsPage(FilmId movieId)
{
    const PageDesk::Make page = [this, movieId] { return m_pages.CreditsPage(movieId); };
    Open(page(), page);
}

void Form1::ShowNfo()
{
    const std::optional<NodeRef> node = SelectedNode();
    if (!node)
        throw RuntimeError(kErrObjectNotSet);
    const PageDesk::Make page = [this, key = node->key] { return m_pages.NfoPage(key); };
    Open(page(), page);
}

void Form1::ShowFilmMenu()
{
    ApplyMenuRules();
    m_menus.Popup(u"mnuTreeview"_s, QCursor::pos());
}

void Form1::OpenOutside(const QUrl& address)
{
    if (IsOutsideAddress(address))
        QDesktopServices::openUrl(address);
}

void Form1::GoBack()
{
    WalkTo(m_state.history.MoveBack([this](const QString& key) { return IsInTree(key); }));
}

void Form1::GoForward()
{
    WalkTo(m_state.history.MoveForward([this](const QString& key) { return IsInTree(key); }));
}

void Form1::WalkTo(const History::Step* step)
{
    if (!step)
        return;
    const History::Step target = *step;
    m_state.history.walking = true;
    Afterwards(
        [&] {
            m_catalog->Select(target.key); // a page is shown without a selection where the node is gone
            TakeId();
            if (m_state.CurrentSection != target.section)
                ShowSection(target.section);
            else if (IsEditing()) {
                SaveBeforeNode();
                ShowSelection();
            }
            if (target.section == kMovieList)
                m_pageDesk.ShowStep(target);
        },
        [&] { m_state.history.walking = false; });
    ApplyMenuRules();
}

// --- Handlers ------------------------------------------------------------------------------------------------------------------------

void Form1::OnButton(const QString& key)
{
    if (key == u"Back" || key == u"Forward")
        return m_catalog->IsBusy() ? void() : key == u"Back" ? GoBack() : GoForward();
    for (const ButtonEntry& button : kButtonEntries) {
        if (key == QLatin1StringView(button.key))
            m_menus.Entry(QString::fromLatin1(button.entry)).trigger();
    }
}

// Another node takes the place of what a panel shows. Only from a person to a film is the user asked, by the tab.
void Form1::SaveBeforeNode()
{
    const std::optional<NodeRef> node = SelectedNode();
    const bool isAsked = node && node->tag == kTagFilm && m_state.CurrentSection == kActorInfo;
    if (node && node->tag != kTagGroup && IsEditing() && !isAsked)
        m_editMenus->SaveFirst(m_state.CurrentSection);
}

void Form1::OnNodeClick()
{
    if (m_catalog->IsBusy())
        return;
    SaveBeforeNode();
    ShowSelection();
}

void Form1::OnPageClick(const PageClick& click)
{
    const PageAction action = ActionOfClick(click);
    switch (action.kind) {
    case PageAction::Kind::GoTo:
        GoTo(action.text);
        break;
    case PageAction::Kind::Credits:
        ShowCreditsPage(action.film);
        break;
    case PageAction::Kind::PopupMenu:
        m_menus.Popup(u"mnuTreeview"_s, QCursor::pos());
        break;
    case PageAction::Kind::AddFilms:
        ShowSection(kMovieGrab);
        break;
    case PageAction::Kind::OpenOutside:
        OpenOutside(action.address);
        break;
    case PageAction::Kind::Nothing:
        break;
    }
}

// A page whose node the tree no longer has goes with it.
void Form1::OnFilled()
{
    if (m_state.CurrentSection == kMovieList && !SelectedNode())
        ShowBlankPage();
    RefreshPanel();
    ApplyMenuRules();
}

// A panel whose film or person is gone shows what is selected instead.
void Form1::RefreshPanel()
{
    m_editMenus->ClearGone();
    if (IsEditing() && !m_editMenus->ShowsAny(m_state.CurrentSection))
        ShowSelection();
    else
        m_editMenus->ReloadClean(m_state.CurrentSection);
}

void Form1::ShowAbout()
{
    auto* about = new frmAbout(this);
    about->setAttribute(Qt::WA_DeleteOnClose);
    about->show();
    about->activateWindow();
}

// --- Tray and end --------------------------------------------------------------------------------------------------------------------

bool Form1::eventFilter(QObject* watched, QEvent* event)
{
    // A window that is disabled takes no presses, but the filter sees them.
    if (event->type() != QEvent::MouseButtonPress || !isEnabled() || !watched->isWidgetType() ||
        static_cast<QWidget*>(watched)->window() != this)
        return false;
    const Qt::MouseButton button = static_cast<QMouseEvent*>(event)->button();
    if (button != Qt::BackButton && button != Qt::ForwardButton)
        return false;
    Guard([&] { OnButton(button == Qt::BackButton ? u"Back"_s : u"Forward"_s); });
    return true;
}

void Form1::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange)
        m_tray->OnStateChange();
}

void Form1::PrepareConfirmation()
{
    m_tray->PrepareConfirmation();
}

void Form1::SaveSettings()
{
    if (m_saved || !m_state.gOptions)
        return;
    m_saved = true;
    WriteProfileValue(u"Settings"_s, u"Skin"_s, m_state.skin, SettingsFile());
    m_tray->End();
    m_state.gOptions->Save();
    WriteWindowPlace({normalGeometry(), isMaximized(), m_ui->picSplitter->Tag()}, SettingsFile());
}

void Form1::closeEvent(QCloseEvent* event)
{
    // A job that serves events is still at work in this window: close when it is done.
    if (m_catalog->IsBusy()) {
        m_catalog->AfterJob([this] { close(); });
        event->ignore();
        return;
    }
    if (m_exportMenus->IsBusy()) {
        m_exportMenus->EndExport([this] { close(); });
        event->ignore();
        return;
    }
    if (m_intakeMenus->IsBusy()) {
        m_intakeMenus->EndRun([this] { close(); });
        event->ignore();
        return;
    }
    bool asked = false;
    Guard([&] {
        m_editMenus->AskAboutChanges();
        asked = true;
    });
    if (!asked) { // what could not be saved is not lost by the end
        event->ignore();
        return;
    }
    m_webMenus->EndRun();
    SaveSettings();
    QMainWindow::closeEvent(event);
    qApp->quit();
}

} // namespace kelvado
