#pragma once

#include <QObject>

namespace kelvado {

/// Shift+F10 opens the menu of the control that has the focus, as the menu key does, which many keyboards lack. Installed as an event
/// filter of the application.
class ContextKey : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace kelvado
