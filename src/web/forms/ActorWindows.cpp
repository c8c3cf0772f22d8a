#include "web/forms/ActorWindows.h"

#include "web/forms/ShowAbove.h"
#include "web/forms/frmActorPrompt.h"

namespace kelvado {

ActorWindows::ActorWindows(QWidget& owner, Callbacks callbacks) : m_owner(owner), m_callbacks(std::move(callbacks)) {}

ActorWindows::~ActorWindows() = default;

void ActorWindows::Open()
{
    m_waiting = std::make_unique<frmDisabled>(&m_owner);
    m_callbacks.skin(*m_waiting);
    QObject::connect(m_waiting.get(), &frmDisabled::CancelAsked, m_waiting.get(), [this] { m_callbacks.cancel(); });
    ShowAbove(*m_waiting, m_owner);
}

void ActorWindows::Close()
{
    LetGo(std::move(m_waiting));
}

std::optional<qsizetype> ActorWindows::ChooseMatch(const QList<ActorMatch>& matches)
{
    m_waiting->hide();
    frmActorPrompt prompt(matches, &m_owner);
    m_callbacks.skin(prompt);
    QObject::connect(&prompt, &frmActorPrompt::ViewWanted, &prompt, [&](qsizetype place) { m_callbacks.view(matches[place].Link); });
    const std::optional<qsizetype> choice = prompt.ShowAndRead();
    if (choice)
        m_waiting->show();
    return choice;
}

} // namespace kelvado
