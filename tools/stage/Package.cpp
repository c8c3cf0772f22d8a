#include "Package.h"

#include "core/Literals.h"
#include "core/Profile.h"
#include "core/RuntimeError.h"
#include "render/export/cTemplate.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>

namespace kelvado {

namespace {

QString TextOf(const QString& path)
{
    return QString::fromUtf8(cTemplate::GetBinaryFile(path));
}

// In the order of their names, so that a package is the same on every machine.
void AddFiles(cTemplate& package, const QDir& folder)
{
    QStringList paths;
    for (QDirIterator files(folder.path(), QDir::Files, QDirIterator::Subdirectories); files.hasNext();)
        paths << folder.relativeFilePath(files.next());
    paths.sort();
    for (const QString& path : paths) {
        const QString place = QFileInfo(path).path();
        package.AddFile(cTemplate::GetBinaryFile(folder.filePath(path)), QFileInfo(path).fileName(), place == "."_L1 ? QString() : place);
    }
}

} // namespace

void MakePackage(const QString& folder, const QString& target)
{
    const QDir source(folder);
    const Profile flags(source.filePath(u"package.ini"_s));
    const auto isOn = [&](const QString& key) {
        const QString value = flags.Value(u"Options"_s, key);
        if (value != "0"_L1 && value != "1"_L1)
            throw RuntimeError(kErrTypeMismatch, flags.Path() + u": "_s + key + u" must be 0 or 1"_s);
        return value == "1"_L1;
    };
    cTemplate package;
    package.Nav = isOn(u"Nav"_s);
    package.FilmsPerPage = isOn(u"FilmsPerPage"_s);
    package.DetailsPage = isOn(u"DetailsPage"_s);
    package.StandardPage = isOn(u"StandardPage"_s);
    package.Header = TextOf(source.filePath(u"header.html"_s));
    package.Body = TextOf(source.filePath(u"body.html"_s));
    package.Footer = TextOf(source.filePath(u"footer.html"_s));
    package.Detail = package.DetailsPage ? TextOf(source.filePath(u"detail.html"_s)) : u""_s;
    package.CSS = TextOf(source.filePath(u"style.css"_s));
    package.SetThumbnailData(cTemplate::GetBinaryFile(source.filePath(u"thumbnail.jpg"_s)));
    package.SetPreviewData(cTemplate::GetBinaryFile(source.filePath(u"preview.jpg"_s)));
    package.ThumbnailExtention = package.PreviewExtention = u"JPG"_s;
    AddFiles(package, QDir(source.filePath(u"files"_s)));

    QDir().mkpath(QFileInfo(target).path());
    MakeEmptyPackage(target, package);
    package.SaveTemplate(target);
}

} // namespace kelvado
