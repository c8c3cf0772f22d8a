#include "LoopbackServer.h"
#include "support/ScriptedDialogs.h"
#include "support/TempHome.h"
#include "web/mWeb.h"
#include "web/transport/Hraw.h"
#include "web/transport/cHTTP.h"
#include "web/transport/cWaitableTimer.h"

#include <QElapsedTimer>

namespace kelvado {
namespace {

using Then = LoopbackServer::Then;

QByteArray Page(const QByteArray& status, const QByteArray& body, qsizetype length)
{
    return "HTTP/1.1 " + status + "\r\nContent-Length: " + QByteArray::number(length) + "\r\nConnection: close\r\n\r\n" + body;
}

TEST(BodyFetch, PresentsItselfAndTakesNothingFromACache)
{
    const LoopbackServer server(Page("200 OK", "L\xF6wen", 5));
    BodyFetch bodies({});
    cHTTP http(bodies);
    http.SetUrl(server.Url(u"/kept"_s));
    EXPECT_EQ(http.Url(), QString()) << "the address is always dropped";
    EXPECT_EQ(http.GetUrl(QString()), QString());
    EXPECT_TRUE(server.requests.isEmpty());

    EXPECT_EQ(http.GetUrl(server.Url(u"/Title?0912345"_s)), u"L\u00F6wen");
    http.SetUserAgent(u"Tester"_s);
    EXPECT_EQ(cHTTP(bodies, server.Url(u"/given"_s)).GetUrl(QString()), u"L\u00F6wen");
    http.GetUrl(server.Url(u"/again"_s));
    EXPECT_EQ(server.Paths(), (QByteArrayList{"/Title?0912345", "/given", "/again"}));
    EXPECT_TRUE(server.requests[0].contains("User-Agent: Mozilla/4.0 (compatible; KelDB 2.0; Win32;)\r\n"));
    EXPECT_TRUE(server.requests[0].toLower().contains("cache-control: no-cache\r\n"));
    EXPECT_TRUE(server.requests[2].contains("User-Agent: Tester\r\n"));
}

QByteArray Coded(const QByteArray& fields, const QByteArray& body)
{
    return "HTTP/1.1 200 OK\r\n" + fields + "\r\n\r\n" + body;
}

TEST(BodyFetch, IsEmptyWhereTheAnswerDidNotArriveWhole)
{
    const QByteArray packed = qCompress(QByteArray(50'000, 'z') + "page").sliced(4); // without the length of Qt's own
    const QByteArray unpacked = QByteArray(50'000, 'z') + "page";
    const QByteArray chunked = "Transfer-Encoding: chunked";
    const struct
    {
        const char* name;
        QByteArray answer;
        Then then;
        QByteArray body;
        bool isPicture = true;
    } cases[] = {
        {"whole", Page("200 OK", "page", 4), Then::Close, "page"},
        {"length untold", "HTTP/1.0 200 OK\r\n\r\npage", Then::Close, "page"},
        {"page of an error", Page("404 Not Found", "lost", 4), Then::Close, "lost", false},
        {"kept open", Page("200 OK", "page", 4), Then::Stall, "page"},
        {"kept open behind a redirect", "HTTP/1.1 302 Found\r\nLocation: http:///\r\n\r\n", Then::Stall, ""},
        {"behind an interim answer", "HTTP/1.1 100 Continue\r\n\r\n" + Page("200 OK", "page", 4), Then::Close, "page"},
        {"in chunks", Coded(chunked, "3;x=y\r\npag\r\n1\r\ne\r\n0\r\n\r\n"), Then::Stall, "page"},
        {"cut inside a chunk", Coded(chunked, "3\r\npag\r\n9\r\ne"), Then::Close, ""},
        {"cut behind a chunk", Coded(chunked, "3\r\npag\r\n"), Then::Close, ""},
        {"a chunk of a wrong size", Coded(chunked, "2\r\npag\r\n0\r\n\r\n"), Then::Close, ""},
        {"packed", Coded("Content-Encoding: deflate", packed), Then::Close, unpacked},
        {"packed and cut", Coded("Content-Encoding: gzip", packed.chopped(6)), Then::Close, ""},
        {"packed and damaged", Coded("Content-Encoding: gzip", "page"), Then::Close, ""},
        {"packed in an unknown way", Coded("Content-Encoding: br", "page"), Then::Close, ""},
        {"cut", Page("200 OK", "pa", 4), Then::Close, ""},
        {"reset", Page("200 OK", "pa", 4), Then::Reset, ""},
        {"stall", Page("200 OK", "pa", 4), Then::Stall, ""},
        {"a byte now and then", Page("200 OK", "pa", 4000), Then::Trickle, ""},
        {"too much", Page("200 OK", QByteArray(70'000, 'x'), 70'000), Then::Close, ""},
        {"no answer of the web", "garbage", Then::Close, ""},
        {"ring", "HTTP/1.1 302 Found\r\nLocation: /\r\nContent-Length: 0\r\nConnection: close\r\n\r\n", Then::Close, ""},
    };
    ScriptedDialogs dialogs;
    for (const auto& c : cases) {
        const bool endless = QByteArray(c.name) == "stall" || c.then == Then::Trickle;
        Hraw hraw({.TimeoutMilliseconds = endless ? 150 : 20'000, .MaxRedirects = 3, .LargestAnswer = 60'000}, dialogs);
        QElapsedTimer time;
        time.start();
        const LoopbackServer server(c.answer, c.then);
        EXPECT_EQ(hraw.GetUrl(server.Url(u"/"_s)).toLatin1(), c.body) << c.name;
        EXPECT_EQ(hraw.OpenURL(server.Url(u"/"_s)), c.isPicture ? c.body : QByteArray()) << c.name;
        EXPECT_LE(server.requests.size(), 8) << c.name;
        EXPECT_LT(time.elapsed(), 5000) << c.name;
    }
    EXPECT_TRUE(dialogs.boxes.isEmpty()) << "these fetchers fail quietly";
}

TEST(BodyFetch, FollowsARedirectAndRefusesWhatIsNotOnTheWeb)
{
    const LoopbackServer server([](const QByteArray& path) -> LoopbackServer::Reply {
        return {path == "/a" ? "HTTP/1.1 301 Moved\r\nLocation: /b\r\nContent-Length: 0\r\n\r\n"
                             : Page("200 OK", QByteArray("\xFF\x00", 2), 2)};
    });
    const TempHome home;
    home.Write(u"secret.txt"_s, "secret");
    ScriptedDialogs dialogs;
    Hraw hraw({}, dialogs);
    EXPECT_EQ(hraw.OpenURL(server.Url(u"/a"_s)), QByteArray("\xFF\x00", 2));
    EXPECT_EQ(hraw.OpenURL(LoopbackServer(QByteArray()).Url(u"/x"_s)), QByteArray()) << "a dead host";
    for (const QString& url : {"file://"_L1 + home.Path(u"secret.txt"_s), u"data:,secret"_s, u"/path"_s, u"http://a b/"_s, QString()})
        EXPECT_EQ(hraw.OpenURL(url), QByteArray()) << qPrintable(url);
}

TEST(NetworkLimits, AreOffWhereTheirKeysAreMissingOrNoNumbers)
{
    const TempHome home;
    const NetworkLimits none = ReadNetworkLimits(home.Path(u"none.ini"_s));
    EXPECT_FALSE(none.ErrorEndsWait);
    EXPECT_EQ(none.TimeoutMilliseconds, 0);
    home.Write(u"s.ini"_s, "[Network]\nErrorEndsWait=1\nTimeoutSeconds=9999999\nMaxRedirects=-3\n");
    const NetworkLimits limits = ReadNetworkLimits(home.Path(u"s.ini"_s));
    EXPECT_TRUE(limits.ErrorEndsWait);
    EXPECT_EQ(limits.TimeoutMilliseconds, 86'400'000);
    EXPECT_EQ(limits.MaxRedirects, 0);
}

TEST(WaitableTimer, ServesEventsUntilTheTimeHasPassed)
{
    bool served = false;
    QTimer::singleShot(5, [&] { served = true; });
    QElapsedTimer time;
    time.start();
    cWaitableTimer().Wait(50);
    EXPECT_GE(time.nsecsElapsed(), 49'000'000);
    EXPECT_TRUE(served);
}

TEST(OpenInBrowser, PassesOnlyAddressesOfWebAndMail)
{
    QStringList opened;
    for (const QString& url : {u"http://a.test/Title?0912345"_s, u"HTTPS://a.test/"_s, u"mailto:a@b.test"_s, u"file:///etc/passwd"_s,
                               u"javascript:alert(1)"_s, u"/usr/bin/xterm"_s, QString()})
        OpenInBrowser(url, [&](const QUrl& address) { opened << address.toString(); });
    EXPECT_EQ(opened, (QStringList{u"http://a.test/Title?0912345"_s, u"https://a.test/"_s, u"mailto:a@b.test"_s}));
}

} // namespace
} // namespace kelvado
