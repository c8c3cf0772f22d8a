#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

namespace kelvado {

/// One answer of a web server, read as its bytes come in.
class HttpAnswer
{
public:
    /// A longer body is none.
    explicit HttpAnswer(qint64 largestBody) : m_largest(largestBody) {}

    /// Reads on in the bytes of the connection; they begin as they did the last time. True where nothing more is of use: the answer has
    /// reached the end that its head tells, or it is none.
    bool Read(const QByteArray& bytes);

    int Status() const { return m_status; } ///< 0 where there is no answer
    /// The value of a field of the head, the name in small letters; "" where it is missing.
    QByteArray Field(QByteArrayView name) const;
    /// The body, unpacked where it came packed, once the other side has closed or `Read` was true. Nothing where it did not arrive whole
    /// or cannot be unpacked.
    std::optional<QByteArray> Body() const;

private:
    enum class State { Head, Counted, Chunks, UntilClose, Done, Broken };

    State ReadHead(const QByteArray& bytes);
    State KindOfBody() const;
    State ReadCounted(const QByteArray& bytes);
    State ReadChunks(const QByteArray& bytes);
    State ReadRest(const QByteArray& bytes);

    qint64 m_largest;
    State m_state = State::Head;
    qsizetype m_at = 0; ///< what lies in front of it is read
    int m_status = 0;
    QByteArray m_head; ///< its lines, with line feeds only, behind the status
    QByteArray m_body;
};

} // namespace kelvado
