#include "web/WebText.h"

#include "core/RuntimeError.h"

#include <algorithm>

namespace kelvado {

using namespace Qt::StringLiterals;

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

QString PageText::Take(Place from, qsizetype length) const
{
    if (from < 1)
        throw RuntimeError(kErrInvalidCall);
    return m_text.mid(from - 1, length).toString();
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
    for (;;) {
        const qsizetype open = text.indexOf(u'<');
        if (open < 0)
            break;
        const qsizetype close = text.indexOf(u'>');
        if (close < open)
            throw RuntimeError(kErrInvalidCall);
        text.remove(text.sliced(open, close - open + 1));
    }
    return text.remove("&nbsp;"_L1).remove("&amp;"_L1);
}

} // namespace kelvado
