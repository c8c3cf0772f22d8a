#pragma once

#include <QUrl>

namespace kelvado {

/// True if `address` may leave the program for the desktop: a valid one of the web or of mail. A text of any other kind could name a
/// program or a file.
bool IsOutsideAddress(const QUrl& address);

} // namespace kelvado
