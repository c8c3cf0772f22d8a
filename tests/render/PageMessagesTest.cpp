#include "render/PageMessages.h"

#include "RecordingHost.h"
#include "core/AppState.h"
#include "core/Literals.h"
#include "render/Pages.h"
#include "support/RecordingShell.h"
#include "support/ScriptedDialogs.h"

#include <gtest/gtest.h>

namespace kelvado {
namespace {

class Messages : public ::testing::Test
{
protected:
    AppState state;
    ScriptedDialogs dialogs;
    RecordingShell shell;
    RecordingHost host;
    Pages pages{state, dialogs, shell, host};
    PageMessages messages{host, pages};

    std::string Click(const char* id, const char* tagName, const char* href, bool controlDown = false)
    {
        host.calls.clear();
        messages.OnClick({QString::fromUtf8(id), QString::fromUtf8(tagName), QString::fromUtf8(href), controlDown});
        return host.calls.join(u'|').toStdString();
    }
};

TEST_F(Messages, EachClickHasOneMeaning)
{
    const struct
    {
        const char* id;
        const char* tagName;
        const char* href;
        const char* told;
    } clicks[] = {
        {"SendMessage:GOTO:12:Action", "A", "file:///page.html#", "select \"12\nAction\"|show"},
        {"SendMessage:GOTO:12:2001: A Space Odyssey", "TD", "", "select \"12\n2001\"|show"}, // a colon ends the value
        {"before SendMessage:GOTO:12:", "A", "", "select \"12\n\"|show"},
        {"SendMessage:PAGE_NFO", "A", "https://example.org/", ""},
        {"SendMessage:ACTORID:7", "A", "https://example.org/", ""},
        {"SendMessage:WRITERID:7", "A", "https://example.org/", ""},
        {"SendMessage:goto:12:Action", "A", "", ""},
        {"sendmessage:GOTO:12:Action", "A", "https://example.org/", "outside https://example.org/"},
        {"javascript:fold", "A", "https://example.org/", ""},
        {"", "A", "https://example.org/?q=a%20b", "outside https://example.org/?q=a%20b"},
        {"", "a", "HTTP://example.org/", "outside http://example.org/"},
        {"", "A", "mailto:a@example.org", "outside mailto:a@example.org"},
        {"", "B", "https://example.org/", ""},
        {"", "A", "", ""},
        {"", "A", "file:///etc/passwd", ""},
        {"", "A", "javascript:alert(1)", ""},
        {"", "A", "smb://host/share", ""},
        {"", "A", "httpx://example.org/", ""},
    };
    for (const auto& click : clicks)
        EXPECT_EQ(Click(click.id, click.tagName, click.href), click.told) << click.id << ' ' << click.href;
    EXPECT_EQ(Click("SendMessage:PAGE_CREDITS:12", "A", "", true), "popup");
}

TEST_F(Messages, BrokenMessagesRaise)
{
    host.missingKeys = QStringList{u"\"9\nDrama\""_s};
    const struct
    {
        const char* id;
        int number;
    } broken[] = {{"SendMessage", kErrSubscript},
                  {"SendMessage:GOTO", kErrSubscript},
                  {"SendMessage:GOTO:12", kErrSubscript},
                  {"SendMessage:PAGE_CREDITS", kErrSubscript},
                  {"SendMessage:PAGE_CREDITS:1 OR 1=1", kErrTypeMismatch},
                  {"SendMessage:PAGE_CREDITS:99999999999", kErrOverflow},
                  {"SendMessage:GOTO:9:Drama", kErrElementNotFound}};
    for (const auto& message : broken) {
        try {
            Click(message.id, "A", "");
            ADD_FAILURE() << message.id << " did not raise";
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number(), message.number) << message.id;
        }
        EXPECT_TRUE(host.calls.isEmpty()) << message.id;
    }
}

} // namespace
} // namespace kelvado
