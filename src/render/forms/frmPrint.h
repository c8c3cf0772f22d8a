#pragma once

#include "core/Dialogs.h"

#include <QDialog>

#include <functional>
#include <memory>

namespace Ui {
class frmPrint;
}

namespace kelvado {

/// "Print Preview": prints the fixed pages of "keldb3.mdb" beside the program, one after the other, without a question. No entry opens it.
class frmPrint : public QDialog
{
    Q_OBJECT
public:
    /// Prints the page that is shown.
    using PrintPage = std::function<void(const QString& path)>;

    /// Shows "print.html" of the program's folder.
    frmPrint(Dialogs& dialogs, PrintPage print, QWidget* parent);
    ~frmPrint() override;

private:
    void Print();
    void PrintPages();

    std::unique_ptr<Ui::frmPrint> m_ui;
    Dialogs& m_dialogs;
    PrintPage m_print;
};

} // namespace kelvado
