#pragma once

#include <QMainWindow>

#include <optional>

namespace kelvado {

/// Where the main window was when the program ended last: section `Window` of the settings file, whose keys are ours. Sizes are in the
/// toolkit's own pixels.
struct WindowPlace
{
    QRect normal; ///< while the window is not maximised
    bool isMaximised = false;
    int dividerPercent = 0;
};

/// Nothing where the keys are missing, hold no numbers, or name a place that no screen has any more.
std::optional<WindowPlace> ReadWindowPlace(const QString& settingsFile);
void WriteWindowPlace(const WindowPlace& place, const QString& settingsFile);

} // namespace kelvado
