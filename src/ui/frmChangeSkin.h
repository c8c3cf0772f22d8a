#pragma once

#include <QDialog>

#include <functional>
#include <memory>

class QListWidgetItem;

namespace Ui {
class frmChangeSkin;
}

namespace kelvado {

/// "Skin Selector": the list of all skins. The one that is selected is shown at once by the whole program; "Cancel" leaves it to the
/// caller to go back to the one before. A skin that cannot be shown stays in the list, with the reason below it, and cannot be accepted.
class frmChangeSkin : public QDialog
{
    Q_OBJECT
public:
    struct Context
    {
        QString current;
        /// Goes over to a skin; raises RuntimeError where it cannot be shown.
        std::function<void(const QString& skin)> change;
        /// The colours that are missing or wrong in the skin on show.
        std::function<QStringList()> badColors;
    };
    frmChangeSkin(const Context& context, QWidget* parent);
    ~frmChangeSkin() override;

private:
    void Preview(const QListWidgetItem* skin);
    void Tell(const QString& remark);

    std::unique_ptr<Ui::frmChangeSkin> m_ui;
    Context m_context;
};

} // namespace kelvado
