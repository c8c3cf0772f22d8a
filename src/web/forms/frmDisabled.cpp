#include "web/forms/frmDisabled.h"

#include "ui_frmDisabled.h"

namespace kelvado {

frmDisabled::frmDisabled(QWidget* parent) : QDialog(parent), m_ui(std::make_unique<Ui::frmDisabled>())
{
    m_ui->setupUi(this);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &frmDisabled::CancelAsked);
}

frmDisabled::~frmDisabled() = default;

} // namespace kelvado
