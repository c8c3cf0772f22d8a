#pragma once

#include <QWidget>

namespace kelvado {

/// The bar between the two panes. It is dragged with the left button, or moved by the arrow keys, between 11 and 89 per cent of the
/// window. The percentage is its `Tag`.
class PaneSplitter : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(int Tag READ Tag WRITE SetTag)
public:
    explicit PaneSplitter(QWidget* parent = nullptr);

    int Tag() const { return m_percent; }
    void SetTag(int percent) { m_percent = percent; }

Q_SIGNALS:
    /// The drag or key is done and the panes are to be laid out by `Tag`.
    void Moved();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    int m_percent = 0;
    bool m_dragging = false;
};

} // namespace kelvado
