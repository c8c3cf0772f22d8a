#include "Server.h"

#include "Text.h"

#include <httplib.h>

#include <algorithm>
#include <atomic>
#include <cctype>
#include <chrono>
#include <functional>
#include <mutex>
#include <poll.h>

namespace pagesource {

namespace {

constexpr const char* kLoopback = "127.0.0.1";
constexpr int kThreads = 32;
// Readers send a request at once. Whoever connects and says nothing keeps a thread for no longer than this, and less where others wait
// for one.
constexpr std::chrono::milliseconds kRequestTime(2000);
constexpr std::chrono::milliseconds kRequestTimeInQueue(200);
constexpr timeval kSendTime{5, 0};
// How long a client that is waited for keeps the server from ending.
constexpr std::chrono::milliseconds kStopInterval(50);
// The library lets five clients wait to be accepted; one more would try again a second later.
constexpr int kBacklog = 128;
constexpr std::size_t kMostOfRequest = 65536;

// The library's own default would let a second page source take the same port unnoticed.
void AllowQuickRestart(socket_t socket)
{
    const int yes = 1;
    setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
}

// Titles are asked for as they were typed. The library refuses a second "?" and drops what stands behind a "#", so those of the query
// are handed to it encoded.
void EncodeQuery(std::string& request)
{
    const std::string_view line = std::string_view(request).substr(0, request.find('\r'));
    const std::size_t mark = line.find('?');
    const std::size_t end = line.rfind(' ');
    if (mark == std::string_view::npos || end == std::string_view::npos || end < mark)
        return;
    const std::size_t from = mark + 1;
    std::string query(line.substr(from, end - from));
    for (const auto& [sign, code] : {std::pair("?", "%3F"), std::pair("#", "%23"), std::pair(" ", "%20")})
        query = Replaced(query, sign, code);
    request.replace(from, end - from, query);
}

// The library would pack a page as tightly as it can, which takes forty milliseconds; on one machine its transport takes none.
void RefusePacking(std::string& request)
{
    constexpr std::string_view header = "\r\naccept-encoding:";
    const auto same = [](char left, char right) { return std::tolower(static_cast<unsigned char>(left)) == right; };
    const auto found = std::search(request.begin(), request.end(), header.begin(), header.end(), same);
    if (found == request.end())
        return;
    const std::size_t start = static_cast<std::size_t>(found - request.begin());
    request.erase(start, request.find("\r\n", start + 2) - start);
}

void Send(socket_t socket, std::string_view bytes)
{
    setsockopt(socket, SOL_SOCKET, SO_SNDTIMEO, &kSendTime, sizeof kSendTime);
    while (!bytes.empty()) {
        const ssize_t sent = send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent <= 0)
            return;
        bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
}

// The library's threads, with a count of the connections that wait for one.
class CountedQueue : public httplib::TaskQueue
{
public:
    explicit CountedQueue(std::atomic<int>& waiting) : m_waiting(waiting), m_pool(kThreads) {}

    void enqueue(std::function<void()> serve) override
    {
        ++m_waiting;
        m_pool.enqueue([this, serve = std::move(serve)] {
            --m_waiting;
            serve();
        });
    }
    void shutdown() override { m_pool.shutdown(); }

private:
    std::atomic<int>& m_waiting;
    httplib::ThreadPool m_pool;
};

} // namespace

// The library's server with connections of one request each, read here and parsed there. Whatever is answered, the connection closes
// behind it, and idle clients hold no thread for long.
struct Server::Http : public httplib::Server
{
    std::mutex turn; // one page at a time: the site's statements are single
    std::atomic<int> waiting = 0;

    void WidenBacklog() { ::listen(svr_sock_, kBacklog); }

    void Serve()
    {
        listen_after_bind();
        svr_sock_ = INVALID_SOCKET; // closed, also where accepting failed
    }

    // The library's own stop is lost on a server that does not accept yet.
    void ShutDown()
    {
        const socket_t socket = svr_sock_.exchange(INVALID_SOCKET);
        if (socket == INVALID_SOCKET)
            return;
        shutdown(socket, SHUT_RDWR);
        close(socket);
    }

private:
    bool process_and_close_socket(socket_t socket) override
    {
        std::string request = Receive(socket);
        bool done = false;
        if (!request.empty()) {
            EncodeQuery(request);
            RefusePacking(request);
            httplib::detail::BufferStream stream;
            stream.write(request.data(), request.size());
            bool closed = false;
            done = process_request(stream, true, closed, nullptr);
            // The stream holds the answer behind the request.
            Send(socket, std::string_view(stream.get_buffer()).substr(request.size()));
        }
        shutdown(socket, SHUT_RDWR);
        close(socket);
        return done;
    }

    // A request up to the blank line behind its headers, or as much of it as comes.
    std::string Receive(socket_t socket) const
    {
        using Clock = std::chrono::steady_clock;
        constexpr std::string_view end = "\r\n\r\n";
        std::string request;
        const Clock::time_point start = Clock::now();
        const auto timeIsUp = [&] { return Clock::now() - start > (waiting > 0 ? kRequestTimeInQueue : kRequestTime); };
        while (request.size() < kMostOfRequest && !timeIsUp() && svr_sock_ != INVALID_SOCKET) {
            pollfd waited{socket, POLLIN, 0};
            if (poll(&waited, 1, static_cast<int>(kStopInterval.count())) <= 0)
                continue;
            char block[4096];
            const ssize_t count = recv(socket, block, sizeof block, 0);
            if (count <= 0)
                break;
            const std::size_t known = request.size() < end.size() ? 0 : request.size() - end.size();
            request.append(block, static_cast<std::size_t>(count));
            if (request.find(end, known) != std::string::npos)
                break;
        }
        return request;
    }
};

Server::Server() : m_http(std::make_unique<Http>())
{
    m_http->new_task_queue = [this] { return new CountedQueue(m_http->waiting); };
    m_http->set_socket_options(AllowQuickRestart);
    m_http->set_tcp_nodelay(true);
}

Server::~Server()
{
    Stop();
}

int Server::Bind(int port)
{
    const int bound = port == 0 ? m_http->bind_to_any_port(kLoopback) : m_http->bind_to_port(kLoopback, port) ? port : -1;
    if (bound < 0)
        throw Failure("Port " + std::to_string(port) + " is taken by another program.");
    m_http->WidenBacklog();
    return bound;
}

void Server::Run(Site& site)
{
    m_http->set_pre_routing_handler([this, &site](const httplib::Request& request, httplib::Response& response) {
        if (request.method != "GET" && request.method != "HEAD") {
            response.status = 405;
            return httplib::Server::HandlerResponse::Handled;
        }
        Answer answer;
        try {
            const std::lock_guard lock(m_http->turn);
            answer = site.Get(request.target);
        } catch (const std::exception& error) {
            answer.status = 500;
            answer.body = "<html><head><title>Error</title></head><body>" + PageText(error.what()) + "</body></html>";
        }
        if (!answer.location.empty())
            response.set_redirect(answer.location, answer.status);
        // The library cuts the body to the range that is asked for; the status is ours.
        response.status = answer.status == 200 && !request.ranges.empty() ? 206 : answer.status;
        response.set_content(answer.body, answer.type);
        return httplib::Server::HandlerResponse::Handled;
    });
    m_http->Serve();
}

void Server::Stop()
{
    m_http->ShutDown();
}

} // namespace pagesource
