#include "core/Options.h"

#include "core/Conversions.h"
#include "core/Literals.h"
#include "core/RuntimeError.h"
#include "core/ViewKeys.h"

#include <array>

namespace kelvado {

namespace {

template<typename Group>
struct WholeNumberKey
{
    const char* name;
    std::int32_t Group::*field;
};

constexpr std::array<WholeNumberKey<cOptDisplay>, 13> kDisplayKeys{{
    {"MaxActors", &cOptDisplay::MaxActors},
    {"MaxWriters", &cOptDisplay::MaxWriters},
    {"MaxDirectors", &cOptDisplay::MaxDirectors},
    {"MaxProducers", &cOptDisplay::MaxProducers},
    {"WindowState", &cOptDisplay::WindowState},
    {"SkinTree", &cOptDisplay::SkinTree},
    {"InSysTray", &cOptDisplay::InSysTray},
    {"AlwaysInTray", &cOptDisplay::AlwaysInTray},
    {"RestoreCon", &cOptDisplay::RestoreCon},
    {"FlashCon", &cOptDisplay::FlashCon},
    {"SectionTotal", &cOptDisplay::SectionTotal},
    {"StatusCaption", &cOptDisplay::StatusCaption},
    {"LeftPane", &cOptDisplay::LeftPane},
}};

struct StatusKey
{
    const char* name;
    std::int32_t cOptStatus::*field;
    int menuEntry; ///< of mnuStatusItem
};

constexpr std::array<StatusKey, 12> kStatusKeys{{
    {"TotalRequests", &cOptStatus::TotalRequests, 2},
    {"TotalMovies", &cOptStatus::TotalMovies, 1},
    {"TotalLoans", &cOptStatus::TotalLoans, 3},
    {"TotalDiscs", &cOptStatus::TotalDiscs, 4},
    {"TotalWriters", &cOptStatus::TotalWriters, 10},
    {"TotalActors", &cOptStatus::TotalActors, 9},
    {"TotalProducers", &cOptStatus::TotalProducers, 12},
    {"TotalDirectors", &cOptStatus::TotalDirectors, 11},
    {"PrimMethod", &cOptStatus::PrimMethod, 5},
    {"SecMethod", &cOptStatus::SecMethod, 6},
    {"ViewMethod", &cOptStatus::ViewMethod, 7},
    {"FiltersMethod", &cOptStatus::FiltersMethod, 8},
}};

constexpr std::array<WholeNumberKey<cOptIMDbFilm>, 16> kIMDbFilmKeys{{
    {"Title", &cOptIMDbFilm::Title},
    {"ShortTitle", &cOptIMDbFilm::ShortTitle},
    {"Year", &cOptIMDbFilm::Year},
    {"Plot", &cOptIMDbFilm::Plot},
    {"IMDbRating", &cOptIMDbFilm::IMDbRating},
    {"IMDbVotes", &cOptIMDbFilm::IMDbVotes},
    {"Runtime", &cOptIMDbFilm::Runtime},
    {"Rating", &cOptIMDbFilm::Rating},
    {"Producers", &cOptIMDbFilm::Producers},
    {"Directors", &cOptIMDbFilm::Directors},
    {"Writers", &cOptIMDbFilm::Writers},
    {"Actors", &cOptIMDbFilm::Actors},
    {"Companies", &cOptIMDbFilm::Companies},
    {"Genres", &cOptIMDbFilm::Genres},
    {"Image", &cOptIMDbFilm::Image},
    {"HiImage", &cOptIMDbFilm::HiImage},
}};

const QString kPrimaryDescending = u"mnuSortPrimDESC"_s;
const QString kSecondaryDescending = u"mnuSortSecDESC"_s;
const QString kPrimaryExpanded = u"mnuSortPrimExpanded"_s;

QString ReadText(const Profile& file, const QString& section, const char* key)
{
    return file.Value(section, QString::fromLatin1(key));
}

void WriteText(ProfileChanges& changes, const QString& section, const char* key, const QString& value)
{
    changes.Set(section, QString::fromLatin1(key), value);
}

[[noreturn]] void RaiseBadSetting(const Profile& file, const QString& section, const char* key, const RuntimeError& cause)
{
    throw RuntimeError(cause.Number(), u"%1: the setting %2 in section [%3] of %4 must be a number"_s.arg(
                                           DescriptionOfError(cause.Number()), QString::fromLatin1(key), section, file.Path()));
}

std::int32_t ReadNumber(const Profile& file, const QString& section, const char* key)
{
    try {
        return ToLong(ReadText(file, section, key));
    } catch (const RuntimeError& cause) {
        RaiseBadSetting(file, section, key, cause);
    }
}

bool ReadFlag(const Profile& file, const QString& section, const char* key)
{
    try {
        return ToBoolean(ReadText(file, section, key));
    } catch (const RuntimeError& cause) {
        RaiseBadSetting(file, section, key, cause);
    }
}

template<std::size_t N>
void CheckEntryOf(const char* const (&known)[N], const QString& value, const char* menu, MenuMarks& marks)
{
    for (std::size_t i = 0; i < N; ++i) {
        if (value == QLatin1StringView(known[i]))
            marks.SetChecked(QString::fromLatin1(menu), static_cast<int>(i), true);
    }
}

QString OrderOf(bool descending)
{
    return descending ? u"DESC"_s : QString();
}

QString FlagText(bool on)
{
    return on ? u"1"_s : u"0"_s;
}

} // namespace

void cOptDisplay::Load(const Profile& file)
{
    for (const auto& key : kDisplayKeys)
        this->*key.field = ReadNumber(file, u"Display"_s, key.name);
}

void cOptDisplay::Save(ProfileChanges& changes) const
{
    for (const auto& key : kDisplayKeys)
        WriteText(changes, u"Display"_s, key.name, QString::number(this->*key.field));
}

void cOptView::Load(const Profile& file, MenuMarks& marks)
{
    const QString section = u"View"_s;
    PrimarySort = ReadText(file, section, "PrimarySort");
    SecondarySort = ReadText(file, section, "SecondarySort");
    ActorField = u"Actor.Actor_ID"_s;
    ActorLinkField = u"ActorLink.Movie_ID"_s;
    ViewMode = ReadText(file, section, "ViewMode");

    CheckEntryOf(kViewModes, ViewMode, "mnuViewMode", marks);
    CheckEntryOf(kPrimarySorts, PrimarySort, "mnuSortPrimDetail", marks);
    CheckEntryOf(kSecondarySorts, SecondarySort, "mnuSortSecDetail", marks);
    marks.SetChecked(kPrimaryExpanded, -1, IsOn(ReadNumber(file, section, "PrimaryExpand")));
    marks.SetChecked(kPrimaryDescending, -1, ReadFlag(file, section, "PrimaryOrder"));
    marks.SetChecked(kSecondaryDescending, -1, ReadFlag(file, section, "SecondaryOrder"));
    PrimaryOrder = OrderOf(marks.IsChecked(kPrimaryDescending, -1));
    SecondaryOrder = OrderOf(marks.IsChecked(kSecondaryDescending, -1));
}

void cOptView::Save(ProfileChanges& changes, const MenuMarks& marks) const
{
    const QString section = u"View"_s;
    const QString descending = FlagText(marks.IsChecked(kPrimaryDescending, -1));
    WriteText(changes, section, "PrimaryExpand", FlagText(marks.IsChecked(kPrimaryExpanded, -1)));
    WriteText(changes, section, "PrimaryOrder", descending);
    WriteText(changes, section, "SecondaryOrder", descending);
    WriteText(changes, section, "ViewMode", ViewMode);
    WriteText(changes, section, "PrimarySort", PrimarySort);
    WriteText(changes, section, "SecondarySort", SecondarySort);
}

void cOptStatus::Load(const Profile& file, MenuMarks& marks)
{
    const QString menu = u"mnuStatusItem"_s;
    marks.SetChecked(menu, 0, true);
    marks.SetEnabled(menu, 0, false);
    for (const auto& key : kStatusKeys) {
        this->*key.field = ReadNumber(file, u"Status"_s, key.name);
        marks.SetChecked(menu, key.menuEntry, IsOn(this->*key.field));
    }
}

void cOptStatus::Save(ProfileChanges& changes) const
{
    for (const auto& key : kStatusKeys)
        WriteText(changes, u"Status"_s, key.name, QString::number(this->*key.field));
}

std::int32_t cOptStatus::*StatusOption(int entry)
{
    for (const auto& key : kStatusKeys) {
        if (key.menuEntry == entry)
            return key.field;
    }
    throw RuntimeError(kErrSubscript);
}

std::int32_t cOptIMDbFilm::*IMDbFilmOption(int part)
{
    if (part == static_cast<int>(kIMDbFilmKeys.size()))
        return &cOptIMDbFilm::SpokenLanguages;
    if (part < 0 || part > static_cast<int>(kIMDbFilmKeys.size()))
        throw RuntimeError(kErrSubscript);
    return kIMDbFilmKeys[static_cast<std::size_t>(part)].field;
}

cOptIMDbFilm cOptIMDbFilm::Everything()
{
    cOptIMDbFilm parts;
    for (const auto& key : kIMDbFilmKeys)
        parts.*key.field = 1;
    return parts;
}

void cOptIMDbFilm::Load(const Profile& file, const QString& section)
{
    m_section = section;
    for (const auto& key : kIMDbFilmKeys)
        this->*key.field = ReadNumber(file, section, key.name);
}

void cOptIMDbFilm::Save(ProfileChanges& changes) const
{
    for (const auto& key : kIMDbFilmKeys)
        WriteText(changes, m_section, key.name, QString::number(this->*key.field));
}

void cOptDefaults::Load(const Profile& file)
{
    const QString section = u"DefaultValues"_s;
    PromptAKA = ReadNumber(file, section, "PromptAKA");
    Format = ReadText(file, section, "Format");
    Discs = ReadText(file, section, "Discs");
    Index = ReadText(file, section, "Index");
    Enable = ReadNumber(file, section, "Enable");
}

void cOptDefaults::Save(ProfileChanges& changes) const
{
    const QString section = u"DefaultValues"_s;
    WriteText(changes, section, "PromptAKA", QString::number(PromptAKA));
    WriteText(changes, section, "Format", Format);
    WriteText(changes, section, "Discs", Discs);
    WriteText(changes, section, "Index", Index);
    WriteText(changes, section, "Enable", QString::number(Enable));
}

cOptions::cOptions(const QString& file, MenuMarks& marks) : m_file(file), m_marks(marks)
{
    const Profile settings(file);
    Display.Load(settings);
    View.Load(settings, marks);
    Status.Load(settings, marks);
    IMDbFilmAdd.Load(settings, u"IMDbFilmAdd"_s);
    IMDbFilmUpdate.Load(settings, u"IMDbFilmUpdate"_s);
    Defaults.Load(settings);
}

void cOptions::Save() const
{
    ProfileChanges changes(m_file);
    Display.Save(changes);
    View.Save(changes, m_marks);
    Status.Save(changes);
    IMDbFilmAdd.Save(changes);
    IMDbFilmUpdate.Save(changes);
    Defaults.Save(changes);
    changes.Write();
}

} // namespace kelvado
