#pragma once

#include "browse/Filters.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmFilter;
}

namespace kelvado {

/// "Add Filter": the user puts one condition on the films together.
class frmFilter : public QDialog
{
    Q_OBJECT
public:
    /// `dialogs` outlives the window.
    explicit frmFilter(Dialogs& dialogs, QWidget* parent = nullptr);
    ~frmFilter() override;

    /// Shows the dialog and returns the condition; its `WhereText` is "0" where the user cancelled.
    FilterRecord ShowAndRead();

private:
    const FilmElement* Element() const;
    void OnSelect();
    void OnAdd();

    std::unique_ptr<Ui::frmFilter> m_ui;
    Dialogs& m_dialogs;
};

} // namespace kelvado
