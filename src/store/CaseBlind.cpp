#include "store/CaseBlind.h"

#include <algorithm>
#include <string>
#include <unordered_map>

namespace kelvado {

namespace {

constexpr char32_t kLastAscii = 0x7F;
constexpr char32_t kLastWithCase = 0x1E943;
constexpr std::size_t kMostBeginnings = 8;

using Forms = std::unordered_map<char32_t, std::u32string>;

// By folded letter, all letters that fold to it.
const Forms& FormsOfLetters()
{
    static const Forms forms = [] {
        Forms made;
        for (char32_t letter = kLastAscii + 1; letter <= kLastWithCase; ++letter) {
            const char32_t folded = QChar::toCaseFolded(letter);
            if (folded == letter)
                continue;
            std::u32string& known = made[folded];
            if (known.empty())
                known += folded;
            known += letter;
        }
        return made;
    }();
    return forms;
}

} // namespace

QString FoldCase(QStringView text)
{
    QString folded;
    folded.reserve(text.size());
    for (const char32_t letter : text.toUcs4())
        folded += QStringView(QChar::fromUcs4(QChar::toCaseFolded(letter)));
    return folded;
}

bool HasOtherLetters(QStringView text)
{
    return std::ranges::any_of(text, [](QChar c) { return c.unicode() > kLastAscii; });
}

QStringList BeginningsOf(QStringView text)
{
    QStringList beginnings{QString()};
    for (const char32_t letter : text.toUcs4()) {
        std::u32string forms(1, letter);
        if (letter > kLastAscii) {
            const auto known = FormsOfLetters().find(QChar::toCaseFolded(letter));
            if (known != FormsOfLetters().end())
                forms = known->second;
        }
        if (static_cast<std::size_t>(beginnings.size()) * forms.size() > kMostBeginnings)
            break;
        QStringList longer;
        for (const QString& beginning : beginnings) {
            for (const char32_t form : forms)
                longer << QString(beginning).append(QStringView(QChar::fromUcs4(form)));
        }
        beginnings = longer;
    }
    return beginnings;
}

} // namespace kelvado
