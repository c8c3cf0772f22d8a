#include "app/hMain.h"

#include "app/Form1.h"
#include "core/Literals.h"
#include "core/Paths.h"
#include "core/Profile.h"
#include "core/RuntimeError.h"
#include "ui/frmAbout.h"

namespace kelvado {

namespace {

constexpr const char* kButtonsOff[] = {"Print",     "Save", "Delete",  "AddIMDb",   "AddDVDEmp",
                                       "AddManual", "Back", "Forward", "AddFilter", "Refresh"};
constexpr const char* kEntriesOff[] = {"mnuDelete",       "mnuDeleteE",       "MnuNfoView",       "MnuPrint",         "MnuViewNfo",
                                       "mnuisonewsvisit", "mnuLoanMovie",     "mnuLoanMovieE",    "mnuLoanReturn",    "mnuLoanReturnE",
                                       "MnuMoveMyMovies", "MnuMoveMyMoviesE", "MnuMoveMyRequest", "MnuMoveMyRequestE"};
constexpr const char* kEntriesHidden[] = {"mnuTreeview", "mnuPeopleHistory", "mnufrmSearch", "mnufrmAddSingle", "mnuExtras",
                                          "mnuExcel",    "mnuImportOrigons", "mnuStatus",    "frmEdit"};
constexpr int kFilterEntries = 5;

QString Setting(const char* key)
{
    return ReadProfileValue(u"Settings"_s, QString::fromLatin1(key), SettingsFile());
}

void TurnOffWhatNeedsACatalog(Form1& window)
{
    for (const char* key : kButtonsOff)
        window.EnableButton(QString::fromLatin1(key), false);
    for (const char* name : kEntriesOff)
        window.MenuBar().SetEnabled(QString::fromLatin1(name), -1, false);
    for (const char* name : kEntriesHidden)
        window.MenuBar().SetVisible(QString::fromLatin1(name), -1, false);
    for (int i = 0; i < kFilterEntries; ++i)
        window.MenuBar().SetVisible(u"MnuFilterRemoveSingle"_s, i, false);
    window.MenuBar().SetEnabled(u"mnuFilterRemoveAll"_s, -1, false);
}

} // namespace

void LoaderMain(Form1& window, const QStringList& arguments)
{
    // A file named on the command line is never opened: the start ends here.
    if (!arguments.isEmpty())
        throw RuntimeError(kErrObjectRequired);
    // The skin comes first, so that the splash and every question of the start have its colours.
    AppState& state = window.State();
    state.skin = Setting("Skin");
    window.PaintBySkin();
    frmAbout splash;
    splash.show();
    window.Events().ServeEvents();
    state.gOptions = std::make_unique<cOptions>(SettingsFile(), window.MenuBar());
    window.LoadToolRow();
    window.ApplyMenuRules();
    TurnOffWhatNeedsACatalog(window);
    state.FilterWhere.clear();
    state.FilterCount = 0;
    splash.close();
    window.LayOutAtStart();
}

} // namespace kelvado
