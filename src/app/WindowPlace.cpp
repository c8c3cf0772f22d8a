#include "app/WindowPlace.h"

#include "core/Literals.h"
#include "core/Options.h"
#include "core/Profile.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <array>

namespace kelvado {

namespace {

const QString kSection = u"Window"_s;
constexpr std::array<const char*, 6> kKeys{"Left", "Top", "Width", "Height", "Maximised", "Divider"};

// Enough of the title bar to take hold of the window by.
constexpr QSize kGrip(120, 24);

} // namespace

std::optional<WindowPlace> ReadWindowPlace(const QString& settingsFile)
{
    const Profile settings(settingsFile);
    std::array<int, kKeys.size()> numbers{};
    for (std::size_t i = 0; i < kKeys.size(); ++i) {
        bool isNumber = false;
        numbers[i] = settings.Value(kSection, QLatin1StringView(kKeys[i])).toInt(&isNumber);
        if (!isNumber)
            return std::nullopt;
    }
    const auto [left, top, width, height, maximised, divider] = numbers;
    const QRect grip(QPoint(left, top), kGrip);
    const QList<QScreen*> screens = QGuiApplication::screens();
    const bool isOnScreen =
        std::ranges::any_of(screens, [&](const QScreen* screen) { return screen->availableGeometry().intersected(grip).size() == kGrip; });
    if (!isOnScreen || width <= 0 || height <= 0)
        return std::nullopt;
    return WindowPlace{QRect(left, top, width, height), IsOn(maximised), std::clamp(divider, 0, 99)};
}

void WriteWindowPlace(const WindowPlace& place, const QString& settingsFile)
{
    const std::array<int, kKeys.size()> numbers{place.normal.left(),   place.normal.top(),        place.normal.width(),
                                                place.normal.height(), place.isMaximised ? 1 : 0, place.dividerPercent};
    ProfileChanges changes(settingsFile);
    for (std::size_t i = 0; i < kKeys.size(); ++i)
        changes.Set(kSection, QLatin1StringView(kKeys[i]), QString::number(numbers[i]));
    changes.Write();
}

} // namespace kelvado
