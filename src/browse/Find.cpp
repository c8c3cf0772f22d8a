#include "browse/Find.h"

#include "core/Literals.h"

namespace kelvado {

QModelIndex Find::Advance(const QString& text)
{
    const QString wanted = text.toUpper();
    const int count = m_model.NodeCount();
    while (m_position <= count) {
        const QModelIndex node = m_model.NodeAt(m_position++);
        const QString shown = node.data(CatalogModel::TextRole).toString();
        if (!shown.isEmpty() && shown.toUpper().contains(wanted))
            return node;
    }
    m_position = count + 1;
    return {};
}

void Find::TellTheEnd()
{
    m_position = 1;
    m_dialogs.MessageBox(u"Finished Searching The Document"_s, kBoxPlain);
}

} // namespace kelvado
