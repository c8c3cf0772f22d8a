#pragma once

#include <QImage>
#include <QList>
#include <QString>

namespace kelvado {

/// Writes `frames`, all of one size, as one GIF; more than one frame makes a picture that moves for ever.
/// A pixel that is less than half opaque is transparent. The 255 most frequent colours are kept exactly, any other becomes the nearest of
/// them. Raises std::runtime_error, with the path, where the file cannot be written.
void SaveGif(const QString& path, const QList<QImage>& frames, int hundredthsPerFrame = 0);

} // namespace kelvado
