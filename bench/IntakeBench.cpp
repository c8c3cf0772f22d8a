// What it costs to take films in: intake_bench [benchmark flags] [VIDEO FILE…].
// The facts of each file are shown as the panel shows them, with the bytes that were read for them. Without a file, an AVI of 700 MB is
// made up. The bars: the facts of an AVI below 2 ms, 10,000 titles stored below 2 s, a folder of 500 files walked well below 1 s.

#include "core/Literals.h"
#include "core/RuntimeError.h"
#include "intake/FileFilm.h"
#include "intake/MediaFile.h"
#include "intake/TitleImport.h"
#include "store/CatalogTemplate.h"
#include "store/mFileAccess.h"
#include "support/AviBuilder.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstdio>

using namespace kelvado;

namespace {

constexpr qint64 kDiscSize = 700'000'000;
constexpr int kTitles = 10'000;
constexpr int kFolders = 25, kFilesEach = 20;
constexpr qsizetype kListSize = 100'000'000;

QByteArray Content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// A catalog and whatever else a run needs, for as long as the program runs.
struct Place
{
    Place() { BuildBlankCatalog(Catalog(), QString::fromUtf8(Content(u"" KELVADO_SOURCE_DIR "/data/catalog/schema.sql"_s))); }
    QString Catalog() const { return folder.filePath(u"films.kvd"_s); }
    QString Write(const QString& name, const QByteArray& bytes, qint64 size = -1) const
    {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || (size >= 0 && !file.resize(size)))
            throw RuntimeError::WithDetail(kErrFileAccess, file.fileName());
        return file.fileName();
    }

    QTemporaryDir folder;
};

// What this process has read so far, with what the catalog needed and what lay in memory.
qint64 BytesRead()
{
    const QByteArray counters = Content(u"/proc/self/io"_s);
    return counters.mid(counters.indexOf("rchar: ") + 7).split('\n').constFirst().toLongLong();
}

void ShowFacts(const QString& path, const QString& catalog)
{
    const qint64 counting = -BytesRead() + BytesRead(); // what the counting itself reads
    const qint64 before = BytesRead();
    const AVIDetails details = GetMediaDetails(path, catalog);
    const qint64 read = BytesRead() - before - counting;
    const FileLabels labels = LabelsOf(details);
    std::printf("%s | %s | %s fps | %s s | %s | %s | %s | %s | %u channels | %lld of %lld bytes read\n", qPrintable(labels.lblFilename),
                qPrintable(labels.lblResolution), qPrintable(labels.lblFPS), qPrintable(details.Runtime), qPrintable(labels.lblVideoType),
                qPrintable(labels.lblVideoBitrate), qPrintable(labels.lblAudioType), qPrintable(labels.lblAudioBitrate),
                unsigned(details.audio.nChannels), static_cast<long long>(read), static_cast<long long>(details.FileSize));
}

void FileFacts(benchmark::State& state, const QString& path, const QString& catalog)
{
    while (state.KeepRunning())
        benchmark::DoNotOptimize(GetMediaDetails(path, catalog));
}

void StoreManyTitles(benchmark::State& state, const Place& place)
{
    QStringList titles;
    for (int i = 0; i < kTitles; ++i)
        titles << u"A film with a title of usual length, number %1"_s.arg(i);
    while (state.KeepRunning())
        StoreTitles(titles, place.Catalog());
}

void ReadLargeList(benchmark::State& state, const Place& place)
{
    const QString path = place.Write(u"titles.txt"_s, QByteArray("A film with a title of usual length\r\n").repeated(kListSize / 37));
    while (state.KeepRunning())
        benchmark::DoNotOptimize(ReadTitles(path));
}

void WalkFolders(benchmark::State& state, const Place& place)
{
    for (int i = 0; i < kFolders; ++i) {
        const QString folder = u"films/%1"_s.arg(i);
        MakeDirs(place.folder.filePath(folder));
        for (int j = 0; j < kFilesEach; ++j)
            place.Write(folder + u"/%1.mkv"_s.arg(j), "x");
    }
    const QString films = place.folder.filePath(u"films"_s);
    while (state.KeepRunning())
        benchmark::DoNotOptimize(FindVideoFiles(films));
}

void Run(const QStringList& given)
{
    const Place place;
    QStringList files = given;
    if (files.isEmpty())
        files << place.Write(u"film.avi"_s, AviBuilder().Bytes(), kDiscSize);
    for (const QString& path : std::as_const(files)) {
        ShowFacts(path, place.Catalog());
        benchmark::RegisterBenchmark(qPrintable(u"file facts/"_s + FileNameOf(path)), FileFacts, path, place.Catalog())
            ->Unit(benchmark::kMicrosecond);
    }
    benchmark::RegisterBenchmark("store 10000 titles", [&place](benchmark::State& state) {
        StoreManyTitles(state, place);
    })->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("read a list of 100 MB", [&place](benchmark::State& state) {
        ReadLargeList(state, place);
    })->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("walk 500 files", [&place](benchmark::State& state) {
        WalkFolders(state, place);
    })->Unit(benchmark::kMillisecond);
    benchmark::RunSpecifiedBenchmarks();
}

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
#ifndef NDEBUG
    std::fprintf(stderr, "This build is not optimised: its figures say little.\n");
#endif
    try {
        QStringList files;
        for (int i = 1; i < argc; ++i)
            files << QString::fromLocal8Bit(argv[i]);
        Run(files);
        return 0;
    } catch (const RuntimeError& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
