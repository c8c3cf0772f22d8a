#pragma once

#include "core/Events.h"

namespace kelvado {

/// Serves nothing and counts how often it was asked to.
class IdleEvents : public Events
{
public:
    void ServeEvents() override { ++served; }
    void ServeWithoutInput() override { ++served; }
    void Pause(int) override {}

    int served = 0;
};

} // namespace kelvado
