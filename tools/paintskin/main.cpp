#include "Palette.h"
#include "Pictures.h"
#include "TabRow.h"

#include <QDir>
#include <QGuiApplication>

#include <cstdio>
#include <exception>

namespace {

using namespace kelvado;

struct Part
{
    const char* folder;
    void (*paint)(const Palette&, const QString&);
};

constexpr Part kSkin[] = {
    {"", PaintSectionTabs},         {"Searchbar", PaintSearchBar}, {"Toolbar", PaintToolbar}, {"Tree", PaintTree},
    {"ratings", PaintCertificates}, {"RatingBar", PaintRatingBar}, {"", PaintNoImage},
};
constexpr Part kProgram[] = {{"", PaintBusy}, {"", PaintAppIcon}};

template<typename Parts>
void PaintAll(const Parts& parts, const Palette& palette, const QString& folder)
{
    for (const Part& part : parts) {
        const QString place = QDir::cleanPath(folder + u'/' + QString::fromLatin1(part.folder));
        QDir().mkpath(place);
        part.paint(palette, place);
    }
}

} // namespace

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    QStringList arguments = QGuiApplication::arguments().mid(1);
    const bool program = arguments.removeOne(u"--busy"_qs);
    if (arguments.size() != 2) {
        std::fputs("usage: paintskin [--busy] PALETTE OUTFOLDER\n"
                   "Paints the pictures of a skin; with --busy those that lie beside the program instead.\n",
                   stderr);
        return 2;
    }
    try {
        const Palette palette(arguments.at(0));
        if (program)
            PaintAll(kProgram, palette, arguments.at(1));
        else
            PaintAll(kSkin, palette, arguments.at(1));
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "paintskin: %s\n", failure.what());
        return 1;
    }
    return 0;
}
