#pragma once

#include "core/AppState.h"
#include "core/Shell.h"
#include "render/PageHost.h"

#include <optional>

namespace kelvado {

class Connection;

/// Builds the pages of the page view from the current skin's templates. A page lives in one of ten files and its pictures in 25, used in
/// turn, so that the view never shows a stale file and none is overwritten while it is still shown.
class Pages
{
public:
    /// All four must outlive this object.
    Pages(const AppState& state, Dialogs& dialogs, Shell& shell, PageHost& host)
        : m_state(state), m_dialogs(dialogs), m_shell(shell), m_host(host)
    {
    }

    /// Shows the film of the selected tree node. A missing template is told in a message that names the file, and the view stays as it
    /// is. Raises 13 for a node that is no film, 3021 for a film that the catalog does not have, 5 for a skin whose type is XML.
    void ShowFilmPage();

    /// Shows all credits of a film and returns the path of the page; the empty text where the template is missing or empty, which is told
    /// in a message. Raises 13 or 6 where `movieId` is no film's number, 3021 for a film that the catalog does not have.
    QString ShowCreditsPage(const QString& movieId);

    /// Shows the selected film's `Nfo`, "N/A" where it has none. This page is no step of the history. A missing template as in
    /// `ShowFilmPage`.
    void ShowNfoPage();

    /// Writes a page into the next file, makes it a step of the history, opens it in the view and returns its path.
    QString WritePageFile(const QString& text, bool xml);

private:
    bool SkinIsXml() const;
    QString SkinFile(QLatin1StringView name) const;
    std::optional<QString> ReadTemplate(QLatin1StringView name) const;
    QString PictureFor(std::int64_t imageId, Connection& connection);

    const AppState& m_state;
    Dialogs& m_dialogs;
    Shell& m_shell;
    PageHost& m_host;
    int m_pictureCounter = 0;
    int m_pageCounter = 0;
};

} // namespace kelvado
