#include "core/SafeFile.h"

#include "support/FullDisk.h"
#include "support/TempHome.h"

#include <functional>

namespace kelvado {
namespace {

TEST(SafeFile, AFullDiskLeavesTheOldFileAndIsNamed)
{
    const TempHome home;
    const QString path = home.Path(u"file"_s);
    // Small enough for the memory that stands in front of the file, and larger than that.
    for (const int size : {100, 100'000}) {
        const QByteArray bytes(size, 'x');
        home.Write(u"file"_s, "old");
        home.Write(u"source"_s, bytes);
        const std::function<void()> writes[] = {
            [&] { WriteFileWhole(path, bytes); },
            [&] { WriteFileFast(path, bytes); },
            [&] { CopyFileWhole(home.Path(u"source"_s), path); },
        };
        for (const auto& write : writes) {
            const auto told = [&] {
                const FullDisk full(8);
                return ErrorTextOf([&] { return write(), 0; });
            }();
            EXPECT_EQ(told, "Path/File access error: " + path.toStdString() + " (File too large)") << size;
            EXPECT_EQ(home.Read(u"file"_s), "old") << size;
            EXPECT_EQ(QDir(home.Path({})).entryList(QDir::Files).size(), 2) << "nothing is left behind";
        }
    }
}

} // namespace
} // namespace kelvado
