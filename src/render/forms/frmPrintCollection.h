#pragma once

#include "core/AppState.h"
#include "core/Dialogs.h"
#include "render/export/CollectionPrint.h"
#include "render/forms/ExportRun.h"

#include <QDialog>

#include <functional>
#include <memory>

class QPrinter;

namespace Ui {
class frmPrintCollection;
}

namespace kelvado {

/// "Print Collection": prints films of the tree, as a list or as pages, or writes them into a PDF file.
class frmPrintCollection : public QDialog
{
    Q_OBJECT
public:
    struct Context
    {
        const AppState& state;
        Dialogs& dialogs;
        ExportRun& run;
        /// Lets the user choose a printer above this window; null where the user cancels.
        std::function<std::unique_ptr<QPrinter>(QWidget& owner)> choosePrinter;
    };
    /// What the user can choose from: the films of the whole tree, then those that the selected node stands for, if one is selected.
    struct Choice
    {
        QString name;
        QList<FilmGroup> groups;
    };
    frmPrintCollection(const Context& context, const QList<Choice>& choices, QWidget* parent);
    ~frmPrintCollection() override;

    /// An export holds the window until it has ended.
    void reject() override;

private:
    /// Prints the page that was written; false after a cancel.
    using PrintPage = std::function<bool(const QString& page, const std::function<bool()>& goesOn)>;
    /// How many films are chosen; none is told in a message.
    qint64 Films() const;
    void Print();
    void SavePdf();
    void Run(const ExportRun::Texts& texts, const QString& target, const PrintPage& print);

    std::unique_ptr<Ui::frmPrintCollection> m_ui;
    Context m_context;
    QList<Choice> m_choices;
};

} // namespace kelvado
