#pragma once

#include "core/RuntimeError.h"
#include "render/PageHost.h"

#include <QStringList>

namespace kelvado {

/// Writes down what pages and their messages ask for. A key in `missingKeys` is in no tree.
class RecordingHost : public PageHost
{
public:
    QString SelectedKey() const override { return key; }
    void SelectNode(const QString& node) override
    {
        if (missingKeys.contains(node))
            throw RuntimeError(kErrElementNotFound);
        calls << QStringLiteral("select ") + node;
    }
    void ShowSelection() override { calls << QStringLiteral("show"); }
    void Navigate(const QString& path) override { calls << QStringLiteral("navigate ") + path; }
    void ShowFilmMenu() override { calls << QStringLiteral("film menu"); }
    void PopupMenuAtCursor() override { calls << QStringLiteral("popup"); }
    void OpenOutside(const QUrl& address) override { calls << QStringLiteral("outside ") + address.toString(QUrl::FullyEncoded); }

    QString key;
    QStringList missingKeys;
    QStringList calls;
};

} // namespace kelvado
