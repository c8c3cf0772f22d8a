#pragma once

#include "FilmStore.h"

#include <string>
#include <string_view>

namespace pagesource {

/// The hosts that stand in the addresses of pictures and of the shop, each host or host:port. Readers find these addresses by them.
struct Hosts
{
    std::string heads;     // stands in where there is no picture
    std::string poster;    // posters
    std::string oldPoster; // posters of older pages
    std::string shop;      // product pages of the shop
    std::string shopImage; // pictures of its products
};

struct PageOptions
{
    Hosts hosts;
    /// Chooses among the shapes of each page. With seed 0 every value reads clean; any other seed also leaves blanks, tags and links in
    /// and around values, as real pages did.
    std::uint64_t seed = 0;
    /// A picture stands in for people without one; otherwise the page shows the address of an empty one.
    bool hasPersonPicture = false;
};

// The pages, as HTML in ASCII with decimal entities.
std::string TitlePage(FilmStore& store, const PageOptions& options, const Film& film);
std::string CreditsPage(FilmStore& store, const PageOptions& options, const Film& film);
std::string PlotPage(const PageOptions& options, const Film& film);
std::string CompaniesPage(FilmStore& store, const PageOptions& options, const Film& film);
/// `hits` as the search returned them; none gives the page that says so.
std::string SearchPage(FilmStore& store, const PageOptions& options, std::string_view text, const std::vector<Film>& hits);
std::string PersonPage(FilmStore& store, const PageOptions& options, const Person& person);
std::string BiographyPage(FilmStore& store, const PageOptions& options, const Person& person);
/// The list of those who share a name.
std::string MatchingNamesPage(const PageOptions& options, std::string_view name, const std::vector<Person>& people);
/// What a shop finds for a film: the film itself and products of like names.
std::string ShopResultPage(const PageOptions& options, const Film& film, const std::vector<Film>& others);
std::string ProductPage(const PageOptions& options, const Film& film);

// Texts that several pages share, as HTML.

/// "Some Film"; a series stands in quotes.
std::string TitleHtml(const Film& film);
/// "1987", "1987/II", "????".
std::string YearHtml(const Film& film);
/// " (TV)", " (V)", " (VG)" or "".
std::string_view KindHtml(const Film& film);
/// All three: "Some Film (1987/II) (TV)".
std::string FullTitleHtml(const Film& film);
/// "/title/tt0017136/" and "/name/nm0000001/".
std::string FilmPath(std::int64_t number);
std::string PersonPath(std::int64_t number);

} // namespace pagesource
