#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class frmDisabled;
}

namespace kelvado {

/// Says that the disabled main window is waited for, with a button to cancel.
class frmDisabled : public QDialog
{
    Q_OBJECT
public:
    explicit frmDisabled(QWidget* parent = nullptr);
    ~frmDisabled() override;

    /// Also Escape and the window's own close button end here; the window stays until what it waits for has ended.
    void reject() override { Q_EMIT CancelAsked(); }

Q_SIGNALS:
    void CancelAsked();

private:
    std::unique_ptr<Ui::frmDisabled> m_ui;
};

} // namespace kelvado
