#pragma once

#include "core/AppState.h"
#include "core/Literals.h"
#include "core/Paths.h"
#include "panels/PanelContext.h"
#include "store/mDBConnection.h"
#include "support/RecordingShell.h"
#include "support/ScriptedDialogs.h"
#include "support/TempCatalog.h"
#include "support/TempHome.h"

namespace kelvado {

/// Two films and three people in a catalog of their own, with a program folder beside it.
class PanelFixture : public ::testing::Test
{
protected:
    PanelFixture()
    {
        state.comDiagFile.fileName = catalog.Path();
        state.skin = u"Plain"_s;
        home.Write(u"Skins/Plain/No Image.jpg"_s, "none");
        catalog.Run("INSERT INTO Movie (Movie_ID, Title, Format, IMDB) VALUES (1, 'Alien', 'DVD', '0078748'), (2, 'Diva', 'Request', NULL);"
                    "INSERT INTO Actor (Actor_ID, Actor) VALUES (1, 'Zoe Moor'), (2, 'Andr&#233; Dussol'), (3, 'Bob Holm');"
                    "INSERT INTO Producer (Producer_ID, Producer, IMDB_LINK) VALUES (1, NULL, 'Nameless'), (2, 'Ann Perl', 'Ann Perl');"
                    "INSERT INTO ActorLink (Movie_ID, Actor_ID, Character, \"Order\") VALUES (1, 1, 'Queen', 1), (1, 3, 'Ash', 2),"
                    "(1, 1, 'Twin', 3), (2, 1, 'Zoe', 1)");
    }

    QString Links(const char* table, const char* text) const
    {
        return catalog.Ask(qPrintable(
            u"SELECT group_concat(Movie_ID || ':' || %1_ID || ':' || ifnull(%2, '-') || ':' || \"Order\", ' ') FROM %1Link"_s.arg(
                QLatin1StringView(table), QLatin1StringView(text))));
    }

    TempHome home;
    TempCatalog catalog;
    AppState state;
    ScriptedDialogs dialogs;
    RecordingShell shell;
    PanelContext context{state, dialogs, shell};
    WriterContext writer{catalog.Path(), SettingsFile(), dialogs};
};

} // namespace kelvado
