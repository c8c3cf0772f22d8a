#include "render/Pages.h"

#include "core/Conversions.h"
#include "core/NodeKey.h"
#include "core/Paths.h"
#include "core/Profile.h"
#include "core/RuntimeError.h"
#include "render/HtmlOutput.h"
#include "render/SiteAddress.h"
#include "store/FilmRecord.h"
#include "store/mDBConnection.h"
#include "store/mFileAccess.h"

#include <QFileInfo>

#include <array>

namespace kelvado {

namespace {

constexpr int kPictures = 25;
constexpr int kPages = 10;
constexpr QLatin1StringView kFilmQuery("SELECT * FROM Movie WHERE Movie_ID = ");
constexpr QLatin1StringView kMessage("SendMessage:");

struct CreditToken
{
    QLatin1StringView token;
    QString (*value)(const FilmPerson& person, const QString& siteAddress);
};

QString PersonName(const FilmPerson& person, const QString&)
{
    return person.Name;
}
QString PersonCharacter(const FilmPerson& person, const QString&)
{
    return person.Character;
}
QString PersonExtended(const FilmPerson& person, const QString&)
{
    return person.Extended;
}
QString ActorMessage(const FilmPerson& person, const QString&)
{
    return kMessage + QLatin1StringView("ACTORID:") + QString::number(person.ID);
}
QString WriterMessage(const FilmPerson& person, const QString&)
{
    return kMessage + QLatin1StringView("WRITERID:") + QString::number(person.ID);
}
QString PersonAddress(const FilmPerson& person, const QString& siteAddress)
{
    return siteAddress + person.IMDB_Link;
}

struct CreditBlock
{
    QLatin1StringView start;
    QLatin1StringView end;
    QList<FilmPerson> FilmRecord::*people;
    std::array<CreditToken, 4> tokens;
};

// Templates rely on the odd ones among these: a writer's link is called `!!ACTORNAV!!`, and a director sends a writer's message.
constexpr std::array<CreditBlock, 3> kCreditBlocks{{
    {QLatin1StringView("<!--START_ACTOR_CREDIT-->"),
     QLatin1StringView("<!--END_ACTOR_CREDIT-->"),
     &FilmRecord::Actors,
     {{{QLatin1StringView("!!ACTOR!!"), PersonName},
       {QLatin1StringView("!!CHARACTER!!"), PersonCharacter},
       {QLatin1StringView("!!ACTORNAV!!"), ActorMessage},
       {QLatin1StringView("!!ACTORIMDB!!"), PersonAddress}}}},
    {QLatin1StringView("<!--START_WRITER_CREDIT-->"),
     QLatin1StringView("<!--END_WRITER_CREDIT-->"),
     &FilmRecord::Writers,
     {{{QLatin1StringView("!!WRITER!!"), PersonName},
       {QLatin1StringView("!!EXTENDED!!"), PersonExtended},
       {QLatin1StringView("!!ACTORNAV!!"), WriterMessage},
       {QLatin1StringView("!!WRITERIMDB!!"), PersonAddress}}}},
    {QLatin1StringView("<!--START_DIRECTOR_CREDIT-->"),
     QLatin1StringView("<!--END_DIRECTOR_CREDIT-->"),
     &FilmRecord::Directors,
     {{{QLatin1StringView("!!DIRECTOR!!"), PersonName},
       {QLatin1StringView("!!EXTENDED!!"), PersonExtended},
       {QLatin1StringView("!!DIRECTORNAV!!"), WriterMessage},
       {QLatin1StringView("!!DIRECTORIMDB!!"), PersonAddress}}}},
}};

/// Puts one copy of the block for each person in the block's place. A text without both markers is left as it is.
void FillCreditBlock(QString& text, const CreditBlock& block, const FilmRecord& film, const QString& siteAddress)
{
    const qsizetype start = text.indexOf(block.start);
    const qsizetype end = start < 0 ? -1 : text.indexOf(block.end, start);
    if (end < 0)
        return;
    const qsizetype length = end + block.end.size() - start;
    QString fragment = text.mid(start, length);
    // The actors' markers go from every block; those of the other two stay in the page as comments.
    fragment.remove(kCreditBlocks.front().start);
    fragment.remove(kCreditBlocks.front().end);

    QString copies;
    for (const FilmPerson& person : film.*block.people) {
        QString copy = fragment;
        for (const CreditToken& token : block.tokens)
            copy.replace(token.token, token.value(person, siteAddress));
        copies += copy;
    }
    text.replace(start, length, copies);
}

QString FilmNumber(const QString& key)
{
    return QString::number(ToLong(KeyPart(key, 0)));
}

} // namespace

bool Pages::SkinIsXml() const
{
    return ReadProfileValue(QStringLiteral("Template"), QStringLiteral("Type"), SkinFile(QLatin1StringView("skin.ini"))) ==
           QLatin1StringView("XML");
}

QString Pages::SkinFile(QLatin1StringView name) const
{
    return FindFileCaseBlind(SkinFolder(m_state.skin), name);
}

/// Nothing for a missing file, which the user is told.
std::optional<QString> Pages::ReadTemplate(QLatin1StringView name) const
{
    const QString path = SkinFile(name);
    const bool exists = QFileInfo::exists(path);
    QString text = ReadWholeFile(path, m_dialogs);
    return exists ? std::optional(std::move(text)) : std::nullopt;
}

/// The path of the picture as a page names it. Number 0 and a picture that the catalog has lost show the skin's stand-in.
QString Pages::PictureFor(std::int64_t imageId, Connection& connection)
{
    if (imageId != 0) {
        m_pictureCounter = m_pictureCounter % kPictures + 1;
        MakeDirs(TempFolder());
        QString path = TempFolder() + QStringLiteral("/MImage") + QString::number(m_pictureCounter);
        try {
            return PathForPage(ExportImageFile(path, QString::number(imageId), connection));
        } catch (const RuntimeError& error) {
            if (error.Number() != kErrNoCurrentRecord)
                throw;
        }
    }
    return PathForPage(SkinFile(QLatin1StringView("No Image.jpg")));
}

void Pages::ShowFilmPage()
{
    const QString movieId = FilmNumber(m_host.SelectedKey());
    Connection connection;
    connection.Open(ConnectionString(m_state.CatalogPath()));
    Recordset film;
    film.Open(kFilmQuery + movieId, connection);
    if (SkinIsXml()) {
        throw RuntimeError::WithDetail(kErrInvalidCall,
                                       QStringLiteral("the skin \"%1\" shows films as XML, which is not supported").arg(m_state.skin));
    }
    std::optional<QString> text = ReadTemplate(QLatin1StringView("Templates/default.html"));
    if (!text)
        return;
    text->replace(QLatin1StringView("!!IMAGE!!"), PictureFor(film.Integer(film.ColumnIndex(u"Image_ID")), connection));
    text->replace(QLatin1StringView("!!IMAGEBACK!!"), PictureFor(film.Integer(film.ColumnIndex(u"ImageBack_ID")), connection));
    FillFilmTokens(*text, film, {m_state.skin, SiteAddress(SettingsFile())});
    film.Close();
    FillGenreToken(*text, connection, movieId);
    FillDirectorTokens(*text, connection, movieId);
    FillWriterTokens(*text, connection, movieId);
    FillActorTokens(*text, connection, movieId);
    FillProducerTokens(*text, connection, movieId);
    text->replace(QLatin1StringView("!!NAVCREDITS!!"), kMessage + QLatin1StringView("PAGE_CREDITS:") + movieId);
    connection.Close();
    WritePageFile(*text, false);
}

QString Pages::ShowCreditsPage(const QString& movieId)
{
    const std::int32_t number = ToLong(movieId);
    if (SkinIsXml())
        return WritePageFile(QString(), true);

    const QString path = SkinFile(QLatin1StringView("Templates/credits.html"));
    QString text = QFileInfo::exists(path) ? ReadWholeFile(path, m_dialogs) : QString();
    if (text.isEmpty()) {
        m_dialogs.MessageBox(QStringLiteral("The credits template file for skin ") + m_state.skin +
                                 QStringLiteral(" could not be located.  Please contact Kelvado support."),
                             kBoxCritical, QStringLiteral("Credits Page Error"));
        return QString();
    }
    const FilmRecord film = ReadFilm(number, m_state.CatalogPath());
    const QString siteAddress = SiteAddress(SettingsFile());
    for (const CreditBlock& block : kCreditBlocks)
        FillCreditBlock(text, block, film, siteAddress);
    return WritePageFile(text, false);
}

void Pages::ShowNfoPage()
{
    Connection connection;
    connection.Open(ConnectionString(m_state.CatalogPath()));
    Recordset film;
    film.Open(kFilmQuery + FilmNumber(m_host.SelectedKey()), connection);
    std::optional<QString> text = ReadTemplate(QLatin1StringView("Templates/nfo.html"));
    if (!text)
        return;
    const Value nfo = film[u"Nfo"].Get();
    film.Close();
    connection.Close();
    text->replace(QLatin1StringView("!!NFO!!"), nfo.IsNull() ? QStringLiteral("N/A") : nfo.Text());
    const QString path = AppPath() + QStringLiteral("/htmltemp.html");
    WriteWholeFile(path, *text);
    m_host.Navigate(path);
}

QString Pages::WritePageFile(const QString& text, bool xml)
{
    const QString name = QStringLiteral("htmltemp%1.%2").arg(m_pageCounter).arg(xml ? QLatin1StringView("xml") : QLatin1StringView("html"));
    QString path = TempFolder() + u'/' + name;
    MakeDirs(TempFolder());
    WriteWholeFile(path, text);
    m_shell.PushHistory(m_host.SelectedKey(), m_state.CurrentSection, name);
    m_host.Navigate(path);
    m_pageCounter = (m_pageCounter + 1) % kPages;
    return path;
}

} // namespace kelvado
