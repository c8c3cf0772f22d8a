#pragma once

#include <QString>

#include <array>

namespace kelvado {

/// The ten newest steps behind the Back and Forward buttons. A step is recorded at the front, wherever the walk stands.
class History
{
public:
    static constexpr int kPlaces = 10;

    struct Step
    {
        QString key;     ///< tree node key
        QString section; ///< section of the step
        QString page;    ///< file name below the temp folder, or empty
    };

    void Push(const QString& key, const QString& section, const QString& page);

    /// Moves one step towards the older end; stands still at place 10. From the head, the first move goes to place 2.
    void MoveBack();
    /// Moves one step towards the newer end; stands still at place 1.
    void MoveForward();

    /// 0 at the head, else the place that is shown, 1 to 10.
    int Position() const { return m_position; }
    /// The step at `place`, 1 to 10. Raises 9 for any other place.
    const Step& At(int place) const;
    const Step& Current() const { return At(m_position); }

    /// True where Back must be disabled after a move back: at place 10, or with nothing older.
    bool AtOldest() const;
    /// True where Forward must be disabled after a move forward.
    bool AtNewest() const { return m_position <= 1; }

    /// True while Back or Forward runs, so that the section handlers record no new step.
    bool walking = false;

private:
    std::array<Step, kPlaces> m_steps;
    int m_position = 0;
};

} // namespace kelvado
