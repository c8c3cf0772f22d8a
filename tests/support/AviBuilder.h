#pragma once

#include <QByteArray>
#include <QtEndian>

#include <cstdint>

namespace kelvado {

/// An AVI file in bytes, of headers and a few bytes of film, with everything that a test may want to be otherwise.
struct AviBuilder
{
    struct Stream
    {
        QByteArray type, handler; ///< four characters each
        std::uint32_t scale = 1, rate = 25, length = 250;
        QByteArray format; ///< of the `strf` chunk
    };

    static QByteArray Number(std::uint32_t value, qsizetype bytes = 4)
    {
        QByteArray little(4, '\0');
        qToLittleEndian(value, little.data());
        return little.left(bytes);
    }
    /// Padded to an even size, which the chunk does not tell.
    static QByteArray Chunk(const QByteArray& tag, const QByteArray& body)
    {
        return tag + Number(static_cast<std::uint32_t>(body.size())) + body + QByteArray(body.size() % 2, '\0');
    }
    static QByteArray List(const QByteArray& type, const QByteArray& body) { return Chunk("LIST", type + body); }

    static Stream Video(const QByteArray& handler = "XVID") { return {.type = "vids", .handler = handler, .format = QByteArray(40, 'v')}; }
    static Stream Audio(std::int16_t tag = 85, std::uint32_t bytesPerSecond = 16000, std::uint32_t channels = 2)
    {
        return {.type = "auds",
                .handler = QByteArray(4, '\0'),
                .format = Number(std::uint16_t(tag), 2) + Number(channels, 2) + Number(44100) + Number(bytesPerSecond) + Number(4, 2) +
                          Number(16, 2) + "more"};
    }

    QByteArray StreamList(const Stream& stream) const
    {
        const QByteArray header = stream.type + stream.handler + QByteArray(12, '\0') + Number(stream.scale) + Number(stream.rate) +
                                  QByteArray(4, '\0') + Number(stream.length) + QByteArray(20, '\0');
        return List("strl", Chunk("strh", header) + Chunk("strf", stream.format));
    }
    QByteArray Bytes() const
    {
        QByteArray lists;
        for (const Stream& stream : streams)
            lists += StreamList(stream);
        const QByteArray main = QByteArray(32, '\0') + Number(width) + Number(height) + QByteArray(16, '\0');
        return Chunk("RIFF", "AVI " + List("hdrl", Chunk("avih", main) + junk + lists) + List("movi", QByteArray(200, 'm')));
    }

    std::uint32_t width = 640, height = 480;
    QByteArray junk; ///< chunks between the main header and the streams
    QList<Stream> streams{Video(), Audio()};
};

} // namespace kelvado
