#include "render/export/PackageExport.h"

#include "core/Literals.h"
#include "core/Paths.h"
#include "core/SafeFile.h"
#include "render/export/cTemplate.h"
#include "store/mFileAccess.h"

#include <QFileInfo>

namespace kelvado {

ExportDone ExportPackage(const WebChoice& choice, const WebSite& site, const ExportedView& view, Connection& catalog, const GoesOn& goesOn)
{
    cTemplate package;
    package.PackagePath = choice.package;
    package.LoadSettings(choice.package);
    package.LoadTemplate(choice.package);
    WebTemplates templates;
    templates.header = package.Header;
    templates.body = package.Body;
    templates.footer = package.Footer;
    templates.detail = package.Detail;
    if (!package.DetailsPage || !choice.details)
        templates.body.replace("!!DETAILSPAGE!!"_L1, "#"_L1); // a link that leads nowhere
    if (package.FilmsPerPage)
        templates.pageSize = choice.filmsPerPage;
    // The closing block shows the maker's picture.
    const QString logo = FindFileCaseBlind(WebTemplateFolder(site.skin), u"logo.jpg"_s);
    if (package.StandardPage && QFileInfo::exists(logo))
        templates.extraFiles = {{logo, u"Images/logo.jpg"_s}};

    MakeDirs(site.folder);
    package.SaveAdditionalFiles(site.folder);
    WriteFileFast(site.folder + u"/style.css"_s, package.CSS.toUtf8());
    return package.StandardPage ? ExportWeb(templates, site, catalog, goesOn) : ExportWebByView(templates, site, view, catalog, goesOn);
}

} // namespace kelvado
