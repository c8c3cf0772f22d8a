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

QRect WithinAScreen(const QRect& place)
{
    const auto covered = [&](const QScreen* screen) {
        const QRect part = screen->availableGeometry().intersected(place);
        return qint64(part.width()) * part.height();
    };
    const QList<QScreen*> screens = QGuiApplication::screens();
    const QRect room = (*std::ranges::max_element(screens, {}, covered))->availableGeometry();
    const QSize size = place.size().boundedTo(room.size());
    return {QPoint(std::clamp(place.left(), room.left(), room.right() + 1 - size.width()),
                   std::clamp(place.top(), room.top(), room.bottom() + 1 - size.height())),
            size};
}

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
    if (width <= 0 || height <= 0)
        return std::nullopt;
    return WindowPlace{WithinAScreen({left, top, width, height}), IsOn(maximised), std::clamp(divider, 0, 99)};
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
