#include "render/forms/ExportRun.h"

#include "core/Afterwards.h"
#include "core/Literals.h"
#include "web/forms/ShowAbove.h"
#include "web/forms/frmProgress.h"

#include <QDir>
#include <QFileInfo>
#include <QTimer>

#include <utility>

namespace kelvado {

namespace {

constexpr qint64 kServeEvery = 5;  // films
constexpr qint64 kShowEvery = 100; // milliseconds
constexpr qsizetype kMostNamed = 10;

/// Says how many things are missing and names the first of them.
QString MissingText(const QStringList& missing)
{
    if (missing.isEmpty())
        return {};
    QString text = u"\r\n\r\nNot written: %1\r\n"_s.arg(missing.size()) + missing.first(qMin(missing.size(), kMostNamed)).join(u"\r\n"_s);
    if (missing.size() > kMostNamed)
        text += u"\r\n…"_s;
    return text;
}

} // namespace

ExportRun::ExportRun(const Context& context) : m_context(context) {}

ExportRun::~ExportRun() = default;

void ExportRun::End(std::function<void()> what)
{
    m_afterRun = std::move(what);
    m_cancelled = true;
}

void ExportRun::Run(QWidget& owner, const Texts& texts, const Job& job)
{
    if (IsBusy())
        return;
    m_cancelled = false;
    ExportDone done;
    bool isLeft = false;
    Afterwards([&] { done = RunJob(owner, texts, job); },
               [&] {
                   isLeft = m_afterRun != nullptr;
                   if (isLeft)
                       QTimer::singleShot(0, this, std::exchange(m_afterRun, nullptr));
               });
    if (!isLeft)
        TellEnd(done, texts);
}

ExportDone ExportRun::RunJob(QWidget& owner, const Texts& texts, const Job& job)
{
    ExportDone done;
    m_context.shell.EnableMainWindow(false);
    m_context.shell.ShowWorking(true);
    Afterwards(
        [&] {
            m_progress = std::make_unique<frmProgress>(&owner);
            m_progress->setWindowTitle(texts.window);
            m_progress->ShowStage({}, texts.work, 0);
            m_context.skinner.SkinForm(*m_progress);
            connect(m_progress.get(), &frmProgress::CancelAsked, this, [this] { m_cancelled = true; });
            ShowAbove(*m_progress, owner);
            QElapsedTimer shown;
            done = job([&](const ExportStep& step) { return ShowStep(step, texts.work, shown); });
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
bool ExportRun::ShowStep(const ExportStep& step, const QString& work, QElapsedTimer& shown)
{
    const int percent = step.count > 0 ? static_cast<int>(step.film * 100 / step.count) : 0;
    m_context.shell.ShowProgress(percent);
    if (!shown.isValid() || shown.elapsed() >= kShowEvery) {
        shown.start();
        m_progress->ShowFilm(step.title.simplified()); // in one line
        m_progress->ShowStage(u"Film %1 of %2"_s.arg(step.film).arg(step.count), work, percent);
    }
    if (step.film % kServeEvery == 0)
        m_context.events.ServeEvents();
    return !m_cancelled;
}

void ExportRun::TellEnd(const ExportDone& done, const Texts& texts)
{
    const QString missing = MissingText(done.missing);
    if (done.whole)
        return m_context.dialogs.TellMade(texts.success + missing, texts.title, done.path);
    QString text = u"The export was cancelled after %1 of %2 films. "_s.arg(done.films).arg(done.count) + texts.cancelled;
    if (done.pictures > 0)
        text +=
            u"\r\nPictures written so far: %1, below %2"_s.arg(done.pictures).arg(QDir::toNativeSeparators(QFileInfo(done.path).path()));
    m_context.dialogs.MessageBox(text + missing, kBoxInformation, texts.title);
}

} // namespace kelvado
