#include "render/export/WebExport.h"

#include "core/Literals.h"
#include "core/Paths.h"
#include "core/RuntimeError.h"
#include "render/SiteAddress.h"

#include <algorithm>
#include <optional>

namespace kelvado {

namespace {

const QString kLineEnd = u"\r\n"_s;

/// What stands behind the footer of each page.
QString ClosingBlock(const QString& makerAddress)
{
    return u"<hr width=\"80%\">\r\n"
           "<p class=\"footer\" align=\"center\">\r\n"
           "Movie List Created with <br>\r\n"
           "<a href=\""_s +
           makerAddress +
           u"\"><img src=\"Images/logo.jpg\" alt=\"Kelvado\" align=\"middle\" width=\"172\" height=\"54\" border=\"0\"></a> .&nbsp;\r\n"
           "</p>\r\n"_s;
}

/// The run of pages of one export.
class PagedExport
{
public:
    PagedExport(const WebTemplates& templates, const WebSite& site, Connection& catalog)
        : m_templates(templates), m_closing(ClosingBlock(site.makerAddress)), m_films(site, templates.extraFiles, catalog),
          m_catalog(catalog)
    {
    }

    ExportDone Run(const GoesOn& goesOn)
    {
        m_films.CopyCertificates();
        m_films.CopyBarImages();
        m_films.Folder().CopyExtraFiles();

        Recordset film;
        film.Open(u"SELECT * FROM Movie ORDER BY Title"_s, m_catalog, LockType::ReadOnly);
        const int title = film.ColumnIndex(u"Title");
        m_count = film.RecordCount();
        OpenPage(1);
        qint64 films = 0;
        bool isWhole = true;
        for (; isWhole && !film.Eof(); film.MoveNext()) {
            const qint64 page = m_templates.pageSize > 0 ? films / m_templates.pageSize + 1 : 1;
            if (page != m_number) {
                ClosePage();
                OpenPage(page);
            }
            m_page->Write(Body(film));
            m_count = std::max(m_count, ++films); // another program may have added films since they were counted
            isWhole = goesOn({films, m_count, film.Text(title)});
        }
        if (isWhole)
            ClosePage();
        ExportDone done = m_films.Done(u"index.html"_s);
        done.films = films;
        done.count = m_count;
        done.whole = isWhole;
        return done;
    }

private:
    void OpenPage(qint64 number)
    {
        m_number = number;
        m_page.emplace(m_films.Folder(), number == 1 ? u"index.html"_s : u"index%1.html"_s.arg(number));
        m_page->Write(Filled(m_templates.header) + kLineEnd);
    }

    void ClosePage()
    {
        m_page->Write(Filled(m_templates.footer) + kLineEnd + m_closing);
        m_page->Commit();
    }

    QString Filled(QString text) const
    {
        const qint64 size = m_templates.pageSize > 0 ? m_templates.pageSize : m_count;
        FillPageTokens(text, m_number, std::max<qint64>(1, size > 0 ? (m_count + size - 1) / size : 1), size, m_count);
        return text;
    }

    /// Empty for a film that no page can show.
    QString Body(const Recordset& film)
    {
        QString text = m_templates.body;
        if (!m_films.FillFilm(text, film))
            return {};
        const FilmId id = film.Integer(film.ColumnIndex(u"Movie_ID"));
        m_films.FillImage(text, film);
        if (!m_templates.detail.isEmpty())
            m_films.FillDetailsPage(text, m_templates.detail, film);
        FillLinkedTokens(text, m_catalog, id);
        return text;
    }

    const WebTemplates& m_templates;
    QString m_closing;
    WebFilms m_films;
    Connection& m_catalog;
    std::optional<WebPage> m_page;
    qint64 m_number = 0;
    qint64 m_count = 0;
};

} // namespace

WebSite SiteOfSkin(const QString& skin)
{
    return {AppPath() + u"/Export/Web"_s, skin, SiteAddress(SettingsFile()), MakerAddress(SettingsFile())};
}

ExportDone ExportWeb(const WebTemplates& templates, const WebSite& site, Connection& catalog, const GoesOn& goesOn)
{
    return PagedExport(templates, site, catalog).Run(goesOn);
}

WebFilms::WebFilms(const WebSite& site, const QList<ExtraFile>& extraFiles, Connection& catalog)
    : m_settings{site.skin, site.siteAddress, true}, m_catalog(catalog), m_folder(site.folder, extraFiles),
      m_pictures(m_folder, catalog, site.skin)
{
}

bool WebFilms::FillFilm(QString& text, const Recordset& film)
{
    try {
        FillFilmTokens(text, film, m_settings);
        return true;
    } catch (const RuntimeError& error) {
        if (error.Number() == kErrDatabase)
            throw;
        const FilmId id = film.Integer(film.ColumnIndex(u"Movie_ID"));
        if (!m_failed.contains(id)) {
            m_failed << id;
            m_folder.AddMissing(film.Text(film.ColumnIndex(u"Title")) + u": "_s + error.Description());
        }
        return false;
    }
}

void WebFilms::FillImage(QString& text, const Recordset& film)
{
    if (text.contains("!!IMAGE!!"_L1))
        text.replace("!!IMAGE!!"_L1, m_pictures.ExportFilmImage(film.Integer(film.ColumnIndex(u"Image_ID"))));
}

void WebFilms::FillDetailsPage(QString& text, const QString& detail, const Recordset& film)
{
    if (!text.contains("!!DETAILSPAGE!!"_L1))
        return;
    const FilmId id = film.Integer(film.ColumnIndex(u"Movie_ID"));
    const QString name = QString::number(id) + u".htm"_s;
    text.replace("!!DETAILSPAGE!!"_L1, name);
    if (m_detailed.contains(id)) // a film on several pages has one page of its own
        return;
    m_detailed << id;
    WebPage page(m_folder, name);
    page.Write(BuildDetailPage(detail, film, id));
    page.Commit();
}

QString WebFilms::BuildDetailPage(QString text, const Recordset& film, FilmId id)
{
    FillGenreToken(text, m_catalog, id);
    FillProducerTokens(text, m_catalog, id);
    FillWriterTokens(text, m_catalog, id);
    FillDirectorTokens(text, m_catalog, id);
    FillActorTokens(text, m_catalog, id);
    FillFilm(text, film);
    FillImage(text, film);
    return text;
}

ExportDone WebFilms::Done(const QString& firstPage) const
{
    ExportDone done;
    done.path = m_folder.Path() + u'/' + firstPage;
    done.pictures = m_pictures.Count();
    done.missing = m_folder.Missing();
    return done;
}

CopyIntoExport WebFilms::Copier()
{
    return [this](const QString& source, const QString& target) { m_folder.Copy(source, target); };
}

} // namespace kelvado
