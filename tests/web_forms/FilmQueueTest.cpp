#include "web/retrieval/FilmQueue.h"
#include "core/Literals.h"
#include "support/RecordingShell.h"
#include "support/ScriptedDialogs.h"
#include "support/TempHome.h"
#include "web/search/NumberImport.h"

namespace kelvado {
namespace {

TEST(FilmQueue, AChosenTitleEndsBehindItsYear)
{
    const struct
    {
        const char* choice;
        const char* title;
    } cases[] = {
        {"Film (1987) (TV)", "Film (1987)"}, {"Film (1987)", "Film (1987)"}, {"Other Title", "Other Title)"}, {"", ")"}, {")x", ")"}};
    for (const auto& c : cases)
        EXPECT_EQ(ChosenTitle(QString::fromLatin1(c.choice)), QString::fromLatin1(c.title));
}

TEST(FilmQueue, TheUserChoosesAmongDecodedTitlesAndTheShortOneStays)
{
    FilmRecord film;
    film.Title = u"L&#246;we (1987) (TV)"_s;
    film.TitleNY = u"L&#246;we"_s;
    QStringList offered;
    const auto choose = [&](std::optional<qsizetype> place) {
        return [&offered, place](const QStringList& titles) {
            offered = titles;
            return place;
        };
    };
    AskTitle(film, film.Title, u"Lion (USA)\nLeo"_s, choose(std::nullopt));
    EXPECT_EQ(film.Title, u"L&#246;we (1987) (TV)"_s) << "closed without a choice";
    EXPECT_EQ(offered, QStringList({u"L\u00F6we (1987) (TV)"_s, u"Lion (USA)"_s, u"Leo"_s}));
    AskTitle(film, film.Title, u"Lion (USA)\nLeo"_s, choose(0));
    EXPECT_EQ(film.Title, u"L&#246;we (1987)"_s);
    AskTitle(film, film.Title, u"Lion (USA)\nLeo"_s, choose(1));
    EXPECT_EQ(film.Title, u"Lion (USA)"_s);
    EXPECT_EQ(film.TitleNY, u"L&#246;we"_s);
}

TEST(FilmQueue, OnlyDefaultsThatAreFilledCount)
{
    FilmRecord film;
    film.Number = u"3"_s;
    ApplyDefaults({u"DVD"_s, {}, u"A"_s}, film);
    EXPECT_EQ(film.Format + film.Number + film.Index, u"DVD3A"_s);
}

TEST(FilmQueue, TellsTheFirstFailuresAndHowManyMore)
{
    ScriptedDialogs dialogs;
    BatchResult result;
    result.Asked = 12;
    for (int i = 0; i < 12; ++i)
        result.Failures.append({u"F%1"_s.arg(i), u"why"_s});
    TellResult(result, dialogs);
    EXPECT_TRUE(dialogs.boxes.takeFirst().text.endsWith(u"F9: why\nand 2 more"_s));
    result.Failures.clear();
    result.Cancelled = true;
    TellResult(result, dialogs);
    EXPECT_TRUE(dialogs.boxes.isEmpty());
}

TEST(NumberImport, TakesEverySevenDigits)
{
    const TempHome home;
    const QByteArray filler(65533, '-'); // so that a number goes over the end of a block
    const struct
    {
        QByteArray text;
        QString numbers;
    } cases[] = {{"", QString()},
                 {"123456 1234567", u"1234567"_s},
                 {"12345678", u"1234567"_s},
                 {"12345678901234", u"1234567 8901234"_s},
                 {"1234567\r\n\xE4"
                  "0000001\xC3\xA4 1234567",
                  u"1234567 0000001 1234567"_s},
                 {filler + "7654321x", u"7654321"_s}};
    for (const auto& c : cases) {
        home.Write(u"numbers"_s, c.text);
        EXPECT_EQ(ReadNumbers(home.Path(u"numbers"_s)).join(u' '), c.numbers);
    }
    EXPECT_THROW(ReadNumbers(home.Path(u"none"_s)), RuntimeError);
}

} // namespace
} // namespace kelvado
