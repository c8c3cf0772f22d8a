#include "app/ExportMenus.h"

#include "app/DesktopSeams.h"
#include "core/Guard.h"
#include "core/Literals.h"
#include "core/NodeKey.h"
#include "core/Paths.h"
#include "render/SiteAddress.h"
#include "render/export/mXMLOutput.h"
#include "render/forms/frmExportWeb.h"
#include "render/forms/frmPrintCollection.h"
#include "store/mFileAccess.h"

#include <QPrinter>

namespace kelvado {

ExportMenus::ExportMenus(const Context& context) : m_context(context), m_run(context.run)
{
    OnMenu("mnuExportXML", &ExportMenus::ExportXml);
    OnMenu("mnuWebPackages", &ExportMenus::ShowWizard);
    OnMenu("mnuPrintCollection", &ExportMenus::PrintCollection);
}

void ExportMenus::OnMenu(const char* name, void (ExportMenus::*handler)())
{
    connect(&m_context.menus.Entry(QString::fromLatin1(name)), &QAction::triggered, this,
            [this, handler] { Guarded(m_context.run.dialogs, [this, handler] { (this->*handler)(); }); });
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

void ExportMenus::ShowWizard()
{
    if (IsBusy())
        return;
    frmExportWeb wizard({m_context.run.dialogs, [](const QString& path) { OpenOnDesktop(path); }, {}}, &m_context.window);
    m_context.run.skinner.SkinForm(wizard);
    wizard.exec();
}

void ExportMenus::PrintCollection()
{
    if (!MayExport())
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
    window.exec();
}

} // namespace kelvado
