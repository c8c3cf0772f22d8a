#pragma once

#include "render/HtmlOutput.h"
#include "render/export/ExportStep.h"
#include "render/export/WebFolder.h"
#include "render/export/WebTemplates.h"
#include "store/Recordset.h"

#include <QList>
#include <QSet>
#include <QString>

namespace kelvado {

/// Where a web export goes, and what its pages need beside the templates and the catalog.
struct WebSite
{
    QString folder;       ///< made where it is missing; what stands in it stays until it is overwritten
    QString skin;         ///< the pictures of certificates and rating bars, and what stands for a missing cover
    QString siteAddress;  ///< as `SiteAddress` gives it
    QString makerAddress; ///< as `MakerAddress` gives it
};

/// The web export of a program with this skin: below "Export/Web" of the program's folder.
WebSite SiteOfSkin(const QString& skin);

/// Writes all films by title onto "index.html", "index2.html" and so on, with the closing block behind each footer, and a page for each
/// film where the templates have one and the body asks for it. `goesOn` is called
/// behind each film and cancels with false; the pages that were whole by then stay. A film with a value that no page can show, a page and a
/// picture that cannot be written are named in `missing`. Raises `kErrFileAccess` with the path where the folder cannot be written at all
/// and, before anything is written, where an extra file leads out of it.
ExportDone ExportWeb(const WebTemplates& templates, const WebSite& site, Connection& catalog, const GoesOn& goesOn);

/// What the exports do with each film.
class WebFilms
{
public:
    WebFilms(const WebSite& site, const QList<ExtraFile>& extraFiles, Connection& catalog);

    WebFolder& Folder() { return m_folder; }
    void CopyBarImages() { CopyRatingBarImages(m_settings.skin, Copier()); }
    void CopyCertificates() { CopyCertificateImages(m_settings.skin, Copier()); }

    /// Fills in the single tokens. False for a film with a value that no page can show, which is then named among what is missing, once.
    bool FillFilm(QString& text, const Recordset& film);
    /// Fills in the path of the film's picture, which is written.
    void FillImage(QString& text, const Recordset& film);
    /// Where `text` asks for the film's own page: fills in its name, and writes that page by `detail`.
    void FillDetailsPage(QString& text, const QString& detail, const Recordset& film);

    /// What was done, for pages behind this first one.
    ExportDone Done(const QString& firstPage) const;

private:
    CopyIntoExport Copier();
    QString BuildDetailPage(QString text, const Recordset& film, FilmId id);

    TokenSettings m_settings;
    Connection& m_catalog;
    WebFolder m_folder;
    WebPictures m_pictures;
    QSet<FilmId> m_failed;
    QSet<FilmId> m_detailed;
};

} // namespace kelvado
