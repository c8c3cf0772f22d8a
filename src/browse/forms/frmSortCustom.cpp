#include "browse/forms/frmSortCustom.h"

#include "browse/FilmElements.h"
#include "browse/Sorting.h"
#include "browse/forms/MethodTree.h"
#include "ui_frmSortCustom.h"

namespace kelvado {

frmSortCustom::frmSortCustom(QWidget* parent) : QDialog(parent), m_ui(std::make_unique<Ui::frmSortCustom>()), m_result(kNothingChosen)
{
    m_ui->setupUi(this);
    int number = 0;
    for (const FilmElement& method : SortMethods())
        AddMethod(*m_ui->tvSort, QString::fromLatin1(method.caption), method.kind == ElementKind::Group, number++);
    connect(m_ui->tvSort, &QTreeWidget::currentItemChanged, this, &frmSortCustom::OnSelect);
    connect(m_ui->tvSort, &QTreeWidget::itemDoubleClicked, this, [this] {
        if (m_ui->cmdOkay->isEnabled())
            accept();
    });
    connect(m_ui->cmdOkay, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

frmSortCustom::~frmSortCustom() = default;

QString frmSortCustom::ShowAndRead()
{
    return exec() == QDialog::Accepted ? m_result : QString(kNothingChosen);
}

void frmSortCustom::OnSelect()
{
    const int number = MethodNumber(m_ui->tvSort->currentItem());
    const bool chosen = number >= 0 && SortMethods()[static_cast<std::size_t>(number)].kind != ElementKind::Group;
    m_ui->cmdOkay->setEnabled(chosen);
    m_result = chosen ? QString::fromLatin1(SortMethods()[static_cast<std::size_t>(number)].key) : QString(kNothingChosen);
}

} // namespace kelvado
