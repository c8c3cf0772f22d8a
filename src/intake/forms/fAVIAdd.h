#pragma once

#include "intake/FileAdd.h"
#include "intake/cCDMonitor.h"
#include "ui/Skinner.h"
#include "web/forms/StepRun.h"

#include <QWidget>

#include <memory>

class QPushButton;

namespace Ui {
class fAVIAdd;
}

namespace kelvado {

class fAVIIMDb;

/// The panel that files films by their video files, from discs, from the machine's own folders or from a queue of files. Focus and
/// default button move with each step, so that Enter alone leads through a stack of discs or files.
class fAVIAdd : public QWidget
{
    Q_OBJECT
public:
    /// All of it outlives the panel.
    fAVIAdd(FilmDesk& desk, Discs& discs, StepRun& run, const Skinner& skinner, QWidget* parent = nullptr);
    ~fAVIAdd() override;

    /// For each time that the panel comes into view: it begins with the discs, or where it was left with a file that is not added yet.
    /// Drives are watched as long as it is in view.
    void Open();
    /// Takes files and folders that were dropped: one file as if it was browsed, all others into the queue.
    void TakePaths(const QStringList& paths);
    /// While a film is being added nothing can be dropped.
    bool IsBusy() const { return m_busy; }

Q_SIGNALS:
    /// A menu is wanted for a film that was found; `number` is empty where none is selected.
    void MenuWanted(const QPoint& globalPosition, const QString& number);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    /// Leaving the panel ends the watch and shows what was added in the tree.
    void hideEvent(QHideEvent* event) override;

private:
    void ConnectControls();
    void ShowMethod(bool fromDisc);
    void ReloadDrives();
    void m_oWatchCD_CDROMChanged(std::int32_t action);
    void Browse();
    void AddFolder();
    void ScanDisc();
    void ReadFile(const QString& path);
    void ShowLabels(const FileLabels& labels);
    void ShowDetails(const AVIDetails& details);
    void ReadNext();
    void EndQueue();
    void ShowQueue();
    void AddMovie();
    bool AddChosen(const SearchRow& row);
    void LeaveDisc();
    void ResetPanel();
    void ClearEntries();
    void TakeFocus(QWidget& control);
    void FocusSource();
    void FocusSearch();
    void SetDefault(QPushButton* button);
    QString DriveTag() const;
    bool FromDisc() const;

    std::unique_ptr<Ui::fAVIAdd> m_ui;
    FilmDesk& m_desk;
    Discs& m_discs;
    StepRun& m_run;
    const Skinner& m_skinner;
    std::unique_ptr<cCDMonitor> m_oWatchCD; ///< while the panel is in view
    std::unique_ptr<fAVIIMDb> m_choice;     ///< stays until its film is stored
    QList<DriveEntry> m_drives;
    AVIDetails m_file;
    FilmFileQueue m_queue;
    qsizetype m_added = 0; ///< since the panel came into view
    int m_reloads = 0;
    bool m_busy = false;
};

} // namespace kelvado
