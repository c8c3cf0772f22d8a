#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class frmProgress;
}

namespace kelvado {

/// How far a run of retrievals is, with a button to cancel it.
class frmProgress : public QDialog
{
    Q_OBJECT
public:
    explicit frmProgress(QWidget* parent = nullptr);
    ~frmProgress() override;

    void ShowFilm(const QString& title);
    void ShowStage(const QString& filmOf, const QString& stage, int percent);

    /// Also Escape and the window's own close button end here: they ask for a cancel, and do not close the window by themselves.
    void reject() override { Q_EMIT CancelAsked(); }

Q_SIGNALS:
    void CancelAsked();

private:
    std::unique_ptr<Ui::frmProgress> m_ui;
};

} // namespace kelvado
