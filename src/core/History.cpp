#include "core/History.h"

#include "core/RuntimeError.h"

#include <algorithm>

namespace kelvado {

void History::Push(const QString& key, const QString& section, const QString& page)
{
    if (walking)
        return;
    std::move_backward(m_steps.begin(), m_steps.end() - 1, m_steps.end());
    m_steps.front() = {key, section, page};
    m_position = 0;
}

void History::Repage(const QString& before, const QString& after)
{
    for (Step& step : m_steps) {
        if (step.page == before)
            step.page = after;
    }
}

const History::Step* History::MoveBack(const InTree& inTree)
{
    return Move(1, inTree);
}

const History::Step* History::MoveForward(const InTree& inTree)
{
    return Move(-1, inTree);
}

const History::Step& History::At(int place) const
{
    if (place < 1 || place > kPlaces)
        throw RuntimeError(kErrSubscript);
    return m_steps[static_cast<std::size_t>(place - 1)];
}

// The next place in this direction whose step can be shown; 0 where there is none.
int History::Next(int direction, const InTree& inTree) const
{
    for (int place = std::max(m_position, 1) + direction; place >= 1 && place <= kPlaces && !At(place).key.isEmpty(); place += direction) {
        if (!At(place).page.isEmpty() || inTree(At(place).key))
            return place;
    }
    return 0;
}

const History::Step* History::Move(int direction, const InTree& inTree)
{
    const int place = Next(direction, inTree);
    if (place == 0)
        return nullptr;
    m_position = place;
    return &At(place);
}

} // namespace kelvado
