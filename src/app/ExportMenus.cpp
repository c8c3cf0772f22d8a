#include "app/ExportMenus.h"

#include "core/Afterwards.h"
#include "core/Guard.h"
#include "core/Literals.h"
#include "core/Paths.h"
#include "render/SiteAddress.h"
#include "store/mFileAccess.h"
#include "web/forms/ShowAbove.h"
#include "web/forms/frmProgress.h"

#include <QDir>
#include <QTimer>

#include <utility>

namespace kelvado {

namespace {

constexpr qint64 kServeEvery = 5;  // films
constexpr qint64 kShowEvery = 100; // milliseconds
constexpr const char* kXml = "mnuExportXML";
const QString kWriting = u"Writing films and pictures…"_s;

} // namespace

ExportMenus::ExportMenus(const Context& context) : m_context(context)
{
    connect(&context.menus.Entry(QString::fromLatin1(kXml)), &QAction::triggered, this,
            [this] { Guarded(m_context.dialogs, [this] { ExportXml(); }); });
}

ExportMenus::~ExportMenus() = default;

void ExportMenus::EndExport(std::function<void()> what)
{
    m_afterExport = std::move(what);
    m_cancelled = true;
}

void ExportMenus::ExportXml()
{
    if (IsBusy() || m_context.state.CatalogPath().isEmpty())
        return;
    m_context.askAboutChanges();
    const QString folder = BrowseForFolder(u"Select Save Directory..."_s, m_context.dialogs);
    if (folder.isEmpty())
        return;
    m_cancelled = false;
    XmlExport done;
    bool isLeft = false;
    Afterwards([&] { done = WriteXml(folder); },
               [&] {
                   isLeft = m_afterExport != nullptr;
                   if (isLeft)
                       QTimer::singleShot(0, this, std::exchange(m_afterExport, nullptr));
               });
    if (!isLeft)
        TellEnd(done, folder);
}

XmlExport ExportMenus::WriteXml(const QString& folder)
{
    XmlExport done;
    m_context.shell.EnableMainWindow(false);
    m_context.shell.ShowWorking(true);
    Afterwards(
        [&] {
            m_progress = std::make_unique<frmProgress>(&m_context.window);
            m_progress->setWindowTitle(u"XML Export"_s);
            m_progress->ShowStage({}, kWriting, 0);
            m_context.skinner.SkinForm(*m_progress);
            connect(m_progress.get(), &frmProgress::CancelAsked, this, [this] { m_cancelled = true; });
            ShowAbove(*m_progress, m_context.window);
            QElapsedTimer shown;
            Connection catalog = OpenCatalog(m_context.state.CatalogPath());
            done = BuildCatalogXml(folder, catalog, {m_context.state.skin, SiteAddress(SettingsFile())},
                                   [&](const XmlStep& step) { return ShowStep(step, shown); });
        },
        [this] {
            LetGo(std::move(m_progress));
            m_context.shell.ShowProgress(0);
            m_context.shell.ShowWorking(false);
            m_context.shell.EnableMainWindow(true);
        });
    return done;
}

// The film's line is painted at a pace that can be read; painting it for each film would take longer than writing them.
bool ExportMenus::ShowStep(const XmlStep& step, QElapsedTimer& shown)
{
    const int percent = static_cast<int>(step.film * 100 / step.count);
    m_context.shell.ShowProgress(percent);
    if (!shown.isValid() || shown.elapsed() >= kShowEvery) {
        shown.start();
        m_progress->ShowFilm(step.title);
        m_progress->ShowStage(u"Film %1 of %2"_s.arg(step.film).arg(step.count), kWriting, percent);
    }
    if (step.film % kServeEvery == 0)
        m_context.events.ServeEvents();
    return !m_cancelled;
}

void ExportMenus::TellEnd(const XmlExport& done, const QString& folder)
{
    if (done.whole) {
        m_context.dialogs.MessageBox(u"Data Export Completed Successfully"_s, kBoxInformation);
        return;
    }
    m_context.dialogs.MessageBox(
        u"The export was cancelled after %1 of %2 films. MyMovies.XML was not written; an older one is as it was.\r\n"
        "Pictures written so far: %3, in %4"_s.arg(done.films)
            .arg(done.count)
            .arg(done.pictures)
            .arg(QDir::toNativeSeparators(folder + u"/images"_s)),
        kBoxInformation);
}

} // namespace kelvado
