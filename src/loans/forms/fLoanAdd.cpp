#include "loans/forms/fLoanAdd.h"

#include "core/Guard.h"
#include "ui_fLoanAdd.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QLineEdit>

namespace kelvado {

fLoanAdd::fLoanAdd(LoanMode mode, const LoanContext& context, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::fLoanAdd>()), m_mode(mode), m_context(context)
{
    m_ui->setupUi(this);
    const bool isEdit = mode == LoanMode::Edit;
    m_ui->lblMovie->setText(isEdit ? tr("Loaned &Movie:") : tr("&Movie to Loan:"));
    m_ui->lblLoanTo->setText(isEdit ? tr("Loaned &To:") : tr("Loan &To:"));
    m_ui->cboMovie->setAccessibleName(isEdit ? tr("Loaned Movie") : tr("Movie to Loan"));
    m_ui->cboLoanTo->setAccessibleName(isEdit ? tr("Loaned To") : tr("Loan To"));
    m_ui->cboMovie->lineEdit()->setPlaceholderText(tr("Type a part of the title"));
    PrepareBorrowers();
    for (DatePicker* picker : {m_ui->DTDate, m_ui->DTDue, m_ui->DTReturn})
        picker->SetOffer(context.clock.Now().date());
    connect(m_ui->Command1, &QPushButton::clicked, this, [this] { Guarded(m_context.dialogs, [this] { Okay(); }); });
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

fLoanAdd::~fLoanAdd() = default;

void fLoanAdd::PrepareBorrowers()
{
    // Names are only suggested: a combo box's own completion would put a known spelling in place of the typed one.
    m_ui->cboLoanTo->setCompleter(nullptr);
    auto* line = m_ui->cboLoanTo->lineEdit();
    auto* completer = new QCompleter(m_ui->cboLoanTo->model(), m_ui->cboLoanTo);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    completer->setWidget(line);
    connect(line, &QLineEdit::textEdited, completer, [completer](const QString& text) {
        completer->setCompletionPrefix(text);
        if (text.isEmpty())
            completer->popup()->hide();
        else
            completer->complete();
    });
    connect(completer, qOverload<const QString&>(&QCompleter::activated), line, &QLineEdit::setText);
}

void fLoanAdd::Load_NewLoan()
{
    Fill(kelvado::Load_NewLoan(m_context.state.CatalogPath(), m_context.clock));
}

void fLoanAdd::Load_DirectLoan(FilmId movieId)
{
    Fill(kelvado::Load_DirectLoan(movieId, m_context.state.CatalogPath(), m_context.clock));
}

void fLoanAdd::Edit_Loan(qint64 loanId)
{
    Fill(kelvado::Edit_Loan(loanId, m_context.state.CatalogPath()));
}

void fLoanAdd::Fill(const LoanEntry& entry)
{
    setWindowTitle(entry.caption);
    m_ui->cboMovie->SetRows(entry.films);
    m_ui->cboMovie->setCurrentIndex(entry.filmIsGiven ? 0 : -1);
    m_ui->cboMovie->setEnabled(!entry.filmIsGiven);
    m_ui->cboLoanTo->addItems(entry.borrowers);
    m_ui->cboLoanTo->setCurrentIndex(-1);
    m_ui->cboLoanTo->setEditText(entry.terms.loanedTo);
    m_ui->DTDate->SetDate(entry.terms.loanDate);
    m_ui->DTDue->SetDate(entry.terms.dueDate);
    m_ui->DTReturn->SetDate(entry.returnDate);
    m_ui->txtNotes->setPlainText(entry.terms.notes);
    QWidget* first = entry.filmIsGiven ? m_ui->cboLoanTo : m_ui->cboMovie;
    first->setFocus();
}

LoanAnswer fLoanAdd::Answer() const
{
    const std::optional<Choice> film = m_ui->cboMovie->Chosen();
    return {film ? std::optional(film->number) : std::nullopt,
            {m_ui->cboLoanTo->currentText(), m_ui->DTDate->Date(), m_ui->DTDue->Date(), m_ui->txtNotes->toPlainText()}};
}

void fLoanAdd::Okay()
{
    const LoanAnswer answer = Answer();
    if (StoreLoan(m_mode, answer, m_context.state.CatalogPath(), m_context.dialogs))
        accept();
    else if (!answer.film)
        m_ui->cboMovie->setFocus();
    else
        m_ui->cboLoanTo->setFocus();
}

} // namespace kelvado
