#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pagesource::test {

/// Reads pages as their readers do: by fixed markers, from front to back. A marker that is missing throws std::out_of_range.
struct ReadTitle
{
    std::string rawTitle;
    std::string number;
    std::string rating;
    std::string votes;
    std::vector<std::string> genres;
    std::string languages; // "/ English/ Russian" without the first character
    std::string runtime;
    std::string poster;
    std::string outline;
    std::string rated;
    std::string shopLink;
};
struct ReadPerson
{
    std::string name;
    std::string link;
    std::string note;
};
struct ReadHit
{
    std::string title;
    std::string number;
    std::vector<std::string> others;
};

std::string Flattened(std::string_view page);
/// The text behind `before` up to `after`, from `from` on.
std::string Between(std::string_view page, std::string_view before, std::string_view after, std::size_t from = 0);

/// `page` is flattened for all of these.
ReadTitle ReadTitlePage(const std::string& page, const std::string& host);
/// Nothing for a page without the section.
std::optional<std::vector<ReadPerson>> ReadCredits(const std::string& page, std::string_view section, std::string_view linkEnd = "/\">");
/// The section's rows, each as name and what stands behind the link.
std::vector<std::pair<std::string, std::string>> ReadCompanies(const std::string& page, std::string_view section);
std::vector<ReadHit> ReadSearch(const std::string& page);
/// "Title (year) number" of the first list of a person's page.
std::vector<std::string> ReadFilmography(const std::string& page);
/// The link that wins on a shop's result page, by the words of the title.
std::string ReadBestProduct(const std::string& page, const std::string& filmTitle);

} // namespace pagesource::test
