#include "web/FilmQueue.h"
#include "support/RecordingShell.h"
#include "support/ScriptedDialogs.h"
#include "support/TempHome.h"
#include "web/NumberImport.h"

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
    film.Title = QStringLiteral("L&#246;we (1987) (TV)");
    film.TitleNY = QStringLiteral("L&#246;we");
    QStringList offered;
    const auto choose = [&](std::optional<qsizetype> place) {
        return [&offered, place](const QStringList& titles) {
            offered = titles;
            return place;
        };
    };
    AskTitle(film, film.Title, QStringLiteral("Lion (USA)\nLeo"), choose(std::nullopt));
    EXPECT_EQ(film.Title, QStringLiteral("L&#246;we (1987) (TV)")) << "closed without a choice";
    EXPECT_EQ(offered, QStringList({QStringLiteral("L\u00F6we (1987) (TV)"), QStringLiteral("Lion (USA)"), QStringLiteral("Leo")}));
    AskTitle(film, film.Title, QStringLiteral("Lion (USA)\nLeo"), choose(0));
    EXPECT_EQ(film.Title, QStringLiteral("L&#246;we (1987)"));
    AskTitle(film, film.Title, QStringLiteral("Lion (USA)\nLeo"), choose(1));
    EXPECT_EQ(film.Title, QStringLiteral("Lion (USA)"));
    EXPECT_EQ(film.TitleNY, QStringLiteral("L&#246;we"));
}

TEST(FilmQueue, OnlyDefaultsThatAreFilledCount)
{
    FilmRecord film;
    film.Number = QStringLiteral("3");
    ApplyDefaults({QStringLiteral("DVD"), {}, QStringLiteral("A")}, film);
    EXPECT_EQ(film.Format + film.Number + film.Index, QStringLiteral("DVD3A"));
}

TEST(FilmQueue, TellsTheFirstFailuresAndHowManyMore)
{
    ScriptedDialogs dialogs;
    BatchResult result;
    result.Asked = 12;
    for (int i = 0; i < 12; ++i)
        result.Failures.append({QStringLiteral("F%1").arg(i), QStringLiteral("why")});
    TellResult(result, dialogs);
    EXPECT_TRUE(dialogs.boxes.takeFirst().text.endsWith(QStringLiteral("F9: why\nand 2 more")));
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
                 {"123456 1234567", QStringLiteral("1234567")},
                 {"12345678", QStringLiteral("1234567")},
                 {"12345678901234", QStringLiteral("1234567 8901234")},
                 {"1234567\r\n\xE4"
                  "0000001\xC3\xA4 1234567",
                  QStringLiteral("1234567 0000001 1234567")},
                 {filler + "7654321x", QStringLiteral("7654321")}};
    for (const auto& c : cases) {
        home.Write(QStringLiteral("numbers"), c.text);
        EXPECT_EQ(ReadNumbers(home.Path(QStringLiteral("numbers"))).join(u' '), c.numbers);
    }
    EXPECT_THROW(ReadNumbers(home.Path(QStringLiteral("none"))), RuntimeError);
}

} // namespace
} // namespace kelvado
