#include "TestDesk.h"
#include "WebPages.h"
#include "web/retrieval/IMDBActor.h"

namespace kelvado {
namespace {

const QString kPersonPage = u"http://people.test/name/nm0900031"_s;
const QString kBiographyPage = u"http://people.test/name/nm0900031/bio"_s;
const QString kPicture = u"http://people.test/media/38m.jpg"_s;
constexpr qint64 kFlo = 40'000;

class ScriptedWindows : public PersonWindows
{
public:
    explicit ScriptedWindows(QStringList& log) : m_log(log) {}
    void Open() override { m_log << u"open"_s; }
    void Close() override { m_log << u"close"_s; }
    std::optional<qsizetype> ChooseMatch(const QList<ActorMatch>& matches) override
    {
        m_log << u"choose among %1"_s.arg(matches.size());
        return choice;
    }

    std::optional<qsizetype> choice;

private:
    QStringList& m_log;
};

class ActorRetrieval : public TestDesk
{
protected:
    ActorRetrieval()
    {
        transport.pages = {{kPersonPage, FetchedPage("person")}, {kBiographyPage, FetchedPage("biography")}};
        transport.pictures = {{kPicture, "\xFF\xD8\xFFportrait"}};
        catalog.Run("INSERT INTO Actor(Actor_ID, Actor, IMDB_LINK) VALUES (40000, 'Flo', 'nm0900031'), (40001, 'Ada', 'M%FCller,+Ada')");
    }

    bool Retrieve(qint64 id = kFlo) { return RunActorRetrieval(id, desk, windows); }
    std::string Stored(const char* columns, qint64 id = kFlo)
    {
        return catalog.Ask(QByteArray("SELECT ") + columns + " FROM Actor WHERE Actor_ID = " + QByteArray::number(id)).toStdString();
    }
    /// How many rows tell of a retrieval.
    std::string Traces()
    {
        return catalog
            .Ask("SELECT (SELECT count(*) FROM Images) + (SELECT count(*) FROM Actor WHERE IsRetreived OR Image_ID OR BirthDate "
                 "IS NOT NULL OR Biography IS NOT NULL OR Film_History IS NOT NULL)")
            .toStdString();
    }

    ScriptedWindows windows{transport.requests};
};

TEST_F(ActorRetrieval, StoresAPersonFromTwoPagesAndAPicture)
{
    transport.duringEach = [this] { catalog.Run("UPDATE Movie SET Title = Title"); }; // nobody holds the file meanwhile
    EXPECT_TRUE(Retrieve());
    EXPECT_EQ(transport.requests, (QStringList{u"open"_s, u"Get_HTML "_s + kPersonPage, u"OpenURL "_s + kPicture,
                                               u"Get_HTML "_s + kBiographyPage, u"close"_s}));
    EXPECT_EQ(shell.calls,
              (QStringList{u"ShowWorking 1"_s, u"EnableMainWindow 0"_s, u"EnableMainWindow 1"_s, u"ShowWorking 0"_s, u"ShowSelection"_s}));
    EXPECT_EQ(Stored("BirthDate || '|' || BirthLocation || '|' || BirthName || '|' || Height || '|' || IsRetreived"),
              "3 July, 1962|Kiel,Germany|Flora &#34;Flo&#34; H&#233;l|5' 7 (1.70 m) |1");
    EXPECT_EQ(Stored("Film_History"), ParseFilmography(FlattenPage(FetchedPage("person"))).toStdString());
    EXPECT_NE(Stored("Biography").find("circus, beside <A TARGET=_blank HREF=\"http://main.test/Name?Ek"), std::string::npos);
    EXPECT_EQ(catalog.Ask("SELECT hex(Image) || ' ' || Extention || ' ' || Image_Link FROM Images JOIN Actor USING (Image_ID)"),
              QString::fromLatin1(transport.pictures[kPicture].toHex().toUpper()) + u" JPG "_s + kPicture);
    EXPECT_EQ(home.Read(u"temp/temp.img"_s), transport.pictures[kPicture]);

    // A page that tells less leaves what is there, and brings nothing of the person before.
    const QString bare = u"\"headshot\" <img src=\"/none.gif\"> filmography</b><ol></ol>"_s;
    transport.pages = {{kPersonPage, bare}, {kBiographyPage, u"nothing"_s}, {u"http://people.test/Name?M%FCller,+Ada"_s, bare}};
    const std::string before = Stored("Biography || Film_History || BirthDate || Image_ID");
    EXPECT_TRUE(Retrieve() && Retrieve(40'001));
    EXPECT_EQ(Stored("Biography || Film_History || BirthDate || Image_ID"), before);
    EXPECT_EQ(Stored("coalesce(Biography, Film_History, BirthDate, BirthName, Height) IS NULL AND IsRetreived", 40'001), "1");
    EXPECT_EQ(transport.requests.last(2).first(), u"Get_HTML http://people.test/Bio?M%FCller,+Ada"_s);
}

TEST_F(ActorRetrieval, AsksWhichNamesakeIsMeant)
{
    transport.pages.insert(u"http://people.test/Name?M%FCller,+Ada"_s, FetchedPage("matches"));
    EXPECT_FALSE(Retrieve(40'001));
    EXPECT_EQ(transport.requests.last(2), (QStringList{u"choose among 3"_s, u"close"_s}));
    EXPECT_EQ(Traces(), "0");

    windows.choice = 1;
    transport.pages.insert(u"http://people.test/name/nm0900101"_s, FetchedPage("person"));
    EXPECT_TRUE(Retrieve(40'001));
    EXPECT_EQ(transport.requests.last(2).first(), u"Get_HTML http://people.test/name/nm0900101/bio"_s);
    EXPECT_EQ(Stored("IMDB_LINK || IsRetreived", 40'001), "M%FCller,+Ada1");
    EXPECT_TRUE(dialogs.boxes.isEmpty());
}

TEST_F(ActorRetrieval, WhatCannotBeReadOrIsCancelledStoresNothing)
{
    const QString row = u"<LI><A HREF=\"/name/nm1/\">A</A> ()</LI>"_s;
    const auto names = [&](int count) { return u"Matching names...<OL>"_s + row.repeated(count) + u"</OL>"_s; };
    const ScriptedDialogs::Box noList{u"Error Parsing Actor Search Page"_s, kBoxExclamation, {}};
    const ScriptedDialogs::Box tooMany{u"Parsing Error"_s, kBoxPlain, {}};
    const struct
    {
        QString person, biography;
        int error;
        QList<ScriptedDialogs::Box> boxes;
    } cases[] = {
        {names(0), {}, 0, {noList}},
        {names(100), {}, 0, {tooMany, noList}},
        {u"<html>gone</html>"_s, {}, kErrInvalidCall, {}},
        {FetchedPage("person"), u">Mini biography<"_s, kErrInvalidCall, {}},
    };
    for (const auto& [person, biography, error, boxes] : cases) {
        transport.pages = {{kPersonPage, person}, {kBiographyPage, biography}};
        bool stored = false;
        EXPECT_EQ(ErrorOf([&] { return stored = Retrieve(); }), error) << qPrintable(person.left(60));
        EXPECT_FALSE(stored);
        EXPECT_EQ(std::exchange(dialogs.boxes, {}), boxes);
        EXPECT_EQ(transport.requests.last(), u"close"_s);
    }
    EXPECT_NE(ErrorTextOf([this] { return Retrieve(); }).find("pages of this person"), std::string::npos);
    EXPECT_EQ(ErrorOf([this] { return Retrieve(7); }), kErrNoCurrentRecord);

    transport.pages = {{kPersonPage, FetchedPage("person")}, {kBiographyPage, FetchedPage("biography")}};
    for (int cancelledFetch = 1; cancelledFetch <= 3; ++cancelledFetch) {
        int fetch = 0;
        transport.failureTold = false;
        transport.duringEach = [&] {
            if (++fetch == cancelledFetch)
                CancelJob(desk);
        };
        EXPECT_FALSE(Retrieve()) << cancelledFetch;
        EXPECT_EQ(fetch, cancelledFetch);
        fetch = 0;
        transport.duringEach = [&] { transport.failureTold = ++fetch == cancelledFetch; };
        EXPECT_EQ(Retrieve(), cancelledFetch == 2) << "the picture's fetch tells nothing";
        if (cancelledFetch == 2)
            catalog.Run("DELETE FROM Images; UPDATE Actor SET IsRetreived = 0, Image_ID = 0, BirthDate = NULL, Biography = NULL, "
                        "Film_History = NULL");
    }
    transport.duringEach = [this] { EndJob(desk); };
    EXPECT_EQ(ErrorOf([this] { return Retrieve(); }), kErrCancelled);
    EXPECT_EQ(Traces(), "0");
}

TEST_F(ActorRetrieval, AFailedStoreLeavesNothingAndShowsTheDebugBox)
{
    catalog.Run("CREATE TRIGGER refuse BEFORE UPDATE ON Actor BEGIN SELECT RAISE(ABORT, 'no room'); END");
    EXPECT_FALSE(Retrieve());
    EXPECT_EQ(Traces(), "0");
    ASSERT_EQ(dialogs.boxes.size(), 1);
    EXPECT_EQ(dialogs.boxes[0].title, u"Actor Retreive Debug Box");
    const std::string text = dialogs.boxes[0].text.toStdString();
    EXPECT_EQ(text.substr(0, text.find("Error Description")),
              "Actor Retrieval has caused an error and \r\nKelvado will now be closed, please take \r\n"
              "a screenshot of this and send it to the Dev. Team. \r\n\r\n"
              "Date Of Birth : 3 July, 1962\r\n      (length): 12\r\n"
              "Height          : 5' 7 (1.70 m) \r\n      (length): 14\r\n"
              "Birth Name     : Flora &#34;Flo&#34; H&#233;l\r\n      (length): 28\r\n"
              "Birth Location: Kiel,Germany\r\n      (length): 12\r\n"
              "Biography     : 220 characters long\r\nFilmography   : 81 characters long\r\n");
    EXPECT_TRUE(text.find("no room") != std::string::npos && text.find("\r\nError Number  : -2147467259") != std::string::npos) << text;
    EXPECT_EQ(shell.calls.last(), u"ShowWorking 0"_s);
}

TEST_F(ActorRetrieval, LongValuesAreShortenedByTheUserOrLeftOut)
{
    transport.pages[kPersonPage].replace(u"3 July<"_s, QString(300, u'J') + u'<').replace(u">Kiel,"_s, u'>' + QString(300, u'K') + u',');
    dialogs.edits << u"July"_s << QString();
    transport.pages[kBiographyPage].replace(u"5' 7&quot;"_s, u"   "_s).replace(u"(1.70 m)"_s, u""_s);
    catalog.Run("UPDATE Actor SET Height = 'tall', BirthLocation = 'here'");
    EXPECT_TRUE(Retrieve());
    EXPECT_EQ(dialogs.fieldEdits, (QStringList{u"BIRTH DATE:100"_s, u"BIRTH LOCATION:255"_s}));
    EXPECT_EQ(Stored("BirthDate || '|' || BirthLocation || '|' || Height"), "July|here|tall");
}

} // namespace
} // namespace kelvado
