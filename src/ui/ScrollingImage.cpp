#include "ui/ScrollingImage.h"

namespace kelvado {

ScrollingImage::ScrollingImage(QWidget* parent) : QScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
}

void ScrollingImage::SetPanel(QWidget* panel)
{
    if (widget() == panel)
        return;
    takeWidget();
    setWidget(panel);
}

} // namespace kelvado
