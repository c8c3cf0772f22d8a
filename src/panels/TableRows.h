#pragma once

#include <QAbstractTableModel>
#include <QStringList>

#include <vector>

namespace kelvado {

struct TableRow
{
    qint64 key;        ///< the number that the row stands for
    QStringList texts; ///< one for each column; there may be more, which do not show
};

/// The rows of a small list, as plain data. They stand in the order in which they were given until they are sorted by a column, numbers by
/// their value; new rows are put into the same order.
class TableRows : public QAbstractTableModel
{
    Q_OBJECT
public:
    using QAbstractTableModel::QAbstractTableModel;

    void SetHeads(const QStringList& heads);
    void SetRows(std::vector<TableRow> rows);
    const TableRow& Row(int row) const { return m_rows[m_order[static_cast<std::size_t>(row)]]; }
    /// The first row with this key; -1 where there is none.
    int RowOf(qint64 key) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    /// -1 gives back the order in which the rows were given.
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

private:
    void Arrange();

    QStringList m_heads;
    std::vector<TableRow> m_rows;
    std::vector<std::size_t> m_order; ///< places in `m_rows`, as they show
    int m_sortColumn = -1;
    Qt::SortOrder m_sortOrder = Qt::AscendingOrder;
};

} // namespace kelvado
