#include "Icons.h"

#include <QPainter>
#include <QPainterPath>

namespace kelvado {

namespace {

// All icons are drawn on a grid of 24 × 24 units with 3 units of air around them.
constexpr qreal kGrid = 24;
constexpr qreal kStroke = 1.75;

QPainterPath Polyline(std::initializer_list<QPointF> points)
{
    QPainterPath path(*points.begin());
    for (const QPointF& point : points)
        path.lineTo(point);
    return path;
}

QPainterPath Closed(std::initializer_list<QPointF> points)
{
    QPainterPath path = Polyline(points);
    path.closeSubpath();
    return path;
}

void AddPlus(QPainterPath& path, QPointF centre, qreal arm)
{
    path.moveTo(centre.x() - arm, centre.y());
    path.lineTo(centre.x() + arm, centre.y());
    path.moveTo(centre.x(), centre.y() - arm);
    path.lineTo(centre.x(), centre.y() + arm);
}

void AddGlobe(QPainterPath& path, QPointF centre, qreal radius)
{
    path.addEllipse(centre, radius, radius);
    path.addEllipse(centre, radius * 0.42, radius);
    path.moveTo(centre.x() - radius, centre.y());
    path.lineTo(centre.x() + radius, centre.y());
}

/// A frame of film with its two rows of holes.
void AddFilm(QPainterPath& path, const QRectF& frame)
{
    path.addRoundedRect(frame, 1.5, 1.5);
    const qreal hole = 2.4;
    for (const qreal share : {0.25, 0.5, 0.75}) {
        const qreal y = frame.top() + frame.height() * share;
        path.moveTo(frame.left(), y);
        path.lineTo(frame.left() + hole, y);
        path.moveTo(frame.right() - hole, y);
        path.lineTo(frame.right(), y);
    }
}

void AddPencil(QPainterPath& path, QPointF tip, qreal length)
{
    const qreal thick = length * 0.27;
    const QPointF up(length, -length);
    path.addPath(Closed({tip, tip + QPointF(0.08 * length, -0.36 * length), tip + up + QPointF(-thick, 0) + QPointF(0.0, 0.0),
                         tip + up + QPointF(0, thick), tip + QPointF(0.36 * length, -0.08 * length)}));
}

/// Strokes of an icon; `added` is the part in the accent colour, with `halo` the disc that is kept clear behind it.
struct Strokes
{
    QPainterPath main;
    QPainterPath added;
    QPainterPath front; // drawn like `main`, on ground cleared by `frontHalo`
    QPainterPath frontHalo;
};

void PlusAtCorner(Strokes& strokes)
{
    AddPlus(strokes.added, {19.25, 5.25}, 3);
}

Strokes StrokesOf(Icon icon)
{
    Strokes strokes;
    QPainterPath& path = strokes.main;
    switch (icon) {
    case Icon::Back:
        path = Polyline({{20, 12}, {4.5, 12}});
        path.addPath(Polyline({{11, 5.5}, {4.5, 12}, {11, 18.5}}));
        break;
    case Icon::Forward:
        path = Polyline({{4, 12}, {19.5, 12}});
        path.addPath(Polyline({{13, 5.5}, {19.5, 12}, {13, 18.5}}));
        break;
    case Icon::New:
        path = Closed({{5.5, 3.5}, {13.5, 3.5}, {18.5, 8.5}, {18.5, 20.5}, {5.5, 20.5}});
        path.addPath(Polyline({{13.5, 3.5}, {13.5, 8.5}, {18.5, 8.5}}));
        AddPlus(strokes.added, {12, 14.5}, 3);
        break;
    case Icon::Open:
        path = Polyline({{3.5, 19.5}, {3.5, 4.5}, {9.5, 4.5}, {11.5, 7}, {18.5, 7}, {18.5, 10.5}});
        path.addPath(Closed({{3.5, 19.5}, {6.5, 10.5}, {21.5, 10.5}, {18.5, 19.5}}));
        break;
    case Icon::Save:
        path = Closed({{3.5, 3.5}, {16.5, 3.5}, {20.5, 7.5}, {20.5, 20.5}, {3.5, 20.5}});
        path.addPath(Polyline({{7.5, 3.5}, {7.5, 8.5}, {14.5, 8.5}, {14.5, 3.5}}));
        path.addPath(Polyline({{7, 20.5}, {7, 13}, {17, 13}, {17, 20.5}}));
        break;
    case Icon::Print:
        path = Polyline({{7, 8.5}, {7, 3.5}, {17, 3.5}, {17, 8.5}});
        path.addPath(Polyline({{7, 17}, {3.5, 17}, {3.5, 8.5}, {20.5, 8.5}, {20.5, 17}, {17, 17}}));
        path.addRect(QRectF(7, 13.5, 10, 7));
        break;
    case Icon::Refresh:
        path.arcMoveTo(QRectF(4, 4, 16, 16), 20);
        path.arcTo(QRectF(4, 4, 16, 16), 20, 310);
        path.addPath(Polyline({{19.75, 3.75}, {19.75, 9.25}, {14.25, 9.25}}));
        break;
    case Icon::AddFilter:
        path = Closed({{3.5, 4.5}, {20.5, 4.5}, {14, 12}, {14, 17.5}, {10, 20.5}, {10, 12}});
        strokes.frontHalo.addEllipse(QPointF(18.75, 17.25), 4.2, 4.2);
        AddPlus(strokes.added, {18.75, 17.25}, 3);
        break;
    case Icon::Delete:
        path = Polyline({{3.5, 6.5}, {20.5, 6.5}});
        path.addPath(Polyline({{9, 6.5}, {9, 3.5}, {15, 3.5}, {15, 6.5}}));
        path.addPath(Polyline({{5.75, 6.5}, {6.75, 20.5}, {17.25, 20.5}, {18.25, 6.5}}));
        path.addPath(Polyline({{10, 10.5}, {10, 16.5}}));
        path.addPath(Polyline({{14, 10.5}, {14, 16.5}}));
        break;
    case Icon::AddFromWeb:
        AddFilm(path, QRectF(2.5, 3.5, 12, 13.5));
        strokes.frontHalo.addEllipse(QPointF(15.75, 16.25), 7, 7);
        AddGlobe(strokes.front, {15.75, 16.25}, 5);
        PlusAtCorner(strokes);
        break;
    case Icon::AddFromShop:
        path.addEllipse(QPointF(10.5, 13.5), 7.75, 7.75);
        path.addEllipse(QPointF(10.5, 13.5), 2.25, 2.25);
        strokes.frontHalo.addEllipse(QPointF(19.25, 5.25), 5.2, 5.2);
        PlusAtCorner(strokes);
        break;
    case Icon::AddByHand:
        AddPencil(path, {3.5, 20.5}, 13);
        strokes.frontHalo.addEllipse(QPointF(19.25, 5.25), 4.4, 4.4);
        PlusAtCorner(strokes);
        break;
    case Icon::FilmList:
        path.addRoundedRect(QRectF(3, 4, 18, 16), 2, 2);
        path.addPath(Polyline({{7.5, 4}, {7.5, 20}}));
        path.addPath(Polyline({{16.5, 4}, {16.5, 20}}));
        path.addPath(Polyline({{3, 12}, {21, 12}}));
        for (const qreal y : {8.0, 16.0}) {
            path.addPath(Polyline({{3, y}, {7.5, y}}));
            path.addPath(Polyline({{16.5, y}, {21, y}}));
        }
        break;
    case Icon::FilmAdd:
        path.addEllipse(QPointF(12, 12), 9, 9);
        AddPlus(strokes.added, {12, 12}, 4.25);
        break;
    case Icon::Pencil:
        AddPencil(path, {3.5, 20.5}, 16);
        path.addPath(Polyline({{14.2, 6.3}, {17.7, 9.8}}));
        break;
    case Icon::People:
        path.addEllipse(QPointF(9, 8), 3.75, 3.75);
        path.moveTo(2.5, 20);
        path.cubicTo({2.5, 12.6}, {15.5, 12.6}, {15.5, 20});
        path.arcMoveTo(QRectF(12.5, 4.25, 7.5, 7.5), 125);
        path.arcTo(QRectF(12.5, 4.25, 7.5, 7.5), 125, -215);
        path.moveTo(17.5, 14.6);
        path.cubicTo({20, 15.2}, {21.5, 17}, {21.5, 20});
        break;
    case Icon::Globe:
        AddGlobe(path, {12, 12}, 9);
        break;
    case Icon::Disc:
        path.addEllipse(QPointF(12, 12), 9, 9);
        path.addEllipse(QPointF(12, 12), 2.75, 2.75);
        break;
    case Icon::CheckOut:
        path = Polyline({{12.5, 4}, {4, 4}, {4, 20}, {12.5, 20}});
        strokes.added = Polyline({{9.5, 12}, {20.5, 12}});
        strokes.added.addPath(Polyline({{16, 7.5}, {20.5, 12}, {16, 16.5}}));
        break;
    case Icon::CheckIn:
        path = Polyline({{11.5, 4}, {20, 4}, {20, 20}, {11.5, 20}});
        strokes.added = Polyline({{3.5, 12}, {14.5, 12}});
        strokes.added.addPath(Polyline({{10, 7.5}, {14.5, 12}, {10, 16.5}}));
        break;
    }
    return strokes;
}

} // namespace

void DrawIcon(QPainter& painter, Icon icon, const QRectF& place, const QColor& ink, const QColor& accent)
{
    const Strokes strokes = StrokesOf(icon);
    painter.save();
    painter.translate(place.topLeft());
    painter.scale(place.width() / kGrid, place.height() / kGrid);
    painter.setBrush(Qt::NoBrush);

    QPen pen(ink, kStroke, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    painter.setPen(pen);
    if (strokes.frontHalo.isEmpty()) {
        painter.drawPath(strokes.main);
    } else {
        // Clipping leaves the gap round the front part on any ground, also on a transparent one.
        QPainterPath around;
        around.addRect(-kGrid, -kGrid, 3 * kGrid, 3 * kGrid);
        painter.save();
        painter.setClipPath(around.subtracted(strokes.frontHalo));
        painter.drawPath(strokes.main);
        painter.restore();
    }
    painter.drawPath(strokes.front);
    pen.setColor(accent);
    pen.setWidthF(kStroke + 0.25);
    painter.setPen(pen);
    painter.drawPath(strokes.added);
    painter.restore();
}

} // namespace kelvado
