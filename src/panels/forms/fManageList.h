#pragma once

#include "panels/ManagedList.h"
#include "panels/PanelContext.h"

#include <QDialog>

#include <memory>
#include <optional>

class QShortcut;

namespace Ui {
class fManageList;
}

namespace kelvado {

class Skinner;

/// "Manage List": the rows of "AudioCodecs" or "VideoCodecs", which can be added to, renamed and deleted. It is modal, so that the catalog
/// stays the same under it, and filled when it is made. What fails is shown in a message box and leaves the window open.
class fManageList : public QDialog
{
    Q_OBJECT
public:
    /// `skinner` outlives the window; it paints the entry dialog and gives the buttons their pictures. The window itself is painted by
    /// whoever opens it.
    fManageList(QString table, const PanelContext& context, const Skinner& skinner, QWidget* parent);
    ~fManageList() override;

    /// Reads the list anew; the selected row stays selected if it is still there.
    void List_Refresh();

private:
    void AddButtons();
    void EnableButtons();
    void Run(void (fManageList::*routine)());
    void OnButton(const QString& key);
    void Add();
    void Edit();
    void Delete();
    void Select(qint64 key);
    /// Nothing where no row is selected.
    std::optional<int> SelectedRow() const;

    std::unique_ptr<Ui::fManageList> m_ui;
    QString m_table;
    PanelContext m_context;
    const Skinner& m_skinner;
    ManagedList m_list; ///< heads and limits; the rows are in `m_rows`
    TableRows m_rows;
    QShortcut* m_deleteKey = nullptr;
};

} // namespace kelvado
