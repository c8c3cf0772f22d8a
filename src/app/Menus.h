#pragma once

#include "core/MenuMarks.h"

#include <QAction>
#include <QHash>
#include <QSet>

class QMainWindow;
class QMenu;

namespace kelvado {

/// The entries of a window's menus by name. An entry of a menu array is an action named `menu_index`.
class Menus : public MenuMarks
{
public:
    /// Takes all actions and menus that `window` has now.
    explicit Menus(QMainWindow& window);

    void SetChecked(const QString& menu, int index, bool checked) override;
    bool IsChecked(const QString& menu, int index) const override;
    void SetEnabled(const QString& menu, int index, bool enabled) override;
    void SetVisible(const QString& menu, int index, bool visible) override;
    void SetCaption(const QString& menu, int index, const QString& caption) override;

    /// The entry, or the action of a menu of that name. Raises `kErrSubscript` where there is none.
    QAction& Entry(const QString& menu, int index = -1) const;
    /// Raises `kErrSubscript` where there is none.
    QMenu& Menu(const QString& name) const;

    /// Turns each menu on or off as `SetEnabled` told, but off where none of its entries can be used; for every change of entries.
    void CloseEmptyMenus();
    /// Opens a menu at a place of the screen; one without an entry that can be used stays shut.
    void Popup(const QString& name, const QPoint& place) const;

private:
    static bool HasUsableEntry(const QMenu& menu);

    QAction* Find(const QString& menu, int index) const;

    QHash<QString, QAction*> m_entries;
    QHash<QString, QMenu*> m_menus;
    QSet<const QAction*> m_off; ///< the menus that `SetEnabled` has turned off
};

} // namespace kelvado
