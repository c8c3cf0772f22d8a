#include "store/CatalogFile.h"

#include "core/Literals.h"
#include "core/Paths.h"
#include "core/Profile.h"
#include "core/RuntimeError.h"
#include "core/SafeFile.h"

#include <QFile>
#include <QFileInfo>

namespace kelvado {

namespace {

const QString kFilter = u"Kelvado Catolog (*.kvd)| *.kvd"_s;
const QString kGoOn = u"File already exists, are you sure you wish to continue?"_s;

// A copy that fails ends its routine without a message; the target is then as it was.
bool CopyQuietly(const QString& source, const QString& target)
{
    try {
        CopyFileWhole(source, target);
        // What a crash may have left of the file that stood there must not be played back into the new one.
        QFile::remove(target + u"-journal"_s);
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

} // namespace

CatalogFile::CatalogFile(AppState& state, Dialogs& dialogs, Shell& shell) : m_state(state), m_dialogs(dialogs), m_shell(shell) {}

bool CatalogFile::ChooseFile(void (Dialogs::*show)(FileDialog&))
{
    m_state.comDiagFile.filter = kFilter;
    try {
        (m_dialogs.*show)(m_state.comDiagFile);
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

void CatalogFile::New()
{
    if (!ChooseFile(&Dialogs::ShowSave))
        return;
    const QString target = m_state.CatalogPath();
    if (QFileInfo::exists(target) && m_dialogs.MessageBox(kGoOn, kBoxYesNoCritical, u"New File Confirmation"_s) != kAnswerYes)
        return;
    if (!CopyQuietly(FindFileCaseBlind(AppPath(), u"keldb.dat"_s), target))
        return;
    m_state.CatalogOpen = true;
    m_shell.ApplyMenuRules();
    m_shell.RefreshCatalogTree();
}

void CatalogFile::Open()
{
    if (!ChooseFile(&Dialogs::ShowOpen))
        return;
    // The tree comes first: a file that is no catalog fails there, and is then not counted as open.
    m_shell.RefreshCatalogTree();
    m_state.CatalogOpen = true;
    m_shell.ApplyMenuRules();
}

void CatalogFile::SaveAs()
{
    const QString source = m_state.CatalogPath();
    if (source.isEmpty() || !QFileInfo::exists(source)) {
        m_dialogs.MessageBox(u"Could not locate Kelvado database file, please ensure you have a valid database file open"_s, kBoxCritical,
                             u"Kelvado Save As Error"_s);
        return;
    }
    if (!ChooseFile(&Dialogs::ShowSave))
        return;
    const QString target = m_state.CatalogPath();
    if (QFileInfo::exists(target) && m_dialogs.MessageBox(kGoOn, kBoxYesNoCritical, u"Kelvado Save As Confirmation"_s) != kAnswerYes)
        return;
    if (CopyQuietly(source, target))
        m_shell.RefreshCatalogTree();
}

void CatalogFile::SetDefault()
{
    if (m_state.CatalogPath().isEmpty()) {
        m_dialogs.MessageBox(u"A Catolog file must be open"_s, kBoxInformation);
        return;
    }
    WriteProfileValue(u"Settings"_s, u"Default"_s, m_state.CatalogPath(), SettingsFile());
}

} // namespace kelvado
