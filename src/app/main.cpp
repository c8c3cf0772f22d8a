#include "app/DesktopSeams.h"
#include "app/Form1.h"
#include "app/OnlyProgram.h"
#include "app/hMain.h"
#include "core/DeliveredFiles.h"
#include "core/Guard.h"
#include "core/Literals.h"
#include "core/Paths.h"
#include "intake/UDisks.h"
#include "render/forms/PageEngine.h"
#include "ui/Accessibility.h"
#include "ui/AppStyle.h"
#include "ui/ContextKey.h"
#include "ui/ScreenFit.h"
#include "ui/frmAbout.h"

#include <QApplication>
#include <QDir>

int main(int argc, char** argv)
{
    using namespace kelvado;
    PreparePageEngine();
    QApplication application(argc, argv);
    QApplication::setApplicationName(frmAbout::ProductName());
    QApplication::setApplicationVersion(frmAbout::Version());
    QApplication::setStyle(new AppStyle);
    InstallAccessibility();
    ContextKey contextKey;
    application.installEventFilter(&contextKey);
    ScreenFit screenFit;
    application.installEventFilter(&screenFit);
    DesktopDialogs dialogs;
    DesktopEvents events;
    try {
        QDir().mkpath(TempFolder());
        const OnlyProgram only(AppPath());
        if (only.IsUnheard())
            dialogs.MessageBox(u"Kelvado is running with the folder %1 already, but does not answer."_s.arg(AppPath()), kBoxExclamation);
        if (!only.IsFirst())
            return 0;
        FurnishHome(AppPath(), QApplication::applicationDirPath());
        UDisks discs;
        Form1 window(dialogs, events, discs);
        QObject::connect(&only, &OnlyProgram::Called, &window, &Form1::ComeToFront);
        dialogs.SetOwner(&window);
        dialogs.SetBeforeConfirmation([&window] { window.PrepareConfirmation(); });
        LoaderMain(window, QApplication::arguments().mid(1));
        return QApplication::exec();
    } catch (const RuntimeError& error) {
        ReportError(dialogs, error);
    } catch (const std::exception& error) {
        ReportError(dialogs, RuntimeError(kErrOutOfMemory, QString::fromUtf8(error.what())));
    }
    return 1;
}
