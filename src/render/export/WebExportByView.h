#pragma once

#include "core/Options.h"
#include "render/export/WebExport.h"
#include "store/Value.h"

#include <QList>
#include <QString>

namespace kelvado {

/// What the catalog tree shows: its sorts and view mode, and its filter as `BuildFilterWhere` gives it.
struct ExportedView
{
    cOptView view;
    QString filterWhere;
};

/// One page of the export by view.
struct ViewGroup
{
    QString name;
    QList<Value> values; ///< of the group's column, Null for "N/A"; none under the sorts by place and by title
};

/// The groups of the view in the tree's order, also those that have no film under its filter.
QList<ViewGroup> BuildViewGroups(const ExportedView& view, Connection& catalog);

/// Replaces `!!NAV!!` by a line of all groups, as links but for the one of page `page`, from 0.
void FillViewNav(QString& text, qsizetype page, const QList<ViewGroup>& groups);

/// How many films of the catalog will stand on no page: those that the view mode or the filter leave out, and those that no group holds,
/// such as films without a genre under the sort by genre.
qint64 FilmsOnNoPage(const ExportedView& view, Connection& catalog);

/// Writes a page for each group, "index.htm", "index1.htm" and so on, and, where the body asks for it, a page for each film, named by its
/// number. `goesOn` counts a film as often as it stands on a page, and is called once more behind each page. All else as for `ExportWeb`.
ExportDone ExportWebByView(const WebTemplates& templates, const WebSite& site, const ExportedView& view, Connection& catalog,
                           const GoesOn& goesOn);

} // namespace kelvado
