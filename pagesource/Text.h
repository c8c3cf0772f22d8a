#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pagesource {

/// Text as it stands in a page: plain ASCII, everything else as a decimal entity, quotes, "&", "<" and ">" too.
/// Characters of the code page 1252 carry their number there (a dash is 150), as pages of a single-byte site do.
/// Bytes that are no UTF-8 become "?".
std::string PageText(std::string_view utf8);

/// The form in which titles are compared: lower case and without accents for the Latin letters, without punctuation, runs of blanks and
/// hyphens as one blank. A text of punctuation alone stays as it is.
std::string Folded(std::string_view utf8);

/// A part of an address: %XX decoded, "+" as a blank; what is no UTF-8 then is taken as Latin-1.
std::string UrlDecoded(std::string_view text);
std::string UrlEncoded(std::string_view text);

/// A whole number of decimal digits; nothing for any other text.
std::optional<std::int64_t> Number(std::string_view digits);

/// 41310 as "41,310".
std::string Thousands(std::int64_t number);
/// The number with zeros in front, `width` digits at least.
std::string Padded(std::int64_t number, int width);

std::vector<std::string> Split(std::string_view text, std::string_view separator);
std::string Join(const std::vector<std::string>& parts, std::string_view separator);
/// Replaces every occurrence of `from`.
std::string Replaced(std::string_view text, std::string_view from, std::string_view to);

/// 64-bit FNV-1a, by which numbers are given that stay the same from build to build.
std::uint64_t Hash(std::string_view text);

} // namespace pagesource
