#pragma once

#include <QString>

namespace kelvado {

/// The folder that holds the program's files, with "/" and without a trailing one, so that "/name" can always be appended.
/// It is `KELVADO_HOME` where that variable is set, else the executable's folder.
QString AppPath();

/// `folder` as `AppPath` gives it: "/" for "\", and no trailing separator, not even behind a drive root ("C:\" gives "C:").
QString AppPathOf(const QString& folder);

QString SettingsFile();
QString TempFolder();
QString SkinFolder(const QString& skin);

/// The path of `name` below `folder`, found without regard to the case of its parts; `name` may hold "/" or "\" and may begin with one.
/// Where no such file exists, the path as it was asked for.
QString FindFileCaseBlind(const QString& folder, const QString& name);

/// The path of `name` below `folder`, for files that come from elsewhere. `name` may hold "/" or "\". Raises `kErrFileAccess` with the name
/// for one that leads out of the folder or names the folder itself: an absolute one, one with "..", one behind a link.
QString PathBelow(const QString& folder, const QString& name);

/// True if `path` names an existing file or folder that lies below `folder`, links resolved.
bool IsInside(const QString& folder, const QString& path);

} // namespace kelvado
