#include "panels/forms/Form3.h"

#include "core/Conversions.h"
#include "core/Literals.h"
#include "core/Paths.h"
#include "core/RuntimeError.h"
#include "core/WebHosts.h"
#include "intake/FileFilm.h"
#include "intake/MediaFile.h"
#include "panels/FilmPeople.h"
#include "panels/PictureStore.h"
#include "panels/forms/frmEditAddChar.h"
#include "store/mFileAccess.h"
#include "ui_FilmPanel.h"
#include "web/VisitAddress.h"

#include <QFileInfo>
#include <QHideEvent>
#include <QTimer>

#include <algorithm>

namespace kelvado {

namespace {

const QString kEditTitle = u"Edit Interface"_s;

// The entry of a person among those of the same person that stand above it.
FilmPersonEntry EntryOf(const QList<PairRow>& rows, int row, FilmId film)
{
    const auto above = std::count_if(rows.begin(), rows.begin() + row, [&](const PairRow& other) { return other.id == rows[row].id; });
    return {film, rows[row].id, static_cast<int>(above)};
}

QString LinkText(const QString& address)
{
    return address.isEmpty() ? QString() : u"<a href=\"%1\">%1</a>"_s.arg(address.toHtmlEscaped());
}

} // namespace

Form3::Form3(const PanelContext& context, const Skinner& skinner, QWidget* parent) : FilmPanel(context, skinner, parent)
{
    setObjectName(u"Form3"_s);
    m_ui->lblCaption->setText(tr("Edit Movie Information"));
    connect(m_ui->cmdAVI, &QPushButton::clicked, this, [this] { Guard([this] { OnAvi(); }); });
    connect(m_ui->cmdNfo, &QPushButton::clicked, this, [this] { Guard([this] { OnNfo(); }); });
    for (QLabel* link : {m_ui->lblIMDbURL, m_ui->lblDVDEmpURL})
        connect(link, &QLabel::linkActivated, this, [this](const QString& address) { Q_EMIT LinkActivated(QUrl(address)); });
    Clear();
}

WriterContext Form3::Writer() const
{
    return {m_catalogPath, SettingsFile(), m_context.dialogs};
}

FilmId Form3::ShownFilm() const
{
    if (!m_film)
        throw RuntimeError(kErrObjectNotSet);
    return *m_film;
}

void Form3::Clear()
{
    m_film.reset();
    m_catalogPath.clear();
    ShowRecord({}, ZeroDate());
    ShowPeople({});
    ShowCompanies({});
    ShowLinks({});
    m_ui->lstGenre->clear();
    m_ui->lstFeatures->clear();
    m_ui->Picture1->Clear();
    m_ui->Image1->Clear();
    m_ui->lblFilm_ID->clear();
    m_ui->cmdSave->setEnabled(false);
    setEnabled(false);
}

void Form3::ClearIfGone()
{
    if (m_film && (m_catalogPath != m_context.state.CatalogPath() || !FilmExists(*m_film, m_catalogPath)))
        Clear();
}

void Form3::Edit_Page(FilmId movieId)
{
    try {
        const FilmOnShow film = ReadFilmOnShow(movieId, m_context.state.CatalogPath());
        m_film = movieId;
        LoadLimits({});
        LoadTicks();
        m_ui->lblFilm_ID->setText(QString::number(movieId));
        ShowRecord(film.record, film.lastViewing);
        ShowLinks(film);
        ShowTicks(film.record);
        ShowPeople(film.record);
        ShowCompanies(film.record);
    } catch (...) {
        Clear();
        throw;
    }
    SetClean();
    setEnabled(true);
    for (const Cover cover : {Cover::Front, Cover::Back})
        Guard([&] { ShowCover(cover); }); // a picture that cannot be shown leaves the film to be edited
}

void Form3::ShowLinks(const FilmOnShow& film)
{
    const auto show = [](QLabel& label, const QString& caption, const QString& address) {
        label.setText(LinkText(address));
        label.setAccessibleName(address.isEmpty() ? caption : caption + u": "_s + address);
        label.setFocusPolicy(address.isEmpty() ? Qt::NoFocus : Qt::StrongFocus);
    };
    const QString number = film.record.IMDB;
    show(*m_ui->lblIMDbURL, tr("IMDb Link"), number.isEmpty() ? QString() : FilmAddress(number, ReadWebHosts(SettingsFile())));
    show(*m_ui->lblDVDEmpURL, tr("DVD Empire Link"), film.shopLink);
}

void Form3::ShowTicks(const FilmRecord& film)
{
    m_loading = true;
    const auto tick = [](QListWidget& list, const auto& names) {
        for (int i = 0; i < list.count(); ++i) {
            const qint64 id = list.item(i)->data(Qt::UserRole).toLongLong();
            if (std::ranges::any_of(names, [id](const auto& name) { return name.ID == id; }))
                list.item(i)->setCheckState(Qt::Checked);
        }
    };
    tick(*m_ui->lstGenre, film.Genres);
    tick(*m_ui->lstFeatures, film.Features);
    m_loading = false;
}

void Form3::ShowCover(Cover cover)
{
    const bool front = cover == Cover::Front;
    PictureBox& box = front ? *m_ui->Picture1 : *m_ui->Image1;
    QPushButton& button = front ? *m_ui->cmdImage : *m_ui->cmdBackImage;
    const QString base = TempFolder() + (front ? u"/MImage"_s : u"/MImage19"_s);
    box.Clear();
    button.setText(front ? tr("Set &Image") : tr("Set I&mage"));
    const ShownPicture picture =
        ReadPicture(front ? FrontCover(ShownFilm()) : BackCover(ShownFilm()), base, m_context.state.skin, m_catalogPath);
    if (!picture.isSet)
        return;
    button.setText(front ? tr("Change &Image") : tr("Change I&mage"));
    box.SetPicture(picture.file);
}

void Form3::OnChange(QWidget*)
{
    m_ui->cmdSave->setEnabled(m_film.has_value());
}

void Form3::Edit_Update(FilmId movieId)
{
    SaveFilmEdit(ReadRecord(), movieId, Writer());
}

void Form3::Save()
{
    const FilmId film = ShownFilm();
    const bool ofOpenCatalog = m_catalogPath == m_context.state.CatalogPath();
    const QStringList before = ofOpenCatalog ? ReadTreeFacts(film, m_context.state) : QStringList();
    Edit_Update(film);
    SetClean();
    if (!ofOpenCatalog)
        return;
    // The panel shows what the catalog now holds, on the page and with the focus that it had.
    const FilmOnShow stored = ReadFilmOnShow(film, m_catalogPath);
    ShowRecord(stored.record, stored.lastViewing);
    m_context.shell.RetitleSelectedNode(film, DecodeEntities(stored.record.Title));
    TellTree(ReadTreeFacts(film, m_context.state) != before);
}

void Form3::Discard()
{
    if (!FilmExists(ShownFilm(), m_catalogPath))
        return Clear();
    const FilmOnShow stored = ReadFilmOnShow(ShownFilm(), m_catalogPath);
    ShowRecord(stored.record, stored.lastViewing);
    SetClean();
}

void Form3::SetClean()
{
    // A button that goes off leaves the focus to anybody.
    const bool hadFocus = m_ui->cmdSave->hasFocus();
    m_ui->cmdSave->setEnabled(false);
    if (hadFocus)
        m_ui->TabBarMovie->setFocus();
}

void Form3::OnSave()
{
    Save();
    m_context.dialogs.MessageBox(u"Your Changes Have Been Saved"_s, kBoxPlain, kEditTitle);
}

// The selected node keeps its film: it gets the key that the film has now before the tree is filled anew.
void Form3::TellTree(bool changed)
{
    if (!changed && !m_treeIsStale && m_context.state.FilterCount == 0)
        return;
    m_treeIsStale = false;
    m_context.shell.RekeySelectedNode(ShownFilm());
    m_context.shell.RefreshCatalogTree();
    m_context.shell.UpdateStatus(true);
}

void Form3::OnTick(const NameTable& names, qint64 id, bool ticked)
{
    StoreTick(names, ShownFilm(), id, ticked, m_catalogPath);
    NoteGenreChange();
}

void Form3::OnGenreDeleted()
{
    NoteGenreChange();
}

void Form3::NoteGenreChange()
{
    const bool byGenre = m_context.state.gOptions->View.PrimarySort == u"Genre.Genre" || m_context.state.FilterCount > 0;
    m_treeIsStale = m_treeIsStale || byGenre;
}

void Form3::hideEvent(QHideEvent* event)
{
    FilmPanel::hideEvent(event);
    if (event->spontaneous() || !m_treeIsStale || !m_film)
        return;
    // What comes into view first has its turn.
    QTimer::singleShot(0, this, [this] {
        if (m_film && m_catalogPath == m_context.state.CatalogPath())
            Guard([this] { TellTree(true); });
    });
}

void Form3::OnImage(Cover cover, const QString& path)
{
    try {
        const PictureSlot slot = cover == Cover::Front ? FrontCover(ShownFilm()) : BackCover(ShownFilm());
        const QString message = ReplacePicture(slot, path, m_catalogPath);
        if (!message.isEmpty()) {
            m_context.dialogs.MessageBox(message, kBoxPlain);
            return;
        }
        ShowCover(cover);
    } catch (const RuntimeError& error) {
        m_context.dialogs.MessageBox(u"While attempting to insert imagry the following error occured:\r\n"_s + error.Description(),
                                     kBoxCritical, u"Error: Please Contact Support"_s);
    }
}

void Form3::OnAvi()
{
    ShownFilm();
    FileDialog& dialog = m_context.state.ComDiag;
    dialog.filter = VideoFileFilter();
    m_context.dialogs.ShowOpen(dialog);
    const std::optional<AVIDetails> details = ReadChosenFile(dialog.fileName, m_catalogPath);
    if (!details)
        return;
    FilmRecord facts;
    SetFileFacts(*details, facts);
    TakeFileFacts(facts);
}

void Form3::OnNfo()
{
    const FilmId film = ShownFilm();
    FileDialog& dialog = m_context.state.ComDiag;
    dialog.filter = u"Release NFO Files (*.nfo)| *.nfo|All Files (*.*)|*.*|"_s;
    m_context.dialogs.ShowOpen(dialog);
    const QString text = ReadWholeFile(dialog.fileName, m_context.dialogs);
    if (text.isEmpty()) {
        if (QFileInfo::exists(dialog.fileName)) // a missing one was told of
            m_context.dialogs.MessageBox(dialog.fileName + u" empty or not found."_s, kBoxPlain);
        return;
    }
    StoreNfo(film, text, m_catalogPath);
    m_note->Tell(*m_ui->cmdNfo, tr("The NFO is in the catalog"), FieldNote::Place::Below);
    m_context.shell.ApplyMenuRules(); // it can be looked at from now on
}

void Form3::AddPerson()
{
    const PersonKind& kind = ShownKind();
    frmEditAddChar dialog(kind, m_catalogPath, this);
    m_skinner.SkinForm(dialog);
    const std::optional<frmEditAddChar::Chosen> chosen = dialog.Ask();
    if (!chosen)
        return;
    const QString text = AddFilmPerson(kind, ShownFilm(), chosen->id, chosen->text, Writer());
    PairList& list = ShownPeople();
    list.Model().Append({chosen->id, chosen->name, text});
    list.Select(static_cast<int>(list.Rows().size()) - 1);
}

QString Form3::PersonText(int row) const
{
    return DecodeEntities(FilmPersonText(ShownKind(), EntryOf(ShownPeople().Rows(), row, ShownFilm()), m_catalogPath).value_or(QString()));
}

std::optional<QString> Form3::StorePersonText(int row, const QString& text)
{
    return ChangeFilmPerson(ShownKind(), EntryOf(ShownPeople().Rows(), row, ShownFilm()), text, Writer());
}

bool Form3::ConfirmRemoval(const QString& name)
{
    return m_context.dialogs.ConfirmLoss(tr("Are you sure you wish to remove %1 from this film?").arg(name), kBoxYesNo,
                                         tr("Remove From Film"));
}

std::optional<qint64> Form3::StoreCompany(const QString& name, int list)
{
    return AddFilmCompany(ShownFilm(), {name, 0, CompanyType(list), {}}, Writer());
}

bool Form3::DropCompany(const PairRow& company, int list)
{
    if (!ConfirmRemoval(company.name))
        return false;
    RemoveFilmCompany(ShownFilm(), company.id, list, m_catalogPath);
    return true;
}

bool Form3::DropPerson(int row)
{
    const QList<PairRow>& rows = ShownPeople().Rows();
    if (!ConfirmRemoval(rows[row].name))
        return false;
    RemoveFilmPerson(ShownKind(), EntryOf(rows, row, ShownFilm()), m_catalogPath);
    return true;
}

} // namespace kelvado
