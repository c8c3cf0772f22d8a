#pragma once

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QString>

#include <functional>

namespace kelvado {

/// Paints into a picture of `width` × `height` units; called once for each scale, always in units of 100 %.
using Drawing = std::function<void(QPainter&)>;

/// The picture that `drawing` gives at `scale` pixels a unit, on `ground` (which may be transparent).
QImage Paint(int width, int height, int scale, const QColor& ground, const Drawing& drawing);

/// Paints `drawing` into `folder`/`name`, and in double size into the file of the same name with "@2x" before its extension.
/// The kind is that of the extension, in any case. Raises std::runtime_error where a file cannot be written.
void SavePair(const QString& folder, const QString& name, int width, int height, const QColor& ground, const Drawing& drawing);

/// Writes one picture; raises std::runtime_error where that fails.
void SavePicture(const QImage& picture, const QString& path);

/// "ToolLeft.BMP" gives "ToolLeft@2x.BMP".
QString DoubleName(const QString& name);

} // namespace kelvado
