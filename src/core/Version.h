#pragma once

namespace kelvado {

inline constexpr int kMajorVersion = 2;
inline constexpr int kMinorVersion = 0;
inline constexpr int kBuildNumber = 2247;

} // namespace kelvado
