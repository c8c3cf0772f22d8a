#include "browse/forms/frmFilter.h"

#include "browse/forms/MethodTree.h"
#include "core/Literals.h"
#include "ui_frmFilter.h"

namespace kelvado {

frmFilter::frmFilter(Dialogs& dialogs, QWidget* parent) : QDialog(parent), m_ui(std::make_unique<Ui::frmFilter>()), m_dialogs(dialogs)
{
    m_ui->setupUi(this);
    int number = 0;
    for (const FilmElement& element : FilterElements())
        AddMethod(*m_ui->tvFilter, QString::fromLatin1(element.caption), element.kind == ElementKind::Group, number++);
    connect(m_ui->tvFilter, &QTreeWidget::currentItemChanged, this, &frmFilter::OnSelect);
    connect(m_ui->cmdAddFilter, &QPushButton::clicked, this, &frmFilter::OnAdd);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

frmFilter::~frmFilter() = default;

FilterRecord frmFilter::ShowAndRead()
{
    if (exec() != QDialog::Accepted)
        return {u"0"_s, {}};
    return MakeFilter(*Element(), m_ui->CboOperand->currentIndex(), m_ui->txtFilter->text());
}

const FilmElement* frmFilter::Element() const
{
    const int number = MethodNumber(m_ui->tvFilter->currentItem());
    return number < 0 ? nullptr : &FilterElements()[static_cast<std::size_t>(number)];
}

void frmFilter::OnSelect()
{
    const FilmElement* element = Element();
    const bool chosen = element && element->kind != ElementKind::Group;
    m_ui->cmdAddFilter->setEnabled(chosen);
    if (!chosen)
        return;
    m_ui->CboOperand->clear();
    m_ui->CboOperand->setEnabled(element->kind != ElementKind::Text);
    if (element->kind == ElementKind::Text)
        return;
    for (const char* operand : FilterOperands())
        m_ui->CboOperand->addItem(QString::fromLatin1(operand));
    m_ui->CboOperand->setCurrentIndex(-1);
}

void frmFilter::OnAdd()
{
    const QString fault = FilterFault(Element(), m_ui->CboOperand->currentIndex(), m_ui->txtFilter->text());
    if (fault.isEmpty())
        accept();
    else
        m_dialogs.MessageBox(fault, kBoxInformation);
}

} // namespace kelvado
