#pragma once

#include "core/Dialogs.h"
#include "web/forms/frmProgress.h"
#include "web/retrieval/FilmDesk.h"

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

    /// What asks whether to cancel, and cancels; true where the window is to hide.
    void SetAskCancel(std::function<bool()> askCancel) { m_askCancel = std::move(askCancel); }

    void Open() override;
    void Close() override;
    void ShowFilm(const QString& title) override;
    void ShowStage(const QString& filmOf, const QString& stage, int percent) override;

private:
    void AskCancel();

    QWidget& m_owner;
    Dialogs& m_dialogs;
    std::function<void(QWidget&)> m_skin;
    std::function<bool()> m_askCancel;
    std::unique_ptr<frmProgress> m_window;
    bool m_asking = false;
};

} // namespace kelvado
