#include "web/forms/ShowAbove.h"

namespace kelvado {

void ShowAbove(QWidget& window, const QWidget& owner)
{
    const QRect above(owner.mapToGlobal(QPoint()), owner.size());
    window.move(above.center() - window.rect().center());
    window.show();
}

void LetGo(std::unique_ptr<QWidget> window)
{
    if (!window)
        return;
    window->hide();
    window.release()->deleteLater();
}

} // namespace kelvado
