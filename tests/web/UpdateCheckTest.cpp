#include "web/UpdateCheck.h"
#include "PageReaders.h"
#include "support/ScriptedTransport.h"

#include <QTemporaryDir>

namespace kelvado {
namespace {

TEST(UpdateCheck, ComparesTheAnswerWithThisBuild)
{
    const QString offer = u"There is a new version of Kelvado available, would you like to update Kelvado now?"_s;
    const QString closing = u"Kelvado will now be closed for the update proccess"_s;
    const QString current = u"Kelvado is currently upto date."_s;
    const QString newer = u"Your version of Kelvado is newer than KDBUpdater version"_s;
    const struct
    {
        QString answer;
        bool quiet;
        int choice;
        QStringList texts; ///< behind the answer itself
        bool updates;
        int error;
    } cases[] = {
        {u"22\r\n47"_s, false, 0, {current}, false, 0},    {u" 2247.0 "_s, false, 0, {current}, false, 0},
        {u"2246.9"_s, false, 0, {newer}, false, 0},        {u"2246"_s, true, 0, {}, false, 0},
        {u"2248"_s, true, kAnswerNo, {offer}, false, 0},   {u"2247.5"_s, false, kAnswerYes, {offer, closing}, true, 0},
        {QString(), true, 0, {}, false, kErrTypeMismatch}, {u"<html>"_s, false, 0, {}, false, kErrTypeMismatch},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(qPrintable(c.answer));
        WebHosts hosts;
        hosts.UpdateHost = u"maker.test"_s;
        ScriptedTransport transport;
        transport.pages[u"http://maker.test/downloads/autoupdate/index.html"_s] = c.answer;
        ScriptedDialogs dialogs;
        dialogs.answers << kAnswerOk << c.choice;
        bool updates = false;
        bool started = false;
        EXPECT_EQ(ErrorOf([&] { return updates = CheckForUpdate(c.quiet, transport, hosts, dialogs, [&] { started = true; }); }), c.error);
        EXPECT_EQ(dialogs.Texts(), QStringList(FlattenPage(c.answer)) + c.texts);
        EXPECT_EQ(dialogs.boxes[0].title, u"The newest build of Kelvado (yours is 2247)"_s) << "a bare number says nothing";
        EXPECT_EQ(updates, c.updates);
        EXPECT_EQ(started, c.updates);
        EXPECT_EQ(dialogs.boxes.value(1, {QString(), kBoxPlain, QString()}).type, c.choice == 0 ? kBoxPlain : 68);
    }
    EXPECT_EQ(ErrorOf([] { StartUpdater(QTemporaryDir().path()); }), kErrFileNotFound);
}

} // namespace
} // namespace kelvado
