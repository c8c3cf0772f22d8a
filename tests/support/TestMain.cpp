#include <QCoreApplication>

#include <gtest/gtest.h>

#include <memory>

// Window tests bring a QApplication of their own through `MakeTestApplication`.
std::unique_ptr<QCoreApplication> __attribute__((weak)) MakeTestApplication(int& argc, char** argv)
{
    return std::make_unique<QCoreApplication>(argc, argv);
}

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    const std::unique_ptr<QCoreApplication> application = MakeTestApplication(argc, argv);
    return RUN_ALL_TESTS();
}
