#include "ui/Accessibility.h"

#include "core/Literals.h"
#include "ui/AlignPicker.h"
#include "ui/BusyPicture.h"
#include "ui/PaneSplitter.h"
#include "ui/SectionTabRow.h"
#include "ui/StatusCells.h"
#include "ui/ctxListItem.h"
#include "ui/ctxListObjects.h"
#include "ui/ctxToolbar.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QTextDocument>

#include <algorithm>

namespace kelvado {

namespace {

/// A control of another role than its class has by nature.
class RoleAccessible : public QAccessibleWidget
{
public:
    RoleAccessible(QWidget* widget, QAccessible::Role role) : QAccessibleWidget(widget, role) {}

    QString text(QAccessible::Text kind) const override
    {
        QString text = QAccessibleWidget::text(kind);
        // Without a description of its own, the tooltip would be taken: the name once more, or markup.
        const bool isToolTip = kind == QAccessible::Description && widget()->accessibleDescription().isEmpty();
        return isToolTip && (text == widget()->accessibleName() || Qt::mightBeRichText(text)) ? QString() : text;
    }
};

/// A button that is drawn by us: a tab or a button of the tool bar.
class ButtonAccessible : public RoleAccessible
{
public:
    ButtonAccessible(QAbstractButton* button, QAccessible::Role role) : RoleAccessible(button, role) {}

    QAccessible::State state() const override
    {
        QAccessible::State state = RoleAccessible::state();
        if (role() == QAccessible::PageTab) {
            state.selectable = true;
            state.selected = static_cast<const TabImage*>(widget())->IsSelected();
        }
        return state;
    }
    QStringList actionNames() const override { return {widget()->isEnabled() ? pressAction() : QString()}; }
    void doAction(const QString& action) override
    {
        if (action == pressAction())
            static_cast<QAbstractButton*>(widget())->click();
    }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }
};

/// A row of tabs. The pieces between them are pictures and no controls.
class TabRowAccessible : public RoleAccessible
{
public:
    explicit TabRowAccessible(QWidget* row) : RoleAccessible(row, QAccessible::PageTabList) {}

    int childCount() const override { return static_cast<int>(Tabs().size()); }
    QAccessibleInterface* child(int index) const override { return QAccessible::queryAccessibleInterface(Tabs().value(index)); }
    QAccessibleInterface* focusChild() const override
    {
        const QList<TabImage*> tabs = Tabs();
        const auto selected = std::ranges::find_if(tabs, &TabImage::IsSelected);
        return widget()->hasFocus() && selected != tabs.end() ? QAccessible::queryAccessibleInterface(*selected)
                                                              : RoleAccessible::focusChild();
    }
    int indexOfChild(const QAccessibleInterface* child) const override
    {
        return child ? static_cast<int>(Tabs().indexOf(static_cast<TabImage*>(child->object()))) : -1;
    }

private:
    QList<TabImage*> Tabs() const
    {
        QList<TabImage*> tabs = widget()->findChildren<TabImage*>(QString(), Qt::FindDirectChildrenOnly);
        tabs.removeIf([](const TabImage* piece) { return !piece->IsTab(); });
        std::ranges::sort(tabs, {}, [](const TabImage* tab) { return tab->x(); });
        return tabs;
    }
};

/// A list whose rows hold editors. What they lie in is no part of it.
class RowsAccessible : public RoleAccessible
{
public:
    explicit RowsAccessible(ctxListObjects* list) : RoleAccessible(list, QAccessible::List) {}

    int childCount() const override { return List().ListCount(); }
    QAccessibleInterface* child(int index) const override
    {
        return index < 0 || index >= childCount() ? nullptr : QAccessible::queryAccessibleInterface(&List().List(index + 1));
    }
    int indexOfChild(const QAccessibleInterface* child) const override
    {
        for (int index = 0; child && index < childCount(); ++index) {
            if (&List().List(index + 1) == child->object())
                return index;
        }
        return -1;
    }
    QAccessibleInterface* focusChild() const override
    {
        return widget()->hasFocus() && List().ListIndex() > 0 ? child(List().ListIndex() - 1) : RoleAccessible::focusChild();
    }

private:
    const ctxListObjects& List() const { return *static_cast<const ctxListObjects*>(widget()); }
};

class RowAccessible : public RoleAccessible
{
public:
    explicit RowAccessible(ctxListItem* row) : RoleAccessible(row, QAccessible::ListItem) {}

    QAccessibleInterface* parent() const override
    {
        QWidget* above = widget()->parentWidget();
        while (above && !qobject_cast<ctxListObjects*>(above))
            above = above->parentWidget();
        return QAccessible::queryAccessibleInterface(above);
    }
    QAccessible::State state() const override
    {
        QAccessible::State state = RoleAccessible::state();
        state.selectable = state.focusable = true;
        state.selected = static_cast<const ctxListItem*>(widget())->Selected();
        return state;
    }
};

class AlignAccessible : public RoleAccessible
{
public:
    explicit AlignAccessible(AlignPicker* picker) : RoleAccessible(picker, QAccessible::ComboBox) {}

    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Value ? static_cast<const AlignPicker*>(widget())->ValueText() : RoleAccessible::text(kind);
    }
};

QAccessibleInterface* MakeInterface(const QString& className, QObject* object)
{
    if (!object || !object->isWidgetType())
        return nullptr;
    auto* widget = static_cast<QWidget*>(object);
    if (className == "kelvado::TabImage"_L1)
        return static_cast<TabImage*>(widget)->IsTab()
                   ? static_cast<QAccessibleInterface*>(new ButtonAccessible(static_cast<TabImage*>(widget), QAccessible::PageTab))
                   : new RoleAccessible(widget, QAccessible::Graphic);
    if (className == "kelvado::TabRow"_L1)
        return new TabRowAccessible(widget);
    if (className == "kelvado::ctxListObjects"_L1)
        return new RowsAccessible(static_cast<ctxListObjects*>(widget));
    if (className == "kelvado::ctxListItem"_L1)
        return new RowAccessible(static_cast<ctxListItem*>(widget));
    if (className == "kelvado::AlignPicker"_L1)
        return new AlignAccessible(static_cast<AlignPicker*>(widget));
    if (className == "kelvado::ctxToolbar"_L1)
        return new RoleAccessible(widget, QAccessible::ToolBar);
    if (className == "kelvado::StatusCells"_L1)
        return new RoleAccessible(widget, QAccessible::StatusBar);
    if (className == "kelvado::BusyPicture"_L1)
        return new RoleAccessible(widget, QAccessible::Animation);
    if (className == "kelvado::PictureBox"_L1)
        return new RoleAccessible(widget, QAccessible::Graphic);
    if (className == "kelvado::PaneSplitter"_L1)
        return new RoleAccessible(widget, QAccessible::Splitter);
    if (className == "QAbstractButton"_L1 && qobject_cast<ctxToolbar*>(widget->parentWidget()))
        return new ButtonAccessible(static_cast<QAbstractButton*>(widget), QAccessible::Button);
    return nullptr;
}

} // namespace

void InstallAccessibility()
{
    QAccessible::installFactory(MakeInterface);
}

void TellExpanded(QAbstractItemView& tree, const QModelIndex& node)
{
    if (!QAccessible::isActive() || node != tree.currentIndex())
        return;
    QAccessibleInterface* view = QAccessible::queryAccessibleInterface(&tree);
    if (QAccessibleInterface* item = view ? view->focusChild() : nullptr) {
        QAccessible::State changed;
        changed.expanded = true;
        QAccessibleStateChangeEvent event(item, changed);
        QAccessible::updateAccessibility(&event);
    }
}

} // namespace kelvado
