#include "web/transport/HttpAnswer.h"

#include <QList>

#include <algorithm>
#include <zlib.h>

namespace kelvado {

namespace {

constexpr int kFirstFinalStatus = 200;
constexpr int kNoContent = 204;
constexpr int kNotModified = 304;

// Unpacks by zlib; `windowBits` says which frame is expected. Nothing where the end of the packed bytes is missing.
std::optional<QByteArray> Unpack(const QByteArray& packed, int windowBits, qint64 most)
{
    z_stream stream{};
    if (inflateInit2(&stream, windowBits) != Z_OK)
        return std::nullopt;
    QByteArray bytes;
    QByteArray block(qsizetype(1) << 16, Qt::Uninitialized);
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.constData()));
    stream.avail_in = static_cast<uInt>(packed.size());
    int result = Z_OK;
    while (result == Z_OK && bytes.size() <= most) {
        stream.next_out = reinterpret_cast<Bytef*>(block.data());
        stream.avail_out = static_cast<uInt>(block.size());
        result = inflate(&stream, Z_NO_FLUSH);
        bytes.append(block.constData(), block.size() - static_cast<qsizetype>(stream.avail_out));
    }
    inflateEnd(&stream);
    return result == Z_STREAM_END && bytes.size() <= most ? std::optional(bytes) : std::nullopt;
}

} // namespace

bool HttpAnswer::Read(const QByteArray& bytes)
{
    if (m_state == State::Head)
        m_state = ReadHead(bytes);
    if (m_state == State::Counted)
        m_state = ReadCounted(bytes);
    else if (m_state == State::Chunks)
        m_state = ReadChunks(bytes);
    else if (m_state == State::UntilClose)
        m_state = ReadRest(bytes);
    return m_state == State::Done || m_state == State::Broken;
}

QByteArray HttpAnswer::Field(QByteArrayView name) const
{
    const QList<QByteArray> lines = m_head.split('\n');
    for (const QByteArray& line : lines) {
        const qsizetype colon = line.indexOf(':');
        if (colon == name.size() && name.compare(QByteArrayView(line).first(colon), Qt::CaseInsensitive) == 0)
            return line.sliced(colon + 1).trimmed();
    }
    return {};
}

std::optional<QByteArray> HttpAnswer::Body() const
{
    if (m_state != State::Done && m_state != State::UntilClose)
        return std::nullopt;
    const QByteArray packing = Field("content-encoding").toLower();
    if (packing.isEmpty() || packing == "identity" || m_body.isEmpty())
        return m_body;
    if (packing != "gzip" && packing != "x-gzip" && packing != "deflate")
        return std::nullopt;
    // "deflate" stands for two kinds of frames; servers send either.
    constexpr int kZlibOrGzip = MAX_WBITS + 32;
    constexpr int kBare = -MAX_WBITS;
    const std::optional<QByteArray> body = Unpack(m_body, kZlibOrGzip, m_largest);
    return body || packing != "deflate" ? body : Unpack(m_body, kBare, m_largest);
}

HttpAnswer::State HttpAnswer::ReadHead(const QByteArray& bytes)
{
    constexpr qsizetype kLongestHead = 65536;
    constexpr QByteArrayView kEnd("\r\n\r\n");
    for (;;) {
        const qsizetype end = bytes.indexOf(kEnd, m_at);
        if (end < 0)
            return bytes.size() - m_at > kLongestHead ? State::Broken : State::Head;
        m_head = bytes.sliced(m_at, end - m_at);
        m_at = end + kEnd.size();
        const qsizetype status = m_head.indexOf(' ') + 1;
        if (!m_head.startsWith("HTTP/") || status == 0)
            return State::Broken;
        bool isNumber = false;
        constexpr qsizetype kDigits = 3;
        m_status = m_head.mid(status, kDigits).toInt(&isNumber);
        if (!isNumber)
            return State::Broken;
        m_head.replace("\r\n", "\n");
        m_head.remove(0, m_head.contains('\n') ? m_head.indexOf('\n') + 1 : m_head.size());
        if (m_status >= kFirstFinalStatus)
            return KindOfBody();
        // A status below stands in front of the one that counts.
    }
}

HttpAnswer::State HttpAnswer::KindOfBody() const
{
    if (m_status == kNoContent || m_status == kNotModified)
        return State::Done;
    if (const QByteArray coding = Field("transfer-encoding").toLower(); !coding.isEmpty() && coding != "identity")
        return coding == "chunked" ? State::Chunks : State::Broken;
    return Field("content-length").isEmpty() ? State::UntilClose : State::Counted;
}

HttpAnswer::State HttpAnswer::ReadCounted(const QByteArray& bytes)
{
    bool isNumber = false;
    const qint64 length = Field("content-length").toLongLong(&isNumber);
    if (!isNumber || length < 0 || length > m_largest)
        return State::Broken;
    if (bytes.size() - m_at < length)
        return State::Counted;
    m_body = bytes.sliced(m_at, length);
    return State::Done;
}

HttpAnswer::State HttpAnswer::ReadChunks(const QByteArray& bytes)
{
    constexpr qsizetype kLongestSize = 1024; // with its extensions, which say nothing to us
    constexpr QByteArrayView kLineEnd("\r\n");
    for (;;) {
        const qsizetype lineEnd = bytes.indexOf(kLineEnd, m_at);
        if (lineEnd < 0)
            return bytes.size() - m_at > kLongestSize ? State::Broken : State::Chunks;
        bool isNumber = false;
        const QByteArray digits = bytes.sliced(m_at, lineEnd - m_at).split(';').constFirst().trimmed();
        const qint64 size = digits.toLongLong(&isNumber, 16);
        if (!isNumber || size < 0 || size > m_largest - m_body.size())
            return State::Broken;
        if (size == 0)
            return State::Done;
        const qsizetype data = lineEnd + kLineEnd.size();
        if (bytes.size() - data < size + kLineEnd.size())
            return State::Chunks;
        if (QByteArrayView(bytes).sliced(data + size, kLineEnd.size()) != kLineEnd)
            return State::Broken;
        m_body.append(bytes.constData() + data, size);
        m_at = data + size + kLineEnd.size();
    }
}

HttpAnswer::State HttpAnswer::ReadRest(const QByteArray& bytes)
{
    m_body.append(bytes.constData() + m_at, bytes.size() - m_at);
    m_at = bytes.size();
    return m_body.size() > m_largest ? State::Broken : State::UntilClose;
}

} // namespace kelvado
