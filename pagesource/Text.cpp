#include "Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>

namespace pagesource {

namespace {

constexpr char32_t kInvalid = 0xFFFFFFFF;

// The characters of the code page 1252 from 128 to 159; 0 where it has none.
constexpr std::array<char16_t, 32> kCodePage = {0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
                                                0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
                                                0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

// The base letters of U+00C0 to U+017F, one text a character, parted by blanks; "." stands for a sign that is no letter.
constexpr std::string_view kBaseLetters =
    "a a a a a a ae c e e e e i i i i d n o o o o o . o u u u u y th ss a a a a a a ae c e e e e i i i i d n o o o o o . o u u u u "
    "y th y a a a a a a c c c c c c c c d d d d e e e e e e e e e e g g g g g g g g h h h h i i i i i i i i i i ij ij j j k k k l l "
    "l l l l l l l l n n n n n n n n n o o o o o o oe oe r r r r r r s s s s s s s s t t t t t t u u u u u u u u u u u u w w y y y "
    "z z z z z z s";

std::vector<std::string_view> BaseLetters()
{
    std::vector<std::string_view> letters;
    for (std::size_t from = 0; from < kBaseLetters.size();) {
        const std::size_t end = std::min(kBaseLetters.find(' ', from), kBaseLetters.size());
        letters.push_back(kBaseLetters.substr(from, end - from));
        from = end + 1;
    }
    return letters;
}

// Takes one character off the front of `text`; kInvalid for a byte that begins none.
char32_t NextCharacter(std::string_view& text)
{
    const auto first = static_cast<unsigned char>(text.front());
    const int length = first < 0x80 ? 1 : first < 0xC2 ? 0 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : first < 0xF5 ? 4 : 0;
    char32_t code = length == 1 ? first : first & (0x7F >> length);
    if (length == 0 || text.size() < static_cast<std::size_t>(length)) {
        text.remove_prefix(1);
        return kInvalid;
    }
    for (int i = 1; i < length; ++i) {
        const auto next = static_cast<unsigned char>(text[i]);
        if ((next & 0xC0) != 0x80) {
            text.remove_prefix(1);
            return kInvalid;
        }
        code = (code << 6) | (next & 0x3F);
    }
    const bool overlong = (length == 3 && code < 0x800) || (length == 4 && code < 0x10000);
    if (overlong || (code >= 0xD800 && code < 0xE000) || code > 0x10FFFF) {
        text.remove_prefix(1);
        return kInvalid;
    }
    text.remove_prefix(length);
    return code;
}

void AppendUtf8(std::string& out, char32_t code)
{
    if (code < 0x80) {
        out += static_cast<char>(code);
    } else if (code < 0x800) {
        out += static_cast<char>(0xC0 | (code >> 6));
        out += static_cast<char>(0x80 | (code & 0x3F));
    } else {
        if (code < 0x10000) {
            out += static_cast<char>(0xE0 | (code >> 12));
        } else {
            out += static_cast<char>(0xF0 | (code >> 18));
            out += static_cast<char>(0x80 | ((code >> 12) & 0x3F));
        }
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
    }
}

int HexDigit(char c)
{
    return c >= '0' && c <= '9' ? c - '0' : c >= 'a' && c <= 'f' ? c - 'a' + 10 : c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

bool IsUtf8(std::string_view text)
{
    while (!text.empty()) {
        if (NextCharacter(text) == kInvalid)
            return false;
    }
    return true;
}

} // namespace

std::string PageText(std::string_view utf8)
{
    std::string out;
    out.reserve(utf8.size() + utf8.size() / 8);
    while (!utf8.empty()) {
        char32_t code = NextCharacter(utf8);
        if (code == kInvalid) {
            out += '?';
            continue;
        }
        if (code < 0x80 && code != '"' && code != '&' && code != '<' && code != '>') {
            out += code < ' ' ? ' ' : static_cast<char>(code);
            continue;
        }
        for (std::size_t i = 0; i < kCodePage.size(); ++i) {
            if (code > 0xFF && kCodePage[i] == code)
                code = static_cast<char32_t>(128 + i);
        }
        out.append("&#").append(std::to_string(static_cast<std::uint32_t>(code))) += ';';
    }
    return out;
}

std::string Folded(std::string_view utf8)
{
    static const std::vector<std::string_view> letters = BaseLetters();
    std::string out;
    out.reserve(utf8.size());
    const auto blank = [&out] {
        if (!out.empty() && out.back() != ' ')
            out += ' ';
    };
    for (std::string_view rest = utf8; !rest.empty();) {
        const char32_t code = NextCharacter(rest);
        if (code == kInvalid)
            continue;
        if (code >= 0xC0 && code < 0xC0 + letters.size()) {
            const std::string_view base = letters[code - 0xC0];
            out += base == "." ? std::string_view() : base;
        } else if (code >= 'A' && code <= 'Z') {
            out += static_cast<char>(code - 'A' + 'a');
        } else if ((code >= '0' && code <= '9') || (code >= 'a' && code <= 'z')) {
            out += static_cast<char>(code);
        } else if (code <= ' ' || code == '-' || code == '/' || code == 0xA0 || code == 0x2013 || code == 0x2014) {
            blank();
        } else if (code >= 0x80 && !(code >= 0x2018 && code <= 0x201F) && code != 0x2026) {
            AppendUtf8(out, code);
        }
    }
    if (!out.empty() && out.back() == ' ')
        out.pop_back();
    return out.empty() ? Replaced(utf8, "\n", " ") : out;
}

std::string UrlDecoded(std::string_view text)
{
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '%' && i + 2 < text.size() && HexDigit(text[i + 1]) >= 0 && HexDigit(text[i + 2]) >= 0) {
            out += static_cast<char>(HexDigit(text[i + 1]) * 16 + HexDigit(text[i + 2]));
            i += 2;
        } else {
            out += text[i] == '+' ? ' ' : text[i];
        }
    }
    if (IsUtf8(out))
        return out;
    std::string latin;
    for (const char c : out) {
        const auto byte = static_cast<unsigned char>(c);
        const char16_t mapped = byte >= 128 && byte < 160 ? kCodePage[byte - 128] : 0;
        AppendUtf8(latin, mapped ? mapped : byte);
    }
    return latin;
}

std::string UrlEncoded(std::string_view text)
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string out;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if ((byte >= '0' && byte <= '9') || (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || byte == '-' || byte == ',') {
            out += c;
        } else {
            out += '%';
            out += digits[byte >> 4];
            out += digits[byte & 15];
        }
    }
    return out;
}

std::optional<std::int64_t> Number(std::string_view digits)
{
    std::int64_t number = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stop, fault] = std::from_chars(digits.data(), end, number);
    if (fault != std::errc() || stop != end || number < 0)
        return std::nullopt;
    return number;
}

std::string Thousands(std::int64_t number)
{
    std::string text = std::to_string(number);
    for (std::size_t from = text.size(); from > 3; from -= 3)
        text.insert(from - 3, 1, ',');
    return text;
}

std::string Padded(std::int64_t number, int width)
{
    char text[32];
    std::snprintf(text, sizeof text, "%0*lld", width, static_cast<long long>(number));
    return text;
}

std::vector<std::string> Split(std::string_view text, std::string_view separator)
{
    std::vector<std::string> parts;
    while (!text.empty()) {
        const std::size_t end = text.find(separator);
        parts.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos)
            break;
        text.remove_prefix(end + separator.size());
    }
    return parts;
}

std::string Join(const std::vector<std::string>& parts, std::string_view separator)
{
    std::string out;
    for (const std::string& part : parts)
        (out += out.empty() ? std::string_view() : separator) += part;
    return out;
}

std::string Replaced(std::string_view text, std::string_view from, std::string_view to)
{
    std::string out;
    for (std::size_t at; (at = text.find(from)) != std::string_view::npos; text.remove_prefix(at + from.size()))
        out.append(text.substr(0, at)).append(to);
    return out.append(text);
}

std::uint64_t Hash(std::string_view text)
{
    std::uint64_t hash = 0xcbf29ce484222325;
    for (const char c : text)
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3;
    return hash;
}

} // namespace pagesource
