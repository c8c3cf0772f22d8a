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
    QString key; ///< the film's number between double quotes
    qint64 tag;  ///< the `Loan_ID`
    std::array<QString, kLoanColumns> texts;
};

/// All loans of films that are in the catalog, open and ended, in the catalog's own order. A film stands in the list once.
class LoanModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Role { KeyRole = Qt::UserRole + 1, TagRole };

    using QAbstractTableModel::QAbstractTableModel;

    /// Reads the list anew. Where the catalog cannot be read, the list stays as it was. Raises 457 when all is listed, if a film has a
    /// second loan: that one has no place in the list as long as the first one is there.
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
