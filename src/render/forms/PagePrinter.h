#pragma once

#include <QObject>
#include <QString>

#include <functional>
#include <memory>

class QPrinter;
class QWebEngineView;

namespace kelvado {

class PageDocument;
class PageProfile;

/// Prints a page file through the browser engine, without showing it. Both routines serve events until the work is done, and ask
/// `goesOn` several times a second; they return false as soon as it does. They raise `kErrFileAccess` with the path of a page that cannot
/// be loaded, or of what cannot be written.
class PagePrinter : public QObject
{
    Q_OBJECT
public:
    explicit PagePrinter(QObject* parent = nullptr);
    ~PagePrinter() override;

    /// Writes the page as a PDF file, beside its target and renamed when it is whole.
    bool ToPdf(const QString& page, const QString& target, const std::function<bool()>& goesOn);
    /// Prints the page without a further question. `printer` is used until the routine returns.
    bool ToPrinter(const QString& page, QPrinter& printer, const std::function<bool()>& goesOn);

private:
    enum class State { Waiting, Done, Failed };
    bool Load(const QString& page, const std::function<bool()>& goesOn);
    bool Wait(const std::function<bool()>& goesOn);
    void End(bool well) { m_state = well ? State::Done : State::Failed; }

    std::unique_ptr<PageProfile> m_profile;
    std::unique_ptr<PageDocument> m_document; // goes before its profile
    std::unique_ptr<QWebEngineView> m_view;   // goes before its page
    State m_state = State::Done;
};

} // namespace kelvado
