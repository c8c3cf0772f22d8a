#pragma once

#include "ui/Skinner.h"
#include "web/retrieval/FilmQueue.h"

#include <QDialog>
#include <QStringListModel>

#include <memory>

namespace Ui {
class frmImportIMDb;
}

namespace kelvado {

/// Reads film numbers out of a file and adds all these films.
class frmImportIMDb : public QDialog
{
    Q_OBJECT
public:
    /// All of it outlives the window.
    frmImportIMDb(FilmDesk& desk, const Skinner& skinner, QWidget* parent);
    ~frmImportIMDb() override;

    /// Shows the window; without numbers where it was closed before.
    void ShowEmpty();

    /// A run under way keeps the window: it is cancelled in the progress window.
    void reject() override;

private:
    void SelectFile();
    void RemoveSelected();
    void AddAll();
    void ShowNumbers(const QStringList& numbers);

    std::unique_ptr<Ui::frmImportIMDb> m_ui;
    FilmDesk& m_desk;
    QStringListModel m_numbers;
    FileDialog m_file;
    bool m_running = false;
};

} // namespace kelvado
