#include "web/mWeb.h"

#include <algorithm>
#include <array>

namespace kelvado {

void OpenInBrowser(const QString& url, const std::function<void(const QUrl& address)>& open)
{
    constexpr std::array kSchemes{QLatin1StringView("http"), QLatin1StringView("https"), QLatin1StringView("mailto")};
    const QUrl address(url);
    if (address.isValid() && std::ranges::find(kSchemes, address.scheme()) != kSchemes.end())
        open(address);
}

} // namespace kelvado
