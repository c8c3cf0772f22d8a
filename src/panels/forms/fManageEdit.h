#pragma once

#include "panels/ManagedList.h"

#include <QDialog>

#include <functional>
#include <memory>

namespace Ui {
class fManageEdit;
}

namespace kelvado {

class Dialogs;

/// "Edit Item": the values of one row of a managed list, each labelled with its column head.
class fManageEdit : public QDialog
{
    Q_OBJECT
public:
    /// `texts` are the present values, none for a new row. "Okay" hands the new ones to `store`; what that raises is shown, and the window
    /// stays open.
    fManageEdit(const ManagedList& list, const QStringList& texts, std::function<void(const QStringList&)> store, Dialogs& dialogs,
                QWidget* parent);
    ~fManageEdit() override;

private:
    QStringList Texts() const;
    void Okay();

    std::unique_ptr<Ui::fManageEdit> m_ui;
    std::function<void(const QStringList&)> m_store;
    Dialogs& m_dialogs;
};

} // namespace kelvado
