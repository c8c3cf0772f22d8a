#pragma once

#include "core/Literals.h"
#include "core/Options.h"
#include "store/FilmRecord.h"

#include <QLatin1StringView>

#include <variant>

namespace kelvado {

/// Where a film's column comes from in the record.
using FilmMember = std::variant<QString FilmRecord::*, Currency FilmRecord::*, QDate FilmRecord::*, bool FilmRecord::*>;

struct RecordColumn
{
    QLatin1StringView column;
    FilmMember member;
    std::int32_t cOptIMDbFilm::*gate = nullptr; ///< the option that lets it through; none lets it through always
};

// The tables stand in the order in which the columns are stored: with automatic cutting off, the user is asked in this order.

inline constexpr RecordColumn kAddColumns[] = {
    {"Title"_L1, &FilmRecord::Title, &cOptIMDbFilm::Title},
    {"TitleNY"_L1, &FilmRecord::TitleNY, &cOptIMDbFilm::ShortTitle},
    {"IMDB"_L1, &FilmRecord::IMDB},
    {"Votes"_L1, &FilmRecord::Votes, &cOptIMDbFilm::IMDbVotes},
    {"Rating"_L1, &FilmRecord::Rating, &cOptIMDbFilm::IMDbRating},
    {"Year"_L1, &FilmRecord::Year, &cOptIMDbFilm::Year},
    {"Plot"_L1, &FilmRecord::Plot, &cOptIMDbFilm::Plot},
    {"Rated"_L1, &FilmRecord::Rated, &cOptIMDbFilm::Rating},
    {"Runtime"_L1, &FilmRecord::Runtime, &cOptIMDbFilm::Runtime},
    {"Language"_L1, &FilmRecord::Language},
    {"Format"_L1, &FilmRecord::Format},
    {"Number"_L1, &FilmRecord::Number},
    {"Index"_L1, &FilmRecord::Index},
};

// An update stores the rating under the certificate's option, and never looks at its own.
inline constexpr RecordColumn kUpdateColumns[] = {
    {"Title"_L1, &FilmRecord::Title, &cOptIMDbFilm::Title},
    {"IMDB"_L1, &FilmRecord::IMDB},
    {"Votes"_L1, &FilmRecord::Votes, &cOptIMDbFilm::IMDbVotes},
    {"Rating"_L1, &FilmRecord::Rating, &cOptIMDbFilm::Rating},
    {"TitleNY"_L1, &FilmRecord::TitleNY, &cOptIMDbFilm::ShortTitle},
    {"Year"_L1, &FilmRecord::Year, &cOptIMDbFilm::Year},
    {"Plot"_L1, &FilmRecord::Plot, &cOptIMDbFilm::Plot},
    {"Rated"_L1, &FilmRecord::Rated, &cOptIMDbFilm::Rating},
    {"Runtime"_L1, &FilmRecord::Runtime, &cOptIMDbFilm::Runtime},
    {"Language"_L1, &FilmRecord::Language},
    {"Format"_L1, &FilmRecord::Format},
    {"Number"_L1, &FilmRecord::Number},
    {"Index"_L1, &FilmRecord::Index},
};

inline constexpr RecordColumn kEditColumns[] = {
    {"Title"_L1, &FilmRecord::Title},
    {"TitleNY"_L1, &FilmRecord::TitleNY},
    {"Year"_L1, &FilmRecord::Year},
    {"IMDB"_L1, &FilmRecord::IMDB},
    {"Rating"_L1, &FilmRecord::Rating},
    {"Votes"_L1, &FilmRecord::Votes},
    {"Rated"_L1, &FilmRecord::Rated},
    {"Runtime"_L1, &FilmRecord::Runtime},
    {"Language"_L1, &FilmRecord::Language},
    {"Format"_L1, &FilmRecord::Format},
    {"Number"_L1, &FilmRecord::Number},
    {"Index"_L1, &FilmRecord::Index},
    {"Plot"_L1, &FilmRecord::Plot},
    {"Group"_L1, &FilmRecord::Group},
    {"Filesize"_L1, &FilmRecord::Filesize},
    {"Studio"_L1, &FilmRecord::Studio},
    {"Quality"_L1, &FilmRecord::Quality},
    {"Resolution"_L1, &FilmRecord::Resolution},
    {"AudBitrate"_L1, &FilmRecord::AudBitrate},
    {"VidBitrate"_L1, &FilmRecord::VidBitrate},
    {"AudType"_L1, &FilmRecord::AudType},
    {"VidType"_L1, &FilmRecord::VidType},
    {"SubLanguage"_L1, &FilmRecord::SubLanguage},
    {"Comments"_L1, &FilmRecord::Comments},
    {"FileNotes"_L1, &FilmRecord::FileNotes},
    {"Custom1"_L1, &FilmRecord::Custom1},
    {"Custom2"_L1, &FilmRecord::Custom2},
    {"Custom3"_L1, &FilmRecord::Custom3},
    {"Filename"_L1, &FilmRecord::FileName},
    {"AudChannels"_L1, &FilmRecord::AudChannels},
};

inline constexpr RecordColumn kOriginColumns[] = {
    {"Color"_L1, &FilmRecord::Color},
    {"Country"_L1, &FilmRecord::Country},
};

// What is the user's own: fresh web data never touches it.
inline constexpr RecordColumn kPersonalColumns[] = {
    {"PurchasePrice"_L1, &FilmRecord::PurchasePrice}, {"PurchasedWhere"_L1, &FilmRecord::PurchasedWhere},
    {"LastViewing"_L1, &FilmRecord::LastViewing},     {"SeenIt"_L1, &FilmRecord::SeenIt},
    {"MyRating"_L1, &FilmRecord::MyRating},           {"MyRatingNotes"_L1, &FilmRecord::MyRatingNotes},
    {"UserURL1"_L1, &FilmRecord::UserURL1},           {"UserURL2"_L1, &FilmRecord::UserURL2},
    {"TrailerURL"_L1, &FilmRecord::TrailerURL},
};

// Only a new film brings these; an update keeps what the catalog has.
inline constexpr RecordColumn kAddFileColumns[] = {
    {"FileSize"_L1, &FilmRecord::Filesize},       {"FileName"_L1, &FilmRecord::FileName},
    {"vidBitrate"_L1, &FilmRecord::VidBitrate},   {"audBitrate"_L1, &FilmRecord::AudBitrate},
    {"audChannels"_L1, &FilmRecord::AudChannels}, {"vidType"_L1, &FilmRecord::VidType},
    {"audType"_L1, &FilmRecord::AudType},         {"Group"_L1, &FilmRecord::Group},
    {"Resolution"_L1, &FilmRecord::Resolution},
};

} // namespace kelvado
