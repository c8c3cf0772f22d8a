#include "ui/RatingBar.h"

#include "core/Literals.h"
#include "ui/SkinPictures.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace kelvado {

void RatingBar::LoadPictures(const QString& skin)
{
    m_empty = LoadSkinPicture(skin, u"RatingBar/barNo.gif"_s, devicePixelRatioF());
    m_full = LoadSkinPicture(skin, u"RatingBar/barYes.gif"_s, devicePixelRatioF());
    update();
}

void RatingBar::SetValue(int value)
{
    m_value = std::clamp(value, 0, kMost);
    update();
}

int RatingBar::FilledWidth() const
{
    return m_value == kMost ? sizeHint().width() : static_cast<int>(m_value * 0.1 * sizeHint().width());
}

void RatingBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const auto draw = [&](const QPixmap& star, const QRect& clip) {
        painter.setClipRect(clip);
        for (int i = 0; i < kMost; ++i)
            painter.drawPixmap(QRect(i * kStar, 0, kStar, kStar), star);
    };
    const int filled = FilledWidth();
    draw(m_empty, QRect(filled, 0, sizeHint().width() - filled, kStar));
    draw(m_full, QRect(0, 0, filled, kStar));
}

void RatingBar::mousePressEvent(QMouseEvent* event)
{
    constexpr int kQuarter = kStar / 4; // a press at the very start takes the last star away
    if (event->button() == Qt::LeftButton)
        Q_EMIT Pressed(event->position().x() < kQuarter ? 0 : std::min(kMost, static_cast<int>(event->position().x()) / kStar + 1));
}

} // namespace kelvado
