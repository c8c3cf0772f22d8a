#pragma once

#include "core/FilmId.h"
#include "loans/LoanContext.h"
#include "loans/LoanEntry.h"

#include <QDialog>

#include <memory>

namespace Ui {
class fLoanAdd;
}

namespace kelvado {

/// "Loan A Movie": the entry of a new loan, or of the changed terms of an open one. One of the three routines that fill it is called
/// before it is shown; they raise what the catalog raises.
class fLoanAdd : public QDialog
{
    Q_OBJECT
public:
    fLoanAdd(LoanMode mode, const LoanContext& context, QWidget* parent);
    ~fLoanAdd() override;

    void Load_NewLoan();
    void Load_DirectLoan(FilmId movieId);
    void Edit_Loan(qint64 loanId);

private:
    void PrepareBorrowers();
    void Fill(const LoanEntry& entry);
    LoanAnswer Answer() const;
    void Okay();

    std::unique_ptr<Ui::fLoanAdd> m_ui;
    LoanMode m_mode;
    LoanContext m_context;
};

} // namespace kelvado
