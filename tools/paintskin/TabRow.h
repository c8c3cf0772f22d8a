#pragma once

class QString;

namespace kelvado {

class Palette;

/// Paints the pieces of the section tabs into `folder`: caps, joints, spacer and each tab plain and selected.
/// All are of one height and join without a seam.
void PaintSectionTabs(const Palette& palette, const QString& folder);

/// Paints the pieces of the search selector into `folder`.
void PaintSearchBar(const Palette& palette, const QString& folder);

} // namespace kelvado
