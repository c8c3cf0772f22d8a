#pragma once

#include <QByteArray>
#include <QtEndian>

#include <cstdint>

namespace kelvado {

/// An AVI file in bytes: headers and a few bytes of film.
struct AviBuilder
{
    struct Stream
    {
        QByteArray type, handler; ///< four characters each
        QByteArray format;        ///< of the `strf` chunk
        std::uint32_t scale = 1, rate = 25, length = 250;
    };

    static QByteArray Number(std::uint32_t value, qsizetype bytes = 4)
    {
        const std::uint32_t little = qToLittleEndian(value);
        return QByteArray(reinterpret_cast<const char*>(&little), bytes);
    }
    static QByteArray Chunk(const QByteArray& tag, const QByteArray& body)
    {
        return tag + Number(static_cast<std::uint32_t>(body.size())) + body + QByteArray(body.size() % 2, '\0');
    }
    static QByteArray List(const QByteArray& type, const QByteArray& body) { return Chunk("LIST", type + body); }

    static Stream Video(const QByteArray& handler = "XVID") { return {"vids", handler, QByteArray(40, 'v')}; }
    static Stream Audio(std::uint32_t tag = 85, std::uint32_t bytesPerSecond = 16000, std::uint32_t channels = 2)
    {
        return {"auds", QByteArray(4, '\0'),
                Number(tag, 2) + Number(channels, 2) + Number(44100) + Number(bytesPerSecond) + Number(4, 2) + Number(16, 2) + "more"};
    }

    QByteArray Bytes() const
    {
        QByteArray headers = Chunk("avih", QByteArray(32, '\0') + Number(640) + Number(480) + QByteArray(16, '\0')) + junk;
        for (const Stream& stream : streams)
            headers +=
                List("strl", Chunk("strh", stream.type + stream.handler + QByteArray(12, '\0') + Number(stream.scale) +
                                               Number(stream.rate) + QByteArray(4, '\0') + Number(stream.length) + QByteArray(20, '\0')) +
                                 Chunk("strf", stream.format));
        return Chunk("RIFF", "AVI " + List("hdrl", headers) + List("movi", QByteArray(200, 'm')));
    }

    QByteArray junk; ///< chunks between the main header and the streams
    QList<Stream> streams{Video(), Audio()};
};

} // namespace kelvado
