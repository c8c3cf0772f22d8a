#pragma once

#include <QRect>

#include <atomic>
#include <chrono>
#include <optional>
#include <thread>

struct xcb_connection_t;

namespace kelvado {

/// Watches a part of the screen, as the eye does: an event tells when something was asked for, not when it is to be seen. It needs an X
/// display and works on a connection and a thread of its own.
class PaintedPixels
{
public:
    using Clock = std::chrono::steady_clock;

    /// `area` in pixels of the screen. Ends the program where there is no X display.
    explicit PaintedPixels(const QRect& area);
    ~PaintedPixels();
    PaintedPixels(const PaintedPixels&) = delete;
    PaintedPixels& operator=(const PaintedPixels&) = delete;

    /// Serves events until nothing has changed for a while; returns when the last pixel changed since `start`, in milliseconds from
    /// there. Nothing where none did.
    std::optional<double> LastChangeSince(Clock::time_point start) const;

private:
    void Watch();
    std::uint64_t Look() const;

    QRect m_area;
    xcb_connection_t* m_display;
    std::uint32_t m_root = 0;
    std::atomic<bool> m_ends = false;
    std::atomic<Clock::rep> m_lastChange = 0;
    std::thread m_thread;
};

} // namespace kelvado
