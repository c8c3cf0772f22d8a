#include "web/forms/FilmProgress.h"

#include "core/Guard.h"
#include "web/forms/ShowAbove.h"

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
    ShowAbove(*m_window, m_owner);
}

void FilmProgress::Close()
{
    LetGo(std::move(m_window));
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
