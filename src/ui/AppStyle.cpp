#include "ui/AppStyle.h"

#include "core/Literals.h"
#include "ui/Skinner.h"

#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QCalendarWidget>
#include <QComboBox>
#include <QEvent>
#include <QIcon>
#include <QLineEdit>
#include <QPainter>
#include <QSlider>
#include <QStyleOption>

#include <algorithm>

namespace kelvado {

namespace {

struct Sign
{
    QStyle::StandardPixmap icon;
    QRgb color;
    char16_t letter;
    bool isTriangle;
};
constexpr Sign kSigns[] = {
    {QStyle::SP_MessageBoxInformation, 0xFF2D5FA8, u'i', false},
    {QStyle::SP_MessageBoxQuestion, 0xFF2D5FA8, u'?', false},
    {QStyle::SP_MessageBoxWarning, 0xFFC27803, u'!', true},
    {QStyle::SP_MessageBoxCritical, 0xFFB3261E, u'!', false},
};
constexpr int kSide = 32;
constexpr int kScrollBarWidth = 12;

QPixmap PaintSign(const Sign& sign, int scale)
{
    QPixmap picture(QSize(kSide, kSide) * scale);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(sign.color), 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(QColor(sign.color));
    const QRectF area(0, 0, kSide, kSide);
    if (sign.isTriangle)
        painter.drawPolygon(QPolygonF({{16, 4}, {29, 28}, {3, 28}}));
    else
        painter.drawEllipse(area.adjusted(3, 3, -3, -3));
    QFont font = painter.font();
    font.setPixelSize(20);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(sign.isTriangle ? area.translated(0, 3) : area, Qt::AlignCenter, QString(QChar(sign.letter)));
    return picture;
}

// The base style draws every outline darker than the window, which cannot be seen in a dark one.
bool NeedsOutline(const QPalette& palette)
{
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

enum class Outline { Box, Circle };

void DrawOutline(const QStyleOption& option, const QRect& area, Outline outline, QPainter& painter)
{
    const bool enabled = option.state.testFlag(QStyle::State_Enabled);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    const QPalette& palette = option.palette;
    const QColor text = palette.color(QPalette::Active, QPalette::WindowText);
    painter.setPen(QPen(Mixed(palette.color(QPalette::Window), text, enabled ? 0.42F : 0.24F), 1));
    const QRectF line = QRectF(area).adjusted(0.5, 0.5, -0.5, -0.5);
    if (outline == Outline::Box)
        painter.drawRoundedRect(line, 2, 2);
    else
        painter.drawEllipse(line);
    painter.restore();
}

// A line that has the focus has an outline of its own.
void OutlinePrimitive(QStyle::PrimitiveElement element, const QStyleOption& option, QPainter& painter, const QWidget* widget)
{
    switch (element) {
    case QStyle::PE_FrameLineEdit:
        return option.state.testFlag(QStyle::State_HasFocus) ? void() : DrawOutline(option, option.rect, Outline::Box, painter);
    case QStyle::PE_Frame:
        if (qobject_cast<const QAbstractScrollArea*>(widget))
            DrawOutline(option, option.rect, Outline::Box, painter);
        return;
    case QStyle::PE_IndicatorCheckBox:
    case QStyle::PE_IndicatorItemViewItemCheck:
        return DrawOutline(option, option.rect, Outline::Box, painter);
    case QStyle::PE_IndicatorRadioButton:
        return DrawOutline(option, option.rect, Outline::Circle, painter);
    default:
        return;
    }
}

// True for the selected row of a view that the keys do not go to. A view that paints whole rows has dimmed them itself.
bool IsIdleSelection(const QStyleOption& option, const QWidget* widget)
{
    return option.state.testFlag(QStyle::State_Selected) && widget && !widget->hasFocus() &&
           option.palette.color(QPalette::Highlight) == widget->palette().color(QPalette::Highlight);
}

} // namespace

void DimSelection(QPalette& palette)
{
    palette.setColor(QPalette::Highlight, Mixed(palette.color(QPalette::Highlight), palette.color(QPalette::Base), 0.75F));
    palette.setColor(QPalette::HighlightedText, palette.color(QPalette::Text));
}

AppStyle::AppStyle() : QProxyStyle(u"Fusion"_s) {}

void AppStyle::polish(QWidget* widget)
{
    QProxyStyle::polish(widget);
    auto* line = qobject_cast<QLineEdit*>(widget);
    const auto* list = line ? qobject_cast<QComboBox*>(line->parentWidget()) : nullptr;
    if (list && line->accessibleName().isEmpty())
        line->setAccessibleName(list->accessibleName());
    if (qobject_cast<QComboBox*>(widget) || qobject_cast<QAbstractSpinBox*>(widget) || qobject_cast<QSlider*>(widget)) {
        widget->installEventFilter(this);
        if (widget->focusPolicy() == Qt::WheelFocus)
            widget->setFocusPolicy(Qt::StrongFocus);
    }
    // Its own red for the days of the weekend is not readable on every background.
    if (auto* calendar = qobject_cast<QCalendarWidget*>(widget)) {
        for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday})
            calendar->setWeekdayTextFormat(day, {});
    }
}

bool AppStyle::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Wheel || static_cast<QWidget*>(watched)->hasFocus())
        return QProxyStyle::eventFilter(watched, event);
    event->ignore();
    return true;
}

int AppStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget, QStyleHintReturn* returnData) const
{
    // A click selects on every desktop: what a row leads to is opened by a second one, or by Enter.
    return hint == SH_DialogButtonBox_ButtonsHaveIcons || hint == SH_ItemView_ActivateItemOnSingleClick
               ? 0
               : QProxyStyle::styleHint(hint, option, widget, returnData);
}

QSize AppStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size, const QWidget* widget) const
{
    constexpr int kRowPadding = 8;
    QSize full = QProxyStyle::sizeFromContents(type, option, size, widget);
    if ((type == CT_ItemViewItem || type == CT_HeaderSection) && option)
        full.setHeight(std::max(full.height(), option->fontMetrics.height() + kRowPadding));
    return full;
}

int AppStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    switch (metric) {
    case PM_ScrollBarExtent:
        return kScrollBarWidth;
    case PM_ScrollBarSliderMin:
        return 3 * kScrollBarWidth;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

// The groove takes the whole bar: there are no buttons at its ends.
QRect AppStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part, const QWidget* widget) const
{
    const auto* bar = control == CC_ScrollBar ? qstyleoption_cast<const QStyleOptionSlider*>(option) : nullptr;
    if (!bar)
        return QProxyStyle::subControlRect(control, option, part, widget);
    const bool across = bar->orientation == Qt::Horizontal;
    const int room = across ? bar->rect.width() : bar->rect.height();
    const qint64 steps = qint64(bar->maximum) - bar->minimum + bar->pageStep;
    const int least = std::min(room, pixelMetric(PM_ScrollBarSliderMin, option, widget));
    const int length = steps > 0 ? std::clamp(static_cast<int>(qint64(bar->pageStep) * room / steps), least, room) : room;
    const int start = sliderPositionFromValue(bar->minimum, bar->maximum, bar->sliderPosition, room - length, bar->upsideDown);
    const auto between = [&](int from, int to) {
        const QRect area = across ? QRect(from, 0, to - from, bar->rect.height()) : QRect(0, from, bar->rect.width(), to - from);
        return visualRect(bar->direction, bar->rect, area.translated(bar->rect.topLeft()));
    };
    switch (part) {
    case SC_ScrollBarSlider:
        return between(start, start + length);
    case SC_ScrollBarSubPage:
        return between(0, start);
    case SC_ScrollBarAddPage:
        return between(start + length, room);
    case SC_ScrollBarGroove:
        return bar->rect;
    default:
        return {};
    }
}

void AppStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter, const QWidget* widget) const
{
    if (control != CC_ScrollBar) {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
        if (!NeedsOutline(option->palette))
            return;
        const bool framed = control == CC_ComboBox || control == CC_SpinBox;
        if (framed && !option->state.testFlag(State_HasFocus))
            DrawOutline(*option, option->rect, Outline::Box, *painter);
        else if (control == CC_Slider)
            DrawOutline(*option, proxy()->subControlRect(control, option, SC_SliderHandle, widget), Outline::Box, *painter);
        return;
    }
    const QColor back = option->palette.color(QPalette::Window);
    const QColor text = option->palette.color(QPalette::WindowText);
    painter->fillRect(option->rect, back);
    if (!option->state.testFlag(State_Enabled))
        return;
    const bool lit = option->activeSubControls.testFlag(SC_ScrollBarSlider);
    const QRectF slider = QRectF(subControlRect(control, option, SC_ScrollBarSlider, widget)).adjusted(3, 3, -3, -3);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(Mixed(text, back, lit ? 0.2F : 0.36F));
    painter->drawRoundedRect(slider, 3, 3);
    painter->restore();
}

// The part of a row in front of its text, too.
void AppStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const
{
    const auto* row = element == PE_PanelItemViewRow ? qstyleoption_cast<const QStyleOptionViewItem*>(option) : nullptr;
    if (!row || !IsIdleSelection(*row, widget)) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return NeedsOutline(option->palette) ? OutlinePrimitive(element, *option, *painter, widget) : void();
    }
    QStyleOptionViewItem dimmed(*row);
    DimSelection(dimmed.palette);
    QProxyStyle::drawPrimitive(element, &dimmed, painter, widget);
}

// A default button looks like one with the focus otherwise, and the row of a list that the keys do not go to like the one they do.
void AppStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const
{
    if (element == CE_ItemViewItem && IsIdleSelection(*option, widget)) {
        QStyleOptionViewItem item(*qstyleoption_cast<const QStyleOptionViewItem*>(option));
        DimSelection(item.palette);
        return QProxyStyle::drawControl(element, &item, painter, widget);
    }
    QProxyStyle::drawControl(element, option, painter, widget);
    if (element != CE_PushButton || !option->state.testFlag(State_HasFocus))
        return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(option->palette.color(QPalette::Highlight), 2));
    painter->setBrush(Qt::NoBrush);
    painter->drawRoundedRect(QRectF(option->rect).adjusted(2, 2, -2, -2), 3, 3);
    painter->restore();
}

QIcon AppStyle::standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const
{
    for (const Sign& sign : kSigns) {
        if (sign.icon != icon)
            continue;
        QIcon signs;
        for (const int scale : {1, 2, 3})
            signs.addPixmap(PaintSign(sign, scale));
        return signs;
    }
    return QProxyStyle::standardIcon(icon, option, widget);
}

} // namespace kelvado
