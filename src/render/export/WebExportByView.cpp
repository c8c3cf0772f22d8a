#include "render/export/WebExportByView.h"

#include "browse/Tree.h"
#include "core/Literals.h"
#include "core/ViewKeys.h"

#include <QHash>
#include <QSet>
#include <QStringList>

#include <algorithm>
#include <utility>

namespace kelvado {

namespace {

constexpr QLatin1StringView kByLocation = "Movie.IsRequest"_L1;
constexpr QLatin1StringView kByTitle = "Movie.Title"_L1;
constexpr QLatin1StringView kFirstLetter = "Asc(Left(Ucase(Movie!Title),1))"_L1;

QString PageName(qsizetype page)
{
    return page == 0 ? u"index.htm"_s : u"index%1.htm"_s.arg(page);
}

/// The films of a group, without the word WHERE.
QString ConditionOfGroup(const QString& column, const ViewGroup& group)
{
    if (column == kByLocation) {
        if (group.name == "My Requests"_L1)
            return u"Format = 'Request'"_s;
        return group.name == "Loaned Movies"_L1 ? u"Loan_ID <> 0"_s : u"Loan_ID = 0 AND Format <> 'Request'"_s;
    }
    if (column == kByTitle) {
        if (group.name == u'*')
            return u"(Asc(Left(Ucase(Movie!Title),1)) < 65 OR Asc(Left(Ucase(Movie!Title),1)) > 90) "
                   "AND NOT IsNumeric(Left(Ucase(Movie!Title),1))"_s;
        if (group.name == "0-9"_L1)
            return u"Asc(Left(Ucase(Movie!Title),1)) >= 47 AND Asc(Left(Ucase(Movie!Title),1)) <= 57"_s;
        return kFirstLetter + u" = "_s + QString::number(group.name.front().unicode());
    }
    const bool holdsNull = std::ranges::any_of(group.values, &Value::IsNull);
    const QStringList places(group.values.size() - (holdsNull ? 1 : 0), u"?"_s);
    QString condition = column + u" IN ("_s + places.join(u',') + u')';
    if (holdsNull)
        condition = u'(' + column + u" IS NULL OR "_s + condition + u')';
    return condition;
}

/// The tree's query of films with other columns and one condition more.
QString FilmsWhere(const ExportedView& view, const QString& columns, const QString& condition)
{
    const QString tree = BuildLevelSql(view.view.PrimarySort, 2, view.view, view.filterWhere);
    QString sql = u"SELECT "_s + columns + u' ' + tree.sliced(tree.indexOf("FROM "_L1));
    if (condition.isEmpty())
        return sql;
    constexpr QLatin1StringView kWhere = "WHERE"_L1;
    constexpr QLatin1StringView kOrder = "ORDER"_L1;
    // The first one is the query's own; further ones stand in its condition.
    const qsizetype where = sql.indexOf(kWhere);
    if (where >= 0)
        return sql.replace(where, kWhere.size(), u"WHERE "_s + condition + u" AND"_s);
    return sql.replace(sql.lastIndexOf(kOrder), kOrder.size(), u"WHERE "_s + condition + u" ORDER"_s);
}

/// The condition for a film to stand on any page. Under the other sorts each row of the tree's query has its group.
QString ConditionOfAnyGroup(const QString& column, const QList<ViewGroup>& groups)
{
    QStringList conditions;
    if (column == kByTitle)
        conditions << u'(' + kFirstLetter + u" >= 65 AND "_s + kFirstLetter + u" <= 90)"_s; // all letters at once
    if (column == kByTitle || column == kByLocation) {
        for (const ViewGroup& group : groups.first(column == kByTitle ? 2 : groups.size()))
            conditions << u'(' + ConditionOfGroup(column, group) + u')';
    }
    return conditions.isEmpty() ? QString() : u'(' + conditions.join(u" OR "_s) + u')';
}

struct Placed
{
    qint64 films = 0;
    qint64 entries = 0; ///< a film that stands on two pages counts twice
};

Placed CountPlaced(const ExportedView& view, const QList<ViewGroup>& groups, Connection& catalog)
{
    Recordset count;
    count.Open(
        FilmsWhere(view, u"Count(DISTINCT Movie.Movie_ID), Count(*)"_s, ConditionOfAnyGroup(ColumnOfKey(view.view.PrimarySort), groups)),
        catalog, LockType::ReadOnly);
    return {count.Integer(0), count.Integer(1)};
}

bool Holds(const QString& text, QLatin1StringView token)
{
    return text.contains(token);
}

class ViewExport
{
public:
    ViewExport(const WebTemplates& templates, const WebSite& site, const ExportedView& view, Connection& catalog, const GoesOn& goesOn)
        : m_templates(templates), m_view(view), m_catalog(catalog), m_goesOn(goesOn), m_groups(BuildViewGroups(view, catalog)),
          m_films(site, templates.extraFiles, catalog)
    {
    }

    ExportDone Run()
    {
        if (AnyHolds("!!RATINGBAR!!"_L1))
            m_films.CopyBarImages();
        if (AnyHolds("!!RATEDIMG!!"_L1))
            m_films.CopyCertificates();
        m_films.Folder().CopyExtraFiles();
        m_step.count = CountPlaced(m_view, m_groups, m_catalog).entries;
        bool isWhole = true;
        for (qsizetype page = 0; isWhole && page < m_groups.size(); ++page)
            isWhole = WriteGroup(page);
        if (m_groups.isEmpty())
            m_films.Folder().AddMissing(u"All pages: the view has no groups."_s);
        ExportDone done = m_films.Done(PageName(0));
        done.films = m_step.film;
        done.count = m_step.count;
        done.whole = isWhole;
        return done;
    }

private:
    bool AnyHolds(QLatin1StringView token) const { return Holds(m_templates.detail, token) || Holds(m_templates.body, token); }

    /// False after a cancel, which leaves the page unwritten.
    bool WriteGroup(qsizetype page)
    {
        WebPage file(m_films.Folder(), PageName(page));
        file.Write(WithNav(m_templates.header, page));
        if (!BuildGroupBody(m_groups[page], file))
            return false;
        file.Write(WithNav(m_templates.footer, page));
        file.Commit();
        return m_goesOn(m_step);
    }

    QString WithNav(QString text, qsizetype page) const
    {
        FillViewNav(text, page, m_groups);
        return text;
    }

    bool BuildGroupBody(const ViewGroup& group, WebPage& page)
    {
        QList<Value> values = group.values;
        values.removeIf([](const Value& value) { return value.IsNull(); });
        Recordset film;
        film.Open(FilmsWhere(m_view, u"Movie.*"_s, ConditionOfGroup(ColumnOfKey(m_view.view.PrimarySort), group)), values, m_catalog,
                  LockType::ReadOnly);
        const int id = film.ColumnIndex(u"Movie_ID");
        const int title = film.ColumnIndex(u"Title");
        QSet<FilmId> shown; // a film may be linked to a genre twice
        for (; !film.Eof(); film.MoveNext()) {
            if (const qsizetype before = shown.size(); shown.insert(film.Integer(id)), shown.size() > before)
                page.Write(Body(film, film.Integer(id)));
            m_step.count = std::max(m_step.count, ++m_step.film);
            m_step.title = film.Text(title);
            if (!m_goesOn(m_step))
                return false;
        }
        return true;
    }

    /// Empty for a film that no page can show.
    QString Body(const Recordset& film, FilmId id)
    {
        QString text = m_templates.body;
        if (!m_films.FillFilm(text, film))
            return {};
        FillImage(text, film);
        if (Holds(text, "!!DETAILSPAGE!!"_L1)) {
            const QString name = QString::number(id) + u".htm"_s;
            WriteDetailPage(film, id, name);
            text.replace("!!DETAILSPAGE!!"_L1, name);
        }
        if (Holds(text, "!!GENRE!!"_L1))
            FillGenreToken(text, m_catalog, id);
        // A kind of people is filled in where its first one is asked for.
        if (Holds(text, "!!PRODUCER1!!"_L1))
            FillProducerTokens(text, m_catalog, id);
        if (Holds(text, "!!WRITER1!!"_L1))
            FillWriterTokens(text, m_catalog, id);
        if (Holds(text, "!!DIRECTOR1!!"_L1))
            FillDirectorTokens(text, m_catalog, id);
        if (Holds(text, "!!ACTOR1!!"_L1))
            FillActorTokens(text, m_catalog, id);
        return text;
    }

    void FillImage(QString& text, const Recordset& film)
    {
        if (Holds(text, "!!IMAGE!!"_L1))
            text.replace("!!IMAGE!!"_L1, m_films.Pictures().ExportFilmImage(film.Integer(film.ColumnIndex(u"Image_ID"))));
    }

    /// A film on several pages has one page of its own.
    void WriteDetailPage(const Recordset& film, FilmId id, const QString& name)
    {
        if (m_detailed.contains(id))
            return;
        m_detailed << id;
        WebPage page(m_films.Folder(), name);
        page.Write(BuildDetailPage(film, id));
        page.Commit();
    }

    QString BuildDetailPage(const Recordset& film, FilmId id)
    {
        QString text = m_templates.detail;
        FillGenreToken(text, m_catalog, id);
        FillProducerTokens(text, m_catalog, id);
        FillWriterTokens(text, m_catalog, id);
        FillDirectorTokens(text, m_catalog, id);
        FillActorTokens(text, m_catalog, id);
        m_films.FillFilm(text, film);
        FillImage(text, film);
        return text;
    }

    const WebTemplates& m_templates;
    const ExportedView& m_view;
    Connection& m_catalog;
    const GoesOn& m_goesOn;
    QList<ViewGroup> m_groups;
    WebFilms m_films;
    ExportStep m_step;
    QSet<FilmId> m_detailed;
};

} // namespace

QList<ViewGroup> BuildViewGroups(const ExportedView& view, Connection& catalog)
{
    const QString& column = view.view.PrimarySort;
    QList<ViewGroup> groups;
    if (column == kByLocation) {
        for (const QString& name : {u"My Movies"_s, u"My Requests"_s, u"Loaned Movies"_s})
            groups << ViewGroup{name, {}};
        return groups;
    }
    if (column == kByTitle) {
        groups << ViewGroup{u"*"_s, {}} << ViewGroup{u"0-9"_s, {}};
        for (char16_t letter = u'A'; letter <= u'Z'; ++letter)
            groups << ViewGroup{QString(QChar(letter)), {}};
        return groups;
    }
    QHash<QString, qsizetype> places;
    Recordset values;
    values.Open(BuildLevelSql(column, 1, view.view, view.filterWhere).replace("SELECT"_L1, "SELECT DISTINCT"_L1), catalog,
                LockType::ReadOnly);
    for (; !values.Eof(); values.MoveNext()) {
        const QString text = GroupText(values.Text(0));
        qsizetype& place = places[GroupName(text)]; // from 1
        if (place == 0) {
            groups << ViewGroup{text, {}};
            place = groups.size();
        }
        groups[place - 1].values << values[0].Get();
    }
    return groups;
}

void FillViewNav(QString& text, qsizetype page, const QList<ViewGroup>& groups)
{
    if (!Holds(text, "!!NAV!!"_L1))
        return;
    QString line;
    for (qsizetype i = 0; i < groups.size(); ++i) {
        const QString& name = groups[i].name;
        if (i == page)
            line.append("&nbsp;&nbsp;&nbsp;&nbsp;<b>"_L1).append(name).append("</b>"_L1);
        else
            line.append("&nbsp;&nbsp;&nbsp;&nbsp; <a href="_L1).append(PageName(i)).append(u'>').append(name).append("</a>"_L1);
    }
    text.replace("!!NAV!!"_L1, line);
}

qint64 FilmsOnNoPage(const ExportedView& view, Connection& catalog)
{
    Recordset all;
    all.Open(u"SELECT Count(*) FROM Movie"_s, catalog, LockType::ReadOnly);
    return all.Integer(0) - CountPlaced(view, BuildViewGroups(view, catalog), catalog).films;
}

ExportDone ExportWebByView(const WebTemplates& templates, const WebSite& site, const ExportedView& view, Connection& catalog,
                           const GoesOn& goesOn)
{
    return ViewExport(templates, site, view, catalog, goesOn).Run();
}

} // namespace kelvado
