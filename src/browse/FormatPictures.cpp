#include "browse/FormatPictures.h"

#include "browse/CatalogModel.h"
#include "core/Literals.h"

#include <algorithm>

namespace kelvado {

namespace {

struct FormatPicture
{
    QLatin1StringView format;
    int image;
};

constexpr FormatPicture kFormatPictures[] = {
    {"DivX"_L1, 1}, {"VCD"_L1, 2}, {"DVD"_L1, 3}, {"VHS"_L1, 4}, {"SVCD"_L1, 8}, {"LASERDISC"_L1, 9}, {"XviD"_L1, 10}, {"Request"_L1, 13},
};

} // namespace

int FormatImage(const QString& format)
{
    if (format.isNull())
        return CatalogModel::kImageNoFormat;
    const auto* picture = std::ranges::find(kFormatPictures, format, &FormatPicture::format);
    return picture == std::end(kFormatPictures) ? 0 : picture->image;
}

QString FormatOfImage(int image)
{
    const auto* picture = std::ranges::find(kFormatPictures, image, &FormatPicture::image);
    return picture == std::end(kFormatPictures) ? QString() : QString(picture->format);
}

} // namespace kelvado
