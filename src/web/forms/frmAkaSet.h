#pragma once

#include "core/Dialogs.h"

#include <QDialog>
#include <QStringList>

#include <memory>
#include <optional>

namespace Ui {
class frmAkaSet;
}

namespace kelvado {

/// The user chooses one of a film's titles.
class frmAkaSet : public QDialog
{
    Q_OBJECT
public:
    /// `dialogs` outlives the window.
    frmAkaSet(const QStringList& titles, Dialogs& dialogs, QWidget* parent = nullptr);
    ~frmAkaSet() override;

    /// Shows the dialog and returns the place of the chosen title; nothing where the user closed the window.
    std::optional<qsizetype> ShowAndRead();

private:
    void OnOkay();

    std::unique_ptr<Ui::frmAkaSet> m_ui;
    Dialogs& m_dialogs;
};

} // namespace kelvado
