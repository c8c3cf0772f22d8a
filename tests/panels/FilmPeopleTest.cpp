#include "panels/FilmPeople.h"
#include "panels/PictureStore.h"
#include "support/ScriptedDialogs.h"
#include "support/TempCatalog.h"
#include "support/TempHome.h"

namespace kelvado {
namespace {

} // namespace
} // namespace kelvado
