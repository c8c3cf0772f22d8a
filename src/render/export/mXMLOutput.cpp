#include "render/export/mXMLOutput.h"

#include "core/Literals.h"
#include "core/Paths.h"
#include "core/RuntimeError.h"
#include "core/SafeFile.h"
#include "render/FilmValues.h"
#include "render/HtmlOutput.h"
#include "store/mFileAccess.h"

#include <QFileInfo>

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace kelvado {

namespace {

constexpr const char* kLineEnd = "\r\n";
constexpr QByteArrayView kReplacement = "\xEF\xBF\xBD";
constexpr QByteArrayView kIndent = "        ";
constexpr qsizetype kListIndent = 4;
const QString kStandIn = u"No Image.jpg"_s;

enum class Form { Value, Open, Close, Rated, Picture, Bar, SiteLink, SiteNumber, SeenIt, Request };

struct Element
{
    const char* tag;
    const char* column = nullptr;
    Form form = Form::Value;
    const char* tested = nullptr; ///< the column that leaves the element empty where it is Null; its own one where none is named
};

// In the order of the document. Readers count on the three elements that are tested by another's column.
constexpr std::array<Element, 53> kElements{{
    {"Title", "Title"},
    {"AlternateTitle", "TitleNY"},
    {"Year", "Year"},
    {"Format", "Format"},
    {"Discs", "Number"},
    {"Runtime", "Runtime"},
    {"Index", "Index"},
    {"SpokenLanguage", "Language"},
    {"SubLanguage", "SubLanguage"},
    {"Comments", "Comments"},
    {"Plot", "Plot"},
    {"FileNotes", "FileNotes"},
    {"Color", "Color"},
    {"Country", "Country"},
    {"Rated", "Rated", Form::Rated},
    {"ImageFront", "Image_ID", Form::Picture},
    {"ImageBack", "ImageBack_ID", Form::Picture},
    {"FormatDetails", nullptr, Form::Open},
    {"Resolution", "Resolution"},
    {"Filesize", "Filesize", Form::Value, "Filename"},
    {"Filename", "Filename", Form::Value, "Filesize"},
    {"Group", "Group"},
    {"AudioType", "AudType"},
    {"AudioBitrate", "audBitRate"},
    {"AudioChannels", "AudChannels", Form::Value, "audBitRate"},
    {"VideoBitrate", "vidBitRate"},
    {"VideoType", "VidType"},
    {"FormatDetails", nullptr, Form::Close},
    {"WebDetails", nullptr, Form::Open},
    {"IMDbRating", "Rating"},
    {"IMDbRatingBar", "Rating", Form::Bar},
    {"IMDbVotes", "Votes"},
    {"IMDbLink", "IMDB", Form::SiteLink},
    {"IMDbNumber", "IMDB", Form::SiteNumber},
    {"UserURL1", "UserURL1"},
    {"UserURL2", "UserURL2"},
    {"TrailerURL", "TrailerURL"},
    {"WebDetails", nullptr, Form::Close},
    {"PersonalDetails", nullptr, Form::Open},
    {"SeenIt", "SeenIt", Form::SeenIt},
    {"LastViewing", "LastViewing"},
    {"Request", "IsRequest", Form::Request},
    {"PurchasePrice", "PurchasePrice"},
    {"PurchasedWhere", "PurchasedWhere"},
    {"MyRating", "MyRating"},
    {"MyRatingBar", "MyRating", Form::Bar},
    {"MyRatingNotes", "MyRatingNotes"},
    {"PersonalDetails", nullptr, Form::Close},
    {"CustomDetails", nullptr, Form::Open},
    {"Custom1", "Custom1"},
    {"Custom2", "Custom2"},
    {"Custom3", "Custom3"},
    {"CustomDetails", nullptr, Form::Close},
}};

constexpr Crew kActors{"SELECT ActorLink.*, Actor.*"
                       " FROM Actor INNER JOIN ActorLink ON Actor.Actor_ID"
                       " = ActorLink.Actor_ID WHERE ActorLink.Movie_ID = "_L1,
                       "Actor"_L1};

struct List
{
    QByteArrayView tag;
    const Crew& crew;
    QLatin1StringView extra;
};
constexpr std::array<List, 4> kLists{{
    {"Actor", kActors, "Character"_L1},
    {"Writer", kWriters, "Extended"_L1},
    {"Director", kDirectors, "Extended"_L1},
    {"Producer", kProducers, "Extended"_L1},
}};

/// What stands for the character at `place`, where XML cannot hold it as it is, and how many bytes it takes the place of.
std::optional<std::pair<QByteArrayView, qsizetype>> EscapeAt(QByteArrayView text, qsizetype place)
{
    const auto byte = static_cast<unsigned char>(text[place]);
    if (byte == '&')
        return std::pair(QByteArrayView("&amp;"), 1);
    if (byte == '<')
        return std::pair(QByteArrayView("&lt;"), 1);
    if (byte == '>')
        return std::pair(QByteArrayView("&gt;"), 1);
    if (byte < ' ' && byte != '\t' && byte != '\n' && byte != '\r')
        return std::pair(kReplacement, 1);
    if (byte == 0xEF && (text.sliced(place).startsWith("\xEF\xBF\xBE") || text.sliced(place).startsWith("\xEF\xBF\xBF")))
        return std::pair(kReplacement, 3);
    return std::nullopt;
}

/// Appends a text of UTF-8 as an element holds it.
void AppendText(QByteArray& xml, QByteArrayView text)
{
    if (!text.isValidUtf8()) // other tools store half characters, too
        return AppendText(xml, QString::fromUtf8(text).toUtf8());
    qsizetype done = 0;
    for (qsizetype place = 0; place < text.size(); ++place) {
        const auto byte = static_cast<unsigned char>(text[place]);
        if (byte > '>' && byte != 0xEF)
            continue;
        if (const auto escape = EscapeAt(text, place)) {
            xml.append(text.sliced(done, place - done)).append(escape->first);
            place += escape->second - 1;
            done = place + 1;
        }
    }
    xml.append(text.sliced(done));
}

QByteArray Escaped(const QString& text)
{
    QByteArray xml;
    AppendText(xml, text.toUtf8());
    return xml;
}

/// Appends one film after the other; what all of them share is looked up once.
class FilmXml
{
public:
    /// `film` stands on the film's row whenever `Append` is called; all but the settings outlive this object.
    FilmXml(Connection& catalog, const Recordset& film, const XmlSettings& settings, const XmlPicture& picture);
    void Append(QByteArray& xml);

private:
    struct Line
    {
        Form form;
        QByteArray begin; ///< indent and opening tag
        QByteArray end;   ///< closing tag and line end
        int column = -1;
        int tested = -1;
    };
    struct PersonColumns
    {
        int name;
        int extra;
        int link;
    };
    void AppendLine(QByteArray& xml, const Line& line);
    void AppendRated(QByteArray& xml, const Line& line);
    void AppendBar(QByteArray& xml, const Line& line);
    void AppendPeople(QByteArray& xml, std::size_t list);
    const QByteArray& SkinPicture(QLatin1StringView folder, QLatin1StringView name);

    Connection& m_catalog;
    const Recordset& m_film;
    XmlSettings m_settings;
    QByteArray m_filmAddress;
    const XmlPicture& m_picture;
    int m_id;
    int m_title;
    std::vector<Line> m_lines;
    std::array<std::optional<PersonColumns>, kLists.size()> m_people;
    std::map<QLatin1StringView, QByteArray> m_skinPictures;
};

FilmXml::FilmXml(Connection& catalog, const Recordset& film, const XmlSettings& settings, const XmlPicture& picture)
    : m_catalog(catalog), m_film(film), m_settings(settings), m_filmAddress(Escaped(settings.siteAddress + u"/Title?"_s)),
      m_picture(picture), m_id(film.ColumnIndex(u"Movie_ID")), m_title(film.ColumnIndex(u"Title"))
{
    const auto place = [&](const char* column) { return column ? film.ColumnIndex(QString::fromLatin1(column)) : -1; };
    qsizetype indent = kListIndent;
    for (const Element& element : kElements) {
        if (element.form == Form::Close)
            indent = kListIndent;
        const QByteArray tag = element.tag;
        m_lines.push_back({element.form, QByteArray(indent, ' ') + '<' + (element.form == Form::Close ? "/" : "") + tag + '>',
                           "</" + tag + '>' + kLineEnd, place(element.column), place(element.tested ? element.tested : element.column)});
        if (element.form == Form::Open)
            indent = 2 * kListIndent;
    }
}

void FilmXml::Append(QByteArray& xml)
{
    for (const Line& line : m_lines)
        AppendLine(xml, line);
    for (std::size_t list = 0; list < kLists.size(); ++list)
        AppendPeople(xml, list);
}

void FilmXml::AppendLine(QByteArray& xml, const Line& line)
{
    const auto isNo = [&] { return YesNo(m_film[line.column].Get()) == "No"_L1; };
    switch (line.form) {
    case Form::Open:
    case Form::Close:
        xml.append(line.begin).append(kLineEnd);
        return;
    case Form::Rated:
        return AppendRated(xml, line);
    case Form::Bar:
        return AppendBar(xml, line);
    default:
        break;
    }
    xml.append(line.begin);
    if (line.form == Form::Picture)
        AppendText(xml, m_picture(m_film.Integer(line.column)).toUtf8());
    else if (line.form == Form::SeenIt)
        xml.append(isNo() ? "No" : "Yes");
    else if (line.form == Form::Request)
        xml.append(isNo() ? "" : "Yes");
    else if (!m_film.IsNull(line.tested)) {
        if (line.form == Form::SiteLink)
            xml.append(m_filmAddress);
        AppendText(xml, m_film.Utf8(line.column));
    }
    xml.append(line.end);
}

// Without a certificate the picture stands behind it, not in front.
void FilmXml::AppendRated(QByteArray& xml, const Line& line)
{
    const Value rated = m_film[line.column].Get();
    const QLatin1StringView name = CertificatePicture(rated);
    const QByteArray picture =
        "    <RatedImage>" + SkinPicture("/ratings/"_L1, name.isEmpty() ? kNoCertificate : name) + "</RatedImage>" + kLineEnd;
    if (!rated.IsNull())
        xml.append(picture);
    xml.append(line.begin);
    AppendText(xml, m_film.Utf8(line.column));
    xml.append(line.end);
    if (rated.IsNull())
        xml.append(picture);
}

void FilmXml::AppendBar(QByteArray& xml, const Line& line)
{
    RatingPictures bar;
    try {
        bar = RatingBarOf(m_film[line.column].Get());
    } catch (const RuntimeError& error) {
        // Among thousands of films it must be known which one to mend.
        throw RuntimeError(error.Number(), error.Description() + u" ("_s + m_film.Text(m_title) + u')');
    }
    for (qsizetype piece = 0; piece < bar.pictures.size(); ++piece) {
        xml.append(piece == bar.middle ? QByteArrayView(line.begin).sliced(kIndent.size()) : QByteArrayView(line.begin))
            .append(SkinPicture("/RatingBar/"_L1, bar.pictures[piece]))
            .append(line.end);
    }
}

void FilmXml::AppendPeople(QByteArray& xml, std::size_t list)
{
    const auto& [tag, crew, extra] = kLists[list];
    Recordset rows;
    rows.Open(crew.query + u'?', {Value(m_film.Integer(m_id))}, m_catalog, LockType::ReadOnly);
    if (rows.Eof())
        return;
    std::optional<PersonColumns>& columns = m_people[list];
    if (!columns)
        columns = {rows.ColumnIndex(QString(crew.column)), rows.ColumnIndex(QString(extra)), rows.ColumnIndex(u"IMDB_LINK")};
    const QByteArray extraTag(extra.data(), extra.size());
    const auto append = [&](QByteArrayView name, int column) {
        xml.append(kIndent).append('<').append(name).append('>');
        AppendText(xml, rows.Utf8(column));
        xml.append("</").append(name).append('>').append(kLineEnd);
    };
    for (; !rows.Eof(); rows.MoveNext()) {
        xml.append("    <").append(tag).append('>').append(kLineEnd);
        append("Name", columns->name);
        append(extraTag, columns->extra);
        append("WebLink", columns->link);
        xml.append("    </").append(tag).append('>').append(kLineEnd);
    }
}

const QByteArray& FilmXml::SkinPicture(QLatin1StringView folder, QLatin1StringView name)
{
    QByteArray& path = m_skinPictures[name];
    if (path.isEmpty())
        path = Escaped(PathForPage(FindFileCaseBlind(SkinFolder(m_settings.skin), folder + name)));
    return path;
}

/// Writes the pictures of the catalog's document.
class CatalogPictures
{
public:
    CatalogPictures(QString folder, Connection& catalog, const QString& skin)
        : m_folder(std::move(folder)), m_catalog(catalog), m_standIn(FindFileCaseBlind(SkinFolder(skin), kStandIn))
    {
        MakeDirs(m_folder);
    }

    qint64 Count() const { return m_count; }

    QString Export(std::int64_t imageId)
    {
        if (imageId != 0) {
            QString path = m_folder + u'/' + QString::number(imageId);
            try {
                ExportImageFile(path, QString::number(imageId), m_catalog);
                ++m_count;
                // Readers of these files know the folder without its first letter.
                return "mages"_L1 + path.sliced(m_folder.size());
            } catch (const RuntimeError& error) {
                if (error.Number() != kErrNoCurrentRecord)
                    throw;
            }
        }
        if (QFileInfo::exists(m_standIn))
            CopyFileWhole(std::exchange(m_standIn, {}), m_folder + u'/' + kStandIn);
        return u"images/"_s + kStandIn;
    }

private:
    QString m_folder;
    Connection& m_catalog;
    QString m_standIn; ///< empty once it is copied
    qint64 m_count = 0;
};

} // namespace

QString BuildFilmXml(const QString& styleSheet, Connection& catalog, const Recordset& film, const XmlSettings& settings,
                     const XmlPicture& picture)
{
    QByteArray xml = "<?xml version='1.0' ?>\r\n"
                     "<?xml-stylesheet type='text/xsl' href='";
    xml.append(Escaped(PathForPage(styleSheet)).replace('\'', "%27"));
    xml.append("' ?>\r\n"
               "<list title='Film'>\r\n"
               "<Config>\r\n"
               "    <maxDirectors>2</maxDirectors>\r\n"
               "    <maxWriters>2</maxWriters>\r\n"
               "    <maxActors>2</maxActors>\r\n"
               "</Config>\r\n"
               "\r\n"
               "<Movie>\r\n");
    FilmXml(catalog, film, settings, picture).Append(xml);
    xml.append("</Movie></list>\r\n");
    return QString::fromUtf8(xml);
}

ExportDone BuildCatalogXml(const QString& folder, Connection& catalog, const XmlSettings& settings, const GoesOn& goesOn)
{
    CatalogPictures pictures(folder + u"/images"_s, catalog, settings.skin);
    ExportDone done;
    done.path = folder + u"/MyMovies.XML"_s;
    FastFile file(done.path);

    Recordset film;
    film.Open(u"SELECT * FROM Movie"_s, catalog, LockType::ReadOnly);
    done.count = film.RecordCount();
    const XmlPicture picture = [&](std::int64_t imageId) { return pictures.Export(imageId); };
    FilmXml body(catalog, film, settings, picture);
    const int title = film.ColumnIndex(u"Title");
    QByteArray xml = "<?xml version='1.0' ?>\r\n"
                     "<?xml-stylesheet type='text/xsl' href='' ?>\r\n"
                     "<list title='Film'><MyMovies>\r\n"
                     "\r\n";
    for (; !film.Eof(); film.MoveNext()) {
        xml.append("<Movie>\r\n");
        body.Append(xml);
        xml.append("</Movie>");
        file.Write(xml);
        xml.resize(0);
        done.pictures = pictures.Count();
        done.count = std::max(done.count, ++done.films); // another program may have added films since they were counted
        if (!goesOn({done.films, done.count, film.Text(title)}))
            return done;
    }
    xml.append("</MyMovies></list>\r\n\r\n");
    file.Write(xml);
    file.Commit();
    done.whole = true;
    return done;
}

} // namespace kelvado
