#include "core/Choices.h"

namespace kelvado {

void Choices::SetRows(std::vector<Choice> rows)
{
    beginResetModel();
    m_rows = std::move(rows);
    endResetModel();
}

int Choices::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant Choices::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const Choice& row = m_rows[static_cast<std::size_t>(index.row())];
    if (role == Qt::DisplayRole || role == Qt::EditRole)
        return row.text;
    return role == Qt::UserRole ? QVariant(row.number) : QVariant();
}

} // namespace kelvado
