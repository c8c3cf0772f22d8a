#pragma once

#include "core/Dialogs.h"
#include "web/forms/frmProgress.h"
#include "web/retrieval/mIMDB.h"

#include <functional>
#include <memory>

namespace kelvado {

/// Shows the progress of runs in a `frmProgress` above the main window: a new one for each run, so that it can be worked with while the
/// main window and its other windows are disabled.
class FilmProgress : public RetrievalProgress
{
public:
    /// All of it outlives this object; `skin` paints a new window.
    FilmProgress(QWidget& owner, Dialogs& dialogs, std::function<void(QWidget&)> skin);
    ~FilmProgress() override;

    /// The run that a cancel marks; it outlives the runs.
    void SetBatch(RetrievalBatch& batch) { m_batch = &batch; }

    void Open() override;
    void Close() override;
    void ShowFilm(const QString& title) override;
    void ShowStage(const QString& filmOf, const QString& stage, int percent) override;

private:
    void AskCancel();

    QWidget& m_owner;
    Dialogs& m_dialogs;
    std::function<void(QWidget&)> m_skin;
    RetrievalBatch* m_batch = nullptr;
    std::unique_ptr<frmProgress> m_window;
    bool m_asking = false;
};

} // namespace kelvado
