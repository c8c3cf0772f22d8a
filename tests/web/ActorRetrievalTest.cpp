#include "TestDesk.h"
#include "WebPages.h"
#include "web/retrieval/IMDBActor.h"

namespace kelvado {
namespace {

const QString kPersonPage = u"http://people.test/name/nm0900031"_s;
const QString kBiographyPage = u"http://people.test/name/nm0900031/bio"_s;
const QString kPicture = u"http://people.test/media/38m.jpg"_s;
constexpr qint64 kFlo = 40'000;
constexpr qint64 kAda = 40'001;

struct SilentWindows : PersonWindows
{
    void Open() override {}
    void Close() override {}
    std::optional<qsizetype> ChooseMatch(const QList<ActorMatch>&) override { return std::nullopt; }
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
    bool NothingStored()
    {
        return catalog.Ask("SELECT NOT EXISTS (SELECT 1 FROM Images) AND NOT EXISTS (SELECT 1 FROM Actor WHERE IsRetreived OR Image_ID OR "
                           "coalesce(BirthDate, Biography, Film_History) IS NOT NULL)") == u"1";
    }

    SilentWindows windows;
};

TEST_F(ActorRetrieval, StoresAPersonFromTwoPagesAndAPicture)
{
    transport.duringEach = [this] { catalog.Run("UPDATE Movie SET Title = Title"); }; // nobody holds the file meanwhile
    EXPECT_TRUE(Retrieve());
    EXPECT_EQ(transport.requests, (QStringList{u"Get_HTML "_s + kPersonPage, u"OpenURL "_s + kPicture, u"Get_HTML "_s + kBiographyPage}));
    EXPECT_EQ(shell.calls.last(), u"ShowSelection"_s);
    EXPECT_EQ(Stored("BirthDate || '|' || BirthLocation || '|' || BirthName || '|' || Height || '|' || IsRetreived"),
              "3 July, 1962|Kiel,Germany|Flora &#34;Flo&#34; H&#233;l|5' 7 (1.70 m) |1");
    EXPECT_EQ(Stored("Film_History"), "The L&#246;wen Affair (1987)\r\n0912345|&#34;Circus &#38; Co.&#34; (1979)\r\n0912350|");
    EXPECT_EQ(Stored("Biography"),
              "Grew up in a circus, beside <A TARGET=_blank HREF=\"http://main.test/Name?Ek,+Bo\">Bo Ek</A>, and played in "
              "<A TARGET=_blank HREF=\"http://main.test/Title?0912345\">a film</A>.</p><p class=\"biopar\">Lives in <b>Kiel</b>.</p> ");
    EXPECT_EQ(catalog.Ask("SELECT hex(Image) || ' ' || Extention || ' ' || Image_Link FROM Images JOIN Actor USING (Image_ID)"),
              QString::fromLatin1(transport.pictures[kPicture].toHex().toUpper()) + u" JPG "_s + kPicture);

    // A page that tells less leaves what is there, and brings nothing of the person before.
    const QString bare = u"\"headshot\" <img src=\"/none.gif\"> filmography</b><ol></ol>"_s;
    transport.pages = {{kPersonPage, bare}, {kBiographyPage, u"nothing"_s}, {u"http://people.test/Name?M%FCller,+Ada"_s, bare}};
    const std::string before = Stored("Biography || Film_History || BirthDate || Image_ID");
    EXPECT_TRUE(Retrieve() && Retrieve(kAda));
    EXPECT_EQ(Stored("Biography || Film_History || BirthDate || Image_ID"), before);
    EXPECT_EQ(Stored("coalesce(Biography, Film_History, BirthDate, BirthName, Height) IS NULL AND IsRetreived", kAda), "1");
    EXPECT_EQ(transport.requests.last(), u"Get_HTML http://people.test/Bio?M%FCller,+Ada"_s);
}

TEST_F(ActorRetrieval, WhatCannotBeReadOrIsCancelledStoresNothing)
{
    const QString row = u"<LI><A HREF=\"/name/nm1/\">A</A> ()</LI>"_s;
    const QString noList = u"Error Parsing Actor Search Page"_s;
    const struct
    {
        QString person, biography;
        int error;
        QStringList boxes;
    } cases[] = {
        {u"Matching names...</OL>"_s, {}, 0, {noList}},
        {u"Matching names..."_s + row.repeated(100) + u"</OL>"_s, {}, 0, {u"Parsing Error"_s, noList}},
        {FetchedPage("matches"), {}, 0, {}}, // no choice is made
        {u"<html>gone</html>"_s, {}, kErrInvalidCall, {}},
        {FetchedPage("person"), u">Mini biography<"_s, kErrInvalidCall, {}},
    };
    for (const auto& [person, biography, error, boxes] : cases) {
        transport.pages = {{kPersonPage, person}, {kBiographyPage, biography}};
        bool stored = false;
        EXPECT_EQ(ErrorOf([&] { return stored = Retrieve(); }), error) << qPrintable(person.left(60));
        EXPECT_FALSE(stored);
        EXPECT_EQ(dialogs.Texts(), boxes);
        dialogs.boxes.clear();
    }
    EXPECT_EQ(ErrorOf([this] { return Retrieve(7); }), kErrNoCurrentRecord);

    transport.pages = {{kPersonPage, FetchedPage("person")}, {kBiographyPage, FetchedPage("biography")}};
    const auto cancel = [this] { CancelJob(desk); };
    const auto fail = [this] { transport.failureTold = true; };
    for (const auto& [at, end] : {std::pair<int, std::function<void()>>(1, cancel), {2, cancel}, {3, cancel}, {1, fail}, {3, fail}}) {
        transport.failureTold = false;
        int fetches = 0;
        transport.duringEach = [&, at = at, &end = end] {
            if (++fetches == at)
                end();
        };
        EXPECT_FALSE(Retrieve());
        EXPECT_EQ(fetches, at);
    }
    transport.duringEach = [this] { EndJob(desk); };
    EXPECT_EQ(ErrorOf([this] { return Retrieve(); }), kErrCancelled);
    EXPECT_TRUE(NothingStored());
}

TEST_F(ActorRetrieval, AFailedStoreLeavesNothingAndShowsTheDebugBox)
{
    catalog.Run("CREATE TRIGGER refuse BEFORE UPDATE ON Actor BEGIN SELECT RAISE(ABORT, 'no room'); END");
    EXPECT_FALSE(Retrieve());
    EXPECT_TRUE(NothingStored());
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
}

TEST_F(ActorRetrieval, LongValuesAreShortenedByTheUserOrLeftOut)
{
    transport.pages[kPersonPage].replace(u"3 July<"_s, QString(300, u'J') + u'<').replace(u">Kiel,"_s, u'>' + QString(300, u'K') + u',');
    transport.pages[kBiographyPage].replace(u"5' 7&quot; (1.70 m)"_s, u"   "_s);
    dialogs.edits << u"July"_s << QString();
    catalog.Run("UPDATE Actor SET Height = 'tall', BirthLocation = 'here'");
    EXPECT_TRUE(Retrieve());
    EXPECT_EQ(dialogs.fieldEdits, (QStringList{u"BIRTH DATE:100"_s, u"BIRTH LOCATION:255"_s}));
    EXPECT_EQ(Stored("BirthDate || '|' || BirthLocation || '|' || Height"), "July|here|tall");
}

} // namespace
} // namespace kelvado
