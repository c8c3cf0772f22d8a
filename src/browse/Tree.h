#pragma once

#include "browse/CatalogModel.h"
#include "core/AppState.h"
#include "core/Events.h"
#include "core/MenuMarks.h"
#include "core/Shell.h"
#include "store/Connection.h"

#include <QModelIndex>
#include <QString>
#include <QStringList>

namespace kelvado {

/// The SQL of the groups (level 1) or of the films (level 2) of a tree sorted by `primary`. Neither the view mode nor the filter touches
/// the groups. `filterWhere` is empty or begins with "WHERE ". A filter on the genre holds under every sort; several are each met by any
/// genre of the film.
QString BuildLevelSql(const QString& primary, int level, const cOptView& view, const QString& filterWhere);

/// The text of the group that a value of the first level's column stands in: the value, or "N/A" for the empty text (as Null reads) and for
/// that text in any case.
QString GroupText(const QString& value);
/// What two groups of one text have in common: texts that differ in case only are one group.
QString GroupName(const QString& text);

/// Builds the catalog tree and fills casts. Every routine opens its own connection to the open catalog, and raises what the engine
/// raises.
class Tree
{
public:
    /// What the tree works on; all of it outlives the tree.
    struct Context
    {
        AppState& state;
        const MenuMarks& marks;
        Events& events;
        Shell& shell;
        CatalogModel& model;
    };
    explicit Tree(const Context& context);

    /// Fills the tree from the catalog, serves events meanwhile, and brings the status bar up to date. A failure half-way leaves what was
    /// read so far in the tree; before the first film it leaves the tree as it was.
    /// A film that stands twice under one group is shown once.
    void FillTree();

    /// True where new groups are to be shown expanded.
    bool GroupsExpanded() const;

    /// Fetches the cast of a film node anew; any other node is left alone. An actor with two roles is shown once.
    /// A loaned film under the location sort raises `kErrElementNotFound` then.
    void ExpandFilmNode(const QModelIndex& node);

    /// Every key that this film has in the present tree: one, or one for each genre under the sort by genre; none for an unknown film.
    QStringList FilmNodeKeys(FilmId movieId) const;

    /// True while `ExpandFilmNode` runs.
    bool Expanding() const { return m_expanding; }

private:
    class Filling;
    void FillCast(const QModelIndex& node);
    std::vector<TreeActor> ReadCast(const QModelIndex& node);
    const cOptView& View() const { return m_context.state.gOptions->View; }
    Connection Connect() const { return OpenCatalog(m_context.state.CatalogPath()); }

    Context m_context;
    bool m_expanding = false;
};

} // namespace kelvado
