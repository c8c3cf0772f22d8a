#pragma once

#include <QAbstractTableModel>
#include <QList>
#include <QString>
#include <QTreeView>

namespace kelvado {

/// A row of a `PairList`: a name and what is said of it, such as a role.
struct PairRow
{
    qint64 id;
    QString name, text;
};

class PairModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    using QAbstractTableModel::QAbstractTableModel;

    void SetRows(QList<PairRow> rows);
    void Append(const PairRow& row);
    void SetText(int row, const QString& text);
    void Remove(int row);
    const QList<PairRow>& Rows() const { return m_rows; }

    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : static_cast<int>(m_rows.size()); }
    int columnCount(const QModelIndex&) const override { return 2; }
    QVariant data(const QModelIndex& index, int role) const override;

private:
    QList<PairRow> m_rows;
};

/// The people or companies of a film in two columns of the same width: name, and role or note.
class PairList : public QTreeView
{
    Q_OBJECT
public:
    explicit PairList(QWidget* parent = nullptr);

    PairModel& Model() { return m_model; }
    const QList<PairRow>& Rows() const { return m_model.Rows(); }
    /// The selected row; -1 for none.
    int Selected() const;
    void Select(int row);

Q_SIGNALS:
    /// Insert, Enter or F2 or a double click, and Delete.
    void AddWanted();
    void EditWanted();
    void RemoveWanted();
    void MenuWanted(const QPoint& globalPosition);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    PairModel m_model;
};

} // namespace kelvado
