#pragma once

#include "browse/Filters.h"
#include "core/AppState.h"
#include "core/Dialogs.h"
#include "core/TextEntry.h"
#include "store/Connection.h"

#include <QDialog>
#include <QList>

#include <functional>
#include <memory>

namespace Ui {
class TxtExport;
}

namespace kelvado {

class ExportRun;
class Skinner;
struct TextField;

/// "Text Export": the user puts the lines of a text file together and writes the open catalog by them.
class TxtExport : public QDialog
{
    Q_OBJECT
public:
    /// What the window works on; all of it outlives it.
    struct Context
    {
        AppState& state;
        Dialogs& dialogs;
        const Skinner& skinner;
        ExportRun& run;
    };
    /// Raises where the catalog cannot be read.
    TxtExport(const Context& context, QWidget* parent);
    ~TxtExport() override;

    void reject() override;

private:
    /// Calls `handler` when the signal comes, and tells what it raises.
    template<typename Sender, typename Signal>
    void On(const Sender* sender, Signal signal, void (TxtExport::*handler)());
    void Run(void (TxtExport::*handler)());
    void FillChoices();
    void EnableControls();
    const TextField* SelectedField() const;
    void AddField();
    void AddEntry(const TextEntry& entry, const QString& rowKind);
    QList<TextEntry> Entries() const;
    void AddFilter();
    void RemoveFilter();
    void RemoveAllFilters();
    void ShowFilters();
    void LoadTemplate();
    void SaveTemplate();
    /// Lets the user choose a file to write. False where it shall not be replaced; raises `kErrCancelled` for a cancel and
    /// `kErrFileAccess` for the open catalog itself.
    bool ChooseTarget(FileDialog& dialog);
    void Export();
    Connection OpenFilms() const { return OpenCatalog(m_context.state.CatalogPath()); }

    std::unique_ptr<Ui::TxtExport> m_ui;
    Context m_context;
    FileDialog m_template;
    FileDialog m_text;
    QList<FilterRecord> m_filters;
};

} // namespace kelvado
