// What it costs to read the five pages of a film: parser_bench [benchmark flags].
// The pages are the stored ones of the tests, the cast brought to 100 entries. Each page is flattened once and then read by every routine
// that a retrieval uses. The bar for all five together is 2 ms.

#include "core/Literals.h"
#include "web/PageReaders.h"
#include "web/WebPages.h"

#include <benchmark/benchmark.h>

#include <cstdio>

using namespace kelvado;

namespace {

constexpr int kCastEntries = 100;
constexpr int kStoredCast = 3;

struct FilmPages
{
    QString title = FetchedPage("title");
    QString plot = FetchedPage("plot");
    QString credits = WithLargeCast(FetchedPage("credits"), kCastEntries - kStoredCast);
    QString companies = FetchedPage("companies");
    QString search = FetchedPage("search");
};

class QuietShell : public RecordingShell
{
public:
    void ShowWorking(bool) override {}
};

void ReadTitle(const QString& fetched)
{
    const WebHosts hosts = TestHosts();
    const QString page = FlattenPage(fetched);
    benchmark::DoNotOptimize(ParseTitleBlock(page));
    benchmark::DoNotOptimize(ParsePlotOutline(page));
    benchmark::DoNotOptimize(ParseTitleNumber(page));
    benchmark::DoNotOptimize(ParseLanguage(page));
    benchmark::DoNotOptimize(ParseRated(page));
    benchmark::DoNotOptimize(ParseRuntime(page));
    benchmark::DoNotOptimize(ParseGenres(page));
    benchmark::DoNotOptimize(ParsePosterUrl(page, hosts));
}

void ReadCredits(const QString& fetched)
{
    const QString page = FlattenPage(fetched);
    benchmark::DoNotOptimize(ParseActors(page));
    benchmark::DoNotOptimize(ParseDirectors(page));
    benchmark::DoNotOptimize(ParseProducers(page));
    benchmark::DoNotOptimize(ParseWriters(page));
}

void ReadSearch(const QString& fetched)
{
    QuietShell shell;
    ScriptedDialogs dialogs;
    QString page = FlattenPage(fetched);
    QList<SearchRow> rows;
    QStringList akaTitles{u"blah"_s};
    ParseSearchPage(page, rows, akaTitles, shell, dialogs);
    benchmark::DoNotOptimize(rows);
}

void Title(benchmark::State& state)
{
    const FilmPages pages;
    while (state.KeepRunning())
        ReadTitle(pages.title);
}
BENCHMARK(Title)->Unit(benchmark::kMicrosecond);

void Credits(benchmark::State& state)
{
    const FilmPages pages;
    while (state.KeepRunning())
        ReadCredits(pages.credits);
}
BENCHMARK(Credits)->Unit(benchmark::kMicrosecond);

void AllFivePages(benchmark::State& state)
{
    const FilmPages pages;
    while (state.KeepRunning()) {
        ReadTitle(pages.title);
        benchmark::DoNotOptimize(ParsePlotPage(pages.plot));
        ReadCredits(pages.credits);
        benchmark::DoNotOptimize(ParseCompanies(FlattenPage(pages.companies)));
        ReadSearch(pages.search);
    }
}
BENCHMARK(AllFivePages)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
#ifndef NDEBUG
    std::fprintf(stderr, "This build is not optimised: its figures say little.\n");
#endif
    try {
        const FilmPages pages;
        const auto cast = ParseActors(FlattenPage(pages.credits));
        std::printf("pages of %lld, %lld, %lld, %lld and %lld bytes, %lld cast entries\n", static_cast<long long>(pages.title.size()),
                    static_cast<long long>(pages.plot.size()), static_cast<long long>(pages.credits.size()),
                    static_cast<long long>(pages.companies.size()), static_cast<long long>(pages.search.size()),
                    static_cast<long long>(cast ? cast->size() : 0));
        benchmark::RunSpecifiedBenchmarks();
        return 0;
    } catch (const RuntimeError& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
