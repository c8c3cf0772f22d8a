#include "render/forms/ExportRun.h"

#include "core/Literals.h"

#include <QDir>
#include <QFileInfo>

namespace kelvado {

namespace {

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

ExportRun::ExportRun(const Context& context) : m_context(context), m_steps({context.events, context.shell, context.skinner}) {}

void ExportRun::Run(QWidget& owner, const Texts& texts, const Job& job)
{
    ExportDone done;
    const auto showStep = [this](const ExportStep& step) {
        return m_steps.Show(step.title, u"Film %1 of %2"_s.arg(step.film).arg(step.count), step.film, step.count);
    };
    if (m_steps.Run(owner, {texts.window, texts.work}, [&] { done = job(showStep); }) && !m_steps.IsLeft())
        TellEnd(done, texts);
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
