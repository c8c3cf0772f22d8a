#pragma once

#include <QColor>
#include <QRectF>

#include <random>

class QPainter;

namespace kelvado {

/// The colours of one cover, from the ground up: `paper` is the lightest and `ink` the darkest of them.
struct CoverColours
{
    QColor ground;
    QColor second;
    QColor mark;
    QColor paper;
    QColor ink;
};

enum class Motif {
    Hills,
    Skyline,
    Rings,
    Planet,
    Woods,
    Lenses,
    Confetti,
    Spotlight,
    Rays,
    Quarters,
    FilmFrames,
    Waves,
    Mesas,
    Stairs,
    Leaves,
    Houses,
};

/// Fills `place` with the motif; nothing is painted outside of it. `dice` decides its proportions.
void DrawMotif(QPainter& painter, Motif motif, const QRectF& place, const CoverColours& colours, std::mt19937& dice);

/// A number from `from` to `to`, and one from 0 to below `count`; unlike the library's distributions these are the same with every
/// compiler.
qreal Between(std::mt19937& dice, qreal from, qreal to);
int Pick(std::mt19937& dice, int count);

} // namespace kelvado
