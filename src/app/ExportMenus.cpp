#include "app/ExportMenus.h"

#include "core/Guard.h"
#include "core/Literals.h"
#include "core/Paths.h"
#include "render/SiteAddress.h"
#include "render/export/mXMLOutput.h"
#include "render/forms/TxtExport.h"
#include "store/mFileAccess.h"

#include <utility>

namespace kelvado {

ExportMenus::ExportMenus(const Context& context) : m_context(context), m_run(context.run)
{
    OnMenu("mnuExportXML", &ExportMenus::ExportXml);
    OnMenu("mnuExportText", &ExportMenus::ExportText);
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
    m_window = &window;
    window.exec();
    m_window = nullptr;
}

} // namespace kelvado
