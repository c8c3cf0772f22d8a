#pragma once

#include <QTreeView>

namespace kelvado {

/// The tree of the left pane. `NodeClick` follows what the user does: a click, also on the node that is selected already, and every
/// change of the selection by keyboard. A selection that the program makes is silent.
class CatalogTreeView : public QTreeView
{
    Q_OBJECT
public:
    explicit CatalogTreeView(QWidget* parent = nullptr);

    /// Selects a node and brings it into view, without `NodeClick`.
    void SelectSilently(const QModelIndex& index);
    /// While it is silent, changes of the selection are the program's own.
    void SetSilent(bool silent) { m_silent = silent; }
    /// The selected node; an invalid index where there is none.
    QModelIndex Selected() const;

Q_SIGNALS:
    void NodeClick();
    void MenuRequested(const QPoint& globalPosition);

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void initViewItemOption(QStyleOptionViewItem* option) const override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void drawBranches(QPainter* painter, const QRect& rect, const QModelIndex& index) const override;

private:
    bool m_announced = false; ///< the press under way has changed the current node
    bool m_silent = false;
};

} // namespace kelvado
