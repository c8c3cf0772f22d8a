#pragma once

#include <QWidget>

#include <memory>

namespace kelvado {

/// Shows `window` centred above its owner.
void ShowAbove(QWidget& window, const QWidget& owner);

/// Hides the window and lets it go when a click that is still on its way through it has come to its end.
void LetGo(std::unique_ptr<QWidget> window);

} // namespace kelvado
