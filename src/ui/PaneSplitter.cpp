#include "ui/PaneSplitter.h"

#include "core/WindowLayout.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace kelvado {

namespace {

constexpr int kWidth = 6;
constexpr QRgb kDragColor = qRgb(128, 128, 128);

} // namespace

PaneSplitter::PaneSplitter(QWidget* parent) : QWidget(parent)
{
    setFixedWidth(kWidth);
    setCursor(Qt::SplitHCursor);
    setFocusPolicy(Qt::TabFocus);
    setAccessibleName(tr("Pane divider"));
}

void PaneSplitter::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_dragging = true;
    update();
}

void PaneSplitter::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_dragging || !(event->buttons() & Qt::LeftButton))
        return;
    const int pointer = static_cast<int>(event->position().x());
    const auto percent = DraggedSplitterPercent(x() * kTwipsPerPixel, pointer * kTwipsPerPixel, parentWidget()->width() * kTwipsPerPixel);
    if (!percent)
        return;
    move(x() + pointer, y());
    m_percent = *percent;
    raise();
}

void PaneSplitter::mouseReleaseEvent(QMouseEvent* event)
{
    if (!m_dragging || event->button() != Qt::LeftButton)
        return;
    m_dragging = false;
    update();
    Q_EMIT Moved();
}

void PaneSplitter::keyPressEvent(QKeyEvent* event)
{
    const int step = event->key() == Qt::Key_Left ? -1 : event->key() == Qt::Key_Right ? 1 : 0;
    if (step == 0) {
        QWidget::keyPressEvent(event);
        return;
    }
    const int whole = parentWidget()->width() * kTwipsPerPixel;
    // From outside the limits, where the settings may have put the bar, the first step leads to the nearer one.
    for (int next = m_percent + step; next >= 0 && next <= 100; next += step) {
        if (const auto percent = DraggedSplitterPercent(whole * next / 100, 0, whole)) {
            m_percent = *percent;
            Q_EMIT Moved();
            return;
        }
    }
}

void PaneSplitter::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), m_dragging ? QColor(kDragColor) : palette().color(hasFocus() ? QPalette::Highlight : QPalette::Window));
}

} // namespace kelvado
