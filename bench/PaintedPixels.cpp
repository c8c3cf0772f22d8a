#include "PaintedPixels.h"

#include <QEventLoop>
#include <QTimer>

#include <xcb/xcb.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string_view>

namespace kelvado {

namespace {

constexpr std::chrono::milliseconds kBetweenLooks(2);
constexpr std::chrono::milliseconds kQuiet(400);

} // namespace

PaintedPixels::PaintedPixels(const QRect& area) : m_area(area), m_display(xcb_connect(nullptr, nullptr))
{
    if (xcb_connection_has_error(m_display) != 0) {
        std::fprintf(stderr, "painted pixels are measured on an X display\n");
        std::exit(2);
    }
    m_root = xcb_setup_roots_iterator(xcb_get_setup(m_display)).data->root;
    m_thread = std::thread([this] { Watch(); });
}

PaintedPixels::~PaintedPixels()
{
    m_ends = true;
    m_thread.join();
    xcb_disconnect(m_display);
}

std::uint64_t PaintedPixels::Look() const
{
    const auto request = xcb_get_image(m_display, XCB_IMAGE_FORMAT_Z_PIXMAP, m_root, static_cast<std::int16_t>(m_area.x()),
                                       static_cast<std::int16_t>(m_area.y()), static_cast<std::uint16_t>(m_area.width()),
                                       static_cast<std::uint16_t>(m_area.height()), ~0U);
    const std::unique_ptr<xcb_get_image_reply_t, decltype(&std::free)> image(xcb_get_image_reply(m_display, request, nullptr), &std::free);
    if (!image)
        return 0;
    const auto* bytes = reinterpret_cast<const char*>(xcb_get_image_data(image.get()));
    return std::hash<std::string_view>()({bytes, static_cast<std::size_t>(xcb_get_image_data_length(image.get()))});
}

void PaintedPixels::Watch()
{
    for (std::uint64_t before = Look(); !m_ends; std::this_thread::sleep_for(kBetweenLooks)) {
        const Clock::time_point now = Clock::now();
        const std::uint64_t seen = Look();
        if (seen != before)
            m_lastChange = now.time_since_epoch().count();
        before = seen;
    }
}

std::optional<double> PaintedPixels::LastChangeSince(Clock::time_point start) const
{
    const auto last = [this] { return Clock::time_point(Clock::duration(m_lastChange.load())); };
    QEventLoop loop;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, &loop, [&] {
        if (Clock::now() - std::max(last(), start) > kQuiet)
            loop.quit();
    });
    watch.start(20);
    loop.exec();
    if (last() < start)
        return std::nullopt;
    return std::chrono::duration<double, std::milli>(last() - start).count();
}

} // namespace kelvado
