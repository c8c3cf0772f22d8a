#include "web/retrieval/FilmQueue.h"
#include "TestDesk.h"
#include "WebPages.h"
#include "web/search/NumberImport.h"

namespace kelvado {
namespace {

TEST(FilmQueue, AChosenTitleEndsBehindItsYear)
{
    const std::pair<const char*, const char*> cases[] = {
        {"Film (1987) (TV)", "Film (1987)"}, {"Film (1987)", "Film (1987)"}, {"Other Title", "Other Title)"}, {"", ")"}, {")x", ")"}};
    for (const auto& [choice, title] : cases)
        EXPECT_EQ(ChosenTitle(QString::fromLatin1(choice)), QString::fromLatin1(title));
}

TEST(FilmQueue, TheUserChoosesAmongDecodedTitlesAndTheShortOneStays)
{
    const struct
    {
        std::optional<qsizetype> choice;
        QString title;
    } cases[] = {{std::nullopt, u"L&#246;we (1987) (TV)"_s}, {0, u"L&#246;we (1987)"_s}, {1, u"Lion (USA)"_s}, {2, u"Leo)"_s}};
    for (const auto& c : cases) {
        FilmRecord film;
        film.Title = u"L&#246;we (1987) (TV)"_s;
        film.TitleNY = u"L&#246;we"_s;
        AskTitle(film, film.Title, u"Lion (USA)\nLeo"_s, [&](const QStringList& titles) {
            EXPECT_EQ(titles, QStringList({u"L\u00F6we (1987) (TV)"_s, u"Lion (USA)"_s, u"Leo"_s}));
            return c.choice;
        });
        EXPECT_EQ(film.Title + film.TitleNY, QString(c.title + u"L&#246;we"_s));
    }
}

TEST(FilmQueue, OnlyDefaultsThatAreFilledCount)
{
    FilmRecord film;
    film.Number = u"3"_s;
    ApplyDefaults({u"DVD"_s, {}, u"A"_s}, film);
    EXPECT_EQ(film.Format + film.Number + film.Index, u"DVD3A"_s);
}

/// Films 1 to 9 have pages.
class AddingFilms : public TestDesk
{
protected:
    AddingFilms()
    {
        for (int film = 1; film <= 9; ++film) {
            const QString number = u"000000%1"_s.arg(film);
            QString page = FetchedPage("title").replace(u"tt0912345"_s, u"tt"_s + number);
            transport.pages[u"http://main.test/Title?"_s + number] = page.replace(u"The L&#246;wen Affair"_s, u"Film %1"_s.arg(film));
        }
    }

    /// Adds films of these numbers through the queue; returns what was told.
    QString Add(const QStringList& numbers)
    {
        queue.clear();
        for (const QString& number : numbers)
            queue.append({.Text = u"Row\t"_s + number});
        dialogs.boxes.clear();
        result = AddQueue(queue, {{}, {}, {}}, desk);
        return dialogs.Texts().join(u" | "_s);
    }
    QString Stored() const { return catalog.Ask("SELECT group_concat(IMDB, ' ') FROM (SELECT IMDB FROM Movie ORDER BY Movie_ID)"); }
    QString Waiting() const
    {
        QStringList numbers;
        for (const SearchRow& row : queue)
            numbers << PartsOf(row).Number.right(1);
        return numbers.join(u' ');
    }

    QList<SearchRow> queue;
    std::optional<JobResult> result;
};

TEST_F(AddingFilms, FilmsThatTheCatalogHasAreAskedAboutOnce)
{
    // As other tools store numbers.
    catalog.Run("INSERT INTO Movie (Title, IMDB) VALUES ('Lion &#38; Lamb', '0000001'), ('Two', 2), ('None', NULL)");
    const QString before = Stored();
    const QString question = u"The catalog has these films already:\nLion & Lamb: 0000001\nTwo: 0000002\n\nShall they be stored a second "
                             "time? \"No\" leaves them out."_s;
    dialogs.answers << kAnswerCancel;
    EXPECT_EQ(Add({u"0000001"_s, u"0000003"_s, u"0000002"_s}), question);
    EXPECT_FALSE(result);
    EXPECT_EQ(Waiting(), u"1 3 2"_s);
    EXPECT_EQ(dialogs.boxes[0].type, kBoxYesNoCancel | kBoxExclamation);
    EXPECT_EQ(dialogs.lossQuestions, QStringList(question)) << "Enter means No";
    EXPECT_EQ(Stored(), before);
    EXPECT_TRUE(shell.calls.isEmpty());

    dialogs.answers << kAnswerNo;
    EXPECT_EQ(Add({u"0000001"_s, u"0000003"_s, u"0000002"_s}), QString(question + u" | Successfully Added 1 Films"_s));
    EXPECT_EQ(Waiting(), QString());
    EXPECT_EQ(Stored(), QString(before + u" 0000003"_s));

    dialogs.answers << kAnswerNo;
    EXPECT_EQ(Add({u"0000001"_s, u"0000002"_s}), question) << "with nothing left there is no run";

    QStringList numbers{u"0000003"_s, u"0000005"_s, u"0000003"_s, u"0000004"_s, u"0000005"_s};
    dialogs.answers << kAnswerYes;
    EXPECT_EQ(AddNumbers(numbers, desk)->Added, 4) << "numbers of a file are asked about alike";
    EXPECT_EQ(Stored(), QString(before + u" 0000003 0000003 0000005 0000003 0000004"_s)) << "of two alike one is new, two are wanted";
    EXPECT_TRUE(dialogs.Texts().constLast().endsWith(u"Rows left out that named a film a second time: 1"_s));
}

TEST_F(AddingFilms, AnotherFilmOfThatNumberIsAskedAboutBeforeOneIsStoredOver)
{
    catalog.Run("INSERT INTO Movie (Movie_ID, Title, IMDB) VALUES (1, 'One', '0000001'), (2, 'Two', NULL)");
    const SearchRow row{.Text = u"Row\t0000001"_s};
    EXPECT_TRUE(MayStoreOver(row, 1, desk)) << "the film itself";
    EXPECT_TRUE(MayStoreOver({.Text = u"Row\t0000009"_s}, 2, desk));
    EXPECT_TRUE(dialogs.boxes.isEmpty());
    dialogs.answers << kAnswerNo << kAnswerYes;
    EXPECT_FALSE(MayStoreOver(row, 2, desk));
    EXPECT_TRUE(MayStoreOver(row, 2, desk));
}

TEST_F(AddingFilms, AFilmThatFailsIsNamedAndTheOthersAreAdded)
{
    transport.pages.remove(u"http://main.test/Title?0000002"_s);
    catalog.Run("CREATE TRIGGER full BEFORE INSERT ON GenreLink WHEN NEW.Movie_ID = 2 BEGIN SELECT RAISE(FAIL, 'disk full'); END");
    const QString told = Add({u"0000001"_s, u"0000002"_s, u"0000003"_s});
    EXPECT_TRUE(told.startsWith(u"2 of 3 films were added.\n\nThese could not be added:\nRow: its pages could not be fetched or read. "
                                "Run-time error '5'"_s))
        << qPrintable(told);
    EXPECT_TRUE(told.contains(u"These are in the catalog, but not complete:\nRow: "_s) && told.contains(u"genres"_s)) << qPrintable(told);
    EXPECT_EQ(Waiting(), u"2"_s) << "what is stored in part would be stored twice by a second run";
    EXPECT_EQ(Stored(), u"0000001 0000003"_s);
    EXPECT_EQ(shell.calls.join(u'|'), u"EnableMainWindow 0|ShowWorking 1|RefreshCatalogTree|ShowWorking 0|EnableMainWindow 1"_s);
    EXPECT_FALSE(desk.fetching);
}

TEST_F(AddingFilms, ATreeThatCannotBeFilledHidesNoResult)
{
    struct : RecordingShell
    {
        void RefreshCatalogTree() override { throw RuntimeError(kErrDatabase, u"no tree"_s); }
    } failing;
    FilmDesk other{state, failing, dialogs, events, transport, progress, {}, false};
    QStringList numbers{u"0000001"_s};
    EXPECT_EQ(AddNumbers(numbers, other)->Added, 1);
    ASSERT_EQ(dialogs.boxes.size(), 2);
    EXPECT_TRUE(dialogs.boxes[0].text.endsWith(u"no tree"_s));
    EXPECT_EQ(dialogs.boxes[1].text, u"Successfully Added 1 Films"_s);
    EXPECT_EQ(failing.calls.constLast(), u"EnableMainWindow 1"_s);
}

TEST_F(AddingFilms, ACancelTellsHowManyCameBefore)
{
    const auto cancelAt = [&](const QString& number) {
        transport.duringEach = [this, number] {
            if (transport.requests.constLast().contains(u"Plot?"_s + number))
                CancelJob(desk);
        };
    };
    cancelAt(u"0000002"_s);
    EXPECT_EQ(Add({u"0000001"_s, u"0000002"_s, u"0000003"_s}), u"1 of 3 films were added before the cancel."_s);
    EXPECT_EQ(Waiting(), u"2 3"_s);
    cancelAt(u"0000003"_s);
    EXPECT_EQ(Add({u"0000003"_s}), QString()) << "nobody needs to be told that nothing came";
    transport.duringEach = nullptr;
    struct : IdleEvents
    {
        void ServeEvents() override { CancelJob(*desk); }
        FilmDesk* desk = nullptr;
    } cancelling;
    FilmDesk other{state, shell, dialogs, cancelling, transport, progress, {}, false};
    cancelling.desk = &other;
    QStringList numbers{u"0000005"_s};
    EXPECT_TRUE(AddNumbers(numbers, other)->Cancelled) << "in front of a film too";
    EXPECT_EQ(numbers.size(), 1);
    transport.duringEach = [this] { EndJob(desk); };
    EXPECT_EQ(ErrorOf([&] { Add({u"0000004"_s}); }), kErrCancelled);
    EXPECT_TRUE(dialogs.boxes.isEmpty()) << "the program ends";
    EXPECT_EQ(shell.calls.constLast(), u"EnableMainWindow 1"_s);
}

TEST(FilmQueue, TellsTheFirstFailuresAndHowManyMore)
{
    ScriptedDialogs dialogs;
    JobResult result;
    result.Asked = 12;
    for (int i = 0; i < 12; ++i)
        result.Failures.append({u"F%1"_s.arg(i), u"why"_s});
    TellResult(result, dialogs);
    EXPECT_TRUE(dialogs.boxes.takeFirst().text.endsWith(u"F9: why\nand 2 more"_s));
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
