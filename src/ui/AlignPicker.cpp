#include "ui/AlignPicker.h"

#include "ui/Skinner.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace kelvado {

namespace {

constexpr int kZones = 3;
constexpr QSize kZone(26, 22);
constexpr const char* kNames[kZones] = {QT_TRANSLATE_NOOP("AlignPicker", "Left"), QT_TRANSLATE_NOOP("AlignPicker", "Centre"),
                                        QT_TRANSLATE_NOOP("AlignPicker", "Right")};
constexpr int kLineWidths[] = {12, 8, 12, 6}; // the lines of text that a zone shows

} // namespace

AlignPicker::AlignPicker(QWidget* parent) : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setCursor(Qt::PointingHandCursor);
}

QString AlignPicker::ValueText() const
{
    return tr(kNames[static_cast<int>(m_value)]);
}

void AlignPicker::SetValue(CellAlign value)
{
    m_value = value;
    setToolTip(tr("Alignment: %1").arg(ValueText()));
    update();
}

QSize AlignPicker::sizeHint() const
{
    return {kZones * kZone.width() + 2, kZone.height() + 2};
}

QRect AlignPicker::ZoneOf(int zone) const
{
    return {QPoint(1 + zone * kZone.width(), 1), kZone};
}

void AlignPicker::Pick(int zone)
{
    if (zone < 0 || zone >= kZones || zone == static_cast<int>(m_value))
        return;
    SetValue(static_cast<CellAlign>(zone));
    QAccessibleEvent changed(this, QAccessible::ValueChanged);
    QAccessible::updateAccessibility(&changed);
    Q_EMIT Picked(m_value);
}

void AlignPicker::paintEvent(QPaintEvent*)
{
    const QColor back = palette().color(QPalette::Base);
    const QColor text = palette().color(QPalette::Text);
    const QColor marker = palette().color(QPalette::Highlight);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(hasFocus() ? marker : Mixed(back, text, 0.35F), hasFocus() ? 2 : 1));
    painter.setBrush(back);
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 3, 3);
    for (int zone = 0; zone < kZones; ++zone) {
        const bool isPicked = zone == static_cast<int>(m_value);
        if (isPicked) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(marker);
            painter.drawRoundedRect(QRectF(ZoneOf(zone)).adjusted(3, 3, -3, -3), 2, 2);
        }
        painter.setPen(QPen(isPicked ? palette().color(QPalette::HighlightedText) : Mixed(text, back, 0.2F), 1));
        painter.setRenderHint(QPainter::Antialiasing, false);
        int y = ZoneOf(zone).center().y() - 4;
        for (const int width : kLineWidths) {
            const QRect line = QStyle::alignedRect(Qt::LeftToRight,
                                                   zone == 0   ? Qt::AlignLeft
                                                   : zone == 1 ? Qt::AlignHCenter
                                                               : Qt::AlignRight,
                                                   QSize(width, 1), ZoneOf(zone).adjusted(7, 0, -7, 0));
            painter.drawLine(line.left(), y, line.right(), y);
            y += 3;
        }
        painter.setRenderHint(QPainter::Antialiasing);
    }
}

void AlignPicker::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        Pick(std::clamp(event->position().toPoint().x() / kZone.width(), 0, kZones - 1));
}

void AlignPicker::keyPressEvent(QKeyEvent* event)
{
    if (event->modifiers() == Qt::NoModifier && (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right))
        Pick(static_cast<int>(m_value) + (event->key() == Qt::Key_Left ? -1 : 1));
    else
        QWidget::keyPressEvent(event);
}

} // namespace kelvado
