#include "render/pages/PageMessages.h"

#include "support/ErrorOf.h"

namespace kelvado {
namespace {

using Kind = PageAction::Kind;

TEST(PageMessages, EachClickHasOneMeaning)
{
    const struct
    {
        const char* id;
        const char* tagName;
        const char* href;
        Kind kind;
        const char* text = "";
        FilmId film = 0;
    } clicks[] = {
        {"SendMessage:GOTO:12:Action", "A", "file:///page.html#", Kind::GoTo, "\"12\nAction\""},
        {"SendMessage:GOTO:12:2001: A Space Odyssey", "TD", "", Kind::GoTo, "\"12\n2001\""}, // a colon ends the value
        {"before SendMessage:GOTO:12:", "A", "", Kind::GoTo, "\"12\n\""},
        {"SendMessage:PAGE_CREDITS:5000000000", "A", "", Kind::Credits, "", 5000000000},
        {"SendMessage:PAGE_ADD", "A", "", Kind::AddFilms},
        {"SendMessage:PAGE_NFO", "A", "https://example.org/", Kind::Nothing},
        {"SendMessage:ACTORID:7", "A", "https://example.org/", Kind::Nothing},
        {"SendMessage:WRITERID:7", "A", "https://example.org/", Kind::Nothing},
        {"SendMessage:goto:12:Action", "A", "", Kind::Nothing},
        {"sendmessage:GOTO:12:Action", "A", "https://example.org/", Kind::OpenOutside},
        {"javascript:fold", "A", "https://example.org/", Kind::Nothing},
        {"", "a", "https://example.org/?q=a%20b", Kind::OpenOutside},
        {"", "B", "https://example.org/", Kind::Nothing},
    };
    for (const auto& click : clicks) {
        const PageAction action =
            ActionOfClick({QString::fromUtf8(click.id), QString::fromUtf8(click.tagName), QString::fromUtf8(click.href)});
        EXPECT_EQ(action.kind, click.kind) << click.id << ' ' << click.tagName;
        EXPECT_EQ(action.text.toStdString(), click.text) << click.id;
        EXPECT_EQ(action.film, click.film) << click.id;
        EXPECT_EQ(action.address, click.kind == Kind::OpenOutside ? QUrl(QString::fromUtf8(click.href)) : QUrl()) << click.id;
    }
    EXPECT_EQ(ActionOfMessage(u"SendMessage:PAGE_CREDITS:12"_s, true).kind, Kind::PopupMenu);
    for (const char* broken : {"SendMessage", "SendMessage:GOTO", "SendMessage:GOTO:12", "SendMessage:PAGE_CREDITS"})
        EXPECT_EQ(ErrorOf([&] { ActionOfMessage(QString::fromLatin1(broken), false); }), kErrSubscript) << broken;
    EXPECT_EQ(ErrorOf([] { ActionOfMessage(u"SendMessage:PAGE_CREDITS:1 OR 1=1"_s, false); }), kErrTypeMismatch);
}

} // namespace
} // namespace kelvado
