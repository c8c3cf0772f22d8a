#include "TabRow.h"

#include "Canvas.h"
#include "Icons.h"
#include "Palette.h"

#include <QFontMetricsF>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace kelvado {

namespace {

/// The measures of one row, in pixels at 100 %.
struct Measures
{
    int height;
    int cap;   // width of a cap
    int joint; // width of a joint; the selected card's edge stands in its middle
    int side;  // beside icon and caption
    int gap;   // between the two
    int icon;
    int top;       // above the card
    qreal caption; // size of the caption
};
constexpr Measures kSections{40, 16, 16, 7, 8, 20, 5, 1.0};
constexpr Measures kSearch{36, 16, 16, 5, 7, 18, 4, 1.0};

struct Tab
{
    QString file;
    QString caption;
    Icon icon;
};

enum class Card { None, FromLeft, FromRight };

class Row
{
public:
    Row(const Palette& palette, const QString& folder, const Measures& measures)
        : m_palette(palette), m_folder(folder), m_measures(measures), m_strip(palette.Colour("Strip"))
    {
    }

    void PaintTab(const Tab& tab) const;
    void PaintJoint(const QString& name, Card card) const { PaintEdge(name, m_measures.joint, card, true); }
    void PaintCap(const QString& name, Card card) const { PaintEdge(name, m_measures.cap, card, false); }
    void PaintPlain(const QString& name, int width) const;

private:
    void PaintEdge(const QString& name, int width, Card card, bool divides) const;
    void Ground(QPainter& painter, qreal width) const;

    const Palette& m_palette;
    QString m_folder;
    Measures m_measures;
    QColor m_strip;
};

/// The row behind the tabs: flat, closed by a hair line at its foot.
void Row::Ground(QPainter& painter, qreal width) const
{
    painter.fillRect(QRectF(0, m_measures.height - 1, width, 1), m_palette.Colour("Line"));
}

void Row::PaintPlain(const QString& name, int width) const
{
    SavePair(m_folder, name, width, m_measures.height, m_strip, [this, width](QPainter& painter) { Ground(painter, width); });
}

/// A piece between two tabs, or at an end. A card that reaches into it ends in its middle with a round corner.
void Row::PaintEdge(const QString& name, int width, Card card, bool divides) const
{
    SavePair(m_folder, name, width, m_measures.height, m_strip, [&](QPainter& painter) {
        Ground(painter, width);
        if (card == Card::None) {
            const int middle = width / 2; // on a whole pixel, so that the line is sharp
            if (divides)
                painter.fillRect(QRectF(middle, m_measures.top + 8, 1, m_measures.height - m_measures.top - 17), m_palette.Colour("Line"));
            return;
        }
        if (card == Card::FromRight) {
            painter.translate(width, 0);
            painter.scale(-1, 1);
        }
        const qreal edge = width / 2.0;
        const qreal radius = std::min(m_palette.Radius(), edge - 1); // a wider corner would reach into the tab and show a seam
        const qreal top = m_measures.top;
        QPainterPath outline(QPointF(-1, top));
        outline.lineTo(edge - radius, top);
        outline.arcTo(QRectF(edge - 2 * radius, top, 2 * radius, 2 * radius), 90, -90);
        outline.lineTo(edge, m_measures.height);
        outline.lineTo(-1, m_measures.height);
        painter.fillPath(outline, m_palette.Colour("Window"));
        painter.save();
        painter.setClipPath(outline);
        painter.fillRect(QRectF(-1, top, width, 2), m_palette.Colour("Accent"));
        painter.restore();
    });
}

void Row::PaintTab(const Tab& tab) const
{
    const QFont font = m_palette.Font(QFont::Medium, m_measures.caption);
    const int caption = static_cast<int>(std::ceil(QFontMetricsF(font).horizontalAdvance(tab.caption)));
    const int side = m_measures.side;
    const int width = side + m_measures.icon + m_measures.gap + caption + side;
    for (const bool selected : {false, true}) {
        const QString name = tab.file + (selected ? u"Sel.BMP"_qs : u".BMP"_qs);
        const QColor ground = m_strip;
        SavePair(m_folder, name, width, m_measures.height, ground, [&](QPainter& painter) {
            const qreal top = m_measures.top;
            if (selected) {
                painter.fillRect(QRectF(0, top, width, m_measures.height - top), m_palette.Colour("Window"));
                painter.fillRect(QRectF(0, top, width, 2), m_palette.Colour("Accent"));
            } else {
                Ground(painter, width);
            }
            const QColor ink = m_palette.Colour(selected ? "Ink" : "InkMuted");
            const QColor accent = selected ? m_palette.Colour("Accent") : ink;
            const qreal middle = (m_measures.height + top) / 2.0;
            DrawIcon(painter, tab.icon, QRectF(side, std::floor(middle - m_measures.icon / 2.0), m_measures.icon, m_measures.icon), accent,
                     accent);
            painter.setFont(font);
            painter.setPen(ink);
            const QRectF text(side + m_measures.icon + m_measures.gap, top, caption + side, m_measures.height - top);
            painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter, tab.caption);
        });
    }
}

void PaintRow(const Row& row, const QList<Tab>& tabs, int spacer)
{
    for (const Tab& tab : tabs)
        row.PaintTab(tab);
    row.PaintCap(u"ToolLeft.BMP"_qs, Card::None);
    row.PaintCap(u"ToolLeftSel.BMP"_qs, Card::FromRight);
    row.PaintCap(u"ToolEnd.BMP"_qs, Card::None);
    row.PaintCap(u"ToolEndSel.BMP"_qs, Card::FromLeft);
    row.PaintJoint(u"ToolFrontNoNo.BMP"_qs, Card::None);
    row.PaintJoint(u"ToolFrontYesNo.BMP"_qs, Card::FromLeft);
    row.PaintJoint(u"ToolFrontNoYes.BMP"_qs, Card::FromRight);
    row.PaintPlain(u"ToolSpacer.BMP"_qs, spacer);
}

} // namespace

void PaintSectionTabs(const Palette& palette, const QString& folder)
{
    const Row row(palette, folder, kSections);
    PaintRow(row,
             {{u"ToolMovieList"_qs, u"Movie List"_qs, Icon::FilmList},
              {u"ToolMovieGrab"_qs, u"Add Movies"_qs, Icon::FilmAdd},
              {u"ToolMovieEdit"_qs, u"Edit Movie"_qs, Icon::Pencil},
              {u"ToolActorInfo"_qs, u"People"_qs, Icon::People}},
             8);
    row.PaintPlain(u"ToolRight.BMP"_qs, 8);
}

void PaintSearchBar(const Palette& palette, const QString& folder)
{
    PaintRow(Row(palette, folder, kSearch),
             {{u"ToolIMDB"_qs, u"IMDb"_qs, Icon::Globe},
              {u"ToolDVDEmp"_qs, u"DVD Empire"_qs, Icon::Disc},
              {u"ToolManual"_qs, u"Manual"_qs, Icon::Pencil}},
             8);
}

} // namespace kelvado
