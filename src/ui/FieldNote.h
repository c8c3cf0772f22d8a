#pragma once

#include <QLabel>
#include <QPointer>

namespace kelvado {

/// A line of text at the lower edge of a field that tells what is wrong with it, or how much of its room is used. It lies above what
/// stands below the field, so that nothing moves when it comes and goes. One note serves all fields of a panel.
class FieldNote : public QLabel
{
    Q_OBJECT
public:
    explicit FieldNote(QWidget* panel);

    /// Shows `text` at `field`, which lies in the panel; assistive programs are told it as the field's description.
    void Tell(QWidget& field, const QString& text);
    /// Takes the note away where it stands at `field`.
    void Clear(const QWidget& field);
    void Clear();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPointer<QWidget> m_field;
};

} // namespace kelvado
