#pragma once

#include "core/Shell.h"

#include <QStringList>

namespace kelvado {

/// Writes down what it is told, one line a call.
class RecordingShell : public Shell
{
public:
    void RefreshCatalogTree() override { calls << QStringLiteral("RefreshCatalogTree"); }
    void ShowSelection() override { calls << QStringLiteral("ShowSelection"); }
    void ApplyMenuRules() override { calls << QStringLiteral("ApplyMenuRules"); }
    void PushHistory(const QString& key, const QString& section, const QString& page) override
    {
        calls << QStringLiteral("PushHistory %1 %2 %3").arg(key, section, page);
    }
    void UpdateStatus(bool recount) override { calls << QStringLiteral("UpdateStatus %1").arg(recount); }
    void ShowWorking(bool busy) override { calls << QStringLiteral("ShowWorking %1").arg(busy); }
    void ShowProgress(int percent) override { lastProgress = percent; }
    void EnableMainWindow(bool enabled) override { calls << QStringLiteral("EnableMainWindow %1").arg(enabled); }
    void RetitleSelectedNode(const QString& title) override { calls << QStringLiteral("Retitle %1").arg(title); }
    void RekeySelectedNode(qint64 movieId) override { calls << QStringLiteral("Rekey %1").arg(movieId); }

    QStringList calls;
    int lastProgress = -1;
};

} // namespace kelvado
