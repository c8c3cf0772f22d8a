#include "Server.h"
#include "DataFile.h"

#include "support/PageSource.h"
#include "web/transport/Exchange.h"

#include <gmock/gmock.h>

#include <QElapsedTimer>
#include <QTcpSocket>

#include <memory>
#include <thread>
#include <vector>

using namespace pagesource;
using namespace pagesource::test;
using namespace Qt::StringLiterals;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

// Sends a request as it stands and returns all that comes until the server closes.
std::string Exchange(int port, const std::string& request)
{
    kelvado::FetchWait wait({.TimeoutMilliseconds = 20'000});
    const kelvado::Peer peer{u"127.0.0.1"_s, static_cast<quint16>(port)};
    return kelvado::Exchange(peer, QByteArray::fromStdString(request), 1 << 24, wait).bytes.toStdString();
}

std::string Get(int port, const std::string& target)
{
    return Exchange(port, "GET " + target + " HTTP/1.0\r\nHost: 127.0.0.1\r\nProxy-Connection: Keep-Alive\r\n\r\n");
}

// A server with one film.
class Serving : public testing::Test
{
protected:
    Serving()
    {
        running = std::thread([this] { server.Run(site); });
    }
    ~Serving() override
    {
        server.Stop();
        running.join();
    }

    TempFolder folder;
    FilmStore store{MakeData(folder, [](FilmWriter& writer) { writer.AddFilm(FullFilm(17136, "The Coat", 1987)); })};
    Site site{store, Site::Options()};
    Server server;
    int port = server.Bind(0);
    std::thread running;
};

TEST_F(Serving, AnswersOldRequestsAndClosesBehindThem)
{
    EXPECT_THROW(Server().Bind(port), Failure) << "a port is one server's";
    const std::string title = Get(port, "/Title?0017136");
    EXPECT_THAT(title, StartsWith("HTTP/1.1 200 OK\r\n"));
    EXPECT_THAT(title, HasSubstr("Content-Type: text/html; charset=iso-8859-1\r\n"));
    EXPECT_THAT(title, HasSubstr("<title>The Coat (1987)</title>"));
    const std::string redirect = Get(port, "/Tsearch?title=the%20coat&type=substring");
    EXPECT_THAT(redirect, StartsWith("HTTP/1.1 302 Found\r\n"));
    EXPECT_THAT(redirect.substr(0, 1199), HasSubstr("Location: /title/tt0017136/\r\n"));
    EXPECT_THAT(Get(port, "/Title?1"), StartsWith("HTTP/1.1 404 "));
    const std::string packed = Exchange(port, "GET /Title?0017136 HTTP/1.0\r\nAccept-encoding: gzip, br\r\nHost: x\r\n\r\n");
    EXPECT_EQ(packed, title) << "pages are sent as they are";
    // A link that was read with what stands behind it, as it comes from a page with two blanks where one is looked for.
    EXPECT_THAT(Get(port, "/r/50400017136/\"%20%20title=\"x\"><img%20src=\"y.gif\"></a>"),
                HasSubstr("/exec/obidos/search?film=0017136\r\n"));
    EXPECT_THAT(Exchange(port, "POST /Title?0017136 HTTP/1.0\r\nContent-Length: 0\r\n\r\n"), StartsWith("HTTP/1.1 405 "));
    Server stopped; // before it runs, so it does not run
    stopped.Bind(0);
    stopped.Stop();
    stopped.Run(site);
}

TEST_F(Serving, TakesAllBehindTheFirstMarkForTheQuery)
{
    const std::pair<const char*, const char*> titles[] = {
        {"Who?", "<b>Who?</b>"}, {"?Who%3F", "<b>?Who?</b>"}, {"#Who", "<b>#Who</b>"}, {"Who is who", "<b>Who is who</b>"}};
    for (const auto& [typed, shown] : titles) {
        const std::string answer = Get(port, std::string("/Tsearch?title=") + typed + "&type=substring");
        EXPECT_THAT(answer, StartsWith("HTTP/1.1 200 OK\r\n"));
        EXPECT_THAT(answer, HasSubstr(shown));
    }
    EXPECT_THAT(Get(port, "/Tsearch?title=The Coat?&type=substring"), HasSubstr("Location: /title/tt0017136/\r\n"));
}

// A client that waits for the end of the answer is not kept waiting, and those who say nothing keep nobody else waiting.
TEST_F(Serving, ClosesAtOnceWhateverIsAsked)
{
    std::vector<std::unique_ptr<QTcpSocket>> idle;
    for (int i = 0; i < 40; ++i) { // more than there are threads
        idle.push_back(std::make_unique<QTcpSocket>());
        idle.back()->connectToHost(u"127.0.0.1"_s, static_cast<quint16>(port));
        ASSERT_TRUE(idle.back()->waitForConnected());
    }
    const std::pair<std::string, const char*> requests[] = {
        {"GET /Title?0017136 HTTP/1.1\r\nHost: x\r\nConnection: keep-alive\r\n\r\n", "HTTP/1.1 200 "},
        {"GET /Title?1 HTTP/1.0\r\nConnection: Keep-Alive\r\n\r\n", "HTTP/1.1 404 "},
        {"GET /a?b HTTP/9.9\r\n\r\n", "HTTP/1.1 400 "},
        {"nonsense\r\n\r\n", "HTTP/1.1 400 "},
        {"GET /images/goldstar.gif HTTP/1.1\r\nHost: x\r\nRange: bytes=0-2\r\n\r\n", "HTTP/1.1 206 "},
        {"GET /images/goldstar.gif HTTP/1.1\r\nHost: x\r\nRange: bytes=999999-\r\n\r\n", "HTTP/1.1 416 "},
        {"GET /?" + std::string(9000, '?') + " HTTP/1.0\r\n\r\n", "HTTP/1.1 414 "},
    };
    for (const auto& [request, answer] : requests) {
        QElapsedTimer clock;
        clock.start();
        EXPECT_THAT(Exchange(port, request), StartsWith(answer));
        EXPECT_LT(clock.elapsed(), 1000) << request.substr(0, 40);
    }
}

// The program itself: serves the delivered data on a free port, names it, and ends at a signal.
TEST(Program, ServesUntilItIsTold)
{
    const QString folder = u"" PAGESOURCE_FOLDER ""_s;
    EXPECT_EQ(QProcess::execute(folder + u"/kelvado-pagesource"_s, {u"serve"_s, u"--help"_s}), 0);
    QElapsedTimer ending;
    {
        const kelvado::PageSource source(folder, {u"--data"_s, folder + u"/pagesource.db"_s, u"--build"_s, u"2248"_s});
        const int port = source.Host().section(u':', 1).toInt();
        EXPECT_THAT(Get(port, "/downloads/autoupdate/index.html"), HasSubstr("\r\n\r\n2248\r\n"));
        EXPECT_THAT(Get(port, "/Covers/0020629.jpg"), HasSubstr("Content-Type: image/jpeg\r\n"));
        EXPECT_THAT(Get(port, "/Title?0020629"), HasSubstr(source.Host().toStdString()));
        ending.start();
    }
    EXPECT_LT(ending.elapsed(), 5000);
}

} // namespace
