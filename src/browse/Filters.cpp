#include "browse/Filters.h"

#include "core/Conversions.h"
#include "core/Literals.h"
#include "core/RuntimeError.h"
#include "core/ViewKeys.h"

#include <QRegularExpression>

#include <algorithm>

namespace kelvado {

namespace {

struct Operand
{
    const char* caption;
    const char* sql;
};
constexpr Operand kOperands[] = {{"Equal To", "="}, {"Greater Than", ">="}, {"Less Than", "<="}};
constexpr const char* kOperandCaptions[] = {kOperands[0].caption, kOperands[1].caption, kOperands[2].caption};

const QString kRemoveEntries = u"MnuFilterRemoveSingle"_s;

} // namespace

std::span<const char* const> FilterOperands()
{
    return kOperandCaptions;
}

QString FilterFault(const FilmElement* element, int operand, const QString& text)
{
    if (text.isEmpty())
        return u"You must enter a filter criteria"_s;
    if (!element || element->kind == ElementKind::Group)
        return u"You must select an element to filter"_s;
    if (element->kind != ElementKind::Text && operand < 0)
        return u"You must select an operand"_s;
    if (element->kind != ElementKind::Text && !IsNumeric(text))
        return QString::fromLatin1(element->caption) + u"must be numeric."_s;
    return {};
}

FilterRecord MakeFilter(const FilmElement& element, int operand, const QString& text)
{
    const Operand& comparison = kOperands[element.kind == ElementKind::Text ? 0 : static_cast<std::size_t>(operand)];
    const QString caption = QString::fromLatin1(element.caption);
    FilterRecord filter;
    filter.WhereText = ColumnOfKey(QString::fromLatin1(element.key)) + u' ' + QString::fromLatin1(comparison.sql) + u'"' +
                       TrimBlanks(text).replace(u'"', u"\"\""_s) + u'"';
    filter.Caption = element.kind == ElementKind::Text ? caption + u" contains "_s + text
                                                       : caption + u' ' + QString::fromLatin1(comparison.caption) + u' ' + text;
    return filter;
}

QString JoinFilters(std::span<const FilterRecord> filters)
{
    QString where;
    for (const FilterRecord& filter : filters)
        where += (where.isEmpty() ? u"WHERE "_s : u" AND "_s) + filter.WhereText;
    return where;
}

QString WithLinkedGenres(const QString& sql, bool hasGenres)
{
    // Texts in quotes are passed over.
    static const QRegularExpression parts(uR"re(Genre\.Genre =("(?:[^"]|"")*")|"(?:[^"]|"")*")re"_s);
    QList<QRegularExpressionMatch> conditions;
    for (const QRegularExpressionMatch& part : parts.globalMatch(sql)) {
        if (part.hasCaptured(1))
            conditions << part;
    }
    if (hasGenres && conditions.size() < 2)
        return sql;
    QString linked;
    qsizetype done = 0;
    for (const QRegularExpressionMatch& part : conditions) {
        linked += QStringView(sql).sliced(done, part.capturedStart() - done);
        linked += u"Movie.Movie_ID IN (SELECT GenreLink.Movie_ID FROM GenreLink INNER JOIN Genre ON GenreLink.Genre_ID = Genre.Genre_ID "
                  "WHERE Genre.Genre ="_s +
                  part.captured(1) + u')';
        done = part.capturedEnd();
    }
    linked += QStringView(sql).sliced(done);
    return linked;
}

Filters::Filters(AppState& state, Dialogs& dialogs, MenuMarks& marks, Shell& shell, AskFilter askFilter)
    : m_state(state), m_dialogs(dialogs), m_marks(marks), m_shell(shell), m_askFilter(std::move(askFilter))
{
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
    m_marks.SetCaption(kRemoveEntries, place, filter.Caption);
    m_marks.SetVisible(kRemoveEntries, place, true);
    ++m_state.FilterCount;
    m_state.canAddFilter = m_state.FilterCount < kMost;
    Apply();
}

void Filters::RemoveAll()
{
    if (m_dialogs.MessageBox(u"Are You Sure You Wish To Remove All Filters ? "_s, kBoxYesNo, u"Remove Filters"_s) != kAnswerYes)
        return;
    for (int i = 0; i < kMost; ++i) {
        m_active[static_cast<std::size_t>(i)] = m_active[static_cast<std::size_t>(i) + 1];
        m_marks.SetVisible(kRemoveEntries, i, false);
    }
    m_state.FilterWhere.clear();
    m_state.FilterCount = 0;
    m_state.canAddFilter = true;
    Apply();
}

void Filters::RemoveSingle(int index)
{
    if (index < 0 || index >= kMost)
        throw RuntimeError(kErrSubscript);
    if (m_dialogs.MessageBox(u"Are You Sure You Wish To Remove This Filter ? "_s, kBoxYesNo, u"Remove Filter"_s) != kAnswerYes)
        return;
    for (int i = index; i < kMost; ++i)
        m_active[static_cast<std::size_t>(i)] = m_active[static_cast<std::size_t>(i) + 1];
    m_marks.SetVisible(kRemoveEntries, index, false);
    // The count before it goes down decides: after one of five is removed, none can be added until a further one goes.
    m_state.canAddFilter = m_state.FilterCount < kMost;
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
    m_state.FilterWhere = JoinFilters(std::span(m_active).first(static_cast<std::size_t>(std::max<int>(m_state.FilterCount, 0))));
}

} // namespace kelvado
