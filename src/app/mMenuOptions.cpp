#include "app/mMenuOptions.h"

namespace kelvado {

namespace {

enum class Rule { WithCatalog, WithSelection, WithPrinting };

struct MenuEntry
{
    const char* name;
    Rule rule;
    bool button = false;
};

constexpr MenuEntry kAddFilmEntries[] = {
    {"mnuImdb", Rule::WithCatalog},         {"mnuisonews", Rule::WithCatalog},    {"mnuManualEntry", Rule::WithCatalog},
    {"mnuImportIMDb", Rule::WithCatalog},   {"AddIMDb", Rule::WithCatalog, true}, {"AddDVDEmp", Rule::WithCatalog, true},
    {"AddManual", Rule::WithCatalog, true},
};
constexpr MenuEntry kViewEntries[] = {
    {"mnuViewRefresh", Rule::WithCatalog},
    {"mnuAddFilter", Rule::WithCatalog},
    {"Refresh", Rule::WithCatalog, true},
    {"AddFilter", Rule::WithCatalog, true},
};
constexpr MenuEntry kFilmEntries[] = {
    {"mnuDelete", Rule::WithSelection},
    {"mnuDeleteE", Rule::WithSelection},
    {"Delete", Rule::WithSelection, true},
};
constexpr MenuEntry kStatusEntries[] = {
    {"mnuStatus", Rule::WithCatalog},
};
constexpr MenuEntry kRemainingEntries[] = {
    {"mnuWebExport", Rule::WithCatalog},     {"mnuWebExportByView", Rule::WithCatalog}, {"mnuExportXML", Rule::WithCatalog},
    {"mnuLoansManage", Rule::WithCatalog},   {"mnuMovieNightClear", Rule::WithCatalog}, {"mnuManageLists_0", Rule::WithCatalog},
    {"mnuManageLists_1", Rule::WithCatalog}, {"Save", Rule::WithCatalog, true},         {"MnuPrint", Rule::WithPrinting},
    {"Print", Rule::WithPrinting, true},
};

} // namespace

void ApplyMenuRules(bool catalogOpen, MenuMarks& menus, const EnableButton& enableButton)
{
    const auto apply = [&](const auto& entries) {
        for (const MenuEntry& entry : entries) {
            // Nothing prints pages yet, and entries on one film wait for a selection.
            const bool on = entry.rule == Rule::WithCatalog && catalogOpen;
            if (entry.button)
                enableButton(QString::fromLatin1(entry.name), on);
            else
                menus.SetEnabled(QString::fromLatin1(entry.name), -1, on);
        }
    };
    apply(kAddFilmEntries);
    apply(kViewEntries);
    apply(kFilmEntries);
    apply(kStatusEntries);
    apply(kRemainingEntries);
}

} // namespace kelvado
