#pragma once

#include "core/Dialogs.h"
#include "support/ErrorOf.h"

#include <QList>
#include <QQueue>

namespace kelvado {

/// Answers every question from a list made beforehand, and keeps what was asked. An unexpected file dialog is cancelled, an unexpected
/// box answered with No.
class ScriptedDialogs : public Dialogs
{
public:
    struct Box
    {
        QString text;
        int type;
        QString title;
        friend bool operator==(const Box&, const Box&) = default;
    };

    using Dialogs::MessageBox;
    int MessageBox(const QString& text, int type, const QString& title) override
    {
        boxes.append({text, type & ~kBoxDefaultNo, title});
        if ((type & kBoxDefaultNo) != 0)
            lossQuestions.append(text);
        return answers.isEmpty() ? kAnswerNo : answers.dequeue();
    }
    void TellMade(const QString& text, const QString& title, const QString& path) override
    {
        MessageBox(text, kBoxInformation, title);
        made.append(path);
    }
    QString InputBox(const QString&, const QString&, const QString&) override { return inputs.isEmpty() ? QString() : inputs.dequeue(); }
    void ShowOpen(FileDialog& dialog) override { Choose(dialog); }
    void ShowSave(FileDialog& dialog) override { Choose(dialog); }
    QString BrowseForFolder(const QString&) override { return files.isEmpty() ? QString() : files.dequeue(); }
    QString AskFieldEdit(const QString& value, qsizetype size, const QString& column) override
    {
        fieldEdits.append(column + u':' + QString::number(size));
        return edits.isEmpty() ? value.left(size) : edits.dequeue();
    }

    QStringList Texts() const
    {
        QStringList texts;
        for (const Box& box : boxes)
            texts << box.text;
        return texts;
    }

    QList<Box> boxes;
    QQueue<int> answers;
    QQueue<QString> inputs, files, edits;
    QStringList fieldEdits;
    QStringList lossQuestions; ///< the texts of the boxes in which Enter means No
    QStringList made;          ///< what boxes offered to open
    QStringList proposed;      ///< what the file dialogs began with

private:
    void Choose(FileDialog& dialog)
    {
        proposed.append(dialog.fileName);
        if (files.isEmpty())
            throw RuntimeError(kErrCancelled);
        dialog.fileName = files.dequeue();
    }
};

} // namespace kelvado
