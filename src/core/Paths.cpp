#include "core/Paths.h"

#include "core/Literals.h"
#include "core/RuntimeError.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace kelvado {

QString AppPath()
{
    const QString home = qEnvironmentVariable("KELVADO_HOME");
    return AppPathOf(home.isEmpty() ? QCoreApplication::applicationDirPath() : QDir(home).absolutePath());
}

QString AppPathOf(const QString& folder)
{
    QString path = folder;
    path.replace(u'\\', u'/');
    while (path.endsWith(u'/'))
        path.chop(1);
    return path;
}

QString SettingsFile()
{
    return FindFileCaseBlind(AppPath(), u"Settings.ini"_s);
}

QString TempFolder()
{
    return AppPath() + u"/temp"_s;
}

QString SkinFolder(const QString& skin)
{
    return AppPath() + u"/Skins/"_s + skin;
}

QString FindFileCaseBlind(const QString& folder, const QString& name)
{
    QString asked = name;
    asked.replace(u'\\', u'/');
    QString path = AppPathOf(folder);
    for (const QString& part : asked.split(u'/', Qt::SkipEmptyParts)) {
        const QString exact = path + u'/' + part;
        if (QFileInfo::exists(exact)) {
            path = exact;
            continue;
        }
        const QStringList entries = QDir(path).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
        const auto found = std::find_if(entries.begin(), entries.end(),
                                        [&](const QString& entry) { return entry.compare(part, Qt::CaseInsensitive) == 0; });
        path += u'/' + (found == entries.end() ? part : *found);
    }
    return path;
}

QString PathBelow(const QString& folder, const QString& name)
{
    const auto raise = [&] {
        throw RuntimeError::WithDetail(kErrFileAccess, u"\"%1\" leads out of %2"_s.arg(name, QDir::toNativeSeparators(folder)));
    };
    const QString root = AppPathOf(folder);
    const QString clean = QDir::cleanPath(QString(name).replace(u'\\', u'/'));
    const bool isAbsolute = clean.startsWith(u'/') || clean.indexOf(u':') == 1;
    if (isAbsolute || clean.isEmpty() || clean == u'.' || clean == u".." || clean.startsWith(u"../"))
        raise();
    QString path = root + u'/' + clean;
    // What stands already may be a link, also one to nothing yet.
    QFileInfo standing(path);
    while (standing.filePath().size() > root.size() && !standing.exists() && !standing.isSymLink())
        standing.setFile(standing.path());
    if (standing.filePath().size() > root.size() && !IsInside(root, standing.filePath()))
        raise();
    return path;
}

bool IsInside(const QString& folder, const QString& path)
{
    const QString root = QFileInfo(folder).canonicalFilePath();
    const QString target = QFileInfo(path).canonicalFilePath();
    return !root.isEmpty() && target.startsWith(root + u'/');
}

} // namespace kelvado
