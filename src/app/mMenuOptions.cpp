#include "app/mMenuOptions.h"

namespace kelvado {

namespace {

using Condition = bool (*)(const MenuFacts&);

constexpr Condition kNever = [](const MenuFacts&) { return false; };
constexpr Condition kCatalog = [](const MenuFacts& facts) { return facts.catalogOpen; };
constexpr Condition kRoomForFilter = [](const MenuFacts& facts) { return facts.catalogOpen && facts.canAddFilter; };
constexpr Condition kFilters = [](const MenuFacts& facts) { return facts.hasFilters; };
constexpr Condition kOlder = [](const MenuFacts& facts) { return facts.hasOlder; };
constexpr Condition kNewer = [](const MenuFacts& facts) { return facts.hasNewer; };
constexpr Condition kFilm = [](const MenuFacts& facts) { return facts.selection.film; };
constexpr Condition kPerson = [](const MenuFacts& facts) { return facts.selection.person; };
constexpr Condition kFilmOrPerson = [](const MenuFacts& facts) { return facts.selection.film || facts.selection.person; };
constexpr Condition kNfo = [](const MenuFacts& facts) { return facts.selection.nfo; };
constexpr Condition kRequest = [](const MenuFacts& facts) { return facts.selection.request; };
constexpr Condition kOwned = [](const MenuFacts& facts) { return facts.selection.owned; };
constexpr Condition kAtHome = [](const MenuFacts& facts) { return facts.selection.atHome; };
constexpr Condition kOnLoan = [](const MenuFacts& facts) { return facts.selection.onLoan; };
constexpr Condition kShopLink = [](const MenuFacts& facts) { return facts.selection.shopLink; };
constexpr Condition kSiteLink = [](const MenuFacts& facts) { return facts.selection.siteLink; };
constexpr Condition kPersonOnSite = [](const MenuFacts& facts) { return facts.selection.person && facts.selection.siteLink; };
constexpr Condition kFilmOnSite = [](const MenuFacts& facts) { return facts.selection.film && facts.selection.siteLink; };
constexpr Condition kFilmNotOnSite = [](const MenuFacts& facts) { return facts.selection.film && !facts.selection.siteLink; };

enum class Effect { Enable, Show, Button };

struct MenuRule
{
    const char* name; ///< of the menu entry, or the toolbar button's key
    Effect effect;
    Condition on;
};

// Entries that are not named here can always be used. "Show" rules of whole menus keep those that pop up elsewhere out of the menu bar.
constexpr MenuRule kRules[] = {
    {"Back", Effect::Button, kOlder},
    {"Forward", Effect::Button, kNewer},

    {"mnuImdb", Effect::Enable, kCatalog},
    {"mnuisonews", Effect::Enable, kCatalog},
    {"mnuManualEntry", Effect::Enable, kCatalog},
    {"mnuImportIMDb", Effect::Enable, kCatalog},
    {"mnuAddAVI", Effect::Enable, kCatalog},
    {"mnuImportTitles", Effect::Enable, kCatalog},
    {"AddIMDb", Effect::Button, kCatalog},
    {"AddDVDEmp", Effect::Button, kCatalog},
    {"AddManual", Effect::Button, kCatalog},

    {"mnuViewRefresh", Effect::Enable, kCatalog},
    {"Refresh", Effect::Button, kCatalog},
    {"mnuAddFilter", Effect::Enable, kRoomForFilter},
    {"AddFilter", Effect::Button, kRoomForFilter},
    {"mnuFilterRemoveAll", Effect::Enable, kFilters},

    {"mnuWebExport", Effect::Enable, kCatalog},
    {"mnuWebExportByView", Effect::Enable, kCatalog},
    {"mnuExportXML", Effect::Enable, kCatalog},
    {"mnuExportText", Effect::Enable, kCatalog},
    {"mnuExportWebWizard", Effect::Enable, kNever},
    {"mnuLoansManage", Effect::Enable, kCatalog},
    {"mnuMovieNightClear", Effect::Enable, kCatalog},
    {"mnuManageLists_0", Effect::Enable, kCatalog},
    {"mnuManageLists_1", Effect::Enable, kCatalog},
    {"Save", Effect::Button, kCatalog},
    {"MnuPrint", Effect::Enable, kNever},
    {"mnuPrintCollection", Effect::Enable, kCatalog},
    {"Print", Effect::Button, kNever},

    {"mnuDelete", Effect::Enable, kFilm},
    {"mnuDeleteE", Effect::Enable, kFilm},
    {"Delete", Effect::Button, kFilm},
    {"mnuMovieNightAdd", Effect::Enable, kFilm},
    {"MnuNfoView", Effect::Enable, kNfo},
    {"MnuViewNfo", Effect::Enable, kNfo},
    {"MnuMoveMyMovies", Effect::Enable, kRequest},
    {"MnuMoveMyMoviesE", Effect::Enable, kRequest},
    {"MnuMoveMyRequest", Effect::Enable, kOwned},
    {"MnuMoveMyRequestE", Effect::Enable, kOwned},
    {"mnuLoans", Effect::Enable, kOwned},
    {"mnuLoansE", Effect::Enable, kOwned},
    {"mnuLoanMovie", Effect::Enable, kAtHome},
    {"mnuLoanMovieE", Effect::Enable, kAtHome},
    {"mnuLoanReturn", Effect::Enable, kOnLoan},
    {"mnuLoanReturnE", Effect::Enable, kOnLoan},
    {"mnuisonewsvisit", Effect::Enable, kShopLink},
    {"mnuIsonewsVisitV", Effect::Enable, kShopLink},
    {"mnuImdbVisit", Effect::Enable, kSiteLink},
    {"mnuImdbVisitV", Effect::Enable, kSiteLink},
    {"mnuMovieRetrieve", Effect::Show, kFilmNotOnSite},
    {"mnuUpdateMovieInfo", Effect::Show, kFilmOnSite},
    {"mnuActorRetreive", Effect::Show, kPerson},
    {"mnuActorRetreive", Effect::Enable, kPersonOnSite},
    {"mnuEdit", Effect::Enable, kFilmOrPerson},

    {"mnuTreeview", Effect::Show, kNever},
    {"mnuStatus", Effect::Show, kNever},
    {"mnuStatus", Effect::Enable, kCatalog},
    {"mnuPeopleHistory", Effect::Show, kNever},
    {"mnufrmSearch", Effect::Show, kNever},
    {"mnufrmAddSingle", Effect::Show, kNever},
    {"mnuExtras", Effect::Show, kNever},
    {"frmEdit", Effect::Show, kNever},
    {"mnuExcel", Effect::Show, kNever},
    {"mnuImportOrigons", Effect::Show, kNever},
};

} // namespace

void ApplyMenuRules(const MenuFacts& facts, MenuMarks& menus, const EnableButton& enableButton)
{
    for (const MenuRule& rule : kRules) {
        const QString name = QString::fromLatin1(rule.name);
        const bool on = rule.on(facts);
        switch (rule.effect) {
        case Effect::Enable:
            menus.SetEnabled(name, -1, on);
            break;
        case Effect::Show:
            menus.SetVisible(name, -1, on);
            break;
        case Effect::Button:
            enableButton(name, on);
            break;
        }
    }
}

} // namespace kelvado
