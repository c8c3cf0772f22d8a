#include "web/forms/frmActorPrompt.h"

#include "core/Conversions.h"
#include "core/Literals.h"
#include "ui_frmActorPrompt.h"

#include <QKeyEvent>
#include <QMenu>

namespace kelvado {

frmActorPrompt::frmActorPrompt(const QList<ActorMatch>& matches, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmActorPrompt>())
{
    m_ui->setupUi(this);
    for (qsizetype place = 0; place < matches.size(); ++place) {
        const ActorMatch& match = matches[place];
        const QString note = match.Note == "()"_L1 ? QString() : match.Note;
        auto* row = new QListWidgetItem(DecodeEntities(match.Name) + u"  "_s + DecodeEntities(note), m_ui->lstActor);
        row->setData(Qt::UserRole, place);
    }
    m_ui->lstActor->setCurrentRow(0);
    m_ui->lstActor->setFocus();
    m_ui->lstActor->installEventFilter(this);
    const auto follow = [this] {
        for (QPushButton* button : {m_ui->cmdView, m_ui->cmdOkay})
            button->setEnabled(Selected().has_value());
    };
    follow();
    connect(m_ui->lstActor, &QListWidget::itemSelectionChanged, this, follow);
    connect(m_ui->lstActor, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
    connect(m_ui->lstActor, &QWidget::customContextMenuRequested, this, &frmActorPrompt::ShowMenu);
    connect(m_ui->mnuViewIMDb, &QAction::triggered, this, &frmActorPrompt::View);
    connect(m_ui->cmdView, &QPushButton::clicked, this, &frmActorPrompt::View);
    connect(m_ui->cmdOkay, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

frmActorPrompt::~frmActorPrompt() = default;

std::optional<qsizetype> frmActorPrompt::ShowAndRead()
{
    return exec() == QDialog::Accepted ? Selected() : std::nullopt;
}

std::optional<qsizetype> frmActorPrompt::Selected() const
{
    const QList<QListWidgetItem*> rows = m_ui->lstActor->selectedItems();
    return rows.isEmpty() ? std::nullopt : std::optional<qsizetype>(rows.constFirst()->data(Qt::UserRole).toLongLong());
}

// V is taken here: the list would look for a row that begins with it.
bool frmActorPrompt::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() != Qt::Key_V || (key->modifiers() & ~Qt::ShiftModifier) != Qt::NoModifier)
        return QDialog::eventFilter(watched, event);
    View();
    return true;
}

void frmActorPrompt::ShowMenu(const QPoint& place)
{
    if (!Selected())
        return;
    QMenu menu(this);
    menu.addAction(m_ui->mnuViewIMDb);
    menu.exec(m_ui->lstActor->viewport()->mapToGlobal(place));
}

void frmActorPrompt::View()
{
    if (const std::optional<qsizetype> place = Selected())
        Q_EMIT ViewWanted(*place);
}

} // namespace kelvado
