#pragma once

#include "Pages.h"

#include <string>
#include <string_view>

namespace pagesource {

struct Answer
{
    int status = 200;
    std::string type = "text/html; charset=iso-8859-1";
    std::string location; // where a redirect leads
    std::string body;
};

/// What stands at which address. One thread at a time.
class Site
{
public:
    struct Options
    {
        PageOptions pages;
        std::string pictures;       // folder of NNNNNNN.jpg, NNNNNNN-large.jpg and person.jpg; may be empty
        std::string build = "2247"; // what the update page says
    };

    Site(FilmStore& store, Options options);

    /// `target` is path and query as they stand in the request line. An address without a page gives a small page with status 404.
    Answer Get(std::string_view target);

private:
    using Ask = Answer (Site::*)(std::string_view rest, std::string_view query);
    struct Route;
    static const Route kRoutes[];

    Answer Index(std::string_view rest, std::string_view query);
    Answer Title(std::string_view rest, std::string_view query);
    Answer Credits(std::string_view rest, std::string_view query);
    Answer Plot(std::string_view rest, std::string_view query);
    Answer Companies(std::string_view rest, std::string_view query);
    Answer TitleFolder(std::string_view rest, std::string_view query);
    Answer TitleSearch(std::string_view rest, std::string_view query);
    Answer PersonFolder(std::string_view rest, std::string_view query);
    Answer PersonByName(std::string_view rest, std::string_view query);
    Answer BiographyByName(std::string_view rest, std::string_view query);
    Answer ShopLink(std::string_view rest, std::string_view query);
    Answer ShopResult(std::string_view rest, std::string_view query);
    Answer Product(std::string_view rest, std::string_view query);
    Answer SmallPicture(std::string_view rest, std::string_view query);
    Answer ShopPicture(std::string_view rest, std::string_view query);
    Answer PersonPicture(std::string_view rest, std::string_view query);
    Answer Update(std::string_view rest, std::string_view query);

    /// The film whose number the text begins with.
    std::optional<Film> FilmAt(std::string_view text);
    Answer PersonAnswer(const Person& person, bool biography);
    Answer ByName(std::string_view query, bool biography);
    Answer Picture(const std::string& name) const;
    std::string PicturePath(const std::string& name) const;

    FilmStore& m_store;
    Options m_options;
};

} // namespace pagesource
