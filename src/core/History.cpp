#include "core/History.h"

#include "core/RuntimeError.h"

#include <algorithm>

namespace kelvado {

void History::Push(const QString& key, const QString& section, const QString& page)
{
    std::move_backward(m_steps.begin(), m_steps.end() - 1, m_steps.end());
    m_steps.front() = {key, section, page};
}

void History::MoveBack()
{
    if (m_position != kPlaces)
        m_position = std::max(m_position, 1) + 1;
}

void History::MoveForward()
{
    m_position = std::max(m_position - 1, 1);
}

const History::Step& History::At(int place) const
{
    if (place < 1 || place > kPlaces)
        throw RuntimeError(kErrSubscript);
    return m_steps[static_cast<std::size_t>(place - 1)];
}

bool History::AtOldest() const
{
    return m_position == kPlaces || At(std::max(m_position, 1) + 1).key.isEmpty();
}

} // namespace kelvado
