#pragma once

#include <QLocalServer>
#include <QLockFile>
#include <QObject>

namespace kelvado {

/// One program to a program folder: two would write each other's pages and settings. The second brings the first one's window to the
/// front and ends.
class OnlyProgram : public QObject
{
    Q_OBJECT
public:
    /// `home` is the program folder.
    explicit OnlyProgram(const QString& home, QObject* parent = nullptr);

    /// True for the first program. Also where the folder takes no lock file, as a read-only one.
    bool IsFirst() const { return m_isFirst; }
    /// True for a second program whose call the first one did not take.
    bool IsUnheard() const { return m_isUnheard; }

Q_SIGNALS:
    /// Another program was started with this folder.
    void Called();

private:
    QLockFile m_lock;
    QLocalServer m_server;
    bool m_isFirst;
    bool m_isUnheard = false;
};

} // namespace kelvado
