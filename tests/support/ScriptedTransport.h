#pragma once

#include "core/Transport.h"
#include "support/ErrorOf.h"

#include <QHash>
#include <QStringList>

#include <functional>

namespace kelvado {

/// Answers each address from a table made beforehand, with nothing where it has none, and keeps what was asked.
class ScriptedTransport : public Transport
{
public:
    QString Get_HTML(const QString& url) override
    {
        if (!url.isEmpty()) {
            Note(u"Get_HTML "_s, url);
            htmlDoc = pages.value(url);
        }
        return htmlDoc;
    }
    bool FailureTold() const override { return failureTold; }
    void Abort() override { aborted = true; }
    QString GetUrl(const QString& url) override
    {
        Note(u"GetUrl "_s, url);
        return pages.value(url);
    }
    QByteArray OpenURL(const QString& url) override
    {
        Note(u"OpenURL "_s, url);
        return pictures.value(url);
    }

    QHash<QString, QString> pages;
    QHash<QString, QByteArray> pictures;
    QStringList requests;             ///< "GetUrl http://host/path"
    std::function<void()> duringEach; ///< runs while a fetch waits
    QString htmlDoc;
    bool failureTold = false;
    bool aborted = false; ///< the last fetch, which then raises as the real ones do

private:
    void Note(const QString& fetcher, const QString& url)
    {
        requests << fetcher + url;
        aborted = false;
        if (duringEach)
            duringEach();
        if (aborted)
            throw RuntimeError(kErrCancelled);
    }
};

} // namespace kelvado
