#include "web/mWeb.h"

#include "core/Literals.h"

#include <algorithm>
#include <array>

namespace kelvado {

void OpenInBrowser(const QString& url, const std::function<void(const QUrl& address)>& open)
{
    constexpr std::array kSchemes{"http"_L1, "https"_L1, "mailto"_L1};
    const QUrl address(url);
    if (address.isValid() && std::ranges::find(kSchemes, address.scheme()) != kSchemes.end())
        open(address);
}

} // namespace kelvado
