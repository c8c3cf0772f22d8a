#pragma once

#include "web/forms/frmDisabled.h"
#include "web/retrieval/IMDBActor.h"

#include <functional>
#include <memory>

namespace kelvado {

/// The windows of a person's retrieval, above the main window: new ones for each, so that they can be worked with while that is disabled.
class ActorWindows : public PersonWindows
{
public:
    struct Callbacks
    {
        std::function<void(QWidget&)> skin;
        std::function<void()> cancel;
        std::function<void(const QString& link)> view; ///< shows the page of the person with this link
    };
    /// `owner` outlives this object.
    ActorWindows(QWidget& owner, Callbacks callbacks);
    ~ActorWindows() override;

    void Open() override;
    void Close() override;
    std::optional<qsizetype> ChooseMatch(const QList<ActorMatch>& matches) override;

private:
    QWidget& m_owner;
    Callbacks m_callbacks;
    std::unique_ptr<frmDisabled> m_waiting;
};

} // namespace kelvado
