#pragma once

#include "core/Dialogs.h"
#include "render/export/PackageExport.h"
#include "render/export/cTemplate.h"

#include <QDialog>

#include <functional>
#include <memory>

class QPushButton;

namespace Ui {
class frmExportWeb;
}

namespace kelvado {

/// "Web Export - Standard View": shows the template packages below the program's folder and asks how they are to be used, page by page.
/// Its last page closes it; only the button on that page starts an export.
class frmExportWeb : public QDialog
{
    Q_OBJECT
public:
    struct Context
    {
        Dialogs& dialogs;
        /// Shows a picture in the desktop's own program.
        std::function<void(const QString& path)> openFile;
        /// Exports the open catalog by what was chosen; null where none can be exported.
        std::function<void(const WebChoice& choice)> exportFilms;
    };
    frmExportWeb(Context context, QWidget* parent);
    ~frmExportWeb() override;

    /// An export holds the window until it has ended.
    void reject() override;

private:
    void Connect(QPushButton& button, void (frmExportWeb::*handler)());
    void ListTemplates();
    void SelectTemplate();
    void ShowSettings(bool known);
    void ShowPage(int page);
    void GoOn();
    void ShowFullScreen();
    void SaveFiles();
    void Export();
    int LastPage() const;

    std::unique_ptr<Ui::frmExportWeb> m_ui;
    Context m_context;
    cTemplate m_template;
    bool m_isReadable = false; ///< the selected template can be used
};

} // namespace kelvado
