#include "render/pages/Pages.h"

#include "core/Afterwards.h"
#include "core/Conversions.h"
#include "core/Literals.h"
#include "core/NodeKey.h"
#include "core/Paths.h"
#include "core/Profile.h"
#include "core/RuntimeError.h"
#include "render/HtmlOutput.h"
#include "render/SiteAddress.h"
#include "render/export/mXMLOutput.h"
#include "store/FilmRecord.h"
#include "store/mDBConnection.h"
#include "store/mFileAccess.h"

#include <QFileInfo>

#include <array>
#include <utility>

namespace kelvado {

namespace {

constexpr int kPictures = 25;
constexpr int kPages = 10;
constexpr QLatin1StringView kPageFile = "htmltemp"_L1;
constexpr QLatin1StringView kFilmPicture = "MImage"_L1;
constexpr QLatin1StringView kPersonPicture = "PImage"_L1;
constexpr QLatin1StringView kFilmQuery = "SELECT * FROM Movie WHERE Movie_ID = "_L1;
constexpr QLatin1StringView kMessage = "SendMessage:"_L1;

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
    return kMessage + "ACTORID:"_L1 + QString::number(person.ID);
}
QString WriterMessage(const FilmPerson& person, const QString&)
{
    return kMessage + "WRITERID:"_L1 + QString::number(person.ID);
}
QString CreditAddress(const FilmPerson& person, const QString& siteAddress)
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
    {"<!--START_ACTOR_CREDIT-->"_L1,
     "<!--END_ACTOR_CREDIT-->"_L1,
     &FilmRecord::Actors,
     {{{"!!ACTOR!!"_L1, PersonName},
       {"!!CHARACTER!!"_L1, PersonCharacter},
       {"!!ACTORNAV!!"_L1, ActorMessage},
       {"!!ACTORIMDB!!"_L1, CreditAddress}}}},
    {"<!--START_WRITER_CREDIT-->"_L1,
     "<!--END_WRITER_CREDIT-->"_L1,
     &FilmRecord::Writers,
     {{{"!!WRITER!!"_L1, PersonName},
       {"!!EXTENDED!!"_L1, PersonExtended},
       {"!!ACTORNAV!!"_L1, WriterMessage},
       {"!!WRITERIMDB!!"_L1, CreditAddress}}}},
    {"<!--START_DIRECTOR_CREDIT-->"_L1,
     "<!--END_DIRECTOR_CREDIT-->"_L1,
     &FilmRecord::Directors,
     {{{"!!DIRECTOR!!"_L1, PersonName},
       {"!!EXTENDED!!"_L1, PersonExtended},
       {"!!DIRECTORNAV!!"_L1, WriterMessage},
       {"!!DIRECTORIMDB!!"_L1, CreditAddress}}}},
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

FilmId FilmNumber(const QString& key)
{
    return ToFilmId(KeyPart(key, 0));
}

} // namespace

bool Pages::SkinIsXml() const
{
    return ReadProfileValue(u"Template"_s, u"Type"_s, SkinFile("skin.ini"_L1)) == "XML"_L1;
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

/// The path of the picture, which gets a file of this name and the next number, as a page names it. Number 0 and a picture that the catalog
/// has lost show the skin's stand-in.
QString Pages::PictureFor(std::int64_t imageId, QLatin1StringView name, Connection& connection)
{
    if (imageId != 0) {
        m_pictureCounter = m_pictureCounter % kPictures + 1;
        MakeDirs(TempFolder());
        QString path = TempFolder() + u'/' + name + QString::number(m_pictureCounter);
        try {
            return PathForPage(ExportImageFile(path, QString::number(imageId), connection));
        } catch (const RuntimeError& error) {
            if (error.Number() != kErrNoCurrentRecord)
                throw;
        }
    }
    return PathForPage(SkinFile("No Image.jpg"_L1));
}

std::optional<Page> Pages::FilmPage(const QString& key, Connection& catalog)
{
    const FilmId movieId = FilmNumber(key);
    Recordset film;
    film.Open(kFilmQuery + QString::number(movieId), catalog);
    if (SkinIsXml())
        return XmlPage(film, catalog);
    std::optional<QString> text = ReadTemplate("Templates/default.html"_L1);
    if (!text)
        return std::nullopt;
    text->replace("!!IMAGE!!"_L1, PictureFor(film.Integer(film.ColumnIndex(u"Image_ID")), kFilmPicture, catalog));
    text->replace("!!IMAGEBACK!!"_L1, PictureFor(film.Integer(film.ColumnIndex(u"ImageBack_ID")), kFilmPicture, catalog));
    FillFilmTokens(*text, film, {m_state.skin, SiteAddress(SettingsFile())});
    film.Close();
    FillLinkedTokens(*text, catalog, movieId);
    text->replace("!!NAVCREDITS!!"_L1, kMessage + "PAGE_CREDITS:"_L1 + QString::number(movieId));
    return WritePageFile(*text, false);
}

std::optional<Page> Pages::XmlPage(const Recordset& film, Connection& catalog)
{
    constexpr QLatin1StringView kStyleSheet = "Templates/Default.xsl"_L1;
    if (!ReadTemplate(kStyleSheet))
        return std::nullopt;
    const auto picture = [&](std::int64_t imageId) { return PictureFor(imageId, kFilmPicture, catalog); };
    return WritePageFile(BuildFilmXml(SkinFile(kStyleSheet), catalog, film, {m_state.skin, SiteAddress(SettingsFile())}, picture), true);
}

std::optional<Page> Pages::PersonPage(qint64 actorId, Connection& catalog, const FilmValueInTree& valueInTree)
{
    Recordset person;
    person.Open("SELECT * FROM Actor WHERE Actor_ID = "_L1 + QString::number(actorId), catalog);
    std::optional<QString> text = ReadTemplate("Templates/person.html"_L1);
    if (!text)
        return std::nullopt;
    text->replace("!!IMAGE!!"_L1, PictureFor(person.Integer(person.ColumnIndex(u"Image_ID")), kPersonPicture, catalog));
    FillPersonTokens(*text, person, SiteAddress(SettingsFile()));
    person.Close();
    FillInFilmToken(*text, catalog, actorId, valueInTree);
    return WritePageFile(*text, false);
}

std::optional<Page> Pages::CreditsPage(FilmId movieId)
{
    if (SkinIsXml())
        return WritePageFile(QString(), true);

    const QString path = SkinFile("Templates/credits.html"_L1);
    QString text = QFileInfo::exists(path) ? ReadWholeFile(path, m_dialogs) : QString();
    if (text.isEmpty()) {
        m_dialogs.MessageBox(u"The credits template file for skin "_s + m_state.skin +
                                 u" could not be located.  Please contact Kelvado support."_s,
                             kBoxCritical, u"Credits Page Error"_s);
        return std::nullopt;
    }
    const FilmRecord film = ReadFilm(movieId, m_state.CatalogPath());
    const QString siteAddress = SiteAddress(SettingsFile());
    for (const CreditBlock& block : kCreditBlocks)
        FillCreditBlock(text, block, film, siteAddress);
    text.replace("!!TITLE!!"_L1, film.Title);
    return WritePageFile(text, false);
}

std::optional<Page> Pages::NfoPage(const QString& key)
{
    Connection connection = OpenCatalog(m_state.CatalogPath());
    Recordset film;
    film.Open(kFilmQuery + QString::number(FilmNumber(key)), connection);
    std::optional<QString> text = ReadTemplate("Templates/nfo.html"_L1);
    if (!text)
        return std::nullopt;
    const Value nfo = film[u"Nfo"].Get();
    film.Close();
    connection.Close();
    text->replace("!!NFO!!"_L1, nfo.IsNull() ? u"N/A"_s : nfo.Text());
    const QString path = AppPath() + u"/htmltemp.html"_s;
    WriteWholeFile(path, *text);
    return Page{path, {}};
}

QString Pages::EmptyCatalogPage() const
{
    QString path = SkinFile("Templates/empty.html"_L1);
    return QFileInfo::exists(path) ? path : QString();
}

int Pages::NumberOfStep(const QString& step)
{
    return step.mid(kPageFile.size()).section(u'.', 0, 0).toInt();
}

std::optional<Page> Pages::MakeAgain(const QString& step, const std::function<std::optional<Page>()>& make)
{
    const int next = std::exchange(m_pageCounter, NumberOfStep(step));
    std::optional<Page> page;
    Afterwards([&] { page = make(); }, [&] { m_pageCounter = next; });
    return page;
}

Page Pages::WritePageFile(const QString& text, bool xml)
{
    const QString name = kPageFile + QString::number(m_pageCounter) + (xml ? ".xml"_L1 : ".html"_L1);
    const QString path = TempFolder() + u'/' + name;
    MakeDirs(TempFolder());
    WriteWholeFile(path, text);
    m_pageCounter = (m_pageCounter + 1) % kPages;
    return {path, name};
}

} // namespace kelvado
