#pragma once

#include <QByteArray>
#include <QString>

namespace kelvado {

/// The web, as three fetchers. Each returns when the answer is there and keeps the window alive until then, so that handlers may run in
/// the middle of a fetch: a handler that fetches guards itself against being entered twice. Texts are decoded as Windows-1252.
/// All of them raise `kErrCancelled` where the program ends while they wait, and behind an `Abort`.
class Transport
{
public:
    virtual ~Transport() = default;

    /// The whole last answer of a chain of redirects: status line, headers and body. A connection that fails is told in a message box;
    /// the result is then what has arrived. For the empty address nothing happens, and the answer before it is returned again.
    /// Raises `kErrInvalidCall` for a redirect that has no end of line.
    virtual QString Get_HTML(const QString& url) = 0;
    /// Whether a message told of the last `Get_HTML` that it failed.
    virtual bool FailureTold() const = 0;

    /// The body of a page, whatever its status says; "" where the page could not be fetched to its end, which is the only sign of it.
    virtual QString GetUrl(const QString& url) = 0;

    /// The bytes of a picture; "" where it could not be fetched to its end and where the answer is the page of an error.
    virtual QByteArray OpenURL(const QString& url) = 0;

    /// Ends the fetch that waits for an answer, whichever it is, as the end of the program would; nothing where none waits.
    virtual void Abort() = 0;
};

} // namespace kelvado
