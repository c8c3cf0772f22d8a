#include "ui/StatusCells.h"

#include "core/Literals.h"

#include <QPainter>

namespace kelvado {

namespace {

constexpr int kGap = 6;
constexpr int kInset = 10;
constexpr int kHeightAround = 8;

} // namespace

StatusCells::StatusCells(QWidget* parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setFocusPolicy(Qt::TabFocus); // the menu key opens the menu of the cells
}

void StatusCells::SetCells(const QStringList& cells)
{
    m_cells = cells;
    setAccessibleName(cells.join(u", "_s));
    setToolTip(cells.join(u'\n').toHtmlEscaped().replace(u'\n', u"<br>"_s)); // also those that do not fit
    update();
}

void StatusCells::SetColors(const QColor& light, const QColor& back, const QColor& dark)
{
    m_light = light;
    m_back = back;
    m_dark = dark;
    update();
}

QSize StatusCells::sizeHint() const
{
    return {0, fontMetrics().height() + kHeightAround};
}

void StatusCells::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (hasFocus()) {
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
    const auto frameOf = [this](int left, const QString& text) {
        return QRect(left, 0, fontMetrics().horizontalAdvance(text) + 2 * kInset, height() - 1);
    };
    const QString more(QChar(0x2026));
    int left = 0;
    for (qsizetype i = 0; i < m_cells.size(); ++i) {
        const QRect frame = frameOf(left, m_cells[i]);
        // Behind every cell but the last one stays room for the mark of those that are left out.
        const int end = i + 1 == m_cells.size() ? frame.right() : frameOf(frame.right() + kGap, more).right();
        if (end > width())
            return PaintCell(painter, frameOf(left, more), more);
        PaintCell(painter, frame, m_cells[i]);
        left = frame.right() + kGap;
    }
}

void StatusCells::PaintCell(QPainter& painter, const QRect& frame, const QString& text) const
{
    painter.fillRect(frame, m_back);
    painter.setPen(m_dark);
    painter.drawLine(frame.topLeft(), frame.topRight());
    painter.drawLine(frame.topLeft(), frame.bottomLeft());
    painter.setPen(m_light);
    painter.drawLine(frame.bottomLeft(), frame.bottomRight());
    painter.drawLine(frame.topRight(), frame.bottomRight());
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(frame, Qt::AlignCenter, text);
}

} // namespace kelvado
