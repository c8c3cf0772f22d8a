#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class frmFind;
}

namespace kelvado {

/// "Find": a small window that stays open beside the tree. It says what is wanted; the main window searches.
class frmFind : public QDialog
{
    Q_OBJECT
public:
    explicit frmFind(QWidget* parent = nullptr);
    ~frmFind() override;

Q_SIGNALS:
    void FindNext(const QString& text);

private:
    std::unique_ptr<Ui::frmFind> m_ui;
};

} // namespace kelvado
