#include "browse/FilmElements.h"

#include <vector>

namespace kelvado {

namespace {

struct Row
{
    const char* key;
    const char* sortCaption;   ///< null for what films are not sorted by
    const char* filterCaption; ///< null for what films are not filtered by
    ElementKind kind;
};

using enum ElementKind;

// Running time, index and bit rates look like numbers and are texts all the same.
constexpr Row kRows[] = {
    {"MovieMAIN", "Movie", "Movie", Group},
    {"Movie.Title", "Aphabetical", "Title", Text},
    {"Movie.TitleNY", nullptr, "Short Title", Text},
    {"Movie.Year", "Year", "Year", Number},
    {"Movie.Format", "Format", "Format", Text},
    {"Movie.Runtime", "Runtime", "Runtime", Text},
    {"Movie.Number", "Discs/Tapes", "Discs/Tapes", Number},
    {"Movie.Index", "Index", "Index", Text},
    {"Movie.Rated", "Rated", "Rated", Text},
    {"Movie.Color", "Color", "Color", Text},
    {"Movie.Country", "Country", "Country", Text},
    {"Movie.Language", "Spoken Language(s)", "Spoken Language(s)", Text},
    {"Movie.SubLanguage", "Subtitle Language(s)", "Subtitle Language(s)", Text},
    {"GenreMAIN", "Genre", "Genre", Group},
    {"Genre.Genre", "Genre", "Genre", Text},
    {"WebMAIN", "Web", "Web", Group},
    {"Movie.Rating", "IMDb Rating", "IMDb Rating", Number},
    {"Movie.Votes", "IMDb Votes", "IMDb Votes", Number},
    {"Movie.IMDb", "IMDb Number", "IMDb Number", Number},
    {"Movie.IMDbLink", "IMDb Link", "IMDb Link", Number},
    {"Movie.ISONEWS", "DVDEmpire Link", "DVDEmpire Link", Text},
    {"Movie.UserURL1", "Custom Link 1", "Custom Link 1", Text},
    {"Movie.UserURL2", "Custom Link 2", "Custom Link 2", Text},
    {"Movie.TrailerURL", "Trailer Link", "Trailer Link", Text},
    {"FileMAIN", "File Details", "File Details", Group},
    {"Movie.AudType", "Audio Type", "Audio Type", Text},
    {"Movie.VidType", "Video Type", "Video Type", Text},
    {"Movie.AudBitrate", "Audio Bitrate", "Audio Bitrate", Text},
    {"Movie.VidBitrate", "Video Bitrate", "Video Bitrate", Text},
    {"Movie.AudChannels", "Audio Channels", "Audio Channels", Number},
    {"Movie.Resolution", "Resolution", "Resolution", Text},
    {"Movie.Filename", "Filename", "Filename", Text},
    {"Movie.Filesize", "Filesize", "Filesize", Text},
    {"Movie.Group", "Group", "Group", Text},
    {"CustomMAIN", "Custom Entries", nullptr, Group},
    {"Movie.Custom1", "Custom Entry 1", nullptr, Text},
    {"Movie.Custom2", "Custom Entry 2", nullptr, Text},
    {"Movie.Custom3", "Custom Entry 3", nullptr, Text},
};

std::vector<FilmElement> Elements(const char* Row::*caption)
{
    std::vector<FilmElement> elements;
    for (const Row& row : kRows) {
        if (row.*caption)
            elements.push_back({row.*caption, row.key, row.kind});
    }
    return elements;
}

} // namespace

std::span<const FilmElement> SortMethods()
{
    static const std::vector<FilmElement> methods = Elements(&Row::sortCaption);
    return methods;
}

std::span<const FilmElement> FilterElements()
{
    static const std::vector<FilmElement> elements = Elements(&Row::filterCaption);
    return elements;
}

} // namespace kelvado
