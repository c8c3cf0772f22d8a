#include "Palette.h"

#include <QFontDatabase>
#include <QSettings>
#include <QStringList>

#include <stdexcept>

namespace kelvado {

namespace {

constexpr const char* kRoles[] = {"Window", "Strip",       "Surface", "Line", "Ink",     "InkMuted", "Accent", "AccentSoft", "OnAccent",
                                  "Rating", "RatingEmpty", "File",    "Disc", "DiscOld", "Gold",     "Tape",   "Wish",       "Neutral"};

[[noreturn]] void Fail(const QString& path, const QString& what)
{
    throw std::runtime_error((path + u": "_qs + what).toStdString());
}

QString FirstInstalled(const QStringList& families)
{
    const QStringList installed = QFontDatabase::families();
    for (const QString& family : families) {
        if (installed.contains(family))
            return family;
    }
    return families.value(0);
}

} // namespace

Palette::Palette(const QString& path)
{
    const QSettings file(path, QSettings::IniFormat);
    for (const char* role : kRoles) {
        const QString name = QString::fromLatin1(role);
        const QColor colour(u'#' + file.value(u"Colours/"_qs + name).toString());
        if (!colour.isValid())
            Fail(path, u"no colour of six digits for "_qs + name);
        m_colours[name] = colour;
    }
    m_radius = file.value(u"Shape/Radius"_qs, 6).toDouble();
    m_textSize = file.value(u"Text/Size"_qs).toInt();
    if (m_textSize < 6 || m_textSize > 40)
        Fail(path, u"Text/Size is not between 6 and 40"_qs);
    m_family = FirstInstalled(file.value(u"Text/Families"_qs).toString().split(u'|'));
}

QColor Palette::Colour(const char* role) const
{
    return m_colours.at(QString::fromLatin1(role));
}

QFont Palette::Font(QFont::Weight weight, qreal factor) const
{
    QFont font(m_family);
    font.setPixelSize(qRound(m_textSize * factor));
    font.setWeight(weight);
    font.setStyleStrategy(QFont::StyleStrategy(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

QColor Blend(const QColor& from, const QColor& to, qreal share)
{
    const auto mix = [share](int a, int b) { return qRound(a + (b - a) * share); };
    return QColor(mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue()));
}

} // namespace kelvado
