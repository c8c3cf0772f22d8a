#pragma once

#include "core/Conversions.h"
#include "core/Literals.h"
#include "core/RuntimeError.h"

#include <QFile>
#include <QString>

#include <string_view>

namespace kelvado {

/// A stored page as the transport hands it on. Raises `kErrFileNotFound` where there is none of that name.
inline QString FetchedPage(std::string_view name)
{
    QFile file(u"" KELVADO_SOURCE_DIR "/tests/data/web/%1.html"_s.arg(QLatin1StringView(name)));
    if (!file.open(QIODevice::ReadOnly))
        throw RuntimeError::WithDetail(kErrFileNotFound, file.fileName());
    return FromWindows1252(file.readAll());
}

/// The credits page with a cast of `count` further people in front of the first one.
inline QString WithLargeCast(QString creditsPage, int count)
{
    QString rows;
    for (int i = 0; i < count; ++i) {
        rows.append(u"<tr><td valign=\"top\"><a href=\"/name/nm%1/\">Extra Number %2</a></td><td valign=\"top\" nowrap=\"1\"> "
                    ".... </td><td valign=\"top\">Townsman %2 (uncredited)</td></tr>"_s.arg(i + 1, 7, 10, QLatin1Char('0'))
                        .arg(i + 1));
    }
    const qsizetype cast = creditsPage.indexOf("Cast</b></a></td></tr>"_L1);
    return creditsPage.insert(cast + 22, rows);
}

} // namespace kelvado
