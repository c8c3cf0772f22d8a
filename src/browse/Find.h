#pragma once

#include "browse/CatalogModel.h"
#include "core/Dialogs.h"

#include <QModelIndex>

namespace kelvado {

/// Finds nodes of the tree by their text. It searches what the tree holds, so casts that were never fetched are not found. The place
/// where the next search begins counts from 1 and stays when the tree is rebuilt.
class Find
{
public:
    Find(const CatalogModel& model, Dialogs& dialogs) : m_model(model), m_dialogs(dialogs) {}

    /// The next node whose text holds `text`, whatever the case. Behind the last node the end is told in a message and the search begins
    /// anew. A match on the last node is selected, and the message comes at once; the row that waits for a cast below the last film counts
    /// as a node too.
    template<typename Select>
    void Next(const QString& text, Select&& select)
    {
        const QModelIndex node = Advance(text);
        if (node.isValid())
            select(node);
        if (m_position > m_model.NodeCount() && !m_model.IsWaiting(node))
            TellTheEnd();
    }

    int Position() const { return m_position; }

private:
    QModelIndex Advance(const QString& text);
    void TellTheEnd();

    const CatalogModel& m_model;
    Dialogs& m_dialogs;
    int m_position = 1;
};

} // namespace kelvado
