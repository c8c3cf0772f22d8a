#pragma once

#include "app/Menus.h"
#include "browse/CatalogModel.h"
#include "browse/Tree.h"
#include "core/AppState.h"
#include "core/Dialogs.h"
#include "core/Events.h"
#include "core/NodeKey.h"
#include "core/Shell.h"
#include "ui/CatalogTreeView.h"
#include "ui/Skinner.h"

#include <QObject>

#include <functional>
#include <optional>

namespace kelvado {

/// The catalog's tree in the main window. Filling it and opening a film serve events meanwhile, so whatever would meet half a tree waits
/// for the end of such a job.
class CatalogPane : public QObject
{
    Q_OBJECT
public:
    /// What the tree works on; all of it outlives this object.
    struct Context
    {
        AppState& state;
        Dialogs& dialogs;
        Events& events;
        const Menus& menus;
        Shell& shell;
        const Skinner& skinner;
        CatalogTreeView& view;
    };
    explicit CatalogPane(const Context& context);
    ~CatalogPane() override;

    CatalogModel& Model() { return m_model; }

    /// Fills the tree anew; during a fill that is asked for once more, when that one has ended. Raises what filling raises, and shows
    /// what was read before; where that is nothing of the same catalog, the tree stands as it was.
    void Fill();
    bool IsFilling() const { return m_filling; }
    bool IsBusy() const { return m_filling || m_tree.Expanding(); }
    /// Does `what` when the job under way has ended, in the place of a fill that was asked for meanwhile.
    void AfterJob(std::function<void()> what) { m_afterJob = std::move(what); }

    /// Gives the nodes the colours of the skin, where the options want it.
    void TakeColors();

    std::optional<NodeRef> Selected() const;
    /// Selects the node of this key without a click; none where the tree does not have it.
    void Select(const QString& key);
    /// Gives the film another text, and the key that the catalog now gives it, where its node is the selected one.
    void Retitle(FilmId movieId, const QString& title);
    void Rekey(FilmId movieId);

Q_SIGNALS:
    /// The tree was filled; what was selected and open before is so again where the tree still has it.
    void Filled();

private:
    /// What is to be as it was when the tree has been filled anew.
    struct Kept
    {
        QString selected; ///< key
        QStringList openGroups;
        bool focus = false;
    };
    Kept Remember();
    void ReadTree();
    void ShowTree(const Kept& kept);
    QModelIndex SelectedNodeOf(FilmId movieId) const;
    void OnExpand(const QModelIndex& node);
    void DoWhatWaited();

    Context m_context;
    CatalogModel m_model;
    Tree m_tree;
    std::function<void()> m_afterJob;
    bool m_filling = false;
    bool m_isNew = false; ///< the last filling has put something new into the tree
    bool m_refillAsked = false;
    bool m_filledOnce = false;
};

} // namespace kelvado
