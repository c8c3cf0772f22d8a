#pragma once

#include "Drawing.h"

namespace kelvado {

/// Makes the pictures of a list (JSON) into `target`: each of its entries says by which drawing, in which states, sizes and frames.
/// Drawings are looked for in `folders`, in their order, and filled in from the palette and the entry. Raises ArtFault, with the file, for
/// a list or a drawing that cannot be read and for a picture that cannot be made.
void MakePictures(const QString& list, const QStringList& folders, const Values& palette, const QString& target);

/// Makes the skin of the folder `skin`: its own files, and the pictures of "skin.json" by its palette. A drawing or list in the skin's
/// folder "art" goes before that of the same name in `art`.
void MakeSkin(const QString& skin, const QString& art, const QString& target);

/// Makes the pictures that lie beside the program, "program.json", in the colors of the skin.
void MakeProgramPictures(const QString& skin, const QString& art, const QString& target);

} // namespace kelvado
