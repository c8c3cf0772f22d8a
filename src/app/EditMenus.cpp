#include "app/EditMenus.h"

#include "core/Guard.h"
#include "core/Literals.h"
#include "core/RuntimeError.h"
#include "panels/forms/Form3.h"
#include "panels/forms/frmAddManual.h"

namespace kelvado {

EditMenus::EditMenus(const Context& context) : m_context(context)
{
    OnPersonEntry("mnuAddPeople", &FilmPanel::AddPerson);
    OnPersonEntry("mnuPeopleEdit", &FilmPanel::EditPerson);
    OnPersonEntry("mnuRemovePeople", &FilmPanel::RemovePerson);
    OnPersonEntry("mnuPeopleTakeOff", &FilmPanel::RemovePerson);
}

EditMenus::~EditMenus()
{
    delete m_film.data();
    delete m_manual.data();
}

void EditMenus::OnPersonEntry(const char* entry, void (FilmPanel::*handler)())
{
    connect(&m_context.menus.Entry(QString::fromLatin1(entry)), &QAction::triggered, this, [this, handler] {
        Guarded(m_context.panels.dialogs, [&] {
            if (m_menuOf)
                (m_menuOf->*handler)();
        });
    });
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
        m_context.sections.SetPanels(m_film, nullptr);
    }
    return *m_film;
}

QWidget* EditMenus::ManualPanel()
{
    if (!m_manual) {
        m_manual = new frmAddManual(m_context.panels, m_context.skinner);
        ConnectPeople(*m_manual);
    }
    m_manual->Reopen();
    return m_manual;
}

void EditMenus::Show(const QString& section, const std::optional<NodeRef>& node)
{
    if (section != kMovieEdit)
        return m_context.host.SetPanel(nullptr);
    Form3& panel = FilmEditor();
    m_context.host.SetPanel(&panel);
    panel.show();
    if (!node)
        return panel.Clear();
    m_filmKey = node->key;
    panel.Edit_Page(FilmOfKey(node->key));
}

void EditMenus::FocusPanel(const QString& section)
{
    if (section == kMovieEdit && m_film)
        m_film->FocusFirst();
}

void EditMenus::SaveFirst(const QString& section)
{
    if (section != kMovieEdit || !m_film || !m_film->HasChanges())
        return;
    try {
        m_film->Save();
    } catch (...) {
        m_context.selectNode(m_filmKey);
        throw;
    }
}

void EditMenus::AfterFill()
{
    if (!m_film || !m_film->Film())
        return;
    if (m_film->CatalogPath() != m_context.panels.state.CatalogPath()) {
        m_context.sections.AskAboutChanges();
        m_film->Clear();
    } else {
        m_film->ClearIfGone();
    }
}

} // namespace kelvado
