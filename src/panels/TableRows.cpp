#include "panels/TableRows.h"

#include "core/Literals.h"

#include <algorithm>
#include <numeric>

namespace kelvado {

namespace {

int Compare(const QString& left, const QString& right)
{
    bool leftIsNumber = false;
    bool rightIsNumber = false;
    const double a = left.toDouble(&leftIsNumber);
    const double b = right.toDouble(&rightIsNumber);
    if (leftIsNumber && rightIsNumber)
        return a < b ? -1 : a > b ? 1 : 0;
    // Numbers stand in front of all texts, so that each row has one place.
    if (leftIsNumber != rightIsNumber)
        return leftIsNumber ? -1 : 1;
    return left.compare(right, Qt::CaseInsensitive);
}

// A row of a list shows one line.
QString OneLine(QString text)
{
    return text.replace(u'\n', u' ').replace(u'\r', u' ').replace(u'\t', u' ');
}

} // namespace

void TableRows::SetHeads(const QStringList& heads)
{
    beginResetModel();
    m_heads = heads;
    endResetModel();
}

void TableRows::SetRows(std::vector<TableRow> rows)
{
    beginResetModel();
    m_rows = std::move(rows);
    Arrange();
    endResetModel();
}

void TableRows::Arrange()
{
    m_order.resize(m_rows.size());
    std::iota(m_order.begin(), m_order.end(), std::size_t{0});
    if (m_sortColumn < 0)
        return;
    std::ranges::stable_sort(m_order, [this](std::size_t left, std::size_t right) {
        const int order = Compare(m_rows[left].texts.value(m_sortColumn), m_rows[right].texts.value(m_sortColumn));
        return m_sortOrder == Qt::AscendingOrder ? order < 0 : order > 0;
    });
}

int TableRows::RowOf(qint64 key) const
{
    const auto found = std::ranges::find_if(m_order, [&](std::size_t place) { return m_rows[place].key == key; });
    return found == m_order.end() ? -1 : static_cast<int>(found - m_order.begin());
}

int TableRows::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int TableRows::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_heads.size());
}

QVariant TableRows::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
        return {};
    const QString text = Row(index.row()).texts.value(index.column());
    if (role == Qt::DisplayRole)
        return OneLine(text);
    return text.trimmed().isEmpty() ? QVariant() : QVariant(u"<qt>"_s + text.left(1000).toHtmlEscaped() + u"</qt>"_s);
}

QVariant TableRows::headerData(int section, Qt::Orientation orientation, int role) const
{
    return orientation == Qt::Horizontal && role == Qt::DisplayRole ? QVariant(m_heads.value(section)) : QVariant();
}

void TableRows::sort(int column, Qt::SortOrder order)
{
    if (column == m_sortColumn && order == m_sortOrder)
        return;
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    const std::vector<std::size_t> before = m_order;
    m_sortColumn = column;
    m_sortOrder = order;
    Arrange();
    // What is selected stays selected at its new place.
    std::vector<int> places(m_order.size());
    for (std::size_t row = 0; row < m_order.size(); ++row)
        places[m_order[row]] = static_cast<int>(row);
    for (const QModelIndex& old : persistentIndexList())
        changePersistentIndex(old, index(places[before[static_cast<std::size_t>(old.row())]], old.column()));
    Q_EMIT layoutChanged({}, VerticalSortHint);
}

} // namespace kelvado
