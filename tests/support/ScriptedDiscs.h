#pragma once

#include "core/Discs.h"
#include "support/ErrorOf.h"

#include <QHash>
#include <QStringList>

namespace kelvado {

/// Drives that a test fills, empties and looks at.
class ScriptedDiscs : public Discs
{
public:
    QList<DiscDrive> Drives() override { return drives; }
    QString WhyNoDrives() const override { return drives.isEmpty() ? whyNone : QString(); }
    QString FolderOf(const QString& root) override
    {
        if (const QString reason = faults.value(root); !reason.isEmpty())
            throw RuntimeError::WithDetail(kErrFileAccess, root + u" ("_s + reason + u')');
        return folders.value(root);
    }
    QString Eject(const QString& root) override
    {
        ejected << root;
        return faults.value(root);
    }
    void Watch(std::function<void(std::int32_t action)> changed) override { watcher = std::move(changed); }

    /// Tells the watcher, if there is one.
    void Tell(std::int32_t action) const
    {
        if (watcher)
            watcher(action);
    }

    QList<DiscDrive> drives;
    QString whyNone;
    QHash<QString, QString> folders, faults; ///< by roots
    QStringList ejected;
    std::function<void(std::int32_t action)> watcher;
};

} // namespace kelvado
