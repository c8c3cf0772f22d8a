#include "app/CatalogPane.h"

#include "core/Guard.h"

#include <QItemSelectionModel>
#include <QTimer>

#include <utility>

namespace kelvado {

CatalogPane::CatalogPane(const Context& context)
    : m_context(context), m_tree({context.state, context.menus, context.events, context.shell, m_model})
{
    m_context.view.setModel(&m_model);
    connect(&m_context.view, &QTreeView::expanded, this,
            [this](const QModelIndex& node) { Guarded(m_context.dialogs, [&] { OnExpand(node); }); });
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
    const struct Filling
    {
        CatalogPane& pane;
        bool hadFocus = false;
        explicit Filling(CatalogPane& p) : pane(p)
        {
            pane.m_filling = true;
            // Asked of the window, which has a dialog in front of it still or is not shown to be active yet. A window's first control is
            // nobody's choice.
            const QWidget* focus = pane.m_context.view.window()->focusWidget();
            hadFocus = focus == &pane.m_context.view || !std::exchange(pane.m_filledOnce, true);
            pane.m_context.view.hide();
            pane.m_context.shell.ShowWorking(true);
        }
        ~Filling()
        {
            pane.m_filling = false;
            pane.m_context.view.show();
            pane.m_context.view.scrollToTop();
            // A view that takes the focus makes a node of its own the current one; no user has chosen that.
            pane.m_context.view.SetSilent(true);
            if (hadFocus)
                pane.m_context.view.setFocus();
            pane.m_context.view.selectionModel()->clearCurrentIndex();
            pane.m_context.view.SetSilent(false);
            pane.m_context.shell.ShowWorking(false);
            Q_EMIT pane.Filled();
            pane.DoWhatWaited();
        }
    } filling(*this);
    m_context.events.ServeWithoutInput();
    m_model.Clear();
    m_context.events.ServeWithoutInput();
    const bool skinTree = m_context.state.gOptions->Display.SkinTree == 1;
    const SkinValues& skin = m_context.skinner.Values();
    m_model.SetColors(skinTree ? Visible(skin.treeItemText, skin.treeItemBack) : QColor(), skinTree ? skin.treeItemBack : QColor());
    const auto showGroups = [&] {
        for (int group = 0; m_tree.GroupsExpanded() && group < m_model.GroupCount(); ++group)
            m_context.view.expand(m_model.index(group, 0));
    };
    try {
        m_tree.FillTree();
    } catch (const RuntimeError&) {
        showGroups();
        throw;
    }
    showGroups();
}

void CatalogPane::OnExpand(const QModelIndex& node)
{
    if (IsBusy() || m_model.Tag(node) != kTagFilm)
        return;
    const QPersistentModelIndex film = node;
    const struct Expanding
    {
        CatalogPane& pane;
        const QPersistentModelIndex& film;
        ~Expanding()
        {
            // The view folds a node whose children go.
            CatalogTreeView& view = pane.m_context.view;
            if (film.isValid())
                view.expand(film);
            view.setUpdatesEnabled(true);
            view.setFocus();
            pane.DoWhatWaited();
        }
    } expanding{*this, film};
    m_context.view.setUpdatesEnabled(false);
    m_tree.ExpandFilmNode(film);
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
    const QModelIndex node = m_model.Find(key);
    if (!node.isValid())
        throw RuntimeError(kErrElementNotFound);
    m_context.view.SelectSilently(node);
}

void CatalogPane::Retitle(const QString& title)
{
    m_model.SetFilmTitle(m_context.view.Selected(), title);
}

void CatalogPane::Rekey(qint64 movieId)
{
    const QModelIndex node = m_context.view.Selected();
    const QStringList keys = m_tree.FilmNodeKeys(QString::number(movieId));
    const bool sameFilm = node.isValid() && m_model.Tag(node) == kTagFilm && KeyPart(m_model.Key(node), 0) == QString::number(movieId);
    if (!sameFilm || keys.isEmpty() || keys.contains(m_model.Key(node), Qt::CaseInsensitive))
        return;
    m_model.SetFilmValue(node, ValueOfKey(keys.constFirst()));
}

} // namespace kelvado
