#include "ui/fLengthEdit.h"

#include "core/Literals.h"
#include "ui_fLengthEdit.h"

namespace kelvado {

fLengthEdit::fLengthEdit(const QString& value, qsizetype size, const QString& column, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::fLengthEdit>()), m_size(size)
{
    m_ui->setupUi(this);
    m_ui->lblInfo->setText(u"The Information Retrived For "_s + column +
                           u" Is To Long To Fit Into The Database. "
                           "Please Edit The Information Information "
                           "So That It Will Fit Into The Database."_s);
    m_ui->txtEdit->setPlainText(value);
    m_ui->lblRLen->setText(QString::number(size));
    m_ui->lblCLen->setText(QString::number(Text().size()));
    connect(m_ui->txtEdit, &QPlainTextEdit::textChanged, this, &fLengthEdit::ShowLength);
    connect(m_ui->cmdOkay, &QPushButton::clicked, this, &QDialog::accept);
}

fLengthEdit::~fLengthEdit() = default;

QString fLengthEdit::Text() const
{
    return m_ui->txtEdit->toPlainText();
}

void fLengthEdit::ShowLength()
{
    const qsizetype length = Text().size();
    m_ui->lblCLen->setText(QString::number(length));
    m_ui->cmdOkay->setEnabled(length > 0 && length <= m_size);
}

} // namespace kelvado
