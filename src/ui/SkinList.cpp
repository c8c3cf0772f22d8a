#include "ui/SkinList.h"

#include "core/Literals.h"
#include "core/Paths.h"
#include "core/RuntimeError.h"

#include <QDir>
#include <QFileInfo>
#include <QPalette>

#include <algorithm>

namespace kelvado {

QStringList SkinNames()
{
    QStringList names = QDir(SkinFolder({})).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase);
    names.removeIf([](const QString& name) { return name.contains(u'.'); });
    return names;
}

void RequireSkinFile(const QString& skin)
{
    const QString path = FindFileCaseBlind(SkinFolder(skin), u"skin.ini"_s);
    if (skin.isEmpty() || !QFileInfo(path).isFile())
        throw RuntimeError::WithDetail(kErrFileNotFound, path);
}

QString SkinOfFirstStart(const QPalette& desktop)
{
    const bool isDark = desktop.color(QPalette::Window).lightness() < desktop.color(QPalette::WindowText).lightness();
    return isDark ? u"Midnight"_s : u"Default XP"_s;
}

} // namespace kelvado
