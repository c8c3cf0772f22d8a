#include "web/forms/frmImportIMDb.h"

#include "core/Afterwards.h"
#include "core/Guard.h"
#include "ui_frmImportIMDb.h"
#include "web/search/NumberImport.h"

#include <QAction>

#include <algorithm>

namespace kelvado {

frmImportIMDb::frmImportIMDb(FilmDesk& desk, const Skinner& skinner, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmImportIMDb>()), m_desk(desk)
{
    m_ui->setupUi(this);
    m_ui->List1->setModel(&m_numbers);
    m_file.filter = kNumberFileFilter;
    skinner.SkinForm(*this);
    connect(m_ui->cmdSelFile, &QPushButton::clicked, this, [this] { Guarded(m_desk.dialogs, [this] { SelectFile(); }); });
    connect(m_ui->Command2, &QPushButton::clicked, this, [this] { Guarded(m_desk.dialogs, [this] { AddAll(); }); });
    auto* remove = new QAction(tr("&Remove"), m_ui->List1);
    remove->setShortcut(Qt::Key_Delete);
    remove->setShortcutContext(Qt::WidgetShortcut);
    m_ui->List1->addAction(remove);
    m_ui->List1->setContextMenuPolicy(Qt::ActionsContextMenu);
    connect(remove, &QAction::triggered, this, [this] { Guarded(m_desk.dialogs, [this] { RemoveSelected(); }); });
    connect(m_ui->cmdClose, &QPushButton::clicked, this, &QDialog::reject);
}

frmImportIMDb::~frmImportIMDb() = default;

void frmImportIMDb::ShowEmpty()
{
    if (!isVisible())
        ShowNumbers({});
    show();
    raise();
    activateWindow();
}

void frmImportIMDb::reject()
{
    if (!m_running)
        hide();
}

void frmImportIMDb::SelectFile()
{
    // The dialog was the main window's.
    Afterwards([this] { m_desk.dialogs.ShowOpen(m_file); }, [this] { activateWindow(); });
    ShowNumbers(m_numbers.stringList() + ReadNumbers(m_file.fileName));
}

void frmImportIMDb::RemoveSelected()
{
    QStringList numbers = m_numbers.stringList();
    QModelIndexList selected = m_ui->List1->selectionModel()->selectedRows();
    if (selected.isEmpty())
        return;
    std::ranges::sort(selected, std::ranges::greater(), &QModelIndex::row);
    for (const QModelIndex& row : std::as_const(selected))
        numbers.removeAt(row.row());
    const int next = selected.constLast().row();
    ShowNumbers(numbers);
    m_ui->List1->setCurrentIndex(m_numbers.index(std::min(next, m_numbers.rowCount() - 1)));
}

void frmImportIMDb::AddAll()
{
    const std::optional<FetchTurn> turn = TakeTurn(m_desk);
    if (!turn)
        return;
    QStringList numbers = m_numbers.stringList();
    m_running = true;
    Afterwards([&] { AddNumbers(numbers, m_desk); },
               [&] {
                   m_running = false;
                   ShowNumbers(numbers);
                   if (numbers.isEmpty())
                       hide();
                   else
                       activateWindow();
               });
}

void frmImportIMDb::ShowNumbers(const QStringList& numbers)
{
    m_numbers.setStringList(numbers);
    m_ui->List1->setCurrentIndex({}); // else the focus marks the first row, which looks selected and is not
    m_ui->Command2->setEnabled(!numbers.isEmpty());
    m_ui->lblCount->setText(numbers.isEmpty() ? QString() : numbers.size() == 1 ? tr("1 film") : tr("%1 films").arg(numbers.size()));
}

} // namespace kelvado
