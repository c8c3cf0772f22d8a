#include "ui/TrayIcon.h"

#include <QSystemTrayIcon>
#include <QTimer>

namespace kelvado {

namespace {

constexpr qsizetype kLongestTip = 63;
constexpr int kFlashes = 6;
constexpr int kFlashMilliseconds = 300;

} // namespace

TrayIcon::TrayIcon(QObject* parent) : QObject(parent), m_icon(std::make_unique<QSystemTrayIcon>()), m_flash(new QTimer(this))
{
    connect(m_icon.get(), &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason == QSystemTrayIcon::Trigger)
            Q_EMIT Message(kTrayLeftDown);
        else if (reason == QSystemTrayIcon::DoubleClick)
            Q_EMIT Message(kTrayDoubleClick);
        else if (reason == QSystemTrayIcon::Context)
            Q_EMIT Message(kTrayRightDown);
    });
    m_flash->setInterval(kFlashMilliseconds);
    connect(m_flash, &QTimer::timeout, this, [this] {
        m_icon->setIcon(m_flashesLeft % 2 ? QIcon(QPixmap(1, 1)) : m_picture);
        if (--m_flashesLeft < 0)
            m_flash->stop();
    });
}

TrayIcon::~TrayIcon() = default;

bool TrayIcon::IsAvailable()
{
    return QSystemTrayIcon::isSystemTrayAvailable();
}

void TrayIcon::SetIcon(const QIcon& icon)
{
    m_picture = icon;
}

void TrayIcon::SetTipText(const QString& text)
{
    m_tipText = text.left(kLongestTip);
}

void TrayIcon::ShowTrayIcon()
{
    Update();
    m_icon->show();
}

void TrayIcon::HideTrayIcon()
{
    m_icon->hide();
}

void TrayIcon::Update()
{
    m_icon->setIcon(m_picture);
    m_icon->setToolTip(m_tipText);
}

void TrayIcon::Flash()
{
    m_flashesLeft = kFlashes;
    m_flash->start();
}

} // namespace kelvado
