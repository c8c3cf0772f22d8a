#pragma once

#include "core/TextEntry.h"

#include <QAbstractScrollArea>
#include <QList>
#include <QPoint>
#include <QTimer>

class QLabel;

namespace kelvado {

class ctxListItem;

/// The rows of a text export in the order of the output. Fixed lines stand at both ends; a row is never moved past the end of its own
/// region. Up and Down move the selected row, Ctrl+Up, Ctrl+Down, Home and End select another one, Delete removes it, Tab goes through its
/// editors and Enter to the first of them. The mouse drags rows; near an edge the list scrolls.
class ctxListObjects : public QAbstractScrollArea
{
    Q_OBJECT
public:
    enum class Direction { Up, Down };

    explicit ctxListObjects(QWidget* parent = nullptr);
    ~ctxListObjects() override;

    /// Inserts a row and selects it. Kind "HEADER" goes in front of the first row that is no header line, "NORMAL" in front of the first
    /// footer line, any other to the end.
    void Add(const QString& caption, const QString& fieldName, const QString& tableName, bool formated, int formatedLength, bool autoCutt,
             int autoCutLength, CellAlign textAlign, const QString& rowKind);
    void Clear();
    /// Removes the selected row; the one that takes its place is selected.
    void Remove();

    /// Rows count from 1. Raises `kErrSubscript` for a number that is none.
    ctxListItem& List(int index) const;
    int ListCount() const { return static_cast<int>(m_rows.size()); }
    /// The selected row; 0 for none.
    int ListIndex() const { return m_selected; }
    void SetListIndex(int index);
    /// Moves the selected row by one place, where its region goes on there.
    void ReOrderItem(Direction direction);

    /// Stacks the rows and places the scroll bars, as after a change of size.
    void ArrangeConstituentControls();
    /// Scrolls by a turn of the wheel, in eighths of a degree.
    void MouseScroll(int turn);

    /// What is dragged from this widget can be dropped on the list.
    void SetDropSource(const QWidget* source) { m_dropSource = source; }

    /// What the list says while it is empty.
    void SetEmptyText(const QString& text) { m_emptyText = text; }
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// A row came, went or was moved, or another one was selected.
    void Changed();
    void SourceDropped();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    ctxListItem* Row(int index) const { return m_rows[index - 1]; }
    int PlaceOf(const QString& rowKind) const;
    bool MayTrade(int index, int other) const;
    void Place(int index);
    void ShowFrame();
    void ShowRow(int index);
    void FollowFocus(const QWidget* now);
    void TakeFocusOut(const ctxListItem& row);
    int RowAt(int y) const;
    void BeginDrag();
    void DragOn();
    void EndDrag();
    int DropPlace() const;
    void Scroll();

    QList<ctxListItem*> m_rows;
    QWidget* m_container; ///< holds the rows and moves behind the window
    QWidget* m_frame;     ///< around the selected row
    QWidget* m_mark;      ///< where a dragged row will go
    QLabel* m_shadow;     ///< follows the mouse
    QTimer m_scroll;
    Direction m_direction = Direction::Down;
    int m_selected = 0;
    int m_rowHeight = 0;
    bool m_pressed = false;
    bool m_dragging = false;
    QPoint m_pressedAt, m_mouse; ///< in the window
    const QWidget* m_dropSource = nullptr;
    QString m_emptyText;
};

} // namespace kelvado
