#pragma once

class QString;

namespace kelvado {

class Palette;

/// Each button of the tool bar as "Key.png", "Key-over.png", "Key-down.png" and "Key-disabled.png".
void PaintToolbar(const Palette& palette, const QString& folder);

/// The catalog tree's pictures "1.png" to "13.png".
void PaintTree(const Palette& palette, const QString& folder);

/// The certificates, in double size for a page that shows them 24 pixels high.
void PaintCertificates(const Palette& palette, const QString& folder);

/// The pieces of the rating bar, in double size for a page that shows them 20 pixels high.
void PaintRatingBar(const Palette& palette, const QString& folder);

/// The picture of a film that has none.
void PaintNoImage(const Palette& palette, const QString& folder);

/// "working.gif", which moves, and its idle twin "stop.gif".
void PaintBusy(const Palette& palette, const QString& folder);

/// The program's own picture: "kelvado-16.png" … "kelvado-256.png" and "kelvado.png".
void PaintAppIcon(const Palette& palette, const QString& folder);

} // namespace kelvado
