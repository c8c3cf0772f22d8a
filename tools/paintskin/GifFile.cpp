#include "GifFile.h"

#include <QFile>

#include <gif_lib.h>

#include <algorithm>
#include <map>
#include <memory>
#include <stdexcept>
#include <vector>

namespace kelvado {

namespace {

constexpr int kTransparent = 0; // index of the transparent colour
constexpr int kMostColours = 255;
constexpr QRgb kOpaque = 0xFF000000;

struct Colours
{
    std::vector<QRgb> map;      // place 0 is the transparent one
    std::map<QRgb, int> places; // of every colour that occurs
};

int Distance(QRgb a, QRgb b)
{
    const int red = qRed(a) - qRed(b);
    const int green = qGreen(a) - qGreen(b);
    const int blue = qBlue(a) - qBlue(b);
    return red * red + green * green + blue * blue;
}

/// The colours of all frames. Where there are too many, the most frequent ones stay as they are
/// (a picture's ground always does) and each other one shares the place of the nearest.
Colours CollectColours(const QList<QImage>& frames)
{
    std::map<QRgb, int> counts;
    for (const QImage& frame : frames) {
        for (int y = 0; y < frame.height(); ++y) {
            const auto* line = reinterpret_cast<const QRgb*>(frame.constScanLine(y));
            for (int x = 0; x < frame.width(); ++x) {
                if (qAlpha(line[x]) >= 128)
                    ++counts[line[x] | kOpaque];
            }
        }
    }
    std::vector<std::pair<QRgb, int>> byCount(counts.begin(), counts.end());
    std::stable_sort(byCount.begin(), byCount.end(), [](const auto& a, const auto& b) { return a.second > b.second; });
    const auto kept = byCount.begin() + std::min<std::ptrdiff_t>(byCount.size(), kMostColours);
    Colours colours;
    colours.map.push_back(0);
    for (auto one = byCount.begin(); one != byCount.end(); ++one) {
        const QRgb colour = one->first;
        auto nearest = one;
        if (one < kept)
            colours.map.push_back(colour);
        else
            nearest = std::min_element(byCount.begin(), kept, [colour](const auto& a, const auto& b) {
                return Distance(a.first, colour) < Distance(b.first, colour);
            });
        colours.places[colour] = static_cast<int>(nearest - byCount.begin()) + 1;
    }
    return colours;
}

struct MapDeleter
{
    void operator()(ColorMapObject* map) const { GifFreeMapObject(map); }
};
using ColourMap = std::unique_ptr<ColorMapObject, MapDeleter>;

ColourMap MakeMap(const std::vector<QRgb>& colours)
{
    int size = 2;
    while (size < static_cast<int>(colours.size()))
        size *= 2;
    ColourMap map(GifMakeMapObject(size, nullptr));
    for (std::size_t place = 0; place < colours.size(); ++place) {
        const QRgb colour = colours[place];
        map->Colors[place] = {static_cast<GifByteType>(qRed(colour)), static_cast<GifByteType>(qGreen(colour)),
                              static_cast<GifByteType>(qBlue(colour))};
    }
    return map;
}

struct FileCloser
{
    void operator()(GifFileType* file) const { EGifCloseFile(file, nullptr); }
};

} // namespace

void SaveGif(const QString& path, const QList<QImage>& frames, int hundredthsPerFrame)
{
    int error = 0;
    const auto check = [&path](bool good) {
        if (!good)
            throw std::runtime_error("cannot write " + path.toStdString());
    };

    QList<QImage> pictures;
    for (const QImage& frame : frames)
        pictures.append(frame.convertToFormat(QImage::Format_ARGB32));
    const Colours colours = CollectColours(pictures);
    const ColourMap map = MakeMap(colours.map);
    const int width = pictures.at(0).width();
    const int height = pictures.at(0).height();

    std::unique_ptr<GifFileType, FileCloser> file(EGifOpenFileName(QFile::encodeName(path).constData(), false, &error));
    check(file != nullptr);
    EGifSetGifVersion(file.get(), true);
    check(EGifPutScreenDesc(file.get(), width, height, 8, 0, map.get()) == GIF_OK);
    if (pictures.size() > 1) {
        const GifByteType forever[] = {1, 0, 0};
        check(EGifPutExtensionLeader(file.get(), APPLICATION_EXT_FUNC_CODE) == GIF_OK);
        check(EGifPutExtensionBlock(file.get(), 11, "NETSCAPE2.0") == GIF_OK);
        check(EGifPutExtensionBlock(file.get(), 3, forever) == GIF_OK);
        check(EGifPutExtensionTrailer(file.get()) == GIF_OK);
    }

    std::vector<GifPixelType> row(width);
    for (const QImage& picture : pictures) {
        GraphicsControlBlock control{DISPOSE_BACKGROUND, false, hundredthsPerFrame, kTransparent};
        GifByteType block[4];
        check(EGifGCBToExtension(&control, block) == sizeof block);
        check(EGifPutExtension(file.get(), GRAPHICS_EXT_FUNC_CODE, sizeof block, block) == GIF_OK);
        check(EGifPutImageDesc(file.get(), 0, 0, width, height, false, nullptr) == GIF_OK);
        for (int y = 0; y < height; ++y) {
            const auto* line = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
            for (int x = 0; x < width; ++x)
                row[x] = qAlpha(line[x]) < 128 ? kTransparent : static_cast<GifPixelType>(colours.places.at(line[x] | kOpaque));
            check(EGifPutLine(file.get(), row.data(), width) == GIF_OK);
        }
    }
    check(EGifCloseFile(file.release(), &error) == GIF_OK);
}

} // namespace kelvado
