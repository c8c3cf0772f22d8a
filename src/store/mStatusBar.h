#pragma once

#include "core/AppState.h"

#include <QString>
#include <QStringList>

#include <array>

namespace kelvado {

/// The cells of the status bar, in the order in which they are shown. A cell's number is its entry in the status bar's menu, and with it
/// its option (`StatusOption`).
enum class StatusCell {
    Movies = 1,
    Requests = 2,
    Loans = 3,
    Discs = 4,
    Actors = 9,
    Writers = 10,
    Directors = 11,
    Producers = 12,
    PrimaryMethod = 5,
    SecondaryMethod = 6,
    ViewMethod = 7,
    Filters = 8,
};
inline constexpr int kStatusCells = 12;

/// The texts of the status bar.
class StatusTexts
{
public:
    /// Counts films, discs and people of the catalog at `catalogPath` anew. Raises what the engine raises; the texts counted before that
    /// are the new ones.
    void Recount(const QString& catalogPath);
    /// Takes sorts, view mode and number of filters from the state.
    void TakeView(const AppState& state);

    /// The texts of the cells that the options show.
    QStringList Shown(const cOptStatus& options) const;

private:
    QString& Text(StatusCell cell) { return m_texts[static_cast<std::size_t>(cell)]; }

    std::array<QString, kStatusCells + 1> m_texts; ///< by number
};

} // namespace kelvado
