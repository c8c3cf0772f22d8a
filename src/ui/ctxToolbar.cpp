#include "ui/ctxToolbar.h"

#include "core/Literals.h"
#include "core/RuntimeError.h"
#include "ui/SkinPictures.h"

#include <QBitmap>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>

namespace kelvado {

namespace {

constexpr int kSeparatorWidth = 6;
constexpr int kCaptionGap = 4;
constexpr int kCornerRadius = 4;

} // namespace

ToolbarPictures SkinToolbarPictures(const QString& skin, const QString& key, qreal scale)
{
    const auto load = [&](QLatin1StringView ending) { return LoadSkinPicture(skin, u"Toolbar/"_s + key + ending, scale); };
    try {
        return {load(".png"_L1), load("-over.png"_L1), load("-down.png"_L1), load("-disabled.png"_L1)};
    } catch (const RuntimeError&) {
        return {};
    }
}

class ctxToolbar::Button : public QAbstractButton
{
public:
    Button(ctxToolbar& owner, const QString& caption, const QString& tooltip) : QAbstractButton(&owner), m_owner(owner)
    {
        setText(caption);
        setToolTip(tooltip);
        setAccessibleName(caption.isEmpty() ? tooltip : QString(caption).remove(u'&'));
        setFocusPolicy(Qt::TabFocus);
        setAttribute(Qt::WA_Hover);
    }

    void SetPictures(const ToolbarPictures& pictures)
    {
        m_pictures = pictures;
        if (m_pictures.over.isNull())
            m_pictures.over = m_pictures.plain;
        if (m_pictures.down.isNull())
            m_pictures.down = m_pictures.over;
        update();
    }

    QSize sizeHint() const override
    {
        const int caption =
            text().isEmpty() ? 0 : fontMetrics().size(Qt::TextShowMnemonic, text()).width() + kCaptionGap + m_owner.m_margin;
        return {m_owner.m_buttonWidth + caption, m_owner.m_buttonHeight};
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        const bool lit = isEnabled() && (underMouse() || isDown());
        if (lit) {
            QColor fill = m_owner.m_selectionColor;
            fill.setAlpha(isDown() ? 70 : 35);
            painter.setPen(Qt::NoPen);
            painter.setBrush(fill);
            painter.drawRoundedRect(rect().adjusted(1, 1, -1, -1), kCornerRadius, kCornerRadius);
        }
        const QPixmap& picture = Picture();
        const QSizeF size = picture.deviceIndependentSize();
        const QPointF place((m_owner.m_buttonWidth - size.width()) / 2, (height() - size.height()) / 2);
        if (!isEnabled() && m_pictures.disabled.isNull())
            painter.setOpacity(0.4);
        painter.drawPixmap(place, picture);
        painter.setOpacity(1);
        if (!text().isEmpty()) {
            painter.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
            painter.drawText(rect().adjusted(m_owner.m_buttonWidth + kCaptionGap - m_owner.m_margin / 2, 0, 0, 0),
                             Qt::AlignVCenter | Qt::TextShowMnemonic, text());
        }
        if (hasFocus()) {
            painter.setPen(QPen(m_owner.m_selectionColor, 1.5));
            painter.setBrush(Qt::NoBrush);
            painter.drawRoundedRect(QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5), kCornerRadius, kCornerRadius);
        }
    }

    void keyPressEvent(QKeyEvent* event) override
    {
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
            click();
        else
            QAbstractButton::keyPressEvent(event);
    }

private:
    const QPixmap& Picture() const
    {
        if (!isEnabled())
            return m_pictures.disabled.isNull() ? m_pictures.plain : m_pictures.disabled;
        if (isDown())
            return m_pictures.down;
        return underMouse() ? m_pictures.over : m_pictures.plain;
    }

    ctxToolbar& m_owner;
    ToolbarPictures m_pictures;
};

class ctxToolbar::Separator : public QWidget
{
public:
    explicit Separator(QWidget* parent) : QWidget(parent) { setFixedWidth(kSeparatorWidth); }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        const int x = kSeparatorWidth / 2;
        const int inset = height() / 5;
        painter.setPen(palette().color(QPalette::Mid));
        painter.drawLine(x, inset, x, height() - inset);
        painter.setPen(palette().color(QPalette::Light));
        painter.drawLine(x + 1, inset, x + 1, height() - inset);
    }
};

ctxToolbar::ctxToolbar(QWidget* parent) : QWidget(parent), m_row(new QHBoxLayout(this))
{
    m_row->setSpacing(0);
    ApplySizes();
}

void ctxToolbar::Add(const ToolbarPictures& pictures, Style style, const QString& key, const QString& caption, const QString& tooltip)
{
    Entry entry{key, nullptr, nullptr};
    if (style == Style::Separator) {
        entry.widget = new Separator(this);
    } else {
        entry.button = new Button(*this, caption, tooltip);
        entry.widget = entry.button;
        entry.button->setObjectName(key);
        connect(entry.button, &QAbstractButton::clicked, this, [this, key] { Q_EMIT ButtonClick(key); });
    }
    m_row->addWidget(entry.widget);
    m_buttons.push_back(entry);
    if (entry.button)
        SetPictures(key, pictures);
}

void ctxToolbar::SetPictures(const QString& key, const ToolbarPictures& pictures)
{
    const int index = ButtonIndex(key);
    if (index == 0)
        return;
    At(index).button->SetPictures(
        {MakeAdvBitmap(pictures.plain), MakeAdvBitmap(pictures.over), MakeAdvBitmap(pictures.down), MakeAdvBitmap(pictures.disabled)});
}

int ctxToolbar::ButtonIndex(const QString& key) const
{
    for (std::size_t i = 0; i < m_buttons.size(); ++i) {
        if (m_buttons[i].button && m_buttons[i].key == key)
            return static_cast<int>(i) + 1;
    }
    return 0;
}

const ctxToolbar::Entry& ctxToolbar::At(int index) const
{
    if (index < 1 || index > ButtonCount())
        throw RuntimeError(kErrSubscript);
    return m_buttons[static_cast<std::size_t>(index - 1)];
}

void ctxToolbar::SetButtonEnabled(int index, bool enabled)
{
    At(index).widget->setEnabled(enabled);
}

bool ctxToolbar::IsButtonEnabled(int index) const
{
    return At(index).widget->isEnabledTo(const_cast<ctxToolbar*>(this));
}

void ctxToolbar::Refresh()
{
    update();
    for (const Entry& entry : m_buttons)
        entry.widget->update();
}

QPixmap ctxToolbar::MakeAdvBitmap(const QPixmap& picture) const
{
    if (picture.isNull() || picture.hasAlphaChannel())
        return picture;
    QPixmap prepared = picture;
    prepared.setMask(prepared.createMaskFromColor(m_maskColor));
    return prepared;
}

void ctxToolbar::SetButtonHeight(int height)
{
    m_buttonHeight = height;
    ApplySizes();
}

void ctxToolbar::SetButtonWidth(int width)
{
    m_buttonWidth = width;
    ApplySizes();
}

void ctxToolbar::SetMargin(int margin)
{
    m_margin = margin;
    ApplySizes();
}

void ctxToolbar::SetSelectionColor(const QColor& color)
{
    m_selectionColor = color;
    Refresh();
}

void ctxToolbar::ApplySizes()
{
    m_row->setContentsMargins(0, m_margin / 2, 0, m_margin / 2);
    for (const Entry& entry : m_buttons)
        entry.widget->updateGeometry();
}

} // namespace kelvado
