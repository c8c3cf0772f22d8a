#pragma once

#include <QPixmap>
#include <QString>

namespace kelvado {

/// A picture of the skin, in the double-size form ("name@2x.ext") where the skin has one and `scale` is above 1. Its device pixel ratio
/// is set so that both forms take the same room. `name` is relative to the skin's folder and found without regard to case.
/// Raises `kErrFileNotFound` where there is no such file, `kErrInvalidPicture` where it is no picture; both name the file.
QPixmap LoadSkinPicture(const QString& skin, const QString& name, qreal scale);

} // namespace kelvado
