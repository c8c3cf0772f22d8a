// Gives the tests of windows their application: linked into a test program, it takes the place of the plain one.

#include "core/Literals.h"

#include <QApplication>

#include <memory>

/// What must be done before there is an application; a test program may bring its own.
void __attribute__((weak)) PrepareTestApplication() {}

std::unique_ptr<QCoreApplication> MakeTestApplication(int& argc, char** argv)
{
    using namespace kelvado;
    PrepareTestApplication();
    auto application = std::make_unique<QApplication>(argc, argv);
    QApplication::setStyle(u"Fusion"_s);
    return application;
}
