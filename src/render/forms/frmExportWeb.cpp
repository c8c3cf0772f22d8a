#include "render/forms/frmExportWeb.h"

#include "core/Guard.h"
#include "core/Literals.h"
#include "core/Paths.h"
#include "store/mFileAccess.h"
#include "ui_frmExportWeb.h"

#include <QDir>
#include <QLineEdit>

#include <array>
#include <utility>

namespace kelvado {

namespace {

enum Page { kWelcome, kTemplate, kDetail, kPerPage, kFinish };

const QString kEnding = u".kmt"_s;

QString TemplateFolder()
{
    return FindFileCaseBlind(AppPath(), u"Templates"_s);
}

} // namespace

frmExportWeb::frmExportWeb(Context context, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmExportWeb>()), m_context(std::move(context))
{
    m_ui->setupUi(this);
    m_ui->updPerPage->findChild<QLineEdit*>()->setObjectName(u"txtPerPage"_s);
    m_ui->picPreview->SetReadOnly();
    m_ui->cmdExport->setEnabled(m_context.exportFilms != nullptr);
    m_ui->lblExport->setText(m_context.exportFilms ? tr("The pages and their pictures are written into a folder of your choice.")
                                                   : tr("No catalog is open whose films could be exported."));
    ListTemplates();
    ShowSettings(false);
    ShowPage(kWelcome);
    connect(m_ui->lstTemplates, &QListWidget::currentRowChanged, this,
            [this] { Guarded(m_context.dialogs, [this] { SelectTemplate(); }); });
    Connect(*m_ui->cmdNext, &frmExportWeb::GoOn);
    Connect(*m_ui->lblFullScreen, &frmExportWeb::ShowFullScreen);
    Connect(*m_ui->Command1, &frmExportWeb::SaveFiles);
    Connect(*m_ui->cmdExport, &frmExportWeb::Export);
    connect(m_ui->cmdBack, &QPushButton::clicked, this, [this] { ShowPage(m_ui->PicPage->currentIndex() - 1); });
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

frmExportWeb::~frmExportWeb() = default;

void frmExportWeb::reject()
{
    if (isEnabled())
        QDialog::reject();
}

void frmExportWeb::Connect(QPushButton& button, void (frmExportWeb::*handler)())
{
    connect(&button, &QPushButton::clicked, this, [this, handler] { Guarded(m_context.dialogs, [this, handler] { (this->*handler)(); }); });
}

int frmExportWeb::LastPage() const
{
    return m_ui->PicPage->count() - 1;
}

void frmExportWeb::ListTemplates()
{
    for (QString name : QDir(TemplateFolder()).entryList({u'*' + kEnding}, QDir::Files, QDir::Name | QDir::IgnoreCase)) {
        name.chop(kEnding.size());
        m_ui->lstTemplates->addItem(name);
    }
    if (m_ui->lstTemplates->count() == 0)
        m_ui->picPreview->SetEmptyText(tr("No templates (*.kmt) lie in\n%1").arg(QDir::toNativeSeparators(TemplateFolder())));
}

void frmExportWeb::SelectTemplate()
{
    m_isReadable = false;
    m_ui->picPreview->Clear();
    ShowSettings(false);
    ShowPage(kTemplate);
    const QListWidgetItem* selected = m_ui->lstTemplates->currentItem();
    if (!selected)
        return;
    m_template = cTemplate();
    m_template.PackagePath = FindFileCaseBlind(TemplateFolder(), selected->text() + kEnding);
    MakeDirs(TempFolder());
    m_ui->picPreview->SetPicture(m_template.SaveThumbnail(TempFolder()));
    m_template.LoadSettings(m_template.PackagePath);
    m_isReadable = true;
    ShowSettings(true);
    ShowPage(kTemplate);
}

void frmExportWeb::ShowSettings(bool known)
{
    const auto yesNo = [](bool flag) { return flag ? u"Yes"_s : u"No"_s; };
    m_ui->lblType->setText(m_template.StandardPage ? u"Standard"_s : u"Sorted & Filtered"_s);
    m_ui->lblDetail->setText(yesNo(m_template.DetailsPage));
    m_ui->lblPerPage->setText(yesNo(m_template.FilmsPerPage));
    m_ui->lblNav->setText(yesNo(m_template.Nav));
    m_ui->lblFiles->setText(QString::number(m_template.FileCount()));
    const std::array labels{m_ui->lblType, m_ui->lblDetail, m_ui->lblPerPage, m_ui->lblNav, m_ui->lblFiles};
    const std::array captions{m_ui->capType, m_ui->capDetail, m_ui->capPerPage, m_ui->capNav, m_ui->capFiles};
    for (std::size_t i = 0; i < labels.size(); ++i) {
        labels[i]->setTextFormat(Qt::PlainText);
        labels[i]->setVisible(known);
        captions[i]->setVisible(known);
    }
    m_ui->lblFullScreen->setEnabled(known);
    m_ui->Command1->setEnabled(known);
    m_ui->optDetail->setEnabled(m_template.DetailsPage);
    m_ui->optNoDetail->setEnabled(m_template.DetailsPage);
    m_ui->lblNoDetail->setVisible(!m_template.DetailsPage);
    m_ui->updPerPage->setEnabled(m_template.FilmsPerPage);
    m_ui->lblNoPerPage->setVisible(!m_template.FilmsPerPage);
}

void frmExportWeb::ShowPage(int page)
{
    const bool isNew = page != m_ui->PicPage->currentIndex();
    m_ui->PicPage->setCurrentIndex(page);
    m_ui->lblStep->setText(QString::number(page + 1) + u" of "_s + QString::number(m_ui->PicPage->count()));
    m_ui->cmdBack->setEnabled(page > kWelcome);
    m_ui->cmdNext->setEnabled(page != kTemplate || m_isReadable);
    m_ui->cmdNext->setText(page == LastPage() ? u"&Finish"_s : u"&Next >>"_s);
    if (!isNew)
        return;
    // Before the list gets the focus, which would make a row current without selecting it.
    if (page == kTemplate && m_ui->lstTemplates->currentRow() < 0)
        m_ui->lstTemplates->setCurrentRow(0);
    QWidget* const first[] = {m_ui->cmdNext, m_ui->lstTemplates, m_ui->optDetail, m_ui->updPerPage, m_ui->cmdExport};
    QWidget* focus = first[page]->isEnabled() ? first[page] : m_ui->cmdNext;
    if (focus == m_ui->optDetail && m_ui->optNoDetail->isChecked())
        focus = m_ui->optNoDetail;
    focus->setFocus();
    m_ui->updPerPage->selectAll(); // what is typed takes its place
    (page == LastPage() && m_ui->cmdExport->isEnabled() ? m_ui->cmdExport : m_ui->cmdNext)->setDefault(true);
}

void frmExportWeb::GoOn()
{
    if (m_ui->PicPage->currentIndex() == LastPage())
        accept();
    else
        ShowPage(m_ui->PicPage->currentIndex() + 1);
}

void frmExportWeb::ShowFullScreen()
{
    MakeDirs(TempFolder());
    m_context.openFile(m_template.SaveThumbnail(TempFolder()));
}

void frmExportWeb::SaveFiles()
{
    const QString folder = BrowseForFolder(u"Select Save Directory..."_s, m_context.dialogs);
    if (!folder.isEmpty())
        m_template.SaveAdditionalFiles(folder);
}

void frmExportWeb::Export()
{
    m_context.exportFilms({.package = m_template.PackagePath,
                           .details = m_template.DetailsPage && m_ui->optDetail->isChecked(),
                           .filmsPerPage = m_template.FilmsPerPage ? m_ui->updPerPage->value() : 0});
    m_ui->cmdNext->setDefault(true);
    m_ui->cmdNext->setFocus();
}

} // namespace kelvado
