// What a user waits for, to the last changed pixel: window_bench CATALOG.kvd, on an X display, with KELVADO_HOME naming a folder that has
// the program's files. Prints the time from the start of the process to the usable window, the median time from a selection to the
// painted page of a film and of a person and to the panels that edit them, the times to store a field and a tick, the credits of the
// largest cast, the change of the skin, all beside a page that holds a bare heading, and the memory of this process.

#include "PaintedPixels.h"
#include "app/DesktopSeams.h"
#include "app/Form1.h"
#include "app/hMain.h"
#include "browse/CatalogModel.h"
#include "core/Literals.h"
#include "core/Paths.h"
#include "core/Profile.h"
#include "core/RuntimeError.h"
#include "intake/UDisks.h"
#include "panels/forms/Form3.h"
#include "render/forms/PageEngine.h"
#include "render/forms/frmPageView.h"
#include "store/Recordset.h"
#include "store/mFileAccess.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QEventLoop>
#include <QLineEdit>
#include <QListWidget>
#include <QTimer>
#include <QTreeView>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <unistd.h>

using namespace kelvado;

namespace {

constexpr int kRounds = 30;

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

std::optional<double> TimeOf(const PaintedPixels& pixels, const std::function<void()>& act)
{
    const auto start = PaintedPixels::Clock::now();
    act();
    return pixels.LastChangeSince(start);
}

/// Prints and returns the median of many rounds, and how many times `bare` it is.
double Median(const char* what, const std::function<std::optional<double>()>& round, double bare = 0)
{
    std::vector<double> times;
    for (int i = 0; i < kRounds; ++i)
        if (const std::optional<double> time = round())
            times.push_back(*time);
    if (times.empty())
        return 0;
    std::sort(times.begin(), times.end());
    const double median = times[times.size() / 2];
    std::printf("%-24s %8.1f ms (median of %zu; %.1f to %.1f)", what, median, times.size(), times.front(), times.back());
    std::printf(bare > 0 ? "  %.2f of the bare page\n" : "\n", median / (bare > 0 ? bare : 1));
    return median;
}

/// The film panel: opening the next film, painted; a save of one field and a tick, stored.
void MeasurePanels(Form1& window, QTreeView& tree, const PaintedPixels& pixels, const std::function<std::optional<double>()>& nextFilm)
{
    QApplication::setCursorFlashTime(0);
    nextFilm();
    window.ShowSection(kMovieEdit);
    Settle(500);
    auto* panel = window.findChild<Form3*>();
    Median("film panel", nextFilm);
    const auto stored = [](const std::function<void()>& act) {
        const auto start = PaintedPixels::Clock::now();
        act();
        return std::optional(std::chrono::duration<double, std::milli>(PaintedPixels::Clock::now() - start).count());
    };
    int text = 0;
    Median("save of one field", [&] {
        panel->findChild<QLineEdit*>(u"txtIndex"_s)->setText(QString::number(++text));
        return stored([panel] { panel->Save(); });
    });
    QListWidgetItem* genre = panel->findChild<QListWidget*>(u"lstGenre"_s)->item(0);
    const auto tick = [&] {
        const bool ticked = genre->checkState() == Qt::Checked;
        return stored([&] { genre->setCheckState(ticked ? Qt::Unchecked : Qt::Checked); });
    };
    Median("tick", tick);
    if (genre->checkState() == Qt::Checked)
        tick();
    // One person after the other of the film with the cast that was unfolded.
    tree.expand(tree.currentIndex());
    const QModelIndex film = tree.currentIndex();
    int person = 0;
    const auto nextPerson = [&] {
        const int people = std::max(1, film.model()->rowCount(film));
        return TimeOf(pixels, [&] { tree.setCurrentIndex(film.model()->index(person++ % people, 0, film)); });
    };
    window.ShowSection(kMovieList);
    nextPerson();
    window.ShowSection(kActorInfo);
    Settle(500);
    Median("person panel", nextPerson);
    window.ShowSection(kMovieList);
}

/// The selector goes from one skin to the next: the whole window with its tree and the page of a film, painted.
void MeasureSkins(Form1& window, const std::function<std::optional<double>()>& nextFilm)
{
    nextFilm();
    const PaintedPixels pixels(QRect(window.mapToGlobal(QPoint()), window.size()));
    QTimer::singleShot(0, &window, [&] {
        auto* selector = window.findChild<QDialog*>(u"frmChangeSkin"_s);
        auto* skins = selector->findChild<QListWidget*>(u"AllSkins"_s);
        Settle(500);
        Median("change of skin", [&] { return TimeOf(pixels, [&] { skins->setCurrentRow((skins->currentRow() + 1) % skins->count()); }); });
        selector->reject();
    });
    window.MenuBar().Entry(u"mnuSkin"_s).trigger();
    Settle(1000);
}

int Measure(const QString& catalog)
{
    WriteProfileValue(u"Settings"_s, u"Default"_s, catalog, SettingsFile());
    DesktopDialogs dialogs;
    DesktopEvents events;
    UDisks discs;
    Form1 window(dialogs, events, discs);
    dialogs.SetOwner(&window);
    LoaderMain(window, {});
    WaitFor(&window, &Form1::Ready);
    QCoreApplication::processEvents();
    std::printf("start to usable window   %8.0f ms\n", ProcessAge());
    WaitFor(&window.PageView(), &frmPageView::DocumentComplete);
    Settle(3000);
    std::printf("memory after start       %8.0f MB\n", Megabytes("VmRSS"));

    const QWidget& page = window.PageView();
    const PaintedPixels pixels(QRect(page.mapToGlobal(QPoint()), page.size()));
    auto* tree = window.findChild<QTreeView*>(u"TreeView1"_s);
    CatalogModel& model = window.Catalog();
    // One film after the other in the largest group.
    int largestGroup = 0;
    for (int group = 1; group < model.rowCount(); ++group)
        if (model.rowCount(model.index(group, 0)) > model.rowCount(model.index(largestGroup, 0)))
            largestGroup = group;
    const QModelIndex group = model.index(largestGroup, 0);
    int film = 0;
    const auto next = [&] { return TimeOf(pixels, [&] { tree->setCurrentIndex(model.index(film++ % model.rowCount(group), 0, group)); }); };
    const QString skin = window.State().skin;
    window.State().skin = u"Bare page of window_bench"_s;
    const QDir bareSkin(SkinFolder(window.State().skin));
    bareSkin.mkpath(u"Templates"_s);
    WriteWholeFile(bareSkin.filePath(u"Templates/default.html"_s), u"<!DOCTYPE html><meta charset=\"utf-8\"><h1>!!TITLE!!</h1>"_s);
    next();
    const double bare = Median("bare page", next);
    QDir(bareSkin).removeRecursively();
    window.State().skin = skin;
    next();
    Median("film page", next, bare);
    // The cast of the first film that has more than one in it, again and again.
    QModelIndex unfolded;
    for (int row = 0; row < model.rowCount(group) && (row == 0 || model.rowCount(unfolded) < 2); ++row) {
        unfolded = model.index(row, 0, group);
        tree->expand(unfolded);
    }
    int person = 0;
    Median(
        "person page",
        [&] {
            const QModelIndex node = model.index(person++ % model.rowCount(unfolded), 0, unfolded);
            return TimeOf(pixels, [&] { tree->setCurrentIndex(node); });
        },
        bare);
    Connection connection = OpenCatalog(catalog);
    Recordset casts;
    casts.Open(u"SELECT Movie_ID, Count(*) AS People FROM ActorLink GROUP BY Movie_ID ORDER BY People DESC LIMIT 1"_s, connection);
    if (!casts.Eof()) {
        const FilmId largest = casts.Integer(0);
        std::printf("largest cast %s people\n", qPrintable(casts.Text(1)));
        casts.Close();
        connection.Close();
        Median(
            "its credits",
            [&] {
                TimeOf(pixels, [&] { window.PageView().Navigate(u"about:blank"_s); });
                return TimeOf(pixels, [&] { window.ShowCreditsPage(largest); });
            },
            bare);
    }
    std::printf("memory after the pages   %8.0f MB\n", Megabytes("VmRSS"));
    MeasureSkins(window, next);
    MeasurePanels(window, *tree, pixels, next);
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
