#pragma once

#include <QAbstractListModel>
#include <QString>

#include <vector>

namespace kelvado {

/// One entry of a list of films: what is shown, and the number behind it.
struct FilmChoice
{
    QString title;
    qint64 number;
};

/// Films to choose from, as plain data: the title is the text, `Qt::UserRole` the number.
class FilmChoices : public QAbstractListModel
{
    Q_OBJECT
public:
    using QAbstractListModel::QAbstractListModel;

    void SetFilms(std::vector<FilmChoice> films);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

private:
    std::vector<FilmChoice> m_films;
};

} // namespace kelvado
