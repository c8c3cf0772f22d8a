#include "web/forms/frmProgress.h"

#include "ui_frmProgress.h"

namespace kelvado {

frmProgress::frmProgress(QWidget* parent) : QDialog(parent), m_ui(std::make_unique<Ui::frmProgress>())
{
    m_ui->setupUi(this);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &frmProgress::CancelAsked);
}

frmProgress::~frmProgress() = default;

void frmProgress::ShowFilm(const QString& title)
{
    m_ui->lblFilm->setText(title);
}

void frmProgress::ShowStage(const QString& filmOf, const QString& stage, int percent)
{
    m_ui->lblFilmOf->setText(filmOf);
    m_ui->lblCurrent->setText(stage);
    m_ui->ProgressBar1->setValue(percent);
    m_ui->lblPercent->setText(QString::number(percent) + u'%');
}

} // namespace kelvado
