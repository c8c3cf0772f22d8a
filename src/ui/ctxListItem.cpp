#include "ui/ctxListItem.h"

#include "ui/AlignPicker.h"
#include "ui/Skinner.h"

#include <QAccessible>
#include <QCheckBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QRegularExpressionValidator>

namespace kelvado {

const ctxListItem::Lengths ctxListItem::kLengths[2] = {
    {"chkCut", QT_TR_NOOP("Auto cut length to "), "txtCut", QT_TR_NOOP("Cut length of %1"), &TextEntry::AutoCutt,
     &TextEntry::AutoCutLength},
    {"chkFieldWidth", QT_TR_NOOP("Formatted Width to"), "txtFieldWidth", QT_TR_NOOP("Formatted width of %1"), &TextEntry::Formated,
     &TextEntry::FormatedLength},
};

ctxListItem::ctxListItem(const TextEntry& entry, const QString& rowKind, QWidget* parent)
    : QWidget(parent), m_entry(entry), m_rowKind(rowKind), m_caption(new QLabel(this))
{
    constexpr int kMargin = 8;
    setObjectName(u"ListItem"_s);
    setAccessibleName(entry.Caption);
    m_caption->setObjectName(u"lblCaption"_s);
    m_caption->setTextFormat(Qt::PlainText);
    m_caption->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    QFont bold = m_caption->font();
    bold.setBold(true);
    m_caption->setFont(bold);
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(kMargin, kMargin - 2, kMargin, kMargin - 2);
    grid->addWidget(m_caption, 0, 0, 1, 2);
    grid->setColumnStretch(1, 1);
    if (RegionOf(entry) == EntryRegion::Cell) {
        MakeEditors();
    } else {
        auto* note =
            new QLabel(RegionOf(entry) == EntryRegion::Header ? tr("One line in front of the films") : tr("One line behind the films"));
        note->setObjectName(u"lblNote"_s);
        grid->addWidget(note, 1, 0, 1, 2);
    }
    SetSelected(false);
}

void ctxListItem::MakeEditors()
{
    auto* grid = static_cast<QGridLayout*>(layout());
    auto* align = new AlignPicker(this);
    align->setObjectName(u"PicAlign"_s);
    align->setAccessibleName(tr("Alignment of %1").arg(m_entry.Caption));
    align->SetValue(m_entry.TextAlign);
    connect(align, &AlignPicker::Picked, this, [this](CellAlign value) { m_entry.TextAlign = value; });
    m_editors << align;
    grid->addWidget(align, 0, 2, Qt::AlignRight);
    auto* row = new QHBoxLayout;
    row->setSpacing(3 * grid->spacing());
    for (const Lengths& lengths : kLengths)
        row->addWidget(MakeLength(lengths));
    row->addStretch();
    grid->addLayout(row, 1, 0, 1, 3);
}

QWidget* ctxListItem::MakeLength(const Lengths& lengths)
{
    auto* group = new QWidget(this);
    auto* row = new QHBoxLayout(group);
    row->setContentsMargins(0, 0, 0, 0);
    auto* check = new QCheckBox(tr(lengths.caption).trimmed(), group);
    check->setObjectName(QString::fromLatin1(lengths.check));
    check->setAccessibleName(tr(lengths.caption).trimmed() + u": "_s + m_entry.Caption);
    check->setChecked(m_entry.*lengths.isOn);
    check->installEventFilter(this);
    auto* box = new QLineEdit(QString::number(m_entry.*lengths.length), group);
    box->setObjectName(QString::fromLatin1(lengths.box));
    box->setAccessibleName(tr(lengths.boxName).arg(m_entry.Caption));
    box->setValidator(new QRegularExpressionValidator(QRegularExpression(u"[0-9]{0,%1}"_s.arg(QString::number(kMostWidth).size())), box));
    box->setFixedWidth(box->fontMetrics().horizontalAdvance(u"00000"_s) + 16);
    box->setAlignment(Qt::AlignRight);
    box->setEnabled(check->isChecked());
    connect(check, &QCheckBox::toggled, this, [this, box, isOn = lengths.isOn](bool on) {
        m_entry.*isOn = on;
        box->setEnabled(on);
    });
    connect(box, &QLineEdit::textChanged, this, [this, length = lengths.length](const QString& text) { m_entry.*length = text.toInt(); });
    row->addWidget(check);
    row->addWidget(box);
    row->addWidget(new QLabel(tr("characters."), group));
    m_editors << check << box;
    return group;
}

void ctxListItem::SetSelected(bool selected)
{
    const bool isChanged = m_selected != selected;
    m_selected = selected;
    for (QWidget* editor : std::as_const(m_editors))
        editor->setFocusPolicy(selected ? Qt::StrongFocus : Qt::ClickFocus);
    if (!isChanged)
        return;
    update();
    QAccessible::State changed;
    changed.selected = true;
    QAccessibleStateChangeEvent event(this, changed);
    QAccessible::updateAccessibility(&event);
}

void ctxListItem::FollowInTabOrder(QWidget* widget) const
{
    for (QWidget* editor : m_editors) {
        QWidget::setTabOrder(widget, editor);
        widget = editor;
    }
}

// A check box takes the arrow keys for itself, which are the row's.
bool ctxListItem::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Up && key != Qt::Key_Down)
        return QWidget::eventFilter(watched, event);
    event->ignore();
    QCoreApplication::sendEvent(this, event);
    return true;
}

void ctxListItem::paintEvent(QPaintEvent*)
{
    constexpr float kSelectedPart = 0.16F;
    constexpr float kLinePart = 0.15F;
    const QColor back = palette().color(QPalette::Window);
    QPainter painter(this);
    painter.fillRect(rect(), m_selected ? Mixed(back, palette().color(QPalette::Highlight), kSelectedPart) : back);
    painter.fillRect(QRect(0, height() - 1, width(), 1), Mixed(back, palette().color(QPalette::WindowText), kLinePart));
}

void ctxListItem::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    layout()->activate();
    const QString shown = m_caption->fontMetrics().elidedText(m_entry.Caption, Qt::ElideRight, m_caption->width());
    m_caption->setText(shown);
    m_caption->setToolTip(shown == m_entry.Caption ? QString() : m_entry.Caption.toHtmlEscaped());
}

} // namespace kelvado
