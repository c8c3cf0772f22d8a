#pragma once

#include "core/AppState.h"
#include "core/Dialogs.h"
#include "core/Shell.h"
#include "ui/Skinner.h"
#include "web/forms/StepRun.h"

#include <QDialog>
#include <QStringListModel>

#include <memory>

namespace Ui {
class frmImpTitles;
}

namespace kelvado {

/// Stores a film of nothing but its title for each line of text files.
class frmImpTitles : public QDialog
{
    Q_OBJECT
public:
    /// What the window works with; all of it outlives the window.
    struct Context
    {
        AppState& state;
        Dialogs& dialogs;
        Shell& shell;
        StepRun& run;
        const Skinner& skinner;
    };
    frmImpTitles(const Context& context, QWidget* parent);
    ~frmImpTitles() override;

    /// A run under way keeps the window: it is cancelled in the progress window.
    void reject() override;

private:
    void SelectFile();
    void AddMovies();
    void Import();
    void ShowTitles(const QStringList& titles);

    std::unique_ptr<Ui::frmImpTitles> m_ui;
    Context m_context;
    QStringListModel m_titles;
    FileDialog m_file;
};

} // namespace kelvado
