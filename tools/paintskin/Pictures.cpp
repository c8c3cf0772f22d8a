#include "Pictures.h"

#include "Gif.h"
#include "core/Literals.h"

#include <QBuffer>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QJsonObject>
#include <QPainter>
#include <QRegularExpression>

namespace kelvado {

namespace {

constexpr int kJpegQuality = 92;

void WriteBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!QDir().mkpath(QFileInfo(path).path()) || !file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        throw ArtFault(path, u"cannot be written"_s);
}

/// The name of a picture: that of its entry with name and state, and what tells its size before the kind.
QString PictureName(QString pattern, const QString& name, const QString& state, const QString& size)
{
    pattern.replace(u"{name}"_s, name).replace(u"{state}"_s, state);
    return pattern.insert(pattern.lastIndexOf(u'.'), size);
}

void SavePicture(const QList<QImage>& frames, int hundredths, const QString& path)
{
    const QString kind = QFileInfo(path).suffix().toLower();
    for (const QImage& frame : frames) {
        const QImage alpha = frame.convertToFormat(QImage::Format_Alpha8);
        for (int y = 0; kind != u"png" && y < alpha.height(); ++y) {
            if (QByteArrayView(alpha.constScanLine(y), alpha.width()).count('\xFF') != alpha.width())
                throw ArtFault(path, u"the drawing leaves places free, which this kind of picture cannot"_s);
        }
    }
    if (kind == u"gif")
        return WriteBytes(path, GifOf(frames, hundredths));
    QBuffer bytes;
    bytes.open(QIODevice::WriteOnly);
    const QImage picture = kind == u"png" ? frames.at(0) : frames.at(0).convertToFormat(QImage::Format_RGB32);
    if (!picture.save(&bytes, kind.toLatin1().constData(), kind == u"jpg" ? kJpegQuality : -1))
        throw ArtFault(path, u"no picture of this kind can be written"_s);
    WriteBytes(path, bytes.data());
}

/// What an entry, a name or a state sets; it goes before what stands in `values`.
Values With(Values values, const QJsonValue& settings)
{
    if (settings.isString())
        values[u"drawing"_s] = settings.toString();
    const QJsonObject object = settings.toObject();
    for (auto setting = object.begin(); setting != object.end(); ++setting) {
        if (setting->isString() || setting->isDouble())
            values[setting.key()] = setting.key() == u"drawing" ? setting->toString() : Filled(setting->toVariant().toString(), values);
    }
    return values;
}

class Entry
{
public:
    Entry(QString pattern, const QJsonObject& settings, const QStringList& folders)
        : m_pattern(std::move(pattern)), m_settings(settings), m_folders(folders)
    {
    }

    void Make(const Values& palette, const QString& target) const
    {
        const Values common = With(palette, m_settings);
        const QJsonObject names = Table(u"names"_s, {{QString(), QJsonObject()}});
        const QJsonObject states = Table(u"states"_s, {{QString(), QJsonObject()}});
        const QJsonObject sizes = Table(u"sizes"_s, {{QString(), 1}, {u"@2x"_s, 2}});
        for (auto name = names.begin(); name != names.end(); ++name) {
            const Values named = With(common, *name);
            for (auto state = states.begin(); state != states.end(); ++state) {
                const Values values = With(named, *state);
                for (auto size = sizes.begin(); size != sizes.end(); ++size)
                    SavePicture(Frames(values, size->toDouble()), m_settings[u"hundredths"].toInt(),
                                target + u'/' + PictureName(m_pattern, name.key(), state.key(), size.key()));
            }
        }
    }

private:
    QJsonObject Table(const QString& key, const QJsonObject& without) const
    {
        return m_settings.contains(key) ? m_settings[key].toObject() : without;
    }

    QList<QImage> Frames(Values values, double scale) const
    {
        QList<QImage> frames;
        const int count = m_settings[u"frames"].toInt(1);
        for (int frame = 0; frame < count; ++frame) {
            values[u"Frame"_s] = QString::number(frame + 1);
            values[u"Turn"_s] = QString::number(360.0 * frame / count);
            const Drawing drawing(m_folders, Filled(values.value(u"drawing"_s), values), values);
            QImage picture((drawing.Size() * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
            picture.fill(Qt::transparent);
            QPainter painter(&picture);
            painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
            drawing.Draw(painter, picture.rect());
            QColor veil(Qt::black);
            veil.setAlphaF(values.value(u"opacity"_s, u"1"_s).toFloat());
            painter.setCompositionMode(QPainter::CompositionMode_DestinationIn); // fades the whole, where strokes cross too
            painter.fillRect(picture.rect(), veil);
            frames << picture;
        }
        return frames;
    }

    QString m_pattern;
    QJsonObject m_settings;
    QStringList m_folders;
};

/// A file of the skin itself, with the colors of its palette: those of skin.ini stand in braces, those of a page are the properties of its
/// style sheet that have a color's name ("--Ink: #1b2430").
QByteArray Colored(const QString& path, const Values& palette)
{
    QByteArray bytes = FileBytes(path);
    if (path.endsWith(u"skin.ini", Qt::CaseInsensitive))
        return Filled(QString::fromUtf8(bytes), palette).remove(u'#').toUtf8();
    static const QStringList pages{u"html"_s, u"xsl"_s, u"xslt"_s, u"css"_s};
    if (!pages.contains(QFileInfo(path).suffix().toLower()))
        return bytes;
    QString page = QString::fromUtf8(bytes);
    for (auto color = palette.begin(); color != palette.end(); ++color)
        page.replace(QRegularExpression(u"--"_s + color.key() + u": *#[0-9A-Fa-f]{6}"_s), u"--"_s + color.key() + u": "_s + *color);
    return page.toUtf8();
}

QStringList ArtFolders(const QString& skin, const QString& art)
{
    return {skin + u"/art"_s, art};
}

} // namespace

void MakePictures(const QString& list, const QStringList& folders, const Values& palette, const QString& target)
{
    const QJsonObject entries = ReadList(list);
    for (auto entry = entries.begin(); entry != entries.end(); ++entry) {
        try {
            Entry(entry.key(), entry->toObject(), folders).Make(palette, target);
        } catch (const ArtFault& fault) {
            throw ArtFault(list, entry.key() + u": "_s + QString::fromUtf8(fault.what()));
        }
    }
}

void MakeSkin(const QString& skin, const QString& art, const QString& target)
{
    const QStringList folders = ArtFolders(skin, art);
    const Values palette = ReadPalette(skin + u"/palette.ini"_s);
    // What the skins share comes first, so that a skin's own file takes its place.
    for (const QString& source : {art + u"/skin"_s, skin}) {
        for (QDirIterator files(source, QDir::Files, QDirIterator::Subdirectories); files.hasNext();) {
            const QString path = files.next();
            if (!path.startsWith(folders[0] + u'/'))
                WriteBytes(target + path.mid(source.size()), Colored(path, palette));
        }
    }
    MakePictures(FindArt(folders, u"skin.json"_s), folders, palette, target);
}

void MakeProgramPictures(const QString& skin, const QString& art, const QString& target)
{
    const QStringList folders = ArtFolders(skin, art);
    MakePictures(FindArt(folders, u"program.json"_s), folders, ReadPalette(skin + u"/palette.ini"_s), target);
}

} // namespace kelvado
