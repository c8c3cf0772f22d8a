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

/// The place, moved into the screen that it covers most of. Nothing where the keys are missing or hold no numbers.
std::optional<WindowPlace> ReadWindowPlace(const QString& settingsFile);
void WriteWindowPlace(const WindowPlace& place, const QString& settingsFile);

} // namespace kelvado
