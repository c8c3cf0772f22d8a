#pragma once

#include "core/Literals.h"
#include "core/Shell.h"

#include <QStringList>

namespace kelvado {

/// Writes down what it is told, one line a call.
class RecordingShell : public Shell
{
public:
    void RefreshCatalogTree() override { calls << u"RefreshCatalogTree"_s; }
    void ShowSelection() override { calls << u"ShowSelection"_s; }
    void ApplyMenuRules() override { calls << u"ApplyMenuRules"_s; }
    void UpdateStatus(bool recount) override { calls << u"UpdateStatus %1"_s.arg(recount); }
    void ShowStatusText(const QString& text) override { lastStatus = text; }
    void ShowWorking(bool busy) override { calls << u"ShowWorking %1"_s.arg(busy); }
    void ShowProgress(int percent) override { lastProgress = percent; }
    void EnableMainWindow(bool enabled) override { calls << u"EnableMainWindow %1"_s.arg(enabled); }
    void RetitleSelectedNode(FilmId movieId, const QString& title) override { calls << u"Retitle %1 %2"_s.arg(movieId).arg(title); }
    void RekeySelectedNode(FilmId movieId) override { calls << u"Rekey %1"_s.arg(movieId); }

    QStringList calls;
    QString lastStatus;
    int lastProgress = -1;
};

} // namespace kelvado
