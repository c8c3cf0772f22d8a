#include "panels/forms/fManageList.h"

#include "core/Guard.h"
#include "core/Literals.h"
#include "panels/forms/fManageEdit.h"
#include "ui/Skinner.h"
#include "ui/ctxToolbar.h"
#include "ui_fManageList.h"

#include <QHeaderView>
#include <QShortcut>

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
    {"Add", QT_TRANSLATE_NOOP("fManageList", "&Add"), QT_TRANSLATE_NOOP("fManageList", "Add an entry (Ins)")},
    {"Edit", QT_TRANSLATE_NOOP("fManageList", "&Edit"), QT_TRANSLATE_NOOP("fManageList", "Edit the selected entry (Enter)")},
    {"Delete", QT_TRANSLATE_NOOP("fManageList", "&Delete"), QT_TRANSLATE_NOOP("fManageList", "Delete the selected entry (Del)")},
};

} // namespace

fManageList::fManageList(QString table, const PanelContext& context, const Skinner& skinner, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::fManageList>()), m_table(std::move(table)), m_context(context), m_skinner(skinner)
{
    m_ui->setupUi(this);
    setModal(true);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    AddButtons();
    m_ui->lvManage->setModel(&m_rows);
    // Unsorted until the user clicks a head.
    m_ui->lvManage->header()->setSortIndicator(-1, Qt::AscendingOrder);
    m_ui->lvManage->setSortingEnabled(true);
    connect(m_ui->toolMain, &ctxToolbar::ButtonClick, this, &fManageList::OnButton);
    connect(m_ui->lvManage->selectionModel(), &QItemSelectionModel::selectionChanged, this, &fManageList::EnableButtons);
    connect(&m_rows, &TableRows::modelReset, this, &fManageList::EnableButtons);
    connect(m_ui->lvManage, &QTreeView::activated, this, [this] { Run(&fManageList::Edit); });
    const auto onKey = [this](const QKeySequence& key, void (fManageList::*routine)()) {
        auto* shortcut = new QShortcut(key, m_ui->lvManage);
        shortcut->setContext(Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, this, [this, routine] { Run(routine); });
        return shortcut;
    };
    onKey(Qt::Key_Insert, &fManageList::Add);
    onKey(Qt::Key_F5, &fManageList::List_Refresh);
    m_deleteKey = onKey(QKeySequence::Delete, &fManageList::Delete);
    EnableButtons();
    Run(&fManageList::List_Refresh);
    m_ui->lvManage->header()->resizeSection(0, 16 * fontMetrics().averageCharWidth());
    m_ui->lvManage->setFocus();
}

fManageList::~fManageList()
{
    // The list's view goes with the window's controls, before the model.
    m_ui->lvManage->setModel(nullptr);
}

void fManageList::AddButtons()
{
    for (const ToolButton& button : kButtons) {
        const QString key = QString::fromLatin1(button.key);
        m_ui->toolMain->Add(SkinToolbarPictures(m_skinner.Skin(), key, devicePixelRatioF()), ctxToolbar::Style::Button, key,
                            tr(button.caption), tr(button.toolTip));
    }
    if (m_skinner.Values().progressFront.isValid())
        m_ui->toolMain->SetSelectionColor(m_skinner.Values().progressFront);
}

std::optional<int> fManageList::SelectedRow() const
{
    const QModelIndexList rows = m_ui->lvManage->selectionModel()->selectedRows();
    return rows.isEmpty() ? std::nullopt : std::optional(rows[0].row());
}

void fManageList::EnableButtons()
{
    const bool anySelected = SelectedRow().has_value();
    // A control that is disabled leaves the focus to anybody.
    if (!anySelected && m_ui->toolMain->isAncestorOf(focusWidget()))
        m_ui->lvManage->setFocus();
    for (const char* key : {"Edit", "Delete"})
        m_ui->toolMain->SetButtonEnabled(m_ui->toolMain->ButtonIndex(QString::fromLatin1(key)), anySelected);
    m_deleteKey->setEnabled(anySelected);
}

void fManageList::Run(void (fManageList::*routine)())
{
    Guarded(m_context.dialogs, [&] { (this->*routine)(); });
}

void fManageList::OnButton(const QString& key)
{
    Run(key == "Add"_L1 ? &fManageList::Add : key == "Edit"_L1 ? &fManageList::Edit : &fManageList::Delete);
}

void fManageList::List_Refresh()
{
    const std::optional<int> row = SelectedRow();
    const qint64 selected = row ? m_rows.Row(*row).key : 0;
    ManagedList list = kelvado::List_Refresh(m_table, m_context.state.CatalogPath());
    m_rows.SetHeads(list.heads);
    m_rows.SetRows(std::move(list.rows));
    m_list = {std::move(list.heads), std::move(list.limits), {}};
    const int count = m_rows.rowCount();
    m_ui->statusMain->showMessage(m_table + (count == 1 ? tr(": 1 entry") : tr(": %1 entries").arg(count)));
    Select(selected);
}

void fManageList::Select(qint64 key)
{
    const int row = m_rows.RowOf(key);
    if (row >= 0)
        m_ui->lvManage->setCurrentIndex(m_rows.index(row, 0));
}

void fManageList::Add()
{
    qint64 added = 0;
    fManageEdit dialog(
        m_list, {}, [&](const QStringList& texts) { added = AddListRow(m_table, texts, m_context.state.CatalogPath()); }, m_context.dialogs,
        this);
    m_skinner.SkinForm(dialog);
    if (dialog.exec() != QDialog::Accepted)
        return;
    List_Refresh();
    Select(added);
}

void fManageList::Edit()
{
    const std::optional<int> row = SelectedRow();
    if (!row)
        return;
    const TableRow old = m_rows.Row(*row);
    fManageEdit dialog(
        m_list, old.texts, [&](const QStringList& texts) { ChangeListRow(m_table, old.key, texts, m_context.state.CatalogPath()); },
        m_context.dialogs, this);
    m_skinner.SkinForm(dialog);
    if (dialog.exec() == QDialog::Accepted)
        List_Refresh();
}

void fManageList::Delete()
{
    const std::optional<int> row = SelectedRow();
    if (!row)
        return;
    const TableRow old = m_rows.Row(*row);
    const QString question = tr("Are you sure you wish to delete %1 ?").arg(old.texts.join(u' ').trimmed());
    if (!m_context.dialogs.ConfirmLoss(question, kBoxYesNoExclamation, windowTitle()))
        return;
    DeleteListRow(m_table, old.key, m_context.state.CatalogPath());
    List_Refresh();
    // The arrow keys go on from the same place, but no other row is taken for the one that is gone.
    const QModelIndex next = m_rows.index(std::min(*row, m_rows.rowCount() - 1), 0);
    m_ui->lvManage->selectionModel()->setCurrentIndex(next, QItemSelectionModel::NoUpdate);
}

} // namespace kelvado
