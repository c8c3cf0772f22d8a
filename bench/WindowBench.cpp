// What a user waits for: window_bench CATALOG.kvd, with KELVADO_HOME naming a folder that has the program's files. Prints the time from
// the start of the process to the usable window, the median time from a selection to its loaded page, and the memory of this process.

#include "app/DesktopSeams.h"
#include "app/Form1.h"
#include "app/hMain.h"
#include "browse/CatalogModel.h"
#include "core/Literals.h"
#include "core/Paths.h"
#include "core/Profile.h"
#include "core/RuntimeError.h"
#include "render/forms/PageEngine.h"
#include "render/forms/frmPageView.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>
#include <QTreeView>

#include <algorithm>
#include <cstdio>
#include <unistd.h>

using namespace kelvado;

namespace {

constexpr int kPages = 60;

QByteArray ReadProc(const char* name)
{
    QFile file(u"/proc/"_s + QLatin1StringView(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Milliseconds since this process was started.
double ProcessAge()
{
    const QByteArray stat = ReadProc("self/stat");
    const double started = stat.mid(stat.lastIndexOf(')') + 2).split(' ').at(19).toDouble() / static_cast<double>(sysconf(_SC_CLK_TCK));
    const double now = ReadProc("uptime").split(' ').at(0).toDouble();
    return (now - started) * 1000;
}

double Megabytes(const char* line)
{
    for (const QByteArray& entry : ReadProc("self/status").split('\n'))
        if (entry.startsWith(line))
            return entry.mid(entry.indexOf(':') + 1).simplified().split(' ').at(0).toDouble() / 1024;
    return 0;
}

template<typename Sender, typename Signal>
void WaitFor(Sender* sender, Signal signal)
{
    QEventLoop loop;
    QObject::connect(sender, signal, &loop, &QEventLoop::quit);
    QTimer::singleShot(20000, &loop, &QEventLoop::quit);
    loop.exec();
}

void Settle(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

int Measure(const QString& catalog)
{
    WriteProfileValue(u"Settings"_s, u"Default"_s, catalog, SettingsFile());
    DesktopDialogs dialogs;
    DesktopEvents events;
    Form1 window(dialogs, events);
    dialogs.SetOwner(&window);
    LoaderMain(window, {});
    WaitFor(&window, &Form1::Ready);
    QCoreApplication::processEvents();
    std::printf("start to usable window   %8.0f ms\n", ProcessAge());
    WaitFor(&window.PageView(), &frmPageView::DocumentComplete);
    Settle(3000);
    std::printf("memory after start       %8.0f MB\n", Megabytes("VmRSS"));

    auto* tree = window.findChild<QTreeView*>(u"TreeView1"_s);
    CatalogModel& model = window.Catalog();
    std::vector<double> times;
    for (int i = 0; i < kPages; ++i) {
        const QModelIndex group = model.index(i % model.rowCount(), 0);
        if (model.rowCount(group) == 0)
            continue;
        QElapsedTimer timer;
        timer.start();
        tree->setCurrentIndex(model.index(i * 7 % model.rowCount(group), 0, group));
        WaitFor(&window.PageView(), &frmPageView::DocumentComplete);
        times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    std::sort(times.begin(), times.end());
    std::printf("selection to loaded page %8.1f ms (median of %zu; slowest %.1f)\n", times[times.size() / 2], times.size(), times.back());
    std::printf("memory after the pages   %8.0f MB\n", Megabytes("VmRSS"));
    window.close();
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    PreparePageEngine();
    QApplication application(argc, argv);
    QApplication::setStyle(u"Fusion"_s);
    if (argc != 2) {
        std::fprintf(stderr, "usage: window_bench CATALOG.kvd\n");
        return 2;
    }
    try {
        QDir().mkpath(TempFolder());
        return Measure(QDir(QString::fromLocal8Bit(argv[1])).absolutePath());
    } catch (const RuntimeError& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
