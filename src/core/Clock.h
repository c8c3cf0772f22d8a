#pragma once

#include <QDateTime>

namespace kelvado {

class Clock
{
public:
    virtual ~Clock() = default;
    virtual QDateTime Now() const = 0;
    /// Milliseconds since some fixed moment; never runs backwards.
    virtual qint64 Ticks() const = 0;
};

} // namespace kelvado
