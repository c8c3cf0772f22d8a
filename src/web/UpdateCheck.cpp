#include "web/UpdateCheck.h"

#include "core/Conversions.h"
#include "core/Literals.h"
#include "core/Paths.h"
#include "core/RuntimeError.h"
#include "core/Version.h"
#include "web/readers/WebText.h"

#include <QProcess>

namespace kelvado {

bool CheckForUpdate(bool quiet, Transport& transport, const WebHosts& hosts, Dialogs& dialogs, const std::function<void()>& startUpdater)
{
    // As much as a message box holds; a wrong server may answer with anything.
    constexpr qsizetype kLongestMessage = 1024;
    const QString answer = FlattenPage(transport.GetUrl("http://"_L1 + hosts.UpdateHost + "/downloads/autoupdate/index.html"_L1));
    dialogs.MessageBox(answer.left(kLongestMessage), kBoxPlain, u"The newest build of Kelvado (yours is %1)"_s.arg(kBuildNumber));

    const double newest = ToDouble(answer);
    if (newest <= kBuildNumber) {
        if (!quiet) {
            dialogs.MessageBox(newest == kBuildNumber ? u"Kelvado is currently upto date."_s
                                                      : u"Your version of Kelvado is newer than KDBUpdater version"_s,
                               kBoxPlain);
        }
        return false;
    }
    if (dialogs.MessageBox(u"There is a new version of Kelvado available, would you like to update Kelvado now?"_s,
                           kBoxYesNo | kBoxInformation) != kAnswerYes)
        return false;
    dialogs.MessageBox(u"Kelvado will now be closed for the update proccess"_s, kBoxPlain);
    startUpdater();
    return true;
}

void StartUpdater(const QString& appPath)
{
    const QString program = FindFileCaseBlind(appPath, u"KDBUpdate.exe"_s);
    if (!QProcess::startDetached(program, {u"?version:%1"_s.arg(kBuildNumber), u"?relaunch"_s}))
        throw RuntimeError::WithDetail(kErrFileNotFound, program);
}

} // namespace kelvado
