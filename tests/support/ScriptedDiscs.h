#pragma once

#include "core/Discs.h"
#include "support/ErrorOf.h"

#include <QHash>
#include <QStringList>

namespace kelvado {

/// Drives that a test fills, empties and looks at. A drive with a fault cannot be read or opened.
class ScriptedDiscs : public Discs
{
public:
    QList<DiscDrive> Drives() override { return drives; }
    QString WhyNoDrives() const override { return drives.isEmpty() ? whyNone : QString(); }
    QString FolderOf(const QString& root) override
    {
        return faults.contains(root) ? throw RuntimeError(kErrFileAccess, faults[root]) : folders.value(root);
    }
    QString Eject(const QString& root) override
    {
        ejected << root;
        return faults.value(root);
    }
    void Watch(std::function<void(std::int32_t action)> changed) override { watcher = std::move(changed); }

    void Tell(std::int32_t action) const { watcher(action); }

    QList<DiscDrive> drives;
    QString whyNone;
    QHash<QString, QString> folders, faults; ///< by roots
    QStringList ejected;
    std::function<void(std::int32_t action)> watcher; ///< empty where nobody watches
};

} // namespace kelvado
