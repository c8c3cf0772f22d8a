#pragma once

#include <QString>

namespace kelvado {

/// The number of the tree's picture that stands for a carrier; `CatalogModel::kImageNoFormat` for none given (a null text), 0 for one
/// without a picture.
int FormatImage(const QString& format);

/// What that picture says, for those who do not see it; the empty text for number 0 and for pictures of other things.
QString FormatOfImage(int image);

} // namespace kelvado
