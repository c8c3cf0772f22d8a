#pragma once

#include <QString>

#include <array>
#include <functional>

namespace kelvado {

/// The ten newest steps behind the Back and Forward buttons. A new step stands at the front, and the walk begins there again.
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

    /// Says whether the present tree has a node of this key. A step whose node is gone can still show its page; one without a page is
    /// passed over.
    using InTree = std::function<bool(const QString& key)>;

    /// A step that is made while the walk goes on is not recorded.
    void Push(const QString& key, const QString& section, const QString& page);

    /// Moves to the next older step that can be shown, or the next newer one; stands still and returns null where there is none. From the
    /// head, the first move back leads to place 2.
    const Step* MoveBack(const InTree& inTree);
    const Step* MoveForward(const InTree& inTree);
    bool HasOlder(const InTree& inTree) const { return Next(1, inTree) != 0; }
    bool HasNewer(const InTree& inTree) const { return Next(-1, inTree) != 0; }

    /// 0 at the head, else the place that is shown, 1 to 10.
    int Position() const { return m_position; }
    /// The step at `place`, 1 to 10. Raises `kErrSubscript` for any other place.
    const Step& At(int place) const;

    /// Gives the steps with the page `before` the page `after` in its place.
    void Repage(const QString& before, const QString& after);

    bool walking = false; ///< Back or Forward runs

private:
    int Next(int direction, const InTree& inTree) const;
    const Step* Move(int direction, const InTree& inTree);

    std::array<Step, kPlaces> m_steps;
    int m_position = 0;
};

} // namespace kelvado
