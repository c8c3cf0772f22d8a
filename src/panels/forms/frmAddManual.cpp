#include "panels/forms/frmAddManual.h"

#include "core/Guard.h"
#include "core/Literals.h"
#include "core/Paths.h"
#include "core/RuntimeError.h"
#include "panels/PictureStore.h"
#include "panels/forms/frmEditAddChar.h"
#include "store/FilmLinks.h"
#include "ui_FilmPanel.h"

#include <QFile>

namespace kelvado {

frmAddManual::frmAddManual(const PanelContext& context, const Skinner& skinner, QWidget* parent) : FilmPanel(context, skinner, parent)
{
    setObjectName(u"frmAddManual"_s);
    m_ui->lblCaption->setText(tr("Enter a Movie by Hand"));
    m_ui->cmdSave->setText(tr("Add Movie"));
    // There is no row yet that these could work on.
    for (QWidget* control :
         std::initializer_list<QWidget*>{m_ui->lblFilm_ID, m_ui->cmdAVI, m_ui->cmdNfo, m_ui->lblIMDbLink, m_ui->lblIMDbURL,
                                         m_ui->lblDVDEmpLink, m_ui->lblDVDEmpURL, m_ui->lblFeatures, m_ui->lstFeatures})
        control->hide();
    Clear();
}

void frmAddManual::Reopen()
{
    QStringList ticked;
    for (const NamedRow& genre : TickedGenres())
        ticked << genre.name;
    if (m_catalogPath != m_context.state.CatalogPath())
        ShowPeople({}); // the numbers of people are those of another catalog
    LoadTicks();
    TickGenres(ticked);
    LoadLimits({u"Filename"_s});
}

void frmAddManual::Discard()
{
    Clear();
    LoadTicks();
}

void frmAddManual::Clear()
{
    ShowRecord({}, ZeroDate());
    ShowPeople({});
    ShowCompanies({});
    m_front.clear();
    m_back.clear();
    m_ui->Picture1->Clear();
    m_ui->Image1->Clear();
    m_ui->cmdImage->setText(tr("Set &Image"));
    m_ui->cmdBackImage->setText(tr("Set I&mage"));
    m_ui->cmdSave->setEnabled(false);
}

void frmAddManual::OnChange(QWidget* control)
{
    if (control == m_ui->txtTitle)
        m_ui->cmdSave->setEnabled(true);
}

void frmAddManual::OnImage(Cover cover, const QString& path)
{
    const bool front = cover == Cover::Front;
    (front ? m_front : m_back) = path;
    (front ? m_ui->Picture1 : m_ui->Image1)->SetPicture(path);
    (front ? m_ui->cmdImage : m_ui->cmdBackImage)->setText(front ? tr("Change &Image") : tr("Change I&mage"));
}

FilmRecord frmAddManual::EnteredFilm()
{
    constexpr int kKindLetters = 3;
    FilmRecord film = ReadRecord();
    if (!m_front.isEmpty()) {
        QString fault = PictureFault(m_front);
        QFile file(m_front);
        if (fault.isEmpty() && !file.open(QIODevice::ReadOnly))
            fault = m_front + u": "_s + file.errorString();
        if (!fault.isEmpty()) {
            m_context.dialogs.MessageBox(fault, kBoxPlain);
        } else {
            film.ImageData = file.readAll();
            film.ImageExtention = m_front.right(kKindLetters);
        }
    }
    for (const NamedRow& genre : TickedGenres())
        film.Genres.append({genre.name, genre.id});
    for (int kind = 0; kind < kPersonKinds; ++kind) {
        const PersonKind& info = PersonKinds()[static_cast<std::size_t>(kind)];
        for (const PairRow& row : PeopleOf(kind).Rows()) {
            FilmPerson person{row.name, row.id, {}, {}, {}};
            person.*info.text = row.text;
            (film.*info.list).append(person);
        }
    }
    for (int list = 0; list < kCompanyLists; ++list) {
        for (const PairRow& row : CompaniesOf(list).Rows())
            film.Companies.append({row.name, row.id, CompanyType(list), row.text});
    }
    return film;
}

void frmAddManual::Save()
{
    const FilmRecord film = EnteredFilm();
    QString backCover = m_back;
    if (const QString fault = m_back.isEmpty() ? QString() : PictureFault(m_back); !fault.isEmpty()) {
        m_context.dialogs.MessageBox(fault, kBoxPlain);
        backCover.clear();
    }
    try {
        AddManualFilm(film, backCover, {m_catalogPath, SettingsFile(), m_context.dialogs});
        m_context.dialogs.MessageBox(u"Successfully Added "_s + film.Title, kBoxPlain, u"Manual Add Successful"_s);
    } catch (const IncompleteFilm& error) {
        ReportError(m_context.dialogs, error); // the film is in the catalog: entered once more, it would stand there twice
    }
    Clear();
    LoadTicks();
    m_ui->TabBarMovie->DrawBar(1);
    m_ui->frameMovie->setCurrentIndex(0);
    m_context.shell.RefreshCatalogTree();
    m_context.shell.UpdateStatus(true);
}

void frmAddManual::OnSave()
{
    Save();
    m_ui->txtTitle->setFocus();
}

std::optional<qint64> frmAddManual::StoreCompany(const QString& name, int)
{
    return IsUsableName(name) ? std::optional<qint64>(0) : std::nullopt; // it gets its number with the film
}

void frmAddManual::AddPerson()
{
    frmEditAddChar dialog(ShownKind(), m_catalogPath, this);
    m_skinner.SkinForm(dialog);
    if (const std::optional<frmEditAddChar::Chosen> chosen = dialog.Ask()) {
        PairList& list = ShownPeople();
        list.Model().Append({chosen->id, chosen->name, chosen->text});
        list.Select(static_cast<int>(list.Rows().size()) - 1);
    }
}

std::optional<QString> frmAddManual::StorePersonText(int, const QString& text)
{
    return text;
}

} // namespace kelvado
