#include "web/readers/mIMDBCompaniesParse.h"

#include "core/Literals.h"
#include "core/RuntimeError.h"
#include "web/readers/WebText.h"

namespace kelvado {

namespace {

constexpr QLatin1StringView kLinkClose = "</a>"_L1;

struct CompanySection
{
    QStringView marker;
    QLatin1StringView type;
};
constexpr CompanySection kSections[] = {
    {u"Production Companies</h2>", "Production"_L1},
    {u"Distributors</h2>", "Distributor"_L1},
    {u"Special Effects</h2>", "Special Effects"_L1},
};

} // namespace

QList<FilmCompany> ParseCompanies(QStringView text)
{
    const PageText page(text);
    QList<FilmCompany> companies;
    for (const auto& [marker, type] : kSections) {
        Place cursor = page.Find(marker);
        if (cursor == kNowhere)
            continue;
        const Place end = page.Find(u"</ul>", cursor);
        for (;;) {
            const Place start = page.FindBehind(u"\">", cursor);
            cursor = page.Find(u"</li>", start);
            if (start >= end)
                break;
            const QString row = page.Cut(start, cursor);
            const qsizetype nameEnd = row.indexOf(kLinkClose);
            if (nameEnd < 0)
                throw RuntimeError(kErrSubscript);
            const qsizetype note = nameEnd + kLinkClose.size();
            const qsizetype noteEnd = row.indexOf(kLinkClose, note);
            companies.append(
                {.Company = row.first(nameEnd), .Type = type, .Extended = row.sliced(note, (noteEnd < 0 ? row.size() : noteEnd) - note)});
        }
    }
    return companies;
}

} // namespace kelvado
