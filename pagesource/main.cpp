// The page source: serves film pages on the loopback address, from the sample or from data sets that the user has imported.

#include "Import.h"
#include "Server.h"
#include "Text.h"

#include <chrono>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <map>
#include <pthread.h>
#include <string_view>
#include <thread>
#include <unistd.h>
#include <vector>

using namespace pagesource;

namespace {

constexpr int kPort = 8047;

constexpr const char* kUsage = "kelvado-pagesource serve [OPTIONS]           serves film pages on 127.0.0.1\n"
                               "  --port N            port (8047); 0 takes a free one and names it\n"
                               "  --data FILE         data file (imported.db beside the program, or else pagesource.db)\n"
                               "  --images FOLDER     pictures (pagesource-images beside the program)\n"
                               "  --seed N            chooses the pages' shapes (0: values read clean)\n"
                               "  --build N           newest build number that the update page names (2247)\n"
                               "  --heads-host, --poster-host, --old-poster-host, --shop-host, --shop-image-host HOST\n"
                               "                      hosts in the addresses of pictures and shop (127.0.0.1 and the port)\n"
                               "kelvado-pagesource import FOLDER [--data FILE]\n"
                               "  makes a data file (imported.db beside the program) of title.basics.tsv.gz, title.ratings.tsv.gz,\n"
                               "  title.akas.tsv.gz, title.crew.tsv.gz, title.principals.tsv.gz and name.basics.tsv.gz\n";

std::string BesideProgram(const char* name)
{
    return (std::filesystem::read_symlink("/proc/self/exe").parent_path() / name).string();
}

/// Options with a value each, and what stands among them.
struct Arguments
{
    std::map<std::string, std::string> options;
    std::vector<std::string> words;

    std::string Take(const std::string& name, const std::string& byDefault)
    {
        const auto found = options.find(name);
        if (found == options.end())
            return byDefault;
        std::string value = found->second;
        options.erase(found);
        return value;
    }

    std::int64_t TakeNumber(const std::string& name, std::int64_t byDefault, std::int64_t most)
    {
        const std::string text = Take(name, std::to_string(byDefault));
        const std::optional<std::int64_t> number = Number(text);
        if (!number || *number > most)
            throw Failure(name + " takes a number, not \"" + text + "\".");
        return *number;
    }

    void RefuseRest() const
    {
        if (!options.empty())
            throw Failure("There is no option " + options.begin()->first + ".\n" + kUsage);
    }
};

Arguments Parse(int argc, char** argv)
{
    Arguments arguments;
    for (int i = 1; i < argc; ++i) {
        const std::string text = argv[i];
        if (!text.starts_with("--")) {
            arguments.words.push_back(text);
            continue;
        }
        if (i + 1 == argc)
            throw Failure(text + " needs a value.\n" + kUsage);
        arguments.options[text] = argv[++i];
    }
    return arguments;
}

// Ends the server at the first signal to end. All signals are blocked in every thread, so that this one alone takes them.
class SignalStop
{
public:
    explicit SignalStop(Server& server)
    {
        sigemptyset(&m_signals);
        for (const int signal : {SIGINT, SIGTERM, SIGHUP})
            sigaddset(&m_signals, signal);
        pthread_sigmask(SIG_BLOCK, &m_signals, nullptr);
        m_thread = std::thread([this, &server] {
            int signal = 0;
            sigwait(&m_signals, &signal);
            server.Stop();
        });
    }
    ~SignalStop()
    {
        pthread_kill(m_thread.native_handle(), SIGTERM);
        m_thread.join();
    }
    SignalStop(const SignalStop&) = delete;
    SignalStop& operator=(const SignalStop&) = delete;

private:
    sigset_t m_signals{};
    std::thread m_thread;
};

void Serve(Arguments& arguments)
{
    const int port = static_cast<int>(arguments.TakeNumber("--port", kPort, 65535));
    const std::string imported = BesideProgram("imported.db");
    const std::string data = arguments.Take("--data", std::filesystem::exists(imported) ? imported : BesideProgram("pagesource.db"));
    Site::Options options;
    options.pictures = arguments.Take("--images", BesideProgram("pagesource-images"));
    options.pages.seed = static_cast<std::uint64_t>(arguments.TakeNumber("--seed", 0, INT64_MAX));
    options.build = std::to_string(arguments.TakeNumber("--build", 2247, INT32_MAX));

    FilmStore store(data);
    struct HostOption
    {
        const char* name;
        std::string Hosts::*host;
    };
    constexpr HostOption hostOptions[] = {{"--heads-host", &Hosts::heads},
                                          {"--poster-host", &Hosts::poster},
                                          {"--old-poster-host", &Hosts::oldPoster},
                                          {"--shop-host", &Hosts::shop},
                                          {"--shop-image-host", &Hosts::shopImage}};
    // The pages name the server's own address, so the port is taken first.
    Server server;
    const int bound = server.Bind(port);
    for (const HostOption& option : hostOptions)
        options.pages.hosts.*option.host = arguments.Take(option.name, "127.0.0.1:" + std::to_string(bound));
    arguments.RefuseRest();

    Site site(store, options);
    const SignalStop stop(server);
    std::printf("Serving %s on http://127.0.0.1:%d/\n", data.c_str(), bound);
    std::fflush(stdout);
    server.Run(site);
}

// One line that is written over again on a terminal, a line per file elsewhere.
class ProgressLine
{
public:
    void Show(const std::string& what, std::int64_t rows)
    {
        const auto now = std::chrono::steady_clock::now();
        if (what != m_what) {
            End();
            m_what = what;
            m_start = now;
            m_shown = {};
        }
        m_rows = rows;
        if (!m_terminal || now - m_shown < std::chrono::milliseconds(200))
            return;
        m_shown = now;
        Print();
    }

    void End()
    {
        if (m_what.empty())
            return;
        Print();
        std::fputc('\n', stderr);
        m_what.clear();
    }

private:
    void Print() const
    {
        const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - m_start).count();
        const char* const start = m_terminal ? "\r\033[K" : "";
        if (m_rows == 0)
            std::fprintf(stderr, "%s%s, %.1f s", start, m_what.c_str(), seconds);
        else
            std::fprintf(stderr, "%s%s: %s rows, %s rows/s", start, m_what.c_str(), Thousands(m_rows).c_str(),
                         Thousands(static_cast<std::int64_t>(static_cast<double>(m_rows) / std::max(seconds, 0.001))).c_str());
    }

    const bool m_terminal = isatty(STDERR_FILENO) == 1;
    std::string m_what;
    std::int64_t m_rows = 0;
    std::chrono::steady_clock::time_point m_start;
    std::chrono::steady_clock::time_point m_shown;
};

void Import(Arguments& arguments)
{
    const std::string target = arguments.Take("--data", BesideProgram("imported.db"));
    arguments.RefuseRest();
    ProgressLine line;
    const ImportReport report =
        ImportDataSets(arguments.words[1], target, [&line](const std::string& what, std::int64_t rows) { line.Show(what, rows); });
    line.End();
    for (const std::string& notice : report.notices)
        std::printf("%s\n", notice.c_str());
    for (const std::string& complaint : report.complaints)
        std::printf("Skipped %s\n", complaint.c_str());
    if (report.malformed > static_cast<std::int64_t>(report.complaints.size()))
        std::printf("… and more: %s malformed rows in all\n", Thousands(report.malformed).c_str());
    if (report.leftOut > 0)
        std::printf("Left out: %s titles whose number has more than seven digits\n", Thousands(report.leftOut).c_str());
    std::printf("%s films, %s other titles, %s credits and %s people in %s: %s rows in %.1f s, %s rows/s\n",
                Thousands(report.films).c_str(), Thousands(report.otherTitles).c_str(), Thousands(report.credits).c_str(),
                Thousands(report.people).c_str(), target.c_str(), Thousands(report.rows).c_str(), report.seconds,
                Thousands(static_cast<std::int64_t>(static_cast<double>(report.rows) / report.seconds)).c_str());
}

} // namespace

int main(int argc, char** argv)
{
    try {
        for (int i = 1; i < argc; ++i) {
            if (const std::string_view word = argv[i]; word == "--help" || word == "-h") {
                std::fputs(kUsage, stdout);
                return 0;
            }
        }
        Arguments arguments = Parse(argc, argv);
        const std::string job = arguments.words.empty() ? "" : arguments.words[0];
        if (job == "serve" && arguments.words.size() == 1)
            Serve(arguments);
        else if (job == "import" && arguments.words.size() == 2)
            Import(arguments);
        else
            throw Failure(kUsage);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
