#include "intake/forms/fAVIAdd.h"

#include "core/Afterwards.h"
#include "core/Guard.h"
#include "core/Literals.h"
#include "intake/MediaFile.h"
#include "intake/forms/fAVIIMDb.h"
#include "store/FilmActions.h"
#include "ui_fAVIAdd.h"
#include "web/forms/Form2.h"

#include <QFileInfo>
#include <QHideEvent>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QTimer>

#include <algorithm>

namespace kelvado {

fAVIAdd::fAVIAdd(FilmDesk& desk, Discs& discs, StepRun& run, const Skinner& skinner, QWidget* parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::fAVIAdd>()), m_desk(desk), m_discs(discs), m_run(run), m_skinner(skinner)
{
    m_ui->setupUi(this);
    if (auto* discCount = m_ui->UpDown1->findChild<QLineEdit*>())
        discCount->setObjectName(u"txtDiscs"_s);
    m_ui->frameAdd->hide();
    // A file that is dropped is the panel's, not a text for the box under the mouse.
    for (QLineEdit* box : findChildren<QLineEdit*>())
        box->setAcceptDrops(false);
    m_skinner.SkinForm(*this);
    ConnectControls();
    ShowLabels({});
    ShowQueue();
}

fAVIAdd::~fAVIAdd() = default;

void fAVIAdd::ConnectControls()
{
    const auto onClick = [this](QPushButton* button, void (fAVIAdd::*handler)()) {
        connect(button, &QPushButton::clicked, this, [this, handler] { Guarded(m_desk.dialogs, [&] { (this->*handler)(); }); });
    };
    onClick(m_ui->cmdBrowse, &fAVIAdd::Browse);
    onClick(m_ui->cmdFolder, &fAVIAdd::AddFolder);
    onClick(m_ui->cmdCDScan, &fAVIAdd::ScanDisc);
    onClick(m_ui->cmdSkip, &fAVIAdd::ReadNext);
    onClick(m_ui->cmdEndQueue, &fAVIAdd::EndQueue);
    onClick(m_ui->cmdAddMovie, &fAVIAdd::AddMovie);
    connect(m_ui->optMethod_0, &QRadioButton::toggled, this,
            [this](bool fromDisc) { Guarded(m_desk.dialogs, [&] { ShowMethod(fromDisc); }); });
}

void fAVIAdd::Open()
{
    m_added = 0;
    const QString format = m_ui->cboFormat->currentText();
    m_ui->cboFormat->clear();
    m_ui->cboFormat->addItems(ValuesInUse(u"Format"_s, m_desk.state.CatalogPath()));
    m_ui->cboFormat->setEditText(format);
    if (!m_oWatchCD) {
        m_oWatchCD = std::make_unique<cCDMonitor>();
        connect(m_oWatchCD.get(), &cCDMonitor::CDROMChanged, this, &fAVIAdd::m_oWatchCD_CDROMChanged);
        m_oWatchCD->SubClass(m_discs);
    }
    if (m_queue.IsAtWork() || !m_ui->frameAdd->isHidden()) {
        if (FromDisc())
            ReloadDrives(); // nobody watched them meanwhile
        return FocusSearch();
    }
    m_ui->optMethod_0->setChecked(true);
    ShowMethod(true);
    FocusSource();
}

void fAVIAdd::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    // A window that goes to the tray or is minimized with its panel is not left.
    if (event->spontaneous() || !window()->isVisible())
        return;
    m_oWatchCD.reset();
    if (std::exchange(m_added, 0) == 0)
        return;
    // When the section that the user goes to is in place.
    QTimer::singleShot(0, this, [this] { Guarded(m_desk.dialogs, [this] { m_desk.shell.RefreshCatalogTree(); }); });
}

void fAVIAdd::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        return QWidget::keyPressEvent(event);
    event->accept();
    const QString typed = m_ui->txtFilename->text();
    if (m_ui->txtFilename->hasFocus() && m_ui->txtFilename->isModified() && QFileInfo(typed).isFile())
        return Guarded(m_desk.dialogs, [&] { ReadFile(typed); });
    for (QPushButton* button : {m_ui->cmdCDScan, m_ui->cmdBrowse, m_ui->cmdAddMovie}) {
        if (button->isDefault() && button->isVisible())
            return button->click();
    }
}

bool fAVIAdd::FromDisc() const
{
    return m_ui->optMethod_0->isChecked();
}

void fAVIAdd::SetDefault(QPushButton* button)
{
    for (QPushButton* one : {m_ui->cmdCDScan, m_ui->cmdBrowse, m_ui->cmdAddMovie})
        one->setDefault(one == button);
}

// The window that was closed before may have been in front of another one than this.
void fAVIAdd::TakeFocus(QWidget& control)
{
    window()->activateWindow();
    control.setFocus();
}

void fAVIAdd::FocusSource()
{
    SetDefault(FromDisc() ? m_ui->cmdCDScan : m_ui->cmdBrowse);
    TakeFocus(FromDisc() ? static_cast<QWidget&>(*m_ui->cboDrives) : *m_ui->txtFilename);
}

void fAVIAdd::FocusSearch()
{
    if (m_ui->frameAdd->isHidden()) // the file in work could not be read
        return TakeFocus(*m_ui->cmdSkip);
    TakeFocus(*m_ui->txtSearch);
    m_ui->txtSearch->selectAll();
    SetDefault(m_ui->cmdAddMovie);
}

// --- Drives --------------------------------------------------------------------------------------------------------------------------

void fAVIAdd::ShowMethod(bool fromDisc)
{
    for (QWidget* control : std::initializer_list<QWidget*>{m_ui->cboDrives, m_ui->cmdCDScan, m_ui->chkGoNext, m_ui->chkEject})
        control->setVisible(fromDisc);
    for (QWidget* control : std::initializer_list<QWidget*>{m_ui->txtFilename, m_ui->cmdBrowse, m_ui->cmdFolder})
        control->setVisible(!fromDisc);
    m_ui->lblSource->setText(fromDisc ? tr("CD D&rive:") : tr("File&name:"));
    m_ui->lblSource->setBuddy(fromDisc ? static_cast<QWidget*>(m_ui->cboDrives) : m_ui->txtFilename);
    m_ui->lblNoDrives->hide();
    SetDefault(fromDisc ? m_ui->cmdCDScan : m_ui->cmdBrowse);
    if (fromDisc)
        ReloadDrives();
}

void fAVIAdd::ReloadDrives()
{
    const int reload = ++m_reloads;
    const QList<DriveEntry> drives = ListCDDrives(m_discs);
    if (reload != m_reloads)
        return; // a disc has come or gone meanwhile, and its own list is newer
    const int place = std::max(m_ui->cboDrives->currentIndex(), 0);
    const QString selected = DriveTag();
    m_drives = drives;
    m_ui->cboDrives->clear();
    for (const DriveEntry& drive : m_drives)
        m_ui->cboDrives->addItem(drive.text, drive.tag);
    // A drive that has come or gone moves the others.
    const int found = m_ui->cboDrives->findData(selected);
    m_ui->cboDrives->setCurrentIndex(found >= 0 ? found : std::min(place, m_ui->cboDrives->count() - 1));
    m_ui->lblNoDrives->setText(m_drives.isEmpty() ? m_discs.WhyNoDrives() : QString());
    m_ui->lblNoDrives->setVisible(m_drives.isEmpty() && FromDisc());
}

void fAVIAdd::m_oWatchCD_CDROMChanged(std::int32_t action)
{
    if (action == kDiscArrived || action == kDiscLeft)
        Guarded(m_desk.dialogs, [this] { ReloadDrives(); });
}

QString fAVIAdd::DriveTag() const
{
    return m_ui->cboDrives->currentData().toString();
}

void fAVIAdd::LeaveDisc()
{
    // What is next is told by the list as it was with the disc in its drive.
    const QList<DriveEntry> drives = m_drives;
    const int selected = m_ui->cboDrives->currentIndex();
    if (selected < 0)
        return;
    if (m_ui->chkEject->isChecked())
        EjectDrive(DriveTag(), m_discs);
    if (m_ui->chkGoNext->isChecked())
        m_ui->cboDrives->setCurrentIndex(std::max(m_ui->cboDrives->findData(drives[NextDisc(drives, selected)].tag), 0));
}

// --- Files ---------------------------------------------------------------------------------------------------------------------------

void fAVIAdd::Browse()
{
    FileDialog file;
    file.fileName = m_ui->txtFilename->text();
    file.filter = VideoFileFilter();
    m_desk.dialogs.ShowOpen(file);
    ReadFile(file.fileName);
}

void fAVIAdd::ReadFile(const QString& path)
{
    m_ui->txtFilename->setText(path);
    if (const std::optional<AVIDetails> details = ReadChosenFile(path, m_desk.state.CatalogPath()))
        ShowDetails(*details);
}

void fAVIAdd::ScanDisc()
{
    const QString folder = DriveTag().isEmpty() ? QString() : m_discs.FolderOf(DriveTag());
    if (folder.isEmpty())
        return;
    if (const std::optional<QString> film = FirstFilmIn(folder))
        ShowDetails(GetMediaDetails(*film, m_desk.state.CatalogPath()));
}

// A label without a text is none for assistive programs, which would give it the name of the frame.
void fAVIAdd::ShowLabels(const FileLabels& labels)
{
    for (const auto& [label, text] : {std::pair(m_ui->lblFilename, labels.lblFilename),
                                      {m_ui->lblFilesize, labels.lblFilesize},
                                      {m_ui->lblFPS, labels.lblFPS},
                                      {m_ui->lblResolution, labels.lblResolution},
                                      {m_ui->lblRuntime, labels.lblRuntime},
                                      {m_ui->lblAudioType, labels.lblAudioType},
                                      {m_ui->lblAudioBitrate, labels.lblAudioBitrate},
                                      {m_ui->lblVideoType, labels.lblVideoType},
                                      {m_ui->lblVideoBitrate, labels.lblVideoBitrate}}) {
        label->setText(text);
        label->setVisible(!text.isEmpty());
    }
}

void fAVIAdd::ShowDetails(const AVIDetails& details)
{
    m_file = details;
    ShowLabels(LabelsOf(m_file));
    QString group, title;
    DeriveTitleAndGroup(m_file.FileName, group, title);
    m_ui->txtGroup->setText(group);
    m_ui->txtSearch->setText(title);
    if (const std::optional<QString> format = FormatOfHandler(m_file.stream.fccHandler))
        m_ui->cboFormat->setEditText(*format);
    m_ui->frameAdd->show();
    FocusSearch();
}

// --- The queue -----------------------------------------------------------------------------------------------------------------------

void fAVIAdd::AddFolder()
{
    const QString folder = m_desk.dialogs.BrowseForFolder(tr("Add all video files below a folder"));
    if (!folder.isEmpty())
        TakePaths({folder});
}

void fAVIAdd::TakePaths(const QStringList& paths)
{
    constexpr int kOpenAfter = 300;
    if (m_busy)
        return;
    m_ui->optMethod_1->setChecked(true);
    if (paths.size() == 1 && !QFileInfo(paths[0]).isDir() && !m_queue.IsAtWork())
        return ReadFile(paths[0]);
    QStringList films;
    m_run.Run(*window(), {tr("Add Video Files"), tr("Looking for video files…"), kOpenAfter}, [&] {
        films = FilmsAmong(paths, [&](const QString& path, qsizetype done) {
            return m_run.ShowLong(path, u"%1 / %2"_s.arg(done).arg(paths.size()), done - 1, paths.size());
        });
    });
    if (m_run.IsCancelled())
        return;
    if (films.isEmpty())
        return void(m_desk.dialogs.MessageBox(u"No video files were found."_s, kBoxInformation));
    m_queue.Add(films);
    if (m_queue.IsAtWork())
        ShowQueue();
    else
        ReadNext();
}

void fAVIAdd::ReadNext()
{
    const std::optional<QString> path = m_queue.TakeNext();
    ShowQueue();
    if (!path)
        return ResetPanel();
    ClearEntries();
    m_ui->txtFilename->setText(*path);
    try {
        ShowDetails(GetMediaDetails(*path, m_desk.state.CatalogPath()));
    } catch (const RuntimeError& error) {
        if (error.Number() == kErrDatabase) { // every file behind this one would meet it too
            FocusSearch();
            throw;
        }
        m_queue.NoteFailure(error);
        // In steps, so that the window stays alive however many of them cannot be read.
        QTimer::singleShot(0, this, [this, path] {
            if (m_queue.IsAtWork() && m_ui->txtFilename->text() == *path)
                Guarded(m_desk.dialogs, [this] { ReadNext(); });
        });
    }
}

void fAVIAdd::EndQueue()
{
    m_queue.Leave();
    ShowQueue();
    ResetPanel();
}

void fAVIAdd::ShowQueue()
{
    const bool atWork = m_queue.IsAtWork();
    m_ui->frameQueue->setVisible(atWork);
    m_ui->lblQueue->setText(atWork ? m_queue.PlaceText() : QString());
    for (QWidget* control : std::initializer_list<QWidget*>{m_ui->optMethod_0, m_ui->optMethod_1, m_ui->txtFilename, m_ui->cmdBrowse})
        control->setEnabled(!atWork);
}

// --- The film ------------------------------------------------------------------------------------------------------------------------

void fAVIAdd::AddMovie()
{
    if (m_ui->txtSearch->text().isEmpty()) {
        m_desk.dialogs.MessageBox(u"Title Search must have a value"_s, kBoxPlain);
        return FocusSearch();
    }
    const QScopedValueRollback busy(m_busy, true);
    if (!m_choice) {
        m_choice = std::make_unique<fAVIIMDb>(m_desk, m_skinner, window());
        connect(m_choice.get(), &fAVIIMDb::MenuWanted, this, &fAVIAdd::MenuWanted);
    }
    const std::optional<SearchRow> row = m_choice->Choose(m_ui->txtSearch->text());
    if (m_desk.job.ProgramEnds)
        return;
    if (!row || PartsOf(*row).Number.isEmpty()) {
        m_desk.dialogs.MessageBox(u"No Film Selected Or Imdb Search Error."_s, kBoxPlain);
        return FocusSearch();
    }
    bool stored = false;
    Afterwards([&] { stored = AddChosen(*row); },
               [&] {
                   if (!stored)
                       FocusSearch();
               });
}

bool fAVIAdd::AddChosen(const SearchRow& row)
{
    const std::optional<FetchTurn> turn = TakeTurn(m_desk);
    if (!turn)
        return false;
    FileChoice choice{row,
                      m_choice->OtherTitles(),
                      {},
                      {m_ui->UpDown1->text(), m_ui->txtGroup->text(), m_ui->cboFormat->currentText(), m_ui->txtIndex->text()},
                      m_ui->chkFilesizeDisc->isChecked()};
    if (m_choice->AsksForTitle())
        choice.chooseTitle = AskInAkaSet(m_desk.dialogs, m_skinner, *window());
    const std::optional<QString> title = AddFileFilm(m_file, choice, m_desk);
    if (!title)
        return false;
    m_choice.reset();
    ++m_added;
    if (FromDisc())
        LeaveDisc();
    m_desk.dialogs.MessageBox(u"Successfully added "_s + *title, kBoxPlain);
    if (m_queue.IsAtWork())
        ReadNext();
    else
        ResetPanel();
    return true;
}

void fAVIAdd::ResetPanel()
{
    FocusSource();
    ClearEntries();
    if (const QString failures = m_queue.TakeFailures(); !failures.isEmpty())
        m_desk.dialogs.MessageBox(failures, kBoxExclamation);
}

// The number of discs and the facts stay for the next film.
void fAVIAdd::ClearEntries()
{
    m_ui->frameAdd->hide();
    for (QLineEdit* box : {m_ui->txtSearch, m_ui->txtGroup, m_ui->txtIndex})
        box->clear();
    m_ui->cboFormat->setEditText({});
}

} // namespace kelvado
