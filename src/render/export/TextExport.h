#pragma once

#include "core/TextEntry.h"
#include "render/export/ExportStep.h"
#include "store/Connection.h"

#include <QByteArrayView>
#include <QList>
#include <QString>

#include <string>

namespace kelvado {

/// The form of one entry's cells.
class CellFormat
{
public:
    /// `filmAddress` is what stands in front of a film's number at the film site.
    CellFormat(const TextEntry& entry, const QString& filmAddress);

    /// Appends the cell to `line`, as UTF-8. `value` is what the entry's column holds; a custom text has none. A line end or another
    /// control character in a value becomes one blank, so that a film is one line of the file; outer blanks go. A longer cell is cut, a
    /// shorter one is padded; a centred cell has half of the blanks on each side, rounded to even on the left and down on the right, so
    /// that it may stay one short. A character is never cut in two.
    void FormatCell(std::string& line, QByteArrayView value) const;

private:
    std::string m_text; ///< stands in front of the value
    int m_cut = -1;     ///< in characters; -1 for none
    int m_width = 0;
    CellAlign m_align;
};

struct TextExport
{
    QString path;
    QList<TextEntry> entries;
    QString cellEnd;     ///< stands behind each cell
    QString where;       ///< the filters as `JoinFilters` gives them
    QString order;       ///< as `TextOrder` gives it; empty for the order of storing
    QString siteAddress; ///< as `SiteAddress` gives it
    QString makerAddress;
};

/// Writes the films as a text file: the header lines, a line for each film, the footer lines and the closing lines, as UTF-8 with CR LF.
/// Columns of names that are linked to films give all that a film has, in the order of its links and with ", " between them; empty ones are
/// left out. `goesOn` is called behind each film and cancels with false. The file takes its place when it is whole, so after a cancel or
/// a failure an older one stands as it was. Raises `kErrItemNotFound` for a column that the catalog lacks, and `kErrFileAccess` with the
/// path of a file that cannot be written.
ExportDone BuildTextExport(const TextExport& text, Connection& catalog, const GoesOn& goesOn);

} // namespace kelvado
