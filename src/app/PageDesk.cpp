#include "app/PageDesk.h"

#include "core/Literals.h"
#include "core/Paths.h"

namespace kelvado {

void PageDesk::Show(const Page& page, const Make& again)
{
    m_shown = again;
    m_shownStep = page.step;
    if (!page.step.isEmpty())
        m_steps.insert(Pages::NumberOfStep(page.step), {again, m_round});
    m_view.Navigate(page.path);
}

void PageDesk::ShowStep(const History::Step& step)
{
    const Made made = m_steps.value(Pages::NumberOfStep(step.page));
    if (step.page.isEmpty())
        return Show({u"about:blank"_s, {}}, {});
    if (made.again && made.round != m_round)
        return Remake(step.page, made.again);
    m_shown = made.again;
    m_shownStep = step.page;
    m_view.Navigate(TempFolder() + u'/' + step.page);
}

void PageDesk::Refresh()
{
    if (m_shown)
        Remake(m_shownStep, Make(m_shown));
}

// The new page takes the file of the old one, whose ending may be another: the files of the other steps stay theirs.
void PageDesk::Remake(const QString& step, const Make& again)
{
    const std::optional<Page> page = step.isEmpty() ? again() : m_pages.MakeAgain(step, again);
    if (!page)
        return;
    if (!step.isEmpty())
        m_history.Repage(step, page->step);
    Show(*page, again);
}

} // namespace kelvado
