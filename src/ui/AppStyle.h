#pragma once

#include <QProxyStyle>

namespace kelvado {

/// The look of all controls: plain buttons, in dialogs too, rows of lists and trees with room around their text, scroll bars like those
/// of the pages, a ring around the button that has the focus, and signs in message boxes that are sharp at every scale.
class AppStyle : public QProxyStyle
{
    Q_OBJECT
public:
    AppStyle();

    using QProxyStyle::polish;
    /// The line of a drop-down list that can be typed into is called like the list. The wheel changes no value of a control that does not
    /// have the focus: it was meant for what lies around it.
    void polish(QWidget* widget) override;

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget, QStyleHintReturn* returnData) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size, const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part, const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const override;
};

/// Gives the colours of a selection those of a list that does not have the focus.
void DimSelection(QPalette& palette);

} // namespace kelvado
