#include "web/readers/WebText.h"

#include "core/Literals.h"
#include "core/RuntimeError.h"

#include <algorithm>
#include <utility>

namespace kelvado {

namespace {

// Where every "<" has its ">" before the next "<", a tag occurs nowhere but as a whole tag, so that one pass takes them all.
// Leaves other texts as they are and returns false.
bool RemoveWellFormedTags(QString& text)
{
    bool inTag = false;
    for (const QChar c : std::as_const(text)) {
        if (c == (inTag ? u'<' : u'>'))
            return false;
        if (c == u'<' || c == u'>')
            inTag = !inTag;
    }
    if (inTag)
        return false;
    text.removeIf([&inTag](QChar c) {
        const bool isMark = c == u'<' || c == u'>';
        if (isMark)
            inTag = c == u'<';
        return inTag || isMark;
    });
    return true;
}

void RemoveTagsOneByOne(QString& text)
{
    // Each pass reads the whole text for one tag. No page has a cell with more of them but one that is made to hold the program up.
    constexpr int kMostPasses = 256;
    for (int pass = 0;; ++pass) {
        const qsizetype open = text.indexOf(u'<');
        if (open < 0)
            return;
        const qsizetype close = text.indexOf(u'>');
        if (close < open || pass == kMostPasses)
            throw RuntimeError(kErrInvalidCall);
        text.remove(text.sliced(open, close - open + 1));
    }
}

} // namespace

Place PageText::Find(QStringView marker, Place from, Qt::CaseSensitivity letters) const
{
    if (from < 1)
        throw RuntimeError(kErrInvalidCall);
    return from > m_text.size() ? kNowhere : m_text.indexOf(marker, from - 1, letters) + 1;
}

Place PageText::FindBehind(QStringView marker, Place from, Qt::CaseSensitivity letters) const
{
    return Behind(Find(marker, from, letters), marker.size());
}

Place PageText::FindBack(QStringView marker, Place before, Qt::CaseSensitivity letters) const
{
    return m_text.first(qBound<qsizetype>(0, before - 1, m_text.size())).lastIndexOf(marker, letters) + 1;
}

QString PageText::Cut(Place from, Place to) const
{
    if (to < from)
        throw RuntimeError(kErrInvalidCall);
    return Take(from, to - from);
}

QString PageText::CutShort(Place from, Place to, qsizetype most) const
{
    return Cut(from, std::min(to, from + most));
}

QString PageText::Take(Place from, qsizetype length) const
{
    if (from < 1)
        throw RuntimeError(kErrInvalidCall);
    return m_text.mid(from - 1, length).toString();
}

Place MarkerAhead::Find(Place from)
{
    const bool isKnown = m_from != kNowhere && from >= m_from && (m_found == kNowhere || from <= m_found);
    if (!isKnown) {
        m_found = m_page.Find(m_marker, from, m_letters);
        m_from = from;
    }
    return m_found;
}

QString FlattenPage(const QString& text)
{
    QString flat(text.size(), Qt::Uninitialized);
    const auto isBreak = [](QChar c) { return c == u'\r' || c == u'\n' || c == u'\t'; };
    flat.truncate(std::remove_copy_if(text.cbegin(), text.cend(), flat.begin(), isBreak) - flat.begin());
    return flat;
}

QString StripTags(QString text)
{
    if (!RemoveWellFormedTags(text))
        RemoveTagsOneByOne(text);
    return text.remove("&nbsp;"_L1).remove("&amp;"_L1);
}

} // namespace kelvado
