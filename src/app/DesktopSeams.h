#pragma once

#include "core/Clock.h"
#include "core/Dialogs.h"
#include "core/Events.h"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <memory>

class QPrinter;

namespace kelvado {

/// Questions asked in real windows, above `owner` once that is set.
class DesktopDialogs : public Dialogs
{
public:
    void SetOwner(QWidget* owner) { m_owner = owner; }
    /// Called before each question that wants a Yes or No.
    void SetBeforeConfirmation(std::function<void()> routine) { m_beforeConfirmation = std::move(routine); }

    using Dialogs::MessageBox;
    int MessageBox(const QString& text, int type, const QString& title) override;
    void TellMade(const QString& text, const QString& title, const QString& path) override;
    QString InputBox(const QString& prompt, const QString& title, const QString& value) override;
    void ShowOpen(FileDialog& dialog) override;
    void ShowSave(FileDialog& dialog) override;
    QString BrowseForFolder(const QString& title) override;
    QString AskFieldEdit(const QString& value, qsizetype size, const QString& column) override;

private:
    QWidget* BoxOwner() const;

    QPointer<QWidget> m_owner;
    std::function<void()> m_beforeConfirmation;
};

/// Shows a file or folder of the user's in the desktop's own program. False where the desktop has none for it.
bool OpenOnDesktop(const QString& path);

/// Lets the user choose a printer, or a file in its place; null where the user cancels.
std::unique_ptr<QPrinter> ChoosePrinter(QWidget& owner);

class DesktopEvents : public Events
{
public:
    void ServeEvents() override;
    void ServeWithoutInput() override;
    void Pause(int milliseconds) override;
};

class DesktopClock : public Clock
{
public:
    QDateTime Now() const override { return QDateTime::currentDateTime(); }
};

} // namespace kelvado
