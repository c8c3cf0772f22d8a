// Reads any bytes as an AVI file. The readers may raise a RuntimeError and nothing else.

#include "core/Literals.h"
#include "core/RuntimeError.h"
#include "intake/mAVIInfo.h"

#include <QFile>
#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace kelvado;
    static const QTemporaryDir folder;
    const QString path = folder.filePath(u"film.avi"_s);
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(reinterpret_cast<const char*>(data), static_cast<qint64>(size)) < 0)
            return 0;
    }
    AVIDetails details;
    try {
        ReadAVIStreamInfo(path, details.file, details.stream);
        details.audio = ReadAudioFormat(path);
        FrameRateText(details.file.dwRate, details.file.dwScale);
        details.FileSize = GetAVIFileLength(path);
        SetBitrates(details, details.file.dwLength / (double(details.file.dwRate) / details.file.dwScale));
    } catch (const RuntimeError&) {
        return 0;
    }
    return 0;
}
