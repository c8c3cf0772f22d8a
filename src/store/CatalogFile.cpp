#include "store/CatalogFile.h"

#include "core/Literals.h"
#include "core/Paths.h"
#include "core/Profile.h"
#include "core/RuntimeError.h"
#include "store/CatalogCopy.h"

#include <QDir>
#include <QFileInfo>

namespace kelvado {

namespace {

const QString kFilter = u"Kelvado Catolog (*.kvd)| *.kvd"_s;

// A name that no file has, beside `neighbour`: "films copy.kvd", "films copy 2.kvd".
QString FreshName(const QString& neighbour, const QString& name)
{
    const QString folder = neighbour.isEmpty() ? QDir::homePath() : QFileInfo(neighbour).absolutePath();
    QString path;
    for (int number = 1; path.isEmpty() || QFileInfo::exists(path); ++number)
        path = folder + u'/' + name + (number == 1 ? QString() : u" %1"_s.arg(number)) + u".kvd"_s;
    return path;
}

} // namespace

CatalogFile::CatalogFile(AppState& state, Dialogs& dialogs, Shell& shell) : m_state(state), m_dialogs(dialogs), m_shell(shell) {}

bool CatalogFile::ChooseFile(void (Dialogs::*show)(FileDialog&), const QString& proposal)
{
    FileDialog dialog{proposal, kFilter};
    try {
        (m_dialogs.*show)(dialog);
    } catch (const RuntimeError&) {
        return false;
    }
    m_state.comDiagFile = dialog;
    return true;
}

// The chosen path is the open catalog's from then on, whatever the answer.
bool CatalogFile::MayReplace(const QString& title)
{
    return m_dialogs.MayReplace(m_state.CatalogPath(), title);
}

void CatalogFile::CopyToChosen(const QString& source)
{
    try {
        CopyCatalog(source, m_state.CatalogPath());
    } catch (const RuntimeError&) {
        m_state.comDiagFile.fileName = m_state.treeCatalog;
        throw;
    }
}

void CatalogFile::New()
{
    if (!ChooseFile(&Dialogs::ShowSave, FreshName(m_state.CatalogPath(), u"New Catalog"_s)) || !MayReplace(u"New File Confirmation"_s))
        return;
    CopyToChosen(FindFileCaseBlind(AppPath(), u"keldb.dat"_s));
    m_state.CatalogOpen = true;
    m_shell.ApplyMenuRules();
    m_shell.RefreshCatalogTree();
}

void CatalogFile::Open()
{
    if (!ChooseFile(&Dialogs::ShowOpen, m_state.CatalogPath()))
        return;
    // The tree comes first: a file that is no catalog fails there, and the catalog that the tree shows stays the open one.
    try {
        m_shell.RefreshCatalogTree();
    } catch (const RuntimeError&) {
        if (m_state.treeCatalog != m_state.CatalogPath())
            m_state.comDiagFile.fileName = m_state.treeCatalog;
        throw;
    }
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
    const QString proposal = FreshName(source, QFileInfo(source).completeBaseName() + u" copy"_s);
    if (!ChooseFile(&Dialogs::ShowSave, proposal) || !MayReplace(u"Kelvado Save As Confirmation"_s))
        return;
    CopyToChosen(source);
    if (m_state.treeCatalog == source)
        m_state.treeCatalog = m_state.CatalogPath(); // the copy has the same films under the same numbers
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
