#include "ui/SkinPictures.h"

#include "core/Literals.h"
#include "core/Paths.h"
#include "core/RuntimeError.h"

#include <QFileInfo>
#include <QImageReader>

namespace kelvado {

namespace {

QString DoubleSizeName(const QString& name)
{
    const qsizetype point = name.lastIndexOf(u'.');
    return name.left(point) + u"@2x"_s + name.mid(point);
}

} // namespace

QPixmap LoadSkinPicture(const QString& skin, const QString& name, qreal scale)
{
    const QString folder = SkinFolder(skin);
    QString path = FindFileCaseBlind(folder, name);
    qreal ratio = 1;
    if (scale > 1) {
        const QString sharp = FindFileCaseBlind(folder, DoubleSizeName(name));
        if (QFileInfo::exists(sharp)) {
            path = sharp;
            ratio = 2;
        }
    }
    if (!QFileInfo::exists(path))
        throw RuntimeError::WithDetail(kErrFileNotFound, path);
    // The content decides, not the name: skins carry pictures under the names of older formats.
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    reader.setAutoDetectImageFormat(true);
    QPixmap picture = QPixmap::fromImage(reader.read());
    if (picture.isNull())
        throw RuntimeError::WithDetail(kErrInvalidPicture, path);
    picture.setDevicePixelRatio(ratio);
    return picture;
}

} // namespace kelvado
