#include "ui/DatePicker.h"

#include "core/Literals.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QHBoxLayout>
#include <QKeyEvent>

#include <utility>

namespace kelvado {

namespace {

// The first day that the field takes; while there is no date, it holds this one and shows a blank for it.
const QDate kFirstDay(100, 1, 1);

/// Goes on to the next part when one is full, as its base does, and then takes no offence at a hyphen typed all the same.
class DateField : public QDateEdit
{
public:
    using QDateEdit::QDateEdit;

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        if (std::exchange(m_wentOn, false) && event->text() == u"-")
            return;
        const Section before = currentSection();
        QDateEdit::keyPressEvent(event);
        m_wentOn = !event->text().isEmpty() && event->text()[0].isDigit() && currentSection() != before;
    }

private:
    bool m_wentOn = false;
};

} // namespace

DatePicker::DatePicker(QWidget* parent)
    : QWidget(parent), m_present(new QCheckBox(this)), m_field(new DateField(this)), m_offer(QDate::currentDate())
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_present);
    row->addWidget(m_field, 1);
    m_field->setCalendarPopup(true);
    m_field->setDisplayFormat(u"yyyy-MM-dd"_s);
    m_field->setMinimumDate(kFirstDay);
    setFocusPolicy(Qt::StrongFocus);
    setFocusProxy(m_present);
    connect(m_present, &QCheckBox::toggled, this, &DatePicker::ShowDate);
    connect(m_present, &QCheckBox::toggled, this, &DatePicker::Changed);
    connect(m_field, &QDateEdit::dateChanged, this, &DatePicker::Changed);
    ShowDate(false);
}

std::optional<QDate> DatePicker::Date() const
{
    return m_present->isChecked() ? std::optional(m_field->date()) : std::nullopt;
}

void DatePicker::SetDate(std::optional<QDate> date)
{
    if (date)
        m_offer = *date;
    if (m_present->isChecked() == date.has_value())
        ShowDate(date.has_value());
    else
        m_present->setChecked(date.has_value());
}

void DatePicker::SetCaption(const QString& caption)
{
    m_caption = caption;
    setAccessibleName(caption);
    m_field->setAccessibleName(caption);
    m_present->setAccessibleName(tr("Has a %1").arg(caption));
    m_present->setToolTip(tr("With or without this date"));
}

void DatePicker::ShowDate(bool present)
{
    // The date that is switched off comes back when it is switched on again.
    if (!present && m_field->date() != kFirstDay)
        m_offer = m_field->date();
    m_field->setSpecialValueText(present ? QString() : u" "_s);
    m_field->setDate(present ? m_offer : kFirstDay);
    m_field->setEnabled(present);
}

} // namespace kelvado
