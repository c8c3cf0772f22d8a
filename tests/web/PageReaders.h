#pragma once

#include "core/Literals.h"
#include "support/RecordingShell.h"
#include "support/ScriptedDialogs.h"
#include "web/readers/WebText.h"
#include "web/readers/mIMDBActorParse.h"
#include "web/readers/mIMDBAmazon.h"
#include "web/readers/mIMDBCompaniesParse.h"
#include "web/readers/mIMDBCreditsParse.h"
#include "web/readers/mIMDBPlotParse.h"
#include "web/readers/mIMDBTitleParse.h"
#include "web/search/IMDBSearch.h"

#include <string_view>

namespace kelvado {

/// Hosts that can be told apart in a page.
inline WebHosts TestHosts()
{
    return {.ImdbMainHost = u"main.test"_s,
            .ImdbSearchHost = u"search.test"_s,
            .ImdbPersonHost = u"people.test"_s,
            .ImdbHeadsHost = u"heads.test"_s,
            .ImdbPosterHost = u"posters.test"_s,
            .ImdbOldPosterHost = u"oldposters.test"_s,
            .AmazonMainHost = u"shop.test"_s,
            .AmazonImageHost = u"pictures.test"_s,
            .DvdEmpireHost = {},
            .DvdEmpireImageHost = {},
            .UpdateHost = {},
            .MakerHost = {}};
}

/// "Name|link|third field" of each person; "none" for no list at all.
inline QStringList Lines(const std::optional<QList<FilmPerson>>& people, QString FilmPerson::*third = &FilmPerson::Extended)
{
    if (!people)
        return {u"none"_s};
    QStringList lines;
    for (const FilmPerson& person : *people)
        lines << person.Name + u'|' + person.IMDB_Link + u'|' + person.*third;
    return lines;
}

inline QStringList Lines(const QList<FilmCompany>& companies)
{
    QStringList lines;
    for (const FilmCompany& company : companies)
        lines << company.Type + u'|' + company.Company + u'|' + company.Extended;
    return lines;
}

inline QStringList GenresOf(QStringView page)
{
    QStringList names;
    for (const FilmGenre& genre : ParseGenres(page))
        names << genre.Genre;
    return names;
}

/// Runs every routine that reads a kind of page over a page as it was fetched, each for itself.
struct PageReader
{
    std::string_view page; ///< the name of its file among the stored pages
    void (*read)(const QString& fetched);
};

inline constexpr PageReader kPageReaders[] = {
    {"title",
     [](const QString& fetched) {
         const QString page = FlattenPage(fetched);
         ErrorOf([&] { return ParseTitleBlock(page); });
         ErrorOf([&] { return ParseRated(page); });
         ErrorOf([&] { return ParseRuntime(page); });
         ErrorOf([&] { return ParseLanguage(page); });
         ErrorOf([&] { return ParseTitleNumber(page); });
         ErrorOf([&] { return ParseGenres(page); });
         ErrorOf([&] { return ParsePosterUrl(page, TestHosts()); });
         ErrorOf([&] { return ParsePlotOutline(page); });
         ErrorOf([&] { return ParseShopLink(page); });
     }},
    {"plot", [](const QString& fetched) { ErrorOf([&] { return ParsePlotPage(fetched); }); }},
    {"credits",
     [](const QString& fetched) {
         const QString page = FlattenPage(fetched);
         for (const auto parse : {ParseActors, ParseDirectors, ParseProducers, ParseWriters})
             ErrorOf([&] { return parse(page); });
         ErrorOf([&] { return StripTags(page); });
     }},
    {"companies", [](const QString& fetched) { ErrorOf([&] { return ParseCompanies(FlattenPage(fetched)); }); }},
    {"search",
     [](const QString& fetched) {
         QString page = FlattenPage(fetched);
         QList<SearchRow> rows;
         QStringList akaTitles{u"blah"_s};
         RecordingShell shell;
         ScriptedDialogs dialogs;
         ErrorOf([&] { ParseSearchPage(page, rows, akaTitles, shell, dialogs); });
     }},
    {"person",
     [](const QString& fetched) {
         const QString page = FlattenPage(fetched);
         ErrorOf([&] { return ParseHeadShot(page); });
         ErrorOf([&] { return ParseBirthName(page); });
         ErrorOf([&] { return ParseBirthDetails(page); });
         ErrorOf([&] { return ParseFilmography(page); });
     }},
    {"biography",
     [](const QString& fetched) {
         ErrorOf([&] { return ParseBiography(fetched, u"main.test"_s); });
         ErrorOf([&] { return ParseHeight(fetched); });
     }},
    {"matches", [](const QString& fetched) { ErrorOf([&] { return ParseActorMatches(FlattenPage(fetched)); }); }},
    {"shop-results",
     [](const QString& fetched) { ErrorOf([&] { return ParseCandidates(FlattenPage(fetched), u"The Affair (1987)"_s); }); }},
    {"shop-product", [](const QString& fetched) { ErrorOf([&] { return ParseLargerPicture(FlattenPage(fetched)); }); }},
};

} // namespace kelvado
