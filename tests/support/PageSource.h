#pragma once

#include "core/Literals.h"

#include <QProcess>
#include <QStringList>

#include <stdexcept>

namespace kelvado {

/// The page source itself, running beside the test on a free port of this machine. It ends with this object.
class PageSource
{
public:
    /// `folder` is where the program and its delivered data lie; `options` go to its job "serve".
    /// Throws std::runtime_error where it does not come up.
    explicit PageSource(const QString& folder, const QStringList& options = {})
    {
        m_program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_program.start(folder + u"/kelvado-pagesource"_s, QStringList{u"serve"_s, u"--port"_s, u"0"_s} + options);
        if (!m_program.waitForReadyRead(kPatience))
            throw std::runtime_error("the page source does not start");
        const QString line = QString::fromUtf8(m_program.readLine()).trimmed(); // "Serving FILE on http://HOST:PORT/"
        m_host = line.section(u"http://"_s, 1).chopped(1);
    }
    ~PageSource()
    {
        m_program.terminate();
        m_program.waitForFinished(kPatience);
    }
    Q_DISABLE_COPY_MOVE(PageSource)

    /// Host and port.
    const QString& Host() const { return m_host; }

private:
    static constexpr int kPatience = 15'000;
    QProcess m_program;
    QString m_host;
};

} // namespace kelvado
