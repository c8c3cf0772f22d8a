#pragma once

#include "support/ErrorOf.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace kelvado {

inline QByteArray FileContent(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

/// A program folder of its own for the length of a test: `AppPath` points there.
class TempHome
{
public:
    TempHome() : m_before(qgetenv("KELVADO_HOME")) { qputenv("KELVADO_HOME", m_folder.path().toUtf8()); }
    ~TempHome()
    {
        if (m_before.isNull())
            qunsetenv("KELVADO_HOME");
        else
            qputenv("KELVADO_HOME", m_before);
    }
    TempHome(const TempHome&) = delete;
    TempHome& operator=(const TempHome&) = delete;

    QString Path(const QString& name) const { return m_folder.filePath(name); }

    void Write(const QString& name, const QByteArray& content) const
    {
        QDir().mkpath(QFileInfo(Path(name)).path());
        QFile file(Path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << qPrintable(Path(name));
        file.write(content);
    }

    QByteArray Read(const QString& name) const { return FileContent(Path(name)); }

private:
    QTemporaryDir m_folder;
    QByteArray m_before;
};

} // namespace kelvado
