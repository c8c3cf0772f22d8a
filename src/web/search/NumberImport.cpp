#include "web/search/NumberImport.h"

#include "core/RuntimeError.h"
#include "web/readers/mIMDBTitleParse.h"

#include <QFile>

namespace kelvado {

QStringList ReadNumbers(const QString& path)
{
    constexpr qint64 kBlock = qint64(1) << 16;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw RuntimeError::WithDetail(kErrFileNotFound, path);
    QStringList numbers;
    QByteArray digits; // of the number that is being read; it may go on in the next block
    for (QByteArray block = file.read(kBlock); !block.isEmpty(); block = file.read(kBlock)) {
        for (const char c : block) {
            if (c < '0' || c > '9') {
                digits.clear();
                continue;
            }
            digits.append(c);
            if (digits.size() < kNumberDigits)
                continue;
            numbers << QString::fromLatin1(digits);
            digits.clear();
        }
    }
    if (file.error() != QFileDevice::NoError)
        throw RuntimeError::WithDetail(kErrFileAccess, path);
    return numbers;
}

} // namespace kelvado
