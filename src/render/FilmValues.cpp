#include "render/FilmValues.h"

#include "core/Conversions.h"
#include "core/Literals.h"
#include "core/RuntimeError.h"

#include <array>

namespace kelvado {

namespace {

struct Certificate
{
    QLatin1StringView rated;
    QLatin1StringView picture;
};

constexpr std::array<Certificate, 5> kCertificates{{
    {"G"_L1, "G.Gif"_L1},
    {"PG"_L1, "PG.Gif"_L1},
    {"PG-13"_L1, "PG-13.Gif"_L1},
    {"R"_L1, "R.Gif"_L1},
    {"NC17"_L1, "NC-17.Gif"_L1},
}};

bool IsDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

} // namespace

QString YesNo(const Value& value)
{
    const bool isNumber = !value.IsNull() && (!value.IsText() || IsNumeric(value.Text()));
    return isNumber && value.Number() == 0 ? u"No"_s : u"Yes"_s;
}

QLatin1StringView CertificatePicture(const Value& rated)
{
    if (rated.IsNull())
        return {};
    const QString text = rated.Text();
    for (const Certificate& certificate : kCertificates) {
        if (text == certificate.rated)
            return certificate.picture;
    }
    return {};
}

RatingPictures RatingBarOf(const Value& rating)
{
    const QString text = rating.IsNull() ? QString() : rating.Text();
    RatingPictures bar;
    if (text.isEmpty() || !IsDigit(text.front())) {
        bar.pictures << kNoRatingBar;
        return bar;
    }
    if (!IsDigit(text.back()))
        throw RuntimeError::WithDetail(kErrTypeMismatch, u"the rating \"%1\" does not end with a digit"_s.arg(text));
    constexpr int kPieces = 12;
    constexpr QLatin1StringView kEmpty = "barNo.gif"_L1;
    const int whole = text.front().digitValue();
    const int last = text.back().digitValue();
    bar.pictures.reserve(kPieces);
    bar.pictures << "barLeft.gif"_L1;
    for (int piece = 0; piece < whole; ++piece)
        bar.pictures << "barYes.gif"_L1;
    if (last != 5) {
        bar.middle = bar.pictures.size();
        bar.pictures << (last > 5 ? "barHalf.gif"_L1 : kEmpty);
    }
    for (int piece = whole; piece < 9; ++piece)
        bar.pictures << kEmpty;
    bar.pictures << "barRight.gif"_L1;
    return bar;
}

} // namespace kelvado
