#include "ui/frmChangeSkin.h"

#include "core/Literals.h"
#include "core/RuntimeError.h"
#include "ui/SkinList.h"
#include "ui_frmChangeSkin.h"

#include <QAccessible>
#include <QPushButton>

namespace kelvado {

frmChangeSkin::frmChangeSkin(const Context& context, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmChangeSkin>()), m_context(context)
{
    constexpr int kRemarkLines = 4;
    m_ui->setupUi(this);
    // What a remark needs is there from the start, so that the list stays in its place.
    m_ui->lblRemark->setMinimumHeight(kRemarkLines * fontMetrics().lineSpacing());
    m_ui->AllSkins->addItems(SkinNames());
    const QList<QListWidgetItem*> current = m_ui->AllSkins->findItems(m_context.current, Qt::MatchFixedString);
    if (!current.isEmpty())
        m_ui->AllSkins->setCurrentItem(current.constFirst());
    connect(m_ui->AllSkins, &QListWidget::currentItemChanged, this, &frmChangeSkin::Preview);
    connect(m_ui->AllSkins, &QListWidget::itemActivated, m_ui->buttons->button(QDialogButtonBox::Ok), &QPushButton::click);
}

frmChangeSkin::~frmChangeSkin() = default;

void frmChangeSkin::Preview(const QListWidgetItem* skin)
{
    if (!skin)
        return;
    QString failure;
    QStringList bad;
    try {
        m_context.change(skin->text());
        bad = m_context.badColors();
    } catch (const RuntimeError& error) {
        failure = error.Description();
    }
    m_ui->buttons->button(QDialogButtonBox::Ok)->setEnabled(failure.isEmpty());
    constexpr qsizetype kMostNamed = 4;
    if (!failure.isEmpty())
        Tell(tr("This skin cannot be shown. %1").arg(failure));
    else if (!bad.isEmpty())
        Tell(tr("In skin.ini these colors are missing or wrong: %1")
                 .arg(bad.mid(0, kMostNamed).join(u", "_s) +
                      (bad.size() > kMostNamed ? tr(" and %1 more").arg(bad.size() - kMostNamed) : QString())));
    else
        Tell({});
}

void frmChangeSkin::Tell(const QString& remark)
{
    m_ui->lblRemark->setText(remark);
    m_ui->AllSkins->setAccessibleDescription(remark);
    QAccessibleEvent told(m_ui->AllSkins, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&told);
}

} // namespace kelvado
