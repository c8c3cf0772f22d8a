#pragma once

#include "core/TextEntry.h"

#include <QWidget>

class QCheckBox;
class QLabel;
class QLineEdit;

namespace kelvado {

class AlignPicker;

/// One row of the output's list: what it stands for, with editors of its alignment, the length that it is cut to and the width that it is
/// padded to. A fixed line in front of the films or behind them has nothing to edit.
class ctxListItem : public QWidget
{
    Q_OBJECT
public:
    ctxListItem(const TextEntry& entry, const QString& rowKind, QWidget* parent);

    /// As the editors have it now.
    const TextEntry& Entry() const { return m_entry; }
    const QString& RowKind() const { return m_rowKind; }

    bool Selected() const { return m_selected; }
    /// The Tab key goes through the editors of the selected row alone.
    void SetSelected(bool selected);
    /// Puts the row's editors behind `widget` in the order of the Tab key.
    void FollowInTabOrder(QWidget* widget) const;
    /// The editor that is first reached; null where there is none.
    QWidget* FirstEditor() const { return m_editors.isEmpty() ? nullptr : m_editors.constFirst(); }

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Lengths
    {
        const char* check;
        const char* caption;
        const char* box;
        const char* boxName; ///< for assistive programs
        bool TextEntry::*isOn;
        int TextEntry::*length;
    };
    static const Lengths kLengths[2];
    QWidget* MakeLength(const Lengths& lengths);
    void MakeEditors();

    TextEntry m_entry;
    QString m_rowKind;
    QLabel* m_caption;
    QList<QWidget*> m_editors; ///< in the order of the Tab key
    bool m_selected = false;
};

} // namespace kelvado
