#pragma once

#include <QList>
#include <QString>

namespace kelvado {

/// A file that an export puts beside its pages.
struct ExtraFile
{
    QString source; ///< its path
    QString target; ///< its name below the export's folder
};

/// What the pages of a web export are made of, wherever it comes from.
struct WebTemplates
{
    QString header;
    QString body; ///< of one film
    QString footer;
    QString detail;      ///< a film's own page; empty for none
    qint64 pageSize = 0; ///< films on a page of the paged export; 0 for one page
    QList<ExtraFile> extraFiles;
};

/// Where the templates of a skin lie.
QString WebTemplateFolder(const QString& skin);

/// The templates of the paged export in `folder`, with page size and extra files of its "Export.ini", if it has one. Raises
/// `kErrFileNotFound` with the path of a template that is missing, `kErrFileAccess` for an extra file whose source leads out of the folder,
/// `kErrTypeMismatch`, `kErrInvalidCall` and `kErrSubscript` for a page size that is no number, for one below 1 and for an entry without
/// its target.
WebTemplates ReadPageTemplates(const QString& folder);

/// The same for the export by view, which has no page size.
WebTemplates ReadViewTemplates(const QString& folder);

/// One text of the export by view: "header", "body", "footer" or "detail". Raises `kErrFileNotFound` with the path.
QString ReadViewTemplate(const QString& name, const QString& folder);

} // namespace kelvado
