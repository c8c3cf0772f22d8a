#include "ui/frmOptions.h"

#include "core/Literals.h"
#include "ui_frmOptions.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QSignalBlocker>
#include <QSpinBox>

#include <limits>

namespace kelvado {

namespace {

struct PageInfo
{
    const char* text;
    QLatin1StringView key;
    QLatin1StringView parent; ///< empty for a page of the first level
    QLatin1StringView tag;
    const char* frame; ///< empty for a node without a page
};

// A node with this tag leaves the page on show where it is.
constexpr QLatin1StringView kNoPage = "Primary"_L1;
constexpr PageInfo kPages[] = {
    {QT_TRANSLATE_NOOP("kelvado::frmOptions", "Display Settings"), "Display"_L1, {}, "Display"_L1, "frmDisplay"},
    {QT_TRANSLATE_NOOP("kelvado::frmOptions", "XML Page Views"), "XMLPage"_L1, "Display"_L1, "XMLPage"_L1, "frmXMLPage"},
    {QT_TRANSLATE_NOOP("kelvado::frmOptions", "IMDb Retrieval"), "IMDb"_L1, {}, kNoPage, ""},
    {QT_TRANSLATE_NOOP("kelvado::frmOptions", "IMDb Film Add"), "IMDbGrab"_L1, "IMDb"_L1, "IMDbGrab"_L1, "frmIMDBGrab"},
    {QT_TRANSLATE_NOOP("kelvado::frmOptions", "Movie Update"), "IMDbUpdate"_L1, "IMDb"_L1, "IMDbUpdate"_L1, "frmIMDbUpdateFilm"},
    {QT_TRANSLATE_NOOP("kelvado::frmOptions", "Actor Retrieval"), "IMDbActor"_L1, "IMDb"_L1, "IMDbActor"_L1, "frmNoPage"},
};

constexpr const char* kLimits[] = {
    QT_TRANSLATE_NOOP("kelvado::frmOptions", "Max. Displayed Actors (0 Unlimited)"),
    QT_TRANSLATE_NOOP("kelvado::frmOptions", "Max. Displayed Writers (0 Unlimited)"),
    QT_TRANSLATE_NOOP("kelvado::frmOptions", "Max. Displayed Directors (0 Unlimited)"),
    QT_TRANSLATE_NOOP("kelvado::frmOptions", "Max. Displayed Producers (0 Unlimited)"),
};
constexpr std::int32_t cOptDisplay::*kLimitOptions[] = {&cOptDisplay::MaxActors, &cOptDisplay::MaxWriters, &cOptDisplay::MaxDirectors,
                                                        &cOptDisplay::MaxProducers};

// The check boxes of the display page.
enum DisplayBox { kFirstSwitch = 4, kSkinTree = 4, kInSysTray, kRestoreCon, kFlashCon, kStatusCaption, kDisplayBoxes };
constexpr std::int32_t cOptDisplay::*kSwitches[] = {&cOptDisplay::SkinTree, &cOptDisplay::InSysTray, &cOptDisplay::RestoreCon,
                                                    &cOptDisplay::FlashCon, &cOptDisplay::StatusCaption};

constexpr const char* kParts[] = {
    QT_TRANSLATE_NOOP("kelvado::frmOptions", "Title With Year"),
    QT_TRANSLATE_NOOP("kelvado::frmOptions", "Title Without Year"),
    QT_TRANSLATE_NOOP("kelvado::frmOptions", "Film Year"),
    QT_TRANSLATE_NOOP("kelvado::frmOptions", "Plot Outline"),
    QT_TRANSLATE_NOOP("kelvado::frmOptions", "IMDb Film Rating (x / 10)"),
    QT_TRANSLATE_NOOP("kelvado::frmOptions", "IMDb Votes for Rating"),
    QT_TRANSLATE_NOOP("kelvado::frmOptions", "Runtime"),
    QT_TRANSLATE_NOOP("kelvado::frmOptions", "MPAA Film Rating"),
    QT_TRANSLATE_NOOP("kelvado::frmOptions", "Producer(s)"),
    QT_TRANSLATE_NOOP("kelvado::frmOptions", "Director(s)"),
    QT_TRANSLATE_NOOP("kelvado::frmOptions", "Writer(s)"),
    QT_TRANSLATE_NOOP("kelvado::frmOptions", "Actor(s)"),
    QT_TRANSLATE_NOOP("kelvado::frmOptions", "Company(-ies)"),
    QT_TRANSLATE_NOOP("kelvado::frmOptions", "Genre(s)"),
    QT_TRANSLATE_NOOP("kelvado::frmOptions", "Imagry"),
    QT_TRANSLATE_NOOP("kelvado::frmOptions", "Attempt Location of High Resolution Imagry"),
    QT_TRANSLATE_NOOP("kelvado::frmOptions", "Spoken Language(s)"),
};
constexpr int kImage = 14;
constexpr int kHiImage = 15;

QString FontText(const QFont& font)
{
    return font.family() + u", "_s + QString::number(font.pointSize()) + (font.bold() ? u", Bold"_s : QString()) +
           (font.italic() ? u", Italic"_s : QString());
}

void Store(cOptIMDbFilm& options, const QList<QCheckBox*>& parts)
{
    for (int part = 0; part < parts.size(); ++part)
        options.*IMDbFilmOption(part) = parts[part]->isChecked() ? 1 : 0;
}

void Load(const cOptIMDbFilm& options, const QList<QCheckBox*>& parts)
{
    for (int part = 0; part < parts.size(); ++part)
        parts[part]->setChecked(IsOn(options.*IMDbFilmOption(part)));
}

} // namespace

frmOptions::frmOptions(const Context& context, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmOptions>()), m_context(context), m_sectionFont(font())
{
    m_ui->setupUi(this);
    m_limits = AddLimits(*m_ui->limitsDisplay, u"chkDisplay_%1"_s, u"txtDisplay_%1"_s, u"UpDownDisplay_%1"_s);
    const QList<Limit> pageLimits =
        AddLimits(*m_ui->limitsXMLPage, u"chkXMLPageview_%1"_s, u"txtXMLPageview_%1"_s, u"UpDownXMLPageview_%1"_s);
    m_add = AddParts(*m_ui->frmIMDBGrab, u"chkIMDBAdd_%1"_s);
    m_update = AddParts(*m_ui->frmIMDbUpdateFilm, u"chkIMDBUpdate_%1"_s);
    for (int i = 0; i < kDisplayBoxes; ++i) {
        m_chkDisplay << findChild<QCheckBox*>(u"chkDisplay_%1"_s.arg(i));
        connect(m_chkDisplay[i], &QCheckBox::clicked, this, [this, i] { OnDisplay(i); });
    }
    for (std::size_t i = 0; i < std::size(kLimitOptions); ++i) {
        connect(m_limits[static_cast<qsizetype>(i)].number, &QSpinBox::valueChanged, this, [this, i](int value) {
            m_context.options.Display.*kLimitOptions[i] = value;
            m_context.displayChanged();
        });
    }
    m_ui->txtXMLPageview->setText(FontText(m_sectionFont));
    m_ui->txtXMLPageview->installEventFilter(this);
    // In the order of sight: the boxes were made after the rest of their pages.
    QWidget* last = m_ui->tvOptions;
    const auto follow = [&last](QWidget* next) {
        setTabOrder(last, next);
        last = next;
    };
    for (const Limit& limit : m_limits) {
        follow(limit.check);
        follow(limit.number);
    }
    for (int i = kFirstSwitch; i < kDisplayBoxes; ++i)
        follow(m_chkDisplay[i]);
    for (const Limit& limit : pageLimits) {
        follow(limit.check);
        follow(limit.number);
    }
    follow(m_ui->txtXMLPageview);
    for (QCheckBox* part : m_add + m_update)
        follow(part);
    follow(m_ui->cmdOK);
    follow(m_ui->cmdCancel);
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &frmOptions::StoreParts);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    AddPages();
}

frmOptions::~frmOptions() = default;

QList<frmOptions::Limit> frmOptions::AddLimits(QGridLayout& grid, const QString& check, const QString& text, const QString& number)
{
    QList<Limit> limits;
    for (int i = 0; i < static_cast<int>(std::size(kLimits)); ++i) {
        const Limit limit{new QCheckBox(tr(kLimits[i]), this), new QSpinBox(this)};
        limit.check->setObjectName(check.arg(i));
        limit.number->setObjectName(number.arg(i));
        limit.number->setAccessibleName(tr(kLimits[i]));
        limit.number->setMaximum(std::numeric_limits<int>::max());
        limit.number->setMinimumWidth(limit.number->fontMetrics().horizontalAdvance(u"0000000000"_s));
        limit.number->setEnabled(false);
        limit.number->findChild<QLineEdit*>()->setObjectName(text.arg(i));
        connect(limit.check, &QCheckBox::clicked, limit.number, [number = limit.number](bool on) {
            number->setEnabled(on);
            if (!on)
                number->setValue(0);
        });
        grid.addWidget(limit.check, i, 0);
        grid.addWidget(limit.number, i, 1);
        limits << limit;
    }
    return limits;
}

frmOptions::Parts frmOptions::AddParts(QWidget& frame, const QString& name)
{
    Parts parts;
    auto* rows = new QVBoxLayout(&frame);
    for (const char* caption : kParts) {
        auto* part = new QCheckBox(tr(caption), &frame);
        part->setObjectName(name.arg(parts.size()));
        rows->addWidget(part);
        parts << part;
    }
    auto* note = new QLabel(tr("Without any imagry a film is stored without its genres, companies and people."), &frame);
    note->setObjectName(u"lblNoImage"_s);
    note->setWordWrap(true);
    QSizePolicy keepsRoom = note->sizePolicy();
    keepsRoom.setRetainSizeWhenHidden(true);
    note->setSizePolicy(keepsRoom);
    rows->addWidget(note);
    rows->addStretch();
    for (const int image : {kImage, kHiImage}) {
        connect(parts[image], &QCheckBox::toggled, note,
                [note, parts] { note->setVisible(!parts[kImage]->isChecked() && !parts[kHiImage]->isChecked()); });
    }
    return parts;
}

void frmOptions::AddPages()
{
    QHash<QString, QTreeWidgetItem*> nodes;
    for (const PageInfo& page : kPages) {
        auto* node = new QTreeWidgetItem({tr(page.text)});
        node->setData(0, Qt::UserRole, QString(page.tag));
        nodes.insert(page.key, node);
        if (page.parent.isEmpty())
            m_ui->tvOptions->addTopLevelItem(node);
        else
            nodes.value(page.parent)->addChild(node);
    }
    m_ui->tvOptions->expandAll();
    connect(m_ui->tvOptions, &QTreeWidget::currentItemChanged, this, &frmOptions::ShowPage);
    connect(m_ui->tvOptions, &QTreeWidget::itemClicked, this, &frmOptions::ShowPage);
    m_ui->tvOptions->setCurrentItem(m_ui->tvOptions->topLevelItem(0));
}

void frmOptions::ShowPage(const QTreeWidgetItem* page)
{
    const QString tag = page ? page->data(0, Qt::UserRole).toString() : QString(kNoPage);
    if (tag == kNoPage)
        return;
    for (const PageInfo& info : kPages) {
        if (info.tag != kNoPage)
            findChild<QWidget*>(QString::fromLatin1(info.frame))->setVisible(info.tag == tag);
    }
    if (tag == "Display"_L1)
        LoadDisplay();
    else if (tag == "IMDbGrab"_L1)
        Load(m_context.options.IMDbFilmAdd, m_add);
    else if (tag == "IMDbUpdate"_L1)
        Load(m_context.options.IMDbFilmUpdate, m_update);
}

void frmOptions::LoadDisplay()
{
    const cOptDisplay& display = m_context.options.Display;
    for (std::size_t i = 0; i < std::size(kLimitOptions); ++i) {
        const Limit& limit = m_limits[static_cast<qsizetype>(i)];
        const std::int32_t value = display.*kLimitOptions[i];
        const QSignalBlocker silent(limit.number);
        limit.check->setChecked(value >= 1);
        limit.number->setValue(std::max(0, value));
        limit.number->setEnabled(value >= 1);
    }
    for (std::size_t i = 0; i < std::size(kSwitches); ++i)
        m_chkDisplay[kFirstSwitch + static_cast<int>(i)]->setChecked(IsOn(display.*kSwitches[i]));
    ExcludeConfirmations();
}

void frmOptions::OnDisplay(int index)
{
    cOptDisplay& display = m_context.options.Display;
    const auto value = [this](int box) { return m_chkDisplay[box]->isChecked() ? 1 : 0; };
    switch (index) {
    case kRestoreCon:
        display.RestoreCon = value(kRestoreCon);
        display.FlashCon = 0;
        break;
    case kFlashCon:
        // The box of the tree decides, not this one.
        display.FlashCon = value(kSkinTree);
        display.RestoreCon = 0;
        break;
    case kSkinTree:
    case kInSysTray:
    case kStatusCaption:
        display.*kSwitches[index - kFirstSwitch] = value(index);
        break;
    default:
        return; // the number beside it tells its own value
    }
    ExcludeConfirmations();
    m_context.displayChanged();
}

void frmOptions::ExcludeConfirmations()
{
    // One that is on can always be turned off, also where the settings have both.
    const bool restores = m_chkDisplay[kRestoreCon]->isChecked();
    const bool flashes = m_chkDisplay[kFlashCon]->isChecked();
    m_chkDisplay[kFlashCon]->setEnabled(flashes || !restores);
    m_chkDisplay[kRestoreCon]->setEnabled(restores || !flashes);
}

bool frmOptions::eventFilter(QObject* watched, QEvent* event)
{
    const bool pressed = event->type() == QEvent::MouseButtonRelease;
    const bool entered = event->type() == QEvent::KeyPress &&
                         (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Return ||
                          static_cast<QKeyEvent*>(event)->key() == Qt::Key_Enter || static_cast<QKeyEvent*>(event)->key() == Qt::Key_Space);
    if (watched != m_ui->txtXMLPageview || (!pressed && !entered))
        return QDialog::eventFilter(watched, event);
    ChooseSectionFont();
    return true;
}

void frmOptions::ChooseSectionFont()
{
    if (const std::optional<QFont> font = m_context.chooseFont(m_sectionFont, this)) {
        m_sectionFont = *font;
        m_ui->txtXMLPageview->setText(FontText(*font));
    }
}

// A page that was not opened is stored as it stands: with its boxes unset.
void frmOptions::StoreParts()
{
    Store(m_context.options.IMDbFilmAdd, m_add);
    Store(m_context.options.IMDbFilmUpdate, m_update);
    accept();
}

} // namespace kelvado
