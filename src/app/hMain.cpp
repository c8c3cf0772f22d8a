#include "app/hMain.h"

#include "app/Form1.h"
#include "core/Literals.h"
#include "core/Paths.h"
#include "core/Profile.h"
#include "core/RuntimeError.h"
#include "ui/SkinList.h"
#include "ui/frmAbout.h"

#include <QApplication>
#include <QFileInfo>

namespace kelvado {

void LoaderMain(Form1& window, const QStringList& arguments)
{
    // A file named on the command line is never opened: the start ends here.
    if (!arguments.isEmpty())
        throw RuntimeError(kErrObjectRequired);
    if (!QFileInfo(SettingsFile()).isFile())
        throw RuntimeError::WithDetail(kErrFileNotFound, SettingsFile());
    // The skin comes first, so that the splash and every question of the start have its colours.
    AppState& state = window.State();
    const QString skin = ReadProfileValue(u"Settings"_s, u"Skin"_s, SettingsFile());
    window.TakeSkin(skin.isEmpty() ? SkinOfFirstStart(QApplication::palette()) : skin);
    frmAbout splash;
    splash.show();
    window.Events().ServeEvents();
    state.gOptions = std::make_unique<cOptions>(SettingsFile(), window.MenuBar());
    window.ApplyMenuRules();
    state.FilterWhere.clear();
    state.FilterCount = 0;
    splash.close();
    window.LayOutAtStart();
}

} // namespace kelvado
