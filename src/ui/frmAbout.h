#pragma once

#include "core/Literals.h"
#include "core/Version.h"

#include <QWidget>

namespace kelvado {

/// The window with the program's name and version: shown while the program starts, and from the Help menu, where a click or any key
/// closes it.
class frmAbout : public QWidget
{
    Q_OBJECT
public:
    explicit frmAbout(QWidget* parent = nullptr);

    static QString ProductName() { return u"Kelvado"_s; }
    static QString Version() { return u"2.0"_s; }
    static int BuildNumber() { return kBuildNumber; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace kelvado
