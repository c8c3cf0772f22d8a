#include "render/forms/frmPrintCollection.h"

#include "core/Guard.h"
#include "core/Literals.h"
#include "core/Paths.h"
#include "core/RuntimeError.h"
#include "render/SiteAddress.h"
#include "render/forms/PagePrinter.h"
#include "ui_frmPrintCollection.h"

#include <QDir>
#include <QFileInfo>
#include <QPrinter>

#include <numeric>

namespace kelvado {

namespace {

constexpr qint64 kManySheets = 100;

qint64 CountOf(const QList<FilmGroup>& groups)
{
    return std::accumulate(groups.begin(), groups.end(), qint64(0),
                           [](qint64 count, const FilmGroup& group) { return count + group.films.size(); });
}

} // namespace

frmPrintCollection::frmPrintCollection(const Context& context, const QList<Choice>& choices, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmPrintCollection>()), m_context(context), m_choices(choices)
{
    m_ui->setupUi(this);
    for (const Choice& choice : m_choices)
        m_ui->cboFilms->addItem(choice.name + u" ("_s + QString::number(CountOf(choice.groups)) + u')');
    const auto connectTo = [&](QPushButton* button, void (frmPrintCollection::*handler)()) {
        connect(button, &QPushButton::clicked, this,
                [this, handler] { Guarded(m_context.dialogs, [this, handler] { (this->*handler)(); }); });
    };
    connectTo(m_ui->cmdPrint, &frmPrintCollection::Print);
    connectTo(m_ui->cmdPdf, &frmPrintCollection::SavePdf);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

frmPrintCollection::~frmPrintCollection() = default;

void frmPrintCollection::reject()
{
    if (!m_context.run.IsBusy())
        QDialog::reject();
}

qint64 frmPrintCollection::Films() const
{
    const qint64 films = CountOf(m_choices[m_ui->cboFilms->currentIndex()].groups);
    if (films == 0)
        m_context.dialogs.MessageBox(u"No films to print."_s, kBoxInformation);
    return films;
}

void frmPrintCollection::Print()
{
    const qint64 films = Films();
    if (films == 0)
        return;
    if (m_ui->optPages->isChecked() && films > kManySheets &&
        !m_context.dialogs.ConfirmLoss(u"This prints at least %1 sheets. Go on?"_s.arg(films), kBoxYesNo, {}))
        return;
    const std::unique_ptr<QPrinter> printer = m_context.choosePrinter(*this);
    if (!printer)
        return;
    // What the box at the end opens is the page, where nothing but paper was made.
    Run({.window = u"Print Collection"_s,
         .work = u"Writing the pages…"_s,
         .title = u"Print Collection"_s,
         .success = u"The films were sent to the printer."_s,
         .cancelled = u"What the printer has already may still be printed."_s},
        printer->outputFileName(),
        [&](const QString& page, const auto& goesOn) { return PagePrinter().ToPrinter(page, *printer, goesOn); });
}

void frmPrintCollection::SavePdf()
{
    if (Films() == 0)
        return;
    FileDialog dialog;
    dialog.filter = u"PDF File (*.pdf)| *.pdf"_s;
    m_context.dialogs.ShowSave(dialog);
    const QString target = dialog.fileName;
    const QString shown = QDir::toNativeSeparators(target);
    if (QFileInfo::exists(target) &&
        !m_context.dialogs.ConfirmLoss(u"%1 exists already. Replace it?"_s.arg(shown), kBoxYesNoExclamation, {}))
        return;
    Run({.window = u"Print Collection"_s,
         .work = u"Writing the pages…"_s,
         .title = u"Print Collection"_s,
         .success = u"The films were written to "_s + shown,
         .cancelled = shown + u" was not written; an older one is as it was."_s},
        target, [&](const QString& page, const auto& goesOn) { return PagePrinter().ToPdf(page, target, goesOn); });
}

void frmPrintCollection::Run(const ExportRun::Texts& texts, const QString& target, const PrintPage& print)
{
    const Choice& choice = m_choices[m_ui->cboFilms->currentIndex()];
    const PrintForm form = m_ui->optList->isChecked() ? PrintForm::List : PrintForm::FilmPages;
    m_context.run.Run(*this, texts, [&](const GoesOn& goesOn) {
        ExportDone done;
        {
            Connection catalog = OpenCatalog(m_context.state.CatalogPath());
            done = WriteCollectionPage(choice.groups, catalog, {form, m_context.state.skin, SiteAddress(SettingsFile())}, goesOn);
        }
        if (!done.whole)
            return done;
        const ExportStep last{done.count, done.count, u"Printing…"_s};
        done.whole = print(done.path, [&] { return goesOn(last); });
        done.pictures = 0; // they lie beside a page that nobody is to look for
        if (!target.isEmpty())
            done.path = target;
        return done;
    });
}

} // namespace kelvado
