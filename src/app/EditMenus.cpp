#include "app/EditMenus.h"

#include "core/Guard.h"
#include "core/Literals.h"
#include "core/RuntimeError.h"
#include "panels/forms/Form3.h"
#include "panels/forms/fManageList.h"
#include "panels/forms/frmAddManual.h"
#include "panels/forms/frmPeople.h"

namespace kelvado {

EditMenus::EditMenus(const Context& context) : m_context(context)
{
    OnPersonEntry("mnuAddPeople", &FilmPanel::AddPerson);
    OnPersonEntry("mnuPeopleEdit", &FilmPanel::EditPerson);
    OnPersonEntry("mnuRemovePeople", &FilmPanel::RemovePerson);
    OnPersonEntry("mnuPeopleTakeOff", &FilmPanel::RemovePerson);
    Connect("mnuPeopleHistoryVisit", [this] {
        if (m_person)
            m_context.visitFilm(m_person->HistoryNumber());
    });
    Connect("mnuManageLists_0", [this] { ManageList("AudioCodecs"); });
    Connect("mnuManageLists_1", [this] { ManageList("VideoCodecs"); });
}

EditMenus::~EditMenus()
{
    delete m_film.data();
    delete m_person.data();
    delete m_manual.data();
}

void EditMenus::Connect(const char* entry, std::function<void()> handler)
{
    connect(&m_context.menus.Entry(QString::fromLatin1(entry)), &QAction::triggered, this,
            [this, handler = std::move(handler)] { Guarded(m_context.panels.dialogs, handler); });
}

void EditMenus::OnPersonEntry(const char* entry, void (FilmPanel::*handler)())
{
    Connect(entry, [this, handler] {
        if (m_menuOf)
            (m_menuOf->*handler)();
    });
}

void EditMenus::ManageList(const char* table)
{
    fManageList window(QString::fromLatin1(table), m_context.panels, m_context.skinner, &m_context.window);
    m_context.skinner.SkinForm(window);
    window.exec();
}

void EditMenus::ConnectPeople(FilmPanel& panel)
{
    connect(&panel, &FilmPanel::PersonMenuWanted, this,
            [this, &panel](const QPoint& place) { Guarded(m_context.panels.dialogs, [&] { ShowPersonMenu(panel, place); }); });
}

// A film in the catalog loses a person by an entry that asks; the list of a film that is being entered by one that does not.
void EditMenus::ShowPersonMenu(FilmPanel& panel, const QPoint& place)
{
    const PersonKind& kind = panel.ShownKind();
    const bool stored = &panel == m_film;
    m_menuOf = &panel;
    m_context.menus.SetCaption(u"mnuAddPeople"_s, -1, QString(kind.add));
    m_context.menus.SetCaption(u"mnuRemovePeople"_s, -1, QString(kind.remove));
    m_context.menus.SetCaption(u"mnuPeopleEdit"_s, -1, QString(kind.edit));
    m_context.menus.SetVisible(u"mnuRemovePeople"_s, -1, !stored);
    m_context.menus.SetVisible(u"mnuPeopleTakeOff"_s, -1, stored);
    m_context.menus.Popup(u"frmEdit"_s, place);
}

Form3& EditMenus::FilmEditor()
{
    if (!m_film) {
        m_film = new Form3(m_context.panels, m_context.skinner);
        ConnectPeople(*m_film);
        connect(m_film, &Form3::LinkActivated, this, m_context.openOutside);
        m_context.sections.SetPanels(m_film, m_person);
    }
    return *m_film;
}

frmPeople& EditMenus::PersonEditor()
{
    if (!m_person) {
        m_person = new frmPeople(m_context.panels);
        m_context.skinner.SkinForm(*m_person);
        const auto guarded = [this](const auto& handler) { Guarded(m_context.panels.dialogs, handler); };
        connect(m_person, &frmPeople::FilmWanted, this, [this, guarded](FilmId film) { guarded([&] { m_context.openFilm(film); }); });
        connect(m_person, &frmPeople::HistoryMenuWanted, this,
                [this](const QPoint& place) { m_context.menus.Popup(u"mnuPeopleHistory"_s, place); });
        connect(m_person, &frmPeople::RetrieveWanted, this, [this, guarded] { guarded([this] { OnRetrieve(); }); });
        connect(m_person, &frmPeople::PersonStored, this, m_context.renameActor);
        m_context.sections.SetPanels(m_film, m_person);
    }
    return *m_person;
}

void EditMenus::OnRetrieve()
{
    const qint64 actor = m_person->ActorId();
    if (!m_context.retrieve(actor))
        return;
    m_person->Actor_Edit_Page(actor);
    m_person->Save();
}

void EditMenus::ShowManualPanel()
{
    if (!m_manual) {
        m_manual = new frmAddManual(m_context.panels, m_context.skinner);
        ConnectPeople(*m_manual);
    }
    m_context.host.SetPanel(m_manual);
    m_manual->show();
    m_manual->Reopen();
    m_manual->FocusFirst();
}

void EditMenus::Show(const QString& section, const std::optional<NodeRef>& node)
{
    const bool isFilm = section == kMovieEdit;
    QWidget& panel = isFilm ? static_cast<QWidget&>(FilmEditor()) : PersonEditor();
    m_context.host.SetPanel(&panel);
    panel.show();
    (isFilm ? m_filmKey : m_personKey) = node ? node->key : QString();
    if (!node)
        return isFilm ? m_film->Clear() : m_person->Clear();
    if (isFilm)
        m_film->Edit_Page(FilmOfKey(node->key));
    else
        m_person->Actor_Edit_Page(KeyPart(node->key, 1).toLongLong());
}

void EditMenus::FocusPanel(const QString& section)
{
    if (section == kMovieEdit && m_film)
        m_film->FocusFirst();
    else if (section == kActorInfo && m_person)
        m_person->FocusFirst();
}

EditPanel* EditMenus::PanelOf(const QString& section) const
{
    return section == kMovieEdit ? static_cast<EditPanel*>(m_film) : section == kActorInfo ? m_person : nullptr;
}

void EditMenus::SaveFirst(const QString& section)
{
    EditPanel* panel = PanelOf(section);
    if (!panel || !panel->HasChanges())
        return;
    try {
        if (panel == m_person)
            m_person->Store();
        else
            panel->Save();
    } catch (const RuntimeError& error) {
        if (error.Number() != kErrNoCurrentRecord) {
            SelectShown(section);
            throw;
        }
        ReportError(m_context.panels.dialogs, error);
        ClearGone();
    }
}

void EditMenus::SelectShown(const QString& section)
{
    const QString& key = section == kMovieEdit ? m_filmKey : m_personKey;
    if (!key.isEmpty())
        m_context.selectNode(key);
}

void EditMenus::AskAboutChanges()
{
    m_context.sections.AskAboutChanges();
    if (m_manual && m_manual->HasChanges())
        kelvado::AskAboutChanges(*m_manual, m_context.panels.dialogs);
}

void EditMenus::ReloadClean(const QString& section)
{
    const EditPanel* panel = PanelOf(section);
    if (!panel || panel->HasChanges() || !ShowsAny(section))
        return;
    if (panel == m_film)
        m_film->Discard();
    else
        m_person->Discard();
}

bool EditMenus::ShowsAny(const QString& section) const
{
    return section == kMovieEdit ? m_film && m_film->Film() : m_person && m_person->ActorId() != 0;
}

void EditMenus::ClearGone()
{
    if (m_manual && m_manual->isVisible())
        m_manual->Reopen();
    if (m_film)
        m_film->ClearIfGone();
    if (m_person)
        m_person->ClearIfGone();
}

} // namespace kelvado
