#pragma once

#include "web/readers/mIMDBActorParse.h"

#include <QDialog>

#include <memory>
#include <optional>

namespace Ui {
class frmActorPrompt;
}

namespace kelvado {

/// The user chooses one among several people of a name.
class frmActorPrompt : public QDialog
{
    Q_OBJECT
public:
    explicit frmActorPrompt(const QList<ActorMatch>& matches, QWidget* parent = nullptr);
    ~frmActorPrompt() override;

    /// Shows the dialog and returns the place of the chosen one; nothing where the user left it without a choice.
    std::optional<qsizetype> ShowAndRead();

Q_SIGNALS:
    /// The user wants to see the page of the one at `place`.
    void ViewWanted(qsizetype place);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ShowMenu(const QPoint& place);
    /// The place of the selected row; nothing without one.
    std::optional<qsizetype> Selected() const;
    void View();

    std::unique_ptr<Ui::frmActorPrompt> m_ui;
};

} // namespace kelvado
