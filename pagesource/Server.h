#pragma once

#include "Site.h"

#include <functional>
#include <memory>

namespace pagesource {

/// Serves a site over HTTP, on the loopback address and nowhere else.
class Server
{
public:
    Server();
    ~Server();

    /// Takes the port, or any free one for 0, and returns it. Raises Failure where it is taken.
    int Bind(int port);
    /// Serves the site until Stop, or not at all behind one. Each connection takes one request and closes behind the answer.
    void Run(Site& site);
    /// From any thread, any time after Bind.
    void Stop();

private:
    struct Http;
    std::unique_ptr<Http> m_http;
};

} // namespace pagesource
