#include "app/Menus.h"

#include "core/Literals.h"
#include "core/RuntimeError.h"

#include <QMainWindow>
#include <QMenu>

#include <algorithm>
#include <utility>

namespace kelvado {

Menus::Menus(QMainWindow& window)
{
    for (QAction* action : window.findChildren<QAction*>())
        if (!action->objectName().isEmpty())
            m_entries.insert(action->objectName(), action);
    for (QMenu* menu : window.findChildren<QMenu*>()) {
        m_menus.insert(menu->objectName(), menu);
        m_entries.insert(menu->objectName(), menu->menuAction());
    }
}

QAction* Menus::Find(const QString& menu, int index) const
{
    return m_entries.value(index < 0 ? menu : menu + u'_' + QString::number(index));
}

void Menus::SetChecked(const QString& menu, int index, bool checked)
{
    if (QAction* entry = Find(menu, index))
        entry->setChecked(checked);
}

bool Menus::IsChecked(const QString& menu, int index) const
{
    const QAction* entry = Find(menu, index);
    return entry && entry->isChecked();
}

void Menus::SetEnabled(const QString& menu, int index, bool enabled)
{
    QAction* entry = Find(menu, index);
    if (!entry)
        return;
    if (!entry->menu())
        entry->setEnabled(enabled);
    else if (enabled)
        m_off.remove(entry);
    else
        m_off.insert(entry);
}

void Menus::SetVisible(const QString& menu, int index, bool visible)
{
    if (QAction* entry = Find(menu, index))
        entry->setVisible(visible);
}

void Menus::SetCaption(const QString& menu, int index, const QString& caption)
{
    constexpr qsizetype kLongest = 80;
    if (QAction* entry = Find(menu, index))
        entry->setText((caption.size() > kLongest ? caption.left(kLongest - 1) + u'…' : caption).simplified().replace(u'&', u"&&"_s));
}

QAction& Menus::Entry(const QString& menu, int index) const
{
    QAction* entry = Find(menu, index);
    if (!entry)
        throw RuntimeError::WithDetail(kErrSubscript, menu);
    return *entry;
}

QMenu& Menus::Menu(const QString& name) const
{
    QMenu* menu = m_menus.value(name);
    if (!menu)
        throw RuntimeError::WithDetail(kErrSubscript, name);
    return *menu;
}

bool Menus::HasUsableEntry(const QMenu& menu)
{
    return std::ranges::any_of(menu.actions(), [](const QAction* entry) {
        return entry->isVisible() && !entry->isSeparator() && (entry->menu() ? HasUsableEntry(*entry->menu()) : entry->isEnabled());
    });
}

void Menus::CloseEmptyMenus()
{
    for (const QMenu* menu : std::as_const(m_menus))
        menu->menuAction()->setEnabled(!m_off.contains(menu->menuAction()) && HasUsableEntry(*menu));
}

void Menus::Popup(const QString& name, const QPoint& place) const
{
    QMenu& menu = Menu(name);
    if (!HasUsableEntry(menu))
        return;
    menu.setEnabled(true); // also where the main window, whose menu it is, is disabled
    menu.popup(place);
}

} // namespace kelvado
