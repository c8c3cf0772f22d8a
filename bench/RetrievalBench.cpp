// What it costs to bring films in: retrieval_bench [benchmark flags]. Starts the page source that lies beside this program, fetches its
// first hundred sample films over real sockets (four pages, the look-up of a larger picture and the picture each) and adds them to a new
// catalog. One run is one figure; the time a film is the whole run divided by its films.

#include "core/AppState.h"
#include "core/Literals.h"
#include "core/Options.h"
#include "core/Paths.h"
#include "core/Profile.h"
#include "support/IdleEvents.h"
#include "support/MapMarks.h"
#include "support/PageSource.h"
#include "support/RecordingShell.h"
#include "support/ScriptedDialogs.h"
#include "web/retrieval/FilmQueue.h"
#include "web/transport/Hraw.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <cstdio>

using namespace kelvado;

namespace {

constexpr qsizetype kFilms = 100;

class NoProgress : public RetrievalProgress
{
public:
    void Open() override {}
    void Close() override {}
    void ShowFilm(const QString&) override {}
    void ShowStage(const QString&, const QString&, int) override {}
};

QList<SearchRow> SampleRows()
{
    const QDir folder(u"" KELVADO_SOURCE_DIR "/data/sample"_s);
    QList<SearchRow> rows;
    for (const QString& name : folder.entryList({u"*.json"_s}, QDir::Files, QDir::Name)) {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QJsonArray films = QJsonDocument::fromJson(file.readAll()).array();
        for (const QJsonValue film : films) {
            const QString number = film[u"imdb"].toString();
            if (!number.isEmpty() && rows.size() < kFilms)
                rows.append({.Text = film[u"title"].toString() + u'\t' + number});
        }
    }
    return rows;
}

/// A program folder with the delivered settings, every host the page source, and a catalog of no films.
class Home
{
public:
    explicit Home(const QString& host)
    {
        qputenv("KELVADO_HOME", m_folder.path().toUtf8());
        QFile::copy(u"" KELVADO_SOURCE_DIR "/data/Settings.ini"_s, SettingsFile());
        for (const char* key : {"ImdbMainHost", "ImdbSearchHost", "ImdbHeadsHost", "ImdbPosterHost", "AmazonMainHost", "AmazonImageHost"})
            WriteProfileValue(u"Hosts"_s, QLatin1StringView(key), host, SettingsFile());
    }

    QString NewCatalog()
    {
        QString path = m_folder.filePath(u"films%1.kvd"_s.arg(++m_catalogs));
        QFile::copy(QCoreApplication::applicationDirPath() + u"/keldb.dat"_s, path);
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
        return path;
    }

private:
    QTemporaryDir m_folder;
    int m_catalogs = 0;
};

void AddHundredFilms(benchmark::State& state)
{
    const QString folder = QCoreApplication::applicationDirPath();
    const PageSource source(folder);
    Home home(source.Host());
    const QList<SearchRow> rows = SampleRows();
    qsizetype added = 0;
    for (auto _ : state) {
        state.PauseTiming();
        MapMarks marks;
        AppState appState;
        appState.gOptions = std::make_unique<cOptions>(SettingsFile(), marks);
        appState.comDiagFile.fileName = home.NewCatalog();
        RecordingShell shell;
        ScriptedDialogs dialogs;
        IdleEvents events;
        NoProgress progress;
        Hraw web(ReadNetworkLimits(SettingsFile()), dialogs);
        FilmDesk desk{appState, shell, dialogs, events, web, progress, {}, false};
        QList<SearchRow> queue = rows;
        state.ResumeTiming();
        const JobResult result = AddQueue(queue, {{}, {}, {}}, desk).value();
        added += result.Added;
        for (const JobResult::Failure& failure : result.Failures)
            std::fprintf(stderr, "%s: %s\n", qPrintable(failure.Film), qPrintable(failure.Reason));
    }
    state.counters["per_film"] = benchmark::Counter(static_cast<double>(added), benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(AddHundredFilms)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1)->Repetitions(5)->ReportAggregatesOnly();

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
#ifndef NDEBUG
    std::fprintf(stderr, "This build is not optimised: its figures say little.\n");
#endif
    try {
        benchmark::RunSpecifiedBenchmarks();
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
