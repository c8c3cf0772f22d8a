#pragma once

#include <QByteArray>
#include <QString>

#include <ostream>

// Failed expectations show texts as texts.

inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

inline void PrintTo(QStringView text, std::ostream* out)
{
    PrintTo(text.toString(), out);
}

inline void PrintTo(const QByteArray& bytes, std::ostream* out)
{
    *out << '"' << bytes.toPercentEncoding(" !\"#$&'()*+,/:;<=>?@[\\]^`{|}\r\n").toStdString() << '"';
}
