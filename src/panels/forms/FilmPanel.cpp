#include "panels/forms/FilmPanel.h"

#include "core/Conversions.h"
#include "core/Guard.h"
#include "core/Literals.h"
#include "core/RuntimeError.h"
#include "store/FilmActions.h"
#include "ui_FilmPanel.h"

#include <QEvent>
#include <QFileInfo>
#include <QRegularExpression>
#include <QShortcut>
#include <QSignalBlocker>

#include <algorithm>

namespace kelvado {

namespace {

struct TextField
{
    const char* control;
    QString FilmRecord::*member;
    const char* column; ///< whose size is the input limit; none where the control has no limit
    bool isDecoded = false;
};

constexpr TextField kTextFields[] = {
    {"txtTitle", &FilmRecord::Title, "Title", true},
    {"txtTitleNY", &FilmRecord::TitleNY, "TitleNY", true},
    {"txtYear", &FilmRecord::Year, nullptr},
    {"cboFormat", &FilmRecord::Format, "Format"},
    {"txtDiscs", &FilmRecord::Number, "Number"},
    {"txtIndex", &FilmRecord::Index, "Index"},
    {"txtRuntime", &FilmRecord::Runtime, "Runtime"},
    {"cboRated", &FilmRecord::Rated, "Rated"},
    {"cboCountry", &FilmRecord::Country, "Country"},
    {"txtColor", &FilmRecord::Color, "Color"},
    {"txtLanguage", &FilmRecord::Language, "Language"},
    {"TxtSubLanguage", &FilmRecord::SubLanguage, "SubLanguage"},
    {"txtCustom_0", &FilmRecord::Custom1, "Custom1"},
    {"txtCustom_1", &FilmRecord::Custom2, "Custom2"},
    {"txtCustom_2", &FilmRecord::Custom3, "Custom3"},
    {"txtFilename", &FilmRecord::FileName, "Filename"},
    {"txtGroup", &FilmRecord::Group, "Group"},
    {"txtFilesize", &FilmRecord::Filesize, "Filesize"},
    {"TxtVidType", &FilmRecord::VidType, "VidType"},
    {"TxtAudType", &FilmRecord::AudType, "AudType"},
    {"TxtVidBitrate", &FilmRecord::VidBitrate, "vidBitRate"},
    {"TxtAudBitrate", &FilmRecord::AudBitrate, "audBitRate"},
    {"TxtResolution", &FilmRecord::Resolution, "Resolution"},
    {"TxtAudChannels", &FilmRecord::AudChannels, "AudChannels"},
    {"txtTrailerLink", &FilmRecord::TrailerURL, "TrailerURL"},
    {"txtCustomLink1", &FilmRecord::UserURL1, "UserURL1"},
    {"txtCustomLink2", &FilmRecord::UserURL2, "UserURL2"},
    {"txtRating", &FilmRecord::Rating, "Rating"},
    {"txtVotes", &FilmRecord::Votes, "Votes"},
    {"txtMyRatingNotes", &FilmRecord::MyRatingNotes, nullptr},
    {"txtPurchasedWhere", &FilmRecord::PurchasedWhere, "PurchasedWhere"},
    {"TxtInfos_0", &FilmRecord::Plot, nullptr, true},
    {"TxtInfos_1", &FilmRecord::Comments, nullptr},
    {"TxtInfos_2", &FilmRecord::FileNotes, nullptr},
};

constexpr const char* kNumberFields[] = {"txtYear", "txtDiscs"};
constexpr const char* kCertificates[] = {"G", "PG", "PG-13", "R", "NC-17", "Unrated"};
constexpr int kTexts = 3;
constexpr int kGenreIdRole = Qt::UserRole;

const QString kMustSelect = u"You Must Select An Item To Edit First"_s;

QString TextOf(const QWidget& control)
{
    if (const auto* line = qobject_cast<const QLineEdit*>(&control))
        return line->text();
    if (const auto* list = qobject_cast<const QComboBox*>(&control))
        return list->currentText();
    return static_cast<const QPlainTextEdit&>(control).toPlainText();
}

void SetText(QWidget& control, const QString& text)
{
    if (auto* line = qobject_cast<QLineEdit*>(&control)) {
        line->setText(text);
        line->setCursorPosition(0);
    } else if (auto* list = qobject_cast<QComboBox*>(&control)) {
        list->setEditText(text);
        list->lineEdit()->setCursorPosition(0);
    } else {
        static_cast<QPlainTextEdit&>(control).setPlainText(text);
    }
}

// The line in which the user types; null for a box of many lines.
QLineEdit* LineOf(QWidget& control)
{
    if (const auto* list = qobject_cast<const QComboBox*>(&control))
        return list->lineEdit();
    return qobject_cast<QLineEdit*>(&control);
}

void FillList(QComboBox& list, QStringList values)
{
    const QString text = list.currentText();
    values.removeDuplicates();
    list.clear();
    list.addItems(values);
    list.setEditText(text);
}

// A comma parts thousands. One that stands elsewhere was meant as the decimal sign: "12,50" is no price, and certainly not 1250.
bool IsPrice(const QString& text)
{
    static const QRegularExpression strayComma(u",(?!\\d{3}(?!\\d))"_s);
    return IsNumeric(text) && !text.contains(strayComma);
}

QString WithAccessKey(QLatin1StringView caption)
{
    return QString(caption).replace("Add "_L1, "A&dd "_L1).replace("Edit "_L1, "Ed&it "_L1).replace("Remove "_L1, "Re&move "_L1);
}

} // namespace

FilmPanel::FilmPanel(const PanelContext& context, const Skinner& skinner, QWidget* parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::FilmPanel>()), m_context(context), m_skinner(skinner)
{
    m_ui->setupUi(this);
    m_note = new FieldNote(this);
    for (const TextField& field : kTextFields)
        m_fields.append({findChild<QWidget*>(QLatin1StringView(field.control)), field.member, field.isDecoded, {}, {}});
    for (const char* certificate : kCertificates)
        m_ui->cboRated->addItem(QString::fromLatin1(certificate));
    for (QComboBox* list : {m_ui->cboRated, m_ui->cboCountry}) {
        list->setEditText({});
        list->installEventFilter(this);
    }
    m_skinner.SkinForm(*this);
    ConnectControls();
    ConnectFields();
    ShowKind(0);
    ShowRating(0);
    ApplySkin();
    connect(&m_skinner, &Skinner::Changed, this, &FilmPanel::ApplySkin);
}

FilmPanel::~FilmPanel()
{
    // A field that goes while it has the focus says that its editing has ended; by then there is nothing left to look at.
    for (QWidget* control : findChildren<QWidget*>())
        disconnect(control, nullptr, this, nullptr);
}

void FilmPanel::ApplySkin()
{
    const QString& skin = m_context.state.skin;
    const auto strip = [&](cTabControl& tabs, const QList<cTabControl::Tab>& names, const QString& kind) {
        const int selected = std::max(1, tabs.Selected());
        Guard([&] { tabs.Initialize(names, skin, u"Tabs/%1-coords.ini"_s.arg(kind), u"Tabs/%1-Sections.bmp"_s.arg(kind)); });
        tabs.DrawBar(selected);
    };
    strip(*m_ui->TabBarMovie,
          {{"Details", "Movie Details"},
           {"File", "File"},
           {"Links", "Links and IMDb"},
           {"Personal", "Personal"},
           {"Text", "Text"},
           {"Lists", "People and Genres"},
           {"Images", "Pictures"}},
          u"Movie"_s);
    strip(*m_ui->TabBar, {{"Actor", "Actors"}, {"Writer", "Writers"}, {"Director", "Directors"}, {"Producer", "Producers"}}, u"People"_s);
    strip(*m_ui->TabBarCompanies,
          {{"Production", "Production"}, {"Special Effects", "Special Effects"}, {"Distributor", "Distributors"}, {"Other", "Others"}},
          u"Company"_s);
    Guard([&] { m_ui->ImgMyRating->LoadPictures(skin); });
    ShowText(m_text);
    m_note->TakeColors();
}

void FilmPanel::FocusFirst()
{
    for (QWidget* next = m_ui->TabBarMovie->nextInFocusChain(); next != m_ui->TabBarMovie; next = next->nextInFocusChain()) {
        if (m_ui->frameMovie->currentWidget()->isAncestorOf(next) && next->isEnabled() && (next->focusPolicy() & Qt::TabFocus) != 0 &&
            next->isVisibleTo(m_ui->frameMovie->currentWidget()))
            return next->setFocus(Qt::TabFocusReason);
    }
}

void FilmPanel::Guard(const std::function<void()>& handler)
{
    Guarded(m_context.dialogs, handler);
}

void FilmPanel::ConnectControls()
{
    const auto onStrip = [this](cTabControl& strip, QStackedWidget& pages, const std::function<void(int)>& show) {
        connect(&strip, &cTabControl::MouseDown, this, [&pages, show](int tab) {
            pages.setCurrentIndex(tab - 1);
            show(tab - 1);
        });
    };
    onStrip(*m_ui->TabBarMovie, *m_ui->frameMovie, [this](int) { m_note->Clear(); });
    onStrip(*m_ui->TabBar, *m_ui->lstPeople, [this](int kind) { ShowKind(kind); });
    onStrip(*m_ui->TabBarCompanies, *m_ui->lstCompany, [](int) {});
    const auto turnPage = [this](const QKeySequence& keys, int step) {
        auto* shortcut = new QShortcut(keys, this);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, this, [this, step] {
            const int pages = m_ui->frameMovie->count();
            const int page = (m_ui->frameMovie->currentIndex() + step + pages) % pages;
            m_ui->TabBarMovie->DrawBar(page + 1);
            Q_EMIT m_ui->TabBarMovie->MouseDown(page + 1);
            m_ui->TabBarMovie->setFocus(Qt::TabFocusReason);
        });
    };
    turnPage(Qt::CTRL | Qt::Key_PageDown, 1);
    turnPage(Qt::CTRL | Qt::Key_PageUp, -1);
    auto* save = new QShortcut(Qt::CTRL | Qt::Key_S, this);
    save->setContext(Qt::WidgetWithChildrenShortcut);
    connect(save, &QShortcut::activated, m_ui->cmdSave, [this] { m_ui->cmdSave->click(); });
    connect(m_ui->cmdSave, &QPushButton::clicked, this, [this] { Guard([this] { OnSave(); }); });

    const auto guarded = [this](QPushButton* button, void (FilmPanel::*handler)()) {
        connect(button, &QPushButton::clicked, this, [this, handler] { Guard([this, handler] { (this->*handler)(); }); });
    };
    guarded(m_ui->cmdAddPeople, &FilmPanel::AddPerson);
    guarded(m_ui->cmdEditPeople, &FilmPanel::EditPerson);
    guarded(m_ui->cmdRemovePeople, &FilmPanel::RemovePerson);
    guarded(m_ui->cmdAddCompany, &FilmPanel::OnAddCompany);
    guarded(m_ui->cmdRemoveCompany, &FilmPanel::OnRemoveCompany);
    guarded(m_ui->cmdAddGenre, &FilmPanel::OnAddGenre);
    guarded(m_ui->cmdDelGenre, &FilmPanel::OnDelGenre);
    for (int kind = 0; kind < kPersonKinds; ++kind) {
        PairList& list = PeopleOf(kind);
        connect(&list, &PairList::AddWanted, this, [this] { Guard([this] { AddPerson(); }); });
        connect(&list, &PairList::EditWanted, this, [this] { Guard([this] { EditPerson(); }); });
        connect(&list, &PairList::RemoveWanted, this, [this] { Guard([this] { RemovePerson(); }); });
        connect(&list, &PairList::MenuWanted, this, &FilmPanel::PersonMenuWanted);
    }
    for (int list = 0; list < kCompanyLists; ++list) {
        connect(&CompaniesOf(list), &PairList::AddWanted, this, [this] { Guard([this] { OnAddCompany(); }); });
        connect(&CompaniesOf(list), &PairList::RemoveWanted, this, [this] { Guard([this] { OnRemoveCompany(); }); });
    }
    ConnectTicks(*m_ui->lstGenre, kGenre);
    ConnectTicks(*m_ui->lstFeatures, kFeature);
    const auto image = [this](QPushButton* button, PictureBox* box, Cover cover) {
        connect(button, &QPushButton::clicked, this, [this, cover] { Guard([&] { ChooseImage(cover); }); });
        connect(box, &PictureBox::FileChosen, this, [this, cover](const QString& path) { Guard([&] { TakeImage(cover, path); }); });
        connect(box, &PictureBox::Failed, this, [this](const QString& text) { m_context.dialogs.MessageBox(text, kBoxExclamation); });
    };
    image(m_ui->cmdImage, m_ui->Picture1, Cover::Front);
    image(m_ui->cmdBackImage, m_ui->Image1, Cover::Back);
    for (int text = 0; text < kTexts; ++text) {
        auto* tab = findChild<QPushButton*>(u"clbtxt_%1"_s.arg(text));
        connect(tab, &QPushButton::toggled, this, [this, text](bool on) {
            if (on)
                ShowText(text);
        });
        connect(tab, &QPushButton::clicked, this, [this, text] { findChild<QWidget*>(u"TxtInfos_%1"_s.arg(text))->setFocus(); });
    }
}

// Every change of a plain field is told to `OnChange`, but not those that the panel makes itself.
void FilmPanel::ConnectFields()
{
    const auto changed = [this](QWidget* control) {
        return [this, control] {
            if (!m_loading)
                OnChange(control);
        };
    };
    for (const Bound& field : std::as_const(m_fields)) {
        if (auto* box = qobject_cast<QPlainTextEdit*>(field.control)) {
            connect(box, &QPlainTextEdit::textChanged, this, changed(box));
            continue;
        }
        QLineEdit* line = LineOf(*field.control);
        connect(line, &QLineEdit::textChanged, this, changed(field.control));
        connect(line, &QLineEdit::textEdited, this, [this, line] { CountLetters(*line); });
        connect(line, &QLineEdit::editingFinished, this, [this, line] { CheckField(*line); });
    }
    QLineEdit* price = m_ui->txtPurchasePrice;
    connect(price, &QLineEdit::textChanged, this, changed(price));
    connect(price, &QLineEdit::textEdited, this, [this, price] { m_note->Clear(*price); });
    connect(price, &QLineEdit::editingFinished, this, [this, price] { CheckField(*price); });
    connect(m_ui->chkSeenIt, &QCheckBox::stateChanged, this, changed(m_ui->chkSeenIt));
    connect(m_ui->DTLastViewing, &DatePicker::Changed, this, changed(m_ui->DTLastViewing));
    connect(m_ui->sldMyRating, &QSlider::valueChanged, this, &FilmPanel::ShowRating);
    connect(m_ui->sldMyRating, &QSlider::valueChanged, this, changed(m_ui->sldMyRating));
    connect(m_ui->ImgMyRating, &RatingBar::Pressed, m_ui->sldMyRating, &QSlider::setValue);
}

void FilmPanel::ConnectTicks(QListWidget& list, const NameTable& names)
{
    connect(&list, &QListWidget::itemChanged, this, [this, &list, &names](QListWidgetItem* item) {
        if (m_loading)
            return;
        const bool ticked = item->checkState() == Qt::Checked;
        bool stored = false;
        Guard([&] {
            OnTick(names, item->data(kGenreIdRole).toLongLong(), ticked);
            stored = true;
        });
        if (!stored) { // the tick shows what the catalog holds
            const QSignalBlocker block(list);
            item->setCheckState(ticked ? Qt::Unchecked : Qt::Checked);
        }
    });
}

bool FilmPanel::eventFilter(QObject* watched, QEvent* event)
{
    // These values take a walk through all films; they are read when somebody is about to choose from them.
    if (event->type() == QEvent::FocusIn && !m_unread.isEmpty()) {
        for (auto* list : {m_ui->cboRated, m_ui->cboCountry}) {
            if (watched == list && m_unread.removeOne(list)) {
                m_loading = true;
                Guard([&] {
                    QStringList values;
                    for (int i = 0; i < list->count(); ++i)
                        values << list->itemText(i);
                    FillList(*list,
                             values + ValuesInUse(list == m_ui->cboRated ? u"Rated"_s : u"Country"_s, m_context.state.CatalogPath()));
                });
                m_loading = false;
            }
        }
    }
    return QWidget::eventFilter(watched, event);
}

void FilmPanel::LoadLimits(const QStringList& columnsWithout)
{
    QStringList columns;
    QList<QLineEdit*> lines;
    for (std::size_t i = 0; i < std::size(kTextFields); ++i) {
        const QString column = QString::fromLatin1(kTextFields[i].column);
        if (column.isEmpty() || columnsWithout.contains(column))
            continue;
        columns << column;
        lines << LineOf(*m_fields[static_cast<qsizetype>(i)].control);
    }
    const QList<qsizetype> sizes = ReadColumnSizes(columns, m_context.state.CatalogPath());
    for (qsizetype i = 0; i < lines.size(); ++i)
        lines[i]->setMaxLength(static_cast<int>(std::min<qsizetype>(sizes[i], 32767)));
    m_loading = true;
    FillList(*m_ui->cboFormat, ValuesInUse(u"Format"_s, m_context.state.CatalogPath()));
    m_loading = false;
    m_unread = {m_ui->cboRated, m_ui->cboCountry};
}

void FilmPanel::TickGenres(const QStringList& names)
{
    m_loading = true;
    for (int i = 0; i < m_ui->lstGenre->count(); ++i) {
        if (names.contains(m_ui->lstGenre->item(i)->text(), Qt::CaseInsensitive))
            m_ui->lstGenre->item(i)->setCheckState(Qt::Checked);
    }
    m_loading = false;
}

void FilmPanel::LoadTicks()
{
    m_catalogPath = m_context.state.CatalogPath();
    const auto fill = [this](QListWidget& list, const NameTable& names) {
        const QSignalBlocker block(list);
        list.clear();
        for (const NamedRow& row : ReadTickNames(names, m_context.state.CatalogPath())) {
            auto* item = new QListWidgetItem(row.name, &list);
            item->setData(kGenreIdRole, row.id);
            item->setCheckState(Qt::Unchecked);
        }
        list.setCurrentRow(0);
    };
    fill(*m_ui->lstGenre, kGenre);
    if (!m_ui->lstFeatures->isHidden())
        fill(*m_ui->lstFeatures, kFeature);
    m_ui->cmdDelGenre->setEnabled(m_ui->lstGenre->count() > 0);
}

void FilmPanel::ShowRecord(const FilmRecord& film, QDate lastViewing)
{
    m_loading = true;
    m_note->Clear();
    for (Bound& field : m_fields) {
        field.value = field.isDecoded ? DecodeEntities(film.*field.member) : film.*field.member;
        SetText(*field.control, field.value);
        field.shown = TextOf(*field.control);
    }
    m_ui->txtPurchasePrice->setText(CurrencyText(film.PurchasePrice));
    m_ui->chkSeenIt->setChecked(film.SeenIt);
    m_ui->sldMyRating->setValue(IsNumeric(film.MyRating) ? static_cast<int>(RoundHalfEven(std::clamp(ToDouble(film.MyRating), 0.0, 10.0)))
                                                         : 0);
    m_rating = film.MyRating;
    m_shownRating = m_ui->sldMyRating->value();
    m_ui->DTLastViewing->SetOffer(QDate::currentDate());
    m_ui->DTLastViewing->SetDate(lastViewing == ZeroDate() ? std::nullopt : std::optional(lastViewing));
    m_loading = false;
}

void FilmPanel::TakeFileFacts(const FilmRecord& facts)
{
    for (const auto member : {&FilmRecord::VidType, &FilmRecord::AudType, &FilmRecord::VidBitrate, &FilmRecord::AudBitrate,
                              &FilmRecord::FileName, &FilmRecord::Resolution, &FilmRecord::AudChannels, &FilmRecord::Filesize}) {
        const auto field = std::find_if(m_fields.begin(), m_fields.end(), [member](const Bound& one) { return one.member == member; });
        SetText(*field->control, facts.*member);
    }
}

FilmRecord FilmPanel::ReadRecord()
{
    FilmRecord film;
    for (const Bound& field : std::as_const(m_fields)) {
        // What nobody changed is left alone: an empty text does not reach its column. So neither the box's own way with line ends and long
        // texts nor an older state of the film gets into the catalog. Only decoded texts are stored as they show.
        const QString text = TextOf(*field.control);
        film.*field.member = text != field.shown ? text : field.isDecoded ? field.value : QString();
    }
    film.MyRating =
        m_ui->sldMyRating->value() == m_shownRating && !m_rating.isEmpty() ? m_rating : QString::number(m_ui->sldMyRating->value());
    film.SeenIt = m_ui->chkSeenIt->isChecked();
    film.LastViewing = m_ui->DTLastViewing->Date().value_or(ZeroDate());
    if (!IsPrice(m_ui->txtPurchasePrice->text())) {
        CheckField(*m_ui->txtPurchasePrice);
        throw RuntimeError::WithDetail(kErrTypeMismatch, u"Purchase Price"_s);
    }
    film.PurchasePrice = ToCurrency(m_ui->txtPurchasePrice->text());
    return film;
}

void FilmPanel::ShowPeople(const FilmRecord& film)
{
    for (int kind = 0; kind < kPersonKinds; ++kind) {
        const PersonKind& info = PersonKinds()[static_cast<std::size_t>(kind)];
        QList<PairRow> rows;
        for (const FilmPerson& person : film.*info.list)
            rows.append({person.ID, DecodeEntities(person.Name), DecodeEntities(person.*info.text)});
        PeopleOf(kind).Model().SetRows(rows);
    }
    m_ui->TabBar->DrawBar(1);
    m_ui->lstPeople->setCurrentIndex(0);
    ShowKind(0);
}

void FilmPanel::ShowCompanies(const FilmRecord& film)
{
    std::array<QList<PairRow>, kCompanyLists> rows;
    for (const FilmCompany& company : film.Companies)
        rows[static_cast<std::size_t>(CompanyList(company.Type))].append(
            {company.ID, DecodeEntities(company.Company), DecodeEntities(company.Extended)});
    for (int list = 0; list < kCompanyLists; ++list)
        CompaniesOf(list).Model().SetRows(rows[static_cast<std::size_t>(list)]);
}

const PersonKind& FilmPanel::ShownKind() const
{
    return PersonKinds()[static_cast<std::size_t>(m_kind)];
}

PairList& FilmPanel::PeopleOf(int kind) const
{
    return *static_cast<PairList*>(m_ui->lstPeople->widget(kind));
}

PairList& FilmPanel::CompaniesOf(int list) const
{
    return *static_cast<PairList*>(m_ui->lstCompany->widget(list));
}

PairList& FilmPanel::ShownPeople() const
{
    return PeopleOf(m_kind);
}

void FilmPanel::ShowKind(int kind)
{
    m_kind = kind;
    const PersonKind& info = ShownKind();
    m_ui->lblPerson->setText(info.personLabel);
    m_ui->lblCharacter->setText(info.textLabel);
    m_ui->cmdAddPeople->setText(WithAccessKey(info.add) + u"..."_s);
    m_ui->cmdEditPeople->setText(WithAccessKey(info.edit) + u"..."_s);
    m_ui->cmdRemovePeople->setText(RemoveCaption());
}

QString FilmPanel::RemoveCaption() const
{
    return WithAccessKey(ShownKind().remove);
}

QString FilmPanel::PersonText(int row) const
{
    return ShownPeople().Rows()[row].text;
}

void FilmPanel::EditPerson()
{
    PairList& list = ShownPeople();
    const int row = list.Selected();
    const PersonKind& kind = ShownKind();
    if (row < 0) {
        m_context.dialogs.MessageBox(kMustSelect, kBoxPlain, u"Edit"_s);
        return;
    }
    const QString text = m_context.dialogs.InputBox(list.Rows()[row].name, kind.editTitle, PersonText(row));
    if (text.isEmpty())
        return;
    if (const std::optional<QString> stored = StorePersonText(row, text))
        list.Model().SetText(row, DecodeEntities(*stored));
    else
        m_context.dialogs.MessageBox(tr("%1 is no longer in this film.").arg(list.Rows()[row].name), kBoxExclamation, u"Edit"_s);
}

void FilmPanel::RemovePerson()
{
    PairList& list = ShownPeople();
    const int row = list.Selected();
    if (row < 0)
        m_context.dialogs.MessageBox(tr("Select the person to be removed first."), kBoxPlain, tr("Remove"));
    else if (DropPerson(row))
        list.Model().Remove(row);
}

bool FilmPanel::HasChanges() const
{
    return m_ui->cmdSave->isEnabled();
}

QString FilmPanel::Name() const
{
    return m_ui->txtTitle->text();
}

QList<NamedRow> FilmPanel::TickedGenres() const
{
    QList<NamedRow> genres;
    for (int i = 0; i < m_ui->lstGenre->count(); ++i) {
        const QListWidgetItem& item = *m_ui->lstGenre->item(i);
        if (item.checkState() == Qt::Checked)
            genres.append({item.data(kGenreIdRole).toLongLong(), item.text()});
    }
    return genres;
}

void FilmPanel::OnAddCompany()
{
    const int list = m_ui->lstCompany->currentIndex();
    const QString name = TrimBlanks(m_context.dialogs.InputBox(tr("Please Enter Company Name : "), tr("Add Company"), {}));
    if (name.isEmpty())
        return;
    const std::optional<qint64> id = StoreCompany(name, list);
    if (!id) {
        m_context.dialogs.MessageBox(tr("The name of a company has three letters or more, and no \">\"."), kBoxExclamation,
                                     tr("Add Company"));
        return;
    }
    PairList& companies = CompaniesOf(list);
    companies.Model().Append({*id, name, {}});
    companies.Select(static_cast<int>(companies.Rows().size()) - 1);
}

void FilmPanel::OnRemoveCompany()
{
    const int list = m_ui->lstCompany->currentIndex();
    PairList& companies = CompaniesOf(list);
    const int row = companies.Selected();
    if (row >= 0 && DropCompany(companies.Rows()[row], list))
        companies.Model().Remove(row);
}

void FilmPanel::OnAddGenre()
{
    constexpr qsizetype kShortest = 2;
    const QString name = TrimBlanks(m_context.dialogs.InputBox(u"Please Enter Genre Name : "_s, u"Add Genre"_s, {}));
    if (name.size() < kShortest)
        return;
    const qint64 id = AddGenre(name, m_catalogPath);
    QListWidget& list = *m_ui->lstGenre;
    for (int i = 0; i < list.count(); ++i) {
        if (list.item(i)->data(kGenreIdRole).toLongLong() == id)
            return list.setCurrentRow(i);
    }
    const QSignalBlocker block(list);
    auto* item = new QListWidgetItem(name, &list);
    item->setData(kGenreIdRole, id);
    item->setCheckState(Qt::Unchecked);
    list.setCurrentItem(item);
    m_ui->cmdDelGenre->setEnabled(true);
}

void FilmPanel::OnDelGenre()
{
    QListWidget& list = *m_ui->lstGenre;
    const QListWidgetItem* item = list.currentItem();
    if (!item)
        return;
    if (!m_context.dialogs.ConfirmLoss(u"Are you sure you wish to delete Genre "_s + item->text(), kBoxYesNo,
                                       u"Genre Delete Confermation"_s))
        return;
    DeleteGenre(item->data(kGenreIdRole).toLongLong(), m_catalogPath);
    delete item;
    OnGenreDeleted();
    m_ui->cmdDelGenre->setEnabled(list.count() > 0);
}

void FilmPanel::ChooseImage(Cover cover)
{
    FileDialog& dialog = m_context.state.ComDiag;
    dialog.filter = u"All Image Files (*.jpg, *.gif)| *.jpg;*.gif|All Files (*.*)|*.*|"_s;
    m_context.dialogs.ShowOpen(dialog);
    TakeImage(cover, dialog.fileName);
}

// A file that is no picture takes no picture's place. One that is missing or empty is told of by whoever stores it.
void FilmPanel::TakeImage(Cover cover, const QString& path)
{
    if (QFileInfo(path).size() > 0 && !PictureBox::IsPicture(path))
        m_context.dialogs.MessageBox(tr("%1 is not a picture that can be shown.").arg(path), kBoxExclamation);
    else
        OnImage(cover, path);
}

// The labels that act as tabs for the three long texts.
void FilmPanel::ShowText(int index)
{
    m_text = index;
    const SkinValues& colors = m_skinner.Values();
    for (int text = 0; text < kTexts; ++text) {
        findChild<QWidget*>(u"TxtInfos_%1"_s.arg(text))->setVisible(text == index);
        auto& tab = *findChild<QPushButton*>(u"clbtxt_%1"_s.arg(text));
        tab.setChecked(text == index);
        QPalette palette = tab.palette();
        const QColor color = text == index ? colors.subNavSelected : colors.subNavIdle;
        if (color.isValid())
            palette.setColor(QPalette::ButtonText, color);
        tab.setPalette(palette);
        QFont font = tab.font();
        font.setBold(text == index);
        tab.setFont(font);
    }
}

void FilmPanel::ShowRating(int value)
{
    m_ui->ImgMyRating->SetValue(value);
    m_ui->lblMyRatingValue->setText(tr("%1 of %2").arg(value).arg(RatingBar::kMost));
}

void FilmPanel::CheckField(QWidget& field)
{
    const QString text = TextOf(field);
    const bool isNumber = IsNumeric(text);
    m_note->Clear(field);
    if (&field == m_ui->txtPurchasePrice) {
        if (!IsPrice(text))
            m_note->Tell(field, tr("Not a price: a number is wanted, such as 12.50"), FieldNote::Place::Inside);
    } else if (!isNumber && !text.isEmpty()) {
        for (const char* name : kNumberFields) {
            if (field.objectName() == QLatin1StringView(name))
                m_note->Tell(field, tr("Not a number"), FieldNote::Place::Inside);
        }
    }
}

void FilmPanel::CountLetters(QLineEdit& field)
{
    const auto length = static_cast<int>(field.text().size());
    m_note->Clear(field);
    if (length >= field.maxLength() - field.maxLength() / 10)
        m_note->Tell(field, tr("%1 of %2 letters").arg(length).arg(field.maxLength()), FieldNote::Place::Below);
}

} // namespace kelvado
