#include "app/WebMenus.h"

#include "browse/FilmCommands.h"
#include "core/Guard.h"
#include "core/Literals.h"
#include "core/Paths.h"
#include "web/UpdateCheck.h"
#include "web/VisitAddress.h"
#include "web/forms/Form2.h"
#include "web/forms/frmAddSingleIMDb.h"
#include "web/forms/frmImportIMDb.h"
#include "web/mWeb.h"
#include "web/retrieval/IMDBActor.h"
#include "web/retrieval/mIMDB.h"

#include <QMenu>

namespace kelvado {

namespace {

constexpr QLatin1StringView kFilmSite = "IMDB"_L1;
constexpr QLatin1StringView kByHand = "AdultEmp"_L1;

} // namespace

WebMenus::WebMenus(const Context& context)
    : m_context(context), m_web(ReadNetworkLimits(SettingsFile()), context.dialogs),
      m_progress(context.window, context.dialogs, [&skinner = context.skinner](QWidget& window) { skinner.SkinForm(window); }),
      m_desk{context.state, context.shell, context.dialogs, context.events, m_web, m_progress, {}, false},
      m_actorWindows(context.window,
                     {[&skinner = context.skinner](QWidget& window) { skinner.SkinForm(window); }, [this] { CancelJob(m_desk); },
                      [this](const QString& link) { Visit(PersonQueryAddress(link, ReadWebHosts(SettingsFile()))); }})
{
    m_progress.SetAskCancel([this] { return AskCancelRetrieval(m_desk); });
    Connect("mnuUpdateMovieInfo", [this] { OnUpdateMovieInfo(); });
    Connect("mnuMovieRetrieve", [this] { OnMovieRetrieve(); });
    Connect("mnuActorRetreive", [this] { RetrieveSelectedPerson(); });
    Connect("mnuImportIMDb", [this] { OnImport(); });
    Connect("mnuHelpUpdate", [this] { OnHelpUpdate(); });
    for (const char* entry : {"mnuImdbVisit", "mnuImdbVisitV"})
        Connect(entry, [this] { VisitSite(); });
    for (const char* entry : {"mnuisonewsvisit", "mnuIsonewsVisitV"})
        Connect(entry, [this] { VisitShop(); });
    for (const char* entry : {"mnufrmSearchViewOnIMDB", "mnuViewOnIMDb"})
        Connect(entry, [this] { VisitFilm(m_rowNumber); });
    connect(&context.sources, &GrabSelectRow::TabClick, this,
            [this](const QString& mode) { Guarded(m_context.dialogs, [&] { ShowSource(mode); }); });
}

WebMenus::~WebMenus()
{
    delete m_addPanel.data();
}

void WebMenus::Connect(const char* entry, std::function<void()> handler)
{
    connect(&m_context.menus.Entry(QString::fromLatin1(entry)), &QAction::triggered, this,
            [this, handler = std::move(handler)] { Guarded(m_context.dialogs, handler); });
}

void WebMenus::ShowAddPanel()
{
    ShowSource(kFilmSite);
}

void WebMenus::ShowManualPanel()
{
    ShowSource(kByHand);
}

void WebMenus::ShowSource(const QString& mode)
{
    m_context.sources.LoadSearchBar(m_context.state.skin, mode);
    if (mode == kByHand)
        return m_context.showManualPanel();
    if (mode != kFilmSite)
        return m_context.host.SetPanel(nullptr);
    if (!m_addPanel) {
        m_addPanel = new Form2(m_desk, m_context.skinner);
        connect(m_addPanel, &Form2::MenuWanted, this, [this](const QPoint& place, const QString& number) {
            Guarded(m_context.dialogs, [&] { ShowRowMenu("mnufrmSearch", "mnufrmSearchViewOnIMDB", place, number); });
        });
    }
    m_context.host.SetPanel(m_addPanel);
    m_addPanel->show();
    m_addPanel->Reopen();
}

void WebMenus::EndRun()
{
    EndJob(m_desk);
}

std::optional<FilmId> WebMenus::SelectedFilm() const
{
    const std::optional<NodeRef> node = m_context.selectedNode();
    return node && node->tag == kTagFilm ? std::optional(FilmOfKey(node->key)) : std::nullopt;
}

void WebMenus::OnUpdateMovieInfo()
{
    if (!TreeIsCurrent(m_context.state, m_context.shell))
        return;
    const std::optional<FilmId> film = SelectedFilm();
    if (!film)
        return;
    m_context.askAboutChanges();
    if (const std::optional<FetchTurn> turn = TakeTurn(m_desk))
        UpdateMovieInfo(*film, m_desk);
}

void WebMenus::OnMovieRetrieve()
{
    if (!TreeIsCurrent(m_context.state, m_context.shell))
        return;
    const std::optional<FilmId> film = SelectedFilm();
    if (!film || !TakeTurn(m_desk))
        return;
    m_context.askAboutChanges();
    if (!m_retrieveWindow) {
        m_retrieveWindow = new frmAddSingleIMDb(m_desk, m_context.skinner, &m_context.window);
        connect(m_retrieveWindow, &frmAddSingleIMDb::MenuWanted, this,
                [this](const QPoint& place, const QString& number) { ShowFoundMenu(place, number); });
    }
    m_retrieveWindow->Open(m_context.tree.Selected().data().toString(), *film);
}

bool WebMenus::RetrieveSelectedPerson()
{
    const std::optional<NodeRef> node = m_context.selectedNode();
    return node && node->tag == kTagActor && RetrievePerson(KeyPart(node->key, 1).toLongLong());
}

bool WebMenus::RetrievePerson(qint64 actorId)
{
    if (!TreeIsCurrent(m_context.state, m_context.shell))
        return false;
    const std::optional<FetchTurn> turn = TakeTurn(m_desk);
    if (!turn)
        return false;
    m_context.askAboutChanges();
    if (!RunActorRetrieval(actorId, m_desk, m_actorWindows))
        return false;
    m_context.catalog.SetRetrieved(actorId);
    return true;
}

void WebMenus::OnImport()
{
    if (!m_importWindow)
        m_importWindow = new frmImportIMDb(m_desk, m_context.skinner, &m_context.window);
    m_importWindow->ShowEmpty();
}

void WebMenus::OnHelpUpdate()
{
    bool unload = false;
    if (const std::optional<FetchTurn> turn = TakeTurn(m_desk))
        unload = CheckForUpdate(false, m_web, ReadWebHosts(SettingsFile()), m_context.dialogs, [] { StartUpdater(AppPath()); });
    if (unload)
        m_context.window.close();
}

void WebMenus::VisitSite()
{
    if (const std::optional<NodeRef> node = m_context.selectedNode())
        Visit(SiteAddressOf(*node, m_context.state.CatalogPath(), ReadWebHosts(SettingsFile())));
}

void WebMenus::VisitShop()
{
    if (const std::optional<NodeRef> node = m_context.selectedNode())
        Visit(ShopAddressOf(*node, m_context.state.CatalogPath()));
}

void WebMenus::VisitFilm(const QString& number)
{
    Visit(FilmAddress(number, ReadWebHosts(SettingsFile())));
}

void WebMenus::Visit(const QString& address)
{
    OpenInBrowser(address, m_context.openOutside);
}

void WebMenus::ShowFoundMenu(const QPoint& place, const QString& number)
{
    Guarded(m_context.dialogs, [&] { ShowRowMenu("mnufrmAddSingle", "mnuViewOnIMDb", place, number); });
}

void WebMenus::ShowRowMenu(const char* menu, const char* entry, const QPoint& place, const QString& number)
{
    m_rowNumber = number;
    m_context.menus.SetEnabled(QString::fromLatin1(entry), -1, !number.isEmpty());
    m_context.menus.Popup(QString::fromLatin1(menu), place);
}

} // namespace kelvado
