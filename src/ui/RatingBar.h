#pragma once

#include <QPixmap>
#include <QWidget>

namespace kelvado {

/// Ten stars, of which the filled ones lie over the empty ones as a picture that is clipped to its share.
class RatingBar : public QWidget
{
    Q_OBJECT
public:
    static constexpr int kMost = 10;

    using QWidget::QWidget;

    /// Loads the stars of `skin`; raises `kErrFileNotFound` or `kErrInvalidPicture` where one is missing.
    void LoadPictures(const QString& skin);
    /// 0 to 10; any other value counts as the next of them.
    void SetValue(int value);
    /// The width of the filled part, in pixels.
    int FilledWidth() const;
    QSize sizeHint() const override { return kStar * QSize(kMost, 1); }

Q_SIGNALS:
    /// The user pressed at the star `value`, or in front of the first one.
    void Pressed(int value);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    static constexpr int kStar = 20;

    QPixmap m_empty, m_full; ///< one star each
    int m_value = 0;
};

} // namespace kelvado
