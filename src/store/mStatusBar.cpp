#include "store/mStatusBar.h"

#include "core/Literals.h"
#include "core/RuntimeError.h"
#include "store/Recordset.h"

namespace kelvado {

namespace {

struct Count
{
    StatusCell cell;
    const char* caption;
    const char* sql;
};

// In the order in which they are counted.
constexpr Count kCounts[] = {
    {StatusCell::Requests, "Total Requests: ", "SELECT Title FROM Movie WHERE Format = 'Request'"},
    {StatusCell::Movies,
     "Total Movies: ", "SELECT Title FROM Movie WHERE ((Movie.Format <> 'Request' AND Movie.Loan_ID = 0) OR Movie.Format Is Null)"},
    {StatusCell::Loans, "Loaned Movies: ", "SELECT Title FROM Movie WHERE Movie.Loan_ID <> 0"},
    {StatusCell::Discs, "Total Discs: ", "SELECT Sum(Movie.Number) As SumDiscs FROM Movie"},
    {StatusCell::Actors, "Total Actors: ", "SELECT Actor FROM Actor"},
    {StatusCell::Writers, "Total Writers: ", "SELECT Writer FROM Writer"},
    {StatusCell::Directors, "Total Directors: ", "SELECT Director FROM Director"},
    {StatusCell::Producers, "Total Producers: ", "SELECT Producer FROM Producer"},
};

// From left to right.
constexpr StatusCell kShown[kStatusCells] = {StatusCell::Movies,          StatusCell::Requests,   StatusCell::Loans,
                                             StatusCell::Discs,           StatusCell::Actors,     StatusCell::Writers,
                                             StatusCell::Directors,       StatusCell::Producers,  StatusCell::PrimaryMethod,
                                             StatusCell::SecondaryMethod, StatusCell::ViewMethod, StatusCell::Filters};

QString BehindThePoint(const QString& sort)
{
    return sort.section(u'.', 1, 1);
}

} // namespace

void StatusTexts::Recount(const QString& catalogPath)
{
    Connection connection = OpenCatalog(catalogPath);
    for (const Count& count : kCounts) {
        Recordset rows;
        rows.Open(QString::fromLatin1(count.sql), connection);
        // The sum of no discs is Null, and its cell then holds the caption alone.
        const QString number = count.cell == StatusCell::Discs ? rows.Text(0) : QString::number(rows.RecordCount());
        Text(count.cell) = QString::fromLatin1(count.caption) + number;
    }
    connection.Close();
}

void StatusTexts::TakeView(const AppState& state)
{
    const cOptView& view = state.gOptions->View;
    Text(StatusCell::PrimaryMethod) = u"Primary Sort: "_s + BehindThePoint(view.PrimarySort);
    Text(StatusCell::SecondaryMethod) = u"Secondary Sort: "_s + BehindThePoint(view.SecondarySort);
    Text(StatusCell::ViewMethod) = u"View Mode: "_s + view.ViewMode;
    Text(StatusCell::Filters) = u"Active Filters: "_s + QString::number(state.FilterCount);
}

QStringList StatusTexts::Shown(const cOptStatus& options) const
{
    QStringList shown;
    for (const StatusCell cell : kShown) {
        const int number = static_cast<int>(cell);
        if (IsOn(options.*StatusOption(number)))
            shown << m_texts[static_cast<std::size_t>(number)];
    }
    return shown;
}

} // namespace kelvado
