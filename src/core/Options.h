#pragma once

#include "core/MenuMarks.h"
#include "core/Profile.h"

#include <QString>

#include <cstdint>

namespace kelvado {

/// The option groups. Each reads its keys from `Settings.ini` when it is made (`Load`), and from then on is the truth; `Save` hands
/// all keys back in the same order. A whole number whose text is missing or no number raises `kErrTypeMismatch`, with the section, key and
/// file named.

/// True where an option of those that are kept as numbers is on.
constexpr bool IsOn(std::int32_t option)
{
    return option > 0;
}

struct cOptDisplay
{
    std::int32_t MaxActors = 0, MaxWriters = 0, MaxDirectors = 0, MaxProducers = 0; ///< most names shown; 0 means no limit
    std::int32_t WindowState = 0;                                                   ///< 0 normal, 2 maximised
    std::int32_t SkinTree = 0, InSysTray = 0, AlwaysInTray = 0, RestoreCon = 0, FlashCon = 0;
    std::int32_t SectionTotal = 0; ///< kept and saved, used by nothing
    std::int32_t StatusCaption = 0;
    std::int32_t LeftPane = 0; ///< width in twips

    void Load(const Profile& file);
    void Save(ProfileChanges& changes) const;
};

struct cOptView
{
    QString PrimarySort, SecondarySort;   ///< column keys such as "Movie.Title"
    QString ActorField, ActorLinkField;   ///< never in the file
    QString PrimaryOrder, SecondaryOrder; ///< "DESC" or empty
    QString ViewMode;                     ///< "Movies", "Requests", "Loans" or "MovieNight"

    /// Reads the keys and checks the entries of `marks` that stand for them.
    void Load(const Profile& file, MenuMarks& marks);
    /// Expansion and directions are written from the check marks. The secondary direction is written from the mark of the primary one,
    /// so it does not survive a restart on its own.
    void Save(ProfileChanges& changes, const MenuMarks& marks) const;
};

struct cOptStatus
{
    std::int32_t TotalRequests = 0, TotalMovies = 0, TotalLoans = 0, TotalDiscs = 0, TotalWriters = 0, TotalActors = 0, TotalProducers = 0,
                 TotalDirectors = 0, PrimMethod = 0, SecMethod = 0, ViewMethod = 0, FiltersMethod = 0;

    void Load(const Profile& file, MenuMarks& marks);
    void Save(ProfileChanges& changes) const;
};

/// The option behind entry 1 to 12 of the status bar's menu. Raises `kErrSubscript` for any other entry.
std::int32_t cOptStatus::*StatusOption(int entry);

/// What is fetched for a film; a value above 0 means that the part is on. Used twice: for adding and for updating.
struct cOptIMDbFilm
{
    std::int32_t Title = 0, ShortTitle = 0, Year = 0, Plot = 0, IMDbRating = 0, IMDbVotes = 0, Runtime = 0, Rating = 0, Producers = 0,
                 Directors = 0, Writers = 0, Actors = 0, Companies = 0, Genres = 0, Image = 0, HiImage = 0;
    std::int32_t SpokenLanguages = 0; ///< lasts for the run only: neither loaded nor saved

    /// All parts on.
    static cOptIMDbFilm Everything();

    void Load(const Profile& file, const QString& section);
    void Save(ProfileChanges& changes) const;

private:
    QString m_section;
};

/// The option of one part, 0 to 16 in the order of the fields. Raises `kErrSubscript` for any other number.
std::int32_t cOptIMDbFilm::*IMDbFilmOption(int part);

struct cOptDefaults
{
    std::int32_t PromptAKA = 0;
    QString Format, Discs, Index;
    std::int32_t Enable = 0;

    void Load(const Profile& file);
    void Save(ProfileChanges& changes) const;
};

/// The root. Making it loads every group in member order.
class cOptions
{
public:
    /// `file` is the settings file; `marks` must outlive this object.
    cOptions(const QString& file, MenuMarks& marks);

    /// Writes every group in member order, in one write of the file. Failures are ignored, as settings never hold up the exit.
    void Save() const;

    cOptDisplay Display;
    cOptView View;
    cOptStatus Status;
    cOptIMDbFilm IMDbFilmAdd;
    cOptIMDbFilm IMDbFilmUpdate;
    cOptDefaults Defaults;

private:
    QString m_file;
    MenuMarks& m_marks;
};

} // namespace kelvado
