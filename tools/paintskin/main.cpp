#include "Pictures.h"

#include "core/Literals.h"

#include <QGuiApplication>

#include <cstdio>

using namespace kelvado;

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    QStringList arguments = QGuiApplication::arguments().mid(1);
    const auto make = arguments.removeOne(u"--program"_s) ? MakeProgramPictures : MakeSkin;
    if (arguments.size() != 3) {
        std::fputs("usage: paintskin [--program] SKIN ART OUT\n"
                   "Makes the skin of the folder SKIN with the drawings of ART; with --program the pictures that lie beside the program.\n",
                   stderr);
        return 2;
    }
    try {
        make(arguments[0], arguments[1], arguments[2]);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "paintskin: %s\n", failure.what());
        return 1;
    }
    return 0;
}
