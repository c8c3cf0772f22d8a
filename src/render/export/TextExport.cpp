#include "render/export/TextExport.h"

#include "browse/Filters.h"
#include "core/Conversions.h"
#include "core/RuntimeError.h"
#include "core/SafeFile.h"
#include "render/export/TextFields.h"
#include "store/Recordset.h"

#include <algorithm>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace kelvado {

namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kBetweenNames = ", ";
constexpr std::size_t kWriteAt = 1 << 16;

bool BeginsCharacter(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80;
}

/// The length in bytes of the control character or line end at `place`; 0 where a plain character stands there.
qsizetype ControlAt(QByteArrayView text, qsizetype place)
{
    const auto byte = static_cast<unsigned char>(text[place]);
    if (byte == '\r' && text.sliced(place).startsWith("\r\n"))
        return 2;
    if (byte < ' ' || byte == 0x7F)
        return 1;
    if (byte == 0xC2)
        return static_cast<unsigned char>(text[place + 1]) < 0xA0 ? 2 : 0;
    const bool isParted = byte == 0xE2 && (text.sliced(place).startsWith("\u2028") || text.sliced(place).startsWith("\u2029"));
    return isParted ? 3 : 0;
}

/// Appends a text of UTF-8 as one line holds it, without outer blanks.
void AppendOneLine(std::string& line, QByteArrayView text)
{
    if (std::ranges::all_of(text, [](char byte) { return byte >= ' ' && byte < '\x7F'; })) {
        while (!text.isEmpty() && text.front() == ' ')
            text = text.sliced(1);
        while (!text.isEmpty() && text.back() == ' ')
            text.chop(1);
        line.append(text.data(), static_cast<std::size_t>(text.size()));
        return;
    }
    if (!text.isValidUtf8()) // other tools store half characters, too
        return AppendOneLine(line, QString::fromUtf8(text).toUtf8());
    const std::size_t start = line.size();
    qsizetype done = 0;
    const auto take = [&](qsizetype end) {
        while (line.size() == start && done < end && text[done] == ' ')
            ++done;
        line.append(text.data() + done, static_cast<std::size_t>(end - done));
    };
    for (qsizetype place = 0; place < text.size(); ++place) {
        const auto byte = static_cast<unsigned char>(text[place]);
        if (byte >= ' ' && byte != 0x7F && byte != 0xC2 && byte != 0xE2)
            continue;
        const qsizetype length = ControlAt(text, place);
        if (length == 0)
            continue;
        take(place);
        if (line.size() > start)
            line.push_back(' ');
        place += length - 1;
        done = place + 1;
    }
    take(text.size());
    while (line.size() > start && line.back() == ' ')
        line.pop_back();
}

/// The place of `column` in `columns`, at the end of which it is added where they lack it.
int PlaceOf(const QString& column, QStringList& columns)
{
    qsizetype place = columns.indexOf(column);
    if (place < 0) {
        place = columns.size();
        columns << column;
    }
    return static_cast<int>(place);
}

QString ColumnOf(const QString& table, const QString& name)
{
    return table + u".["_s + name + u']';
}

/// The names of one table that belong to the film under the hand, one text for each column that the export has of them.
class LinkedValues
{
public:
    LinkedValues(const NameTable& names, Connection& catalog) : m_names(names), m_catalog(catalog) {}

    /// To be called before the first film; returns the column's place.
    int Add(const QString& table, const QString& column)
    {
        const int place = PlaceOf(ColumnOf(table, column), m_columns);
        m_values.resize(static_cast<std::size_t>(m_columns.size()));
        m_sql = u"SELECT %1 FROM %2 INNER JOIN %3 ON %3.%4 = %2.%4 WHERE %2.Movie_ID = ? ORDER BY %2._rowid_"_s.arg(
            m_columns.join(u", "_s), m_names.linkTable, m_names.table, m_names.idColumn);
        return place;
    }
    void Read(std::int64_t film)
    {
        for (std::string& value : m_values)
            value.clear();
        Recordset rows;
        for (rows.Open(m_sql, {Value(film)}, m_catalog, LockType::ReadOnly); !rows.Eof(); rows.MoveNext()) {
            for (std::size_t column = 0; column < m_values.size(); ++column)
                Append(m_values[column], rows.Utf8(static_cast<int>(column)));
        }
    }
    const std::string& Of(int column) const { return m_values[static_cast<std::size_t>(column)]; }

private:
    static void Append(std::string& joined, QByteArrayView value)
    {
        const std::size_t before = joined.size();
        if (before > 0)
            joined.append(kBetweenNames);
        const std::size_t start = joined.size();
        AppendOneLine(joined, value);
        if (joined.size() == start)
            joined.resize(before);
    }

    const NameTable& m_names;
    Connection& m_catalog;
    QStringList m_columns;
    QString m_sql;
    std::vector<std::string> m_values;
};

/// Makes the lines of the films. What the entries name is looked up once.
class FilmLines
{
public:
    FilmLines(const TextExport& text, Connection& catalog);

    qint64 Count() const { return m_count; }
    bool AtEnd() const { return m_films.Eof(); }
    void MoveNext() { m_films.MoveNext(); }
    QString Title() const { return m_films.Text(kTitle); }
    /// Appends the present film's line.
    void Append(std::string& text);

private:
    enum Column { kNumber, kTitle }; // the first ones of the films' query
    struct Cell
    {
        CellFormat format;
        int column = -1;                ///< -1 for none
        LinkedValues* linked = nullptr; ///< whose column it is; none for the films' own
    };
    Cell CellOf(const TextEntry& entry, const QString& filmAddress, Connection& catalog);

    std::string m_cellEnd;
    QStringList m_columns{ColumnOf(u"Movie"_s, u"Movie_ID"_s), ColumnOf(u"Movie"_s, u"Title"_s)};
    std::map<const NameTable*, LinkedValues> m_linked;
    std::vector<Cell> m_cells;
    Recordset m_films;
    qint64 m_count = 0;
};

FilmLines::FilmLines(const TextExport& text, Connection& catalog) : m_cellEnd(text.cellEnd.toStdString())
{
    for (const TextEntry& entry : text.entries) {
        if (RegionOf(entry) == EntryRegion::Cell)
            m_cells.push_back(CellOf(entry, text.siteAddress + u"/Title?"_s, catalog));
    }
    const auto sql = [&](const QString& columns, const QString& order) {
        return WithLinkedGenres(u"SELECT %1 FROM Movie "_s.arg(columns) + text.where + u' ' + order, false);
    };
    Recordset counted; // without the order, which takes its time
    counted.Open(sql(m_columns[kNumber], {}), catalog, LockType::ReadOnly);
    m_count = counted.RecordCount();
    m_films.Open(sql(m_columns.join(u", "_s), text.order), catalog, LockType::ReadOnly);
}

FilmLines::Cell FilmLines::CellOf(const TextEntry& entry, const QString& filmAddress, Connection& catalog)
{
    Cell cell{CellFormat(entry, filmAddress)};
    if (entry.TableName == kCustomChar)
        return cell;
    if (entry.TableName == kSiteLink) {
        cell.column = PlaceOf(ColumnOf(u"Movie"_s, u"IMDB"_s), m_columns);
        return cell;
    }
    const std::optional<QString> home = HomeOfColumn(entry, catalog);
    if (!home)
        throw RuntimeError::WithDetail(kErrItemNotFound, entry.TableName + u'.' + entry.FieldName);
    if (const NameTable* names = LinkedTable(entry.TableName)) {
        cell.linked = &m_linked.try_emplace(names, *names, catalog).first->second;
        cell.column = cell.linked->Add(*home, entry.FieldName);
    } else {
        cell.column = PlaceOf(ColumnOf(*home, entry.FieldName), m_columns);
    }
    return cell;
}

void FilmLines::Append(std::string& text)
{
    for (auto& [names, values] : m_linked)
        values.Read(m_films.Integer(kNumber));
    for (const Cell& cell : m_cells) {
        cell.format.FormatCell(text, cell.column < 0 ? QByteArrayView()
                                     : cell.linked   ? cell.linked->Of(cell.column)
                                                     : m_films.Utf8(cell.column));
        text.append(m_cellEnd);
    }
    text.append(kLineEnd);
}

void AppendFixedLines(std::string& text, EntryRegion region, const QList<TextEntry>& entries)
{
    for (const TextEntry& entry : entries) {
        if (RegionOf(entry) == region)
            text.append(entry.FieldName.toStdString()).append(kLineEnd);
    }
}

} // namespace

CellFormat::CellFormat(const TextEntry& entry, const QString& filmAddress)
    : m_cut(entry.AutoCutt ? entry.AutoCutLength : -1), m_width(entry.Formated ? entry.FormatedLength : 0), m_align(entry.TextAlign)
{
    if (entry.TableName == kCustomChar)
        m_text = entry.FieldName.toStdString();
    else if (entry.TableName == kSiteLink)
        m_text = filmAddress.toStdString();
}

void CellFormat::FormatCell(std::string& line, QByteArrayView value) const
{
    const std::size_t start = line.size();
    line.append(m_text);
    AppendOneLine(line, value);
    if (m_cut < 0 && m_width == 0)
        return;
    auto characters = static_cast<int>(std::count_if(line.begin() + static_cast<std::ptrdiff_t>(start), line.end(), BeginsCharacter));
    if (m_cut >= 0 && characters > m_cut) {
        std::size_t end = start;
        for (characters = 0; characters < m_cut || !BeginsCharacter(line[end]); ++end)
            characters += BeginsCharacter(line[end]) ? 1 : 0;
        line.resize(end);
    }
    const int missing = m_width - characters;
    if (missing <= 0)
        return;
    const int right = m_align == CellAlign::Left ? missing : m_align == CellAlign::Right ? 0 : missing / 2;
    const int left = m_align == CellAlign::Centre ? static_cast<int>(RoundHalfEven(missing / 2.0)) : missing - right;
    line.insert(start, static_cast<std::size_t>(left), ' ').append(static_cast<std::size_t>(right), ' ');
}

ExportDone BuildTextExport(const TextExport& text, Connection& catalog, const GoesOn& goesOn)
{
    FilmLines films(text, catalog);
    FastFile file(text.path);
    ExportDone done;
    done.path = text.path;
    done.count = films.Count();
    std::string lines;
    const auto write = [&] {
        file.Write(QByteArray::fromRawData(lines.data(), static_cast<qsizetype>(lines.size())));
        lines.clear();
    };
    AppendFixedLines(lines, EntryRegion::Header, text.entries);
    for (; !films.AtEnd(); films.MoveNext()) {
        films.Append(lines);
        if (lines.size() >= kWriteAt)
            write();
        done.count = std::max(done.count, ++done.films); // another program may have added films since they were counted
        if (!goesOn({done.films, done.count, films.Title()}))
            return done;
    }
    AppendFixedLines(lines, EntryRegion::Footer, text.entries);
    for (const QString& line : {u" "_s, u"Movie list created with Kelvado"_s, u" "_s, text.makerAddress})
        lines.append(line.toStdString()).append(kLineEnd);
    write();
    file.Commit();
    done.whole = true;
    return done;
}

} // namespace kelvado
