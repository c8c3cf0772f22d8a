#include "intake/MediaFile.h"

#include "core/Conversions.h"
#include "core/RuntimeError.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <MediaInfo/MediaInfo.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>

namespace kelvado {

namespace {

constexpr std::array kEndings{"avi"_L1, "divx"_L1, "mkv"_L1, "webm"_L1, "mp4"_L1, "m4v"_L1, "mov"_L1,  "3gp"_L1,
                              "mpg"_L1, "mpeg"_L1, "vob"_L1, "m2v"_L1,  "ts"_L1,  "mts"_L1, "m2ts"_L1, "ogv"_L1,
                              "ogm"_L1, "wmv"_L1,  "asf"_L1, "flv"_L1,  "f4v"_L1, "rm"_L1,  "rmvb"_L1, "dv"_L1};
constexpr int kDeepest = 16;
constexpr qint64 kLargestFile = qint64(1) << 53; // up to here a floating number counts every byte

[[noreturn]] void RaiseUnreadable(const QString& path, const QString& reason)
{
    throw RuntimeError::WithDetail(kErrFileAccess, path + u" ("_s + reason + u')');
}

QStringView EndingOf(QStringView path)
{
    const qsizetype dot = path.lastIndexOf(u'.');
    return dot < 0 || path.indexOf(u'/', dot) >= 0 ? QStringView() : path.sliced(dot + 1);
}

// ---- codecs

struct VideoCode
{
    QLatin1StringView format, version, code;
};
// These have the same code in every container.
constexpr std::array<VideoCode, 11> kVideoCodes{{
    {"AVC"_L1, ""_L1, "H264"_L1},
    {"HEVC"_L1, ""_L1, "HEVC"_L1},
    {"AV1"_L1, ""_L1, "AV01"_L1},
    {"VP8"_L1, ""_L1, "VP80"_L1},
    {"VP9"_L1, ""_L1, "VP90"_L1},
    {"Theora"_L1, ""_L1, "THEO"_L1},
    {"MPEG Video"_L1, "Version 1"_L1, "MPG1"_L1},
    {"MPEG Video"_L1, ""_L1, "MPG2"_L1},
    {"JPEG"_L1, ""_L1, "MJPG"_L1},
    {"DV"_L1, ""_L1, "DVSD"_L1},
    {"Sorenson Spark"_L1, ""_L1, "FLV1"_L1},
}};
// These only where the container names no code.
constexpr std::array<VideoCode, 2> kVideoCodesWithoutName{{
    {"MPEG-4 Visual"_L1, ""_L1, "MP4V"_L1},
    {"VC-1"_L1, ""_L1, "WVC1"_L1},
}};

struct AudioTag
{
    QLatin1StringView format, detail; ///< `detail` is a version or a profile
    std::int16_t tag;
};
// Format tags as an AVI has them. E-AC-3 and TrueHD have none there; theirs are free numbers.
constexpr std::array<AudioTag, 20> kAudioTags{{
    {"AAC"_L1, ""_L1, 255},
    {"AC-3"_L1, ""_L1, 8192},
    {"E-AC-3"_L1, ""_L1, 8448},
    {"MLP FBA"_L1, ""_L1, 8449},
    {"DTS"_L1, ""_L1, 8193},
    {"MPEG Audio"_L1, "Layer 3"_L1, 85},
    {"MPEG Audio"_L1, "Layer"_L1, 80},
    {"PCM"_L1, "Float"_L1, 3},
    {"PCM"_L1, "A-Law"_L1, 6},
    {"PCM"_L1, "U-Law"_L1, 7},
    {"PCM"_L1, ""_L1, 1},
    {"ADPCM"_L1, ""_L1, 2},
    {"Vorbis"_L1, ""_L1, 26447},
    {"Opus"_L1, ""_L1, 28751},
    {"FLAC"_L1, ""_L1, -3668},
    {"ALAC"_L1, ""_L1, 27745},
    {"WMA"_L1, "Version 1"_L1, 352},
    {"WMA"_L1, "Pro"_L1, 354},
    {"WMA"_L1, "Lossless"_L1, 355},
    {"WMA"_L1, ""_L1, 353},
}};
constexpr std::int16_t kTagOfUnnamed = -1;

// ---- reading

// A file as the library sees it, which is handed the bytes that it asks for: so it opens nothing of its own, and its reading has an end.
class MediaReader
{
public:
    explicit MediaReader(const QString& path)
    {
        QFile file(path);
        if (!QFileInfo(path).isFile())
            throw RuntimeError::WithDetail(kErrFileNotFound, path);
        if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
            RaiseUnreadable(path, file.errorString());
        try {
            Feed(file);
        } catch (const std::exception& error) {
            RaiseUnreadable(path, QString::fromUtf8(error.what()));
        }
        if (file.error() != QFileDevice::NoError)
            RaiseUnreadable(path, file.errorString());
    }

    bool Has(MediaInfoLib::stream_t stream) { return m_info.Count_Get(stream) > 0; }
    QString Text(MediaInfoLib::stream_t stream, const wchar_t* name)
    {
        return QString::fromStdWString(m_info.Get(stream, 0, name)).trimmed();
    }
    /// 0 where the file does not tell. Of several numbers, as streams within a stream have them, the first.
    double Number(MediaInfoLib::stream_t stream, const wchar_t* name)
    {
        bool ok = false;
        const double number = Text(stream, name).section(u'/', 0, 0).trimmed().toDouble(&ok);
        return ok && std::isfinite(number) && number > 0 ? number : 0;
    }

private:
    void Feed(QFile& file)
    {
        constexpr qint64 kBlock = qint64(64) << 10;
        constexpr qint64 kMost = qint64(256) << 20;
        constexpr qint64 kPatience = 10'000; // milliseconds
        constexpr std::size_t kFinished = 8;
        constexpr auto kNowhere = static_cast<std::uint64_t>(-1);
        const auto size = static_cast<std::uint64_t>(file.size());
        QElapsedTimer clock;
        clock.start();
        m_info.Open_Buffer_Init(size, 0);
        for (qint64 total = 0; total < kMost && clock.elapsed() < kPatience;) {
            const QByteArray block = file.read(kBlock);
            if (block.isEmpty())
                break;
            total += block.size();
            const auto* bytes = reinterpret_cast<const unsigned char*>(block.constData());
            if ((m_info.Open_Buffer_Continue(bytes, static_cast<std::size_t>(block.size())) & kFinished) != 0)
                break;
            const std::uint64_t next = m_info.Open_Buffer_Continue_GoTo_Get();
            if (next == kNowhere)
                continue;
            if (next >= size || !file.seek(static_cast<qint64>(next)))
                break;
            m_info.Open_Buffer_Init(size, next);
        }
        m_info.Open_Buffer_Finalize();
    }

    MediaInfoLib::MediaInfo m_info;
};

template<std::size_t size>
QString CodeFrom(const std::array<VideoCode, size>& codes, const QString& format, const QString& version)
{
    for (const VideoCode& known : codes) {
        if (format == known.format && version.startsWith(known.version))
            return known.code;
    }
    return {};
}

QString VideoCodeOf(MediaReader& media)
{
    using namespace MediaInfoLib;
    const QString format = media.Text(Stream_Video, L"Format");
    const QString version = media.Text(Stream_Video, L"Format_Version");
    if (QString code = CodeFrom(kVideoCodes, format, version); !code.isEmpty())
        return code;
    const QString named = media.Text(Stream_Video, L"CodecID").section(u'/', -1).trimmed();
    if (named.size() == 4 && named[0].isLetterOrNumber())
        return named.toUpper();
    if (QString code = CodeFrom(kVideoCodesWithoutName, format, version); !code.isEmpty())
        return code;
    return format.toUpper().left(4);
}

std::int16_t AudioTagOf(MediaReader& media)
{
    using namespace MediaInfoLib;
    const QString format = media.Text(Stream_Audio, L"Format");
    QString details;
    for (const wchar_t* name : {L"Format_Version", L"Format_Profile", L"Format_Settings"})
        details += media.Text(Stream_Audio, name) + u' ';
    for (const AudioTag& known : kAudioTags) {
        if (format == known.format && details.contains(known.detail))
            return known.tag;
    }
    return kTagOfUnnamed;
}

WAVEFORMAT AudioOf(MediaReader& media)
{
    using namespace MediaInfoLib;
    if (!media.Has(Stream_Audio))
        return {};
    const auto whole = [&media](const wchar_t* name, double most) {
        return static_cast<std::uint32_t>(std::min(RoundHalfEven(media.Number(Stream_Audio, name)), most));
    };
    constexpr double kMost16 = std::numeric_limits<std::uint16_t>::max();
    constexpr double kMost32 = std::numeric_limits<std::uint32_t>::max();
    const std::uint32_t bits = whole(L"BitRate", kMost32);
    return {AudioTagOf(media),
            static_cast<std::uint16_t>(whole(L"Channel(s)", kMost16)),
            whole(L"SamplingRate", kMost32),
            bits / 8,
            0,
            static_cast<std::uint16_t>(whole(L"BitDepth", kMost16))};
}

// The frame rate as a fraction; 0 / 0 where the file does not tell it.
void SetFrameRate(MediaReader& media, AVIFILEINFO& file)
{
    using namespace MediaInfoLib;
    constexpr double kMost = std::numeric_limits<std::uint32_t>::max();
    constexpr std::uint32_t kThousand = 1000;
    const double rate = media.Number(Stream_Video, L"FrameRate_Num");
    const double scale = media.Number(Stream_Video, L"FrameRate_Den");
    if (rate >= 1 && rate <= kMost && scale >= 1 && scale <= kMost) {
        file.dwRate = static_cast<std::uint32_t>(rate);
        file.dwScale = static_cast<std::uint32_t>(scale);
    } else if (const double frames = media.Number(Stream_Video, L"FrameRate"); frames > 0 && frames * kThousand <= kMost) {
        file.dwRate = static_cast<std::uint32_t>(RoundHalfEven(frames * kThousand));
        file.dwScale = kThousand;
    }
}

std::uint32_t PixelsOf(MediaReader& media, const wchar_t* name)
{
    constexpr double kMost = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::uint32_t>(std::min(media.Number(MediaInfoLib::Stream_Video, name), kMost));
}

AVIDetails ReadOther(const QString& path)
{
    using namespace MediaInfoLib;
    MediaReader media(path);
    if (!media.Has(Stream_Video))
        RaiseUnreadable(path, u"there is no video in it"_s);
    AVIDetails details;
    details.sizeLimit = kLargestFile;
    details.FileSize = QFileInfo(path).size();
    details.file.dwWidth = PixelsOf(media, L"Width");
    details.file.dwHeight = PixelsOf(media, L"Height");
    details.Resolution = QString::number(details.file.dwWidth) + u'x' + QString::number(details.file.dwHeight);
    details.stream = {u"vids"_s, VideoCodeOf(media)};
    details.audio = AudioOf(media);

    // Where the last frames bear no time, the video seems to end before the file.
    const double milliseconds = std::max(media.Number(Stream_Video, L"Duration"), media.Number(Stream_General, L"Duration"));
    const double seconds = milliseconds / 1000;
    details.Runtime = NumberText(seconds);
    SetFrameRate(media, details.file);
    if (details.file.dwScale > 0) {
        details.FPS = FrameRateText(details.file.dwRate, details.file.dwScale);
        const double frames = seconds * details.file.dwRate / details.file.dwScale;
        details.file.dwLength =
            static_cast<std::uint32_t>(std::min(RoundHalfEven(frames), double(std::numeric_limits<std::uint32_t>::max())));
    }
    try {
        if (seconds > 0)
            SetBitrates(details, seconds);
        // What the stream says of itself is better than what is left of the file.
        if (const double bits = media.Number(Stream_Video, L"BitRate"); bits > 0)
            details.VideoBitrate = RoundToLong(bits / 1000);
    } catch (const RuntimeError&) {
        RaiseUnreadable(path, u"the running time in it cannot be right"_s);
    }
    return details;
}

bool IsAvi(const QString& path)
{
    constexpr qint64 kHead = 12;
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return false;
    const QByteArray head = file.read(kHead).toUpper();
    return (head.startsWith("RIFF") || head.startsWith("RIFX")) && head.endsWith("AVI ");
}

// A film on a video disc is parted into files; the first one of each stands for it, and menus are none.
bool IsFurtherPart(const QString& fileName)
{
    static const QRegularExpression part(u"^(VIDEO_TS|VTS_\\d\\d_[02-9])\\.VOB$"_s, QRegularExpression::CaseInsensitiveOption);
    return part.match(fileName).hasMatch();
}

void FindIn(const QDir& folder, int depth, const std::function<bool()>& goesOn, QStringList& found, bool& ended)
{
    if (goesOn && !goesOn())
        ended = true;
    const QFileInfoList entries = folder.entryInfoList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot, QDir::NoSort);
    for (const QFileInfo& entry : entries) {
        if (ended)
            return;
        if (entry.isFile()) {
            if (IsVideoFile(entry.fileName()) && !IsFurtherPart(entry.fileName()))
                found << entry.filePath();
        } else if (!entry.isSymLink() && depth < kDeepest) {
            FindIn(QDir(entry.filePath()), depth + 1, goesOn, found, ended);
        }
    }
}

bool ByName(const QString& left, const QString& right)
{
    const int order = left.compare(right, Qt::CaseInsensitive);
    return order != 0 ? order < 0 : left < right;
}

} // namespace

QString VideoFileFilter()
{
    QStringList patterns;
    for (const QLatin1StringView ending : kEndings)
        patterns << u"*."_s + ending;
    const QString pattern = patterns.join(u';');
    return u"AVI File (*.avi)| *.avi|Video files ("_s + pattern + u")|"_s + pattern;
}

bool EndsInAvi(QStringView path)
{
    return path.endsWith("AVI"_L1, Qt::CaseInsensitive);
}

bool IsVideoFile(QStringView path)
{
    const QStringView ending = EndingOf(path);
    return std::any_of(kEndings.begin(), kEndings.end(),
                       [ending](QLatin1StringView known) { return ending.compare(known, Qt::CaseInsensitive) == 0; });
}

QString WithoutVideoEnding(const QString& fileName)
{
    const QStringView ending = EndingOf(fileName);
    const bool isAvi = ending.compare("avi"_L1, Qt::CaseInsensitive) == 0;
    return !isAvi && IsVideoFile(fileName) ? fileName.chopped(ending.size() + 1) : fileName;
}

AVIDetails GetMediaDetails(const QString& path, const QString& catalogPath)
{
    if (IsAvi(path))
        return GetAVIDetails(path, catalogPath);
    AVIDetails details = ReadOther(path);
    details.VideoType = LookupVideoCodec(details.stream.fccHandler, catalogPath);
    details.AudioType = LookupAudioCodec(details.audio.wFormatTag, catalogPath);
    details.FileName = FileNameOf(path);
    return details;
}

std::optional<AVIDetails> ReadChosenFile(const QString& path, const QString& catalogPath)
{
    const bool isAvi = EndsInAvi(path);
    if (!isAvi && !IsVideoFile(path))
        return std::nullopt;
    try {
        return GetMediaDetails(path, catalogPath);
    } catch (const RuntimeError& error) {
        if (isAvi && error.Number() != kErrOverflow)
            return std::nullopt;
        throw;
    }
}

std::optional<QString> FirstFilmIn(const QString& folder)
{
    QStringList names = QDir(folder).entryList(QDir::Files);
    std::sort(names.begin(), names.end(), ByName);
    for (bool (*fits)(QStringView) : {EndsInAvi, IsVideoFile}) {
        const auto first = std::find_if(names.begin(), names.end(), fits);
        if (first != names.end())
            return QDir(folder).filePath(*first);
    }
    return std::nullopt;
}

QStringList FindVideoFiles(const QString& folder, const std::function<bool()>& goesOn)
{
    if (!QFileInfo(folder).isDir())
        throw RuntimeError::WithDetail(kErrFileNotFound, folder);
    QStringList found;
    bool ended = false;
    FindIn(QDir(folder), 0, goesOn, found, ended);
    std::sort(found.begin(), found.end(), ByName);
    return found;
}

} // namespace kelvado
