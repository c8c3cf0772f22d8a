#pragma once

class QAbstractItemView;
class QModelIndex;

namespace kelvado {

/// Tells assistive programs what the drawn controls are: tabs with their selected state, the tool bar, the status bar, the busy picture,
/// the divider, the rows of a text export. What a control says once, as its name, it does not say again as its description. For the start
/// of the program.
void InstallAccessibility();

/// Tells that the current node of a tree was expanded or folded, which the toolkit keeps to itself. Any other node is left alone.
void TellExpanded(QAbstractItemView& tree, const QModelIndex& node);

} // namespace kelvado
