#include "app/Form1.h"

#include "app/BrowseMenus.h"
#include "app/CatalogPane.h"
#include "app/StatusBar.h"
#include "app/WebMenus.h"
#include "app/WindowTray.h"
#include "app/mMenuOptions.h"
#include "browse/SelectionMenus.h"
#include "core/Literals.h"
#include "core/Paths.h"
#include "core/Profile.h"
#include "core/RuntimeError.h"
#include "core/WindowLayout.h"
#include "render/forms/frmPageView.h"
#include "store/LockWait.h"
#include "ui/SkinPictures.h"
#include "ui/frmAbout.h"
#include "ui_Form1.h"

#include <QCloseEvent>
#include <QCursor>
#include <QDesktopServices>
#include <QDir>
#include <QMenu>
#include <QScreen>
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

constexpr int kStateMaximised = 2;
constexpr int kTreeMargin = 1;

QString Setting(const char* key)
{
    return ReadProfileValue(u"Settings"_s, QString::fromLatin1(key), SettingsFile());
}

} // namespace

Form1::Form1(Dialogs& dialogs, kelvado::Events& events, QWidget* parent)
    : QMainWindow(parent), m_ui([this] {
          auto ui = std::make_unique<Ui::Form1>();
          ui->setupUi(this);
          return ui;
      }()),
      m_dialogs(dialogs), m_events(events), m_menus(*this), m_catalogFile(m_state, dialogs, *this), m_sections(m_state, dialogs, *this),
      m_pages(m_state, dialogs, *this, *this), m_messages(*this, m_pages), m_pageView(new frmPageView(m_ui->PicForm))
{
    setWindowTitle(u"%1 %2 (Beta)"_s.arg(frmAbout::ProductName(), frmAbout::Version()));
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
    connect(waitIsOver, &QTimer::timeout, this, [this] { ShowWorking(false); });
    WhileLocked().meanwhile = [this, waitIsOver] {
        ShowWorking(true);
        waitIsOver->start();
        m_events.ServeWithoutInput();
    };
    ConnectMenus();
    ConnectControls();
    m_browseMenus = std::make_unique<BrowseMenus>(BrowseMenus::Context{*this, m_state, dialogs, m_menus, *this, m_catalog->Model(),
                                                                       *m_ui->TreeView1, m_skinner, [this] { UpdateSelectionMenus(); }});
    m_statusBar = std::make_unique<StatusBar>(m_state, dialogs, m_menus, m_skinner, *m_ui->StatusCells);
    m_webMenus = std::make_unique<WebMenus>(
        WebMenus::Context{*this, m_state, dialogs, events, m_menus, *this, *m_ui->TreeView1, *m_ui->ID, m_skinner, *m_ui->picGrabSelect,
                          *m_ui->FormScroll, [this] { return SelectedNode(); }, [this](const QUrl& address) { OpenOutside(address); }});
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
        connect(&m_menus.Entry(QString::fromLatin1(name)), &QAction::triggered, this,
                [this, handler] { Guard([&] { (m_catalogFile.*handler)(); }); });
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
    connect(&m_menus.Entry(u"mnuImdb"_s), &QAction::triggered, this, [this] { Guard([&] { m_sections.Show(kMovieGrab); }); });
}

void Form1::ConnectControls()
{
    for (const ToolButton& button : kToolButtons) {
        const QString key = QString::fromLatin1(button.key);
        m_ui->cToolbar->Add({}, key.isEmpty() ? ctxToolbar::Style::Separator : ctxToolbar::Style::Button, key,
                            QString::fromLatin1(button.caption), QString::fromLatin1(button.toolTip));
    }
    connect(m_ui->cToolbar, &ctxToolbar::ButtonClick, this, [this](const QString& key) { Guard([&] { OnButton(key); }); });
    connect(m_ui->picTabs, &SectionTabRow::TabClick, this, [this](const QString& section) { Guard([&] { m_sections.Show(section); }); });
    connect(m_ui->picSplitter, &PaneSplitter::Moved, this, [this] { Guard([&] { LayOutPanes(); }); });
    connect(m_catalog.get(), &CatalogPane::Filled, this, [this] { Guard([&] { UpdateSelectionMenus(); }); });
    connect(m_ui->TreeView1, &CatalogTreeView::NodeClick, this, [this] { Guard([&] { OnNodeClick(); }); });
    connect(m_ui->TreeView1, &CatalogTreeView::MouseDown, this, [this] {
        try {
            UpdateSelectionMenus();
        } catch (const std::exception&) {
            // The click or the menu that follows meets the same failure and tells of it, once.
        }
    });
    connect(m_ui->TreeView1, &CatalogTreeView::MenuRequested, this, [this](const QPoint& place) {
        Guard([&] {
            UpdateSelectionMenus();
            m_menus.Menu(u"mnuTreeview"_s).popup(place);
        });
    });
    connect(m_ui->PicStatusBar, &QWidget::customContextMenuRequested, this,
            [this](const QPoint& place) { m_menus.Menu(u"mnuStatus"_s).popup(m_ui->PicStatusBar->mapToGlobal(place)); });
    connect(m_pageView, &frmPageView::Clicked, this, [this](const PageClick& click) { Guard([&] { m_messages.OnClick(click); }); });
    connect(m_pageView, &frmPageView::ContextMenu, this, [this] { Guard([&] { m_messages.OnContextMenu(); }); });
}

// --- Start ---------------------------------------------------------------------------------------------------------------------------

void Form1::PaintBySkin()
{
    m_skinner.ApplySkin(m_state.skin);
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
    m_ui->cToolbar->SetSelectionColor(m_skinner.Values().progressFront);
    m_ui->picTabs->LoadEnds(m_state.skin);
    m_ui->Working->Load(AppPath());
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
    resize(size().boundedTo(screen()->availableGeometry().size() - kFrame));
    int windowWidth = width();
    if (display.WindowState == kStateMaximised) {
        setWindowState(Qt::WindowMaximized);
        windowWidth = screen()->availableGeometry().width(); // the window has this width only once it is on the screen
    }
    ensurePolished();
    // Whatever width the settings hold, the divider stays in the window.
    m_ui->picSplitter->SetTag(std::clamp(SplitterPercent(display.LeftPane, windowWidth * kTwipsPerPixel), 0, 99));
    show();
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
    // Also where a part of it fails, so that the window can be worked with. The browser inside the page view is costly to make: the
    // window is drawn and the tree filled first.
    const struct Last
    {
        Form1& form;
        ~Last()
        {
            form.m_state.Activated = true;
            form.m_menus.SetEnabled(u"mnuExportWebWizard"_s, -1, false);
            QTimer::singleShot(0, form.m_pageView, &frmPageView::CreateBrowser);
        }
    } last{*this};
    UpdateSelectionMenus();
    m_sections.Show(kMovieList);
    m_state.Activated = true;
    PaintBySkin();
    LayOutPanes();
    m_state.ComDiag.fileName.clear();
    m_tray->Apply();
    OpenDefaultCatalog();
}

void Form1::OpenDefaultCatalog()
{
    const QString catalog = Setting("Default");
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

void Form1::ShowSelection()
{
    const std::optional<NodeRef> node = SelectedNode();
    if (!node)
        return;
    TakeId();
    if (m_state.CurrentSection == kMovieList) {
        if (node->tag == kTagFilm)
            m_pages.ShowFilmPage();
        else if (node->tag == kTagGroup)
            Navigate({});
    } else if (m_state.CurrentSection == kActorInfo) {
        if (node->tag == kTagFilm)
            m_sections.Show(kMovieEdit);
        else if (node->tag == kTagActor)
            LoadPerson(ToLong(KeyPart(node->key, 1)));
    } else if (m_state.CurrentSection == kMovieEdit && node->tag != kTagGroup) {
        if (FilmHasChanges())
            SaveFilm(ToLong(FilmId()));
        if (node->tag == kTagActor)
            m_sections.Show(kActorInfo);
        else
            LoadFilm(KeyPart(node->key, 0));
    }
}

void Form1::ApplyMenuRules()
{
    kelvado::ApplyMenuRules(m_state.CatalogOpen, m_menus, [this](const QString& key, bool enabled) { EnableButton(key, enabled); });
    if (m_state.FilterCount >= Filters::kMost)
        m_menus.SetEnabled(u"mnuAddFilter"_s, -1, false);
}

void Form1::PushHistory(const QString& key, const QString& section, const QString& page)
{
    m_state.history.Push(key, section, page);
    EnableButton(u"Back"_s, true);
}

void Form1::UpdateStatus(bool recount)
{
    m_statusBar->Update(recount);
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

void Form1::RetitleSelectedNode(const QString& title)
{
    m_catalog->Retitle(title);
}

void Form1::RekeySelectedNode(qint64 movieId)
{
    m_catalog->Rekey(movieId);
}

// --- Sections and pages --------------------------------------------------------------------------------------------------------------

std::optional<NodeRef> Form1::SelectedNode() const
{
    return m_catalog->Selected();
}

QString Form1::SelectedKey() const
{
    const std::optional<NodeRef> node = SelectedNode();
    if (!node)
        throw RuntimeError(kErrObjectNotSet);
    return node->key;
}

void Form1::SelectNode(const QString& key)
{
    m_catalog->Select(key);
    TakeId();
    UpdateSelectionMenus();
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

void Form1::EnableTree(bool enabled)
{
    m_ui->TreeView1->setEnabled(enabled);
}

void Form1::LoadTabPictures(const TabPictures& pictures)
{
    m_ui->picTabs->LoadPictures(m_state.skin, pictures);
}

void Form1::ShowPanel(QWidget* panel)
{
    m_ui->picGrabSelect->setVisible(m_state.CurrentSection == kMovieGrab);
    m_pageView->setVisible(panel == m_pageView);
    m_ui->FormScroll->setVisible(panel == m_ui->FormScroll);
}

void Form1::ShowPageView()
{
    ShowPanel(m_pageView);
}

void Form1::Navigate(const QString& path)
{
    m_pageView->Navigate(path.isEmpty() ? u"about:blank"_s : path);
}

void Form1::ShowAddPanel()
{
    ShowPanel(m_ui->FormScroll);
    m_webMenus->ShowAddPanel();
}

void Form1::ShowFilmPanel()
{
    m_ui->FormScroll->SetPanel(nullptr);
    ShowPanel(m_ui->FormScroll);
}

void Form1::ShowPersonPanel()
{
    m_ui->FormScroll->SetPanel(nullptr);
    ShowPanel(m_ui->FormScroll);
}

void Form1::EnableButton(const QString& key, bool enabled)
{
    const int index = m_ui->cToolbar->ButtonIndex(key);
    m_ui->cToolbar->SetButtonEnabled(index, enabled);
}

void Form1::ShowFilmMenu()
{
    UpdateSelectionMenus();
    PopupMenuAtCursor();
}

void Form1::PopupMenuAtCursor()
{
    m_menus.Menu(u"mnuTreeview"_s).popup(QCursor::pos());
}

void Form1::OpenOutside(const QUrl& address)
{
    QDesktopServices::openUrl(address);
}

// --- Handlers ------------------------------------------------------------------------------------------------------------------------

void Form1::OnButton(const QString& key)
{
    if (key == u"Back")
        return GoBack();
    if (key == u"Forward")
        return GoForward();
    for (const ButtonEntry& button : kButtonEntries) {
        if (key == QLatin1StringView(button.key))
            m_menus.Entry(QString::fromLatin1(button.entry)).trigger();
    }
}

void Form1::GoBack()
{
    m_sections.GoBack();
}

void Form1::GoForward()
{
    m_sections.GoForward();
}

void Form1::OnNodeClick()
{
    if (m_catalog->IsBusy())
        return;
    UpdateSelectionMenus();
    ShowSelection();
}

void Form1::UpdateSelectionMenus()
{
    if (m_catalog->IsFilling())
        return;
    for (const MenuRule& rule : SelectionRules(SelectedNode(), m_state.CatalogPath())) {
        switch (rule.effect) {
        case MenuRule::Effect::Enable:
            m_menus.SetEnabled(rule.name, -1, rule.on);
            break;
        case MenuRule::Effect::Show:
            m_menus.SetVisible(rule.name, -1, rule.on);
            break;
        case MenuRule::Effect::Button:
            EnableButton(rule.name, rule.on);
            break;
        }
    }
}

void Form1::ShowNfo()
{
    m_pages.ShowNfoPage();
}

void Form1::ShowAbout()
{
    auto* about = new frmAbout(this);
    about->setAttribute(Qt::WA_DeleteOnClose);
    about->show();
    about->activateWindow();
}

// --- Tray and end --------------------------------------------------------------------------------------------------------------------

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
}

void Form1::closeEvent(QCloseEvent* event)
{
    // A job that serves events is still at work in this window: close when it is done.
    if (m_catalog->IsBusy()) {
        m_catalog->AfterJob([this] { close(); });
        event->ignore();
        return;
    }
    m_webMenus->EndRun();
    SaveSettings();
    QMainWindow::closeEvent(event);
    qApp->quit();
}

} // namespace kelvado
