#include "render/forms/PagePrinter.h"

#include "core/Literals.h"
#include "core/RuntimeError.h"
#include "render/forms/PageEngine.h"

#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QMarginsF>
#include <QPageLayout>
#include <QPageSize>
#include <QPrinter>
#include <QTimer>
#include <QWebEngineView>

#include <cstdio>

namespace kelvado {

namespace {

constexpr int kAskEvery = 100; // milliseconds
constexpr double kMargin = 12; // millimetres

[[noreturn]] void RaiseAccess(const QString& path, const QString& reason)
{
    throw RuntimeError::WithDetail(kErrFileAccess, path + u" ("_s + reason + u')');
}

QPageLayout Paper()
{
    const bool isMetric = QLocale().measurementSystem() == QLocale::MetricSystem;
    return QPageLayout(QPageSize(isMetric ? QPageSize::A4 : QPageSize::Letter), QPageLayout::Portrait,
                       QMarginsF(kMargin, kMargin, kMargin, kMargin), QPageLayout::Millimeter);
}

} // namespace

PagePrinter::PagePrinter(QObject* parent)
    : QObject(parent), m_profile(std::make_unique<PageProfile>()), m_document(std::make_unique<PageDocument>(m_profile.get())),
      m_view(std::make_unique<QWebEngineView>())
{
    m_view->setPage(m_document.get());
    connect(m_document.get(), &QWebEnginePage::loadFinished, this, &PagePrinter::End);
    connect(m_document.get(), &QWebEnginePage::pdfPrintingFinished, this, [this](const QString&, bool well) { End(well); });
    connect(m_view.get(), &QWebEngineView::printFinished, this, &PagePrinter::End);
    connect(m_document.get(), &QWebEnginePage::renderProcessTerminated, this, [this] { End(false); });
}

PagePrinter::~PagePrinter() = default;

bool PagePrinter::ToPdf(const QString& page, const QString& target, const std::function<bool()>& goesOn)
{
    if (!Load(page, goesOn))
        return false;
    const QString part = target + u".part"_s;
    QFile file(part); // the engine tells of no reason
    if (!file.open(QIODevice::WriteOnly))
        RaiseAccess(target, file.errorString());
    file.close();
    m_state = State::Waiting;
    m_document->printToPdf(part, Paper());
    if (!Wait(goesOn)) {
        file.remove();
        return false;
    }
    const bool isWhole = m_state == State::Done && file.size() > 0;
    if (isWhole && std::rename(QFile::encodeName(part).constData(), QFile::encodeName(target).constData()) == 0)
        return true;
    const QString reason = isWhole ? qt_error_string() : u"the file could not be written"_s;
    file.remove();
    RaiseAccess(target, reason);
}

bool PagePrinter::ToPrinter(const QString& page, QPrinter& printer, const std::function<bool()>& goesOn)
{
    if (!Load(page, goesOn))
        return false;
    m_state = State::Waiting;
    m_view->print(&printer);
    // The engine holds the printer until it is done, so a cancel must wait for that.
    const bool isWanted = Wait(goesOn);
    while (m_state == State::Waiting)
        Wait([] { return true; });
    if (m_state == State::Failed)
        RaiseAccess(printer.outputFileName().isEmpty() ? printer.printerName() : printer.outputFileName(), u"printing failed"_s);
    return isWanted;
}

bool PagePrinter::Load(const QString& page, const std::function<bool()>& goesOn)
{
    if (!QFileInfo(page).isFile())
        RaiseAccess(page, u"there is no such page"_s);
    m_state = State::Waiting;
    m_document->Open(QUrl::fromLocalFile(page));
    if (!Wait(goesOn))
        return false;
    if (m_state == State::Failed)
        RaiseAccess(page, u"the page cannot be loaded"_s);
    return true;
}

bool PagePrinter::Wait(const std::function<bool()>& goesOn)
{
    while (m_state == State::Waiting) {
        QEventLoop loop;
        QTimer::singleShot(kAskEvery, &loop, &QEventLoop::quit);
        loop.exec();
        if (!goesOn())
            return false;
    }
    return true;
}

} // namespace kelvado
