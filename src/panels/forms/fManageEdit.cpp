#include "panels/forms/fManageEdit.h"

#include "core/Guard.h"
#include "core/Literals.h"
#include "ui_fManageEdit.h"

#include <algorithm>

namespace kelvado {

namespace {

// `text` with an access key that `taken` (in capitals) does not hold; the key is added to it.
QString WithKey(const QString& text, QString& taken)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar letter = text[i].toUpper();
        if (letter.isLetter() && !taken.contains(letter)) {
            taken += letter;
            return QString(text).insert(i, u'&');
        }
    }
    return text;
}

} // namespace

fManageEdit::fManageEdit(const ManagedList& list, const QStringList& texts, std::function<void(const QStringList&)> store, Dialogs& dialogs,
                         QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::fManageEdit>()), m_store(std::move(store)), m_dialogs(dialogs)
{
    m_ui->setupUi(this);
    QString taken = u"OC"_s; // the keys of the buttons
    QLabel* const labels[] = {m_ui->lblEdit_0, m_ui->lblEdit_1};
    QLineEdit* const boxes[] = {m_ui->txtEdit_0, m_ui->txtEdit_1};
    for (int i = 0; i < 2; ++i) {
        labels[i]->setText(WithKey(list.heads.value(i), taken) + u':');
        boxes[i]->setAccessibleName(list.heads.value(i));
        boxes[i]->setMaxLength(static_cast<int>(std::min<qsizetype>(list.limits[static_cast<std::size_t>(i)], boxes[i]->maxLength())));
        boxes[i]->setText(texts.value(i).trimmed());
        connect(boxes[i], &QLineEdit::textChanged, this, [this] {
            const QStringList now = Texts();
            m_ui->cmdOkay->setEnabled(std::ranges::none_of(now, [](const QString& text) { return text.trimmed().isEmpty(); }));
        });
    }
    m_ui->cmdOkay->setEnabled(!texts.isEmpty());
    // The name is what is edited most; a new row begins with its code.
    QLineEdit* first = boxes[texts.isEmpty() ? 0 : 1];
    first->setFocus();
    first->selectAll();
    connect(m_ui->cmdOkay, &QPushButton::clicked, this, [this] { Guarded(m_dialogs, [this] { Okay(); }); });
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

fManageEdit::~fManageEdit() = default;

QStringList fManageEdit::Texts() const
{
    return {m_ui->txtEdit_0->text(), m_ui->txtEdit_1->text()};
}

void fManageEdit::Okay()
{
    m_store(Texts());
    accept();
}

} // namespace kelvado
