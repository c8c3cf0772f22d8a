#include "core/CatalogFile.h"

#include "core/Paths.h"
#include "core/Profile.h"
#include "core/RuntimeError.h"
#include "core/SafeFile.h"

#include <QFile>
#include <QFileInfo>

namespace kelvado {

namespace {

const QString kFilter = QStringLiteral("Kelvado Catolog (*.kvd)| *.kvd");
const QString kGoOn = QStringLiteral("File already exists, are you sure you wish to continue?");

// A copy that fails ends its routine without a message; the target is then as it was.
bool CopyQuietly(const QString& source, const QString& target)
{
    try {
        CopyFileWhole(source, target);
        // What a crash may have left of the file that stood there must not be played back into the new one.
        QFile::remove(target + QStringLiteral("-journal"));
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
    if (QFileInfo::exists(target) && m_dialogs.MessageBox(kGoOn, kBoxYesNoCritical, QStringLiteral("New File Confirmation")) != kAnswerYes)
        return;
    if (!CopyQuietly(FindFileCaseBlind(AppPath(), QStringLiteral("keldb.dat")), target))
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
        m_dialogs.MessageBox(QStringLiteral("Could not locate Kelvado database file, please ensure you have a valid database file open"),
                             kBoxCritical, QStringLiteral("Kelvado Save As Error"));
        return;
    }
    if (!ChooseFile(&Dialogs::ShowSave))
        return;
    const QString target = m_state.CatalogPath();
    if (QFileInfo::exists(target) &&
        m_dialogs.MessageBox(kGoOn, kBoxYesNoCritical, QStringLiteral("Kelvado Save As Confirmation")) != kAnswerYes)
        return;
    if (CopyQuietly(source, target))
        m_shell.RefreshCatalogTree();
}

void CatalogFile::SetDefault()
{
    if (m_state.CatalogPath().isEmpty()) {
        m_dialogs.MessageBox(QStringLiteral("A Catolog file must be open"), kBoxInformation);
        return;
    }
    WriteProfileValue(QStringLiteral("Settings"), QStringLiteral("Default"), m_state.CatalogPath(), SettingsFile());
}

} // namespace kelvado
