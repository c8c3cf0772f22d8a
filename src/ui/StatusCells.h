#pragma once

#include <QColor>
#include <QStringList>
#include <QWidget>

namespace kelvado {

/// The cells of the status bar: a row of sunken frames, each as wide as its text. What does not fit is left out at the right,
/// which a cell "…" says; the tooltip has them all.
class StatusCells : public QWidget
{
    Q_OBJECT
public:
    explicit StatusCells(QWidget* parent = nullptr);

    void SetCells(const QStringList& cells);
    const QStringList& Cells() const { return m_cells; }
    /// The frame's light and dark lines and what lies inside.
    void SetColors(const QColor& light, const QColor& back, const QColor& dark);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void PaintCell(QPainter& painter, const QRect& frame, const QString& text) const;

    QStringList m_cells;
    QColor m_light, m_back, m_dark;
};

} // namespace kelvado
