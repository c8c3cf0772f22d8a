#pragma once

#include "core/Literals.h"
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
        calls << u"select "_s + node;
    }
    void ShowSelection() override { calls << u"show"_s; }
    void Navigate(const QString& path) override { calls << u"navigate "_s + path; }
    void ShowFilmMenu() override { calls << u"film menu"_s; }
    void PopupMenuAtCursor() override { calls << u"popup"_s; }
    void OpenOutside(const QUrl& address) override { calls << u"outside "_s + address.toString(QUrl::FullyEncoded); }

    QString key;
    QStringList missingKeys;
    QStringList calls;
};

} // namespace kelvado
