#pragma once

#include <QAbstractButton>
#include <QColor>
#include <QPixmap>
#include <QString>
#include <QWidget>

#include <vector>

class QHBoxLayout;

namespace kelvado {

/// The pictures of one button; `over` and `down` fall back to `plain`, a missing `disabled` is drawn dimmed.
struct ToolbarPictures
{
    QPixmap plain, over, down, disabled;
};

/// The pictures of the skin for a button of a window's tool bar; none where the skin lacks one of them, so that the captions stand alone.
ToolbarPictures SkinToolbarPictures(const QString& skin, const QString& key, qreal scale);

/// A flat row of picture buttons and separators, each with a key. Buttons count from 1, separators among them. Every button can be
/// reached and pressed by keyboard.
class ctxToolbar : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(int ButtonHeight READ ButtonHeight WRITE SetButtonHeight)
    Q_PROPERTY(int ButtonWidth READ ButtonWidth WRITE SetButtonWidth)
    Q_PROPERTY(int Margin READ Margin WRITE SetMargin)
    Q_PROPERTY(QColor SelectionColor READ SelectionColor WRITE SetSelectionColor)
    Q_PROPERTY(QColor MaskColor READ MaskColor WRITE SetMaskColor)
public:
    enum class Style { Button, Separator };

    explicit ctxToolbar(QWidget* parent = nullptr);

    /// Appends a button and prepares its pictures. An empty `caption` shows the picture alone; an "&" in it makes a key of the letter
    /// behind. The accessible name is the caption, or the tool tip where there is none.
    void Add(const ToolbarPictures& pictures, Style style, const QString& key, const QString& caption, const QString& tooltip);
    /// Gives an existing button other pictures, as after a change of skin.
    void SetPictures(const QString& key, const ToolbarPictures& pictures);

    int ButtonCount() const { return static_cast<int>(m_buttons.size()); }
    /// The number of the button with this key, compared letter for letter; 0 where there is none.
    int ButtonIndex(const QString& key) const;
    /// Raises `kErrSubscript` for a number outside 1 to `ButtonCount`.
    void SetButtonEnabled(int index, bool enabled);
    bool IsButtonEnabled(int index) const;
    void Refresh();

    /// A picture whose pixels of `MaskColor` are transparent; one that has transparency of its own is left alone.
    QPixmap MakeAdvBitmap(const QPixmap& picture) const;

    int ButtonHeight() const { return m_buttonHeight; }
    void SetButtonHeight(int height);
    int ButtonWidth() const { return m_buttonWidth; }
    void SetButtonWidth(int width);
    int Margin() const { return m_margin; }
    void SetMargin(int margin);
    QColor SelectionColor() const { return m_selectionColor; }
    void SetSelectionColor(const QColor& color);
    QColor MaskColor() const { return m_maskColor; }
    void SetMaskColor(const QColor& color) { m_maskColor = color; }

Q_SIGNALS:
    void ButtonClick(const QString& key);

private:
    class Button;
    class Separator;
    struct Entry
    {
        QString key;
        QWidget* widget;
        Button* button; ///< null for a separator
    };
    const Entry& At(int index) const;
    void ApplySizes();

    QHBoxLayout* m_row;
    std::vector<Entry> m_buttons;
    int m_buttonHeight = 32;
    int m_buttonWidth = 32;
    int m_margin = 8;
    QColor m_selectionColor{0x22, 0x55, 0xFF};
    QColor m_maskColor{0xFF, 0x00, 0xFF};
};

} // namespace kelvado
