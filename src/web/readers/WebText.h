#pragma once

#include <QString>
#include <QStringView>

namespace kelvado {

/// A place in a page, counted from 1. Nowhere is the place of what was not found, and compares as a number in front of every place.
using Place = qsizetype;
inline constexpr Place kNowhere = 0;

/// The place `length` characters behind `place`; behind nowhere is nowhere.
constexpr Place Behind(Place place, qsizetype length)
{
    return place == kNowhere ? kNowhere : place + length;
}

/// A page that is read by markers, places and lengths. It looks at the text that it was made of, which must outlive it.
/// Searching or cutting from nowhere raises `kErrInvalidCall`, so that a marker that was not found ends the reading at the next step that
/// needs it.
class PageText
{
public:
    explicit PageText(QStringView text) : m_text(text) {}

    /// The first place at or behind `from` where `marker` begins.
    Place Find(QStringView marker, Place from = 1, Qt::CaseSensitivity letters = Qt::CaseSensitive) const;
    /// The first place behind a `marker` that begins at or behind `from`.
    Place FindBehind(QStringView marker, Place from = 1, Qt::CaseSensitivity letters = Qt::CaseSensitive) const;
    /// The last place in front of `before` where a `marker` begins that ends there too; never raises.
    Place FindBack(QStringView marker, Place before, Qt::CaseSensitivity letters = Qt::CaseSensitive) const;
    bool Holds(QStringView marker) const { return m_text.contains(marker); }

    /// The text from `from` up to `to`, without the character there. Raises `kErrInvalidCall` where `to` lies in front of `from`.
    QString Cut(Place from, Place to) const;
    /// As `Cut`, but no more than the first `most` characters, however far away `to` is.
    QString CutShort(Place from, Place to, qsizetype most) const;
    /// The text from `from` on, at most `length` characters.
    QString Take(Place from, qsizetype length) const;

    /// The place behind the last character.
    Place End() const { return m_text.size() + 1; }

private:
    QStringView m_text;
};

/// One marker that is searched for again and again, from places further and further on. The place found last answers as long as it lies
/// ahead, so that a whole page is read once, however rarely the marker stands there.
class MarkerAhead
{
public:
    /// `page` and `marker` must outlive the search.
    MarkerAhead(const PageText& page, QStringView marker, Qt::CaseSensitivity letters = Qt::CaseSensitive)
        : m_page(page), m_marker(marker), m_letters(letters)
    {
    }

    /// As `PageText::Find` and `PageText::FindBehind`.
    Place Find(Place from);
    Place FindBehind(Place from) { return Behind(Find(from), m_marker.size()); }

private:
    const PageText& m_page;
    QStringView m_marker;
    Qt::CaseSensitivity m_letters;
    Place m_from = kNowhere; ///< where the last search began
    Place m_found = kNowhere;
};

/// The text without line ends and tabs. Nothing takes their place: words that stood on two lines become one.
QString FlattenPage(const QString& text);

/// The text without tags, and without "&nbsp;" and "&amp;"; these two leave no character behind. Outer blanks stay.
/// The first "<" and the first ">" of the text make the tag, and every occurrence of it goes at once. Raises `kErrInvalidCall` where that
/// ">" is missing or stands in front of the "<", and for a text with hundreds of different tags that are not well formed.
QString StripTags(QString text);

} // namespace kelvado
