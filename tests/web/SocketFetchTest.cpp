#include "LoopbackServer.h"
#include "PageReaders.h"
#include "web/transport/Hraw.h"
#include "web/transport/ctxHTTP.h"

#include <QCoreApplication>
#include <QElapsedTimer>

namespace kelvado {
namespace {

using Then = LoopbackServer::Then;

constexpr NetworkLimits kShort{.ErrorEndsWait = true, .TimeoutMilliseconds = 20'000, .MaxRedirects = 3};

QByteArray Redirect(const QString& target)
{
    return "HTTP/1.0 302 Found\r\nLocation: " + target.toLatin1() + "\r\n\r\n";
}

class SocketFetch : public testing::Test
{
protected:
    /// The number in the only message that was shown; 0 where there was none.
    int ToldNumber() const
    {
        EXPECT_LE(dialogs.boxes.size(), 1);
        return dialogs.boxes.isEmpty() ? 0 : dialogs.boxes[0].text.section(u"ErrNumber: "_s, 1).section(u'\r', 0, 0).toInt();
    }

    ScriptedDialogs dialogs;
};

TEST(SplitUrl, KeepsAnAddressWithoutPathAsItWasGiven)
{
    const std::pair<QString, SplitAddress> cases[] = {
        {u"http://a.test/x/y?z=1"_s, {u"a.test"_s, u"/x/y?z=1"_s}}, {u"HTTP://a.test:81\\x y\\z"_s, {u"a.test:81"_s, u"/x%20y/z"_s}},
        {u"Http://a.test/x"_s, {u"Http:"_s, u"//a.test/x"_s}},      {u"a.test/to?http://b.test/"_s, {u"a.test"_s, u"/to?b.test/"_s}},
        {u"http:\\\\a.test\\x"_s, {u"a.test"_s, u"/x"_s}},          {u"http://a b.test"_s, {u"http://a b.test"_s, u"/"_s}},
        {u"https://a.test/x"_s, {u"https:"_s, u"//a.test/x"_s}},
    };
    for (const auto& [url, address] : cases)
        EXPECT_EQ(SplitUrl(url), address) << qPrintable(url);
}

TEST(RedirectTarget, IsLookedForAmongTheFirst1199Characters)
{
    const auto at = [](int place, const char* marker, const char* end = "\r\n") {
        return QString(place - 1, u'.') + QLatin1StringView(marker) + "/to"_L1 + QLatin1StringView(end) + "rest"_L1;
    };
    const struct
    {
        QString answer, target;
    } cases[] = {
        {at(1199, "Location: "), u"/to"_s},
        {at(1200, "Location: "), QString()},
        {at(1197, "GMTLocation: "), u"/to"_s},
        {at(1200, "GMTLocation: "), QString()},
        {at(5, "location: "), QString()},
        {at(5, "Location: ", "\nx\r\n"), u"/to\nx"_s},
        {u"Location: \r\nLocation: /late\r\n"_s, QString()},
        {QString(), QString()},
    };
    for (const auto& c : cases)
        EXPECT_EQ(RedirectTarget(c.answer), c.target) << qPrintable(c.answer.right(40));
    EXPECT_EQ(ErrorOf([&] { return RedirectTarget(at(5, "Location: ", "\n")); }), kErrInvalidCall);
}

TEST_F(SocketFetch, SendsItsRequestByteForByteAndReturnsTheAnswerWhole)
{
    const LoopbackServer server("HTTP/1.0 404 Not Found\r\nX: y\r\n\r\nL\xF6wen \x96 \x80");
    Hraw hraw(kShort, dialogs);
    EXPECT_EQ(hraw.Get_HTML(server.Url(u"/T search?t=Am\u00E9lie\u2019s \u0416"_s)),
              u"HTTP/1.0 404 Not Found\r\nX: y\r\n\r\nL\u00F6wen \u2013 \u20AC");
    ASSERT_EQ(server.requests.size(), 1);
    EXPECT_EQ(server.requests[0], "GET /T%20search?t=Am\xE9lie\x92s%20? HTTP/1.0\r\n"
                                  "Accept: image/gif, image/x-xbitmap, image/jpeg, image/pjpeg, application/vnd.ms-powerpoint, "
                                  "application/vnd.ms-excel, application/msword, application/x-comet, */*\r\n"
                                  "Accept-Language: en\r\n"
                                  "Cache-Control: no-cache\r\n"
                                  "User-Agent: Mozilla/4.0 (compatible; MSIE 5.0; Windows 98; DigExt)\r\n"
                                  "Host: " +
                                      server.Host().toLatin1() +
                                      "\r\n"
                                      "Proxy-Connection: Keep-Alive\r\n"
                                      "\r\n");
    EXPECT_EQ(hraw.Get_HTML(QString()), hraw.HTMLDoc()) << "the empty address keeps the answer before";
    EXPECT_TRUE(hraw.HTMLDoc().contains("404"_L1));
    EXPECT_EQ(server.requests.size(), 1);
}

TEST_F(SocketFetch, FollowsRedirectsToPathsOnTheHostAndToOtherHostsOnThePort)
{
    const LoopbackServer other("HTTP/1.0 200 OK\r\n\r\nthere");
    const LoopbackServer server([&](const QByteArray& path) -> LoopbackServer::Reply {
        if (path == "/a")
            return {Redirect(u"/b"_s)};
        if (path == "/b")
            return {"HTTP/1.0 200 OK\r\n\r\nA body that says Location: /c\r\n"};
        return {Redirect(other.Url(u"/d"_s))};
    });
    ctxHTTP http(kShort, dialogs);
    QStringList completed;
    QObject::connect(&http, &ctxHTTP::Completed, &http, [&](const QString& answer) {
        EXPECT_FALSE(http.Busy());
        completed << answer;
    });
    http.SetUserAgent(u"Tester"_s);
    http.SetPort(server.Port());
    http.SetUrl(u"http://127.0.0.1/a"_s);
    const QString answer = http.GetData();
    EXPECT_TRUE(answer.endsWith("there"_L1));
    EXPECT_EQ(server.Paths(), (QByteArrayList{"/a", "/b", "/c"}));
    EXPECT_TRUE(server.requests[1].contains("User-Agent: Tester\r\nHost: 127.0.0.1\r\n"));
    EXPECT_TRUE(other.requests.value(0).contains("Host: " + other.Host().toLatin1() + "\r\n"));
    EXPECT_EQ(http.Url(), other.Url(u"/d"_s));
    EXPECT_EQ(completed, QStringList(4, answer)) << "once for each answer of the chain";
    EXPECT_FALSE(http.Busy());
    EXPECT_TRUE(dialogs.boxes.isEmpty());
}

TEST_F(SocketFetch, TellsWhatItCannotReachInItsWords)
{
    const LoopbackServer site([&](const QByteArray& path) -> LoopbackServer::Reply {
        return {Redirect(path == "/a" ? u"/b"_s : path == "/b" ? u"/a"_s : u"/to/http"_s)};
    });
    const QString dead = LoopbackServer(QByteArray()).Url(u"/x"_s);
    const std::tuple<QString, QString, int, QString> cases[] = {
        {dead, dead, 10061, u"Connection refused"_s},
        {site.Url(u"/c"_s), u"/to/http"_s, 11001, u"Host not found"_s},         // a target that holds "http" anywhere is a whole address
        {site.Url(QString()), site.Url(QString()), 11001, u"Host not found"_s}, // an address without a path keeps its scheme
        {site.Url(u"/a"_s), site.Url(u"/b"_s), 40006, u"Too many redirects"_s},
    };
    for (const auto& [url, told, number, description] : cases) {
        dialogs.boxes.clear();
        Hraw(kShort, dialogs).Get_HTML(url);
        ASSERT_EQ(dialogs.boxes.size(), 1) << qPrintable(url);
        EXPECT_EQ(dialogs.boxes[0].text,
                  u"Kelvado encontured the following error while attempting \r\nto reach: %1ErrNumber: %2\r\nDescription %3\r\n"
                  "Scode : %4\r\nSource : WS_HTTP"_s.arg(told)
                      .arg(number)
                      .arg(description)
                      .arg(number - 2146828288));
    }
    EXPECT_EQ(site.requests.size(), 5) << "three redirects are followed";
    const LoopbackServer longWay([step = 0](const QByteArray&) mutable -> LoopbackServer::Reply {
        return {++step < 60 ? Redirect(u"/next"_s) : QByteArray("HTTP/1.0 200 OK\r\n\r\nthere")};
    });
    EXPECT_TRUE(Hraw({.TimeoutMilliseconds = 20'000}, dialogs).Get_HTML(longWay.Url(u"/a"_s)).endsWith("there"_L1)) << "0 is no limit";

    dialogs.boxes.clear();
    QElapsedTimer time;
    time.start();
    EXPECT_EQ(Hraw({.ErrorEndsWait = false, .TimeoutMilliseconds = 200}, dialogs).Get_HTML(dead), QString());
    EXPECT_GE(time.elapsed(), 200) << "the wait goes on after the message";
    EXPECT_EQ(ToldNumber(), 10061);
}

TEST_F(SocketFetch, EndsBrokenConnectionsWithWhatHasArrived)
{
    NetworkLimits tight = kShort;
    tight.LargestAnswer = 1000;
    const std::tuple<const char*, QByteArray, Then, int> cases[] = {
        {"reset", "half a pa", Then::Reset, 10054},
        {"stall", "half a pa", Then::Stall, 10060},
        {"a byte now and then", "half a pa", Then::Trickle, 10060},
        {"too much", QByteArray("half a pa").leftJustified(1001, 'x'), Then::Stall, 10040},
    };
    for (const auto& [name, bytes, then, told] : cases) {
        SCOPED_TRACE(name);
        dialogs.boxes.clear();
        tight.TimeoutMilliseconds = told == 10060 ? 150 : 20'000;
        const LoopbackServer server(bytes, then);
        const QString answer = Hraw(tight, dialogs).Get_HTML(server.Url(u"/x"_s));
        EXPECT_TRUE(answer.startsWith("half a pa"_L1)) << qPrintable(answer);
        EXPECT_LT(answer.size(), 1100);
        EXPECT_EQ(ToldNumber(), told);
    }
}

TEST_F(SocketFetch, TakesAPageOfAHundredMegabytes)
{
    constexpr qsizetype kSize = 100'000'000;
    const LoopbackServer server(QByteArray(kSize, 'x'));
    EXPECT_EQ(Hraw(kShort, dialogs).Get_HTML(server.Url(u"/x"_s)).size(), kSize);
    EXPECT_TRUE(dialogs.boxes.isEmpty());
}

// An abort and the end of the program must end every wait at once, and nothing behind the fetch may run.
TEST_F(SocketFetch, IsLeftWhereItIsAbortedAndWhereTheProgramEnds)
{
    const LoopbackServer stalled(QByteArray(), Then::Stall);
    const QString dead = LoopbackServer(QByteArray()).Url(u"/x"_s);
    Hraw hraw({}, dialogs);
    const std::function<void()> fetches[] = {
        [&] { hraw.Get_HTML(stalled.Url(u"/x"_s)); },
        [&] { hraw.Get_HTML(dead); },
        [&] { hraw.GetUrl(stalled.Url(u"/x"_s)); },
        [&] { hraw.OpenURL(stalled.Url(u"/x"_s)); },
    };
    for (const auto& fetch : fetches) {
        QTimer::singleShot(20, qApp, [&] { hraw.Abort(); });
        EXPECT_EQ(ErrorOf(fetch), kErrCancelled);
        int error = 0;
        QTimer::singleShot(0, qApp, [&] { error = ErrorOf(fetch); });
        QTimer::singleShot(60, qApp, &QCoreApplication::quit);
        QCoreApplication::exec();
        EXPECT_EQ(error, kErrCancelled);
    }
}

} // namespace
} // namespace kelvado
