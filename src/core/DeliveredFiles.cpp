#include "core/DeliveredFiles.h"

#include "core/Literals.h"
#include "core/Profile.h"
#include "core/RuntimeError.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

namespace kelvado {

namespace {

constexpr QLatin1StringView kSample = "Sample.kvd"_L1;

void CopyFile(const QString& source, const QString& target)
{
    // Delivered files may be read-only; the user's own are not.
    constexpr QFile::Permissions kOwn = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther;
    QFile::remove(target);
    if (!QDir().mkpath(QFileInfo(target).path()) || !QFile::copy(source, target) || !QFile::setPermissions(target, kOwn))
        throw RuntimeError::WithDetail(kErrFileAccess, target);
}

void CopyFolder(const QString& source, const QString& target)
{
    QDirIterator files(source, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString file = files.next();
        CopyFile(file, target + file.mid(source.size()));
    }
}

} // namespace

void FurnishHome(const QString& home, const QString& delivered)
{
    const QString temp = home + u"/temp"_s;
    QFile mark(temp + u"/furnishing"_s); // stands there until all is copied
    QStringList found = QDir(home).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    found.removeAll(u"temp"_s);
    if ((!found.isEmpty() && !mark.exists()) || QFileInfo(home).canonicalFilePath() == QFileInfo(delivered).canonicalFilePath())
        return;
    if (!QDir().mkpath(temp) || !mark.open(QIODevice::WriteOnly))
        throw RuntimeError::WithDetail(kErrFileAccess, mark.fileName());
    const QStringList kinds{u"*.ini"_s, u"*.dat"_s, u"*.kvd"_s, u"*.png"_s, u"*.gif"_s};
    for (const QFileInfo& file : QDir(delivered).entryInfoList(kinds, QDir::Files))
        CopyFile(file.filePath(), home + u'/' + file.fileName());
    for (const QString& folder : {u"/Skins"_s, u"/Templates"_s})
        CopyFolder(delivered + folder, home + folder);
    const QString sample = home + u'/' + kSample;
    WriteProfileValue(u"Settings"_s, u"Default"_s, QFile::exists(sample) ? sample : QString(), home + u"/Settings.ini"_s);
    mark.remove();
}

} // namespace kelvado
