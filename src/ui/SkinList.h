#pragma once

#include <QString>
#include <QStringList>

class QPalette;

namespace kelvado {

/// The names of all skins: the folders below "Skins" that have no point in their name.
QStringList SkinNames();

/// Raises `kErrFileNotFound` with the path of `skin.ini` where the skin has none.
void RequireSkinFile(const QString& skin);

/// The skin of a program for which none was chosen yet, by the desktop's colours.
QString SkinOfFirstStart(const QPalette& desktop);

} // namespace kelvado
