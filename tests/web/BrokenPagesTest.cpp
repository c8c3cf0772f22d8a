#include "PageReaders.h"
#include "WebPages.h"

#include <gtest/gtest.h>

namespace kelvado {
namespace {

// A failure that is no run-time failure ends the test.
TEST(BrokenPages, EndInAValueOrARunTimeFailure)
{
    for (const PageReader& reader : kPageReaders) {
        for (const PageReader& other : kPageReaders) {
            const QString page = FetchedPage(other.page);
            // Own pages are cut closely among their facts, which follow the noise; the others here and there.
            const qsizetype facts = reader.page == other.page ? page.size() * 2 / 3 : page.size();
            for (qsizetype size = 0; size <= page.size(); size += size < facts ? 199 : 3)
                ASSERT_NO_THROW(reader.read(page.left(size))) << reader.page << " of " << other.page << " cut at " << size;
        }
    }
}

} // namespace
} // namespace kelvado
