#include "app/ExportMenus.h"

#include "app/DesktopSeams.h"
#include "browse/FilmCommands.h"
#include "core/Guard.h"
#include "core/Literals.h"
#include "core/NodeKey.h"
#include "core/Paths.h"
#include "render/SiteAddress.h"
#include "render/export/WebExportByView.h"
#include "render/export/cTemplate.h"
#include "render/export/mXMLOutput.h"
#include "render/forms/TxtExport.h"
#include "render/forms/frmExportWeb.h"
#include "render/forms/frmPrintCollection.h"
#include "store/mFileAccess.h"

#include <QDir>
#include <QPrinter>

#include <utility>

namespace kelvado {

namespace {

const QString kWebExport = u"Web Export"_s;
const QString kWritingPages = u"Writing pages and pictures…"_s;
const QString kPagesStay = u"Pages that were whole by then stay; an older one stands where none was written."_s;

} // namespace

ExportMenus::ExportMenus(const Context& context) : m_context(context), m_run(context.run)
{
    OnMenu("mnuExportXML", &ExportMenus::ExportXml);
    OnMenu("mnuExportText", &ExportMenus::ExportText);
    OnMenu("mnuWebPackages", &ExportMenus::ShowWizard);
    OnMenu("mnuPrintCollection", &ExportMenus::PrintCollection);
    OnMenu("mnuWebExport", &ExportMenus::ExportPages);
    OnMenu("mnuWebExportByView", &ExportMenus::ExportPagesByView);
}

void ExportMenus::OnMenu(const char* name, void (ExportMenus::*handler)())
{
    connect(&m_context.menus.Entry(QString::fromLatin1(name)), &QAction::triggered, this,
            [this, handler] { Guarded(m_context.run.dialogs, [this, handler] { (this->*handler)(); }); });
}

void ExportMenus::EndExport(std::function<void()> what)
{
    m_run.End([this, what = std::move(what)] {
        if (m_window)
            m_window->close();
        what();
    });
}

void ExportMenus::Show(QDialog& window)
{
    m_window = &window;
    window.exec();
    m_window = nullptr;
}

bool ExportMenus::MayExport()
{
    if (IsBusy() || m_context.state.CatalogPath().isEmpty())
        return false;
    m_context.askAboutChanges();
    return true;
}

void ExportMenus::ExportXml()
{
    if (!MayExport())
        return;
    const QString folder = BrowseForFolder(u"Select Save Directory..."_s, m_context.run.dialogs);
    if (folder.isEmpty())
        return;
    m_run.Run(m_context.window,
              {.window = u"XML Export"_s,
               .work = u"Writing films and pictures…"_s,
               .title = {},
               .success = u"Data Export Completed Successfully"_s,
               .cancelled = u"MyMovies.XML was not written; an older one is as it was."_s},
              [&](const GoesOn& goesOn) {
                  Connection catalog = OpenCatalog(m_context.state.CatalogPath());
                  return BuildCatalogXml(folder, catalog, {m_context.state.skin, SiteAddress(SettingsFile())}, goesOn);
              });
}

void ExportMenus::ExportText()
{
    if (!MayExport())
        return;
    TxtExport window({m_context.state, m_context.run.dialogs, m_context.run.skinner, m_run}, &m_context.window);
    Show(window);
}

void ExportMenus::ShowWizard()
{
    if (IsBusy())
        return;
    frmExportWeb::Context context{m_context.run.dialogs, [](const QString& path) { OpenOnDesktop(path); }, {}};
    frmExportWeb* shown = nullptr;
    if (!m_context.state.CatalogPath().isEmpty())
        context.exportFilms = [&](const WebChoice& choice) { ExportByPackage(*shown, choice); };
    frmExportWeb wizard(context, &m_context.window);
    shown = &wizard;
    m_context.run.skinner.SkinForm(wizard);
    Show(wizard);
}

void ExportMenus::ExportByPackage(QWidget& wizard, const WebChoice& choice)
{
    if (!MayExport())
        return;
    const ExportedView view{m_context.state.gOptions->View, m_context.state.FilterWhere};
    Connection catalog = OpenCatalog(m_context.state.CatalogPath());
    cTemplate package;
    package.LoadSettings(choice.package);
    if (!package.StandardPage && !MayLeaveOut(FilmsOnNoPage(view, catalog)))
        return;
    const QString folder = BrowseForFolder(u"Select Save Directory..."_s, m_context.run.dialogs);
    if (folder.isEmpty())
        return;
    WebSite site = SiteOfSkin(m_context.state.skin);
    site.folder = folder;
    m_run.Run(wizard,
              {.window = kWebExport,
               .work = kWritingPages,
               .title = u"Web Export Complete"_s,
               .success = u"Web Export has completed and has been saved to\n"_s + QDir::toNativeSeparators(folder),
               .cancelled = kPagesStay},
              [&](const GoesOn& goesOn) { return ExportPackage(choice, site, view, catalog, goesOn); });
}

void ExportMenus::PrintCollection()
{
    // The numbers of a tree that shows another catalog mean other films.
    if (!MayExport() || !TreeIsCurrent(m_context.state, m_context.run.shell))
        return;
    const QModelIndex node = m_context.selectedNode();
    QList<frmPrintCollection::Choice> choices{{u"All films of the tree"_s, m_context.catalog.FilmGroups()}};
    if (const QString tag = m_context.catalog.Tag(node); !tag.isEmpty()) {
        const QModelIndex film = tag == kTagActor ? node.parent() : node;
        const QString what = tag == kTagGroup ? u"Only the group "_s : u"Only the film "_s;
        choices.append({what + film.data(CatalogModel::TextRole).toString(), m_context.catalog.FilmGroups(film)});
    }
    frmPrintCollection window({m_context.state, m_context.run.dialogs, m_run, &ChoosePrinter}, choices, &m_context.window);
    m_context.run.skinner.SkinForm(window);
    Show(window);
}

void ExportMenus::ExportPages()
{
    if (!MayExport())
        return;
    const WebTemplates templates = ReadPageTemplates(WebTemplateFolder(m_context.state.skin));
    const WebSite site = SiteOfSkin(m_context.state.skin);
    m_run.Run(m_context.window,
              {.window = kWebExport,
               .work = kWritingPages,
               .title = u"Web Export Complete"_s,
               .success = u"Web Export has completed and has been saved to\n"_s + QDir::toNativeSeparators(site.folder),
               .cancelled = kPagesStay},
              [&](const GoesOn& goesOn) {
                  Connection catalog = OpenCatalog(m_context.state.CatalogPath());
                  return ExportWeb(templates, site, catalog, goesOn);
              });
}

void ExportMenus::ExportPagesByView()
{
    if (!MayExport())
        return;
    const WebTemplates templates = ReadViewTemplates(WebTemplateFolder(m_context.state.skin));
    const ExportedView view{m_context.state.gOptions->View, m_context.state.FilterWhere};
    Connection catalog = OpenCatalog(m_context.state.CatalogPath());
    if (!MayLeaveOut(FilmsOnNoPage(view, catalog)))
        return;
    m_run.Run(m_context.window,
              {.window = kWebExport + u" by View"_s, .work = kWritingPages, .title = {}, .success = u"Complete"_s, .cancelled = kPagesStay},
              [&](const GoesOn& goesOn) { return ExportWebByView(templates, SiteOfSkin(m_context.state.skin), view, catalog, goesOn); });
}

bool ExportMenus::MayLeaveOut(qint64 films)
{
    if (films == 0)
        return true;
    const QString count = films == 1 ? u"1 film stands"_s : u"%1 films stand"_s.arg(films);
    return m_context.run.dialogs.MessageBox(
               count + u" on no page, left out by the filters or the view mode, or held by no group of this sort.\r\n\r\n"
                       "Export the other films?"_s,
               kBoxYesNo, kWebExport) == kAnswerYes;
}

} // namespace kelvado
