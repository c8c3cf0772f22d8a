#pragma once

#include "core/AppState.h"

#include <QString>
#include <QStringList>

#include <array>

namespace kelvado {

/// The twelve cells of the status bar, in the order in which they are shown.
enum class StatusCell {
    Movies,
    Requests,
    Loans,
    Discs,
    Actors,
    Writers,
    Directors,
    Producers,
    PrimaryMethod,
    SecondaryMethod,
    ViewMethod,
    Filters,
    Count
};

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

    std::array<QString, static_cast<std::size_t>(StatusCell::Count)> m_texts;
};

} // namespace kelvado
