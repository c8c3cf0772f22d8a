#include "web/forms/frmAddSingleIMDb.h"

#include "core/Afterwards.h"
#include "core/Guard.h"
#include "ui_frmAddSingleIMDb.h"
#include "web/forms/Form2.h"

namespace kelvado {

frmAddSingleIMDb::frmAddSingleIMDb(FilmDesk& desk, const Skinner& skinner, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmAddSingleIMDb>()), m_desk(desk), m_skinner(skinner), m_search(desk, [this] {
          m_ui->lstSearch->SetRows(m_search.Rows());
          m_ui->lstSearch->ShowWaiting(m_search.Waiting());
          m_ui->Image1->setEnabled(!m_search.SearchRunning());
          m_ui->cmdStop->setEnabled(m_search.Waiting());
      })
{
    m_ui->setupUi(this);
    m_ui->cmdStop->setEnabled(false);
    m_skinner.SkinForm(*this);
    connect(m_ui->lstSearch, &FilmRows::SelectionMoved, this, &frmAddSingleIMDb::OnSelect);
    connect(m_ui->lstSearch, &FilmRows::Chosen, this, [this](int row) { Guarded(m_desk.dialogs, [&] { OnChoose(row); }); });
    connect(m_ui->lstSearch, &FilmRows::MenuRequested, this,
            [this](const QPoint& place) { Q_EMIT MenuWanted(place, m_ui->lstSearch->Selected() < 0 ? QString() : m_lastNumber); });
    const auto search = [this] { Guarded(m_desk.dialogs, [this] { Search(); }); };
    connect(m_ui->txtSearch, &QLineEdit::returnPressed, this, search);
    connect(m_ui->Image1, &QPushButton::clicked, this, search);
    connect(m_ui->cmdStop, &QPushButton::clicked, this, [this] { m_search.Stop(); });
    connect(m_ui->cmdUpdate, &QPushButton::clicked, this,
            [this] { Guarded(m_desk.dialogs, [&] { OnChoose(m_ui->lstSearch->Selected()); }); });
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    OnSelect();
}

frmAddSingleIMDb::~frmAddSingleIMDb() = default;

void frmAddSingleIMDb::Open(const QString& title, FilmId movieId)
{
    m_movieId = movieId;
    m_search.Clear();
    m_ui->lstSearch->SetRows({});
    m_ui->txtSearch->setText(title);
    m_ui->ChkAKA->setChecked(IsOn(m_desk.state.gOptions->Defaults.PromptAKA));
    m_desk.shell.EnableMainWindow(false);
    setEnabled(true); // as a window of the main one it went with it
    show();
    m_ui->lstSearch->setFocus();
    Search();
}

void frmAddSingleIMDb::Search()
{
    m_search.Search(m_ui->txtSearch->text());
    if (isVisible())
        activateWindow(); // a message was the main window's
}

void frmAddSingleIMDb::Release()
{
    hide();
    m_desk.shell.EnableMainWindow(true);
    if (parentWidget())
        parentWidget()->activateWindow();
}

void frmAddSingleIMDb::reject()
{
    if (!isVisible())
        return;
    m_search.Stop();
    Release();
}

void frmAddSingleIMDb::OnSelect()
{
    const int row = m_ui->lstSearch->Selected();
    const bool chosen = row >= 0 && row < m_search.Rows().size();
    m_ui->cmdUpdate->setEnabled(chosen);
    if (chosen)
        m_lastNumber = PartsOf(m_search.Rows()[row]).Number;
    ShowOtherTitles(*m_ui->lblAka, chosen ? OtherTitlesOf(m_search.Rows()[row], m_search.OtherTitles()) : QString());
}

void frmAddSingleIMDb::OnChoose(int row)
{
    if (row < 0 || row >= m_search.Rows().size())
        return;
    const std::optional<FetchTurn> turn = TakeTurn(m_desk);
    if (!turn)
        return;
    const SearchRow chosen = m_search.Rows()[row];
    if (!MayStoreOver(chosen, m_movieId, m_desk))
        return activateWindow(); // the question was the main window's
    ChooseTitle choose;
    if (m_ui->ChkAKA->isChecked())
        choose = AskInAkaSet(m_desk.dialogs, m_skinner, *parentWidget());
    hide();
    Afterwards([&] { UpdateFromRow(chosen, m_search.OtherTitles(), choose, m_movieId, m_desk); }, [this] { Release(); });
}

} // namespace kelvado
