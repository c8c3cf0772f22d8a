#include "browse/forms/frmFind.h"

#include "ui_frmFind.h"

namespace kelvado {

frmFind::frmFind(QWidget* parent) : QDialog(parent), m_ui(std::make_unique<Ui::frmFind>())
{
    m_ui->setupUi(this);
    connect(m_ui->txtFind, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (!text.isEmpty())
            m_ui->cmdFNext->setEnabled(true);
    });
    connect(m_ui->cmdFNext, &QPushButton::clicked, this, [this] { Q_EMIT FindNext(m_ui->txtFind->text()); });
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &QDialog::close);
}

frmFind::~frmFind() = default;

} // namespace kelvado
