#pragma once

#include <QWidget>

#include <memory>

class QMovie;

namespace kelvado {

/// A small picture at the end of the toolbar: the moving "working.gif" while a long job runs, the idle "stop.gif" otherwise, both from
/// the program's folder. Where a file is missing nothing is shown.
class BusyPicture : public QWidget
{
    Q_OBJECT
public:
    explicit BusyPicture(QWidget* parent = nullptr);
    ~BusyPicture() override;

    /// Loads both pictures anew, each from the first of `folders` that has it.
    void Load(const QStringList& folders);
    void SetBusy(bool busy);
    bool IsBusy() const { return m_busy; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::unique_ptr<QMovie> m_working, m_stop;
    bool m_busy = false;
};

} // namespace kelvado
