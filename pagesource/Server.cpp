#include "Server.h"

#include "Text.h"

#include <httplib.h>

#include <mutex>

namespace pagesource {

namespace {

constexpr const char* kLoopback = "127.0.0.1";
constexpr int kThreads = 4;

// The library's own default would let a second page source take the same port unnoticed.
void AllowQuickRestart(socket_t socket)
{
    const int yes = 1;
    setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
}

} // namespace

struct Server::Http
{
    httplib::Server server;
    std::mutex turn; // one page at a time: the site's statements are single
};

Server::Server() : m_http(std::make_unique<Http>())
{
    httplib::Server& server = m_http->server;
    server.new_task_queue = [] { return new httplib::ThreadPool(kThreads); };
    server.set_socket_options(AllowQuickRestart);
    server.set_tcp_nodelay(true);
}

Server::~Server() = default;

int Server::Bind(int port)
{
    httplib::Server& server = m_http->server;
    const int bound = port == 0 ? server.bind_to_any_port(kLoopback) : server.bind_to_port(kLoopback, port) ? port : -1;
    if (bound < 0)
        throw Failure("Port " + std::to_string(port) + " is taken by another program.");
    return bound;
}

void Server::Run(Site& site)
{
    m_http->server.set_pre_routing_handler([this, &site](const httplib::Request& request, httplib::Response& response) {
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
        response.status = answer.status;
        response.set_content(answer.body, answer.type);
        return httplib::Server::HandlerResponse::Handled;
    });
    m_http->server.listen_after_bind();
}

void Server::Stop()
{
    m_http->server.stop();
}

} // namespace pagesource
