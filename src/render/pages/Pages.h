#pragma once

#include "core/AppState.h"
#include "core/FilmId.h"
#include "render/pages/PersonTokens.h"

#include <functional>
#include <optional>

namespace kelvado {

/// A page that was written, to be opened in the page view.
struct Page
{
    QString path;
    QString step; ///< the file's name as a step of the history; empty for a page that is none
};

/// Builds the pages of the page view from the current skin's templates. A page lives in one of ten files and its pictures in 25, used in
/// turn, so that the view never shows a stale file and none is overwritten while it is still shown.
class Pages
{
public:
    /// Both must outlive this object.
    Pages(const AppState& state, Dialogs& dialogs) : m_state(state), m_dialogs(dialogs) {}

    /// The page of the film whose tree node has this key, from the open catalog: the skin's template filled, or the film's XML with the
    /// style sheet of a skin whose type is XML. A missing template is told in a message that names the file, and there is no page. Raises
    /// `kErrTypeMismatch` for a node that is no film, `kErrNoCurrentRecord` for a film that the catalog does not have.
    std::optional<Page> FilmPage(const QString& key, Connection& catalog);

    /// The page of the person `actorId`, from the open catalog, with links to the person's films in the tree. A missing template as in
    /// `FilmPage`. Raises `kErrNoCurrentRecord` for a person that the catalog does not have.
    std::optional<Page> PersonPage(qint64 actorId, Connection& catalog, const FilmValueInTree& valueInTree);

    /// All credits of a film. Nothing where the template is missing or empty, which is told in a message. Raises `kErrNoCurrentRecord` for
    /// a film that the catalog does not have.
    std::optional<Page> CreditsPage(FilmId movieId);

    /// The `Nfo` of the film with this key, "N/A" where it has none. This page is no step of the history. A missing template as in
    /// `FilmPage`.
    std::optional<Page> NfoPage(const QString& key);

    /// The skin's page for a catalog without films; the empty text where the skin has none.
    QString EmptyCatalogPage() const;

    /// The number of the file of a step's page.
    static int NumberOfStep(const QString& step);
    /// What `make`, one of the routines above, gives, written into the file that the page of `step` has.
    std::optional<Page> MakeAgain(const QString& step, const std::function<std::optional<Page>()>& make);

    /// Writes a page into the next file.
    Page WritePageFile(const QString& text, bool xml);

private:
    std::optional<Page> XmlPage(const Recordset& film, Connection& catalog);
    bool SkinIsXml() const;
    QString SkinFile(QLatin1StringView name) const;
    std::optional<QString> ReadTemplate(QLatin1StringView name) const;
    QString PictureFor(std::int64_t imageId, QLatin1StringView name, Connection& connection);

    const AppState& m_state;
    Dialogs& m_dialogs;
    int m_pictureCounter = 0;
    int m_pageCounter = 0;
};

} // namespace kelvado
