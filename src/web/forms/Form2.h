#pragma once

#include "ui/Skinner.h"
#include "web/retrieval/FilmQueue.h"
#include "web/search/TitleSearch.h"

#include <QWidget>

#include <memory>

namespace Ui {
class Form2;
}

namespace kelvado {

class FilmRows;

/// The panel that adds films from the film site: the user searches, puts films into a queue and adds them all.
class Form2 : public QWidget
{
    Q_OBJECT
public:
    /// `desk` and `skinner` outlive the panel; the options must be loaded.
    Form2(FilmDesk& desk, const Skinner& skinner, QWidget* parent = nullptr);
    ~Form2() override;

    /// For each time that the panel comes into view: a locked search is free again, changed defaults are taken over. The lists stay.
    void Reopen();

Q_SIGNALS:
    /// A menu is wanted for the row last selected; `number` is empty where the list has no selected row.
    void MenuWanted(const QPoint& globalPosition, const QString& number);

protected:
    /// Leaving the panel stops its search.
    void hideEvent(QHideEvent* event) override;

private:
    void ConnectControls();
    void LoadDefaults();
    void Search();
    void LookUp();
    void AddAll();
    void WriteLog(const JobResult& result);
    void MoveToQueue(int row);
    void MoveBack(int row);
    void ShowLists();
    void ShowButtons();
    void OnSelect(const FilmRows& list, const QList<SearchRow>& rows);

    std::unique_ptr<Ui::Form2> m_ui;
    FilmDesk& m_desk;
    const Skinner& m_skinner;
    TitleSearch m_search;
    QList<SearchRow> m_queue;
    cOptDefaults m_defaults;
    QString m_lastNumber;
};

/// Lets the user choose a title in a `frmAkaSet` above `owner`.
ChooseTitle AskInAkaSet(Dialogs& dialogs, const Skinner& skinner, QWidget& owner);

} // namespace kelvado
