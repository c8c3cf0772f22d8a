#pragma once

#include <QString>

class QTreeWidget;
class QTreeWidgetItem;

namespace kelvado {

/// Appends one entry of a tree of groups and their methods: a group at the top level, anything else under the last group. Groups are
/// shown open. `number` is kept with the entry.
void AddMethod(QTreeWidget& tree, const QString& caption, bool isGroup, int number);

/// The number of an entry; -1 for a null one.
int MethodNumber(const QTreeWidgetItem* entry);

} // namespace kelvado
