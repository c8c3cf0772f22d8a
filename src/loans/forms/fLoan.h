#pragma once

#include "core/FilmId.h"
#include "loans/LoanContext.h"
#include "loans/LoanModel.h"

#include <QDialog>

#include <memory>

class QShortcut;

namespace Ui {
class fLoan;
}

namespace kelvado {

class Skinner;
class fLoanAdd;

/// "Loans Manager": the list of all loans, with a row of buttons to lend, take back, edit and delete. It is filled when it is made. What
/// fails is shown in a message box and leaves the window open.
class fLoan : public QDialog
{
    Q_OBJECT
public:
    /// `skinner` outlives the window; it paints the entry dialog and gives the buttons their pictures. The window itself is painted by
    /// whoever opens it.
    fLoan(const LoanContext& context, const Skinner& skinner, QWidget* parent);
    ~fLoan() override;

    /// Reads the list anew; the selected loan stays selected if it is still there. Raises what `LoanModel::Refresh` raises.
    void Loans_Refresh();

protected:
    bool event(QEvent* event) override;

private:
    void AddButtons();
    /// Gives the buttons the pictures of the present skin.
    void PaintButtons();
    /// The buttons that act on a loan are on while one is selected.
    void EnableButtons();
    void SizeColumns();
    void OnButton(const QString& key);
    /// Runs a handler's routine and shows what it raises.
    void Run(void (fLoan::*routine)());
    void CheckOut();
    void CheckIn();
    void Edit();
    void Delete();
    /// The `Loan_ID` of the selected row; raises `kErrObjectNotSet` where no row is selected.
    qint64 SelectedLoan();
    bool ShowsOtherCatalog() const;

    std::unique_ptr<Ui::fLoan> m_ui;
    LoanContext m_context;
    const Skinner& m_skinner;
    LoanModel m_model;
    QShortcut* m_deleteKey = nullptr;
    QString m_triedPath; ///< the catalog that the window last went over to
};

/// Lets the user lend the film `movieId`, above `parent`. Raises `kErrNoCurrentRecord` where there is no such film.
void LoanFilm(FilmId movieId, const LoanContext& context, const Skinner& skinner, QWidget* parent);

} // namespace kelvado
