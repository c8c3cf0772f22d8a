#include "ui/AppStyle.h"

#include "core/Literals.h"

#include <QIcon>
#include <QPainter>
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

} // namespace

AppStyle::AppStyle() : QProxyStyle(u"Fusion"_s) {}

int AppStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget, QStyleHintReturn* returnData) const
{
    return hint == SH_DialogButtonBox_ButtonsHaveIcons ? 0 : QProxyStyle::styleHint(hint, option, widget, returnData);
}

QSize AppStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size, const QWidget* widget) const
{
    constexpr int kRowPadding = 8;
    QSize full = QProxyStyle::sizeFromContents(type, option, size, widget);
    if ((type == CT_ItemViewItem || type == CT_HeaderSection) && option)
        full.setHeight(std::max(full.height(), option->fontMetrics.height() + kRowPadding));
    return full;
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
