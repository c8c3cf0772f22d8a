#pragma once

#include <QDialog>
#include <QString>

#include <memory>

namespace Ui {
class frmSortCustom;
}

namespace kelvado {

/// "Custom Sort Selection": the user chooses a column to sort by.
class frmSortCustom : public QDialog
{
    Q_OBJECT
public:
    explicit frmSortCustom(QWidget* parent = nullptr);
    ~frmSortCustom() override;

    /// Shows the dialog and returns the chosen column key, "0" where nothing was chosen.
    QString ShowAndRead();

private:
    void OnSelect();

    std::unique_ptr<Ui::frmSortCustom> m_ui;
    QString m_result;
};

} // namespace kelvado
