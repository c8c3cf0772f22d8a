#include "render/HtmlOutput.h"

#include "core/Literals.h"
#include "core/Paths.h"
#include "render/FilmValues.h"

#include <QFileInfo>
#include <QStringList>

#include <array>
#include <bitset>
#include <initializer_list>
#include <utility>

namespace kelvado {

namespace {

constexpr QLatin1StringView kNone = "N/A"_L1;
constexpr int kNumberedTokens = 50;

enum class ValueForm { Plain, YesNo, Date, SiteLink, SiteNumber };

struct FilmToken
{
    QLatin1StringView token;
    QLatin1StringView column;
    ValueForm kind = ValueForm::Plain;
};

// The order is behaviour: a value may hold the token of a later line, which is then replaced in its turn.
constexpr std::array<FilmToken, 40> kFilmTokens{{
    {"!!TITLE!!"_L1, "Title"_L1},
    {"!!TITLENY!!"_L1, "TitleNY"_L1},
    {"!!YEAR!!"_L1, "Year"_L1},
    {"!!GROUP!!"_L1, "Group"_L1},
    {"!!VOTES!!"_L1, "Votes"_L1},
    {"!!FORMAT!!"_L1, "Format"_L1},
    {"!!NUMBER!!"_L1, "Number"_L1},
    {"!!RUNTIME!!"_L1, "Runtime"_L1},
    {"!!PLOT!!"_L1, "Plot"_L1},
    {"!!INDEX!!"_L1, "Index"_L1},
    {"!!IMDB!!"_L1, "IMDB"_L1, ValueForm::SiteLink},
    {"!!IMDBNUM!!"_L1, "IMDB"_L1, ValueForm::SiteNumber},
    {"!!QUALITY!!"_L1, "Quality"_L1},
    {"!!RESOLUTION!!"_L1, "Resolution"_L1},
    {"!!AUDBITRATE!!"_L1, "audBitRate"_L1},
    {"!!VIDBITRATE!!"_L1, "vidBitRate"_L1},
    {"!!AUDTYPE!!"_L1, "AudType"_L1},
    {"!!VIDTYPE!!"_L1, "VidType"_L1},
    {"!!FILESIZE!!"_L1, "Filesize"_L1},
    {"!!LANGUAGE!!"_L1, "Language"_L1},
    {"!!SUBLANGUAGE!!"_L1, "SubLanguage"_L1},
    {"!!STUDIO!!"_L1, "Studio"_L1},
    {"!!FILENOTES!!"_L1, "FileNotes"_L1},
    {"!!COMMENTS!!"_L1, "Comments"_L1},
    {"!!CUSTOM1!!"_L1, "Custom1"_L1},
    {"!!CUSTOM2!!"_L1, "Custom2"_L1},
    {"!!CUSTOM3!!"_L1, "Custom3"_L1},
    {"!!SEENIT!!"_L1, "SeenIt"_L1, ValueForm::YesNo},
    {"!!SUBTITLES!!"_L1, "SubTitles"_L1, ValueForm::YesNo},
    {"!!REQUEST!!"_L1, "IsRequest"_L1, ValueForm::YesNo},
    {"!!COLOR!!"_L1, "Color"_L1},
    {"!!COUNTRY!!"_L1, "Country"_L1},
    {"!!PURCHASEPRICE!!"_L1, "PurchasePrice"_L1},
    {"!!PURCHASEDWHERE!!"_L1, "PurchasedWhere"_L1},
    {"!!LASTVIEWING!!"_L1, "LastViewing"_L1, ValueForm::Date},
    {"!!MYRATING!!"_L1, "MyRating"_L1},
    {"!!MYRATINGNOTES!!"_L1, "MyRatingNotes"_L1},
    {"!!URL1!!"_L1, "UserURL1"_L1},
    {"!!URL2!!"_L1, "UserURL2"_L1},
    {"!!TRAILERURL!!"_L1, "TrailerURL"_L1},
}};

constexpr QLatin1StringView kGenreQuery = "SELECT Movie.Movie_ID, Genre.Genre FROM (GenreLink INNER "
                                          "JOIN Genre ON GenreLink.Genre_ID = Genre.Genre_ID) INNER "
                                          "JOIN Movie ON GenreLink.Movie_ID = Movie.Movie_ID "
                                          "WHERE Movie.Movie_ID = "_L1;

constexpr QLatin1StringView kActorQuery = "SELECT ActorLink.Movie_ID, ActorLink.Character, Actor.Actor, Actor.Actor_ID"
                                          " FROM Actor INNER JOIN ActorLink ON Actor.Actor_ID"
                                          " = ActorLink.Actor_ID WHERE ActorLink.Movie_ID = "_L1;

struct CrewTokens
{
    const Crew& crew;
    QLatin1StringView stem;
};

constexpr CrewTokens kProducerTokens{kProducers, "!!PRODUCER"_L1};
constexpr CrewTokens kDirectorTokens{kDirectors, "!!DIRECTOR"_L1};
constexpr CrewTokens kWriterTokens{kWriters, "!!WRITER"_L1};

QString ValueOrNone(const Value& value)
{
    return value.IsNull() ? QString(kNone) : value.Text();
}

QString DateOrNone(const Value& value)
{
    const QString text = ValueOrNone(value);
    const std::optional<QDate> date = DateFromText(text);
    return date ? DateText(*date) : text;
}

QString TokenValue(ValueForm kind, const Value& value, const TokenSettings& settings)
{
    switch (kind) {
    case ValueForm::YesNo:
        return YesNo(value);
    case ValueForm::Date:
        return DateOrNone(value);
    case ValueForm::SiteLink:
        return value.IsNull() ? settings.siteAddress : settings.siteAddress + u"/Title?"_s + value.Text();
    case ValueForm::SiteNumber:
        return value.IsNull() ? QString() : value.Text();
    case ValueForm::Plain:
        break;
    }
    return ValueOrNone(value);
}

/// Replaces every occurrence of a token. Few characters of a page are exclamation marks, so going from one to the next takes a fraction of
/// what the toolkit's own search takes.
template<typename Token>
void ReplaceToken(QString& text, const Token& token, const QString& value)
{
    for (qsizetype at = text.indexOf(u'!'); at >= 0; at = text.indexOf(u'!', at)) {
        const QStringView rest = QStringView(text).sliced(at);
        if (rest.size() > 2 && rest[2] == token[2] && rest.startsWith(token)) {
            text.replace(at, token.size(), value);
            at += value.size();
        } else {
            ++at;
        }
    }
}

using HeldTokens = std::bitset<kFilmTokens.size()>;

/// Which film tokens stand in the text, in one pass: looking for each of them in turn would be most of an export's work.
HeldTokens FindFilmTokens(QStringView text)
{
    HeldTokens held;
    for (qsizetype at = text.indexOf("!!"_L1); at >= 0; at = text.indexOf(u'!', at + 1)) {
        const QStringView rest = text.sliced(at);
        if (rest.size() < 3 || rest[1] != u'!')
            continue;
        for (std::size_t i = 0; i < kFilmTokens.size(); ++i) {
            const QLatin1StringView token = kFilmTokens[i].token;
            if (token[2] == rest[2] && rest.startsWith(token))
                held.set(i);
        }
    }
    return held;
}

/// The path of a picture of the skin as the page names it. `folder` has the spelling of the film page.
QString PicturePath(const TokenSettings& settings, QLatin1StringView exportFolder, QLatin1StringView folder, QLatin1StringView name)
{
    if (settings.exported)
        return exportFolder + name;
    return PathForPage(FindFileCaseBlind(SkinFolder(settings.skin), folder + name));
}

void FillRated(QString& text, const Value& rated, const TokenSettings& settings)
{
    ReplaceToken(text, "!!RATEDTXT!!"_L1, ValueOrNone(rated));
    QLatin1StringView picture = CertificatePicture(rated);
    if (picture.isEmpty()) {
        // An exported page keeps the token for a certificate that nobody knows.
        if (settings.exported && !rated.IsNull())
            return;
        picture = kNoCertificate;
    }
    ReplaceToken(text, "!!RATEDIMG!!"_L1, PicturePath(settings, "Images\\"_L1, "/ratings/"_L1, picture));
}

QString BarTag(const TokenSettings& settings, QLatin1StringView name, QLatin1StringView end)
{
    return u"<IMG SRC=\""_s + PicturePath(settings, "Images\\RatingBar\\"_L1, "/RatingBar/"_L1, name) + end;
}

void FillRating(QString& text, const Value& rating, const TokenSettings& settings)
{
    const RatingPictures bar = RatingBarOf(rating);
    // Without a rating the tag does not close itself, unlike all others.
    const QLatin1StringView end = rating.IsNull() ? "\">"_L1 : "\"/>"_L1;
    QString tags;
    QString tag;
    QLatin1StringView last;
    for (const QLatin1StringView picture : bar.pictures) {
        if (picture != last)
            tag = BarTag(settings, last = picture, end);
        tags += tag;
    }
    if (bar.pictures.front() != kNoRatingBar)
        tags = u"<NOBR>"_s + tags + u"</NOBR>"_s;
    ReplaceToken(text, "!!RATINGBAR!!"_L1, tags);
    ReplaceToken(text, "!!RATING!!"_L1, ValueOrNone(rating));
}

QString NumberedToken(QLatin1StringView stem, qint64 number)
{
    return stem + QString::number(number) + "!!"_L1;
}

/// The number of the token of one of these stems that begins at `at`, and where it ends; -1 where none does.
std::pair<qint64, qsizetype> NumberedTokenAt(const QString& text, qsizetype at, std::initializer_list<QLatin1StringView> stems)
{
    const QStringView rest = QStringView(text).sliced(at);
    for (const QLatin1StringView stem : stems) {
        if (!rest.startsWith(stem))
            continue;
        const qsizetype end = rest.indexOf("!!"_L1, stem.size());
        const QStringView digits = end < 0 ? QStringView() : rest.sliced(stem.size(), end - stem.size());
        const qint64 number = digits.toLongLong();
        if (QString::number(number) == digits)
            return {number, at + end + 2};
    }
    return {-1, at};
}

/// Fills the tokens from the last used number up to 50, in one pass. The first of them is gone already, or is the number 0, which no page
/// uses.
void FillUnused(QString& text, std::initializer_list<QLatin1StringView> stems, qint64 used)
{
    QString filled;
    filled.reserve(text.size());
    qsizetype done = 0;
    for (qsizetype at = text.indexOf("!!"_L1); at >= 0; at = text.indexOf("!!"_L1, at)) {
        const auto [number, end] = NumberedTokenAt(text, at, stems);
        if (number < used || number > kNumberedTokens) {
            ++at;
            continue;
        }
        filled.append(QStringView(text).sliced(done, at - done)).append(kNone);
        done = at = end;
    }
    text = filled.append(QStringView(text).sliced(done));
}

/// Opens one of the queries above, whose end is the film's number. The number is bound, so that the next film finds the query prepared.
void OpenOfFilm(Recordset& rows, QLatin1StringView query, FilmId movieId, Connection& connection)
{
    rows.Open(query + u'?', {Value(movieId)}, connection, LockType::ReadOnly);
}

void FillCrewTokens(QString& text, Connection& connection, FilmId movieId, const CrewTokens& tokens)
{
    if (!text.contains(tokens.stem))
        return;
    Recordset rows;
    OpenOfFilm(rows, tokens.crew.query, movieId, connection);
    qint64 count = 0;
    if (!rows.Eof()) {
        const int column = rows.ColumnIndex(QString(tokens.crew.column));
        for (; !rows.Eof(); rows.MoveNext())
            ReplaceToken(text, NumberedToken(tokens.stem, ++count), rows.IsNull(column) ? QString(kNone) : rows.Text(column));
    }
    FillUnused(text, {tokens.stem}, count);
}

struct PictureCopy
{
    QLatin1StringView source; ///< below the skin's folder
    QLatin1StringView target;
};

void CopyPictures(const QString& skin, std::initializer_list<PictureCopy> pictures, const CopyIntoExport& copy)
{
    for (const PictureCopy& picture : pictures) {
        const QString source = FindFileCaseBlind(SkinFolder(skin), picture.source);
        if (QFileInfo::exists(source))
            copy(source, picture.target);
    }
}

} // namespace

void FillFilmTokens(QString& text, const Recordset& film, const TokenSettings& settings)
{
    HeldTokens held = FindFilmTokens(text);
    for (std::size_t i = 0; i < kFilmTokens.size(); ++i) {
        if (!held[i])
            continue;
        const FilmToken& token = kFilmTokens[i];
        const QString value = TokenValue(token.kind, film[QString(token.column)].Get(), settings);
        ReplaceToken(text, token.token, value);
        if (value.isEmpty() || value.contains(u'!'))
            held = FindFilmTokens(text); // the value has brought tokens along, or joined what stood around it to one
    }
    FillRated(text, film[u"Rated"].Get(), settings);
    FillRating(text, film[u"Rating"].Get(), settings);
}

void FillGenreToken(QString& text, Connection& connection, FilmId movieId)
{
    if (!text.contains("!!GENRE!!"_L1))
        return;
    Recordset rows;
    OpenOfFilm(rows, kGenreQuery, movieId, connection);
    QString genres;
    if (rows.Eof()) {
        genres = kNone;
    } else {
        const int column = rows.ColumnIndex(u"Genre");
        for (; !rows.Eof(); rows.MoveNext())
            genres += ", "_L1 + rows.Text(column);
        genres = TrimBlanks(genres);
        // Only the comma goes: templates are made for the blank behind it.
        genres.remove(0, 1);
    }
    ReplaceToken(text, "!!GENRE!!"_L1, genres);
}

void FillActorTokens(QString& text, Connection& connection, FilmId movieId)
{
    constexpr QLatin1StringView kActor = "!!ACTOR"_L1;
    constexpr QLatin1StringView kCharacter = "!!CHARACTER"_L1;
    if (!text.contains(kActor) && !text.contains(kCharacter))
        return;
    Recordset rows;
    OpenOfFilm(rows, kActorQuery, movieId, connection);
    qint64 count = 0;
    if (!rows.Eof()) {
        const int actor = rows.ColumnIndex(u"Actor");
        const int character = rows.ColumnIndex(u"Character");
        for (; !rows.Eof(); rows.MoveNext()) {
            ++count;
            ReplaceToken(text, NumberedToken(kActor, count), rows.Text(actor));
            ReplaceToken(text, NumberedToken(kCharacter, count), rows.Text(character));
        }
    }
    FillUnused(text, {kActor, kCharacter}, count);
}

void FillProducerTokens(QString& text, Connection& connection, FilmId movieId)
{
    FillCrewTokens(text, connection, movieId, kProducerTokens);
}

void FillDirectorTokens(QString& text, Connection& connection, FilmId movieId)
{
    FillCrewTokens(text, connection, movieId, kDirectorTokens);
}

void FillWriterTokens(QString& text, Connection& connection, FilmId movieId)
{
    FillCrewTokens(text, connection, movieId, kWriterTokens);
}

void FillLinkedTokens(QString& text, Connection& connection, FilmId movieId)
{
    FillGenreToken(text, connection, movieId);
    FillDirectorTokens(text, connection, movieId);
    FillWriterTokens(text, connection, movieId);
    FillActorTokens(text, connection, movieId);
    FillProducerTokens(text, connection, movieId);
}

void FillPageTokens(QString& text, qint64 page, qint64 pageCount, qint64 pageSize, qint64 filmCount)
{
    const auto address = [](qint64 number) { return u"index%1.html"_s.arg(number); };
    const QString none = u"#"_s;
    text.replace("!!NAVPREV!!"_L1, page == 1 ? none : address(page - 1));
    text.replace("!!NAVNEXT!!"_L1, page >= pageCount ? none : address(page + 1));
    text.replace("!!CURRENTPAGE!!"_L1, QString::number(page));
    text.replace("!!TOTALPAGES!!"_L1, QString::number(pageCount));
    text.replace("!!PAGESIZE!!"_L1, QString::number(pageSize));
    text.replace("!!TOTALFILMS!!"_L1, QString::number(filmCount));
}

void CopyRatingBarImages(const QString& skin, const CopyIntoExport& copy)
{
    // Exported pages name these pictures in a folder below this one and in another spelling; the names here are the ones in use.
    CopyPictures(skin,
                 {{"/ratingbar/barNA.Gif"_L1, "Images/BarNA.Gif"_L1},
                  {"/ratingbar/barleft.Gif"_L1, "Images/barleft.Gif"_L1},
                  {"/ratingbar/barright.Gif"_L1, "Images/barright.Gif"_L1},
                  {"/ratingbar/baryes.Gif"_L1, "Images/baryes.Gif"_L1},
                  {"/ratingbar/barno.Gif"_L1, "Images/barno.Gif"_L1},
                  {"/ratingbar/barhalf.Gif"_L1, "Images/barhalf.Gif"_L1}},
                 copy);
}

void CopyCertificateImages(const QString& skin, const CopyIntoExport& copy)
{
    CopyPictures(skin,
                 {{"/ratings/G.Gif"_L1, "Images/G.Gif"_L1},
                  {"/ratings/PG.Gif"_L1, "Images/PG.Gif"_L1},
                  {"/ratings/PG-13.Gif"_L1, "Images/PG-13.Gif"_L1},
                  {"/ratings/R.Gif"_L1, "Images/R.Gif"_L1},
                  {"/ratings/NC-17.Gif"_L1, "Images/NC-17.Gif"_L1},
                  {"/ratings/NA.Gif"_L1, "Images/NA.Gif"_L1}},
                 copy);
}

QString PathForPage(const QString& path)
{
    QString result = path;
    result.replace(u'\\', u'/');
    result.replace(u'%', "%25"_L1); // first, so that the others stay as they are written
    result.replace(u'#', "%23"_L1);
    result.replace(u'?', "%3F"_L1);
    result.replace(u'"', "%22"_L1);
    result.replace(u'&', "%26"_L1); // in an attribute it would begin an entity
    return result;
}

} // namespace kelvado
