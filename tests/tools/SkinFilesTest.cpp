#include "core/Literals.h"

// The hand-written files of the delivered skin: readable colours, and templates that name only what is filled in.

#include <QColor>
#include <QFile>
#include <QSettings>

#include <gtest/gtest.h>

#include <cmath>

namespace kelvado {
namespace {

QString Path(const char* name)
{
    return u"" KELVADO_SKIN_DIR "/"_s + QString::fromLatin1(name);
}

QString Text(const char* name)
{
    QFile file(Path(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
    return QString::fromUtf8(file.readAll());
}

double Luminance(const QColor& colour)
{
    const auto linear = [](double part) { return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4); };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

double Contrast(const QColor& a, const QColor& b)
{
    const double first = Luminance(a);
    const double second = Luminance(b);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

struct Pair
{
    const char* text;
    const char* ground;
};

TEST(SkinFiles, TextStandsOutFromEachGroundThatItIsPaintedOn)
{
    EXPECT_NEAR(Contrast(Qt::black, Qt::white), 21, 0.01);
    const QSettings palette(Path("palette.ini"), QSettings::IniFormat);
    const QSettings skin(Path("skin.ini"), QSettings::IniFormat);
    const auto check = [](const QSettings& file, const char* section, const Pair& pair) {
        const auto colour = [&](const char* key) {
            return QColor(u'#' + file.value(QString::fromLatin1(section) + u'/' + QString::fromLatin1(key)).toString());
        };
        ASSERT_TRUE(colour(pair.text).isValid() && colour(pair.ground).isValid()) << pair.text << " on " << pair.ground;
        EXPECT_GE(Contrast(colour(pair.text), colour(pair.ground)), 4.5) << pair.text << " on " << pair.ground;
    };
    for (const Pair& pair : {Pair{"Ink", "Window"},
                             {"Ink", "Strip"},
                             {"Ink", "Surface"},
                             {"Ink", "AccentSoft"},
                             {"InkMuted", "Window"},
                             {"InkMuted", "Strip"},
                             {"InkMuted", "Surface"},
                             {"Accent", "Window"},
                             {"Accent", "Surface"},
                             {"OnAccent", "Accent"}})
        check(palette, "Colours", pair);
    for (const Pair& pair : {Pair{"LabelFontColor", "LabelBackColor"},
                             {"TextFontColor", "TextBackColor"},
                             {"SubNavSelect", "GeneralBackColor"},
                             {"SubNavInActive", "GeneralBackColor"},
                             {"TreeItemFront", "TreeItemBack"},
                             {"TreeItemFront", "TreeBackColor"},
                             {"LabelFontColor", "StatusBackColor"}})
        check(skin, "Skin", pair);
}

TEST(SkinFiles, ThePagesUseThePalettesColours)
{
    const QSettings palette(Path("palette.ini"), QSettings::IniFormat);
    struct Name
    {
        const char* page;
        const char* role;
    };
    for (const char* page : {"Templates/default.html", "Templates/credits.html", "Templates/nfo.html", "Templates/person.html"}) {
        const QString text = Text(page);
        EXPECT_TRUE(text.contains(u"<meta charset=\"utf-8\">")) << page;
        for (const Name& name : {Name{"window", "Window"},
                                 {"surface", "Surface"},
                                 {"strip", "Strip"},
                                 {"line", "Line"},
                                 {"ink", "Ink"},
                                 {"muted", "InkMuted"},
                                 {"accent", "Accent"},
                                 {"soft", "AccentSoft"}}) {
            const QString rule = u"--%1: #%2;"_s.arg(QString::fromLatin1(name.page),
                                                     palette.value(u"Colours/"_s + QString::fromLatin1(name.role)).toString());
            EXPECT_TRUE(text.contains(rule)) << page << " lacks " << rule.toStdString();
        }
    }
}

} // namespace
} // namespace kelvado
