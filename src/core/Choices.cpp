#include "core/Choices.h"

#include <array>
#include <utility>

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

std::vector<Choice> MatchesOf(const std::vector<Choice>& rows, const QString& text)
{
    std::array<std::vector<Choice>, 3> ranks;
    for (const Choice& row : rows) {
        qsizetype at = row.text.indexOf(text, 0, Qt::CaseInsensitive);
        if (at < 0)
            continue;
        const bool begins = at == 0;
        while (at > 0 && row.text[at - 1].isLetterOrNumber())
            at = row.text.indexOf(text, at + 1, Qt::CaseInsensitive);
        ranks[begins ? 0 : at > 0 ? 1 : 2].push_back(row);
    }
    std::vector<Choice> matches = std::move(ranks[0]);
    for (const std::size_t rank : {1U, 2U})
        matches.insert(matches.end(), ranks[rank].begin(), ranks[rank].end());
    return matches;
}

} // namespace kelvado
