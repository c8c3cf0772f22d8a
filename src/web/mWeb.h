#pragma once

#include <QString>
#include <QUrl>

#include <functional>

namespace kelvado {

/// Hands an address to `open`, the desktop's own way of opening it. Only addresses of the web and of mail pass: a text of any other kind
/// could name a program or a file.
void OpenInBrowser(const QString& url, const std::function<void(const QUrl& address)>& open);

} // namespace kelvado
