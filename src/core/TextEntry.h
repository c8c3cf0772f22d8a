#pragma once

#include "core/Literals.h"

#include <QLatin1StringView>
#include <QString>

namespace kelvado {

// What stands in `TableName` where the entry is no column of a table.
inline constexpr QLatin1StringView kCustomChar = "CUSTOMCHAR"_L1;     ///< a text that each line has
inline constexpr QLatin1StringView kCustomHeader = "CUSTOMHEADER"_L1; ///< a line in front of the films
inline constexpr QLatin1StringView kCustomFooter = "CUSTOMFOOTER"_L1; ///< a line behind them
inline constexpr QLatin1StringView kSiteLink = "IMDbLink"_L1;         ///< the film's address at the film site

/// The widest that a cell of a text export can be padded to, and the longest that it can be cut to.
inline constexpr int kMostWidth = 9999;

enum class CellAlign { Left, Centre, Right };

/// What a line of a text export is made of: one cell of it, or a fixed line before or behind the films.
struct TextEntry
{
    QString Caption;
    QString FieldName; ///< the column; of a custom entry the text itself
    QString TableName; ///< the column's table, or one of the words above
    bool Formated = false;
    int FormatedLength = 0; ///< what a shorter cell is padded to, in characters
    bool AutoCutt = false;
    int AutoCutLength = 0; ///< what a longer cell is cut to
    CellAlign TextAlign = CellAlign::Left;

    friend bool operator==(const TextEntry&, const TextEntry&) = default;
};

/// Fixed lines stand at the ends of a list of entries; the cells of a film's line lie between them.
enum class EntryRegion { Header, Cell, Footer };

inline EntryRegion RegionOf(const TextEntry& entry)
{
    if (entry.TableName == kCustomHeader)
        return EntryRegion::Header;
    return entry.TableName == kCustomFooter ? EntryRegion::Footer : EntryRegion::Cell;
}

} // namespace kelvado
