#include "browse/Tree.h"

#include "browse/Filters.h"
#include "browse/FormatPictures.h"
#include "core/Afterwards.h"
#include "core/Literals.h"
#include "core/NodeKey.h"
#include "core/RuntimeError.h"
#include "core/ViewKeys.h"
#include "store/Recordset.h"

#include <QElapsedTimer>
#include <QSet>

#include <algorithm>
#include <array>
#include <utility>

namespace kelvado {

namespace {

const QString kByGenre = u"Genre.Genre"_s;
const QString kByLocation = u"Movie.IsRequest"_s;
const QString kByTitle = u"Movie.Title"_s;
const QString kByFormat = u"Movie.Format"_s;
const QString kNoValue = u"N/A"_s;
const QString kRequest = u"Request"_s;
const QString kAtHome = u"False"_s;
const QString kWanted = u"True"_s;
const QString kOnLoan = u"Loan"_s;
const QString kWhere = u"WHERE "_s;

constexpr int kGroupsPerPump = 150;
constexpr int kFilmsPerPump = 50;
constexpr int kMillisecondsToProgress = 500;

// The columns of the films' query, in their order.
enum LevelColumn { kPrimaryColumn, kSecondaryColumn, kIdColumn, kTitleColumn, kFormatColumn, kLoanColumn };

// The group of a title: the code of its first letter, 10 for a digit, 1 for anything else and for no title.
int TitleGroup(const QString& title)
{
    char16_t first = title.isEmpty() ? u'\0' : title.front().unicode();
    if (first >= u'a' && first <= u'z')
        first = static_cast<char16_t>(first - u'a' + u'A');
    else if (first >= 0x80) {
        const QString capital = title.left(1).toUpper();
        first = capital.size() == 1 ? capital.front().unicode() : u'\0';
    }
    if (first >= u'A' && first <= u'Z')
        return first;
    return first >= u'0' && first <= u'9' ? 10 : 1;
}

QString TitleGroupText(int group)
{
    if (group == 10)
        return u"0-9"_s;
    return group == 1 ? u"*"_s : QString(QChar(static_cast<char16_t>(group)));
}

QString Shown(const QString& text)
{
    return text.contains(u"&#") ? DecodeEntities(text) : text;
}

// The second part of a film's key under a sort that groups by the title's first character or by the place of the film.
QString FilmValue(const QString& primary, const QString& value, const QString& format)
{
    if (primary == kByTitle)
        return QString::number(TitleGroup(value));
    if (primary == kByLocation)
        return format == kRequest ? kWanted : kAtHome;
    return value;
}

QString ConditionOfMode(const QString& viewMode)
{
    if (viewMode == u"MovieNight")
        return u"MovieNight = 1"_s;
    if (viewMode == u"Requests")
        return u"Format = 'Request'"_s;
    return viewMode == u"Loans" ? u"Loan_ID <> 0"_s : QString();
}

} // namespace

QString GroupText(const QString& value)
{
    return value.isEmpty() || value.compare(kNoValue, Qt::CaseInsensitive) == 0 ? kNoValue : value;
}

QString GroupName(const QString& text)
{
    return GroupText(text).toCaseFolded();
}

QString BuildLevelSql(const QString& primary, int level, const cOptView& view, const QString& filterWhere)
{
    const QString p = ColumnOfKey(primary);
    const QString s = ColumnOfKey(view.SecondarySort);
    if (level == 1) {
        const QString order = u"ORDER BY "_s + p + u' ' + view.PrimaryOrder;
        if (p == kByGenre)
            return u"SELECT Genre.Genre, Count(Genre.Genre) AS lCount FROM Movie "
                   "INNER JOIN (Genre INNER JOIN GenreLink ON Genre.Genre_ID = "
                   "GenreLink.Genre_ID) ON Movie.Movie_ID = GenreLink.Movie_ID "
                   "GROUP BY Genre.Genre "_s +
                   order;
        if (p == kByLocation)
            return u"SELECT "_s + p + u", Loan_ID FROM Movie "_s + order;
        return u"SELECT "_s + p + u", Count("_s + p + u") As lCount FROM Movie GROUP BY "_s + p + u' ' + order;
    }

    QString sql = u"SELECT "_s + p + u", "_s + s + u", Movie.Movie_ID, Movie.Title, Movie.Format, Movie.Loan_ID FROM "_s;
    sql += p == kByGenre ? u"(Movie INNER JOIN GenreLink ON Movie.Movie_ID = GenreLink.Movie_ID) INNER JOIN Genre ON "
                           "GenreLink.Genre_ID = Genre.Genre_ID "_s
                         : u"Movie "_s;
    const QString mode = ConditionOfMode(view.ViewMode);
    if (mode.isEmpty())
        sql += filterWhere;
    else
        sql += kWhere + mode + (filterWhere.isEmpty() ? QString() : u" AND "_s + filterWhere.sliced(kWhere.size()));
    sql += u" ORDER BY "_s + s + u' ' + view.SecondaryOrder;
    return WithLinkedGenres(sql, p == kByGenre);
}

/// One build of the tree: reads both levels into a content of its own.
class Tree::Filling
{
public:
    explicit Filling(Tree& tree) : m_tree(tree), m_primary(tree.View().PrimarySort) {}
    Filling(const Filling&) = delete;
    Filling& operator=(const Filling&) = delete;

    void ReadGroups(Connection& connection)
    {
        Recordset groups;
        groups.Open(BuildLevelSql(m_primary, 1, m_tree.View(), m_tree.m_context.state.FilterWhere), connection);
        if (m_primary == kByLocation) {
            for (const auto& [value, text] :
                 {std::pair(kAtHome, u"My Movies"_s), std::pair(kWanted, u"My Requests"_s), std::pair(kOnLoan, u"Loaned Movies"_s)})
                m_groups.insert(GroupName(value), m_content.AddGroup(value, text, CatalogModel::kImageGroup));
            return;
        }
        for (int records = 0; !groups.Eof(); groups.MoveNext()) {
            const QString value = groups.Text(0);
            m_expectedFilms += groups.Integer(1);
            if (m_primary == kByTitle) {
                const int group = TitleGroup(value);
                AddGroup(QString::number(group), TitleGroupText(group), 0);
            } else {
                const QString text = GroupText(value);
                const int image = m_primary == kByFormat && text != kNoValue ? FormatImage(value) : 0;
                AddGroup(groups.IsNull(0) ? QString() : value, text, image);
            }
            Pump(records, kGroupsPerPump);
        }
    }

    void ReadFilms(Connection& connection)
    {
        Recordset films;
        films.Open(BuildLevelSql(m_primary, 2, m_tree.View(), m_tree.m_context.state.FilterWhere), connection);
        m_content.films.reserve(static_cast<std::size_t>(m_expectedFilms));
        QElapsedTimer timer;
        timer.start();
        int shownPercent = -1;
        for (int records = 0; !films.Eof(); films.MoveNext()) {
            AddFilm(films);
            // Counting the rows runs the query once more: only a fill that takes its time shows how far it is.
            if (Pump(records, kFilmsPerPump) && timer.elapsed() > kMillisecondsToProgress) {
                const int percent = static_cast<int>(films.AbsolutePosition() * 100 / films.RecordCount());
                if (percent != std::exchange(shownPercent, percent))
                    m_tree.m_context.shell.ShowProgress(percent);
            }
        }
        if (m_primary == kByGenre)
            DropSecondLinks();
    }

    bool HasFilms() const { return !m_content.films.empty(); }
    bool HasGroups() const { return !m_content.groups.empty(); }
    /// What was read, also where that was cut short.
    TreeContent TakeContent() { return std::move(m_content); }

private:
    bool Pump(int& records, int every)
    {
        if (++records < every)
            return false;
        records = 0;
        m_tree.m_context.events.ServeWithoutInput();
        return true;
    }

    void AddGroup(const QString& value, const QString& text, int image)
    {
        const QString name = GroupName(text);
        if (!m_groups.contains(name))
            m_groups.insert(name, m_content.AddGroup(value, text, image));
    }

    void AddFilm(const Recordset& films)
    {
        TreeFilm film;
        film.id = films.Integer(kIdColumn);
        film.title = films.Text(kTitleColumn);
        TakeFormat(films);
        film.image = m_lastImage;
        const int group = HomeOf(film, films);
        film.title = Shown(film.title);
        m_content.AddFilm(std::move(film), group);
    }

    // The carrier of the film, and its picture; most films have that of the one before.
    void TakeFormat(const Recordset& films)
    {
        const QByteArrayView format = films.Utf8(kFormatColumn);
        if (format.isEmpty()) {
            m_lastFormat.clear();
            m_lastImage = films.IsNull(kFormatColumn) ? CatalogModel::kImageNoFormat : 0;
        } else if (format != m_lastFormat) {
            m_lastFormat = format.toByteArray();
            m_lastImage = FormatImage(QString::fromUtf8(format));
        }
    }

    /// Gives the film the second part of its key, and returns its group.
    int HomeOf(TreeFilm& film, const Recordset& films)
    {
        if (m_primary == kByTitle) {
            Home& home = m_titleHomes[static_cast<std::size_t>(TitleGroup(film.title))];
            if (home.group < 0) {
                home.value = QString::number(TitleGroup(film.title));
                home.group = GroupOf(TitleGroupText(TitleGroup(film.title)));
            }
            film.value = home.value;
            return home.group;
        }
        if (m_primary == kByLocation) {
            film.value = FilmValue(m_primary, {}, QString::fromUtf8(m_lastFormat));
            if (film.value != kAtHome || films.Integer(kLoanColumn) == 0)
                return GroupOf(film.value);
            // A loaned film stands under the loans, though its key ends like a request's.
            film.value = kWanted;
            return GroupOf(kOnLoan);
        }
        const QByteArrayView text = films.Utf8(kPrimaryColumn);
        const auto known = m_knownValues.constFind(QByteArray::fromRawData(text.data(), text.size()));
        if (known != m_knownValues.cend()) {
            film.value = known->value;
            return known->group;
        }
        film.value = QString::fromUtf8(text);
        const int group = GroupOf(film.value);
        m_knownValues.insert(text.toByteArray(), {film.value, group});
        return group;
    }

    int GroupOf(const QString& value)
    {
        const auto found = m_groups.constFind(GroupName(value));
        if (found == m_groups.cend())
            throw RuntimeError::WithDetail(kErrElementNotFound, value);
        return *found;
    }

    // A film that stands twice under one group keeps its first node.
    void DropSecondLinks()
    {
        std::vector<std::pair<FilmId, int>> places; // film id and place in the list
        std::vector<bool> isSecond(m_content.films.size());
        bool any = false;
        for (const TreeGroup& group : m_content.groups) {
            places.clear();
            for (const int film : group.films)
                places.emplace_back(m_content.films[static_cast<std::size_t>(film)].id, film);
            std::sort(places.begin(), places.end());
            for (std::size_t i = 1; i < places.size(); ++i) {
                if (places[i].first != places[i - 1].first)
                    continue;
                isSecond[static_cast<std::size_t>(places[i].second)] = true;
                any = true;
            }
        }
        if (!any)
            return;
        TreeContent kept;
        for (const TreeGroup& group : m_content.groups)
            kept.AddGroup(group.value, group.text, group.image);
        for (std::size_t i = 0; i < m_content.films.size(); ++i) {
            if (!isSecond[i])
                kept.AddFilm(m_content.films[i], m_content.films[i].group);
        }
        m_content = std::move(kept);
    }

    struct Home
    {
        QString value; ///< the second part of the keys of its films
        int group = -1;
    };

    Tree& m_tree;
    QString m_primary;
    TreeContent m_content;
    QHash<QString, int> m_groups;
    QHash<QByteArray, Home> m_knownValues; ///< by a value as films carry it
    std::array<Home, u'Z' + 1> m_titleHomes;
    qint64 m_expectedFilms = 0; ///< what the groups count together, filters aside
    QByteArray m_lastFormat;
    int m_lastImage = 0;
};

Tree::Tree(const Context& context) : m_context(context) {}

bool Tree::GroupsExpanded() const
{
    return m_context.marks.IsChecked(u"mnuSortPrimExpanded"_s, -1);
}

void Tree::FillTree()
{
    Filling filling(*this);
    const QString catalog = m_context.state.CatalogPath();
    bool whole = false;
    Afterwards(
        [&] {
            Connection connection = Connect();
            filling.ReadGroups(connection);
            filling.ReadFilms(connection);
            connection.Close();
            whole = true;
        },
        [&] {
            // Of another catalog even the groups alone tell more than the tree before.
            if (whole || filling.HasFilms() || (filling.HasGroups() && m_context.state.treeCatalog != catalog)) {
                m_context.state.treeCatalog = catalog;
                m_context.model.SetContent(filling.TakeContent());
            }
            m_context.shell.ShowProgress(0);
        });
    m_context.shell.UpdateStatus(true);
}

void Tree::ExpandFilmNode(const QModelIndex& node)
{
    if (m_context.model.Tag(node) != kTagFilm)
        return;
    m_expanding = true;
    Afterwards([&] { FillCast(node); },
               [&] {
                   m_expanding = false;
                   m_context.shell.ShowProgress(0);
               });
}

void Tree::FillCast(const QModelIndex& node)
{
    const QPersistentModelIndex film = node;
    m_context.model.SetCast(film, {});
    std::vector<TreeActor> cast = ReadCast(film);
    // An actor with two roles has one node.
    QSet<qint64> seen;
    std::erase_if(cast, [&](const TreeActor& actor) {
        const qsizetype before = seen.size();
        seen.insert(actor.id);
        return seen.size() == before;
    });
    const bool anyCast = !cast.empty();
    m_context.model.SetCast(film, cast);
    const bool underLoans = View().PrimarySort == kByLocation && m_context.model.Key(film.parent()) == GroupKey(kOnLoan);
    if (underLoans && anyCast)
        throw RuntimeError::WithDetail(kErrElementNotFound, FilmKey(FilmOfKey(m_context.model.Key(film)), kOnLoan));
}

std::vector<TreeActor> Tree::ReadCast(const QModelIndex& node)
{
    const QString& p = View().PrimarySort;
    const QString& s = View().SecondarySort;
    const QString key = m_context.model.Key(node);
    const QString id = KeyPart(key, 0);
    QString genre;
    QString sql;
    QList<Value> values;
    if (p == kByGenre) {
        genre = ValueOfKey(key);
        sql = u"SELECT "_s + p + u", "_s + s +
              u", Movie.Movie_ID, Genre.Genre, Actor.*, Movie.Loan_ID, Movie.Format"
              " FROM ((Movie INNER JOIN GenreLink ON Movie.Movie_ID = "
              "GenreLink.Movie_ID) INNER JOIN Genre ON GenreLink.Genre_ID = "
              "Genre.Genre_ID) INNER JOIN (Actor INNER JOIN ActorLink ON "
              "Actor.Actor_ID = ActorLink.Actor_ID) ON Movie.Movie_ID = "
              "ActorLink.Movie_ID WHERE Movie.Movie_ID = "_s +
              id + u"AND Genre.Genre = ?"_s;
        values << Value(genre);
    } else {
        sql = u"SELECT "_s + p + u", "_s + s +
              u",Movie.Movie_ID, Movie.Title, Actor.*, Movie.Loan_ID, Movie.Format "
              "FROM Movie INNER JOIN (Actor INNER JOIN ActorLink ON Actor.Actor_ID "
              "= ActorLink.Actor_ID) ON Movie.Movie_ID = ActorLink.Movie_ID "
              "WHERE Movie.Movie_ID = "_s +
              id;
    }

    Connection connection = Connect();
    Recordset actors;
    actors.Open(sql, values, connection);
    m_context.events.ServeWithoutInput();
    std::vector<TreeActor> cast;
    if (actors.Eof())
        return cast;
    const int idColumn = actors.ColumnIndex(u"Actor_ID");
    const int nameColumn = actors.ColumnIndex(u"Actor");
    const int retrievedColumn = actors.ColumnIndex(u"IsRetreived");
    const qint64 most = m_context.state.gOptions->Display.MaxActors;
    const qint64 count = actors.RecordCount();
    for (; !actors.Eof(); actors.MoveNext()) {
        if (most >= 1 && actors.AbsolutePosition() - 1 == most)
            break;
        TreeActor actor;
        actor.id = actors.Integer(idColumn);
        actor.name = DecodeEntities(actors.Text(nameColumn));
        actor.genre = genre;
        actor.image = actors.Number(retrievedColumn) != 0 ? CatalogModel::kImagePersonRetrieved : CatalogModel::kImagePerson;
        cast.push_back(std::move(actor));
        m_context.shell.ShowProgress(static_cast<int>(actors.AbsolutePosition() * 100 / count));
    }
    return cast;
}

QStringList Tree::FilmNodeKeys(FilmId movieId) const
{
    const QString& p = View().PrimarySort;
    const QString columns = u"SELECT "_s + p + u" , Movie.Format, Movie.Loan_ID, Movie.Movie_ID FROM "_s;
    // With the link table in the query the film's number needs its table's name.
    const QString sql = p == kByGenre ? columns +
                                            u"(Movie INNER JOIN GenreLink ON Movie.Movie_ID = GenreLink.Movie_ID) INNER JOIN Genre ON "
                                            "GenreLink.Genre_ID = Genre.Genre_ID WHERE Movie.Movie_ID = "_s +
                                            QString::number(movieId)
                                      : columns + u"Movie WHERE Movie_ID = "_s + QString::number(movieId);
    Connection connection = Connect();
    Recordset film;
    film.Open(sql, connection);
    QStringList keys;
    for (; !film.Eof(); film.MoveNext()) {
        QString value = FilmValue(p, film.Text(0), film.Text(1));
        if (p == kByLocation && film.Integer(2) != 0)
            value = kWanted;
        keys << FilmKey(film.Integer(3), value);
    }
    return keys;
}

} // namespace kelvado
