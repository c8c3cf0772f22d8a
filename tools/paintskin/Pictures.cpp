#include "Pictures.h"

#include "Canvas.h"
#include "GifFile.h"
#include "Icons.h"
#include "Palette.h"

#include <QPainterPath>

#include <cmath>
#include <numbers>

namespace kelvado {

namespace {

QPainterPath Star(QPointF centre, qreal radius)
{
    QPainterPath path;
    for (int i = 0; i < 10; ++i) {
        const qreal reach = i % 2 == 0 ? radius : radius * 0.46;
        const qreal angle = -std::numbers::pi / 2 + i * std::numbers::pi / 5;
        const QPointF point = centre + QPointF(reach * std::cos(angle), reach * std::sin(angle));
        if (i == 0)
            path.moveTo(point);
        else
            path.lineTo(point);
    }
    path.closeSubpath();
    return path;
}

void FillStar(QPainter& painter, QPointF centre, qreal radius, const QColor& colour)
{
    painter.setPen(QPen(colour, radius * 0.18, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(colour);
    painter.drawPath(Star(centre, radius * 0.9));
}

// The tree's pictures are drawn on a grid of 16 × 16 units, edges on whole units.

/// A sheet with a turned corner and one letter: a film that is a file.
void DrawFile(QPainter& painter, const Palette& palette, const QColor& colour, QChar letter)
{
    QPainterPath sheet;
    sheet.moveTo(2, 1);
    sheet.lineTo(10, 1);
    sheet.lineTo(14, 5);
    sheet.lineTo(14, 15);
    sheet.lineTo(2, 15);
    sheet.closeSubpath();
    painter.fillPath(sheet, colour);
    QPainterPath corner;
    corner.moveTo(10, 1);
    corner.lineTo(14, 5);
    corner.lineTo(10, 5);
    corner.closeSubpath();
    painter.fillPath(corner, Blend(colour, Qt::white, 0.55));
    QFont font = palette.Font(QFont::Bold);
    font.setPixelSize(10);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(QRectF(2, 4.5, 12, 11), Qt::AlignCenter, letter);
}

/// A disc; `letter` (which may be null) takes the place of its hole.
void DrawDisc(QPainter& painter, const Palette& palette, const QColor& colour, QChar letter)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawEllipse(QPointF(8, 8), 7.25, 7.25);
    if (letter.isNull()) {
        painter.setBrush(Blend(colour, Qt::white, 0.45));
        painter.drawPie(QRectF(0.75, 0.75, 14.5, 14.5), 30 * 16, 45 * 16);
        painter.drawPie(QRectF(0.75, 0.75, 14.5, 14.5), 210 * 16, 45 * 16);
        painter.setBrush(Qt::white);
        painter.drawEllipse(QPointF(8, 8), 2.5, 2.5);
        painter.setBrush(colour);
        painter.drawEllipse(QPointF(8, 8), 1, 1);
        return;
    }
    QFont font = palette.Font(QFont::Bold);
    font.setPixelSize(10);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(QRectF(0, 0.25, 16, 16), Qt::AlignCenter, letter);
}

/// A wide disc with grooves, as large as the picture allows.
void DrawLaserDisc(QPainter& painter, const QColor& colour)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawEllipse(QPointF(8, 8), 7.75, 7.75);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Blend(colour, Qt::white, 0.6), 1));
    for (const qreal radius : {5.5, 3.5})
        painter.drawEllipse(QPointF(8, 8), radius, radius);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawEllipse(QPointF(8, 8), 1.25, 1.25);
}

void DrawTape(QPainter& painter, const QColor& colour)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawRoundedRect(QRectF(0, 3, 16, 10), 1.5, 1.5);
    painter.setBrush(Qt::white);
    painter.drawRoundedRect(QRectF(2, 5, 12, 4), 2, 2);
    painter.setBrush(colour);
    for (const qreal x : {4.0, 12.0})
        painter.drawEllipse(QPointF(x, 7), 1.25, 1.25);
    painter.setBrush(Blend(colour, Qt::white, 0.5));
    painter.drawRect(QRectF(4, 11, 8, 1));
}

void DrawFilmStrip(QPainter& painter, const QColor& colour, const QColor& window)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawRoundedRect(QRectF(1, 2, 14, 12), 1.5, 1.5);
    painter.setBrush(window);
    painter.drawRect(QRectF(5, 3, 6, 4));
    painter.drawRect(QRectF(5, 9, 6, 4));
    painter.setBrush(Qt::white);
    for (const qreal x : {2.0, 12.0}) {
        for (const qreal y : {3.0, 6.0, 9.0, 12.0})
            painter.drawRect(QRectF(x, y, 2, 1));
    }
}

void DrawPerson(QPainter& painter, const QColor& colour, bool known)
{
    QPainterPath shoulders(QPointF(1.75, 14.25));
    shoulders.cubicTo({1.75, 7.25}, {14.25, 7.25}, {14.25, 14.25});
    shoulders.closeSubpath();
    painter.setPen(QPen(colour, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(known ? QBrush(colour) : QBrush(Qt::NoBrush));
    painter.drawEllipse(QPointF(8, 4.75), 2.9, 2.9);
    painter.drawPath(shoulders);
}

void DrawShelf(QPainter& painter, const Palette& palette)
{
    struct Case
    {
        QRectF box;
        const char* role;
    };
    const Case cases[] = {{{1, 2, 3, 10}, "Disc"}, {{5, 4, 3, 8}, "File"}, {{9, 2, 2, 10}, "Gold"}};
    for (const Case& one : cases)
        painter.fillRect(one.box, palette.Colour(one.role));
    QPainterPath leaning;
    leaning.moveTo(11.5, 4.5);
    leaning.lineTo(13.5, 4);
    leaning.lineTo(15.25, 11.5);
    leaning.lineTo(13.25, 12);
    leaning.closeSubpath();
    painter.fillPath(leaning, palette.Colour("Wish"));
    painter.fillRect(QRectF(0, 13, 16, 1.5), palette.Colour("Tape"));
}

void DrawHeart(QPainter& painter, const QColor& colour)
{
    QPainterPath heart(QPointF(8, 14));
    heart.cubicTo({-2.5, 6.75}, {3, -0.75}, {8, 4.5});
    heart.cubicTo({13, -0.75}, {18.5, 6.75}, {8, 14});
    painter.setPen(QPen(colour, 1.75, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Blend(colour, Qt::white, 0.82));
    painter.drawPath(heart);
}

void DrawTreePicture(QPainter& painter, const Palette& palette, int number)
{
    switch (number) {
    case 1:
        return DrawFile(painter, palette, palette.Colour("File"), u'D');
    case 2:
        return DrawDisc(painter, palette, palette.Colour("DiscOld"), u'V');
    case 3:
        return DrawDisc(painter, palette, palette.Colour("Disc"), QChar());
    case 4:
        return DrawTape(painter, palette.Colour("Tape"));
    case 5:
        return DrawFilmStrip(painter, palette.Colour("Neutral"), Blend(palette.Colour("Neutral"), Qt::white, 0.8));
    case 6:
        return DrawPerson(painter, palette.Colour("Neutral"), false);
    case 7:
        return DrawPerson(painter, palette.Colour("Accent"), true);
    case 8:
        return DrawDisc(painter, palette, palette.Colour("DiscOld"), u'S');
    case 9:
        return DrawLaserDisc(painter, palette.Colour("Gold"));
    case 10:
        return DrawFile(painter, palette, palette.Colour("DiscOld"), u'X');
    case 11:
        return DrawShelf(painter, palette);
    case 12:
        return DrawFilmStrip(painter, Blend(palette.Colour("Neutral"), Qt::white, 0.25), Qt::white);
    default:
        return DrawHeart(painter, palette.Colour("Wish"));
    }
}

/// `picture` with a white rim of `width` pixels, which keeps it visible on the coloured ground of a selected row.
QImage Rimmed(const QImage& picture, int width)
{
    QImage silhouette = picture;
    QPainter whiten(&silhouette);
    whiten.setCompositionMode(QPainter::CompositionMode_SourceIn);
    whiten.fillRect(silhouette.rect(), Qt::white);
    whiten.end();

    QImage rimmed(picture.size(), picture.format());
    rimmed.fill(Qt::transparent);
    QPainter painter(&rimmed);
    for (int y = -width; y <= width; ++y) {
        for (int x = -width; x <= width; ++x)
            painter.drawImage(x, y, silhouette);
    }
    painter.drawImage(0, 0, picture);
    return rimmed;
}

struct Button
{
    const char* key;
    Icon icon;
};
constexpr Button kButtons[] = {
    {"Back", Icon::Back},
    {"Forward", Icon::Forward},
    {"New", Icon::New},
    {"Open", Icon::Open},
    {"Save", Icon::Save},
    {"Print", Icon::Print},
    {"Refresh", Icon::Refresh},
    {"AddFilter", Icon::AddFilter},
    {"Delete", Icon::Delete},
    {"AddIMDb", Icon::AddFromWeb},
    {"AddDVDEmp", Icon::AddFromShop},
    {"AddManual", Icon::AddByHand},
    {"CheckOut", Icon::CheckOut},
    {"CheckIn", Icon::CheckIn},
    {"Edit", Icon::Pencil},
};

constexpr const char* kCertificates[] = {"NA", "G", "PG", "PG-13", "R", "NC-17"};

constexpr int kSegment = 20; // side of a star's square

/// Ten arcs of a ring that fade behind the one at `head`; a negative `head` leaves all alike.
void DrawRing(QPainter& painter, const Palette& palette, int head)
{
    constexpr int kSpokes = 12;
    const QColor ground = palette.Colour("Window");
    for (int spoke = 0; spoke < kSpokes; ++spoke) {
        const int behind = (head - spoke + kSpokes) % kSpokes;
        const qreal strength = head < 0 ? 0.18 : std::max(0.12, 1 - behind / 9.0);
        painter.setPen(QPen(Blend(ground, palette.Colour(head < 0 ? "Neutral" : "Accent"), strength), 3, Qt::SolidLine, Qt::RoundCap));
        const qreal angle = 2 * std::numbers::pi * spoke / kSpokes - std::numbers::pi / 2;
        const QPointF direction(std::cos(angle), std::sin(angle));
        painter.drawLine(QPointF(16, 16) + direction * 7, QPointF(16, 16) + direction * 12);
    }
}

void DrawAppIcon(QPainter& painter, const Palette& palette, qreal side)
{
    painter.scale(side / 64, side / 64);
    QLinearGradient ground(0, 0, 0, 64);
    const QColor accent = palette.Colour("Accent");
    ground.setColorAt(0, Blend(accent, Qt::white, 0.12));
    ground.setColorAt(1, Blend(accent, Qt::black, 0.28));
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawRoundedRect(QRectF(2, 2, 60, 60), 14, 14);

    // A strip of film whose middle is cut to the letter K.
    painter.setBrush(Qt::white);
    painter.drawRoundedRect(QRectF(13, 12, 12, 40), 2, 2);
    painter.setBrush(Blend(accent, Qt::black, 0.1));
    for (int i = 0; i < 4; ++i)
        painter.drawRoundedRect(QRectF(17, 16 + 9 * i, 4, 5), 1, 1);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::white, 8, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    QPainterPath arms(QPointF(50, 13));
    arms.lineTo(31, 32);
    arms.lineTo(50, 51);
    painter.setClipRect(QRectF(25, 12, 30, 40));
    painter.drawPath(arms);
}

} // namespace

void PaintToolbar(const Palette& palette, const QString& folder)
{
    struct State
    {
        const char* suffix;
        const char* ink;
        qreal ground; // share of the accent behind the icon
        qreal opacity;
    };
    constexpr State kStates[] = {
        {"", "InkMuted", 0, 1}, {"-over", "Accent", 0.12, 1}, {"-down", "Accent", 0.26, 1}, {"-disabled", "InkMuted", 0, 0.38}};
    for (const Button& button : kButtons) {
        for (const State& state : kStates) {
            const QString name = QString::fromLatin1(button.key) + QLatin1String(state.suffix) + u".png"_qs;
            SavePair(folder, name, 24, 24, Qt::transparent, [&](QPainter& painter) {
                QColor ground = palette.Colour("Accent");
                ground.setAlphaF(static_cast<float>(state.ground));
                painter.setPen(Qt::NoPen);
                painter.setBrush(ground);
                painter.drawRoundedRect(QRectF(0, 0, 24, 24), palette.Radius() * 0.75, palette.Radius() * 0.75);
                painter.setOpacity(state.opacity);
                const bool live = state.opacity == 1;
                DrawIcon(painter, button.icon, QRectF(0, 0, 24, 24), palette.Colour(state.ink),
                         palette.Colour(live ? "Accent" : state.ink));
            });
        }
    }
}

void PaintTree(const Palette& palette, const QString& folder)
{
    for (int number = 1; number <= 13; ++number) {
        for (const int scale : {1, 2}) {
            const QImage picture =
                Paint(16, 16, scale, Qt::transparent, [&](QPainter& painter) { DrawTreePicture(painter, palette, number); });
            const QString name = QString::number(number) + u".png"_qs;
            SavePicture(Rimmed(picture, scale), folder + u'/' + (scale == 1 ? name : DoubleName(name)));
        }
    }
}

void PaintCertificates(const Palette& palette, const QString& folder)
{
    const QFont font = palette.Font(QFont::Bold, 1.0);
    for (const char* certificate : kCertificates) {
        const QString text = QString::fromLatin1(certificate);
        const bool known = text != u"NA"_qs;
        const int width = std::max(28, static_cast<int>(std::ceil(QFontMetricsF(font).horizontalAdvance(text))) + 14);
        const QColor ink = palette.Colour(known ? "Ink" : "InkMuted");
        const QImage picture = Paint(width, 24, 2, palette.Colour("Window"), [&](QPainter& painter) {
            painter.setPen(QPen(ink, 1.5));
            painter.drawRoundedRect(QRectF(0.75, 0.75, width - 1.5, 22.5), 4, 4);
            painter.setFont(font);
            painter.drawText(QRectF(0, 0, width, 24), Qt::AlignCenter, known ? text : u"N/A"_qs);
        });
        SavePicture(picture, folder + u'/' + text + u".Gif"_qs);
    }
}

void PaintRatingBar(const Palette& palette, const QString& folder)
{
    const QColor full = palette.Colour("Rating");
    const QColor empty = palette.Colour("RatingEmpty");
    const auto save = [&](const char* name, int width, const Drawing& drawing) {
        SavePicture(Paint(width, kSegment, 2, palette.Colour("Window"), drawing), folder + u'/' + QString::fromLatin1(name));
    };
    constexpr QPointF kCentre(kSegment / 2.0, kSegment / 2.0 + 0.5);
    constexpr qreal kRadius = 8.25;
    save("barYes.gif", kSegment, [&](QPainter& painter) { FillStar(painter, kCentre, kRadius, full); });
    save("barNo.gif", kSegment, [&](QPainter& painter) { FillStar(painter, kCentre, kRadius, empty); });
    save("barHalf.gif", kSegment, [&](QPainter& painter) {
        FillStar(painter, kCentre, kRadius, empty);
        painter.setClipRect(QRectF(0, 0, kSegment / 2.0, kSegment));
        FillStar(painter, kCentre, kRadius, full);
    });
    for (const char* end : {"barLeft.gif", "barRight.gif"})
        save(end, 2, [](QPainter&) {});
    save("barna.gif", kSegment * 10 + 4, [&](QPainter& painter) {
        for (int star = 0; star < 10; ++star)
            FillStar(painter, kCentre + QPointF(2 + star * kSegment, 0), kRadius, Blend(empty, palette.Colour("Window"), 0.4));
    });
}

void PaintNoImage(const Palette& palette, const QString& folder)
{
    const QColor ground = palette.Colour("Strip");
    const QColor mark = Blend(ground, palette.Colour("Neutral"), 0.45);
    const QImage poster = Paint(500, 750, 1, ground, [&](QPainter& painter) {
        QLinearGradient light(0, 0, 0, 750);
        light.setColorAt(0, Blend(ground, Qt::white, 0.35));
        light.setColorAt(1, Blend(ground, palette.Colour("Neutral"), 0.12));
        painter.fillRect(QRectF(0, 0, 500, 750), light);
        DrawIcon(painter, Icon::FilmList, QRectF(150, 235, 200, 200), mark, mark);
        painter.setFont(palette.Font(QFont::Medium, 2.4));
        painter.setPen(palette.Colour("InkMuted"));
        painter.drawText(QRectF(0, 470, 500, 60), Qt::AlignCenter, u"No picture"_qs);
    });
    SavePicture(poster, folder + u"/No Image.jpg"_qs);
}

void PaintBusy(const Palette& palette, const QString& folder)
{
    constexpr int kFrames = 12;
    constexpr int kHundredths = 8;
    for (const int scale : {1, 2}) {
        const auto name = [scale](const QString& plain) { return scale == 1 ? plain : DoubleName(plain); };
        const auto frame = [&](int head) {
            return Paint(32, 32, scale, palette.Colour("Window"), [&](QPainter& painter) { DrawRing(painter, palette, head); });
        };
        QList<QImage> frames;
        for (int head = 0; head < kFrames; ++head)
            frames.append(frame(head));
        SaveGif(folder + u'/' + name(u"working.gif"_qs), frames, kHundredths);
        SaveGif(folder + u'/' + name(u"stop.gif"_qs), {frame(-1)});
    }
}

void PaintAppIcon(const Palette& palette, const QString& folder)
{
    for (const int side : {16, 24, 32, 48, 64, 128, 256}) {
        const QImage icon = Paint(side, side, 1, Qt::transparent, [&](QPainter& painter) { DrawAppIcon(painter, palette, side); });
        SavePicture(icon, folder + u"/kelvado-%1.png"_qs.arg(side));
        if (side == 256)
            SavePicture(icon, folder + u"/kelvado.png"_qs);
    }
}

} // namespace kelvado
