#pragma once

#include <QDateTime>

namespace kelvado {

class Clock
{
public:
    virtual ~Clock() = default;
    virtual QDateTime Now() const = 0;
};

} // namespace kelvado
