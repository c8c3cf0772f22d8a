#pragma once

#include "core/AppState.h"
#include "core/Dialogs.h"
#include "core/Shell.h"

namespace kelvado {

/// How a catalog file comes to be open: New, Open, Save As and Set default, with their questions. A cancelled dialog ends each of them
/// quietly. A copy is written beside its target and takes its place when it is whole, so a failure leaves the target as it was; the open
/// catalog is then the one that the tree shows, and the failure goes to the caller.
class CatalogFile
{
public:
    CatalogFile(AppState& state, Dialogs& dialogs, Shell& shell);

    /// Asks for a path and puts a blank catalog there. The path is the open catalog's from then on, even where the user
    /// does not want to overwrite a file.
    void New();
    /// Asks for a catalog, builds the tree, and only then counts the catalog as open. What the tree raises goes to the caller.
    void Open();
    /// Copies the open catalog to a new path and works on from there.
    void SaveAs();
    /// Makes the open catalog the one that is opened at start.
    void SetDefault();

private:
    bool ChooseFile(void (Dialogs::*show)(FileDialog&), const QString& proposal);
    bool MayReplace(const QString& title);
    void CopyToChosen(const QString& source);

    AppState& m_state;
    Dialogs& m_dialogs;
    Shell& m_shell;
};

} // namespace kelvado
