#include "panels/forms/frmPeople.h"

#include "core/Guard.h"
#include "core/Literals.h"
#include "core/Paths.h"
#include "panels/PictureStore.h"
#include "ui_frmPeople.h"

#include <QFileInfo>
#include <QHeaderView>
#include <QShortcut>

#include <algorithm>

namespace kelvado {

namespace {

const QString kImageFilter = u"All Image Files (*.jpg, *.gif)| *.jpg;*.gif|All Files (*.*)|*.*|"_s;
const QString kImageFailure = u"An Error Has Occured, Kelvado will now be closed"_s;

constexpr int kCharacterChars = 16;

std::vector<TableRow> FilmRows(const std::vector<PersonFilm>& films)
{
    std::vector<TableRow> rows;
    rows.reserve(films.size());
    for (const PersonFilm& film : films)
        rows.push_back({film.movieId, {film.title, film.character}});
    return rows;
}

} // namespace

frmPeople::frmPeople(const PanelContext& context, QWidget* parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::frmPeople>()), m_context(context)
{
    m_ui->setupUi(this);
    SetUpLists();
    for (QLineEdit* field : findChildren<QLineEdit*>())
        connect(field, &QLineEdit::textChanged, this, [this] { SetDirty(true); });
    connect(m_ui->txtBio, &QPlainTextEdit::textChanged, this, [this] { SetDirty(true); });
    const auto run = [this](auto routine) { return [this, routine] { Guarded(m_context.dialogs, [&] { (this->*routine)(); }); }; };
    connect(m_ui->cmdSave, &QPushButton::clicked, this, run(&frmPeople::Actor_Edit_Save));
    connect(m_ui->CmdImage, &QPushButton::clicked, this, run(&frmPeople::ChooseImage));
    connect(m_ui->Image1, &PictureBox::FileChosen, this, &frmPeople::StoreImage);
    connect(m_ui->Image1, &PictureBox::Failed, this, [this](const QString& text) { m_context.dialogs.MessageBox(text, kBoxCritical); });
    connect(m_ui->cmdRetreive, &QPushButton::clicked, this, [this] {
        Guarded(m_context.dialogs, [this] {
            AskAboutChanges(*this, m_context.dialogs);
            Q_EMIT RetrieveWanted();
        });
    });
    auto* save = new QShortcut(QKeySequence::Save, this);
    save->setContext(Qt::WidgetWithChildrenShortcut);
    connect(save, &QShortcut::activated, m_ui->cmdSave, &QPushButton::click);
    Clear();
}

frmPeople::~frmPeople()
{
    // The lists' views go with the panel's controls, before the models.
    for (QTreeView* list : findChildren<QTreeView*>())
        list->setModel(nullptr);
}

void frmPeople::SetUpLists()
{
    const QStringList films{tr("Title"), tr("Character")};
    m_have.SetHeads(films);
    m_want.SetHeads(films);
    m_beside.SetHeads({tr("Actor")});
    m_history.SetHeads({tr("Title")});
    m_ui->lstPeople->setModel(&m_beside);
    m_ui->lstHistory->setModel(&m_history);
    SetUpFilms(*m_ui->lstFHave, m_have, *m_ui->lstFWant);
    SetUpFilms(*m_ui->lstFWant, m_want, *m_ui->lstFHave);
    for (QTreeView* list : findChildren<QTreeView*>()) {
        // Unsorted until the user clicks a head.
        list->header()->setSortIndicator(-1, Qt::AscendingOrder);
        list->setSortingEnabled(true);
    }
    connect(m_ui->lstHistory, &QWidget::customContextMenuRequested, this, &frmPeople::ShowHistoryMenu);
}

void frmPeople::SetUpFilms(QTreeView& list, TableRows& films, QTreeView& other)
{
    list.setModel(&films);
    list.header()->setStretchLastSection(false);
    list.header()->setSectionResizeMode(0, QHeaderView::Stretch);
    list.header()->resizeSection(1, kCharacterChars * fontMetrics().averageCharWidth());
    connect(list.selectionModel(), &QItemSelectionModel::selectionChanged, this, [this, &films, &other](const QItemSelection& selected) {
        if (selected.isEmpty())
            return;
        // The list of the others belongs to one film.
        other.clearSelection();
        ShowActorsBeside(films.Row(selected.indexes().constFirst().row()).key);
    });
    connect(&list, &QTreeView::activated, this,
            [this, &films](const QModelIndex& index) { Q_EMIT FilmWanted(films.Row(index.row()).key); });
}

void frmPeople::Actor_Edit_Page(qint64 actorId)
{
    const QString path = m_context.state.CatalogPath();
    try {
        const PersonPage page = kelvado::Actor_Edit_Page(actorId, path);
        m_actorId = actorId;
        m_catalogPath = path;
        Fill(page);
        setEnabled(true);
    } catch (const RuntimeError&) {
        Clear();
        throw;
    }
}

void frmPeople::Clear()
{
    m_actorId = 0;
    m_catalogPath.clear();
    Fill({});
    setEnabled(false);
}

void frmPeople::ClearIfGone()
{
    if (m_actorId == 0)
        return;
    bool isGone = m_catalogPath != m_context.state.CatalogPath();
    try {
        if (!isGone)
            kelvado::Actor_Edit_Page(m_actorId, m_catalogPath);
    } catch (const RuntimeError&) {
        isGone = true;
    }
    if (isGone)
        Clear();
}

void frmPeople::FocusFirst()
{
    m_ui->txtName->setFocus(Qt::TabFocusReason);
}

void frmPeople::Fill(const PersonPage& page)
{
    m_ui->lblActor_ID->setText(QString::number(m_actorId));
    FillTexts(page);
    m_ui->cmdRetreive->setEnabled(page.isOnSite);
    m_ui->cmdRetreive->setToolTip(page.isOnSite ? QString() : tr("No page of the film site is known for this person"));
    ShowPicture();
    m_have.SetRows(FilmRows(page.have));
    m_want.SetRows(FilmRows(page.want));
    m_beside.SetRows({});
    std::vector<TableRow> history;
    for (const HistoryFilm& film : page.history)
        history.push_back({static_cast<qint64>(history.size()), {film.title, film.number}});
    m_history.SetRows(std::move(history));
}

void frmPeople::FillTexts(const PersonPage& page)
{
    m_isFilling = true;
    const auto fill = [&page](QLineEdit& box, PersonField field) {
        const auto place = static_cast<std::size_t>(field);
        const QString& text = page.texts[place];
        // A text that another program stored beyond its column's size is not cut by being shown.
        box.setMaxLength(static_cast<int>(std::clamp<qsizetype>(page.limits[place], text.size(), 32767)));
        if (box.text() != text) {
            box.setText(text);
            box.setCursorPosition(0);
        }
    };
    fill(*m_ui->txtName, PersonField::Name);
    fill(*m_ui->txtBirthName, PersonField::BirthName);
    fill(*m_ui->txtBirthLocation, PersonField::BirthLocation);
    fill(*m_ui->txtBirthDate, PersonField::BirthDate);
    fill(*m_ui->txtHeight, PersonField::Height);
    const QString& biography = page.texts[static_cast<std::size_t>(PersonField::Biography)];
    if (m_ui->txtBio->toPlainText() != biography)
        m_ui->txtBio->setPlainText(biography);
    m_read = page.texts;
    m_limits = page.limits;
    m_shown = BoxTexts();
    m_isFilling = false;
    SetDirty(false);
}

PersonTexts frmPeople::BoxTexts() const
{
    return {m_ui->txtName->text(),      m_ui->txtBirthName->text(),  m_ui->txtBirthLocation->text(),
            m_ui->txtBirthDate->text(), m_ui->txtBio->toPlainText(), m_ui->txtHeight->text()};
}

PersonTexts frmPeople::Texts() const
{
    // A box shows some characters as others, such as line ends: a text that the user left alone goes back as it was.
    PersonTexts texts = BoxTexts();
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (texts[i] == m_shown[i])
            texts[i] = m_read[i].size() > m_limits[i] ? QString() : m_read[i]; // an empty text leaves its column alone
    }
    return texts;
}

void frmPeople::SetDirty(bool isDirty)
{
    if (m_isFilling)
        return;
    // A button that goes off leaves the focus to anybody.
    if (!isDirty && m_ui->cmdSave->hasFocus())
        m_ui->txtName->setFocus();
    m_ui->cmdSave->setEnabled(isDirty);
}

bool frmPeople::HasChanges() const
{
    return m_ui->cmdSave->isEnabled();
}

QString frmPeople::Name() const
{
    return m_ui->txtName->text();
}

void frmPeople::Save()
{
    Actor_Edit_Save();
}

void frmPeople::Discard()
{
    FillTexts(kelvado::Actor_Edit_Page(m_actorId, m_catalogPath));
}

void frmPeople::Store()
{
    kelvado::Actor_Edit_Save(m_actorId, Texts(), {m_catalogPath, SettingsFile(), m_context.dialogs});
    const PersonPage stored = kelvado::Actor_Edit_Page(m_actorId, m_catalogPath);
    FillTexts(stored);
    Q_EMIT PersonStored(m_actorId, m_ui->txtName->text());
}

void frmPeople::Actor_Edit_Save()
{
    Store();
    m_context.dialogs.MessageBox(u"Actor Information saved successfully."_s, kBoxPlain);
}

void frmPeople::ChooseImage()
{
    FileDialog& dialog = m_context.state.ComDiag;
    dialog.filter = kImageFilter;
    m_context.dialogs.ShowOpen(dialog);
    StoreImage(dialog.fileName);
}

void frmPeople::StoreImage(const QString& path)
{
    if (QFileInfo(path).size() > 0 && !PictureBox::IsPicture(path)) {
        m_context.dialogs.MessageBox(tr("%1 is not a picture that can be shown.").arg(path), kBoxExclamation);
        return;
    }
    try {
        const QString message = ReplacePicture(Portrait(m_actorId), path, m_catalogPath);
        if (!message.isEmpty()) {
            m_context.dialogs.MessageBox(message, kBoxPlain);
            return;
        }
        ShowPicture();
    } catch (const RuntimeError& error) {
        m_context.dialogs.MessageBox(error.Description() + u"\r\n\r\n"_s + kImageFailure, kBoxCritical);
    }
}

void frmPeople::ShowPicture()
{
    ShownPicture picture;
    try {
        if (m_actorId != 0)
            picture = ReadPicture(Portrait(m_actorId), AppPath() + u"/imagetemp"_s, m_context.state.skin, m_catalogPath);
    } catch (const RuntimeError&) {
        // The rest of the person is of use without it; the place of the picture says that it cannot be shown.
        picture = {true, true, QString()};
    }
    m_ui->CmdImage->setText(picture.isThere ? tr("Change I&mage") : tr("Set I&mage"));
    if (picture.isSet)
        m_ui->Image1->SetPicture(picture.file);
    else
        m_ui->Image1->Clear();
}

void frmPeople::ShowActorsBeside(FilmId movieId)
{
    Guarded(m_context.dialogs, [&] {
        std::vector<TableRow> rows;
        for (const QString& name : ActorsBeside(m_actorId, movieId, m_catalogPath))
            rows.push_back({static_cast<qint64>(rows.size()), {name}});
        m_beside.SetRows(std::move(rows));
    });
}

QString frmPeople::HistoryNumber() const
{
    const QModelIndexList rows = m_ui->lstHistory->selectionModel()->selectedRows();
    return rows.isEmpty() ? QString() : m_history.Row(rows[0].row()).texts.value(1);
}

void frmPeople::ShowHistoryMenu(const QPoint& place)
{
    if (!HistoryNumber().isEmpty())
        Q_EMIT HistoryMenuWanted(m_ui->lstHistory->viewport()->mapToGlobal(place));
}

} // namespace kelvado
