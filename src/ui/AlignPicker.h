#pragma once

#include "core/TextEntry.h"

#include <QWidget>

namespace kelvado {

/// Three drawn zones for left, centre and right. A click picks one; Left and Right go to the next.
class AlignPicker : public QWidget
{
    Q_OBJECT
public:
    explicit AlignPicker(QWidget* parent = nullptr);

    CellAlign Value() const { return m_value; }
    /// The name of the present zone.
    QString ValueText() const;
    void SetValue(CellAlign value);
    QSize sizeHint() const override;

Q_SIGNALS:
    /// The user picked another zone.
    void Picked(CellAlign value);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Pick(int zone);
    QRect ZoneOf(int zone) const;

    CellAlign m_value = CellAlign::Left;
};

} // namespace kelvado
