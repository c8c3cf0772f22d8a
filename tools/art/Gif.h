#pragma once

#include <QByteArray>
#include <QImage>
#include <QList>

namespace kelvado {

/// `frames`, all of one size and opaque, as one GIF; more than one frame makes a picture that moves for ever.
/// Each frame keeps its 256 most frequent colors exactly, and any other becomes the nearest of them.
QByteArray GifOf(const QList<QImage>& frames, int hundredthsPerFrame);

} // namespace kelvado
