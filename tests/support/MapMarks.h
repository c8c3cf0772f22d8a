#pragma once

#include "core/MenuMarks.h"

#include <QMap>

namespace kelvado {

/// Check marks and enabled states in a map; an entry is written "menu" or "menu_index".
class MapMarks : public MenuMarks
{
public:
    void SetChecked(const QString& menu, int index, bool on) override { checked[Name(menu, index)] = on; }
    bool IsChecked(const QString& menu, int index) const override { return checked.value(Name(menu, index)); }
    void SetEnabled(const QString& menu, int index, bool on) override { enabled[Name(menu, index)] = on; }

    void SetVisible(const QString& menu, int index, bool on) override { visible[Name(menu, index)] = on; }
    void SetCaption(const QString& menu, int index, const QString& text) override { captions[Name(menu, index)] = text; }

    QStringList CheckedEntries() const { return checked.keys(true); }

    QMap<QString, bool> checked, enabled, visible;
    QMap<QString, QString> captions;

private:
    static QString Name(const QString& menu, int index) { return index < 0 ? menu : menu + u'_' + QString::number(index); }
};

} // namespace kelvado
