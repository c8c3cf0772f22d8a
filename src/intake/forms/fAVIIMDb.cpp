#include "intake/forms/fAVIIMDb.h"

#include "core/Afterwards.h"
#include "core/Guard.h"
#include "ui_fAVIIMDb.h"
#include "web/retrieval/FilmQueue.h"

#include <QTimer>

namespace kelvado {

fAVIIMDb::fAVIIMDb(FilmDesk& desk, const Skinner& skinner, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::fAVIIMDb>()), m_desk(desk), m_search(desk, [this] {
          m_ui->lstSearch->SetRows(m_search.Rows());
          m_ui->lstSearch->ShowWaiting(m_search.Waiting());
      })
{
    m_ui->setupUi(this);
    skinner.SkinForm(*this);
    m_ui->ChkAKA->setChecked(IsOn(m_desk.state.gOptions->Defaults.PromptAKA));
    connect(m_ui->lstSearch, &FilmRows::SelectionMoved, this, &fAVIIMDb::OnSelect);
    connect(m_ui->lstSearch, &FilmRows::Chosen, this, &fAVIIMDb::OnChoose);
    connect(m_ui->lstSearch, &FilmRows::MenuRequested, this, [this](const QPoint& place) {
        const int row = m_ui->lstSearch->Selected();
        Q_EMIT MenuWanted(place, row < 0 ? QString() : PartsOf(m_search.Rows()[row]).Number);
    });
    connect(m_ui->cmdSelect, &QPushButton::clicked, this, [this] { OnChoose(m_ui->lstSearch->Selected()); });
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    OnSelect();
}

fAVIIMDb::~fAVIIMDb() = default;

std::optional<SearchRow> fAVIIMDb::Choose(const QString& searchText)
{
    m_chosen.reset();
    m_ui->lstSearch->SetRows({});
    m_ui->lstSearch->setFocus();
    QTimer::singleShot(0, this, [this, searchText] { Guarded(m_desk.dialogs, [&] { IMDb_Search(searchText); }); });
    exec();
    return m_chosen;
}

bool fAVIIMDb::AsksForTitle() const
{
    return m_ui->ChkAKA->isChecked();
}

void fAVIIMDb::reject()
{
    m_search.Stop();
    QDialog::reject();
}

void fAVIIMDb::IMDb_Search(const QString& searchText)
{
    Afterwards(
        [&] {
            m_search.Clear();
            m_search.Search(searchText);
        },
        [this] {
            if (m_search.Rows().isEmpty())
                reject();
        });
}

void fAVIIMDb::OnSelect()
{
    const int row = m_ui->lstSearch->Selected();
    const bool isRow = row >= 0 && row < m_search.Rows().size();
    m_ui->cmdSelect->setEnabled(isRow);
    ShowOtherTitles(*m_ui->lblAka, isRow ? OtherTitlesOf(m_search.Rows()[row], m_search.OtherTitles()) : QString());
}

void fAVIIMDb::OnChoose(int row)
{
    if (row < 0 || row >= m_search.Rows().size())
        return;
    m_chosen = m_search.Rows()[row];
    accept();
}

} // namespace kelvado
