#include "render/HtmlOutput.h"

#include "core/Paths.h"
#include "core/RuntimeError.h"
#include "core/SafeFile.h"
#include "store/mFileAccess.h"

#include <QFileInfo>
#include <QStringList>

#include <array>
#include <utility>

namespace kelvado {

namespace {

constexpr QLatin1StringView kNone("N/A");
constexpr int kNumberedTokens = 50;

enum class TokenKind { Plain, YesNo, Date, SiteLink, SiteNumber };

struct FilmToken
{
    QLatin1StringView token;
    QLatin1StringView column;
    TokenKind kind = TokenKind::Plain;
};

// The order is behaviour: a value may hold the token of a later line, which is then replaced in its turn.
constexpr std::array<FilmToken, 40> kFilmTokens{{
    {QLatin1StringView("!!TITLE!!"), QLatin1StringView("Title")},
    {QLatin1StringView("!!TITLENY!!"), QLatin1StringView("TitleNY")},
    {QLatin1StringView("!!YEAR!!"), QLatin1StringView("Year")},
    {QLatin1StringView("!!GROUP!!"), QLatin1StringView("Group")},
    {QLatin1StringView("!!VOTES!!"), QLatin1StringView("Votes")},
    {QLatin1StringView("!!FORMAT!!"), QLatin1StringView("Format")},
    {QLatin1StringView("!!NUMBER!!"), QLatin1StringView("Number")},
    {QLatin1StringView("!!RUNTIME!!"), QLatin1StringView("Runtime")},
    {QLatin1StringView("!!PLOT!!"), QLatin1StringView("Plot")},
    {QLatin1StringView("!!INDEX!!"), QLatin1StringView("Index")},
    {QLatin1StringView("!!IMDB!!"), QLatin1StringView("IMDB"), TokenKind::SiteLink},
    {QLatin1StringView("!!IMDBNUM!!"), QLatin1StringView("IMDB"), TokenKind::SiteNumber},
    {QLatin1StringView("!!QUALITY!!"), QLatin1StringView("Quality")},
    {QLatin1StringView("!!RESOLUTION!!"), QLatin1StringView("Resolution")},
    {QLatin1StringView("!!AUDBITRATE!!"), QLatin1StringView("audBitRate")},
    {QLatin1StringView("!!VIDBITRATE!!"), QLatin1StringView("vidBitRate")},
    {QLatin1StringView("!!AUDTYPE!!"), QLatin1StringView("AudType")},
    {QLatin1StringView("!!VIDTYPE!!"), QLatin1StringView("VidType")},
    {QLatin1StringView("!!FILESIZE!!"), QLatin1StringView("Filesize")},
    {QLatin1StringView("!!LANGUAGE!!"), QLatin1StringView("Language")},
    {QLatin1StringView("!!SUBLANGUAGE!!"), QLatin1StringView("SubLanguage")},
    {QLatin1StringView("!!STUDIO!!"), QLatin1StringView("Studio")},
    {QLatin1StringView("!!FILENOTES!!"), QLatin1StringView("FileNotes")},
    {QLatin1StringView("!!COMMENTS!!"), QLatin1StringView("Comments")},
    {QLatin1StringView("!!CUSTOM1!!"), QLatin1StringView("Custom1")},
    {QLatin1StringView("!!CUSTOM2!!"), QLatin1StringView("Custom2")},
    {QLatin1StringView("!!CUSTOM3!!"), QLatin1StringView("Custom3")},
    {QLatin1StringView("!!SEENIT!!"), QLatin1StringView("SeenIt"), TokenKind::YesNo},
    {QLatin1StringView("!!SUBTITLES!!"), QLatin1StringView("SubTitles"), TokenKind::YesNo},
    {QLatin1StringView("!!REQUEST!!"), QLatin1StringView("IsRequest"), TokenKind::YesNo},
    {QLatin1StringView("!!COLOR!!"), QLatin1StringView("Color")},
    {QLatin1StringView("!!COUNTRY!!"), QLatin1StringView("Country")},
    {QLatin1StringView("!!PURCHASEPRICE!!"), QLatin1StringView("PurchasePrice")},
    {QLatin1StringView("!!PURCHASEDWHERE!!"), QLatin1StringView("PurchasedWhere")},
    {QLatin1StringView("!!LASTVIEWING!!"), QLatin1StringView("LastViewing"), TokenKind::Date},
    {QLatin1StringView("!!MYRATING!!"), QLatin1StringView("MyRating")},
    {QLatin1StringView("!!MYRATINGNOTES!!"), QLatin1StringView("MyRatingNotes")},
    {QLatin1StringView("!!URL1!!"), QLatin1StringView("UserURL1")},
    {QLatin1StringView("!!URL2!!"), QLatin1StringView("UserURL2")},
    {QLatin1StringView("!!TRAILERURL!!"), QLatin1StringView("TrailerURL")},
}};

struct Certificate
{
    QLatin1StringView rated;
    QLatin1StringView picture;
};

constexpr std::array<Certificate, 5> kCertificates{{
    {QLatin1StringView("G"), QLatin1StringView("G.Gif")},
    {QLatin1StringView("PG"), QLatin1StringView("PG.Gif")},
    {QLatin1StringView("PG-13"), QLatin1StringView("PG-13.Gif")},
    {QLatin1StringView("R"), QLatin1StringView("R.Gif")},
    {QLatin1StringView("NC17"), QLatin1StringView("NC-17.Gif")},
}};
constexpr QLatin1StringView kNoCertificate("NA.Gif");

constexpr QLatin1StringView kGenreQuery("SELECT Movie.Movie_ID, Genre.Genre FROM (GenreLink INNER "
                                        "JOIN Genre ON GenreLink.Genre_ID = Genre.Genre_ID) INNER "
                                        "JOIN Movie ON GenreLink.Movie_ID = Movie.Movie_ID "
                                        "WHERE Movie.Movie_ID = ");

constexpr QLatin1StringView kActorQuery("SELECT ActorLink.Movie_ID, ActorLink.Character, Actor.Actor, Actor.Actor_ID"
                                        " FROM Actor INNER JOIN ActorLink ON Actor.Actor_ID"
                                        " = ActorLink.Actor_ID WHERE ActorLink.Movie_ID = ");

struct Crew
{
    QLatin1StringView query;
    QLatin1StringView column;
    QLatin1StringView stem;
};

constexpr Crew kProducers{QLatin1StringView("SELECT Producer.*, ProducerLink.* FROM Producer INNER JOIN "
                                            "ProducerLink ON Producer.Producer_ID = ProducerLink.Producer_ID "
                                            "WHERE ProducerLink.Movie_ID  = "),
                          QLatin1StringView("Producer"), QLatin1StringView("!!PRODUCER")};
constexpr Crew kDirectors{QLatin1StringView("SELECT Director.*, DirectorLink.* FROM Director INNER JOIN "
                                            "DirectorLink ON Director.Director_ID = DirectorLink.Director_ID "
                                            "WHERE DirectorLink.Movie_ID  = "),
                          QLatin1StringView("Director"), QLatin1StringView("!!DIRECTOR")};
constexpr Crew kWriters{QLatin1StringView("SELECT Writer.*, WriterLink.* FROM Writer INNER JOIN "
                                          "WriterLink ON Writer.Writer_ID = WriterLink.Writer_ID "
                                          "WHERE WriterLink.Movie_ID  = "),
                        QLatin1StringView("Writer"), QLatin1StringView("!!WRITER")};

bool IsDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

QString ValueOrNone(const Value& value)
{
    return value.IsNull() ? QString(kNone) : value.Text();
}

/// "No" for 0 and a text that reads as 0, "Yes" for everything else, Null included.
QString YesNo(const Value& value)
{
    const bool isNumber = !value.IsNull() && (!value.IsText() || IsNumeric(value.Text()));
    return isNumber && value.Number() == 0 ? QStringLiteral("No") : QStringLiteral("Yes");
}

QString DateOrNone(const Value& value)
{
    const QString text = ValueOrNone(value);
    const std::optional<QDate> date = DateFromText(text);
    return date ? DateText(*date) : text;
}

QString TokenValue(TokenKind kind, const Value& value, const TokenSettings& settings)
{
    switch (kind) {
    case TokenKind::YesNo:
        return YesNo(value);
    case TokenKind::Date:
        return DateOrNone(value);
    case TokenKind::SiteLink:
        return value.IsNull() ? settings.siteAddress : settings.siteAddress + QStringLiteral("/Title?") + value.Text();
    case TokenKind::SiteNumber:
        return value.IsNull() ? QString() : value.Text();
    case TokenKind::Plain:
        break;
    }
    return ValueOrNone(value);
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
    text.replace(QLatin1StringView("!!RATEDTXT!!"), ValueOrNone(rated));
    QLatin1StringView picture;
    for (const Certificate& certificate : kCertificates) {
        if (!rated.IsNull() && rated.Text() == certificate.rated)
            picture = certificate.picture;
    }
    if (picture.isEmpty()) {
        // An exported page keeps the token for a certificate that nobody knows.
        if (settings.exported && !rated.IsNull())
            return;
        picture = kNoCertificate;
    }
    text.replace(QLatin1StringView("!!RATEDIMG!!"),
                 PicturePath(settings, QLatin1StringView("Images\\"), QLatin1StringView("/ratings/"), picture));
}

QString BarTag(const TokenSettings& settings, QLatin1StringView name, QLatin1StringView end)
{
    return QStringLiteral("<IMG SRC=\"") +
           PicturePath(settings, QLatin1StringView("Images\\RatingBar\\"), QLatin1StringView("/RatingBar/"), name) + end;
}

/// The bar of a rating such as "7.4". Only its first and its last character count, so "10" draws one segment. A last digit of exactly 5
/// draws neither a half nor an empty segment, and the bar is one segment shorter.
QString RatingBar(const QString& rating, const TokenSettings& settings)
{
    constexpr QLatin1StringView kEnd("\"/>");
    if (!IsDigit(rating.back()))
        throw RuntimeError(kErrTypeMismatch);
    const int whole = rating.front().digitValue();
    const int last = rating.back().digitValue();
    const QString empty = BarTag(settings, QLatin1StringView("barNo.gif"), kEnd);

    QString bar = QStringLiteral("<NOBR>");
    bar += BarTag(settings, QLatin1StringView("barLeft.gif"), kEnd);
    bar += BarTag(settings, QLatin1StringView("barYes.gif"), kEnd).repeated(whole);
    if (last > 5)
        bar += BarTag(settings, QLatin1StringView("barHalf.gif"), kEnd);
    else if (last < 5)
        bar += empty;
    bar += empty.repeated(9 - whole);
    bar += BarTag(settings, QLatin1StringView("barRight.gif"), kEnd);
    bar += QLatin1StringView("</NOBR>");
    return bar;
}

void FillRating(QString& text, const Value& rating, const TokenSettings& settings)
{
    const QString value = ValueOrNone(rating);
    QString bar;
    if (rating.IsNull())
        bar = BarTag(settings, QLatin1StringView("barna.gif"), QLatin1StringView("\">"));
    else if (value.isEmpty() || !IsDigit(value.front()))
        bar = BarTag(settings, QLatin1StringView("barna.gif"), QLatin1StringView("\"/>"));
    else
        bar = RatingBar(value, settings);
    text.replace(QLatin1StringView("!!RATINGBAR!!"), bar);
    text.replace(QLatin1StringView("!!RATING!!"), value);
}

QString NumberedToken(QLatin1StringView stem, qint64 number)
{
    return stem + QString::number(number) + QLatin1StringView("!!");
}

/// Fills the tokens from the last used number up to 50. The first of them is gone already, or is the number 0, which no page uses.
void FillUnused(QString& text, std::initializer_list<QLatin1StringView> stems, qint64 used)
{
    for (qint64 number = used; number <= kNumberedTokens; ++number) {
        for (const QLatin1StringView stem : stems)
            text.replace(NumberedToken(stem, number), kNone);
    }
}

void FillCrewTokens(QString& text, Connection& connection, const QString& movieId, const Crew& crew)
{
    Recordset rows;
    rows.Open(crew.query + movieId, connection);
    qint64 count = 0;
    if (!rows.Eof()) {
        const int column = rows.ColumnIndex(QString(crew.column));
        for (; !rows.Eof(); rows.MoveNext())
            text.replace(NumberedToken(crew.stem, ++count), rows.IsNull(column) ? QString(kNone) : rows.Text(column));
    }
    FillUnused(text, {crew.stem}, count);
}

} // namespace

void FillFilmTokens(QString& text, const Recordset& film, const TokenSettings& settings)
{
    for (const FilmToken& token : kFilmTokens)
        text.replace(token.token, TokenValue(token.kind, film[QString(token.column)].Get(), settings));
    FillRated(text, film[u"Rated"].Get(), settings);
    FillRating(text, film[u"Rating"].Get(), settings);
}

void FillGenreToken(QString& text, Connection& connection, const QString& movieId)
{
    Recordset rows;
    rows.Open(kGenreQuery + movieId, connection);
    QString genres;
    if (rows.Eof()) {
        genres = kNone;
    } else {
        const int column = rows.ColumnIndex(u"Genre");
        for (; !rows.Eof(); rows.MoveNext())
            genres += QLatin1StringView(", ") + rows.Text(column);
        genres = genres.trimmed();
        // Only the comma goes: templates are made for the blank behind it.
        genres.remove(0, 1);
    }
    text.replace(QLatin1StringView("!!GENRE!!"), genres);
}

void FillActorTokens(QString& text, Connection& connection, const QString& movieId)
{
    constexpr QLatin1StringView kActor("!!ACTOR");
    constexpr QLatin1StringView kCharacter("!!CHARACTER");
    Recordset rows;
    rows.Open(kActorQuery + movieId, connection);
    qint64 count = 0;
    if (!rows.Eof()) {
        const int actor = rows.ColumnIndex(u"Actor");
        const int character = rows.ColumnIndex(u"Character");
        for (; !rows.Eof(); rows.MoveNext()) {
            ++count;
            text.replace(NumberedToken(kActor, count), rows.Text(actor));
            text.replace(NumberedToken(kCharacter, count), rows.Text(character));
        }
    }
    FillUnused(text, {kActor, kCharacter}, count);
}

void FillProducerTokens(QString& text, Connection& connection, const QString& movieId)
{
    FillCrewTokens(text, connection, movieId, kProducers);
}

void FillDirectorTokens(QString& text, Connection& connection, const QString& movieId)
{
    FillCrewTokens(text, connection, movieId, kDirectors);
}

void FillWriterTokens(QString& text, Connection& connection, const QString& movieId)
{
    FillCrewTokens(text, connection, movieId, kWriters);
}

void FillPageTokens(QString& text, qint64 page, qint64 pageCount, qint64 pageSize, qint64 filmCount)
{
    const auto address = [](qint64 number) { return QStringLiteral("index%1.html").arg(number); };
    const QString none = QStringLiteral("#");
    text.replace(QLatin1StringView("!!NAVPREV!!"), page == 1 ? none : address(page - 1));
    text.replace(QLatin1StringView("!!NAVNEXT!!"), page >= pageCount ? none : address(page + 1));
    text.replace(QLatin1StringView("!!CURRENTPAGE!!"), QString::number(page));
    text.replace(QLatin1StringView("!!TOTALPAGES!!"), QString::number(pageCount));
    text.replace(QLatin1StringView("!!PAGESIZE!!"), QString::number(pageSize));
    text.replace(QLatin1StringView("!!TOTALFILMS!!"), QString::number(filmCount));
}

void CopyRatingBarImages(const QString& skin)
{
    struct Copy
    {
        QLatin1StringView source;
        QLatin1StringView target;
    };
    // Exported pages name these pictures in a folder below this one and in another spelling; the names here are the ones in use.
    static constexpr std::array<Copy, 6> kCopies{{
        {QLatin1StringView("/ratingbar/barNA.Gif"), QLatin1StringView("BarNA.Gif")},
        {QLatin1StringView("/ratingbar/barleft.Gif"), QLatin1StringView("barleft.Gif")},
        {QLatin1StringView("/ratingbar/barright.Gif"), QLatin1StringView("barright.Gif")},
        {QLatin1StringView("/ratingbar/baryes.Gif"), QLatin1StringView("baryes.Gif")},
        {QLatin1StringView("/ratingbar/barno.Gif"), QLatin1StringView("barno.Gif")},
        {QLatin1StringView("/ratingbar/barhalf.Gif"), QLatin1StringView("barhalf.Gif")},
    }};
    const QString images = AppPath() + QStringLiteral("/Export/Web/Images");
    MakeDirs(images);
    for (const Copy& copy : kCopies) {
        const QString source = FindFileCaseBlind(SkinFolder(skin), copy.source);
        if (QFileInfo::exists(source))
            CopyFileWhole(source, images + u'/' + copy.target);
    }
}

QString PathForPage(const QString& path)
{
    QString result = path;
    result.replace(u'\\', u'/');
    result.replace(u'%', QLatin1StringView("%25")); // first, so that the others stay as they are written
    result.replace(u'#', QLatin1StringView("%23"));
    result.replace(u'?', QLatin1StringView("%3F"));
    result.replace(u'"', QLatin1StringView("%22"));
    result.replace(u'&', QLatin1StringView("%26")); // in an attribute it would begin an entity
    return result;
}

} // namespace kelvado
