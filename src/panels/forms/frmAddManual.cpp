#include "panels/forms/frmAddManual.h"

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
    if (m_catalogPath != m_context.state.CatalogPath()) {
        // The numbers of genres and people are those of another catalog.
        LoadTicks();
        ShowPeople({});
        m_catalogPath = m_context.state.CatalogPath();
    }
    LoadLimits({u"Filename"_s});
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
        QFile file(m_front);
        if (file.open(QIODevice::ReadOnly))
            film.ImageData = file.readAll();
        if (film.ImageData.isEmpty())
            m_context.dialogs.MessageBox(m_front + u" empty or not found."_s, kBoxPlain);
        else
            film.ImageExtention = m_front.right(kKindLetters);
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

void frmAddManual::OnSave()
{
    const FilmRecord film = EnteredFilm();
    const FilmId movieId = AddManualFilm(film, {m_context.state.CatalogPath(), SettingsFile(), m_context.dialogs});
    if (!m_back.isEmpty()) {
        const QString message = ReplacePicture(BackCover(movieId), m_back, m_context.state.CatalogPath());
        if (!message.isEmpty())
            m_context.dialogs.MessageBox(message, kBoxPlain);
    }
    m_context.dialogs.MessageBox(u"Successfully Added "_s + film.Title, kBoxPlain, u"Manual Add Successful"_s);
    Clear();
    LoadTicks();
    m_ui->TabBarMovie->DrawBar(1);
    m_ui->frameMovie->setCurrentIndex(0);
    m_context.shell.RefreshCatalogTree();
    m_context.shell.UpdateStatus(true);
    m_ui->txtTitle->setFocus();
}

std::optional<qint64> frmAddManual::StoreCompany(const QString& name, int)
{
    return IsUsableName(name) ? std::optional<qint64>(0) : std::nullopt; // it gets its number with the film
}

void frmAddManual::AddPerson()
{
    frmEditAddChar dialog(ShownKind(), m_context.state.CatalogPath(), this);
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

void frmAddManual::RemovePerson()
{
    if (const int row = ShownPeople().Selected(); row >= 0)
        ShownPeople().Model().Remove(row);
}

} // namespace kelvado
