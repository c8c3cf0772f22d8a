#pragma once

#include "browse/Tree.h"
#include "core/NodeKey.h"
#include "store/Recordset.h"
#include "support/IdleEvents.h"
#include "support/MapMarks.h"
#include "support/RecordingShell.h"
#include "support/TempCatalog.h"
#include "support/TempHome.h"

namespace kelvado {

/// A catalog and a tree over it. `Sort` sets the options as the menus do.
class TreeFixture : public ::testing::Test
{
protected:
    TreeFixture()
    {
        home.Write(u"Settings.ini"_s, FileContent(u"" KELVADO_SOURCE_DIR "/data/Settings.ini"_s));
        state.gOptions = std::make_unique<cOptions>(home.Path(u"Settings.ini"_s), marks);
        state.comDiagFile.fileName = catalog.Path();
    }

    void Sort(const char* primary, const char* secondary = "Movie.Title")
    {
        state.gOptions->View.PrimarySort = QString::fromLatin1(primary);
        state.gOptions->View.SecondarySort = QString::fromLatin1(secondary);
    }

    /// Every group as "key text #picture", its films behind it as "  key text #picture"; "|" for a key's line feed.
    QStringList Shown() const
    {
        QStringList lines;
        const auto line = [&](const QModelIndex& node) {
            return u"%1 %2 #%3"_s.arg(model.Key(node).replace(u'\n', u'|'), node.data().toString())
                .arg(node.data(CatalogModel::ImageRole).toInt());
        };
        for (int g = 0; g < model.rowCount(); ++g) {
            const QModelIndex group = model.index(g, 0);
            lines << line(group);
            for (int f = 0; f < model.rowCount(group); ++f)
                lines << u"  "_s + line(model.index(f, 0, group));
        }
        return lines;
    }

    TempHome home;
    TempCatalog catalog;
    AppState state;
    MapMarks marks;
    IdleEvents events;
    RecordingShell shell;
    CatalogModel model;
    Tree tree{{state, marks, events, shell, model}};
};

} // namespace kelvado
