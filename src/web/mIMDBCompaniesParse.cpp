#include "web/mIMDBCompaniesParse.h"

#include "core/RuntimeError.h"
#include "web/WebText.h"

namespace kelvado {

using namespace Qt::StringLiterals;

namespace {

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
            const QStringList pieces = page.Cut(start, cursor).split("</a>"_L1);
            if (pieces.size() < 2)
                throw RuntimeError(kErrSubscript);
            companies.append({.Company = pieces[0], .Type = type, .Extended = pieces[1]});
        }
    }
    return companies;
}

} // namespace kelvado
