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

void BusyPicture::Load(const QStringList& folders)
{
    const auto find = [&](const QString& name) {
        for (const QString& folder : folders) {
            QString sharp = FindFileCaseBlind(folder, name + u"@2x.gif"_s);
            QString plain = FindFileCaseBlind(folder, name + u".gif"_s);
            if (devicePixelRatioF() > 1 && QFileInfo::exists(sharp))
                return sharp;
            if (QFileInfo::exists(plain))
                return plain;
        }
        return QString();
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
