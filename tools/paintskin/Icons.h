#pragma once

#include <QColor>
#include <QRectF>

class QPainter;

namespace kelvado {

enum class Icon {
    Back,
    Forward,
    New,
    Open,
    Save,
    Print,
    Refresh,
    AddFilter,
    Delete,
    AddFromWeb,
    AddFromShop,
    AddByHand,
    FilmList,
    FilmAdd,
    Pencil,
    People,
    Globe,
    Disc,
    CheckOut,
    CheckIn,
};

/// Draws a line icon into `place`, which is square. `accent` colours the part that says "add".
void DrawIcon(QPainter& painter, Icon icon, const QRectF& place, const QColor& ink, const QColor& accent);

} // namespace kelvado
