#include "ui/BusyPicture.h"

#include "core/Literals.h"
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
        const QString sharp = FindFileCaseBlind(folder, name + u"@2x.gif"_s);
        return devicePixelRatioF() > 1 && QFileInfo::exists(sharp) ? sharp : FindFileCaseBlind(folder, name + u".gif"_s);
    };
    m_working = std::make_unique<QMovie>(find(u"working"_s));
    m_stop = std::make_unique<QMovie>(find(u"stop"_s));
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
