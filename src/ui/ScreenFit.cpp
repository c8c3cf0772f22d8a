#include "ui/ScreenFit.h"

#include "core/Literals.h"

#include <QDialog>
#include <QEvent>
#include <QFileDialog>
#include <QInputDialog>
#include <QMainWindow>
#include <QMessageBox>
#include <QScreen>
#include <QScrollArea>
#include <QVBoxLayout>

namespace kelvado {

namespace {

// Title bar and frame, whose sizes are known only once the window is on the screen.
constexpr QSize kFrame(16, 48);

bool LooksAfterItself(const QWidget& window)
{
    return qobject_cast<const QMainWindow*>(&window) || qobject_cast<const QMessageBox*>(&window) ||
           qobject_cast<const QFileDialog*>(&window) || qobject_cast<const QInputDialog*>(&window);
}

void LetScroll(QWidget& window)
{
    auto* content = new QWidget;
    content->setLayout(window.layout()); // which takes the controls along
    auto* area = new QScrollArea(&window);
    area->setObjectName(u"ScreenFit"_s);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setWidget(content);
    auto* rows = new QVBoxLayout(&window);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addWidget(area);
}

} // namespace

bool ScreenFit::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Show || !watched->isWidgetType())
        return false;
    auto& window = *static_cast<QWidget*>(watched);
    if (window.windowType() != Qt::Window && window.windowType() != Qt::Dialog)
        return false;
    if (LooksAfterItself(window) || !window.layout())
        return false;
    const QSize room = window.screen()->availableGeometry().size() - kFrame;
    const QSize least = window.minimumSizeHint().expandedTo(window.minimumSize());
    if (least.width() > room.width() || least.height() > room.height()) {
        window.setMinimumSize(0, 0);
        LetScroll(window);
    }
    if (window.width() > room.width() || window.height() > room.height())
        window.resize(window.size().boundedTo(room));
    return false;
}

} // namespace kelvado
