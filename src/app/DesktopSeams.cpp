#include "app/DesktopSeams.h"

#include "core/Literals.h"
#include "core/RuntimeError.h"
#include "ui/fLengthEdit.h"
#include "ui/frmAbout.h"
#include "web/transport/cWaitableTimer.h"

#include <QApplication>
#include <QCoreApplication>
#include <QDesktopServices>
#include <QEventLoop>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QInputDialog>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QUrl>

namespace kelvado {

namespace {

constexpr int kIconMask = 0xF0;
constexpr int kButtonMask = 0x0F;

// "Caption (*.kvd)| *.kvd" as the platform's own dialog takes it; a file of another ending can be chosen all the same.
QString FilterOf(const FileDialog& dialog)
{
    QStringList filters;
    const QStringList parts = dialog.filter.split(u'|');
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString pattern = parts[i + 1].trimmed();
        const QString caption = parts[i].section(u'(', 0, 0).trimmed();
        filters << caption + u" ("_s + QString(pattern).replace(u';', u' ') + u')';
    }
    filters << QCoreApplication::translate("Dialogs", "All files (*)");
    return filters.join(u";;"_s);
}

QString Ending(const FileDialog& dialog)
{
    return dialog.filter.section(u'|', 1, 1).section(u'.', 1).section(u';', 0, 0).trimmed();
}

// A box is as wide as its text, which may leave its title no room. Called last: the box lays itself out anew for its icon.
void WidenToTitle(QMessageBox& box)
{
    constexpr int kButtonsOfTitle = 120;
    auto* grid = qobject_cast<QGridLayout*>(box.layout());
    if (!grid)
        return;
    const int width = box.fontMetrics().horizontalAdvance(box.windowTitle()) + kButtonsOfTitle;
    grid->addItem(new QSpacerItem(width, 0, QSizePolicy::Minimum, QSizePolicy::Minimum), grid->rowCount(), 0, 1, grid->columnCount());
}

void SetUp(QMessageBox& box, const QString& text, const QString& title)
{
    box.setObjectName(u"MessageBox"_s);
    box.setWindowTitle(title.isEmpty() ? frmAbout::ProductName() : title);
    box.setTextFormat(Qt::PlainText);
    box.setText(text);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
}

} // namespace

QWidget* DesktopDialogs::BoxOwner() const
{
    QWidget* active = QApplication::activeWindow();
    return active ? active : m_owner.data();
}

int DesktopDialogs::MessageBox(const QString& text, int type, const QString& title)
{
    QMessageBox box(BoxOwner());
    SetUp(box, text, title);
    const int icon = type & kIconMask;
    const bool mayCancel = (type & kButtonMask) == kBoxYesNoCancel;
    const bool yesNo = mayCancel || (type & kButtonMask) == kBoxYesNo;
    if (yesNo && m_beforeConfirmation)
        m_beforeConfirmation();
    box.setIcon(icon == kBoxCritical      ? QMessageBox::Critical
                : icon == kBoxExclamation ? QMessageBox::Warning
                : icon == kBoxInformation ? QMessageBox::Information
                : yesNo                   ? QMessageBox::Question
                                          : QMessageBox::NoIcon);
    if (!yesNo) {
        WidenToTitle(box);
        box.exec();
        return kAnswerOk;
    }
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No | (mayCancel ? QMessageBox::Cancel : QMessageBox::NoButton));
    if ((type & kBoxDefaultNo) != 0)
        box.setDefaultButton(QMessageBox::No);
    WidenToTitle(box);
    const int pressed = box.exec();
    return pressed == QMessageBox::Yes ? kAnswerYes : pressed == QMessageBox::Cancel ? kAnswerCancel : kAnswerNo;
}

void DesktopDialogs::TellMade(const QString& text, const QString& title, const QString& path)
{
    QMessageBox box(BoxOwner());
    SetUp(box, text, title);
    box.setIcon(QMessageBox::Information);
    const QPushButton* open = box.addButton(QCoreApplication::translate("Dialogs", "&Open"), QMessageBox::ActionRole);
    const QPushButton* folder = box.addButton(QCoreApplication::translate("Dialogs", "Open &Folder"), QMessageBox::ActionRole);
    box.setDefaultButton(box.addButton(QMessageBox::Ok));
    box.setEscapeButton(QMessageBox::Ok);
    WidenToTitle(box);
    box.exec();
    const QAbstractButton* pressed = box.clickedButton();
    if (pressed != open && pressed != folder)
        return;
    const QString target = pressed == open ? path : QFileInfo(path).path();
    if (!OpenOnDesktop(target))
        MessageBox(QCoreApplication::translate("Dialogs", "No program of the desktop opens this:\r\n%1").arg(target), kBoxExclamation,
                   title);
}

QString DesktopDialogs::InputBox(const QString& prompt, const QString& title, const QString& value)
{
    return QInputDialog::getText(BoxOwner(), title, prompt, QLineEdit::Normal, value);
}

void DesktopDialogs::ShowOpen(FileDialog& dialog)
{
    const QString path =
        QFileDialog::getOpenFileName(BoxOwner(), QCoreApplication::translate("Dialogs", "Open"), dialog.fileName, FilterOf(dialog));
    if (path.isEmpty())
        throw RuntimeError(kErrCancelled);
    dialog.fileName = path;
}

void DesktopDialogs::ShowSave(FileDialog& dialog)
{
    // The caller asks about an existing file in its own words.
    QFileDialog window(BoxOwner(), QCoreApplication::translate("Dialogs", "Save As"), dialog.fileName, FilterOf(dialog));
    window.setAcceptMode(QFileDialog::AcceptSave);
    window.setOption(QFileDialog::DontConfirmOverwrite);
    window.setDefaultSuffix(Ending(dialog));
    if (window.exec() != QDialog::Accepted || window.selectedFiles().isEmpty())
        throw RuntimeError(kErrCancelled);
    dialog.fileName = window.selectedFiles().constFirst();
}

QString DesktopDialogs::BrowseForFolder(const QString& title)
{
    return QFileDialog::getExistingDirectory(BoxOwner(), title);
}

QString DesktopDialogs::AskFieldEdit(const QString& value, qsizetype size, const QString& column)
{
    if (m_owner && !m_owner->isVisible()) {
        m_owner->setWindowState(m_owner->windowState() & ~Qt::WindowMinimized);
        m_owner->show();
        m_owner->raise();
        m_owner->activateWindow();
    }
    fLengthEdit dialog(value, size, column, m_owner);
    return dialog.exec() == QDialog::Accepted ? dialog.Text() : QString();
}

bool OpenOnDesktop(const QString& path)
{
    return QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

std::unique_ptr<QPrinter> ChoosePrinter(QWidget& owner)
{
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    QPrintDialog dialog(printer.get(), &owner);
    dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintShowPageSize);
    if (dialog.exec() != QDialog::Accepted)
        return nullptr;
    return printer;
}

void DesktopEvents::ServeEvents()
{
    QCoreApplication::processEvents();
}

void DesktopEvents::ServeWithoutInput()
{
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void DesktopEvents::Pause(int milliseconds)
{
    cWaitableTimer().Wait(milliseconds);
}

} // namespace kelvado
