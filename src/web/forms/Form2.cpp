#include "web/forms/Form2.h"

#include "core/Afterwards.h"
#include "core/Guard.h"
#include "core/Literals.h"
#include "store/FilmActions.h"
#include "ui_Form2.h"
#include "web/forms/frmAkaSet.h"

#include <QHideEvent>

namespace kelvado {

Form2::Form2(FilmDesk& desk, const Skinner& skinner, QWidget* parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::Form2>()), m_desk(desk), m_skinner(skinner), m_search(desk, [this] {
          ShowLists();
          ShowButtons();
      })
{
    m_ui->setupUi(this);
    m_ui->lblAka->hide();
    m_skinner.SkinForm(*this);
    ConnectControls();
    LoadDefaults();
    ShowButtons();
}

Form2::~Form2() = default;

void Form2::ConnectControls()
{
    const auto guarded = [this](void (Form2::*handler)()) {
        return [this, handler] { Guarded(m_desk.dialogs, [this, handler] { (this->*handler)(); }); };
    };
    connect(m_ui->Image1, &QPushButton::clicked, this, guarded(&Form2::Search));
    connect(m_ui->txtSearch, &QLineEdit::returnPressed, this, guarded(&Form2::Search));
    connect(m_ui->CmdByIMDBno, &QPushButton::clicked, this, guarded(&Form2::LookUp));
    connect(m_ui->txtIMDBnum, &QLineEdit::returnPressed, this, guarded(&Form2::LookUp));
    connect(m_ui->cmdStop, &QPushButton::clicked, this, [this] { m_search.Stop(); });
    connect(m_ui->Command2, &QPushButton::clicked, this, guarded(&Form2::AddAll));
    const auto connectList = [this](const FilmRows* list, void (Form2::*choose)(int), const auto& rows) {
        connect(list, &FilmRows::Chosen, this, [this, choose](int row) { Guarded(m_desk.dialogs, [&] { (this->*choose)(row); }); });
        const auto show = [this, list, rows] { Guarded(m_desk.dialogs, [&] { OnSelect(*list, rows()); }); };
        connect(list, &FilmRows::SelectionMoved, this, show);
        connect(list, &FilmRows::Focused, this, show);
        connect(list, &FilmRows::MenuRequested, this,
                [this, list](const QPoint& place) { Q_EMIT MenuWanted(place, list->Selected() < 0 ? QString() : m_lastNumber); });
    };
    connectList(m_ui->lstSearch, &Form2::MoveToQueue, [this] { return m_search.Rows(); });
    connectList(m_ui->lstSelect, &Form2::MoveBack, [this] { return m_queue; });
    connect(m_ui->txtLog, &QPlainTextEdit::textChanged, this, [this] { m_ui->txtLog->moveCursor(QTextCursor::End); });
}

void Form2::LoadDefaults()
{
    m_defaults = m_desk.state.gOptions->Defaults;
    m_ui->ChkAKA->setChecked(IsOn(m_defaults.PromptAKA));
    m_ui->ChkDefault->setChecked(IsOn(m_defaults.Enable));
    m_ui->cboFormat->setEditText(m_defaults.Format);
    m_ui->txtDiscs->setText(m_defaults.Discs);
    m_ui->txtIndex->setText(m_defaults.Index);
}

void Form2::Reopen()
{
    m_search.Unlock();
    ShowButtons();
    const cOptDefaults& now = m_desk.state.gOptions->Defaults;
    const auto values = [](const cOptDefaults& o) { return std::tie(o.PromptAKA, o.Enable, o.Format, o.Discs, o.Index); };
    if (values(now) != values(m_defaults))
        LoadDefaults();
    m_ui->txtSearch->setFocus();
    const QStringList formats = ValuesInUse(u"Format"_s, m_desk.state.CatalogPath());
    const QString format = m_ui->cboFormat->currentText();
    m_ui->cboFormat->clear();
    m_ui->cboFormat->addItems(formats);
    m_ui->cboFormat->setEditText(format);
}

void Form2::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    // A window that goes to the tray or is minimized with its panel is not left.
    if (!event->spontaneous() && window()->isVisible())
        m_search.Stop();
}

void Form2::Search()
{
    m_search.Search(m_ui->txtSearch->text());
}

void Form2::LookUp()
{
    m_search.LookUp(m_ui->txtIMDBnum->text());
}

void Form2::AddAll()
{
    if (m_queue.isEmpty()) {
        m_desk.dialogs.MessageBox(u"You have not selected any movies to be added."_s, kBoxPlain);
        return;
    }
    const std::optional<FetchTurn> turn = TakeTurn(m_desk);
    if (!turn)
        return;
    m_ui->txtLog->clear();
    QueueChoices choices{m_search.OtherTitles(), {}, {}};
    if (m_ui->ChkAKA->isChecked())
        choices.chooseTitle = AskInAkaSet(m_desk.dialogs, m_skinner, *window());
    if (m_ui->ChkDefault->isChecked())
        choices.defaults = {m_ui->cboFormat->currentText(), m_ui->txtDiscs->text(), m_ui->txtIndex->text()};
    const auto add = [&] { AddQueue(m_queue, choices, m_desk, [this](const JobResult& result) { WriteLog(result); }); };
    Afterwards(add, [this] {
        if (m_queue.isEmpty())
            m_search.Clear(); // rows that wait in the queue still need the other titles
        ShowLists();
    });
    window()->activateWindow();
    m_ui->txtSearch->setFocus();
}

void Form2::WriteLog(const JobResult& result)
{
    for (const JobResult::Failure& failure : result.Failures)
        m_ui->txtLog->insertPlainText(u"\r\nNot added: %1: %2"_s.arg(failure.Film, failure.Reason));
    for (const JobResult::Failure& film : result.Incomplete)
        m_ui->txtLog->insertPlainText(u"\r\nNot complete: %1: %2"_s.arg(film.Film, film.Reason));
    if (result.Cancelled)
        m_ui->txtLog->insertPlainText(u"\r\nCancelled."_s);
    m_ui->txtLog->insertPlainText(u"\r\nSuccessfully Added %1 Films."_s.arg(result.Added));
}

void Form2::MoveToQueue(int row)
{
    if (row >= m_search.Rows().size())
        return;
    m_queue.append(m_search.Take(row));
    ShowLists();
}

void Form2::MoveBack(int row)
{
    m_search.Add(m_queue.takeAt(row));
    ShowLists();
}

void Form2::ShowLists()
{
    m_ui->lstSearch->ShowWaiting(m_search.Waiting());
    m_ui->lstSearch->SetRows(m_search.Rows());
    m_ui->lstSelect->SetRows(m_queue);
    // Both lists have a selected row: the one that the user works in counts.
    if (m_ui->lstSelect->hasFocus())
        OnSelect(*m_ui->lstSelect, m_queue);
    else
        OnSelect(*m_ui->lstSearch, m_search.Rows());
}

void Form2::ShowButtons()
{
    m_ui->Image1->setEnabled(!m_search.SearchRunning());
    m_ui->CmdByIMDBno->setEnabled(!m_search.SearchRunning());
    m_ui->cmdStop->setEnabled(m_search.Waiting());
}

void Form2::OnSelect(const FilmRows& list, const QList<SearchRow>& rows)
{
    const int selected = list.Selected();
    if (selected < 0 || selected >= rows.size())
        return ShowOtherTitles(*m_ui->lblAka, {});
    m_lastNumber = PartsOf(rows[selected]).Number;
    ShowOtherTitles(*m_ui->lblAka, OtherTitlesOf(rows[selected], m_search.OtherTitles()));
}

ChooseTitle AskInAkaSet(Dialogs& dialogs, const Skinner& skinner, QWidget& owner)
{
    return [&dialogs, &skinner, &owner](const QStringList& titles) {
        frmAkaSet dialog(titles, dialogs, &owner);
        skinner.SkinForm(dialog);
        return dialog.ShowAndRead();
    };
}

} // namespace kelvado
