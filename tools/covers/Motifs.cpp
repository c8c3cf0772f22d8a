#include "Motifs.h"

#include <QPainter>
#include <QPainterPath>

#include <array>
#include <cmath>
#include <numbers>

namespace kelvado {

namespace {

QColor Mix(const QColor& a, const QColor& b, qreal share)
{
    const auto mix = [share](float from, float to) { return from + (to - from) * static_cast<float>(share); };
    return QColor::fromRgbF(mix(a.redF(), b.redF()), mix(a.greenF(), b.greenF()), mix(a.blueF(), b.blueF()));
}

/// The area below a line whose height at `x` (0 to 1 across the place) is a share of the place, measured from its top.
template<typename Height>
QPainterPath Below(const QRectF& place, const Height& height)
{
    constexpr int kSteps = 120;
    QPainterPath path(place.bottomLeft());
    for (int i = 0; i <= kSteps; ++i) {
        const qreal x = static_cast<qreal>(i) / kSteps;
        path.lineTo(place.left() + x * place.width(), place.top() + height(x) * place.height());
    }
    path.lineTo(place.bottomRight());
    path.closeSubpath();
    return path;
}

void Sky(QPainter& painter, const QRectF& place, const QColor& top, const QColor& bottom)
{
    QLinearGradient sky(place.topLeft(), place.bottomLeft());
    sky.setColorAt(0, top);
    sky.setColorAt(1, bottom);
    painter.fillRect(place, sky);
}

void Disc(QPainter& painter, const QRectF& place, qreal x, qreal y, qreal radius, const QColor& colour)
{
    painter.setBrush(colour);
    const qreal reach = radius * std::min(place.width(), place.height());
    painter.drawEllipse(QPointF(place.left() + x * place.width(), place.top() + y * place.height()), reach, reach);
}

void Hills(QPainter& painter, const QRectF& place, const CoverColours& colours, std::mt19937& dice)
{
    Sky(painter, place, colours.ground, Mix(colours.ground, colours.paper, 0.45));
    Disc(painter, place, Between(dice, 0.25, 0.75), Between(dice, 0.25, 0.4), Between(dice, 0.14, 0.24), colours.mark);
    constexpr int kLayers = 5;
    for (int layer = 0; layer < kLayers; ++layer) {
        const qreal depth = static_cast<qreal>(layer) / (kLayers - 1);
        const qreal base = 0.48 + 0.13 * layer;
        const qreal swing = Between(dice, 0.03, 0.07);
        const qreal waves = Between(dice, 0.7, 1.8);
        const qreal shift = Between(dice, 0, 6.28);
        const auto height = [=](qreal x) {
            return base + swing * std::sin(shift + x * waves * 6.28) + 0.3 * swing * std::sin(shift * 2 + x * waves * 15);
        };
        painter.fillPath(Below(place, height), Mix(Mix(colours.second, colours.paper, 0.35), colours.ink, depth * 0.92));
    }
}

void Mesas(QPainter& painter, const QRectF& place, const CoverColours& colours, std::mt19937& dice)
{
    Sky(painter, place, Mix(colours.ground, colours.mark, 0.2), Mix(colours.mark, colours.paper, 0.55));
    Disc(painter, place, Between(dice, 0.3, 0.7), 0.52, Between(dice, 0.2, 0.3), colours.paper);
    for (int layer = 0; layer < 3; ++layer) {
        const qreal floor = 0.62 + 0.1 * layer;
        std::array<qreal, 3> starts{};
        std::array<qreal, 3> widths{};
        std::array<qreal, 3> tops{};
        for (std::size_t i = 0; i < starts.size(); ++i) {
            starts[i] = Between(dice, -0.1, 0.95);
            widths[i] = Between(dice, 0.1, 0.28);
            tops[i] = Between(dice, 0.08, 0.22) * (1 - 0.2 * layer);
        }
        const auto height = [&](qreal x) {
            qreal top = floor;
            for (std::size_t i = 0; i < starts.size(); ++i) {
                const qreal inside = std::min(x - starts[i], starts[i] + widths[i] - x);
                if (inside > -0.04)
                    top = std::min(top, floor - tops[i] * std::clamp((inside + 0.04) / 0.05, 0.0, 1.0));
            }
            return top;
        };
        painter.fillPath(Below(place, height), Mix(colours.second, colours.ink, 0.1 + layer * 0.4));
    }
}

void Skyline(QPainter& painter, const QRectF& place, const CoverColours& colours, std::mt19937& dice)
{
    Sky(painter, place, Mix(colours.ink, colours.ground, 0.5), Mix(colours.ground, colours.mark, 0.35));
    Disc(painter, place, Between(dice, 0.2, 0.8), Between(dice, 0.2, 0.32), Between(dice, 0.08, 0.14),
         Mix(colours.mark, colours.paper, 0.5));
    const qreal unit = place.width() / 60;
    for (int layer = 0; layer < 3; ++layer) {
        const QColor wall = Mix(Mix(colours.ground, colours.second, 0.6), colours.ink, 0.35 + layer * 0.3);
        for (qreal x = place.left() - unit * Pick(dice, 5); x < place.right();) {
            const qreal width = unit * (5 + Pick(dice, 5));
            const qreal top = place.top() + place.height() * (Between(dice, 0.36, 0.62) + layer * 0.13);
            painter.fillRect(QRectF(x, top, width + 0.5, place.bottom() - top), wall);
            for (qreal row = top + unit * 1.5; row < place.bottom() - unit * 2; row += unit * 2.4) {
                for (qreal column = x + unit; column + unit * 1.2 < x + width; column += unit * 2) {
                    if (Pick(dice, 100) < 14 + layer * 5)
                        painter.fillRect(QRectF(column, row, unit * 0.9, unit * 1.3), Mix(wall, colours.mark, 0.45 + layer * 0.25));
                }
            }
            x += width + unit * Pick(dice, 2);
        }
    }
}

void Rings(QPainter& painter, const QRectF& place, const CoverColours& colours, std::mt19937& dice)
{
    painter.fillRect(place, colours.ground);
    const qreal reach = std::hypot(place.width(), place.height()) * 0.62;
    QPointF centre(place.left() + place.width() * Between(dice, 0.35, 0.65), place.top() + place.height() * Between(dice, 0.35, 0.5));
    const QPointF drift(Between(dice, -0.012, 0.012) * place.width(), Between(dice, 0.0, 0.012) * place.height());
    constexpr int kRings = 13;
    for (int ring = 0; ring < kRings; ++ring) {
        painter.setBrush(ring % 2 == 0 ? colours.second : colours.ground);
        const qreal radius = reach * std::pow(1 - static_cast<qreal>(ring) / kRings, 1.25);
        painter.drawEllipse(centre, radius, radius);
        centre += drift;
    }
    painter.setBrush(colours.mark);
    painter.drawEllipse(centre, reach * 0.075, reach * 0.075);
}

void Planet(QPainter& painter, const QRectF& place, const CoverColours& colours, std::mt19937& dice)
{
    Sky(painter, place, colours.ink, Mix(colours.ink, colours.ground, 0.85));
    for (int star = 0; star < 110; ++star) {
        const qreal size = Between(dice, 0.8, 2.6);
        painter.setBrush(Mix(colours.ground, colours.paper, Between(dice, 0.35, 1)));
        painter.drawEllipse(QPointF(Between(dice, place.left(), place.right()), Between(dice, place.top(), place.bottom())), size, size);
    }
    const QPointF centre(place.left() + place.width() * Between(dice, 0.4, 0.6), place.top() + place.height() * Between(dice, 0.4, 0.5));
    const qreal radius = std::min(place.width(), place.height()) * Between(dice, 0.24, 0.32);
    const qreal tilt = Between(dice, -28, 28);
    const QRectF orbit(-radius * 1.75, -radius * 0.42, radius * 3.5, radius * 0.84);
    painter.save();
    painter.translate(centre);
    painter.rotate(tilt);
    painter.setPen(QPen(colours.second, radius * 0.07));
    painter.setBrush(Qt::NoBrush);
    painter.drawArc(orbit, 0, 180 * 16);
    QLinearGradient light(-radius, -radius, radius, radius);
    light.setColorAt(0, Mix(colours.mark, colours.paper, 0.4));
    light.setColorAt(0.55, colours.mark);
    light.setColorAt(1, Mix(colours.mark, colours.ink, 0.75));
    painter.setPen(Qt::NoPen);
    painter.setBrush(light);
    painter.drawEllipse(QPointF(0, 0), radius, radius);
    painter.setPen(QPen(Mix(colours.second, colours.paper, 0.3), radius * 0.07));
    painter.setBrush(Qt::NoBrush);
    painter.drawArc(orbit, 180 * 16, 180 * 16);
    painter.restore();
}

void Branch(QPainter& painter, QPointF from, qreal angle, qreal length, qreal thick, std::mt19937& dice)
{
    const QPointF to = from + QPointF(std::cos(angle), std::sin(angle)) * length;
    QPen pen = painter.pen();
    pen.setWidthF(thick);
    painter.setPen(pen);
    painter.drawLine(from, to);
    if (length < 14)
        return;
    for (const int side : {-1, 1})
        Branch(painter, to, angle + side * Between(dice, 0.22, 0.6), length * Between(dice, 0.6, 0.82), thick * 0.66, dice);
}

void Woods(QPainter& painter, const QRectF& place, const CoverColours& colours, std::mt19937& dice)
{
    Sky(painter, place, Mix(colours.ground, colours.ink, 0.45), Mix(colours.ground, colours.second, 0.7));
    Disc(painter, place, Between(dice, 0.3, 0.7), Between(dice, 0.26, 0.38), Between(dice, 0.2, 0.3), colours.mark);
    painter.fillPath(Below(place, [](qreal x) { return 0.86 + 0.03 * std::sin(x * 5); }), colours.ink);
    constexpr qreal kPlaces[] = {0.06, 0.3, 0.72, 0.95};
    for (const qreal x : kPlaces) {
        painter.setPen(QPen(colours.ink, 1, Qt::SolidLine, Qt::RoundCap));
        const qreal length = place.height() * Between(dice, 0.13, 0.19);
        Branch(painter, QPointF(place.left() + place.width() * (x + Between(dice, -0.05, 0.05)), place.top() + place.height() * 0.9),
               -std::numbers::pi / 2 + Between(dice, -0.1, 0.1), length, length * 0.14, dice);
    }
    painter.setPen(Qt::NoPen);
}

void Lenses(QPainter& painter, const QRectF& place, const CoverColours& colours, std::mt19937& dice)
{
    Sky(painter, place, colours.ground, Mix(colours.ground, colours.paper, 0.25));
    const qreal side = std::min(place.width(), place.height());
    const qreal radius = side * Between(dice, 0.25, 0.31);
    const qreal lean = Between(dice, -0.7, 0.7);
    const QPointF apart = QPointF(std::cos(lean), std::sin(lean)) * radius * Between(dice, 0.5, 0.68);
    QPainterPath left;
    left.addEllipse(place.center() - apart, radius, radius);
    QPainterPath right;
    right.addEllipse(place.center() + apart, radius, radius);
    painter.fillPath(left, colours.second);
    painter.fillPath(right, colours.mark);
    painter.fillPath(left.intersected(right), colours.paper);
}

void Confetti(QPainter& painter, const QRectF& place, const CoverColours& colours, std::mt19937& dice)
{
    painter.fillRect(place, colours.ground);
    const QColor inks[] = {colours.second, colours.mark, colours.paper, Mix(colours.second, colours.mark, 0.5)};
    constexpr int kColumns = 4;
    const qreal cell = place.width() / kColumns;
    const int rows = static_cast<int>(std::ceil(place.height() / cell));
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < kColumns; ++column) {
            const QPointF centre(place.left() + (column + 0.5) * cell, place.top() + (row + 0.5) * cell);
            painter.save();
            painter.translate(centre);
            painter.rotate(45 * Pick(dice, 8));
            painter.setBrush(inks[Pick(dice, 4)]);
            const qreal size = cell * 0.36;
            switch (Pick(dice, 5)) {
            case 0:
                painter.drawEllipse(QPointF(0, 0), size, size);
                break;
            case 1:
                painter.drawRoundedRect(QRectF(-size, -size * 0.36, 2 * size, size * 0.72), size * 0.36, size * 0.36);
                break;
            case 2:
                painter.drawPie(QRectF(-size, -size, 2 * size, 2 * size), 0, 180 * 16);
                break;
            case 3:
                painter.drawPolygon(QPolygonF({{0, -size}, {size * 0.9, size * 0.7}, {-size * 0.9, size * 0.7}}));
                break;
            default:
                painter.setPen(QPen(painter.brush().color(), size * 0.32));
                painter.setBrush(Qt::NoBrush);
                painter.drawEllipse(QPointF(0, 0), size * 0.74, size * 0.74);
                painter.setPen(Qt::NoPen);
            }
            painter.restore();
        }
    }
}

void Spotlight(QPainter& painter, const QRectF& place, const CoverColours& colours, std::mt19937& dice)
{
    Sky(painter, place, Mix(colours.ground, colours.ink, 0.55), colours.ground);
    const qreal stage = place.top() + place.height() * 0.84;
    painter.fillRect(QRectF(place.left(), stage, place.width(), place.bottom() - stage), Mix(colours.ground, colours.ink, 0.7));
    for (int beam = 0; beam < 3; ++beam) {
        const qreal foot = place.left() + place.width() * (0.28 + 0.22 * beam);
        const qreal lamp = place.left() + place.width() * Between(dice, 0.0, 1.0);
        const qreal reach = place.width() * Between(dice, 0.12, 0.17);
        QColor light = beam == 1 ? colours.paper : colours.mark;
        light.setAlphaF(beam == 1 ? 0.5F : 0.35F);
        painter.setBrush(light);
        painter.drawPolygon(QPolygonF({{lamp, place.top() - 40}, {foot + reach, stage + 26}, {foot - reach, stage + 26}}));
        painter.drawEllipse(QPointF(foot, stage + 26), reach, reach * 0.24);
    }
    for (int fold = 0; fold < 7; ++fold) {
        const qreal width = place.width() * 0.035;
        const QColor cloth = Mix(colours.second, colours.ink, fold % 2 == 0 ? 0.1 : 0.4);
        const qreal drop = place.height() * (1 - 0.02 * (fold % 3));
        painter.fillRect(QRectF(place.left() + fold * width, place.top(), width + 0.5, drop), cloth);
        painter.fillRect(QRectF(place.right() - (fold + 1) * width, place.top(), width + 0.5, drop), cloth);
    }
}

void Rays(QPainter& painter, const QRectF& place, const CoverColours& colours, std::mt19937& dice)
{
    painter.fillRect(place, colours.ground);
    const QPointF centre(place.left() + place.width() * Between(dice, 0.3, 0.7), place.top() + place.height() * Between(dice, 0.55, 0.75));
    const qreal reach = std::hypot(place.width(), place.height());
    constexpr int kRays = 18;
    const qreal turn = Between(dice, 0, 1);
    painter.setBrush(colours.second);
    for (int ray = 0; ray < kRays; ++ray) {
        const qreal from = 2 * std::numbers::pi * (ray + turn) / kRays;
        const qreal to = from + std::numbers::pi / kRays;
        painter.drawPolygon(QPolygonF(
            {centre, centre + QPointF(std::cos(from), std::sin(from)) * reach, centre + QPointF(std::cos(to), std::sin(to)) * reach}));
    }
    Disc(painter, place, (centre.x() - place.left()) / place.width(), (centre.y() - place.top()) / place.height(), 0.24, colours.mark);
    const qreal base = Between(dice, 0.76, 0.84);
    painter.fillPath(Below(place, [base](qreal x) { return base + 0.02 * std::sin(x * 9) + 0.05 * x; }), colours.ink);
}

void Quarters(QPainter& painter, const QRectF& place, const CoverColours& colours, std::mt19937& dice)
{
    painter.fillRect(place, colours.paper);
    const QColor inks[] = {colours.ground, colours.second, colours.mark, colours.ink};
    constexpr int kColumns = 4;
    const qreal cell = place.width() / kColumns;
    const int rows = static_cast<int>(std::ceil(place.height() / cell));
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < kColumns; ++column) {
            const QRectF box(place.left() + column * cell, place.top() + row * cell, cell, cell);
            const int ground = Pick(dice, 5);
            if (ground < 4)
                painter.fillRect(box.adjusted(0, 0, 0.5, 0.5), inks[ground]);
            const int front = (ground + 1 + Pick(dice, 3)) % 4;
            const int corner = Pick(dice, 5);
            painter.save();
            painter.setClipRect(box, Qt::IntersectClip);
            painter.setBrush(inks[front]);
            if (corner < 4)
                painter.drawEllipse(QPointF(corner % 2 == 0 ? box.left() : box.right(), corner < 2 ? box.top() : box.bottom()), cell, cell);
            else
                painter.drawEllipse(box.center(), cell * 0.3, cell * 0.3);
            painter.restore();
        }
    }
}

void FilmFrames(QPainter& painter, const QRectF& place, const CoverColours& colours, std::mt19937& dice)
{
    Sky(painter, place, colours.ground, Mix(colours.ground, colours.ink, 0.4));
    painter.save();
    painter.translate(place.center());
    painter.rotate(Between(dice, -16, 16));
    const qreal width = place.width() * 0.62;
    const qreal height = place.height() * 1.5;
    painter.fillRect(QRectF(-width / 2, -height / 2, width, height), colours.ink);
    const qreal frame = width * 0.52;
    const QColor shades[] = {colours.second, colours.mark, colours.paper};
    const int first = Pick(dice, 3);
    for (int i = -4; i <= 4; ++i) {
        painter.setBrush(shades[(i + 9 + first) % 3]);
        painter.drawRoundedRect(QRectF(-width * 0.34, i * frame - frame * 0.44, width * 0.68, frame * 0.88), 6, 6);
        painter.setBrush(Mix(colours.ground, colours.paper, 0.6));
        for (int hole = 0; hole < 4; ++hole) {
            const qreal y = i * frame - frame * 0.42 + hole * frame / 4;
            for (const qreal x : {-width * 0.46, width * 0.4})
                painter.drawRoundedRect(QRectF(x, y, width * 0.06, frame * 0.13), 2, 2);
        }
    }
    painter.restore();
}

void Waves(QPainter& painter, const QRectF& place, const CoverColours& colours, std::mt19937& dice)
{
    Sky(painter, place, colours.ground, Mix(colours.ground, colours.paper, 0.5));
    Disc(painter, place, Between(dice, 0.3, 0.7), Between(dice, 0.34, 0.44), Between(dice, 0.16, 0.22), colours.mark);
    constexpr int kLayers = 9;
    for (int layer = 0; layer < kLayers; ++layer) {
        const qreal base = 0.44 + 0.065 * layer;
        const qreal shift = Between(dice, 0, 6.28);
        const qreal waves = 2.2 + 0.25 * layer;
        const auto height = [=](qreal x) { return base + 0.014 * std::abs(std::sin(shift + x * waves * 3.14)) * (1 + layer * 0.35); };
        painter.fillPath(Below(place, height), Mix(Mix(colours.second, colours.paper, 0.4 - 0.05 * layer), colours.ink, 0.11 * layer));
    }
}

void Stairs(QPainter& painter, const QRectF& place, const CoverColours& colours, std::mt19937& dice)
{
    Sky(painter, place, Mix(colours.ground, colours.ink, 0.3), colours.ground);
    constexpr int kSteps = 9;
    const bool mirrored = Pick(dice, 2) == 1;
    const qreal width = place.width() / kSteps;
    const qreal rise = place.height() * Between(dice, 0.055, 0.075);
    for (int step = 0; step < kSteps; ++step) {
        const qreal left = place.left() + (mirrored ? kSteps - 1 - step : step) * width;
        const qreal top = place.bottom() - place.height() * 0.16 - rise * step;
        painter.fillRect(QRectF(left, top, width + 0.5, place.bottom() - top), Mix(colours.second, colours.ink, 0.85 - 0.09 * step));
    }
    const qreal door = place.left() + (mirrored ? 0.0 : kSteps - 1.0) * width;
    const qreal sill = place.bottom() - place.height() * 0.16 - rise * (kSteps - 1);
    painter.setBrush(colours.mark);
    painter.drawRect(QRectF(door + width * 0.2, sill - width * 1.5, width * 0.6, width * 1.5));
    QColor glow = colours.mark;
    glow.setAlphaF(0.22F);
    painter.setBrush(glow);
    const qreal far = mirrored ? place.right() : place.left();
    painter.drawPolygon(QPolygonF({{door + width / 2, sill - width * 1.5},
                                   {door + width / 2, sill},
                                   {far, place.bottom()},
                                   {far, place.bottom() - place.height() * 0.4}}));
}

void Leaf(QPainter& painter, QPointF at, qreal angle, qreal length, const QColor& colour)
{
    QPainterPath leaf;
    leaf.quadTo({length * 0.45, -length * 0.36}, {length, 0});
    leaf.quadTo({length * 0.45, length * 0.36}, {0, 0});
    painter.save();
    painter.translate(at);
    painter.rotate(angle);
    painter.fillPath(leaf, colour);
    painter.restore();
}

void Leaves(QPainter& painter, const QRectF& place, const CoverColours& colours, std::mt19937& dice)
{
    Sky(painter, place, Mix(colours.paper, colours.ground, 0.25), Mix(colours.paper, colours.ground, 0.6));
    Disc(painter, place, Between(dice, 0.35, 0.65), Between(dice, 0.3, 0.4), Between(dice, 0.24, 0.32), colours.mark);
    constexpr int kStems = 5;
    for (int stem = 0; stem < kStems; ++stem) {
        const QColor colour = Mix(colours.second, colours.ink, 0.15 * stem);
        const QPointF foot(place.left() + place.width() * (0.12 + 0.19 * stem), place.bottom() + 20);
        const qreal height = place.height() * Between(dice, 0.6, 0.95);
        const qreal lean = place.width() * Between(dice, -0.16, 0.16);
        QPainterPath line(foot);
        line.quadTo(foot + QPointF(0, -height * 0.6), foot + QPointF(lean, -height));
        painter.strokePath(line, QPen(colour, 5, Qt::SolidLine, Qt::RoundCap));
        constexpr int kPairs = 7;
        for (int pair = 1; pair <= kPairs; ++pair) {
            const qreal along = static_cast<qreal>(pair) / kPairs;
            const qreal length = place.width() * 0.17 * (1.15 - along * 0.6);
            const qreal rise = -line.angleAtPercent(along);
            Leaf(painter, line.pointAtPercent(along), rise - 42, length, colour);
            Leaf(painter, line.pointAtPercent(along), rise + 42, length, colour);
        }
    }
}

void Houses(QPainter& painter, const QRectF& place, const CoverColours& colours, std::mt19937& dice)
{
    Sky(painter, place, Mix(colours.ground, colours.ink, 0.35), Mix(colours.ground, colours.paper, 0.35));
    Disc(painter, place, Between(dice, 0.15, 0.85), Between(dice, 0.14, 0.24), Between(dice, 0.07, 0.11), colours.paper);
    const QColor walls[] = {colours.second, Mix(colours.second, colours.paper, 0.3), Mix(colours.ground, colours.ink, 0.35),
                            Mix(colours.mark, colours.second, 0.45)};
    for (int row = 0; row < 3; ++row) {
        const qreal floor = place.top() + place.height() * (0.66 + 0.2 * row);
        for (qreal x = place.left() - place.width() * Between(dice, 0.02, 0.14); x < place.right();) {
            const qreal width = place.width() * Between(dice, 0.14, 0.2);
            const qreal height = place.height() * Between(dice, 0.14, 0.26);
            const qreal roof = width * Between(dice, 0.35, 0.6);
            const QColor wall = Mix(walls[Pick(dice, 4)], colours.ink, 0.12 * row);
            const QRectF front(x, floor - height, width, height + place.height() * 0.3);
            painter.fillRect(front, wall);
            painter.setBrush(Mix(colours.ink, wall, 0.25));
            painter.drawPolygon(QPolygonF(
                {{x - width * 0.05, floor - height}, {x + width / 2, floor - height - roof}, {x + width * 1.05, floor - height}}));
            for (int window = 0; window < 4; ++window) {
                const bool lit = Pick(dice, 3) == 0;
                const int storey = window / 2;
                const QPointF at(x + width * (window % 2 == 0 ? 0.2 : 0.58), floor - height + width * (0.22 + 0.5 * storey));
                painter.fillRect(QRectF(at, QSizeF(width * 0.22, width * 0.3)), lit ? colours.mark : Mix(wall, colours.ink, 0.55));
            }
            x += width * Between(dice, 1.0, 1.12);
        }
    }
}

} // namespace

qreal Between(std::mt19937& dice, qreal from, qreal to)
{
    return from + (to - from) * (static_cast<qreal>(dice()) / 4294967296.0);
}

int Pick(std::mt19937& dice, int count)
{
    return static_cast<int>(dice() % static_cast<quint32>(count));
}

void DrawMotif(QPainter& painter, Motif motif, const QRectF& place, const CoverColours& colours, std::mt19937& dice)
{
    using Draw = void (*)(QPainter&, const QRectF&, const CoverColours&, std::mt19937&);
    // In the order of Motif.
    constexpr Draw kDraws[] = {Hills, Skyline,  Rings,      Planet, Woods, Lenses, Confetti, Spotlight,
                               Rays,  Quarters, FilmFrames, Waves,  Mesas, Stairs, Leaves,   Houses};
    painter.save();
    painter.setClipRect(place, Qt::IntersectClip);
    painter.setPen(Qt::NoPen);
    kDraws[static_cast<int>(motif)](painter, place, colours, dice);
    painter.restore();
}

} // namespace kelvado
