#include "ui/BusyPicture.h"

#include "core/Paths.h"

#include <QFileInfo>
#include <QMovie>
#include <QPainter>

namespace kelvado {

namespace {

constexpr int kSide = 32;

} // namespace

BusyPicture::BusyPicture(QWidget* parent) : QWidget(parent)
{
    setFixedSize(kSide, kSide);
}

BusyPicture::~BusyPicture() = default;

void BusyPicture::Load(const QString& folder)
{
    const auto find = [&](const QString& name) {
        const QString sharp = FindFileCaseBlind(folder, name + QStringLiteral("@2x.gif"));
        return devicePixelRatioF() > 1 && QFileInfo::exists(sharp) ? sharp : FindFileCaseBlind(folder, name + QStringLiteral(".gif"));
    };
    m_working = std::make_unique<QMovie>(find(QStringLiteral("working")));
    m_stop = std::make_unique<QMovie>(find(QStringLiteral("stop")));
    connect(m_working.get(), &QMovie::frameChanged, this, [this] { update(); });
    m_stop->jumpToFrame(0);
    SetBusy(m_busy);
}

void BusyPicture::SetBusy(bool busy)
{
    m_busy = busy;
    if (m_working && busy)
        m_working->start();
    else if (m_working)
        m_working->stop();
    update();
}

void BusyPicture::paintEvent(QPaintEvent*)
{
    const QMovie* movie = m_busy ? m_working.get() : m_stop.get();
    if (!movie || movie->currentPixmap().isNull())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(rect(), movie->currentPixmap());
}

} // namespace kelvado
