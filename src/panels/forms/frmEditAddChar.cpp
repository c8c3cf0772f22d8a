#include "panels/forms/frmEditAddChar.h"

#include "core/Literals.h"
#include "panels/FilmPeople.h"
#include "ui_frmEditAddChar.h"

#include <QLineEdit>

#include <algorithm>

namespace kelvado {

namespace {

// From here on, the count of the letters that are left is of use.
constexpr int kFewLetters = 40;

} // namespace

frmEditAddChar::frmEditAddChar(const PersonKind& kind, const QString& catalogPath, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmEditAddChar>()), m_kind(kind)
{
    m_ui->setupUi(this);
    setWindowTitle(kind.add);
    m_ui->lblPeople->setText(u'&' + kind.choose);
    // The key of the last word: "Cancel" has the C of "Character".
    m_ui->lblExtend->setText(QString(kind.chooseText).insert(QString(kind.chooseText).lastIndexOf(u' ') + 1, u'&'));
    m_ui->cboActor->setAccessibleName(kind.choose);
    m_ui->txtCharacter->setAccessibleName(kind.chooseText);
    m_ui->cboActor->lineEdit()->setPlaceholderText(tr("Type a part of the name"));
    m_ui->cboActor->SetRows(AllPeople(kind, catalogPath));
    const qsizetype longest = LongestPersonText(kind, catalogPath);
    m_ui->txtCharacter->setMaxLength(static_cast<int>(std::min<qsizetype>(longest, m_ui->txtCharacter->maxLength())));
    connect(m_ui->cboActor, &QComboBox::currentTextChanged, this, &frmEditAddChar::Check);
    connect(m_ui->txtCharacter, &QLineEdit::textChanged, this, &frmEditAddChar::CountLetters);
    connect(m_ui->cmdOkay, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    Check();
    CountLetters();
}

frmEditAddChar::~frmEditAddChar() = default;

std::optional<frmEditAddChar::Chosen> frmEditAddChar::Ask()
{
    if (exec() != Accepted)
        return std::nullopt;
    const std::optional<Choice> person = m_ui->cboActor->Chosen();
    return person ? std::optional(Chosen{person->number, person->text, m_ui->txtCharacter->text()}) : std::nullopt;
}

void frmEditAddChar::Check()
{
    const bool isPerson = m_ui->cboActor->Chosen().has_value();
    const bool isWrong = !isPerson && !m_ui->cboActor->currentText().isEmpty();
    const QString missing = tr("No %1 in the catalog is called so.").arg(QString(m_kind.personLabel).toLower());
    m_ui->lblMissing->setText(isWrong ? missing : QString());
    m_ui->cboActor->setAccessibleDescription(isWrong ? missing : QString());
    m_ui->cmdOkay->setEnabled(isPerson);
}

void frmEditAddChar::CountLetters()
{
    const qsizetype left = m_ui->txtCharacter->maxLength() - m_ui->txtCharacter->text().size();
    m_ui->lblLeft->setText(left > kFewLetters ? QString() : left > 0 ? tr("%1 characters left").arg(left) : tr("No character left"));
}

} // namespace kelvado
