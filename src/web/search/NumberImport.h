#pragma once

#include "core/Dialogs.h"
#include "core/Literals.h"

#include <QString>
#include <QStringList>

namespace kelvado {

/// What the file dialog for a file with film numbers offers.
inline constexpr QLatin1StringView kNumberFileFilter = "Web Pages (*.htm, *.html)| *.htm;*html|Text Files (*.txt)|*.txt|"
                                                       "Release NFO Files (*.nfo)|*.nfo|All Files (*.*)|*.*|"_L1;

/// Every seven digits of the file in order of appearance, doubles included: a run of eight digits gives one number, one of fourteen two.
/// Digits are the same in every encoding that such files have, so any file will do. Raises `kErrFileNotFound` for a file that cannot be
/// read.
QStringList ReadNumbers(const QString& path);

} // namespace kelvado
