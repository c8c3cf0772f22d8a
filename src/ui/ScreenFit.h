#pragma once

#include <QObject>

namespace kelvado {

/// Keeps the program's windows within their screen: what is larger is cut to the screen and scrolls. Installed as an event filter of the
/// application; the main window and the toolkit's own dialogs take care of themselves.
class ScreenFit : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace kelvado
