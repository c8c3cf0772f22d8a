#pragma once

#include "core/History.h"
#include "render/forms/frmPageView.h"
#include "render/pages/Pages.h"

#include <QHash>

#include <functional>
#include <optional>

namespace kelvado {

/// Shows pages in the page view and keeps how each was made, so that the page on show and those of the history can be made once more for
/// another skin.
class PageDesk
{
public:
    /// Makes a page; nothing where it cannot be made, which was told.
    using Make = std::function<std::optional<Page>()>;

    /// All of it outlives this object.
    PageDesk(Pages& pages, History& history, frmPageView& view) : m_pages(pages), m_history(history), m_view(view) {}

    /// Shows `page`; `again` makes the same one anew.
    void Show(const Page& page, const Make& again);
    /// Shows the page of a step of the history, the blank one where it has none.
    void ShowStep(const History::Step& step);
    /// From now on pages that were made before are made anew when they are walked to.
    void OutdateAll() { ++m_round; }
    /// Makes the page on show anew.
    void Refresh();

private:
    struct Made
    {
        Make again;
        int round = 0;
    };
    void Remake(const QString& step, const Make& again);

    Pages& m_pages;
    History& m_history;
    frmPageView& m_view;
    QHash<int, Made> m_steps; ///< by the number of the page's file
    QString m_shownStep;
    Make m_shown;
    int m_round = 0;
};

} // namespace kelvado
