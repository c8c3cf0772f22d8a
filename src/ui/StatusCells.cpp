#include "ui/StatusCells.h"

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
    setAccessibleName(cells.join(QStringLiteral(", ")));
    setToolTip(cells.join(u'\n').toHtmlEscaped().replace(u'\n', QStringLiteral("<br>"))); // also those that do not fit
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
    int left = 0;
    for (const QString& cell : m_cells) {
        const QRect frame(left, 0, fontMetrics().horizontalAdvance(cell) + 2 * kInset, height() - 1);
        if (frame.right() > width())
            return;
        painter.fillRect(frame, m_back);
        painter.setPen(m_dark);
        painter.drawLine(frame.topLeft(), frame.topRight());
        painter.drawLine(frame.topLeft(), frame.bottomLeft());
        painter.setPen(m_light);
        painter.drawLine(frame.bottomLeft(), frame.bottomRight());
        painter.drawLine(frame.topRight(), frame.bottomRight());
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(frame, Qt::AlignCenter, cell);
        left = frame.right() + kGap;
    }
}

} // namespace kelvado
