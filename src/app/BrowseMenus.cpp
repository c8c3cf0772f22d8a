#include "app/BrowseMenus.h"

#include "browse/forms/frmFilter.h"
#include "browse/forms/frmFind.h"
#include "browse/forms/frmSortCustom.h"
#include "core/Afterwards.h"
#include "core/Guard.h"
#include "core/Literals.h"
#include "loans/LoanActions.h"
#include "loans/forms/fLoan.h"

#include <QShortcut>

namespace kelvado {

BrowseMenus::BrowseMenus(const Context& context)
    : m_context(context), m_sorting(context.state, context.menus, context.shell, [this] { return AskMethod(); }),
      m_filters(context.state, context.dialogs, context.menus, context.shell, [this] { return AskFilter(); }),
      m_films(context.state, context.dialogs, context.shell, context.model)
{
    ConnectArray("mnuSortPrimDetail", 8, [this](int entry) { m_sorting.ChoosePrimary(entry); });
    ConnectArray("mnuSortSecDetail", 5, [this](int entry) { m_sorting.ChooseSecondary(entry); });
    ConnectArray("mnuViewMode", 4, [this](int entry) { m_sorting.ChooseViewMode(entry); });
    Connect("mnuSortPrimDESC", -1, [this] { m_sorting.TogglePrimaryDirection(); });
    Connect("mnuSortSecDESC", -1, [this] { m_sorting.ToggleSecondaryDirection(); });
    Connect("mnuSortPrimExpanded", -1, [this] { m_sorting.TogglePrimaryExpanded(); });

    Connect("mnuAddFilter", -1, [this] { m_filters.Add(); });
    Connect("mnuFilterRemoveAll", -1, [this] { m_filters.RemoveAll(); });
    ConnectArray("MnuFilterRemoveSingle", Filters::kMost, [this](int entry) { m_filters.RemoveSingle(entry); });

    for (const char* entry : {"mnuDelete", "mnuDeleteE"})
        Connect(entry, -1, [this] { DeleteSelected(); });
    // In the tree alone: elsewhere the key belongs to what is typed.
    const auto* key = new QShortcut(QKeySequence::Delete, &context.tree, nullptr, nullptr, Qt::WidgetShortcut);
    connect(key, &QShortcut::activated, this, [this] { m_context.menus.Entry(u"mnuDeleteE"_s).trigger(); });
    for (const char* entry : {"MnuMoveMyMovies", "MnuMoveMyMoviesE"})
        Connect(entry, -1, [this] { m_films.MoveToMovies(m_context.tree.Selected()); });
    for (const char* entry : {"MnuMoveMyRequest", "MnuMoveMyRequestE"})
        Connect(entry, -1, [this] { m_films.MoveToRequests(m_context.tree.Selected()); });
    Connect("mnuMovieNightAdd", -1, [this] { m_films.AddToMovieNight(m_context.tree.Selected()); });
    Connect("mnuMovieNightClear", -1, [this] { m_films.ClearMovieNight(); });
    for (const char* entry : {"mnuLoanMovie", "mnuLoanMovieE"})
        Connect(entry, -1, [this] { LoanSelected(); });
    for (const char* entry : {"mnuLoanReturn", "mnuLoanReturnE"})
        Connect(entry, -1, [this] { ReturnSelected(); });
    Connect("mnuLoansManage", -1, [this] { ManageLoans(); });
    Connect("mnuFind", -1, [this] { ShowFind(); });
}

void BrowseMenus::Connect(const char* entry, int index, std::function<void()> handler)
{
    QAction& action = m_context.menus.Entry(QString::fromLatin1(entry), index);
    connect(&action, &QAction::triggered, this, [this, &action, handler = std::move(handler)](bool checked) {
        // The handlers keep the marks themselves: a press alone changes none.
        if (action.isCheckable())
            action.setChecked(!checked);
        Guarded(m_context.dialogs, handler);
    });
}

void BrowseMenus::ConnectArray(const char* menu, int entries, const std::function<void(int)>& handler)
{
    for (int entry = 0; entry < entries; ++entry)
        Connect(menu, entry, [handler, entry] { handler(entry); });
}

QString BrowseMenus::AskMethod()
{
    frmSortCustom dialog(&m_context.window);
    m_context.skinner.SkinForm(dialog);
    return dialog.ShowAndRead();
}

FilterRecord BrowseMenus::AskFilter()
{
    frmFilter dialog(m_context.dialogs, &m_context.window);
    m_context.skinner.SkinForm(dialog);
    return dialog.ShowAndRead();
}

void BrowseMenus::DeleteSelected()
{
    // The view goes on to a neighbour by itself when the node is taken out; the command shows it.
    m_context.tree.SetSilent(true);
    Afterwards(
        [this] {
            m_films.Delete(m_context.tree.Selected());
            m_context.updateSelectionMenus();
        },
        [this] { m_context.tree.SetSilent(false); });
}

void BrowseMenus::LoanSelected()
{
    const std::optional<FilmId> film = m_films.CurrentFilm(m_context.tree.Selected());
    if (!film)
        return;
    LoanFilm(*film, {m_context.state, m_context.dialogs, m_clock}, m_context.skinner, &m_context.window);
    AfterLoan();
}

void BrowseMenus::ReturnSelected()
{
    const std::optional<FilmId> film = m_films.CurrentFilm(m_context.tree.Selected());
    if (!film)
        return;
    ReturnFilm(*film, m_context.state.CatalogPath(), m_clock);
    AfterLoan();
}

void BrowseMenus::AfterLoan()
{
    m_context.updateSelectionMenus();
    m_context.shell.UpdateStatus(true);
}

void BrowseMenus::ManageLoans()
{
    if (!m_loansWindow) {
        m_loansWindow = new fLoan({m_context.state, m_context.dialogs, m_clock}, m_context.skinner, &m_context.window);
        m_loansWindow->setAttribute(Qt::WA_DeleteOnClose);
        m_context.skinner.SkinForm(*m_loansWindow);
        connect(
            m_loansWindow, &QObject::destroyed, this,
            [this] {
                if (!m_context.state.CatalogPath().isEmpty())
                    Guarded(m_context.dialogs, [this] { AfterLoan(); });
            },
            Qt::QueuedConnection);
    }
    m_loansWindow->show();
    m_loansWindow->raise();
    m_loansWindow->activateWindow();
}

void BrowseMenus::ShowFind()
{
    if (!m_findWindow) {
        m_find.emplace(m_context.model, m_context.dialogs);
        m_findWindow = new frmFind(&m_context.window);
        m_findWindow->setAttribute(Qt::WA_DeleteOnClose);
        m_context.skinner.SkinForm(*m_findWindow);
        connect(m_findWindow, &frmFind::FindNext, this,
                [this](const QString& text) { Guarded(m_context.dialogs, [&] { FindNext(text); }); });
    }
    m_findWindow->show();
    m_findWindow->raise();
    m_findWindow->activateWindow();
}

void BrowseMenus::FindNext(const QString& text)
{
    m_find->Next(text, [this](const QModelIndex& node) {
        m_context.tree.SelectSilently(node);
        m_context.updateSelectionMenus();
        m_context.shell.ShowSelection();
    });
}

} // namespace kelvado
