#pragma once

#include <QLabel>
#include <QPointer>

namespace kelvado {

/// A short line that tells at a field what is wrong with it, or how much of its room is used. It lies above the panel's controls, so that
/// nothing moves when it comes and goes. One note serves all fields of a panel.
class FieldNote : public QLabel
{
    Q_OBJECT
public:
    explicit FieldNote(QWidget* panel);

    enum class Place {
        Inside, ///< at the end of the field, whose own text is short
        Below,  ///< while the field has the focus
    };

    /// Shows `text` at `field`, which lies in the panel; assistive programs are told it as the field's description.
    void Tell(QWidget& field, const QString& text, Place place);
    /// Takes the note away where it stands at `field`.
    void Clear(const QWidget& field);
    void Clear();
    /// Takes the colours that the panel has now.
    void TakeColors();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPointer<QWidget> m_field;
    Place m_place = Place::Below;
};

} // namespace kelvado
