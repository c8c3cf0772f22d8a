#include "loans/FilmChoices.h"

namespace kelvado {

void FilmChoices::SetFilms(std::vector<FilmChoice> films)
{
    beginResetModel();
    m_films = std::move(films);
    endResetModel();
}

int FilmChoices::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_films.size());
}

QVariant FilmChoices::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const FilmChoice& film = m_films[static_cast<std::size_t>(index.row())];
    if (role == Qt::DisplayRole || role == Qt::EditRole)
        return film.title;
    return role == Qt::UserRole ? QVariant(film.number) : QVariant();
}

} // namespace kelvado
