#include "Gif.h"

#include <QHash>

#include <gif_lib.h>

#include <algorithm>
#include <cstdlib>
#include <stdexcept>

namespace kelvado {

namespace {

constexpr qsizetype kMostColors = 256;

void Check(bool good)
{
    if (!good)
        throw std::runtime_error("the GIF library failed");
}

QImage Indexed(const QImage& frame)
{
    const QImage picture = frame.convertToFormat(QImage::Format_RGB32);
    QHash<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        for (int x = 0; x < picture.width(); ++x)
            ++counts[line[x]];
    }
    QList<QRgb> colors = counts.keys();
    std::sort(colors.begin(), colors.end(), [&](QRgb a, QRgb b) { return counts[a] != counts[b] ? counts[a] > counts[b] : a < b; });
    return picture.convertToFormat(QImage::Format_Indexed8, colors.mid(0, kMostColors), Qt::ThresholdDither);
}

/// The images that the library writes, in its own memory.
struct GifImages : GifFileType
{
    GifImages() : GifFileType{} {}
    ~GifImages() { GifFreeSavedImages(this); }
    GifImages(const GifImages&) = delete;
    GifImages& operator=(const GifImages&) = delete;

    void Add(const QImage& frame, int hundredths);
};

void GifImages::Add(const QImage& frame, int hundredths)
{
    SavedImage* image = GifMakeSavedImage(this, nullptr);
    Check(image != nullptr);
    const QList<QRgb> colors = frame.colorTable();
    const int size = 1 << std::max(1, GifBitSize(static_cast<int>(colors.size())));
    image->ImageDesc = {0, 0, frame.width(), frame.height(), false, GifMakeMapObject(size, nullptr)};
    Check(image->ImageDesc.ColorMap != nullptr);
    std::transform(colors.begin(), colors.end(), image->ImageDesc.ColorMap->Colors, [](QRgb color) {
        return GifColorType{static_cast<GifByteType>(qRed(color)), static_cast<GifByteType>(qGreen(color)),
                            static_cast<GifByteType>(qBlue(color))};
    });
    image->RasterBits =
        static_cast<GifByteType*>(std::malloc(static_cast<std::size_t>(frame.width()) * frame.height())); // the library frees it
    Check(image->RasterBits != nullptr);
    for (int y = 0; y < frame.height(); ++y)
        std::copy_n(frame.constScanLine(y), frame.width(), image->RasterBits + static_cast<std::ptrdiff_t>(y) * frame.width());

    if (hundredths == 0)
        return;
    if (ImageCount == 1) {
        GifByteType name[] = {'N', 'E', 'T', 'S', 'C', 'A', 'P', 'E', '2', '.', '0'};
        GifByteType forever[] = {1, 0, 0};
        const auto add = [image](int code, auto& bytes) {
            return GifAddExtensionBlock(&image->ExtensionBlockCount, &image->ExtensionBlocks, code, sizeof bytes, bytes) == GIF_OK;
        };
        Check(add(APPLICATION_EXT_FUNC_CODE, name) && add(CONTINUE_EXT_FUNC_CODE, forever));
    }
    const GraphicsControlBlock control{DISPOSE_DO_NOT, false, hundredths, NO_TRANSPARENT_COLOR};
    Check(EGifGCBToSavedExtension(&control, this, ImageCount - 1) == GIF_OK);
}

int Append(GifFileType* file, const GifByteType* bytes, int count)
{
    static_cast<QByteArray*>(file->UserData)->append(reinterpret_cast<const char*>(bytes), count);
    return count;
}

} // namespace

QByteArray GifOf(const QList<QImage>& frames, int hundredthsPerFrame)
{
    GifImages images;
    for (const QImage& frame : frames)
        images.Add(Indexed(frame), frames.size() > 1 ? hundredthsPerFrame : 0);
    QByteArray bytes;
    GifFileType* file = EGifOpen(&bytes, Append, nullptr);
    Check(file != nullptr);
    file->SWidth = frames.at(0).width();
    file->SHeight = frames.at(0).height();
    file->SColorResolution = 8;
    file->ImageCount = images.ImageCount;
    file->SavedImages = images.SavedImages;
    Check(EGifSpew(file) == GIF_OK); // which closes it
    return bytes;
}

} // namespace kelvado
