#include "panels/forms/PairList.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>

#include <algorithm>
#include <utility>

namespace kelvado {

void PairModel::SetRows(QList<PairRow> rows)
{
    beginResetModel();
    m_rows = std::move(rows);
    endResetModel();
}

void PairModel::Append(const PairRow& row)
{
    beginInsertRows({}, rowCount(), rowCount());
    m_rows.append(row);
    endInsertRows();
}

void PairModel::SetText(int row, const QString& text)
{
    m_rows[row].text = text;
    Q_EMIT dataChanged(index(row, 1), index(row, 1));
}

void PairModel::Remove(int row)
{
    beginRemoveRows({}, row, row);
    m_rows.removeAt(row);
    endRemoveRows();
}

QVariant PairModel::data(const QModelIndex& index, int role) const
{
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return {};
    const PairRow& row = m_rows[index.row()];
    return index.column() == 0 ? row.name : row.text;
}

PairList::PairList(QWidget* parent) : QTreeView(parent)
{
    setModel(&m_model);
    setHeaderHidden(true);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setTabKeyNavigation(false);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    header()->setStretchLastSection(true);
    setMinimumHeight(60);
    connect(this, &QAbstractItemView::doubleClicked, this, &PairList::EditWanted);
}

int PairList::Selected() const
{
    const QModelIndexList rows = selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows[0].row();
}

void PairList::Select(int row)
{
    setCurrentIndex(m_model.index(std::min(row, m_model.rowCount() - 1), 0));
}

void PairList::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Insert:
        return Q_EMIT AddWanted();
    case Qt::Key_F2:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return Q_EMIT EditWanted();
    case Qt::Key_Delete:
        return Q_EMIT RemoveWanted();
    default:
        QTreeView::keyPressEvent(event);
    }
}

void PairList::contextMenuEvent(QContextMenuEvent* event)
{
    if (event->reason() == QContextMenuEvent::Mouse)
        return Q_EMIT MenuWanted(event->globalPos());
    const QRect row = visualRect(currentIndex());
    Q_EMIT MenuWanted(viewport()->mapToGlobal(row.isValid() ? row.bottomLeft() : QPoint()));
}

void PairList::resizeEvent(QResizeEvent* event)
{
    QTreeView::resizeEvent(event);
    setColumnWidth(0, viewport()->width() / 2);
}

} // namespace kelvado
