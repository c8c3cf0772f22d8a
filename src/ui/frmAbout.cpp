#include "ui/frmAbout.h"

#include "core/Literals.h"

#include <QGuiApplication>
#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <QVBoxLayout>

namespace kelvado {

// A splash takes no keys, so above another window it is a dialog.
frmAbout::frmAbout(QWidget* parent) : QWidget(parent, (parent ? Qt::Dialog : Qt::SplashScreen) | Qt::FramelessWindowHint)
{
    setObjectName(u"frmAbout"_s);
    setAccessibleName(ProductName());
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(40, 32, 40, 32);
    rows->setSpacing(6);
    auto* name = new QLabel(ProductName(), this);
    QFont large = name->font();
    large.setPointSize(30);
    large.setBold(true);
    name->setFont(large);
    rows->addWidget(name);
    rows->addWidget(new QLabel(tr("Your films, on your shelves and in one file."), this));
    rows->addSpacing(14);
    rows->addWidget(new QLabel(tr("Version %1 (Beta), build %2").arg(Version()).arg(BuildNumber()), this));
    adjustSize();
    if (parent)
        move(parent->mapToGlobal(parent->rect().center()) - rect().center());
    else if (const QScreen* screen = QGuiApplication::primaryScreen())
        move(screen->availableGeometry().center() - rect().center());
}

void frmAbout::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Window));
    painter.fillRect(0, 0, 8, height(), palette().color(QPalette::Highlight));
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void frmAbout::mousePressEvent(QMouseEvent*)
{
    close();
}

void frmAbout::keyPressEvent(QKeyEvent*)
{
    close();
}

} // namespace kelvado
