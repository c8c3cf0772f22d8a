#include "ui/CatalogTreeView.h"

#include "ui/AppStyle.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyledItemDelegate>

namespace kelvado {

namespace {

constexpr int kIconSide = 16;

class RowDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        // The node's own color says nothing in a tree that cannot be worked with.
        if (!option->state.testFlag(QStyle::State_Enabled) && option->widget)
            option->palette = option->widget->palette();
    }
};

bool IsEnter(const QKeyEvent& event)
{
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

} // namespace

CatalogTreeView::CatalogTreeView(QWidget* parent) : QTreeView(parent)
{
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setTextElideMode(Qt::ElideRight);
    setExpandsOnDoubleClick(true);
    setItemDelegate(new RowDelegate(this));
    setIconSize({kIconSide, kIconSide});
}

void CatalogTreeView::SelectSilently(const QModelIndex& index)
{
    m_silent = true;
    setCurrentIndex(index);
    if (index.isValid())
        scrollTo(index);
    m_silent = false;
}

QModelIndex CatalogTreeView::Selected() const
{
    return selectionModel() && selectionModel()->isSelected(currentIndex()) ? currentIndex() : QModelIndex();
}

void CatalogTreeView::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTreeView::currentChanged(current, previous);
    m_announced = true;
    if (!m_silent && current.isValid())
        QMetaObject::invokeMethod(this, &CatalogTreeView::NodeClick, Qt::QueuedConnection);
}

void CatalogTreeView::mousePressEvent(QMouseEvent* event)
{
    m_announced = false;
    const QModelIndex node = indexAt(event->position().toPoint());
    // The menu that follows is about the row under the pointer, its mark for expanding included.
    if (event->button() == Qt::RightButton && node.isValid())
        setCurrentIndex(node);
    else
        QTreeView::mousePressEvent(event);
}

void CatalogTreeView::mouseReleaseEvent(QMouseEvent* event)
{
    QTreeView::mouseReleaseEvent(event);
    const QPoint place = event->position().toPoint();
    const QModelIndex node = indexAt(place);
    if (event->button() == Qt::LeftButton && !m_announced && node.isValid() && node == Selected() && visualRect(node).contains(place))
        Q_EMIT NodeClick();
}

void CatalogTreeView::keyPressEvent(QKeyEvent* event)
{
    // Opening all levels at once would fetch the cast of every film below.
    if (!IsEnter(*event) && event->key() != Qt::Key_Asterisk)
        QTreeView::keyPressEvent(event);
}

void CatalogTreeView::keyReleaseEvent(QKeyEvent* event)
{
    if (!IsEnter(*event))
        QTreeView::keyReleaseEvent(event);
}

void CatalogTreeView::contextMenuEvent(QContextMenuEvent* event)
{
    const bool byKeyboard = event->reason() == QContextMenuEvent::Keyboard;
    Q_EMIT MenuRequested(byKeyboard ? viewport()->mapToGlobal(visualRect(currentIndex()).bottomLeft()) : event->globalPos());
}

// The selection shows whether the keys go here.
void CatalogTreeView::initViewItemOption(QStyleOptionViewItem* option) const
{
    QTreeView::initViewItemOption(option);
    if (!hasFocus())
        DimSelection(option->palette);
}

void CatalogTreeView::focusInEvent(QFocusEvent* event)
{
    QTreeView::focusInEvent(event);
    viewport()->update();
}

void CatalogTreeView::focusOutEvent(QFocusEvent* event)
{
    QTreeView::focusOutEvent(event);
    viewport()->update();
}

void CatalogTreeView::drawBranches(QPainter* painter, const QRect& rect, const QModelIndex& index) const
{
    if (!model()->hasChildren(index))
        return;
    // The style's own arrow keeps its colour on a selected row, where it cannot be seen.
    constexpr qreal kReach = 3.5;
    const bool selected = selectionModel()->isSelected(index);
    const QPointF middle = QRectF(rect.right() - indentation() + 1, rect.top(), indentation(), rect.height()).center();
    const QPointF across = isExpanded(index) ? QPointF(kReach, 0) : QPointF(0, kReach);
    const QPointF along = isExpanded(index) ? QPointF(0, kReach / 2) : QPointF(kReach / 2, 0);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(palette().color(selected && hasFocus() ? QPalette::HighlightedText : QPalette::Text), 1.4, Qt::SolidLine,
                         Qt::RoundCap, Qt::RoundJoin));
    painter->drawPolyline(QPolygonF({middle - across - along, middle + along, middle + across - along}));
    painter->restore();
}

} // namespace kelvado
