#include "Covers.h"

#include "Motifs.h"
#include "core/Literals.h"

#include <QFontDatabase>
#include <QPainter>
#include <QPainterPath>
#include <QTextLayout>

#include <iterator>

namespace kelvado {

namespace {

constexpr int kWidth = 600;
constexpr int kHeight = 900;
constexpr qreal kMargin = 48;

struct ColourSet
{
    const char* ground;
    const char* second;
    const char* mark;
    const char* paper;
    const char* ink;
};

/// What a genre looks like; the first colouring and motif of a seed are picked from these.
struct Style
{
    QLatin1String genres; // between bars
    ColourSet colours[3];
    Motif motifs[4];
    bool vague = false;
};

// The last one takes the films without a known genre.
const Style kStyles[] = {
    {QLatin1String("|Noir|Film-Noir|Crime|Thriller|Spy|Legal|"),
     {{"#1F2F46", "#3C5A78", "#E9A23B", "#F4EAD5", "#0E1724"},
      {"#3A1F2B", "#7C3A3F", "#E5B25D", "#F5E9DA", "#160C12"},
      {"#25363A", "#4F6F6B", "#E4683A", "#F1EDE0", "#0E1718"}},
     {Motif::Skyline, Motif::Stairs, Motif::Skyline, Motif::Rings}},
    {QLatin1String("|Mystery|Suspense|Political|"),
     {{"#27304F", "#4A5C93", "#E0B04C", "#F2EDE1", "#11152B"},
      {"#B5452C", "#E08447", "#F6D58A", "#FBF1DF", "#31120F"},
      {"#2E4A43", "#6B9080", "#F2C879", "#F6F3E7", "#10201C"}},
     {Motif::Rings, Motif::Stairs, Motif::Houses, Motif::Skyline}},
    {QLatin1String("|Horror|Slasher|Supernatural|Found Footage|"),
     {{"#4A1420", "#8A2A2B", "#E8C9A0", "#F4E8DA", "#12070B"},
      {"#23342F", "#4B6A53", "#D9E2A8", "#F0F1E1", "#0A120F"},
      {"#2B2140", "#5C4480", "#E9D7F0", "#F3EDF5", "#0E0A18"}},
     {Motif::Woods, Motif::Woods, Motif::Houses, Motif::Stairs}},
    {QLatin1String("|Science Fiction|Sci-Fi|Superhero|Disaster|"),
     {{"#123B54", "#2C7DA0", "#F2785C", "#EAF4F4", "#06141F"},
      {"#2D1E52", "#6B4FA0", "#F4A259", "#F5EEF8", "#0E0820"},
      {"#0F4C4A", "#2A9D8F", "#E9C46A", "#F3F6EC", "#051E1F"}},
     {Motif::Planet, Motif::Planet, Motif::Planet, Motif::Rings}},
    {QLatin1String("|Western|"),
     {{"#C56B3E", "#9C4A2F", "#F0B35B", "#FBEBCF", "#35160F"},
      {"#7FA3A1", "#B55A3C", "#E9B872", "#FAF0DC", "#2B1A14"},
      {"#D49A52", "#8C4F31", "#F5D08A", "#FDF3DC", "#3A1D12"}},
     {Motif::Mesas, Motif::Mesas, Motif::Mesas, Motif::Rays}},
    {QLatin1String("|War|Historical|History|Biography|"),
     {{"#6B6B47", "#8D8A5B", "#C8553D", "#F1EAD6", "#22231A"},
      {"#4B5A66", "#7D8B93", "#D99A4E", "#F0ECE2", "#1A2026"},
      {"#8A4B38", "#B97A56", "#F0CF8E", "#F8EEDD", "#2B1511"}},
     {Motif::Rays, Motif::Hills, Motif::Woods, Motif::Quarters}},
    {QLatin1String("|Musical|Music|Dance|Performance|"),
     {{"#5B2A60", "#A23B72", "#F2B84B", "#FBF0E4", "#1F0D24"},
      {"#1F3F66", "#C0474A", "#F4C95D", "#FBF3E2", "#0D1A2D"},
      {"#7A1F3D", "#C44A4A", "#F6D186", "#FBF0E2", "#290A17"}},
     {Motif::Spotlight, Motif::Confetti, Motif::Spotlight, Motif::Spotlight}},
    {QLatin1String("|Comedy|Family|Animated|Animation|Teen|Satire|"),
     {{"#F2B33D", "#E4572E", "#2E7E8C", "#FFF6E3", "#2B2118"},
      {"#3E9C9A", "#F28F5B", "#F7D065", "#FDF6E6", "#12302F"},
      {"#E9799A", "#F4C15D", "#4A7FB5", "#FFF4EE", "#35182A"}},
     {Motif::Confetti, Motif::Quarters, Motif::Houses, Motif::Confetti}},
    {QLatin1String("|Adventure|Fantasy|Action|Martial Arts|Sports|Sport|"),
     {{"#3F7C85", "#2F5D62", "#F2A65A", "#F8F1DF", "#11282B"},
      {"#D9793D", "#8F3B2E", "#F7CF72", "#FCF1DD", "#2B120F"},
      {"#4C6FA5", "#344E7B", "#F5C26B", "#F6F2E8", "#121C33"}},
     {Motif::Hills, Motif::Waves, Motif::Rings, Motif::Rays}},
    {QLatin1String("|Silent|Short|Documentary|Live Action|"),
     {{"#8A7A66", "#B7A58C", "#D9C7A5", "#F4ECDD", "#2A231B"},
      {"#6E7678", "#9AA3A3", "#D8C9A8", "#F1EEE6", "#1E2324"},
      {"#7B6A72", "#A9939A", "#E0C9A6", "#F3ECE6", "#261E22"}},
     {Motif::FilmFrames, Motif::Quarters, Motif::FilmFrames, Motif::Lenses},
     true},
    {QLatin1String("|Romance|Drama|Erotic|Independent|"),
     {{"#D98F7A", "#A8475A", "#F3C98B", "#FBF0E6", "#3A1622"},
      {"#6C8EA4", "#3D5A73", "#EFC28B", "#F6F1E7", "#152430"},
      {"#8FA585", "#4F6F5B", "#EBC57C", "#F7F3E5", "#1B2A20"}},
     {Motif::Lenses, Motif::Waves, Motif::Leaves, Motif::Houses},
     true},
    {QLatin1String(""),
     {{"#5B7C99", "#34506B", "#E8B46A", "#F5F1E8", "#142231"},
      {"#B9805A", "#7C4A3A", "#EFD09A", "#F9F1E4", "#2A1712"},
      {"#6D9A8B", "#3C6658", "#F0C77F", "#F5F3E8", "#142822"}},
     {Motif::Quarters, Motif::Hills, Motif::Leaves, Motif::Waves}},
};

enum class Arrangement { Poster, Band, Frame, Panel, Headline };

struct Look
{
    CoverColours colours;
    Motif motif;
    Arrangement arrangement;
    QString family;
    QFont::Weight weight;
    bool capitals;
};

/// A genre that says little counts only where a film has no other.
const Style& StyleOf(const QStringList& genres)
{
    const auto knows = [](const Style& style, const QString& genre) {
        return QString(style.genres).contains(u'|' + genre + u'|', Qt::CaseInsensitive);
    };
    for (const bool vague : {false, true}) {
        for (const QString& genre : genres) {
            for (const Style& style : kStyles) {
                if (style.vague == vague && knows(style, genre))
                    return style;
            }
        }
    }
    return *std::prev(std::end(kStyles));
}

QString FirstInstalled(std::initializer_list<QLatin1String> families)
{
    const QStringList installed = QFontDatabase::families();
    for (const QLatin1String family : families) {
        if (installed.contains(family))
            return family;
    }
    return u"DejaVu Sans"_s;
}

/// Old films are printed on warmer, paler paper.
QColor Aged(const QColor& colour, int year)
{
    const qreal age = year > 0 ? std::clamp((1950 - year) / 50.0, 0.0, 1.0) * 0.5 : 0;
    float hue = 0;
    float saturation = 0;
    float light = 0;
    colour.getHslF(&hue, &saturation, &light);
    const QColor sepia = QColor::fromHslF(0.095F, saturation * 0.45F, light);
    const auto mix = [age](float a, float b) { return a + (b - a) * static_cast<float>(age); };
    return QColor::fromRgbF(mix(colour.redF(), sepia.redF()), mix(colour.greenF(), sepia.greenF()), mix(colour.blueF(), sepia.blueF()));
}

/// Everything that a film's text and seed decide; front and back of one seed share it.
Look LookOf(const CoverText& text, std::mt19937& dice)
{
    const Style& style = StyleOf(text.genres);
    const ColourSet& set = style.colours[Pick(dice, 3)];
    const auto colour = [&text](const char* name) { return Aged(QColor(QLatin1String(name)), text.year); };
    Look look;
    look.colours = {colour(set.ground), colour(set.second), colour(set.mark), colour(set.paper), colour(set.ink)};
    look.motif = style.motifs[Pick(dice, 4)];

    using enum Arrangement;
    struct Era
    {
        int until; // the last year
        Arrangement arrangements[3];
    };
    constexpr Era kEras[] = {{1939, {Frame, Panel, Frame}},
                             {1959, {Frame, Band, Panel}},
                             {1979, {Band, Headline, Poster}},
                             {1999, {Poster, Headline, Band}},
                             {9999, {Poster, Panel, Headline}}};
    const int year = text.year > 0 ? text.year : 2000;
    const Era* era = std::begin(kEras);
    while (year > era->until && era + 1 != std::end(kEras))
        ++era;
    look.arrangement = era->arrangements[Pick(dice, 3)];

    const int face = Pick(dice, 3);
    if (year < 1950 || (face == 0 && year < 1990)) {
        look.family = FirstInstalled({QLatin1String("EB Garamond"), QLatin1String("DejaVu Serif")});
        look.weight = QFont::Bold;
        look.capitals = year < 1940;
    } else if (face == 1) {
        look.family = FirstInstalled({QLatin1String("Bebas Neue"), QLatin1String("DejaVu Sans Condensed")});
        look.weight = QFont::Bold;
        look.capitals = true;
    } else {
        look.family = FirstInstalled({QLatin1String("Inter Display"), QLatin1String("Inter")});
        look.weight = QFont::ExtraBold;
        look.capitals = false;
    }
    return look;
}

QFont SmallFont(int size, QFont::Weight weight = QFont::Medium)
{
    QFont font(FirstInstalled({QLatin1String("Inter")}));
    font.setPixelSize(size);
    font.setWeight(weight);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

/// Breaks `text` into lines of `width`; words stay whole unless `breakWords`.
/// Gives the height, or -1 where a line is wider than `width`.
qreal LayOut(QTextLayout& layout, qreal width, qreal lineHeight, Qt::Alignment alignment, bool breakWords)
{
    QTextOption option(alignment);
    option.setWrapMode(breakWords ? QTextOption::WrapAtWordBoundaryOrAnywhere : QTextOption::WordWrap);
    layout.setTextOption(option);
    qreal y = 0;
    bool fits = true;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition(QPointF(0, y));
        fits = fits && line.naturalTextWidth() <= width + 0.5;
        y += line.height() * lineHeight;
    }
    layout.endLayout();
    return fits ? y : -1;
}

/// Draws `text` into `place` in the largest size from `most` down to `least` that holds it; at the least size words break,
/// and what is still too much ends in an ellipsis. The block sits at the top, middle or foot of `place` by `alignment`.
/// Returns the rectangle that the text takes.
QRectF DrawFitted(QPainter& painter, const QRectF& place, QString text, QFont font, int most, int least, qreal lineHeight,
                  Qt::Alignment alignment)
{
    constexpr qsizetype kLongest = 1200; // more never fits, and a text of any length stays quick
    if (text.size() > kLongest)
        text = text.left(kLongest) + u'…';
    const Qt::Alignment across = alignment & Qt::AlignHorizontal_Mask;
    QTextLayout layout;
    qreal height = -1;
    for (int size = most; size > least && height < 0; size -= 2) {
        font.setPixelSize(size);
        layout.setText(text);
        layout.setFont(font);
        height = LayOut(layout, place.width(), lineHeight, across, false);
        if (height > place.height())
            height = -1;
    }
    if (height < 0) {
        font.setPixelSize(least);
        layout.setFont(font);
        height = LayOut(layout, place.width(), lineHeight, across, true);
        while (height > place.height() && text.size() > 1) {
            qsizetype kept = text.size() * 9 / 10;
            while (kept > 1 && !text.at(kept - 1).isSpace() && kept > text.size() * 8 / 10)
                --kept;
            if (text.at(kept - 1).isHighSurrogate())
                --kept;
            text = text.left(kept).trimmed() + u'…';
            layout.setText(text);
            height = LayOut(layout, place.width(), lineHeight, across, true);
        }
    }
    qreal top = place.top();
    if (alignment & Qt::AlignBottom)
        top = place.bottom() - height;
    else if (alignment & Qt::AlignVCenter)
        top = place.center().y() - height / 2;
    layout.draw(&painter, QPointF(place.left(), top));
    return QRectF(place.left(), top, place.width(), height);
}

QFont TitleFont(const Look& look)
{
    QFont font(look.family);
    font.setWeight(look.weight);
    font.setHintingPreference(QFont::PreferNoHinting);
    if (look.capitals)
        font.setCapitalization(QFont::AllUppercase);
    return font;
}

void DrawTitle(QPainter& painter, const Look& look, const QRectF& place, const QString& title, int most, Qt::Alignment alignment)
{
    DrawFitted(painter, place, title.simplified(), TitleFont(look), most, 22, 0.98, alignment);
}

QString Year(const CoverText& text)
{
    return text.year > 0 ? QString::number(text.year) : QString();
}

QString DirectorAndYear(const CoverText& text)
{
    QStringList parts{text.director, Year(text)};
    parts.removeAll(QString());
    return parts.join(u"  ·  ");
}

/// One line of small capitals, made smaller where it is too long and in the end cut with an ellipsis.
void DrawLabel(QPainter& painter, const QRectF& place, const QString& text, const QColor& colour, Qt::Alignment alignment)
{
    QFont font = SmallFont(19, QFont::DemiBold);
    font.setLetterSpacing(QFont::AbsoluteSpacing, 2);
    font.setCapitalization(QFont::AllUppercase);
    while (font.pixelSize() > 13 && QFontMetricsF(font).horizontalAdvance(text) > place.width())
        font.setPixelSize(font.pixelSize() - 1);
    painter.setFont(font);
    painter.setPen(colour);
    const QString line = painter.fontMetrics().elidedText(text, Qt::ElideRight, static_cast<int>(place.width()));
    painter.drawText(place, static_cast<int>(alignment) | Qt::TextSingleLine, line);
}

void PaintPoster(QPainter& painter, const Look& look, const CoverText& text, std::mt19937& dice)
{
    const CoverColours& colours = look.colours;
    DrawMotif(painter, look.motif, QRectF(0, 0, kWidth, kHeight * 0.82), colours, dice);
    QLinearGradient shade(0, kHeight * 0.42, 0, kHeight * 0.68);
    QColor clear = colours.ink;
    clear.setAlpha(0);
    shade.setColorAt(0, clear);
    shade.setColorAt(1, colours.ink);
    painter.fillRect(QRectF(0, kHeight * 0.42, kWidth, kHeight * 0.58), shade);
    painter.setPen(colours.paper);
    DrawTitle(painter, look, QRectF(kMargin, 560, kWidth - 2 * kMargin, 240), text.title, 92, Qt::AlignLeft | Qt::AlignBottom);
    painter.fillRect(QRectF(kMargin, 820, 64, 4), colours.mark);
    DrawLabel(painter, QRectF(kMargin, 836, 380, 30), text.director, colours.paper, Qt::AlignLeft | Qt::AlignVCenter);
    DrawLabel(painter, QRectF(kWidth - kMargin - 100, 836, 100, 30), Year(text), colours.paper, Qt::AlignRight | Qt::AlignVCenter);
}

void PaintBand(QPainter& painter, const Look& look, const CoverText& text, std::mt19937& dice)
{
    const CoverColours& colours = look.colours;
    constexpr qreal kBand = 320;
    DrawMotif(painter, look.motif, QRectF(0, kBand, kWidth, kHeight - kBand), colours, dice);
    painter.fillRect(QRectF(0, 0, kWidth, kBand), colours.paper);
    painter.fillRect(QRectF(0, kBand - 10, kWidth, 10), colours.mark);
    DrawLabel(painter, QRectF(kMargin, 34, 380, 30), text.director, colours.ink, Qt::AlignLeft | Qt::AlignVCenter);
    DrawLabel(painter, QRectF(kWidth - kMargin - 100, 34, 100, 30), Year(text), colours.ink, Qt::AlignRight | Qt::AlignVCenter);
    painter.setPen(colours.ink);
    DrawTitle(painter, look, QRectF(kMargin, 76, kWidth - 2 * kMargin, kBand - 108), text.title, 88, Qt::AlignLeft | Qt::AlignBottom);
}

void PaintFrame(QPainter& painter, const Look& look, const CoverText& text, std::mt19937& dice)
{
    const CoverColours& colours = look.colours;
    painter.fillRect(QRectF(0, 0, kWidth, kHeight), colours.paper);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colours.ink, 3));
    painter.drawRect(QRectF(22, 22, kWidth - 44, kHeight - 44));
    painter.setPen(QPen(colours.ink, 1));
    painter.drawRect(QRectF(30, 30, kWidth - 60, kHeight - 60));

    const QRectF picture(64, 64, kWidth - 128, 500);
    QPainterPath window;
    if (Pick(dice, 2) == 0) { // an arch, or a plain window
        window.moveTo(picture.bottomLeft());
        window.lineTo(picture.left(), picture.top() + picture.width() / 2);
        window.arcTo(QRectF(picture.topLeft(), QSizeF(picture.width(), picture.width())), 180, -180);
        window.lineTo(picture.bottomRight());
        window.closeSubpath();
    } else {
        window.addRect(picture);
    }
    painter.save();
    painter.setClipPath(window);
    DrawMotif(painter, look.motif, picture, colours, dice);
    painter.restore();
    painter.setPen(QPen(colours.ink, 3));
    painter.drawPath(window);

    painter.setPen(colours.ink);
    DrawTitle(painter, look, QRectF(64, 588, kWidth - 128, 190), text.title, 76, Qt::AlignHCenter | Qt::AlignVCenter);
    painter.fillRect(QRectF(kWidth / 2.0 - 30, 792, 60, 2), colours.ink);
    DrawLabel(painter, QRectF(64, 808, kWidth - 128, 30), DirectorAndYear(text), colours.ink, Qt::AlignCenter);
}

void PaintPanel(QPainter& painter, const Look& look, const CoverText& text, std::mt19937& dice)
{
    const CoverColours& colours = look.colours;
    DrawMotif(painter, look.motif, QRectF(0, 0, kWidth, kHeight), colours, dice);
    const QRectF panel(kMargin, 560, kWidth - 2 * kMargin, 290);
    painter.fillRect(panel, colours.ink);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colours.mark, 2));
    painter.drawRect(panel.adjusted(10, 10, -10, -10));
    painter.setPen(colours.paper);
    DrawTitle(painter, look, panel.adjusted(32, 28, -32, -78), text.title, 72, Qt::AlignHCenter | Qt::AlignVCenter);
    DrawLabel(painter, QRectF(panel.left() + 32, panel.bottom() - 62, panel.width() - 64, 30), DirectorAndYear(text), colours.paper,
              Qt::AlignCenter);
}

void PaintHeadline(QPainter& painter, const Look& look, const CoverText& text, std::mt19937& dice)
{
    const CoverColours& colours = look.colours;
    painter.fillRect(QRectF(0, 0, kWidth, kHeight), colours.ink);
    const QRectF picture(0, 450, kWidth, 384);
    DrawMotif(painter, look.motif, picture, colours, dice);
    painter.fillRect(QRectF(kMargin, 48, 90, 8), colours.mark);
    painter.setPen(colours.paper);
    DrawTitle(painter, look, QRectF(kMargin, 76, kWidth - 2 * kMargin, 346), text.title, 112, Qt::AlignLeft | Qt::AlignTop);
    DrawLabel(painter, QRectF(kMargin, 850, 380, 30), text.director, colours.paper, Qt::AlignLeft | Qt::AlignVCenter);
    DrawLabel(painter, QRectF(kWidth - kMargin - 100, 850, 100, 30), Year(text), colours.paper, Qt::AlignRight | Qt::AlignVCenter);
}

template<typename Painting>
QImage Card(const Painting& paint)
{
    QImage card(kWidth, kHeight, QImage::Format_RGB32);
    card.fill(Qt::black);
    QPainter painter(&card);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    paint(painter);
    return card;
}

} // namespace

QImage PaintCover(const CoverText& text, quint32 seed)
{
    std::mt19937 dice(seed);
    const Look look = LookOf(text, dice);
    using Painting = void (*)(QPainter&, const Look&, const CoverText&, std::mt19937&);
    constexpr Painting kPaintings[] = {PaintPoster, PaintBand, PaintFrame, PaintPanel, PaintHeadline}; // in the order of Arrangement
    return Card([&](QPainter& painter) { kPaintings[static_cast<int>(look.arrangement)](painter, look, text, dice); });
}

QImage PaintBackCover(const CoverText& text, const QString& plot, quint32 seed)
{
    std::mt19937 dice(seed);
    const Look look = LookOf(text, dice);
    const CoverColours& colours = look.colours;
    return Card([&](QPainter& painter) {
        painter.fillRect(QRectF(0, 0, kWidth, kHeight), colours.paper);
        DrawMotif(painter, look.motif, QRectF(0, 0, kWidth, 210), colours, dice);
        painter.fillRect(QRectF(0, 210, kWidth, 10), colours.mark);
        painter.setPen(colours.ink);
        DrawTitle(painter, look, QRectF(kMargin, 248, kWidth - 2 * kMargin, 92), text.title, 44, Qt::AlignLeft | Qt::AlignTop);
        painter.setPen(colours.ink);
        DrawFitted(painter, QRectF(kMargin, 356, kWidth - 2 * kMargin, 420), plot.simplified(), SmallFont(24, QFont::Normal), 25, 17, 1.22,
                   Qt::AlignLeft | Qt::AlignTop);
        painter.fillRect(QRectF(0, kHeight - 90, kWidth, 90), colours.ink);
        DrawLabel(painter, QRectF(kMargin, kHeight - 60, 380, 30), text.genres.join(u" · "), colours.paper,
                  Qt::AlignLeft | Qt::AlignVCenter);
        DrawLabel(painter, QRectF(kWidth - kMargin - 100, kHeight - 60, 100, 30), Year(text), colours.paper,
                  Qt::AlignRight | Qt::AlignVCenter);
    });
}

} // namespace kelvado
