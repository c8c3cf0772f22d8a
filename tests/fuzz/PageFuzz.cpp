// Reads any bytes as a page of the kind KELVADO_FUZZ_PAGE. Every routine may raise a RuntimeError and nothing else.

#include "core/Conversions.h"
#include "web/PageReaders.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString fetched = kelvado::FromWindows1252(QByteArrayView(data, static_cast<qsizetype>(size)));
    for (const kelvado::PageReader& reader : kelvado::kPageReaders) {
        if (reader.page == KELVADO_FUZZ_PAGE)
            reader.read(fetched);
    }
    return 0;
}
