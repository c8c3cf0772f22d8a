#pragma once

#include "web/search/IMDBSearch.h"

#include <QTreeWidget>

class QLabel;

namespace kelvado {

/// A list of found films: title and number in two columns.
class FilmRows : public QTreeWidget
{
    Q_OBJECT
public:
    explicit FilmRows(QWidget* parent = nullptr);

    /// Shows these rows, keeping the place of the selection; the first row is selected where none was.
    void SetRows(const QList<SearchRow>& rows);
    /// Says "Searching…" in the list as long as it has no rows.
    void ShowWaiting(bool waiting);
    /// The place of the selected row; -1 for none.
    int Selected() const;

Q_SIGNALS:
    /// By a double click or Enter.
    void Chosen(int row);
    void SelectionMoved();
    void Focused();
    /// By the right mouse button or the menu key.
    void MenuRequested(const QPoint& globalPosition);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void ShowFocus(bool focused);

    bool m_waiting = false;
    bool m_showsFocus = false;
};

/// Shows the other titles of the selected film, one a line, in a label that is hidden where there are none. Of very many it shows the first
/// ones, so that the window keeps its height, and all of them as the label's tool tip.
void ShowOtherTitles(QLabel& label, const QString& titles);

} // namespace kelvado
