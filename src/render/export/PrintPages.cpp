#include "render/export/PrintPages.h"

#include "core/Literals.h"
#include "core/RuntimeError.h"
#include "core/SafeFile.h"
#include "store/Recordset.h"

#include <array>

namespace kelvado {

namespace {

constexpr int kFilmsPerPage = 3;
constexpr std::size_t kMostActors = 2;
const QString kNone = u"N/A"_s;

struct PrintedFilm
{
    QString title, year, format, index, runtime, plot, picture;
    std::array<QString, kMostActors> actors;
};

PrintedFilm ReadPrinted(const Recordset& film, Connection& catalog)
{
    const auto valueOr = [&](QStringView column, const QString& otherwise) {
        const Value value = film[column].Get();
        return value.IsNull() ? otherwise : value.Text();
    };
    PrintedFilm printed;
    const Value title = film[u"TitleNY"].Get();
    printed.title = title.IsNull() ? film[u"Title"].Get().Text() : title.Text();
    printed.year = valueOr(u"Year", kNone);
    printed.format = valueOr(u"Format", kNone);
    printed.index = valueOr(u"Index", kNone);
    printed.runtime = valueOr(u"Runtime", kNone);
    printed.plot = valueOr(u"Plot", u"No Plot Summary Available"_s);
    printed.picture = valueOr(u"Image", QString());

    Recordset actors;
    actors.Open(u"SELECT Title,Actor FROM Actor WHERE Title = ?"_s, {Value(printed.title)}, catalog, LockType::ReadOnly);
    for (std::size_t i = 0; i < kMostActors && !actors.Eof(); ++i, actors.MoveNext())
        printed.actors[i] = actors[u"Actor"].Get().Text();
    return printed;
}

void Line(QString& html, const QString& text)
{
    html += text + u"\r\n"_s;
}

/// A row of the table of facts: a label or none, a value, and the second label with its value.
void FactRow(QString& html, const QString& label, const QString& value, const QString& secondLabel, const QString& secondValue)
{
    const auto cell = [&](const QString& text) {
        Line(html, u"<td><font face=\"Bookman Old Style\" size=\"2\">"_s + text + u"</font></td>"_s);
    };
    const auto labelCell = [&](const QString& text) {
        if (text.isEmpty())
            return Line(html, u"<td></td>"_s);
        Line(html, u"<td bgcolor=\"#EAEAEA\"><font face=\"Bookman Old Style\" size=\"2\">"_s + text + u"</font></td>"_s);
    };
    Line(html, u"<tr>"_s);
    labelCell(label);
    cell(value);
    labelCell(secondLabel);
    cell(secondValue);
    Line(html, u"</tr>"_s);
}

void FilmBlock(QString& html, const PrintedFilm& film)
{
    Line(html, u"<table width=\"647\" cellspacing=\"0\" cellpadding=\"2\" border=\"0\">"_s);
    Line(html, u"<tr bgcolor=\"#D1D1D1\">"_s);
    Line(html, u"<td valign=\"bottom\" width=\"90%\"><font size=\"4\" face=\"Bookman Old Style\">"_s + film.title + u"</font></td>"_s);
    Line(html, u"<td valign=\"bottom\" align=\"right\"><font face=\"Bookman Old Style\" size=\"4\">"_s + film.year + u"</font></td>"_s);
    Line(html, u"</tr>"_s);
    Line(html, u"</table>"_s);

    Line(html, u"<table width=\"650\" cellspacing=\"2\" cellpadding=\"2\" border=\"0\">"_s);
    Line(html, u"<tr>"_s);
    Line(html, u"<td width= \"145\"><img src = \""_s + film.picture +
                   u"\" width=\"169\" height=\"252\" alt=\"\" border=\"0\" align=\"\"></td>"_s);
    Line(html, u"<td valign=\"top\">"_s);
    Line(html, u"<table width=\"100%\" cellspacing=\"2\" cellpadding =\"2\" border=\"0\">"_s);
    FactRow(html, u"Staring : "_s, film.actors[0], u"Runtime : "_s, film.runtime);
    FactRow(html, QString(), film.actors[1], u" Format : "_s, film.format);
    FactRow(html, QString(), QString(), u" Index : "_s, film.index);
    Line(html, u"</table>"_s);
    Line(html, u"<table width=\"100%\" cellspacing=\"0\" cellpadding =\"2\" border=\"0\">"_s);
    Line(html, u"<tr>"_s);
    Line(html, u"<td bgcolor=\"#EAEAEA\"><font face=\"Bookman Old Style\" size=\"2\">Plot Summary :</font></td>"_s);
    Line(html, u"</tr>"_s);
    Line(html, u"<tr>"_s);
    Line(html, u"<td><font face=\"Bookman Old Style\" size=\"2\">"_s + film.plot + u"</font></td>"_s);
    Line(html, u"</tr>"_s);
    for (const QString& end : {u"</Table>"_s, u"</td>"_s, u"</tr>"_s, u"</table>"_s})
        Line(html, end);
}

} // namespace

QStringList WritePrintPages(const QString& catalog, const QString& folder)
{
    Connection connection = OpenCatalog(catalog);
    Recordset film;
    film.Open(u"SELECT * FROM Movie "_s, connection, LockType::ReadOnly);
    // The walk moves on before each film, so it begins behind the first one.
    if (!film.Eof())
        film.MoveNext();
    QStringList pages;
    while (!film.Eof()) {
        QString html;
        for (const QString& begin : {u"<html>"_s, u"<head>"_s, u"<title></title>"_s, u"</head>"_s, u"<body>"_s})
            Line(html, begin);
        for (int place = 0; place < kFilmsPerPage && !film.Eof(); ++place, film.MoveNext())
            FilmBlock(html, ReadPrinted(film, connection));
        pages << folder + u"/print%1.html"_s.arg(pages.size() + 1);
        WriteFileFast(pages.constLast(), html.toUtf8());
    }
    return pages;
}

} // namespace kelvado
