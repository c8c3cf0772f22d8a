#include "ui/ContextKey.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QWidget>

namespace kelvado {

bool ContextKey::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType())
        return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() != Qt::Key_F10 || key->modifiers() != Qt::ShiftModifier)
        return false;
    auto* widget = static_cast<QWidget*>(watched);
    const QPoint middle = widget->rect().center();
    QContextMenuEvent menu(QContextMenuEvent::Keyboard, middle, widget->mapToGlobal(middle));
    QApplication::sendEvent(widget, &menu);
    return true;
}

} // namespace kelvado
