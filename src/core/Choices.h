#pragma once

#include <QAbstractListModel>
#include <QString>

#include <vector>

namespace kelvado {

/// One entry of a list to choose from: what is shown, and the number behind it.
struct Choice
{
    QString text;
    qint64 number;
};

/// Films or people to choose from, as plain data: `Qt::UserRole` gives the number.
class Choices : public QAbstractListModel
{
    Q_OBJECT
public:
    using QAbstractListModel::QAbstractListModel;

    void SetRows(std::vector<Choice> rows);
    const std::vector<Choice>& Rows() const { return m_rows; }

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

private:
    std::vector<Choice> m_rows;
};

/// The rows that hold `text` in any case: first those that begin with it, then those in which a word does, then the others; each kind in
/// the order of `rows`.
std::vector<Choice> MatchesOf(const std::vector<Choice>& rows, const QString& text);

} // namespace kelvado
