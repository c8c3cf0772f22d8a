#pragma once

#include <QString>
#include <QStringList>

namespace kelvado {

class Form1;

/// Brings the program up to the point where the main window is on the screen: splash, options, skin name, menus, layout.
/// `arguments` are those of the command line without the program's name; any of them stops the start with `kErrObjectRequired`.
/// Raises what the settings and the skin raise.
void LoaderMain(Form1& window, const QStringList& arguments);

} // namespace kelvado
