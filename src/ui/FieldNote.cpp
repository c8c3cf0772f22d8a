#include "ui/FieldNote.h"

#include "core/Literals.h"

#include <QAccessible>
#include <QEvent>

#include <algorithm>

namespace kelvado {

namespace {

constexpr int kInset = 3;
constexpr QRgb kAlertOnLight = 0xFFB3261E;
constexpr QRgb kAlertOnDark = 0xFFFF9A92;

} // namespace

FieldNote::FieldNote(QWidget* panel) : QLabel(panel)
{
    setObjectName(u"FieldNoteURL"_s); // a skin leaves the colours of such labels alone
    setTextFormat(Qt::PlainText);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAutoFillBackground(true);
    setMargin(3);
    hide();
}

void FieldNote::Tell(QWidget& field, const QString& text, Place place)
{
    if (m_field && m_field != &field)
        Clear();
    m_field = &field;
    field.installEventFilter(this);
    if (field.accessibleDescription() != text) {
        field.setAccessibleDescription(text);
        QAccessibleEvent event(&field, QAccessible::DescriptionChanged);
        QAccessible::updateAccessibility(&event);
    }
    m_place = place;
    TakeColors();
    setText(text);
    adjustSize();
    const QPoint end = field.mapTo(parentWidget(), QPoint(field.width() - width(), 0));
    const int inside = (field.height() - height()) / 2;
    move(std::max(0, end.x() - (place == Place::Inside ? kInset : 0)), end.y() + (place == Place::Inside ? inside : field.height()));
    raise();
    show();
}

void FieldNote::TakeColors()
{
    QPalette colors = parentWidget()->palette();
    colors.setColor(QPalette::Window, colors.color(QPalette::ToolTipBase));
    const bool isDark = colors.color(QPalette::ToolTipBase).lightnessF() < 0.5F;
    const QColor alert(isDark ? kAlertOnDark : kAlertOnLight);
    colors.setColor(QPalette::WindowText, m_place == Place::Inside ? alert : colors.color(QPalette::ToolTipText));
    setPalette(colors);
}

void FieldNote::Clear(const QWidget& field)
{
    if (m_field == &field)
        Clear();
}

void FieldNote::Clear()
{
    hide();
    if (m_field) {
        m_field->removeEventFilter(this);
        m_field->setAccessibleDescription({});
    }
    m_field = nullptr;
}

// A field that is no longer in sight takes its note along.
bool FieldNote::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_field && event->type() == QEvent::Hide)
        Clear();
    return QLabel::eventFilter(watched, event);
}

} // namespace kelvado
