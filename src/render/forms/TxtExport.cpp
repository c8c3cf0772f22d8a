#include "render/forms/TxtExport.h"

#include "browse/forms/MethodTree.h"
#include "browse/forms/frmFilter.h"
#include "core/Afterwards.h"
#include "core/Guard.h"
#include "core/Paths.h"
#include "render/SiteAddress.h"
#include "render/export/TextExport.h"
#include "render/export/TextFields.h"
#include "render/export/TextTemplate.h"
#include "render/forms/ExportRun.h"
#include "ui/Skinner.h"
#include "ui/ctxListItem.h"
#include "ui_TxtExport.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpressionValidator>
#include <QShortcut>

namespace kelvado {

namespace {

const QString kTemplateFilter = u"Text Export Template (*.tet)| *.tet"_s;
const QString kTextFilter = u"Text File (*.txt)| *.txt| All Files| *.*"_s;
const QString kCancelled = u"Candel"_s;
const QString kRefused = u"A line end and \"%1\" have a meaning of their own in templates and cannot stand in a text."_s;

} // namespace

TxtExport::TxtExport(const Context& context, QWidget* parent) : QDialog(parent), m_ui(std::make_unique<Ui::TxtExport>()), m_context(context)
{
    m_ui->setupUi(this);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    m_ui->SelOutput->SetEmptyText(tr("Double-click a field to add it to the output, or drag it here"));
    m_ui->SelOutput->SetDropSource(m_ui->tvExport);
    m_ui->lstFilters->addActions({m_ui->mnuRemoveFilters, m_ui->mnuRemoveAll});
    // A line end would part the line of a film.
    m_ui->TxtDel->setValidator(new QRegularExpressionValidator(QRegularExpression(u"[^\\v]*"_s), this));
    FillChoices();
    context.skinner.SkinForm(*this);

    On(m_ui->tvExport, &QTreeWidget::itemDoubleClicked, &TxtExport::AddField);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto* shortcut = new QShortcut(key, m_ui->tvExport);
        shortcut->setContext(Qt::WidgetShortcut);
        On(shortcut, &QShortcut::activated, &TxtExport::AddField);
    }
    On(m_ui->SelOutput, &ctxListObjects::SourceDropped, &TxtExport::AddField);
    On(m_ui->cmdAddField, &QPushButton::clicked, &TxtExport::AddField);
    On(m_ui->cmdAddFilter, &QPushButton::clicked, &TxtExport::AddFilter);
    On(m_ui->cmdRemoveFilters, &QPushButton::clicked, &TxtExport::RemoveFilter);
    On(m_ui->mnuRemoveFilters, &QAction::triggered, &TxtExport::RemoveFilter);
    On(m_ui->mnuRemoveAll, &QAction::triggered, &TxtExport::RemoveAllFilters);
    On(m_ui->cmdLoadTemplate, &QPushButton::clicked, &TxtExport::LoadTemplate);
    On(m_ui->cmdSaveTemplate, &QPushButton::clicked, &TxtExport::SaveTemplate);
    On(m_ui->Command1, &QPushButton::clicked, &TxtExport::Export);
    connect(m_ui->cmdRemoveRow, &QPushButton::clicked, m_ui->SelOutput, &ctxListObjects::Remove);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_ui->SelOutput, &ctxListObjects::Changed, this, &TxtExport::EnableControls);
    connect(m_ui->tvExport, &QTreeWidget::currentItemChanged, this, &TxtExport::EnableControls);
    connect(m_ui->lstFilters, &QListWidget::currentRowChanged, this, &TxtExport::EnableControls);
    EnableControls();
}

TxtExport::~TxtExport() = default;

template<typename Sender, typename Signal>
void TxtExport::On(const Sender* sender, Signal signal, void (TxtExport::*handler)())
{
    connect(sender, signal, this, [this, handler] { Run(handler); });
}

void TxtExport::Run(void (TxtExport::*handler)())
{
    Guarded(m_context.dialogs, [&] {
        try {
            (this->*handler)();
        } catch (const RuntimeError& error) {
            if (error.Number() == kErrCancelled)
                throw;
            m_context.dialogs.MessageBox(error.Description() + u" : "_s + QString::number(error.Number()), kBoxCritical);
        }
    });
}

void TxtExport::FillChoices()
{
    int number = 0;
    for (const TextField& field : TextFields())
        AddMethod(*m_ui->tvExport, QString::fromLatin1(field.caption), field.isGroup, number++);
    m_ui->tvExport->setCurrentItem(m_ui->tvExport->topLevelItem(0));
    Connection catalog = OpenFilms();
    m_ui->CboSort->addItems(TextSorts(catalog));
    m_template.filter = kTemplateFilter;
    if (const QString folder = AppPath() + u"/Templates"_s; QFileInfo(folder).isDir())
        m_template.fileName = folder;
    m_text.filter = kTextFilter;
    const QFileInfo films(m_context.state.CatalogPath());
    m_text.fileName = films.path() + u'/' + films.completeBaseName() + u".txt"_s;
}

void TxtExport::EnableControls()
{
    const TextField* field = SelectedField();
    const bool isAny = m_ui->SelOutput->ListCount() > 0;
    const bool isFilter = m_ui->lstFilters->currentRow() >= 0;
    m_ui->cmdAddField->setEnabled(field && !field->isGroup);
    m_ui->cmdRemoveRow->setEnabled(m_ui->SelOutput->ListIndex() > 0);
    m_ui->cmdSaveTemplate->setEnabled(isAny);
    m_ui->Command1->setEnabled(isAny);
    m_ui->cmdAddFilter->setEnabled(m_filters.size() < Filters::kMost);
    m_ui->cmdRemoveFilters->setEnabled(isFilter);
    m_ui->mnuRemoveFilters->setEnabled(isFilter);
    m_ui->mnuRemoveAll->setEnabled(!m_filters.isEmpty());
}

const TextField* TxtExport::SelectedField() const
{
    const int number = MethodNumber(m_ui->tvExport->currentItem());
    return number < 0 ? nullptr : &TextFields()[static_cast<std::size_t>(number)];
}

void TxtExport::AddField()
{
    const TextField* field = SelectedField();
    if (!field || field->isGroup)
        return;
    const CustomText* custom = CustomTextOf(*field);
    if (!custom) {
        Connection catalog = OpenFilms();
        return AddEntry(ColumnEntry(*field, catalog), u"NORMAL"_s);
    }
    QString text;
    do {
        text = m_context.dialogs.InputBox(QString::fromLatin1(custom->prompt), QString::fromLatin1(custom->title), text);
        if (text.isEmpty())
            return;
        if (!IsStorable(text))
            m_context.dialogs.MessageBox(kRefused.arg(kTemplateMark), kBoxInformation, QString::fromLatin1(custom->title));
    } while (!IsStorable(text));
    AddEntry(CustomEntry(*custom, text), QString::fromLatin1(custom->rowKind));
}

void TxtExport::AddEntry(const TextEntry& entry, const QString& rowKind)
{
    m_ui->SelOutput->Add(entry.Caption, entry.FieldName, entry.TableName, entry.Formated, entry.FormatedLength, entry.AutoCutt,
                         entry.AutoCutLength, entry.TextAlign, rowKind);
}

QList<TextEntry> TxtExport::Entries() const
{
    QList<TextEntry> entries;
    for (int row = 1; row <= m_ui->SelOutput->ListCount(); ++row)
        entries << m_ui->SelOutput->List(row).Entry();
    return entries;
}

void TxtExport::AddFilter()
{
    frmFilter dialog(m_context.dialogs, this);
    m_context.skinner.SkinForm(dialog);
    const FilterRecord filter = dialog.ShowAndRead();
    if (filter.WhereText == u"0")
        return;
    m_filters << filter;
    ShowFilters();
}

void TxtExport::RemoveFilter()
{
    const int row = m_ui->lstFilters->currentRow();
    if (row < 0 || !m_context.dialogs.ConfirmLoss(u"Are You Sure You Wish To Remove This Filter ? "_s, kBoxYesNo, u"Remove Filter"_s))
        return;
    m_filters.removeAt(row);
    ShowFilters();
}

void TxtExport::RemoveAllFilters()
{
    if (!m_context.dialogs.ConfirmLoss(u"Are You Sure You Wish To Remove All Filters ? "_s, kBoxYesNo, u"Remove Filters"_s))
        return;
    m_filters.clear();
    ShowFilters();
}

void TxtExport::ShowFilters()
{
    m_ui->lstFilters->clear();
    for (const FilterRecord& filter : std::as_const(m_filters))
        m_ui->lstFilters->addItem(filter.Caption);
    m_ui->lstFilters->setCurrentRow(static_cast<int>(m_filters.size()) - 1);
    EnableControls();
}

void TxtExport::LoadTemplate()
{
    m_context.dialogs.ShowOpen(m_template);
    Connection catalog = OpenFilms();
    const QList<TextEntry> entries = ReadTextTemplate(m_template.fileName, catalog);
    m_ui->SelOutput->setUpdatesEnabled(false);
    m_ui->SelOutput->Clear();
    for (const TextEntry& entry : entries)
        AddEntry(entry, u"LOAD"_s);
    if (!entries.isEmpty())
        m_ui->SelOutput->SetListIndex(1);
    m_ui->SelOutput->setUpdatesEnabled(true);
    m_ui->SelOutput->setFocus();
}

void TxtExport::SaveTemplate()
{
    if (ChooseTarget(m_template))
        WriteTextTemplate(m_template.fileName, Entries());
}

bool TxtExport::ChooseTarget(FileDialog& dialog)
{
    m_context.dialogs.ShowSave(dialog);
    const QFileInfo target(dialog.fileName);
    if (target.exists() && target.canonicalFilePath() == QFileInfo(m_context.state.CatalogPath()).canonicalFilePath())
        throw RuntimeError::WithDetail(kErrFileAccess, QDir::toNativeSeparators(dialog.fileName) + u" (this is the open catalog)"_s);
    return m_context.dialogs.MayReplace(dialog.fileName, windowTitle());
}

void TxtExport::Export()
{
    try {
        if (!ChooseTarget(m_text))
            return;
    } catch (const RuntimeError& error) {
        if (error.Number() == kErrCancelled)
            m_context.dialogs.MessageBox(kCancelled, kBoxInformation);
        throw;
    }
    const TextExport text{m_text.fileName,
                          Entries(),
                          m_ui->TxtDel->text(),
                          JoinFilters({m_filters.constData(), static_cast<std::size_t>(m_filters.size())}),
                          TextOrder(m_ui->CboSort->currentText(), m_ui->cboOrder->currentText() == u"Descending"),
                          SiteAddress(SettingsFile()),
                          MakerAddress(SettingsFile())};
    QWidget* focused = focusWidget();
    Afterwards(
        [&] {
            m_context.run.Run(*this,
                              {.window = windowTitle(),
                               .work = u"Writing films…"_s,
                               .title = {},
                               .success = u"Movie list export to text file complete"_s,
                               .cancelled = u"The file was not written; an older one is as it was."_s},
                              [&](const GoesOn& goesOn) {
                                  Connection catalog = OpenFilms();
                                  return BuildTextExport(text, catalog, goesOn);
                              });
        },
        [this, focused] { // a window that was disabled has lost it
            activateWindow();
            if (focused)
                focused->setFocus();
        });
}

void TxtExport::reject()
{
    if (!m_context.run.IsBusy())
        QDialog::reject();
}

} // namespace kelvado
