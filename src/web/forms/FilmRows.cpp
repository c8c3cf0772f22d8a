#include "web/forms/FilmRows.h"

#include "core/Literals.h"
#include "ui/Skinner.h"
#include "web/retrieval/FilmQueue.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>

namespace kelvado {

FilmRows::FilmRows(QWidget* parent) : QTreeWidget(parent)
{
    setColumnCount(2);
    setHeaderLabels({tr("Title"), tr("Number")});
    setHeaderHidden(true);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(0, QHeaderView::Stretch);
    header()->setSectionResizeMode(1, QHeaderView::Fixed);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setEditTriggers(NoEditTriggers);
    connect(this, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem* item) { Q_EMIT Chosen(indexOfTopLevelItem(item)); });
    connect(this, &QTreeWidget::itemSelectionChanged, this, &FilmRows::SelectionMoved);
    ShowFocus(false);
}

void FilmRows::SetRows(const QList<SearchRow>& rows)
{
    const int selected = Selected();
    clear();
    QList<QTreeWidgetItem*> items;
    for (const SearchRow& row : rows) {
        const RowParts parts = PartsOf(row);
        auto* item = new QTreeWidgetItem({parts.Title, parts.Number});
        item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
        items << item;
    }
    addTopLevelItems(items);
    if (!items.isEmpty())
        setCurrentItem(items[std::clamp<qsizetype>(selected, 0, items.size() - 1)]);
    else
        Q_EMIT SelectionMoved();
}

void FilmRows::ShowWaiting(bool waiting)
{
    m_waiting = waiting;
    viewport()->update();
}

void FilmRows::paintEvent(QPaintEvent* event)
{
    QTreeWidget::paintEvent(event);
    if (!m_waiting || topLevelItemCount() > 0)
        return;
    constexpr int kMargin = 8;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect().adjusted(kMargin, kMargin, -kMargin, -kMargin), Qt::AlignTop | Qt::AlignLeft, tr("Searching…"));
}

int FilmRows::Selected() const
{
    const QList<QTreeWidgetItem*> items = selectedItems();
    return items.isEmpty() ? -1 : indexOfTopLevelItem(items.constFirst());
}

void FilmRows::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter)
        return QTreeWidget::keyPressEvent(event);
    event->accept(); // no default button is meant
    if (Selected() >= 0)
        Q_EMIT Chosen(Selected());
}

void FilmRows::contextMenuEvent(QContextMenuEvent* event)
{
    event->accept();
    QPoint place = event->globalPos();
    if (event->reason() == QContextMenuEvent::Keyboard && currentItem())
        place = viewport()->mapToGlobal(visualItemRect(currentItem()).center());
    Q_EMIT MenuRequested(place);
}

void FilmRows::focusInEvent(QFocusEvent* event)
{
    QTreeWidget::focusInEvent(event);
    ShowFocus(true);
    Q_EMIT Focused();
}

void FilmRows::focusOutEvent(QFocusEvent* event)
{
    QTreeWidget::focusOutEvent(event);
    ShowFocus(event->reason() == Qt::ActiveWindowFocusReason || event->reason() == Qt::PopupFocusReason);
}

// Lists stand beside each other, each with its selected row; the one that takes the keys shows it in the full colour.
void FilmRows::ShowFocus(bool focused)
{
    m_showsFocus = focused;
    const QPalette full = QApplication::palette(this);
    QPalette colors = palette();
    QColor back = full.color(QPalette::Highlight);
    QColor text = full.color(QPalette::HighlightedText);
    if (!focused) {
        constexpr float kPart = 0.25F;
        back = Mixed(colors.color(QPalette::Base), back, kPart);
        text = colors.color(QPalette::Text);
    }
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        colors.setColor(group, QPalette::Highlight, back);
        colors.setColor(group, QPalette::HighlightedText, text);
    }
    setPalette(colors);
}

// The selection follows the skin. Colours that are the same already change nothing, which ends the round.
void FilmRows::changeEvent(QEvent* event)
{
    QTreeWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        ShowFocus(m_showsFocus);
}

void FilmRows::resizeEvent(QResizeEvent* event)
{
    constexpr int kMargin = 24;
    header()->resizeSection(1, fontMetrics().horizontalAdvance(u"0000000"_s) + kMargin);
    QTreeWidget::resizeEvent(event);
}

void ShowOtherTitles(QLabel& label, const QString& titles)
{
    constexpr qsizetype kMostLines = 8;
    const QStringList lines = titles.split(u'\n', Qt::SkipEmptyParts);
    const bool isCut = lines.size() > kMostLines;
    QStringList shown = isCut ? lines.first(kMostLines - 1) : lines;
    if (isCut)
        shown << FilmRows::tr("and %1 more").arg(lines.size() - shown.size());
    label.setText(shown.join(u'\n'));
    label.setToolTip(isCut ? titles.toHtmlEscaped().replace(u'\n', "<br>"_L1) : QString());
    label.setVisible(!shown.isEmpty());
}

} // namespace kelvado
