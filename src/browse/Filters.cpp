#include "browse/Filters.h"

#include "core/Conversions.h"
#include "core/RuntimeError.h"

#include <algorithm>
#include <cstring>

namespace kelvado {

namespace {

constexpr FilterElement kElements[] = {
    {"Movie", "MovieMAIN"},
    {"Title", "Movie.Title"},
    {"Short Title", "Movie.TitleNY"},
    {"Year", "Movie.Year"},
    {"Format", "Movie.Format"},
    {"Runtime", "Movie.Runtime"},
    {"Discs/Tapes", "Movie.Number"},
    {"Index", "Movie.Index"},
    {"Rated", "Movie.Rated"},
    {"Color", "Movie.Color"},
    {"Country", "Movie.Country"},
    {"Spoken Language(s)", "Movie.Language"},
    {"Subtitle Language(s)", "Movie.SubLanguage"},
    {"Genre", "GenreMAIN"},
    {"Genre", "Genre.Genre"},
    {"Web", "WebMAIN"},
    {"IMDb Rating", "Movie.Rating"},
    {"IMDb Votes", "Movie.Votes"},
    {"IMDb Number", "Movie.IMDb"},
    {"IMDb Link", "Movie.IMDbLink"},
    {"DVDEmpire Link", "Movie.ISONEWS"},
    {"Custom Link 1", "Movie.UserURL1"},
    {"Custom Link 2", "Movie.UserURL2"},
    {"Trailer Link", "Movie.TrailerURL"},
    {"File Details", "FileMAIN"},
    {"Audio Type", "Movie.AudType"},
    {"Video Type", "Movie.VidType"},
    {"Audio Bitrate", "Movie.AudBitrate"},
    {"Video Bitrate", "Movie.VidBitrate"},
    {"Audio Channels", "Movie.AudChannels"},
    {"Resolution", "Movie.Resolution"},
    {"Filename", "Movie.Filename"},
    {"Filesize", "Movie.Filesize"},
    {"Group", "Movie.Group"},
};

// Every other key counts as numeric. Running time, index and bit rates look like numbers and are texts all the same.
constexpr const char* kTextKeys[] = {"Movie.Title",    "Movie.TitleNY",  "Movie.Format",     "Movie.Runtime",    "Movie.Index",
                                     "Movie.Rated",    "Movie.Color",    "Movie.Country",    "Movie.Language",   "Movie.SubLanguage",
                                     "Genre.Genre",    "Movie.ISONEWS",  "Movie.UserURL1",   "Movie.UserURL2",   "Movie.TrailerURL",
                                     "Movie.AudType",  "Movie.VidType",  "Movie.AudBitrate", "Movie.VidBitrate", "Movie.Resolution",
                                     "Movie.Filename", "Movie.Filesize", "Movie.Group"};

struct Operand
{
    const char* caption;
    const char* sql;
};
constexpr Operand kOperands[] = {{"Equal To", "="}, {"Greater Than", ">="}, {"Less Than", "<="}};
constexpr const char* kOperandCaptions[] = {kOperands[0].caption, kOperands[1].caption, kOperands[2].caption};

const QString kAddEntry = QStringLiteral("mnuAddFilter");
const QString kRemoveAllEntry = QStringLiteral("mnuFilterRemoveAll");
const QString kRemoveEntries = QStringLiteral("MnuFilterRemoveSingle");

} // namespace

bool FilterElement::IsGroup() const
{
    return std::strstr(key, "MAIN") != nullptr;
}

bool FilterElement::IsText() const
{
    return std::any_of(std::begin(kTextKeys), std::end(kTextKeys), [this](const char* text) { return std::strcmp(text, key) == 0; });
}

std::span<const FilterElement> FilterElements()
{
    return kElements;
}

std::span<const char* const> FilterOperands()
{
    return kOperandCaptions;
}

QString FilterFault(const FilterElement* element, int operand, const QString& text)
{
    if (text.isEmpty())
        return QStringLiteral("You must enter a filter criteria");
    if (!element || element->IsGroup())
        return QStringLiteral("You must select an element to filter");
    if (!element->IsText() && operand < 0)
        return QStringLiteral("You must select an operand");
    if (!element->IsText() && !IsNumeric(text))
        return QString::fromLatin1(element->caption) + QStringLiteral("must be numeric.");
    return {};
}

FilterRecord MakeFilter(const FilterElement& element, int operand, const QString& text)
{
    const Operand& comparison = kOperands[element.IsText() ? 0 : static_cast<std::size_t>(operand)];
    const QString caption = QString::fromLatin1(element.caption);
    FilterRecord filter;
    filter.WhereText = QString::fromLatin1(element.key) + u' ' + QString::fromLatin1(comparison.sql) + u'"' + text.trimmed() + u'"';
    filter.Caption = element.IsText() ? caption + QStringLiteral(" contains ") + text
                                      : caption + u' ' + QString::fromLatin1(comparison.caption) + u' ' + text;
    return filter;
}

Filters::Filters(AppState& state, Dialogs& dialogs, MenuMarks& marks, Shell& shell, AskFilter askFilter)
    : m_state(state), m_dialogs(dialogs), m_marks(marks), m_shell(shell), m_askFilter(std::move(askFilter))
{
}

void Filters::EnableAdd(bool enabled)
{
    m_marks.SetEnabled(kAddEntry, -1, enabled);
}

void Filters::Add()
{
    if (m_state.FilterCount >= kMost)
        return;
    const FilterRecord filter = m_askFilter();
    if (filter.WhereText == u"0")
        return;
    const int place = m_state.FilterCount;
    m_active[static_cast<std::size_t>(place)] = filter;
    m_marks.SetEnabled(kRemoveAllEntry, -1, true);
    m_marks.SetCaption(kRemoveEntries, place, filter.Caption);
    m_marks.SetVisible(kRemoveEntries, place, true);
    ++m_state.FilterCount;
    if (m_state.FilterCount == kMost)
        EnableAdd(false);
    Apply();
}

void Filters::RemoveAll()
{
    if (m_dialogs.MessageBox(QStringLiteral("Are You Sure You Wish To Remove All Filters ? "), kBoxYesNo,
                             QStringLiteral("Remove Filters")) != kAnswerYes)
        return;
    for (int i = 0; i < kMost; ++i) {
        m_active[static_cast<std::size_t>(i)] = m_active[static_cast<std::size_t>(i) + 1];
        m_marks.SetVisible(kRemoveEntries, i, false);
    }
    m_state.FilterWhere.clear();
    m_state.FilterCount = 0;
    m_marks.SetEnabled(kRemoveAllEntry, -1, false);
    EnableAdd(true);
    Apply();
}

void Filters::RemoveSingle(int index)
{
    if (index < 0 || index >= kMost)
        throw RuntimeError(kErrSubscript);
    if (m_dialogs.MessageBox(QStringLiteral("Are You Sure You Wish To Remove This Filter ? "), kBoxYesNo,
                             QStringLiteral("Remove Filter")) != kAnswerYes)
        return;
    for (int i = index; i < kMost; ++i)
        m_active[static_cast<std::size_t>(i)] = m_active[static_cast<std::size_t>(i) + 1];
    m_marks.SetVisible(kRemoveEntries, index, false);
    // Both tests look at the count before it goes down: after one of five is removed, none can be added until a further one goes.
    if (m_state.FilterCount == 1)
        m_marks.SetEnabled(kRemoveAllEntry, -1, false);
    if (m_state.FilterCount < kMost)
        EnableAdd(true);
    --m_state.FilterCount;
    Apply();
}

void Filters::Apply()
{
    BuildFilterWhere();
    m_shell.RefreshCatalogTree();
}

void Filters::BuildFilterWhere()
{
    m_state.FilterWhere.clear();
    for (int i = 0; i < m_state.FilterCount; ++i)
        m_state.FilterWhere +=
            (i == 0 ? QStringLiteral("WHERE ") : QStringLiteral(" AND ")) + m_active[static_cast<std::size_t>(i)].WhereText;
}

} // namespace kelvado
