#pragma once

#include <QAbstractTableModel>
#include <QString>

#include <array>
#include <vector>

namespace kelvado {

/// The columns of the list of loans.
enum class LoanColumn { FilmTitle, LoanedTo, LoanDate, DueDate, ReturnDate, Notes };
inline constexpr int kLoanColumns = 6;

struct LoanRow
{
    qint64 tag; ///< the `Loan_ID`, which names the row
    std::array<QString, kLoanColumns> texts;
};

/// All loans of films that are in the catalog, open and ended, in the catalog's own order.
class LoanModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Role { TagRole = Qt::UserRole + 1 };

    using QAbstractTableModel::QAbstractTableModel;

    /// Reads the list anew. Where the catalog cannot be read, the list stays as it was.
    void Refresh(const QString& catalogPath);
    /// The catalog that the list was read from; empty before the first reading.
    const QString& CatalogPath() const { return m_catalogPath; }
    /// The row of a loan; -1 where it is not listed.
    int RowOf(qint64 loanId) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    std::vector<LoanRow> m_rows;
    QString m_catalogPath;
};

} // namespace kelvado
