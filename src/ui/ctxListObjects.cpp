#include "ui/ctxListObjects.h"

#include "core/RuntimeError.h"
#include "ui/Skinner.h"
#include "ui/ctxListItem.h"

#include <QAccessible>
#include <QApplication>
#include <QDropEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace kelvado {

namespace {

constexpr int kEdge = 24;        // of the window, where a drag scrolls
constexpr int kTopMargin = 3;    // a row begins that much above its top for a dragged one
constexpr int kScrollEvery = 40; // milliseconds
constexpr int kScrollParts = 3;  // ticks to a row
constexpr int kMarkHeight = 3;

/// The frame around the selected row: strong while the keys go to the list.
class SelectionFrame : public QWidget
{
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const QColor color = palette().color(QPalette::Highlight);
        painter.setPen(QPen(isEnabled() ? color : Mixed(color, palette().color(QPalette::Window), 0.5F), 2));
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 3, 3);
    }
};

QPixmap Shade(const QPixmap& row)
{
    QPixmap shade = row;
    QPainter painter(&shade);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.fillRect(shade.rect(), QColor(0, 0, 0, 220));
    return shade;
}

} // namespace

ctxListObjects::ctxListObjects(QWidget* parent)
    : QAbstractScrollArea(parent), m_container(new QWidget(viewport())), m_frame(new SelectionFrame(m_container)),
      m_mark(new QWidget(m_container)), m_shadow(new QLabel(viewport())), m_scroll(this)
{
    setFocusPolicy(Qt::StrongFocus);
    setAcceptDrops(true);
    viewport()->setBackgroundRole(QPalette::Window);
    verticalScrollBar()->setObjectName(u"vbarWindow"_s);
    horizontalScrollBar()->setObjectName(u"hbarWindow"_s);
    auto* corner = new QWidget;
    corner->setObjectName(u"picCorner"_s);
    setCornerWidget(corner);
    m_container->setObjectName(u"PicContainer"_s);
    m_frame->setObjectName(u"PicSelOutput"_s);
    m_mark->setObjectName(u"PicInsert"_s);
    m_mark->setAutoFillBackground(true);
    m_mark->setBackgroundRole(QPalette::Highlight);
    m_shadow->setObjectName(u"PicMouse"_s);
    for (QWidget* over : std::initializer_list<QWidget*>{m_frame, m_mark, m_shadow}) {
        over->setAttribute(Qt::WA_TransparentForMouseEvents);
        over->hide();
    }
    m_scroll.setObjectName(u"tmrScroll"_s);
    m_scroll.setInterval(kScrollEvery);
    connect(&m_scroll, &QTimer::timeout, this, &ctxListObjects::Scroll);
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget*, const QWidget* now) { FollowFocus(now); });
}

ctxListObjects::~ctxListObjects()
{
    disconnect(qApp, nullptr, this, nullptr); // the focus leaves when the rows are gone
}

void ctxListObjects::Add(const QString& caption, const QString& fieldName, const QString& tableName, bool formated, int formatedLength,
                         bool autoCutt, int autoCutLength, CellAlign textAlign, const QString& rowKind)
{
    const int place = PlaceOf(rowKind);
    const TextEntry entry{caption, fieldName, tableName, formated, formatedLength, autoCutt, autoCutLength, textAlign};
    auto* row = new ctxListItem(entry, rowKind, m_container);
    m_rows.insert(place - 1, row);
    if (m_selected >= place)
        ++m_selected;
    ArrangeConstituentControls();
    row->show();
    SetListIndex(place);
}

int ctxListObjects::PlaceOf(const QString& rowKind) const
{
    const auto first = [this](auto condition) {
        const auto row = std::ranges::find_if(m_rows, [&](const ctxListItem* item) { return condition(RegionOf(item->Entry())); });
        return static_cast<int>(row - m_rows.begin()) + 1;
    };
    if (rowKind == u"HEADER")
        return first([](EntryRegion region) { return region != EntryRegion::Header; });
    if (rowKind == u"NORMAL")
        return first([](EntryRegion region) { return region == EntryRegion::Footer; });
    return ListCount() + 1;
}

void ctxListObjects::Clear()
{
    EndDrag();
    SetListIndex(0);
    for (ctxListItem* row : std::exchange(m_rows, {})) {
        row->hide();
        row->deleteLater(); // a key that it handles may have brought its end
    }
    ArrangeConstituentControls();
    Q_EMIT Changed();
}

void ctxListObjects::Remove()
{
    if (m_selected == 0)
        return;
    EndDrag();
    const int place = m_selected;
    SetListIndex(0);
    ctxListItem* row = m_rows.takeAt(place - 1);
    row->hide();
    row->deleteLater();
    ArrangeConstituentControls();
    SetListIndex(std::min(place, ListCount()));
}

ctxListItem& ctxListObjects::List(int index) const
{
    if (index < 1 || index > ListCount())
        throw RuntimeError(kErrSubscript);
    return *Row(index);
}

void ctxListObjects::SetListIndex(int index)
{
    if (index < 0 || index > ListCount())
        throw RuntimeError(kErrSubscript);
    if (m_selected != index) {
        if (m_selected > 0) {
            TakeFocusOut(*Row(m_selected));
            Row(m_selected)->SetSelected(false);
        }
        m_selected = index;
    }
    if (index > 0) {
        Row(index)->SetSelected(true);
        Row(index)->FollowInTabOrder(this);
        ShowRow(index);
        QAccessibleEvent focused(Row(index), QAccessible::Focus);
        if (hasFocus())
            QAccessible::updateAccessibility(&focused);
    }
    ShowFrame();
    Q_EMIT Changed();
}

bool ctxListObjects::MayTrade(int index, int other) const
{
    return index > 0 && other >= 1 && other <= ListCount() && RegionOf(Row(index)->Entry()) == RegionOf(Row(other)->Entry());
}

void ctxListObjects::ReOrderItem(Direction direction)
{
    const int other = m_selected + (direction == Direction::Up ? -1 : 1);
    if (!MayTrade(m_selected, other))
        return;
    std::swap(m_rows[m_selected - 1], m_rows[other - 1]);
    Place(m_selected);
    Place(other);
    m_selected = other;
    ShowFrame();
    ShowRow(other);
    Q_EMIT Changed();
}

void ctxListObjects::Place(int index)
{
    Row(index)->setGeometry(0, (index - 1) * m_rowHeight, m_container->width(), m_rowHeight);
}

void ctxListObjects::ArrangeConstituentControls()
{
    int width = 0;
    m_rowHeight = 0;
    for (const ctxListItem* row : std::as_const(m_rows)) {
        const QSize least = row->minimumSizeHint();
        width = std::max(width, least.width());
        m_rowHeight = std::max(m_rowHeight, least.height());
    }
    const QSize window = viewport()->size();
    const QSize content(std::max(width, window.width()), ListCount() * m_rowHeight);
    horizontalScrollBar()->setRange(0, content.width() - window.width());
    horizontalScrollBar()->setPageStep(window.width());
    verticalScrollBar()->setRange(0, std::max(0, content.height() - window.height()));
    verticalScrollBar()->setPageStep(window.height());
    verticalScrollBar()->setSingleStep(std::max(1, m_rowHeight / 2));
    m_container->resize(content);
    for (int index = 1; index <= ListCount(); ++index)
        Place(index);
    ShowFrame();
    viewport()->update();
}

void ctxListObjects::ShowFrame()
{
    m_frame->setVisible(m_selected > 0);
    if (m_selected == 0)
        return;
    m_frame->setGeometry(Row(m_selected)->geometry());
    m_frame->setEnabled(hasFocus() || isAncestorOf(QApplication::focusWidget()));
    m_frame->raise();
}

void ctxListObjects::ShowRow(int index)
{
    const int top = (index - 1) * m_rowHeight;
    QScrollBar& bar = *verticalScrollBar();
    bar.setValue(std::min(std::max(bar.value(), top + m_rowHeight - viewport()->height()), top));
}

// An editor that gets the keys selects its row and comes into view.
void ctxListObjects::FollowFocus(const QWidget* now)
{
    const auto row = std::ranges::find_if(m_rows, [&](const ctxListItem* item) { return item->isAncestorOf(now); });
    if (row != m_rows.end()) {
        if (*row != m_rows.value(m_selected - 1))
            SetListIndex(static_cast<int>(row - m_rows.begin()) + 1);
        const int left = now->mapTo(m_container, QPoint()).x();
        QScrollBar& bar = *horizontalScrollBar();
        bar.setValue(std::min(std::max(bar.value(), left + now->width() + kEdge - viewport()->width()), left - kEdge));
    }
    ShowFrame();
}

void ctxListObjects::TakeFocusOut(const ctxListItem& row)
{
    // The editor of another row that has it already keeps it.
    if (row.isAncestorOf(QApplication::focusWidget()))
        setFocus();
}

void ctxListObjects::MouseScroll(int turn)
{
    constexpr int kNotch = 120;
    verticalScrollBar()->setValue(verticalScrollBar()->value() - turn * m_rowHeight / kNotch);
}

QSize ctxListObjects::minimumSizeHint() const
{
    constexpr int kLeastRows = 2;
    const int row = m_rowHeight > 0 ? m_rowHeight : 3 * fontMetrics().height();
    return {QAbstractScrollArea::minimumSizeHint().width(), kLeastRows * row + 2 * frameWidth()};
}

void ctxListObjects::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    ArrangeConstituentControls();
}

void ctxListObjects::scrollContentsBy(int, int)
{
    m_container->move(-horizontalScrollBar()->value(), -verticalScrollBar()->value());
}

void ctxListObjects::changeEvent(QEvent* event)
{
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        ArrangeConstituentControls();
}

void ctxListObjects::paintEvent(QPaintEvent*)
{
    if (!m_rows.isEmpty())
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(viewport()->rect().adjusted(kEdge, 0, -kEdge, 0), Qt::AlignCenter | Qt::TextWordWrap, m_emptyText);
}

void ctxListObjects::wheelEvent(QWheelEvent* event)
{
    if (event->angleDelta().y() == 0)
        return QAbstractScrollArea::wheelEvent(event);
    MouseScroll(event->angleDelta().y());
    event->accept();
}

void ctxListObjects::keyPressEvent(QKeyEvent* event)
{
    const bool selects = event->modifiers().testFlag(Qt::ControlModifier);
    const auto select = [this](int index) { SetListIndex(std::clamp(index, std::min(1, ListCount()), ListCount())); };
    switch (event->key()) {
    case Qt::Key_Up:
        return selects ? select(m_selected - 1) : ReOrderItem(Direction::Up);
    case Qt::Key_Down:
        return selects ? select(m_selected + 1) : ReOrderItem(Direction::Down);
    case Qt::Key_Home:
        return select(1);
    case Qt::Key_End:
        return select(ListCount());
    case Qt::Key_Delete:
        return Remove();
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (QWidget* editor = hasFocus() && m_selected > 0 ? Row(m_selected)->FirstEditor() : nullptr)
            editor->setFocus(Qt::TabFocusReason);
        else
            setFocus();
        return;
    case Qt::Key_Escape:
        if (m_dragging)
            return EndDrag();
        break;
    default:
        break;
    }
    QAbstractScrollArea::keyPressEvent(event);
}

int ctxListObjects::RowAt(int y) const
{
    if (m_rows.isEmpty())
        return 0;
    return std::clamp((y + verticalScrollBar()->value()) / m_rowHeight + 1, 1, ListCount());
}

void ctxListObjects::mousePressEvent(QMouseEvent* event)
{
    const QPoint at = event->position().toPoint();
    if (event->button() != Qt::LeftButton || m_rows.isEmpty() || at.y() + verticalScrollBar()->value() >= m_container->height())
        return;
    SetListIndex(RowAt(at.y()));
    setFocus(Qt::MouseFocusReason);
    m_pressed = true;
    m_pressedAt = at;
}

void ctxListObjects::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_pressed || !event->buttons().testFlag(Qt::LeftButton))
        return;
    m_mouse = event->position().toPoint();
    if (!m_dragging && (m_mouse - m_pressedAt).manhattanLength() >= QApplication::startDragDistance())
        BeginDrag();
    if (m_dragging)
        DragOn();
}

void ctxListObjects::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    if (m_dragging) {
        const int place = DropPlace();
        const Direction direction = place < m_selected ? Direction::Up : Direction::Down;
        while (m_selected != place)
            ReOrderItem(direction);
    }
    EndDrag();
}

void ctxListObjects::BeginDrag()
{
    m_dragging = true;
    m_shadow->setPixmap(Shade(Row(m_selected)->grab()));
    m_shadow->resize(Row(m_selected)->size());
    m_shadow->raise();
    m_shadow->show();
}

void ctxListObjects::DragOn()
{
    m_shadow->move(Row(m_selected)->x() - horizontalScrollBar()->value(), m_mouse.y() - m_rowHeight / 2);
    const int place = DropPlace();
    const int line = (place < m_selected ? place - 1 : place) * m_rowHeight - kMarkHeight / 2;
    m_mark->setGeometry(0, std::clamp(line, 0, m_container->height() - kMarkHeight), m_container->width(), kMarkHeight);
    m_mark->setVisible(place != m_selected);
    m_mark->raise();
    const bool isAbove = m_mouse.y() < kEdge;
    if (!isAbove && m_mouse.y() < viewport()->height() - kEdge)
        return m_scroll.stop();
    m_direction = isAbove ? Direction::Up : Direction::Down;
    if (!m_scroll.isActive())
        m_scroll.start();
}

void ctxListObjects::EndDrag()
{
    m_pressed = m_dragging = false;
    m_scroll.stop();
    m_mark->hide();
    m_shadow->hide();
}

// The row under the mouse, as far as the region of the dragged one goes on.
int ctxListObjects::DropPlace() const
{
    const int under = RowAt(std::clamp(m_mouse.y(), 0, viewport()->height() - 1) + kTopMargin);
    const int step = under < m_selected ? -1 : 1;
    int place = m_selected;
    while (place != under && MayTrade(m_selected, place + step))
        place += step;
    return place;
}

void ctxListObjects::Scroll()
{
    const int step = std::max(1, m_rowHeight / kScrollParts);
    verticalScrollBar()->setValue(verticalScrollBar()->value() + (m_direction == Direction::Up ? -step : step));
    DragOn();
}

void ctxListObjects::dragEnterEvent(QDragEnterEvent* event)
{
    if (m_dropSource && event->source() == m_dropSource)
        event->acceptProposedAction();
}

void ctxListObjects::dragMoveEvent(QDragMoveEvent* event)
{
    event->acceptProposedAction();
}

void ctxListObjects::dropEvent(QDropEvent* event)
{
    event->acceptProposedAction();
    Q_EMIT SourceDropped();
}

} // namespace kelvado
