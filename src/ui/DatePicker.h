#pragma once

#include <QDate>
#include <QWidget>

#include <optional>

class QCheckBox;
class QDateEdit;

namespace kelvado {

/// A date that may be absent: a check box says whether there is one, and without one the field beside it shows nothing.
class DatePicker : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString caption READ Caption WRITE SetCaption)
public:
    explicit DatePicker(QWidget* parent = nullptr);

    std::optional<QDate> Date() const;
    void SetDate(std::optional<QDate> date);
    /// The day that the field offers where the user asks for a date and there was none before; today's until it is set.
    void SetOffer(QDate date) { m_offer = date; }

    /// What the date is called; the accessible names of both controls come from it.
    QString Caption() const { return m_caption; }
    void SetCaption(const QString& caption);

Q_SIGNALS:
    void Changed();

private:
    void ShowDate(bool present);

    QCheckBox* m_present;
    QDateEdit* m_field;
    QDate m_offer;
    QString m_caption;
};

} // namespace kelvado
