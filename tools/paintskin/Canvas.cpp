#include "Canvas.h"

#include "GifFile.h"

#include <stdexcept>

namespace kelvado {

QImage Paint(int width, int height, int scale, const QColor& ground, const Drawing& drawing)
{
    const bool opaque = ground.alpha() == 255;
    QImage picture(width * scale, height * scale, opaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
    picture.fill(ground);
    QPainter painter(&picture);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.scale(scale, scale);
    drawing(painter);
    return picture;
}

QString DoubleName(const QString& name)
{
    QString doubled = name;
    return doubled.insert(name.lastIndexOf(u'.'), u"@2x"_qs);
}

void SavePicture(const QImage& picture, const QString& path)
{
    if (path.endsWith(u".gif"_qs, Qt::CaseInsensitive))
        return SaveGif(path, {picture});
    const int quality = path.endsWith(u".jpg"_qs, Qt::CaseInsensitive) ? 92 : -1;
    if (!picture.save(path, nullptr, quality))
        throw std::runtime_error("cannot write " + path.toStdString());
}

void SavePair(const QString& folder, const QString& name, int width, int height, const QColor& ground, const Drawing& drawing)
{
    SavePicture(Paint(width, height, 1, ground, drawing), folder + u'/' + name);
    SavePicture(Paint(width, height, 2, ground, drawing), folder + u'/' + DoubleName(name));
}

} // namespace kelvado
