#include "render/export/CollectionPrint.h"

#include "core/Literals.h"
#include "core/Paths.h"
#include "core/RuntimeError.h"
#include "core/SafeFile.h"
#include "render/HtmlOutput.h"
#include "store/mFileAccess.h"

#include <QDir>

#include <numeric>
#include <utility>

namespace kelvado {

namespace {

class CollectionPage
{
public:
    CollectionPage(Connection& catalog, const PrintSettings& settings, QString folder)
        : m_catalog(catalog), m_settings(settings), m_tokens{settings.skin, settings.siteAddress}, m_folder(std::move(folder)),
          m_body(Template(settings.form == PrintForm::List ? u"row"_s : u"film"_s))
    {
    }

    QString Template(const QString& name) const
    {
        const QString file = u"/Templates/Print/"_s + name + u".html"_s;
        return ReadFileText(FindFileCaseBlind(SkinFolder(m_settings.skin), file));
    }

    /// The film's part of the page. `title` becomes its title.
    QString Film(FilmId id, QString& title)
    {
        Recordset film;
        film.Open(u"SELECT * FROM Movie WHERE Movie_ID = ?"_s, {Value(id)}, m_catalog, LockType::ReadOnly);
        title = film[u"Title"].Get().Text();
        QString text = m_body;
        FillFilmTokens(text, film, m_tokens);
        if (text.contains("!!IMAGE!!"_L1))
            text.replace("!!IMAGE!!"_L1, Picture(film[u"Image_ID"].Get().Integer()));
        FillLinkedTokens(text, m_catalog, id);
        return text;
    }

private:
    QString Picture(qint64 imageId)
    {
        if (imageId != 0) {
            QString path = m_folder + u'/' + QString::number(imageId);
            try {
                return PathForPage(ExportImageFile(path, QString::number(imageId), m_catalog));
            } catch (const RuntimeError& error) {
                if (error.Number() != kErrNoCurrentRecord)
                    throw;
            }
        }
        return PathForPage(FindFileCaseBlind(SkinFolder(m_settings.skin), u"No Image.jpg"_s));
    }

    Connection& m_catalog;
    const PrintSettings& m_settings;
    TokenSettings m_tokens;
    QString m_folder;
    QString m_body;
};

} // namespace

ExportDone WriteCollectionPage(const QList<FilmGroup>& groups, Connection& catalog, const PrintSettings& settings, const GoesOn& goesOn)
{
    const QString folder = TempFolder() + u"/print"_s;
    QDir(folder).removeRecursively();
    MakeDirs(folder);
    CollectionPage page(catalog, settings, folder);

    ExportDone done;
    done.path = folder + u"/collection.html"_s;
    done.count = std::accumulate(groups.begin(), groups.end(), qint64(0),
                                 [](qint64 count, const FilmGroup& group) { return count + group.films.size(); });
    QString html = page.Template(u"header"_s);
    FillPageTokens(html, 1, 1, done.count, done.count);
    const bool isList = settings.form == PrintForm::List;
    const QString groupBegin = isList ? page.Template(u"group"_s) : QString();
    const QString groupEnd = isList ? page.Template(u"group-end"_s) : QString();
    for (const FilmGroup& group : groups) {
        if (group.films.isEmpty())
            continue;
        html += QString(groupBegin).replace("!!GROUPNAME!!"_L1, group.name.toHtmlEscaped());
        for (const FilmId id : group.films) {
            QString title;
            try {
                html += page.Film(id, title);
            } catch (const RuntimeError& error) {
                if (error.Number() == kErrDatabase)
                    throw;
                done.missing << (title.isEmpty() ? u"Film "_s + QString::number(id) : title) + u": "_s + error.Description();
            }
            if (!goesOn({++done.films, done.count, title}))
                return done;
        }
        html += groupEnd;
    }
    html += page.Template(u"footer"_s);
    WriteFileFast(done.path, html.toUtf8());
    done.whole = true;
    return done;
}

} // namespace kelvado
