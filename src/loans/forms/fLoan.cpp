#include "loans/forms/fLoan.h"

#include "core/Guard.h"
#include "core/Literals.h"
#include "loans/LoanActions.h"
#include "loans/forms/fLoanAdd.h"
#include "ui/Skinner.h"
#include "ui/ctxToolbar.h"
#include "ui_fLoan.h"

#include <QHeaderView>
#include <QShortcut>
#include <QTimer>

#include <algorithm>

namespace kelvado {

namespace {

struct ToolButton
{
    const char* key;
    const char* caption;
    const char* toolTip;
};
constexpr ToolButton kButtons[] = {
    {"CheckOut", QT_TRANSLATE_NOOP("fLoan", "Check &Out"), QT_TRANSLATE_NOOP("fLoan", "Loan a movie (Ins)")},
    {"CheckIn", QT_TRANSLATE_NOOP("fLoan", "Check &In"), QT_TRANSLATE_NOOP("fLoan", "The selected movie is back")},
    {"Edit", QT_TRANSLATE_NOOP("fLoan", "&Edit"), QT_TRANSLATE_NOOP("fLoan", "Edit the selected loan (Enter)")},
    {"delete", QT_TRANSLATE_NOOP("fLoan", "&Delete"), QT_TRANSLATE_NOOP("fLoan", "Remove the selected loan (Del)")},
};

constexpr int kColumnChars[kLoanColumns] = {30, 16, 12, 12, 12, 20};

} // namespace

fLoan::fLoan(const LoanContext& context, const Skinner& skinner, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::fLoan>()), m_context(context), m_skinner(skinner)
{
    m_ui->setupUi(this);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    AddButtons();
    connect(&skinner, &Skinner::Changed, this, &fLoan::PaintButtons);
    m_ui->lvLoans->setModel(&m_model);
    SizeColumns();
    connect(m_ui->toolMain, &ctxToolbar::ButtonClick, this, [this](const QString& key) { OnButton(key); });
    connect(&m_model, &LoanModel::modelReset, this, &fLoan::EnableButtons);
    connect(m_ui->lvLoans->selectionModel(), &QItemSelectionModel::selectionChanged, this, &fLoan::EnableButtons);
    connect(m_ui->lvLoans, &QTreeView::activated, this, [this] { Run(&fLoan::Edit); });
    const auto onKey = [this](const QKeySequence& key, void (fLoan::*routine)()) {
        auto* shortcut = new QShortcut(key, m_ui->lvLoans);
        shortcut->setContext(Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, this, [this, routine] { Run(routine); });
        return shortcut;
    };
    onKey(Qt::Key_Insert, &fLoan::CheckOut);
    m_deleteKey = onKey(QKeySequence::Delete, &fLoan::Delete);
    onKey(Qt::Key_F5, &fLoan::Loans_Refresh);
    EnableButtons();
    Run(&fLoan::Loans_Refresh);
    m_ui->lvLoans->setFocus();
}

fLoan::~fLoan()
{
    // The list's view goes with the window's controls, before the model.
    m_ui->lvLoans->setModel(nullptr);
}

void fLoan::AddButtons()
{
    for (const ToolButton& button : kButtons)
        m_ui->toolMain->Add({}, ctxToolbar::Style::Button, QString::fromLatin1(button.key), tr(button.caption), tr(button.toolTip));
    PaintButtons();
}

void fLoan::PaintButtons()
{
    for (const ToolButton& button : kButtons) {
        const QString key = QString::fromLatin1(button.key);
        m_ui->toolMain->SetPictures(key, SkinToolbarPictures(m_skinner.Skin(), key, devicePixelRatioF()));
    }
    if (m_skinner.Values().progressFront.isValid())
        m_ui->toolMain->SetSelectionColor(m_skinner.Values().progressFront);
}

void fLoan::EnableButtons()
{
    const bool anySelected = m_ui->lvLoans->selectionModel()->hasSelection();
    // A control that is disabled leaves the focus to anybody.
    if (!anySelected && m_ui->toolMain->isAncestorOf(focusWidget()))
        m_ui->lvLoans->setFocus();
    for (const char* key : {"CheckIn", "Edit", "delete"})
        m_ui->toolMain->SetButtonEnabled(m_ui->toolMain->ButtonIndex(QString::fromLatin1(key)), anySelected);
    m_deleteKey->setEnabled(anySelected);
}

void fLoan::SizeColumns()
{
    for (int column = 0; column < kLoanColumns; ++column)
        m_ui->lvLoans->setColumnWidth(column, kColumnChars[column] * fontMetrics().averageCharWidth());
}

void fLoan::Run(void (fLoan::*routine)())
{
    Guarded(m_context.dialogs, [&] { (this->*routine)(); });
}

void fLoan::OnButton(const QString& key)
{
    struct Action
    {
        QLatin1StringView key;
        void (fLoan::*routine)();
    };
    static constexpr Action kActions[] = {
        {"CheckOut"_L1, &fLoan::CheckOut}, {"CheckIn"_L1, &fLoan::CheckIn}, {"Edit"_L1, &fLoan::Edit}, {"delete"_L1, &fLoan::Delete}};
    for (const Action& action : kActions) {
        if (key == action.key)
            Run(action.routine);
    }
}

void fLoan::Loans_Refresh()
{
    QItemSelectionModel& selection = *m_ui->lvLoans->selectionModel();
    const QModelIndexList rows = selection.selectedRows();
    const qint64 selected = rows.isEmpty() || ShowsOtherCatalog() ? 0 : rows[0].data(LoanModel::TagRole).toLongLong();
    const int place = selection.currentIndex().row();
    m_model.Refresh(m_context.state.CatalogPath());
    const int row = selected == 0 ? -1 : m_model.RowOf(selected);
    if (row >= 0)
        m_ui->lvLoans->setCurrentIndex(m_model.index(row, 0));
    else // the arrow keys go on from the same place, but no other loan is taken for the one that is gone
        selection.setCurrentIndex(m_model.index(std::min(place, m_model.rowCount() - 1), 0), QItemSelectionModel::NoUpdate);
}

bool fLoan::ShowsOtherCatalog() const
{
    return m_model.CatalogPath() != m_context.state.CatalogPath();
}

bool fLoan::event(QEvent* event)
{
    // The window stays open while the main window goes over to another catalog.
    // Each catalog is tried once: a message about one that cannot be read activates this window again.
    const QString path = m_context.state.CatalogPath();
    if (event->type() == QEvent::WindowActivate && !m_model.CatalogPath().isEmpty() && ShowsOtherCatalog() && path != m_triedPath) {
        m_triedPath = path;
        QTimer::singleShot(0, this, [this] { Run(&fLoan::Loans_Refresh); });
    }
    return QDialog::event(event);
}

qint64 fLoan::SelectedLoan()
{
    // The numbers of one catalog's loans mean other loans in the next.
    if (ShowsOtherCatalog())
        Loans_Refresh();
    const QModelIndexList rows = m_ui->lvLoans->selectionModel()->selectedRows();
    if (rows.isEmpty())
        throw RuntimeError(kErrObjectNotSet);
    return rows[0].data(LoanModel::TagRole).toLongLong();
}

void fLoan::CheckOut()
{
    // The new loan shows at the next refresh.
    fLoanAdd dialog(LoanMode::Loan, m_context, this);
    m_skinner.SkinForm(dialog);
    dialog.Load_NewLoan();
    dialog.exec();
}

void fLoan::CheckIn()
{
    Return_Item(SelectedLoan(), m_context.state.CatalogPath(), m_context.clock);
    Loans_Refresh();
}

void fLoan::Edit()
{
    fLoanAdd dialog(LoanMode::Edit, m_context, this);
    m_skinner.SkinForm(dialog);
    dialog.Edit_Loan(SelectedLoan());
    dialog.exec();
    Loans_Refresh();
}

void fLoan::Delete()
{
    const qint64 loanId = SelectedLoan();
    const QString question = u"Are you sure you with to permanetly remove this loan ?"_s;
    if (!m_context.dialogs.ConfirmLoss(question, kBoxYesNoExclamation, {}))
        return;
    Delete_Loan(loanId, m_context.state.CatalogPath());
    Loans_Refresh();
}

void LoanFilm(FilmId movieId, const LoanContext& context, const Skinner& skinner, QWidget* parent)
{
    fLoanAdd dialog(LoanMode::Loan, context, parent);
    skinner.SkinForm(dialog);
    dialog.Load_DirectLoan(movieId);
    dialog.exec();
}

} // namespace kelvado
