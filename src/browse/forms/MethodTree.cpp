#include "browse/forms/MethodTree.h"

#include <QTreeWidget>

namespace kelvado {

void AddMethod(QTreeWidget& tree, const QString& caption, bool isGroup, int number)
{
    QTreeWidgetItem* entry = isGroup ? new QTreeWidgetItem(&tree) : new QTreeWidgetItem(tree.topLevelItem(tree.topLevelItemCount() - 1));
    entry->setText(0, caption);
    entry->setData(0, Qt::UserRole, number);
    if (!isGroup)
        return;
    QFont bold = tree.font();
    bold.setBold(true);
    entry->setFont(0, bold);
    entry->setExpanded(true);
}

int MethodNumber(const QTreeWidgetItem* entry)
{
    return entry ? entry->data(0, Qt::UserRole).toInt() : -1;
}

} // namespace kelvado
