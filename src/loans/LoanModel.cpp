#include "loans/LoanModel.h"

#include "core/Literals.h"
#include "core/RuntimeError.h"
#include "store/Recordset.h"

#include <algorithm>

namespace kelvado {

namespace {

const QString kLoansOfFilms = u"SELECT Loans.*, Movie.Title "
                              "FROM Loans INNER JOIN "
                              "Movie ON Loans.Movie_ID = Movie.Movie_ID"_s;

struct Column
{
    QLatin1StringView heading;
    QLatin1StringView field;
};
constexpr std::array<Column, kLoanColumns> kColumns{{
    {"Film Title"_L1, "Title"_L1},
    {"Loaned To"_L1, "LoanedTo"_L1},
    {"Loan Date"_L1, "LoanDate"_L1},
    {"Due Date"_L1, "DueDate"_L1},
    {"Return Date"_L1, "ReturnDate"_L1},
    {"Loan Notes"_L1, "Notes"_L1},
}};
constexpr std::size_t kTitle = 0;

const QString kNothing = u" "_s; // what a Null shows as

std::vector<LoanRow> ReadLoans(const QString& catalogPath)
{
    Connection connection = OpenCatalog(catalogPath);
    Recordset loans;
    loans.Open(kLoansOfFilms, connection);
    const int idColumn = loans.ColumnIndex(u"Loan_ID");
    std::array<int, kLoanColumns> columns{};
    for (std::size_t i = 0; i < columns.size(); ++i)
        columns[i] = loans.ColumnIndex(QString(kColumns[i].field));

    std::vector<LoanRow> rows;
    for (; !loans.Eof(); loans.MoveNext()) {
        LoanRow row{loans.Integer(idColumn), {}};
        for (std::size_t i = 0; i < columns.size(); ++i)
            row.texts[i] = i != kTitle && loans.IsNull(columns[i]) ? kNothing : loans.Text(columns[i]);
        rows.push_back(std::move(row));
    }
    loans.Close();
    connection.Close();
    return rows;
}

// A row of the list shows one line.
QString OneLine(QString text)
{
    for (QChar& character : text) {
        if (character == u'\n' || character == u'\r' || character == u'\t')
            character = u' ';
    }
    return text;
}

} // namespace

void LoanModel::Refresh(const QString& catalogPath)
{
    std::vector<LoanRow> rows = ReadLoans(catalogPath);
    beginResetModel();
    m_rows = std::move(rows);
    m_catalogPath = catalogPath;
    endResetModel();
}

int LoanModel::RowOf(qint64 loanId) const
{
    const auto found = std::find_if(m_rows.begin(), m_rows.end(), [&](const LoanRow& row) { return row.tag == loanId; });
    return found == m_rows.end() ? -1 : static_cast<int>(found - m_rows.begin());
}

int LoanModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int LoanModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : kLoanColumns;
}

QVariant LoanModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const LoanRow& row = m_rows[static_cast<std::size_t>(index.row())];
    const QString& text = row.texts[static_cast<std::size_t>(index.column())];
    switch (role) {
    case Qt::DisplayRole:
        return OneLine(text);
    case Qt::ToolTipRole:
        return text.trimmed().isEmpty() ? QVariant()
                                        : QVariant(u"<qt>"_s + text.left(1000).toHtmlEscaped().replace(u'\n', "<br>"_L1) + u"</qt>"_s);
    case TagRole:
        return row.tag;
    default:
        return {};
    }
}

QVariant LoanModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section >= kLoanColumns)
        return {};
    return QString(kColumns[static_cast<std::size_t>(section)].heading);
}

} // namespace kelvado
