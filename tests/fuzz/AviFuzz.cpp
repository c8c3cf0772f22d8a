// Reads any bytes as an AVI file. The readers may raise a RuntimeError and nothing else.

#include "core/Literals.h"
#include "core/RuntimeError.h"
#include "intake/mAVIInfo.h"

#include <QFile>
#include <QTemporaryDir>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace kelvado;
    static const QTemporaryDir folder;
    const QString path = folder.filePath(u"film.avi"_s);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(reinterpret_cast<const char*>(data), static_cast<qint64>(size)) < 0)
        return 0;
    file.close();
    AVIDetails details;
    ReadAVIStreamInfo(path, details.file, details.stream);
    details.audio = ReadAudioFormat(path);
    try {
        FrameRateText(details.file.dwRate, details.file.dwScale);
        SetBitrates(details, details.file.dwLength);
    } catch (const RuntimeError&) { // for a frame rate or length of 0
        return 0;
    }
    return 0;
}
