#include "web/forms/FilmProgress.h"

#include "core/Guard.h"

#include <QScopedValueRollback>

namespace kelvado {

FilmProgress::FilmProgress(QWidget& owner, Dialogs& dialogs, std::function<void(QWidget&)> skin)
    : m_owner(owner), m_dialogs(dialogs), m_skin(std::move(skin))
{
}

FilmProgress::~FilmProgress() = default;

void FilmProgress::Open()
{
    m_window = std::make_unique<frmProgress>(&m_owner);
    m_skin(*m_window);
    QObject::connect(m_window.get(), &frmProgress::CancelAsked, m_window.get(), [this] { Guarded(m_dialogs, [this] { AskCancel(); }); });
    const QRect above(m_owner.mapToGlobal(QPoint()), m_owner.size());
    m_window->move(above.center() - m_window->rect().center());
    m_window->show();
}

void FilmProgress::Close()
{
    if (!m_window)
        return;
    // A click on its button may still be on its way through the window.
    m_window->hide();
    m_window.release()->deleteLater();
}

void FilmProgress::ShowFilm(const QString& title)
{
    if (m_window)
        m_window->ShowFilm(title);
}

void FilmProgress::ShowStage(const QString& filmOf, const QString& stage, int percent)
{
    if (m_window)
        m_window->ShowStage(filmOf, stage, percent);
}

void FilmProgress::AskCancel()
{
    if (m_asking || !m_askCancel)
        return;
    bool cancelled = false;
    {
        const QScopedValueRollback asking(m_asking, true);
        cancelled = m_askCancel();
    }
    if (cancelled && m_window)
        m_window->hide();
}

} // namespace kelvado
