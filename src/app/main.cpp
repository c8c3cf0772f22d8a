#include "app/DesktopSeams.h"
#include "app/Form1.h"
#include "app/hMain.h"
#include "core/Guard.h"
#include "core/Paths.h"
#include "render/forms/PageEngine.h"
#include "ui/AppStyle.h"
#include "ui/ContextKey.h"
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
    ContextKey contextKey;
    application.installEventFilter(&contextKey);
    DesktopDialogs dialogs;
    DesktopEvents events;
    try {
        QDir().mkpath(TempFolder());
        Form1 window(dialogs, events);
        dialogs.SetOwner(&window);
        dialogs.SetBeforeConfirmation([&window] { window.PrepareConfirmation(); });
        LoaderMain(window, QApplication::arguments().mid(1));
        return QApplication::exec();
    } catch (const RuntimeError& error) {
        ReportError(dialogs, error);
    } catch (const std::exception& error) {
        ReportError(dialogs, RuntimeError(7, QString::fromUtf8(error.what())));
    }
    return 1;
}
