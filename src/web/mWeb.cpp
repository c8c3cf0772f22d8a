#include "web/mWeb.h"

#include "core/OutsideAddress.h"

namespace kelvado {

void OpenInBrowser(const QString& url, const std::function<void(const QUrl& address)>& open)
{
    if (const QUrl address(url); IsOutsideAddress(address))
        open(address);
}

} // namespace kelvado
