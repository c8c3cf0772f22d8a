#pragma once

#include "core/Options.h"
#include "store/FilmRecord.h"

#include <QLatin1StringView>

#include <variant>

namespace kelvado {

/// Where a film's column comes from in the record.
using FilmMember = std::variant<QString FilmRecord::*, Currency FilmRecord::*, QDate FilmRecord::*, bool FilmRecord::*>;

struct FilmColumn
{
    QLatin1StringView column;
    FilmMember member;
    std::int32_t cOptIMDbFilm::*gate = nullptr; ///< the option that lets it through; none lets it through always
};

// The tables stand in the order in which the columns are stored: with automatic cutting off, the user is asked in this order.

inline constexpr FilmColumn kAddColumns[] = {
    {QLatin1StringView("Title"), &FilmRecord::Title, &cOptIMDbFilm::Title},
    {QLatin1StringView("TitleNY"), &FilmRecord::TitleNY, &cOptIMDbFilm::ShortTitle},
    {QLatin1StringView("IMDB"), &FilmRecord::IMDB},
    {QLatin1StringView("Votes"), &FilmRecord::Votes, &cOptIMDbFilm::IMDbVotes},
    {QLatin1StringView("Rating"), &FilmRecord::Rating, &cOptIMDbFilm::IMDbRating},
    {QLatin1StringView("Year"), &FilmRecord::Year, &cOptIMDbFilm::Year},
    {QLatin1StringView("Plot"), &FilmRecord::Plot, &cOptIMDbFilm::Plot},
    {QLatin1StringView("Rated"), &FilmRecord::Rated, &cOptIMDbFilm::Rating},
    {QLatin1StringView("Runtime"), &FilmRecord::Runtime, &cOptIMDbFilm::Runtime},
    {QLatin1StringView("Language"), &FilmRecord::Language},
    {QLatin1StringView("Format"), &FilmRecord::Format},
    {QLatin1StringView("Number"), &FilmRecord::Number},
    {QLatin1StringView("Index"), &FilmRecord::Index},
};

// An update stores the rating under the certificate's option, and never looks at its own.
inline constexpr FilmColumn kUpdateColumns[] = {
    {QLatin1StringView("Title"), &FilmRecord::Title, &cOptIMDbFilm::Title},
    {QLatin1StringView("IMDB"), &FilmRecord::IMDB},
    {QLatin1StringView("Votes"), &FilmRecord::Votes, &cOptIMDbFilm::IMDbVotes},
    {QLatin1StringView("Rating"), &FilmRecord::Rating, &cOptIMDbFilm::Rating},
    {QLatin1StringView("TitleNY"), &FilmRecord::TitleNY, &cOptIMDbFilm::ShortTitle},
    {QLatin1StringView("Year"), &FilmRecord::Year, &cOptIMDbFilm::Year},
    {QLatin1StringView("Plot"), &FilmRecord::Plot, &cOptIMDbFilm::Plot},
    {QLatin1StringView("Rated"), &FilmRecord::Rated, &cOptIMDbFilm::Rating},
    {QLatin1StringView("Runtime"), &FilmRecord::Runtime, &cOptIMDbFilm::Runtime},
    {QLatin1StringView("Language"), &FilmRecord::Language},
    {QLatin1StringView("Format"), &FilmRecord::Format},
    {QLatin1StringView("Number"), &FilmRecord::Number},
    {QLatin1StringView("Index"), &FilmRecord::Index},
};

inline constexpr FilmColumn kEditColumns[] = {
    {QLatin1StringView("Title"), &FilmRecord::Title},
    {QLatin1StringView("TitleNY"), &FilmRecord::TitleNY},
    {QLatin1StringView("Year"), &FilmRecord::Year},
    {QLatin1StringView("IMDB"), &FilmRecord::IMDB},
    {QLatin1StringView("Rating"), &FilmRecord::Rating},
    {QLatin1StringView("Votes"), &FilmRecord::Votes},
    {QLatin1StringView("Rated"), &FilmRecord::Rated},
    {QLatin1StringView("Runtime"), &FilmRecord::Runtime},
    {QLatin1StringView("Language"), &FilmRecord::Language},
    {QLatin1StringView("Format"), &FilmRecord::Format},
    {QLatin1StringView("Number"), &FilmRecord::Number},
    {QLatin1StringView("Index"), &FilmRecord::Index},
    {QLatin1StringView("Plot"), &FilmRecord::Plot},
    {QLatin1StringView("Group"), &FilmRecord::Group},
    {QLatin1StringView("Filesize"), &FilmRecord::Filesize},
    {QLatin1StringView("Studio"), &FilmRecord::Studio},
    {QLatin1StringView("Quality"), &FilmRecord::Quality},
    {QLatin1StringView("Resolution"), &FilmRecord::Resolution},
    {QLatin1StringView("AudBitrate"), &FilmRecord::AudBitrate},
    {QLatin1StringView("VidBitrate"), &FilmRecord::VidBitrate},
    {QLatin1StringView("AudType"), &FilmRecord::AudType},
    {QLatin1StringView("VidType"), &FilmRecord::VidType},
    {QLatin1StringView("SubLanguage"), &FilmRecord::SubLanguage},
    {QLatin1StringView("Comments"), &FilmRecord::Comments},
    {QLatin1StringView("FileNotes"), &FilmRecord::FileNotes},
    {QLatin1StringView("Custom1"), &FilmRecord::Custom1},
    {QLatin1StringView("Custom2"), &FilmRecord::Custom2},
    {QLatin1StringView("Custom3"), &FilmRecord::Custom3},
    {QLatin1StringView("Filename"), &FilmRecord::FileName},
    {QLatin1StringView("AudChannels"), &FilmRecord::AudChannels},
};

// What the user knows of the film; every writer goes on with these.
inline constexpr FilmColumn kPersonalColumns[] = {
    {QLatin1StringView("Color"), &FilmRecord::Color},
    {QLatin1StringView("Country"), &FilmRecord::Country},
    {QLatin1StringView("PurchasePrice"), &FilmRecord::PurchasePrice},
    {QLatin1StringView("PurchasedWhere"), &FilmRecord::PurchasedWhere},
    {QLatin1StringView("LastViewing"), &FilmRecord::LastViewing},
    {QLatin1StringView("SeenIt"), &FilmRecord::SeenIt},
    {QLatin1StringView("MyRating"), &FilmRecord::MyRating},
    {QLatin1StringView("MyRatingNotes"), &FilmRecord::MyRatingNotes},
    {QLatin1StringView("UserURL1"), &FilmRecord::UserURL1},
    {QLatin1StringView("UserURL2"), &FilmRecord::UserURL2},
    {QLatin1StringView("TrailerURL"), &FilmRecord::TrailerURL},
};

// Only a new film brings these; an update keeps what the catalog has.
inline constexpr FilmColumn kAddFileColumns[] = {
    {QLatin1StringView("FileSize"), &FilmRecord::Filesize},       {QLatin1StringView("FileName"), &FilmRecord::FileName},
    {QLatin1StringView("vidBitrate"), &FilmRecord::VidBitrate},   {QLatin1StringView("audBitrate"), &FilmRecord::AudBitrate},
    {QLatin1StringView("audChannels"), &FilmRecord::AudChannels}, {QLatin1StringView("vidType"), &FilmRecord::VidType},
    {QLatin1StringView("audType"), &FilmRecord::AudType},         {QLatin1StringView("Group"), &FilmRecord::Group},
    {QLatin1StringView("Resolution"), &FilmRecord::Resolution},
};

} // namespace kelvado
