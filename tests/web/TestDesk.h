#pragma once

#include "PageReaders.h"
#include "core/Profile.h"
#include "support/IdleEvents.h"
#include "support/MapMarks.h"
#include "support/ScriptedTransport.h"
#include "support/TempCatalog.h"
#include "support/TempHome.h"
#include "web/retrieval/FilmDesk.h"

namespace kelvado {

/// Writes what is shown into a list of another's, so that one list tells the order of all.
class RecordingProgress : public RetrievalProgress
{
public:
    explicit RecordingProgress(QStringList& log) : m_log(log) {}
    void Open() override { m_log << u"open"_s; }
    void Close() override { m_log << u"close"_s; }
    void ShowFilm(const QString& title) override { m_log << title; }
    void ShowStage(const QString& filmOf, const QString& stage, int percent) override
    {
        m_log << u"%1: %2, %3%"_s.arg(filmOf, stage).arg(percent);
    }

private:
    QStringList& m_log;
};

/// A desk with a home and a catalog of its own, whose web is a table of pages.
class TestDesk : public testing::Test
{
protected:
    TestDesk()
    {
        QFile::copy(u"" KELVADO_SOURCE_DIR "/data/Settings.ini"_s, home.Path(u"Settings.ini"_s));
        ProfileChanges hosts(home.Path(u"Settings.ini"_s));
        for (const auto& [key, host] : {std::pair(u"ImdbMainHost"_s, u"main.test"_s),
                                        {u"ImdbSearchHost"_s, u"search.test"_s},
                                        {u"ImdbPersonHost"_s, u"people.test"_s},
                                        {u"ImdbPosterHost"_s, u"posters.test"_s},
                                        {u"AmazonMainHost"_s, u"shop.test"_s}})
            hosts.Set(u"Hosts"_s, key, host);
        hosts.Write();
        state.gOptions = std::make_unique<cOptions>(home.Path(u"Settings.ini"_s), marks);
        state.gOptions->IMDbFilmUpdate = state.gOptions->IMDbFilmAdd = AllParts();
        state.comDiagFile.fileName = catalog.Path();
    }

    TempHome home;
    TempCatalog catalog;
    MapMarks marks;
    AppState state;
    RecordingShell shell;
    ScriptedDialogs dialogs;
    IdleEvents events;
    ScriptedTransport transport;
    RecordingProgress progress{transport.requests};
    FilmDesk desk{state, shell, dialogs, events, transport, progress, {}, false};
};

} // namespace kelvado
