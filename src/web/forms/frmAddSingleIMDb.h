#pragma once

#include "ui/Skinner.h"
#include "web/retrieval/FilmQueue.h"
#include "web/search/TitleSearch.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmAddSingleIMDb;
}

namespace kelvado {

/// Finds the stored film on the film site: the user chooses among what a search for its title gives, and the film is stored anew.
/// While it is open the main window is disabled.
class frmAddSingleIMDb : public QDialog
{
    Q_OBJECT
public:
    /// `desk` and `skinner` outlive the window.
    frmAddSingleIMDb(FilmDesk& desk, const Skinner& skinner, QWidget* parent);
    ~frmAddSingleIMDb() override;

    /// Shows the window and searches for `title`; the choice is stored over the film `movieId`.
    void Open(const QString& title, const QString& movieId);

    void reject() override;

Q_SIGNALS:
    /// A menu is wanted for the row last selected; `number` is empty where no row is selected.
    void MenuWanted(const QPoint& globalPosition, const QString& number);

private:
    void Search();
    void OnSelect();
    void OnChoose(int row);
    void Release();

    std::unique_ptr<Ui::frmAddSingleIMDb> m_ui;
    FilmDesk& m_desk;
    const Skinner& m_skinner;
    TitleSearch m_search;
    QString m_movieId, m_lastNumber;
};

} // namespace kelvado
