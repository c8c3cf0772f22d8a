#include "Server.h"
#include "DataFile.h"

#include <gmock/gmock.h>

#include <arpa/inet.h>
#include <chrono>
#include <cstdlib>
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

using namespace pagesource;
using namespace pagesource::test;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

int Connect(int port)
{
    const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    EXPECT_EQ(::connect(socket, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    return socket;
}

// Sends a request as it stands and returns all that comes until the server closes.
std::string Exchange(int port, const std::string& request)
{
    const int socket = Connect(port);
    std::string answer;
    if (::send(socket, request.data(), request.size(), MSG_NOSIGNAL) == static_cast<ssize_t>(request.size())) {
        char block[4096];
        for (ssize_t read; (read = ::recv(socket, block, sizeof block, 0)) > 0;)
            answer.append(block, static_cast<std::size_t>(read));
    }
    ::close(socket);
    return answer;
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
    std::vector<int> idle;
    for (int i = 0; i < 40; ++i) // more than there are threads
        idle.push_back(Connect(port));
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
        const auto start = std::chrono::steady_clock::now();
        EXPECT_THAT(Exchange(port, request), StartsWith(answer));
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1)) << request.substr(0, 40);
    }
    for (const int socket : idle)
        ::close(socket);
}

TEST(Server, StoppedBeforeItRunsDoesNotRun)
{
    const TempFolder folder;
    FilmStore store(MakeData(folder, [](FilmWriter&) {}));
    Site site(store, Site::Options());
    Server server;
    server.Bind(0);
    server.Stop();
    server.Run(site);
}

TEST(Program, AnswersTheCallForHelp)
{
    EXPECT_EQ(std::system((std::string(PAGESOURCE_FOLDER) + "/kelvado-pagesource serve --help > /dev/null").c_str()), 0);
}

// The program itself: serves the delivered data on a free port, names it, and ends at a signal.
TEST(Program, ServesUntilItIsTold)
{
    int output[2];
    ASSERT_EQ(pipe2(output, O_CLOEXEC), 0);
    const std::string program = std::string(PAGESOURCE_FOLDER) + "/kelvado-pagesource";
    const std::string data = std::string(PAGESOURCE_FOLDER) + "/pagesource.db";
    const pid_t child = fork();
    if (child == 0) {
        dup2(output[1], STDOUT_FILENO);
        execl(program.c_str(), program.c_str(), "serve", "--port", "0", "--data", data.c_str(), "--build", "2248", nullptr);
        _exit(127);
    }
    close(output[1]);
    std::string line;
    char letter = 0;
    while (read(output[0], &letter, 1) == 1 && letter != '\n')
        line += letter;
    const std::size_t colon = line.rfind(':');
    ASSERT_NE(colon, std::string::npos) << line;
    const int port = std::stoi(line.substr(colon + 1));
    EXPECT_THAT(Get(port, "/downloads/autoupdate/index.html"), HasSubstr("\r\n\r\n2248\r\n"));
    EXPECT_THAT(Get(port, "/Covers/0020629.jpg"), HasSubstr("Content-Type: image/jpeg\r\n"));
    EXPECT_THAT(Get(port, "/Title?0020629"), HasSubstr("127.0.0.1:" + std::to_string(port)));
    kill(child, SIGTERM);
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    close(output[0]);
}

} // namespace
