#include "core/OutsideAddress.h"

#include "core/Literals.h"

#include <algorithm>
#include <array>

namespace kelvado {

bool IsOutsideAddress(const QUrl& address)
{
    constexpr std::array kSchemes{"http"_L1, "https"_L1, "mailto"_L1};
    return address.isValid() && std::ranges::find(kSchemes, address.scheme()) != kSchemes.end();
}

} // namespace kelvado
