#pragma once

#include "core/WebHosts.h"

#include <QString>
#include <QStringView>

#include <functional>
#include <optional>
#include <vector>

namespace kelvado {

/// A product of the shop's result page.
struct AmazonCandidate
{
    QString Title;
    QString Link;                 ///< as it stands in the page
    qsizetype WordCount = 0;      ///< of the title, parted at blanks
    qsizetype LetterCount = 0;    ///< of the title, without blanks
    qsizetype MatchedWords = 0;   ///< words of the film's title that occur in it
    qsizetype MatchedLetters = 0; ///< the letters of those words
    double Score = 0;             ///< the mean of both shares
};

/// The link to the shop on a film's flattened page; nothing where the film is not sold.
std::optional<QString> ParseShopLink(QStringView titlePage);

/// The scored products of the flattened result page in page order, behind an empty row 0; no row at all where no list was found.
/// Raises `kErrSubscript` for a list without a product, `kErrInvalidCall` for a product without its text.
std::vector<AmazonCandidate> ParseCandidates(QStringView resultPage, const QString& filmTitle);

/// The link of the larger picture on a product's flattened page; "" without one. Raises `kErrInvalidCall` where its words stand among the
/// first 100 characters of the page.
QString ParseLargerPicture(QStringView productPage);

/// The address of a picture of the film that is larger than its poster; "" where the shop has none. `filmTitle` is the title with its
/// year, `titlePage` the film's flattened page. `fetch` returns the page of an address; it is called twice at most.
/// Raises what the routines above raise.
QString GetHiResImage(const QString& filmTitle, QStringView titlePage, const WebHosts& hosts,
                      const std::function<QString(const QString& url)>& fetch);

} // namespace kelvado
