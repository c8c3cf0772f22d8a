#include "render/pages/PersonTokens.h"

#include "core/Literals.h"
#include "store/FilmHistory.h"

#include <QUrl>

#include <utility>

namespace kelvado {

namespace {

constexpr QLatin1StringView kNone = "N/A"_L1;

constexpr std::pair<QLatin1StringView, QLatin1StringView> kPersonTokens[] = {
    {"!!NAME!!"_L1, "Actor"_L1},
    {"!!BIRTHDATE!!"_L1, "BirthDate"_L1},
    {"!!BIRTHNAME!!"_L1, "BirthName"_L1},
    {"!!BIRTHLOCATION!!"_L1, "BirthLocation"_L1},
    {"!!HEIGHT!!"_L1, "Height"_L1},
    {"!!BIO!!"_L1, "Biography"_L1},
    {"!!COMMENTS!!"_L1, "User_Comments"_L1},
};

QString TextOrNone(const Recordset& row, QLatin1StringView column)
{
    const Field field = row[QString(column)];
    return field.IsNull() ? QString(kNone) : field.Get().Text();
}

/// A text of the film site as a page shows it: its character references stay, and no markup begins in it.
QString PlainText(QString text)
{
    return text.replace(u'<', "&lt;"_L1);
}

/// Any text as the value of an attribute between double quotes, which a page gives back as it was.
QString AttributeValue(QString text)
{
    text.replace(u'&', "&amp;"_L1);
    text.replace(u'"', "&quot;"_L1);
    text.replace(u'\r', "&#13;"_L1);
    return text.replace(u'\n', "&#10;"_L1);
}

QString HistoryLinks(const QString& history, const QString& siteAddress)
{
    QString links;
    for (const HistoryFilm& film : ReadFilmHistory(history)) {
        // The address stands without quotes, so that nothing but a number may follow it.
        links.append("<A HREF="_L1)
            .append(siteAddress)
            .append("/Title?"_L1)
            .append(QLatin1StringView(QUrl::toPercentEncoding(film.number)));
        links.append(" TARGET=\"_blank\">"_L1).append(PlainText(film.title)).append("</A><BR>"_L1);
    }
    return links;
}

} // namespace

void FillPersonTokens(QString& text, const Recordset& person, const QString& siteAddress)
{
    for (const auto& [token, column] : kPersonTokens)
        text.replace(token, TextOrNone(person, column).replace("</textarea"_L1, "&lt;/textarea"_L1, Qt::CaseInsensitive));
    const Field history = person[u"Film_History"];
    text.replace("!!HISTORY!!"_L1, history.IsNull() ? QString(kNone) : HistoryLinks(history.Get().Text(), siteAddress));
}

void FillInFilmToken(QString& text, Connection& connection, qint64 actorId, const FilmValueInTree& valueInTree)
{
    Recordset films;
    films.Open("SELECT Movie.Movie_ID, Movie.Title, Movie.Format, ActorLink.Character "
               "FROM Movie INNER JOIN (Actor INNER JOIN ActorLink ON Actor.Actor_ID = "
               "ActorLink.Actor_ID) ON Movie.Movie_ID = ActorLink.Movie_ID WHERE "
               "Actor.Actor_ID = "_L1 +
                   QString::number(actorId) + " ORDER BY Movie.Title"_L1,
               connection);
    QString rows;
    for (; !films.Eof(); films.MoveNext()) {
        rows.append("<tr bgcolor=\"#EAEAEA\"><td width=\"50%\"><a id=\""_L1);
        if (films.Text(2) == "Request"_L1) {
            rows.append("NA"_L1);
        } else {
            const QString value = valueInTree(films.Integer(0)).value_or(QString());
            rows.append("SendMessage:GOTO:"_L1).append(films.Text(0)).append(u':').append(AttributeValue(value));
        }
        rows.append("\" href=#>"_L1).append(PlainText(films.Text(1))).append("</a></td><td>"_L1);
        rows.append(films.IsNull(3) ? QString(kNone) : PlainText(films.Text(3))).append("</td></tr>"_L1);
    }
    text.replace("!!INFILM!!"_L1, rows);
}

} // namespace kelvado
