#include "intake/forms/frmImpTitles.h"

#include "core/Afterwards.h"
#include "core/Guard.h"
#include "core/Literals.h"
#include "intake/MediaFile.h"
#include "intake/TitleImport.h"
#include "ui_frmImpTitles.h"

namespace kelvado {

frmImpTitles::frmImpTitles(const Context& context, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmImpTitles>()), m_context(context)
{
    m_ui->setupUi(this);
    m_ui->lstTitles->setModel(&m_titles);
    m_file.filter = kTitleFileFilter;
    m_context.skinner.SkinForm(*this);
    connect(m_ui->cmdSelFile, &QPushButton::clicked, this, [this] { Guarded(m_context.dialogs, [this] { SelectFile(); }); });
    connect(m_ui->Command2, &QPushButton::clicked, this, [this] { Guarded(m_context.dialogs, [this] { AddMovies(); }); });
    connect(m_ui->cmdClose, &QPushButton::clicked, this, &QDialog::reject);
}

frmImpTitles::~frmImpTitles() = default;

void frmImpTitles::reject()
{
    if (!m_context.run.IsBusy())
        QDialog::reject();
}

void frmImpTitles::SelectFile()
{
    constexpr int kOpenAfter = 300;
    m_context.dialogs.ShowOpen(m_file);
    QStringList titles;
    m_context.run.Run(*this, {windowTitle(), tr("Reading titles…"), kOpenAfter}, [&] {
        titles = ReadTitles(m_file.fileName,
                            [this](qsizetype done, qsizetype count) { return m_context.run.ShowLong(m_file.fileName, {}, done, count); });
    });
    ShowTitles(m_titles.stringList() + titles);
    if (titles.isEmpty())
        m_context.dialogs.MessageBox(u"The file holds no titles."_s, kBoxInformation);
    else
        m_ui->Command2->setFocus();
}

void frmImpTitles::AddMovies()
{
    try {
        // While the window waits for the run, no control of it keeps the focus.
        Afterwards(
            [this] {
                m_context.run.Run(*this, {windowTitle(), tr("Storing titles…")}, [this] { Import(); });
            },
            [this] { m_ui->Command2->setFocus(); });
        accept();
    } catch (const RuntimeError& error) {
        if (error.Number() != kErrCancelled)
            throw;
        if (!m_context.run.IsLeft())
            m_context.dialogs.MessageBox(u"The import was cancelled. No title was stored."_s, kBoxInformation);
    }
}

void frmImpTitles::Import()
{
    const QStringList titles = m_titles.stringList();
    StepRun& run = m_context.run;
    // The status bar is painted at the pace of the window; painting it for each title would take longer than storing them.
    constexpr qsizetype kStatusEvery = 100;
    const auto step = [&](qsizetype done, qsizetype count) {
        const bool goesOn = run.Show(titles[done - 1], TitleProgress(done, count), done, count);
        if (done % kStatusEvery == 0 || done == count)
            m_context.shell.ShowStatusText(TitleProgress(done, count));
        if (done == count)
            run.CloseWindow();
        return goesOn;
    };
    Afterwards([&] { ImportTitles(titles, m_context.state.CatalogPath(), m_context.shell, m_context.dialogs, step); },
               [this] { m_context.shell.UpdateStatus(false); });
}

void frmImpTitles::ShowTitles(const QStringList& titles)
{
    m_titles.setStringList(titles);
    m_ui->lstTitles->setCurrentIndex({}); // else the focus marks the first row, which looks selected and is not
    m_ui->Command2->setEnabled(!titles.isEmpty());
    m_ui->lblCount->setText(titles.isEmpty() ? QString() : titles.size() == 1 ? tr("1 title") : tr("%1 titles").arg(titles.size()));
}

} // namespace kelvado
