#include "web/readers/mIMDBAmazon.h"

#include "core/Literals.h"
#include "core/RuntimeError.h"
#include "web/readers/WebText.h"

#include <QStringList>

#include <algorithm>

namespace kelvado {

namespace {

// Each table stands in the order in which its markers are tried.
constexpr QStringView kOffers[] = {u"DVD available at Amazon", u"VHS available at Amazon"};
constexpr QStringView kListStarts[] = {u"ou clicked on this item", u"clicked on this item", u"Sort by:", u"results for <"};
// The second one opens the first row only.
constexpr QStringView kRowStarts[] = {u"<td width=100% valign=top>", u"<tr valign=top>"};

template<std::size_t N>
Place FindFirstOf(const PageText& page, const QStringView (&markers)[N], Place from = 1)
{
    for (const QStringView marker : markers) {
        if (const Place place = page.Find(marker, from); place != kNowhere)
            return place;
    }
    return kNowhere;
}

double Share(qsizetype part, qsizetype whole)
{
    return whole == 0 ? 0 : static_cast<double>(part) / static_cast<double>(whole);
}

void Score(AmazonCandidate& product, const QStringList& words)
{
    const QString title = product.Title.toLower();
    product.WordCount = title.isEmpty() ? 0 : title.count(u' ') + 1;
    product.LetterCount = title.size() - title.count(u' ');
    for (const QString& word : words) {
        if (title.contains(word)) {
            ++product.MatchedWords;
            product.MatchedLetters += word.size();
        }
    }
    product.Score = 0.5 * Share(product.MatchedWords, product.WordCount) + 0.5 * Share(product.MatchedLetters, product.LetterCount);
}

} // namespace

std::optional<QString> ParseShopLink(QStringView titlePage)
{
    const PageText page(titlePage);
    const Place offer = FindFirstOf(page, kOffers);
    const Place link = Behind(page.FindBack(u"href=\"", offer), 6);
    if (link == kNowhere)
        return std::nullopt;
    const Place end = page.Find(u"\" title", link);
    return end == kNowhere ? std::nullopt : std::optional(page.Cut(link, end));
}

std::vector<AmazonCandidate> ParseCandidates(QStringView resultPage, const QString& filmTitle)
{
    const PageText page(resultPage);
    const Place list = FindFirstOf(page, kListStarts);
    if (list == kNowhere)
        return {};

    // Every word is looked for in every product. A title with more of them is none.
    constexpr qsizetype kMostWords = 1000;
    if (filmTitle.count(u' ') >= kMostWords)
        throw RuntimeError(kErrInvalidCall);
    const QStringList words = filmTitle.isEmpty() ? QStringList() : filmTitle.toLower().split(u' ');
    std::vector<AmazonCandidate> products(1);
    Place row = FindFirstOf(page, kRowStarts, list);
    while (row != kNowhere) {
        const Place link = page.FindBehind(u"href=", row);
        if (link == kNowhere)
            break;
        const Place linkEnd = page.Find(u">", link);
        const Place titleEnd = page.Find(u"<font", Behind(linkEnd, 1));
        AmazonCandidate& product = products.emplace_back();
        product.Link = page.Cut(link, linkEnd);
        product.Title = page.Cut(linkEnd + 1, titleEnd).replace("</a></b>"_L1, " "_L1);
        Score(product, words);
        row = page.Find(kRowStarts[0], titleEnd);
    }
    if (products.size() == 1)
        throw RuntimeError(kErrSubscript);
    return products;
}

QString ParseLargerPicture(QStringView productPage)
{
    constexpr Place kLinkLead = 100;
    const PageText page(productPage);
    const Place words = page.Find(u"see larger picture");
    if (words == kNowhere)
        return {};
    const Place link = page.FindBehind(u"href=\"", words - kLinkLead);
    return page.Cut(link, page.Find(u"\"", link));
}

QString GetHiResImage(const QString& filmTitle, QStringView titlePage, const WebHosts& hosts,
                      const std::function<QString(const QString& url)>& fetch)
{
    constexpr qsizetype kShortestLink = 5;
    const std::optional<QString> shopLink = ParseShopLink(titlePage);
    if (!shopLink)
        return {};
    const std::vector<AmazonCandidate> products =
        ParseCandidates(FlattenPage(fetch("http://"_L1 + hosts.ImdbSearchHost + *shopLink)), filmTitle);
    // Of equal products the first one on the page wins; the empty row 0 only where nothing matches at all.
    const auto best = std::ranges::max_element(products, {}, &AmazonCandidate::Score);
    if (best == products.end() || best->Link.size() < kShortestLink)
        return {};
    return ParseLargerPicture(FlattenPage(fetch("http://"_L1 + hosts.AmazonMainHost + best->Link)));
}

} // namespace kelvado
