#include "web/retrieval/FilmDesk.h"

#include "core/Paths.h"

namespace kelvado {

using namespace Qt::StringLiterals;

bool TakeTurn(const FetchTurn& turn, Dialogs& dialogs)
{
    if (!turn)
        dialogs.MessageBox(u"Another search or retrieval is still under way."_s, kBoxInformation);
    return static_cast<bool>(turn);
}

Retrieval MakeRetrieval(FilmDesk& desk)
{
    return {desk.transport, ReadWebHosts(SettingsFile()), SettingsFile(), TempFolder(), desk.batch, desk.progress};
}

WriterContext MakeWriter(FilmDesk& desk)
{
    return {desk.state.CatalogPath(), SettingsFile(), desk.dialogs};
}

} // namespace kelvado
