#pragma once

#include "core/Literals.h"

#include <QFileInfo>
#include <QString>

namespace kelvado {

/// Types of a message box; they add up: buttons and icon.
inline constexpr int kBoxPlain = 0;
inline constexpr int kBoxYesNoCancel = 3;
inline constexpr int kBoxYesNo = 4;
inline constexpr int kBoxCritical = 16;
inline constexpr int kBoxYesNoCritical = 20;
inline constexpr int kBoxExclamation = 48;
inline constexpr int kBoxYesNoExclamation = 52;
inline constexpr int kBoxInformation = 64;
/// Added to a box with Yes and No: No is the button that Enter presses.
inline constexpr int kBoxDefaultNo = 256;

inline constexpr int kAnswerOk = 1;
inline constexpr int kAnswerCancel = 2;
inline constexpr int kAnswerYes = 6;
inline constexpr int kAnswerNo = 7;

/// A file dialog's lasting state. `fileName` holds the last chosen path and stays until it is set anew.
struct FileDialog
{
    QString fileName;
    /// Caption and pattern, parted by "|": "Kelvado Catolog (*.kvd)| *.kvd".
    QString filter;
};

/// All questions to the user. Nothing else in the program opens a modal window of the platform.
class Dialogs
{
public:
    virtual ~Dialogs() = default;

    /// Shows `text` and waits; returns the number of the button that was pressed. An empty title stands for the product's name.
    virtual int MessageBox(const QString& text, int type, const QString& title) = 0;
    int MessageBox(const QString& text, int type) { return MessageBox(text, type, QString()); }
    /// Asks a Yes and No question whose Yes destroys something; True for Yes.
    bool ConfirmLoss(const QString& text, int type, const QString& title)
    {
        return MessageBox(text, type | kBoxDefaultNo, title) == kAnswerYes;
    }

    /// Asks whether the file at `path` may be replaced, where there is one.
    bool MayReplace(const QString& path, const QString& title)
    {
        return !QFileInfo::exists(path) ||
               ConfirmLoss(u"File already exists, are you sure you wish to continue?"_s, kBoxYesNoCritical, title);
    }

    /// Tells that something was made, in a box with buttons that open `path` and the folder that it lies in. `path` is shown by the
    /// desktop, as a double click on it would.
    virtual void TellMade(const QString& text, const QString& title, const QString& path) = 0;

    /// Asks for a line of text. The empty text where the user cancels.
    virtual QString InputBox(const QString& prompt, const QString& title, const QString& value) = 0;

    /// Lets the user choose a file and puts its path into `dialog`. A cancel raises `kErrCancelled` and leaves `dialog` as it was.
    virtual void ShowOpen(FileDialog& dialog) = 0;
    virtual void ShowSave(FileDialog& dialog) = 0;

    /// The chosen folder; the empty text where the user cancels.
    virtual QString BrowseForFolder(const QString& title) = 0;

    /// Lets the user shorten `value` to at most `size` characters for the column named `column` (in capitals).
    /// Returns the shortened text; the empty text where the user closed the window without accepting.
    virtual QString AskFieldEdit(const QString& value, qsizetype size, const QString& column) = 0;
};

} // namespace kelvado
