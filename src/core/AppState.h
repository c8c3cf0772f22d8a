#pragma once

#include "core/Dialogs.h"
#include "core/History.h"
#include "core/Literals.h"
#include "core/Options.h"

#include <QString>

#include <memory>

namespace kelvado {

/// The names of the four sections of the main window.
inline constexpr QLatin1StringView kMovieList = "MovieList"_L1;
inline constexpr QLatin1StringView kMovieGrab = "MovieGrab"_L1;
inline constexpr QLatin1StringView kMovieEdit = "MovieEdit"_L1;
inline constexpr QLatin1StringView kActorInfo = "ActorInfo"_L1;

/// The process-wide state, one copy, owned by the main window and handed down.
struct AppState
{
    std::unique_ptr<cOptions> gOptions;
    QString skin; ///< folder name below Skins
    bool CatalogOpen = false;
    bool Activated = false; ///< the first activation of the main window has run
    QString CurrentSection;
    QString FilterWhere;
    std::int16_t FilterCount = 0;
    bool canAddFilter = true;
    History history;
    FileDialog comDiagFile; ///< its `fileName` is the path of the open catalog; empty means that none is open
    FileDialog ComDiag;     ///< the second file dialog

    QString treeCatalog; ///< the catalog that the tree was filled from

    const QString& CatalogPath() const { return comDiagFile.fileName; }
};

} // namespace kelvado
