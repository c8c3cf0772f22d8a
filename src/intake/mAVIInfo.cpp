#include "intake/mAVIInfo.h"

#include "core/Conversions.h"
#include "core/Literals.h"
#include "core/RuntimeError.h"
#include "store/Recordset.h"

#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <algorithm>
#include <map>
#include <memory>

namespace kelvado {

namespace {

constexpr qint64 kTag = 4;
constexpr qint64 kChunkHead = 8; // tag and size

bool IsTag(QByteArrayView bytes, QByteArrayView tag)
{
    return bytes.compare(tag, Qt::CaseInsensitive) == 0;
}

double Quotient(double dividend, double divisor)
{
    if (divisor == 0)
        throw RuntimeError(kErrDivisionByZero);
    return dividend / divisor;
}

void Open(QFile& file)
{
    if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        throw RuntimeError::WithDetail(kErrFileNotFound, file.fileName());
}

// ---- chunks

// Walks through the chunks of a file, into lists, until it has the main header and the header of the first video stream. Sizes are held to
// the bounds of what is around them, and the walk to a number of chunks, so that a file that lies costs no more than an honest one.
class HeaderWalk
{
public:
    HeaderWalk(QFile& file, AVIFILEINFO& fileBlock, AVISTREAMINFO& streamBlock) : m_file(file), m_info(fileBlock), m_stream(streamBlock) {}

    void Run()
    {
        constexpr qint64 kRiffHead = 12;
        const QByteArray head = m_file.read(kRiffHead);
        m_bigEndian = IsTag(head.left(kTag), "RIFX");
        if (head.size() == kRiffHead && (m_bigEndian || IsTag(head.left(kTag), "RIFF")) && IsTag(head.right(kTag), "AVI "))
            Walk(kRiffHead, m_file.size(), 0);
    }

private:
    static constexpr int kMostChunks = 4096;
    static constexpr int kDeepest = 8;

    bool Done() const { return (m_hasMain && m_hasVideo) || m_chunks > kMostChunks; }

    void Walk(qint64 at, qint64 end, int depth)
    {
        while (at + kChunkHead <= end && !Done()) {
            ++m_chunks;
            const QByteArray head = ReadAt(at, kChunkHead + kTag);
            if (head.size() < kChunkHead)
                return;
            const qint64 size = Number(head, kTag);
            const qint64 body = at + kChunkHead;
            const qint64 bodyEnd = std::min(body + size, end);
            const QByteArrayView tag = QByteArrayView(head).first(kTag);
            if (IsTag(tag, "LIST")) {
                // A recording that was cut off leaves a size of 0: all that follows may be in the list.
                if (depth < kDeepest && !IsTag(head.mid(kChunkHead), "movi"))
                    Walk(body + kTag, size < kTag ? end : bodyEnd, depth + 1);
            } else if (IsTag(tag, "avih")) {
                TakeMainHeader(ReadAt(body, std::min(bodyEnd - body, kMainHeader)));
            } else if (IsTag(tag, "strh")) {
                TakeStreamHeader(ReadAt(body, std::min(bodyEnd - body, kStreamHeader)));
            }
            at = bodyEnd + (size & 1);
        }
    }

    QByteArray ReadAt(qint64 at, qint64 size) { return m_file.seek(at) ? m_file.read(size) : QByteArray(); }

    std::uint32_t Number(const QByteArray& bytes, qsizetype at) const
    {
        if (at + kTag > bytes.size())
            return 0;
        const char* place = bytes.constData() + at;
        return m_bigEndian ? qFromBigEndian<std::uint32_t>(place) : qFromLittleEndian<std::uint32_t>(place);
    }

    void TakeMainHeader(const QByteArray& header)
    {
        m_hasMain = true;
        m_info.dwWidth = Number(header, 32);
        m_info.dwHeight = Number(header, 36);
    }

    void TakeStreamHeader(const QByteArray& header)
    {
        if (m_hasVideo || !IsTag(header.left(kTag), "vids"))
            return;
        m_hasVideo = true;
        m_stream.fccType = FromWindows1252(header.left(kTag));
        m_stream.fccHandler = FromWindows1252(header.mid(kTag, kTag));
        m_info.dwScale = Number(header, 20);
        m_info.dwRate = Number(header, 24);
        m_info.dwLength = Number(header, 32);
    }

    static constexpr qint64 kMainHeader = 40;
    static constexpr qint64 kStreamHeader = 36;

    QFile& m_file;
    AVIFILEINFO& m_info;
    AVISTREAMINFO& m_stream;
    bool m_bigEndian = false;
    bool m_hasMain = false, m_hasVideo = false;
    int m_chunks = 0;
};

// ---- the scan for the sound

// A file as groups of four bytes.
class Groups
{
public:
    explicit Groups(QFile& file) : m_file(file) {}

    /// `size` bytes at `at`, fewer behind the end of what is looked at.
    QByteArrayView At(qint64 at, qint64 size = kTag)
    {
        if (at < m_begin || at + size > m_begin + m_block.size()) {
            m_begin = at;
            m_block = at < kLookedAt && m_file.seek(at) ? m_file.read(kBlock) : QByteArray();
        }
        const qint64 offset = std::min(at - m_begin, m_block.size());
        return QByteArrayView(m_block).sliced(offset, std::min(size, m_block.size() - offset));
    }

    /// The place behind the next `tag` from `at`; -1 where there is none.
    qint64 Behind(QByteArrayView tag, qint64 at)
    {
        for (;; at += kTag) {
            const QByteArrayView group = At(at);
            if (group.size() < kTag)
                return -1;
            if (IsTag(group, tag))
                return at + kTag;
        }
    }

private:
    static constexpr qint64 kBlock = qint64(16) << 10;
    static constexpr qint64 kLookedAt = qint64(16) << 20; // headers end long before; behind them is the film
    QFile& m_file;
    qint64 m_begin = 0;
    QByteArray m_block;
};

WAVEFORMAT FormatFrom(QByteArrayView bytes)
{
    const char* at = bytes.data();
    return {qFromLittleEndian<std::int16_t>(at),      qFromLittleEndian<std::uint16_t>(at + 2),  qFromLittleEndian<std::uint32_t>(at + 4),
            qFromLittleEndian<std::uint32_t>(at + 8), qFromLittleEndian<std::uint16_t>(at + 12), qFromLittleEndian<std::uint16_t>(at + 14)};
}

void KeepOpen(std::unique_ptr<QFile> file)
{
    static std::map<QString, std::unique_ptr<QFile>> kept;
    const QString path = file->fileName();
    kept.try_emplace(path, std::move(file));
}

// ---- names of codecs

QString LookupCodec(const QString& table, const Value& code, const QString& unknown, const QString& catalogPath)
{
    Connection connection = OpenCatalog(catalogPath);
    Recordset codecs;
    codecs.Open(u"SELECT * FROM "_s + table + u" WHERE Codec_ID = ?"_s, {code}, connection);
    if (!codecs.Eof())
        return codecs.Text(codecs.ColumnIndex(u"DisplayName"));
    codecs.AddNew();
    codecs[u"Codec_ID"].Set(code);
    codecs[u"DisplayName"].Set(unknown);
    codecs.Update();
    codecs.Close();
    connection.Close();
    return unknown;
}

void SetFigures(const QString& path, AVIDetails& details)
{
    const AVIFILEINFO& file = details.file;
    details.Resolution = QString::number(file.dwWidth) + u'x' + QString::number(file.dwHeight);
    details.FPS = FrameRateText(file.dwRate, file.dwScale);
    const double seconds = Quotient(file.dwLength, Quotient(file.dwRate, file.dwScale));
    details.Runtime = NumberText(seconds);
    details.FileSize = GetAVIFileLength(path);
    SetBitrates(details, seconds);
}

} // namespace

AVIDetails GetAVIDetails(const QString& path, const QString& catalogPath)
{
    AVIDetails details;
    ReadAVIStreamInfo(path, details.file, details.stream);
    details.audio = ReadAudioFormat(path);
    try {
        SetFigures(path, details);
    } catch (const RuntimeError& error) {
        if (error.Description() != DescriptionOfError(error.Number()))
            throw; // it names the file already
        throw RuntimeError::WithDetail(error.Number(), path + u" (its headers are not those of an AVI with a film)"_s);
    }
    details.VideoType = LookupVideoCodec(details.stream.fccHandler, catalogPath);
    details.AudioType = LookupAudioCodec(details.audio.wFormatTag, catalogPath);
    details.FileName = FileNameOf(path);
    return details;
}

void ReadAVIStreamInfo(const QString& path, AVIFILEINFO& file, AVISTREAMINFO& stream)
{
    file = {};
    stream = {};
    QFile device(path);
    if (QFileInfo(device).isFile() && device.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        HeaderWalk(device, file, stream).Run();
}

std::int32_t GetAVIFileLength(const QString& path)
{
    QFile file(path);
    Open(file);
    const qint64 size = file.size();
    if (size > std::numeric_limits<std::int32_t>::max())
        throw RuntimeError::WithDetail(
            kErrOverflow, u"%1 has %2 bytes; an AVI may have %3"_s.arg(path, QString::number(size),
                                                                       QString::number(std::numeric_limits<std::int32_t>::max())));
    return static_cast<std::int32_t>(size);
}

WAVEFORMAT ReadAudioFormat(const QString& path)
{
    constexpr int kLists = 3; // of the headers, of the video stream, of the audio stream
    constexpr qint64 kToStreamType = 16;
    constexpr qint64 kFormat = 16;
    auto file = std::make_unique<QFile>(path);
    Open(*file);
    Groups groups(*file);
    if (!IsTag(groups.At(0), "RIFF")) {
        KeepOpen(std::move(file));
        return {};
    }
    qint64 at = kTag;
    for (int list = 0; list < kLists && at >= 0; ++list)
        at = groups.Behind("LIST", at);
    if (at < 0 || !IsTag(groups.At(at + kToStreamType), "AUDS"))
        return {};
    at = groups.Behind("STRF", at + kToStreamType + kTag);
    const QByteArrayView format = at < 0 ? QByteArrayView() : groups.At(at + kTag, kFormat); // behind the size
    return format.size() < kFormat ? WAVEFORMAT() : FormatFrom(format);
}

QString LookupVideoCodec(const QString& fourCC, const QString& catalogPath)
{
    const QString code = fourCC.left(fourCC.indexOf(QChar(u'\0'))).toUpper();
    return LookupCodec(u"VideoCodecs"_s, code, u"Unknown (fccHandler: "_s + code + u')', catalogPath);
}

QString LookupAudioCodec(std::int16_t formatTag, const QString& catalogPath)
{
    return LookupCodec(u"AudioCodecs"_s, int(formatTag), u"Unknown (Audio ID: "_s + QString::number(formatTag) + u')', catalogPath);
}

void SetBitrates(AVIDetails& details, double seconds)
{
    details.AudioBitrate = RoundToLong(details.audio.nAvgBytesPerSec / 125.0);
    details.VideoBitrate = RoundToLong(Quotient(static_cast<double>(details.FileSize) / 1024.0, seconds) * 8 - details.AudioBitrate);
}

QString FrameRateText(std::uint32_t rate, std::uint32_t scale)
{
    if (scale == 0)
        throw RuntimeError(kErrDivisionByZero);
    constexpr std::uint64_t kThousand = 1000;
    const std::uint64_t thousandths = (2 * kThousand * rate + scale) / (std::uint64_t(2) * scale);
    return QString::number(thousandths / kThousand) + u'.' + QString::number(thousandths % kThousand).rightJustified(3, u'0');
}

QString FileNameOf(const QString& path)
{
    return path.mid(std::max(path.lastIndexOf(u'/'), path.lastIndexOf(u'\\')) + 1);
}

} // namespace kelvado
