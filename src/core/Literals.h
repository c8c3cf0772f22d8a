#pragma once

#include <QString>

namespace kelvado {

/// `u"…"_s` is a `QString`, `"…"_L1` a view of ASCII: the only manner in which our code writes texts of Qt.
using namespace Qt::StringLiterals;

} // namespace kelvado
