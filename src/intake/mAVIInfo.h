#pragma once

#include <QString>

#include <cstdint>
#include <limits>

namespace kelvado {

/// Facts of the whole file. All zero where it is no AVI.
struct AVIFILEINFO
{
    std::uint32_t dwWidth = 0, dwHeight = 0;
    std::uint32_t dwScale = 0, dwRate = 0; ///< `dwRate` / `dwScale` frames a second
    std::uint32_t dwLength = 0;            ///< in frames
};

/// Facts of the first video stream.
struct AVISTREAMINFO
{
    QString fccType, fccHandler; ///< codes of four characters, NULs included
};

/// The format of the sound. All zero where there is none.
struct WAVEFORMAT
{
    std::int16_t wFormatTag = 0;
    std::uint16_t nChannels = 0;
    std::uint32_t nSamplesPerSec = 0, nAvgBytesPerSec = 0;
    std::uint16_t nBlockAlign = 0, wBitsPerSample = 0;
};

/// The facts of a video file, ready to be shown.
struct AVIDetails
{
    AVIFILEINFO file;
    AVISTREAMINFO stream;
    WAVEFORMAT audio;
    QString FileName;                                ///< without its folders
    qint64 FileSize = 0;                             ///< bytes
    QString Resolution;                              ///< "640x480"
    QString Runtime;                                 ///< seconds, not rounded
    QString FPS;                                     ///< frames a second, "25.000"
    std::int32_t VideoBitrate = 0, AudioBitrate = 0; ///< kilobits a second
    QString AudioType, VideoType;                    ///< names of the codecs

    /// The largest `FileSize` that such a file may have.
    qint64 sizeLimit = std::numeric_limits<std::int32_t>::max();
};

/// Reads the AVI file at `path`; codecs that the catalog does not know are added to it. Raises `kErrDivisionByZero` for a file that is no
/// AVI, or has no frames or no frame rate; `kErrOverflow` for one of 2 GiB and more; `kErrFileNotFound` for one that cannot be opened.
/// Nothing is stored then.
AVIDetails GetAVIDetails(const QString& path, const QString& catalogPath);

/// Width and height come from the main header, the rest from the header of the first video stream, wherever that stands. What the file does
/// not hold stays zero; never raises. Reads headers only, whatever the size of the file.
void ReadAVIStreamInfo(const QString& path, AVIFILEINFO& file, AVISTREAMINFO& stream);

/// The length of the file in bytes. Raises `kErrFileNotFound`, and `kErrOverflow` for 2 GiB and more.
std::int32_t GetAVIFileLength(const QString& path);

/// The sound of an AVI whose second stream it is; zeros for any other file. It looks for tags at every fourth byte of the file's first 16
/// MiB, and follows no sizes. A file that does not begin with "RIFF" stays open to the end of the process. Raises `kErrFileNotFound`.
WAVEFORMAT ReadAudioFormat(const QString& path);

/// The name that the catalog has for a codec. One that is missing is added as unknown, in capitals, and keeps the name that the user then
/// gives it. `fourCC` ends at its first NUL.
QString LookupVideoCodec(const QString& fourCC, const QString& catalogPath);
QString LookupAudioCodec(std::int16_t formatTag, const QString& catalogPath);

/// `AudioBitrate` and `VideoBitrate` of a file that runs for `seconds`, from its `audio` and `FileSize`: the sound in units of 1000 bits,
/// the file in units of 1024 bytes. Raises `kErrDivisionByZero` for a running time of 0, `kErrOverflow` for a figure beyond 32 bits.
void SetBitrates(AVIDetails& details, double seconds);

/// `rate` / `scale` with three decimals, ties away from zero. Raises `kErrDivisionByZero` for a scale of 0.
QString FrameRateText(std::uint32_t rate, std::uint32_t scale);

/// What stands behind the last "/" or "\"; the whole of a path without one.
QString FileNameOf(const QString& path);

} // namespace kelvado
