#include "app/CatalogPane.h"

#include "core/Afterwards.h"
#include "core/Guard.h"
#include "ui/Accessibility.h"

#include <QItemSelectionModel>
#include <QTimer>

#include <utility>

namespace kelvado {

CatalogPane::CatalogPane(const Context& context)
    : m_context(context), m_tree({context.state, context.menus, context.events, context.shell, m_model})
{
    m_context.view.setModel(&m_model);
    connect(&m_model, &QAbstractItemModel::modelReset, this, [this] { m_isNew = true; });
    connect(&m_context.view, &QTreeView::expanded, this,
            [this](const QModelIndex& node) { Guarded(m_context.dialogs, [&] { OnExpand(node); }); });
    for (const auto signal : {&QTreeView::expanded, &QTreeView::collapsed})
        connect(&m_context.view, signal, this, [this](const QModelIndex& node) { TellExpanded(m_context.view, node); });
}

CatalogPane::~CatalogPane()
{
    m_context.view.setModel(nullptr);
}

void CatalogPane::Fill()
{
    if (m_filling) {
        m_refillAsked = true;
        return;
    }
    if (m_context.state.CatalogPath().isEmpty())
        return; // a sort is chosen for the catalog that will be opened
    const Kept kept = Remember();
    m_filling = true;
    m_isNew = false;
    m_context.view.hide();
    m_context.shell.ShowWorking(true);
    Afterwards([this] { ReadTree(); }, [&] { ShowTree(kept); });
}

CatalogPane::Kept CatalogPane::Remember()
{
    const CatalogTreeView& view = m_context.view;
    Kept kept;
    // Asked of the window, which has a dialog in front of it still or is not shown to be active yet. The window gives its first control
    // the focus, which is not a choice of the user: the tree takes it when it is filled for the first time.
    kept.focus = view.window()->focusWidget() == &view || !std::exchange(m_filledOnce, true);
    // In another catalog the same keys name other films.
    if (m_context.state.treeCatalog != m_context.state.CatalogPath())
        return kept;
    kept.selected = view.Selected().isValid() ? m_model.Key(view.Selected()) : QString();
    for (int group = 0; group < m_model.GroupCount(); ++group) {
        if (view.isExpanded(m_model.index(group, 0)))
            kept.openGroups << m_model.Key(m_model.index(group, 0));
    }
    return kept;
}

void CatalogPane::ReadTree()
{
    m_context.events.ServeWithoutInput();
    TakeColors();
    m_tree.FillTree();
}

void CatalogPane::TakeColors()
{
    const bool skinTree = m_context.state.gOptions && IsOn(m_context.state.gOptions->Display.SkinTree);
    const SkinValues& skin = m_context.skinner.Values();
    m_model.SetColors(skinTree ? Visible(skin.treeItemText, skin.treeItemBack) : QColor(), skinTree ? skin.treeItemBack : QColor());
}

void CatalogPane::ShowTree(const Kept& kept)
{
    CatalogTreeView& view = m_context.view;
    m_filling = false;
    if (!m_isNew) { // nothing could be read: the tree stands as it was
        view.show();
        if (kept.focus)
            view.setFocus();
        m_context.shell.ShowWorking(false);
        return DoWhatWaited();
    }
    for (int group = 0; m_tree.GroupsExpanded() && group < m_model.GroupCount(); ++group)
        view.expand(m_model.index(group, 0));
    for (const QString& group : kept.openGroups)
        view.expand(m_model.Find(group));
    view.show();
    view.scrollToTop();
    // A view that takes the focus makes a node of its own the current one; no user has chosen that.
    view.SetSilent(true);
    if (kept.focus)
        view.setFocus();
    view.selectionModel()->clearCurrentIndex();
    view.SetSilent(false);
    Select(kept.selected);
    m_context.shell.ShowWorking(false);
    Q_EMIT Filled();
    DoWhatWaited();
}

void CatalogPane::OnExpand(const QModelIndex& node)
{
    if (IsBusy() || m_model.Tag(node) != kTagFilm)
        return;
    const QPersistentModelIndex film = node;
    CatalogTreeView& view = m_context.view;
    view.setUpdatesEnabled(false);
    Afterwards([&] { m_tree.ExpandFilmNode(film); },
               [&] {
                   // The view folds a node whose children go.
                   if (film.isValid())
                       view.expand(film);
                   view.setUpdatesEnabled(true);
                   view.setFocus();
                   DoWhatWaited();
               });
}

void CatalogPane::DoWhatWaited()
{
    const bool refill = std::exchange(m_refillAsked, false);
    if (m_afterJob)
        QTimer::singleShot(0, this, std::exchange(m_afterJob, nullptr));
    else if (refill)
        QTimer::singleShot(0, this, [this] { Guarded(m_context.dialogs, [&] { Fill(); }); });
}

std::optional<NodeRef> CatalogPane::Selected() const
{
    const QModelIndex node = m_context.view.Selected();
    if (!node.isValid())
        return std::nullopt;
    return NodeRef{m_model.Key(node), m_model.Tag(node)};
}

void CatalogPane::Select(const QString& key)
{
    m_context.view.SelectSilently(key.isEmpty() ? QModelIndex() : m_model.Find(key));
}

// An invalid index where the user has selected something else meanwhile.
QModelIndex CatalogPane::SelectedNodeOf(FilmId movieId) const
{
    const QModelIndex node = m_context.view.Selected();
    const bool sameFilm = node.isValid() && m_model.Tag(node) == kTagFilm && FilmOfKey(m_model.Key(node)) == movieId;
    return sameFilm ? node : QModelIndex();
}

void CatalogPane::Retitle(FilmId movieId, const QString& title)
{
    m_model.SetFilmTitle(SelectedNodeOf(movieId), title);
}

void CatalogPane::Rekey(FilmId movieId)
{
    const QModelIndex node = SelectedNodeOf(movieId);
    const QStringList keys = m_tree.FilmNodeKeys(movieId);
    if (!node.isValid() || keys.isEmpty() || keys.contains(m_model.Key(node), Qt::CaseInsensitive))
        return;
    m_model.SetFilmValue(node, ValueOfKey(keys.constFirst()));
}

} // namespace kelvado
