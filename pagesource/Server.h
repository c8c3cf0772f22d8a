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
    /// Serves the site until Stop.
    void Run(Site& site);
    /// From any thread.
    void Stop();

private:
    struct Http;
    std::unique_ptr<Http> m_http;
};

} // namespace pagesource
