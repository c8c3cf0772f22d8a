#include "browse/CatalogModel.h"

#include "browse/FormatPictures.h"
#include "core/Literals.h"
#include "core/NodeKey.h"

#include <QFont>

#include <numeric>

namespace kelvado {

namespace {

constexpr int kRemoved = -1; ///< the row of a film that is no longer in the tree

bool SameValue(QStringView a, QStringView b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

} // namespace

int TreeContent::AddGroup(const QString& value, const QString& text, int image)
{
    groups.push_back({value, text, image, {}});
    return static_cast<int>(groups.size()) - 1;
}

void TreeContent::AddFilm(TreeFilm film, int group)
{
    TreeGroup& home = groups[static_cast<std::size_t>(group)];
    film.group = group;
    film.row = static_cast<int>(home.films.size());
    home.films.push_back(static_cast<int>(films.size()));
    films.push_back(std::move(film));
}

void CatalogModel::SetContent(TreeContent content)
{
    beginResetModel();
    m_removedFilms = 0;
    m_liveFilms.clear();
    m_content = std::move(content);
    m_casts.clear();
    m_castOrder.clear();
    m_filmsById.clear();
    endResetModel();
}

void CatalogModel::SetCast(const QModelIndex& film, const std::vector<TreeActor>& cast)
{
    if (!film.isValid() || KindOf(film) != Kind::Film)
        return;
    const int number = NumberOf(film);
    const int old = rowCount(film);
    if (old > 0) {
        beginRemoveRows(film, 0, old - 1);
        m_casts.insert(number, {});
        endRemoveRows();
    }
    std::erase(m_castOrder, number);
    m_castOrder.push_back(number);
    if (!cast.empty()) {
        beginInsertRows(film, 0, static_cast<int>(cast.size()) - 1);
        m_casts.insert(number, cast);
        endInsertRows();
    }
}

void CatalogModel::SetColors(const QColor& text, const QColor& back)
{
    m_textColor = text;
    m_backColor = back;
    if (GroupCount() > 0)
        Q_EMIT dataChanged(index(0, 0), index(GroupCount() - 1, 0));
}

void CatalogModel::SetImages(const std::array<QIcon, kImages + 1>& images)
{
    m_images = images;
    if (GroupCount() > 0)
        Q_EMIT dataChanged(index(0, 0), index(GroupCount() - 1, 0));
}

QModelIndex CatalogModel::Find(const QString& key) const
{
    if (key.size() < 2)
        return {};
    if (!key.contains(u'\n')) {
        const QStringView value = QStringView(key).sliced(1, key.size() - 2);
        for (int i = 0; i < GroupCount(); ++i) {
            if (SameValue(m_content.groups[static_cast<std::size_t>(i)].value, value))
                return Make(i, Kind::Group, i);
        }
        return {};
    }
    const QString second = ValueOfKey(key);
    const QList<int> films = FilmsWithId(FilmOfKey(key));
    for (const int film : films) {
        if (SameValue(m_content.films[static_cast<std::size_t>(film)].value, second))
            return IndexOfFilm(film);
    }
    for (const int film : films) {
        const auto cast = m_casts.constFind(film);
        for (std::size_t i = 0; cast != m_casts.cend() && i < cast->size(); ++i) {
            const QModelIndex actor = Make(static_cast<int>(i), Kind::Actor, film);
            if (SameValue(KeyOf(actor), key))
                return actor;
        }
    }
    return {};
}

QModelIndex CatalogModel::FindFilm(FilmId movieId) const
{
    QModelIndex first;
    for (const int film : FilmsWithId(movieId)) {
        const QModelIndex node = IndexOfFilm(film);
        if (!first.isValid() || node.parent().row() < first.parent().row())
            first = node;
    }
    return first;
}

void CatalogModel::SetRetrieved(qint64 actorId)
{
    ForEachActor(actorId, [](TreeActor& actor) { actor.image = kImagePersonRetrieved; });
}

void CatalogModel::SetActorName(qint64 actorId, const QString& name)
{
    ForEachActor(actorId, [&](TreeActor& actor) { actor.name = name; });
}

void CatalogModel::ForEachActor(qint64 actorId, const std::function<void(TreeActor&)>& change)
{
    for (auto cast = m_casts.begin(); cast != m_casts.end(); ++cast) {
        for (std::size_t i = 0; i < cast->size(); ++i) {
            if (cast->at(i).id != actorId)
                continue;
            change(cast->at(i));
            const QModelIndex actor = Make(static_cast<int>(i), Kind::Actor, cast.key());
            Q_EMIT dataChanged(actor, actor);
        }
    }
}

void CatalogModel::SetFilmTitle(const QModelIndex& film, const QString& title)
{
    if (!film.isValid() || KindOf(film) != Kind::Film)
        return;
    m_content.films[static_cast<std::size_t>(NumberOf(film))].title = title;
    Q_EMIT dataChanged(film, film);
}

void CatalogModel::SetFilmValue(const QModelIndex& film, const QString& value)
{
    if (!film.isValid() || KindOf(film) != Kind::Film)
        return;
    m_content.films[static_cast<std::size_t>(NumberOf(film))].value = value;
    Q_EMIT dataChanged(film, film);
}

QList<FilmGroup> CatalogModel::FilmGroups(const QModelIndex& node) const
{
    const auto groupAt = [&](int number) -> const TreeGroup& { return m_content.groups[static_cast<std::size_t>(number)]; };
    const auto filmAt = [&](int number) -> const TreeFilm& { return m_content.films[static_cast<std::size_t>(number)]; };
    if (node.isValid() && KindOf(node) != Kind::Group) {
        const TreeFilm& film = filmAt(NumberOf(node));
        return {{groupAt(film.group).text, {film.id}}};
    }
    QList<FilmGroup> groups;
    for (int number = 0; number < GroupCount(); ++number) {
        if (node.isValid() && node.row() != number)
            continue;
        groups.append({groupAt(number).text, {}});
        for (const int film : groupAt(number).films)
            groups.last().films << filmAt(film).id;
    }
    return groups;
}

void CatalogModel::RemoveFilm(const QModelIndex& film)
{
    if (!film.isValid() || KindOf(film) != Kind::Film)
        return;
    const int number = NumberOf(film);
    const int row = film.row();
    TreeFilm& gone = m_content.films[static_cast<std::size_t>(number)];
    TreeGroup& group = m_content.groups[static_cast<std::size_t>(gone.group)];
    beginRemoveRows(film.parent(), row, row);
    group.films.erase(group.films.begin() + row);
    for (std::size_t place = static_cast<std::size_t>(row); place < group.films.size(); ++place)
        m_content.films[static_cast<std::size_t>(group.films[place])].row = static_cast<int>(place);
    // Its place in the list stays, so that the numbers of the others stay; nothing leads there any more.
    m_filmsById.remove(gone.id, number);
    gone.row = kRemoved;
    m_casts.remove(number);
    std::erase(m_castOrder, number);
    if (m_removedFilms++ == 0) {
        m_liveFilms.resize(m_content.films.size());
        std::iota(m_liveFilms.begin(), m_liveFilms.end(), 0);
    }
    std::erase(m_liveFilms, number);
    endRemoveRows();
}

int CatalogModel::NodeCount() const
{
    std::size_t count = m_content.groups.size() + m_content.films.size() - static_cast<std::size_t>(m_removedFilms);
    for (const int film : m_castOrder)
        count += m_casts.constFind(film)->size();
    return static_cast<int>(count);
}

QModelIndex CatalogModel::NodeAt(int place) const
{
    int rest = place - 1;
    if (rest < 0)
        return {};
    if (rest < GroupCount())
        return Make(rest, Kind::Group, rest);
    rest -= GroupCount();
    const int films = static_cast<int>(m_content.films.size());
    if (m_removedFilms == 0 && rest < films)
        return IndexOfFilm(rest);
    const int live = films - m_removedFilms;
    if (m_removedFilms > 0 && rest < live)
        return IndexOfFilm(m_liveFilms[static_cast<std::size_t>(rest)]);
    rest -= live;
    for (const int film : m_castOrder) {
        const int cast = static_cast<int>(m_casts.constFind(film)->size());
        if (rest < cast)
            return Make(rest, Kind::Actor, film);
        rest -= cast;
    }
    return {};
}

bool CatalogModel::IsWaiting(const QModelIndex& film) const
{
    return film.isValid() && KindOf(film) == Kind::Film && !m_casts.contains(NumberOf(film));
}

QModelIndex CatalogModel::Make(int row, Kind kind, int number) const
{
    return createIndex(row, 0, (static_cast<quintptr>(number) << 2) | static_cast<quintptr>(kind));
}

QList<int> CatalogModel::FilmsWithId(FilmId movieId) const
{
    if (m_filmsById.isEmpty()) {
        m_filmsById.reserve(static_cast<qsizetype>(m_content.films.size()));
        for (std::size_t i = 0; i < m_content.films.size(); ++i) {
            if (m_content.films[i].row != kRemoved)
                m_filmsById.insert(m_content.films[i].id, static_cast<int>(i));
        }
    }
    return m_filmsById.values(movieId);
}

QModelIndex CatalogModel::IndexOfFilm(int film) const
{
    return Make(m_content.films[static_cast<std::size_t>(film)].row, Kind::Film, film);
}

QModelIndex CatalogModel::index(int row, int column, const QModelIndex& parent) const
{
    if (row < 0 || column != 0 || row >= rowCount(parent))
        return {};
    if (!parent.isValid())
        return Make(row, Kind::Group, row);
    const int number = NumberOf(parent);
    if (KindOf(parent) == Kind::Group)
        return Make(row, Kind::Film, m_content.groups[static_cast<std::size_t>(number)].films[static_cast<std::size_t>(row)]);
    return Make(row, m_casts.contains(number) ? Kind::Actor : Kind::Placeholder, number);
}

QModelIndex CatalogModel::parent(const QModelIndex& child) const
{
    if (!child.isValid())
        return {};
    switch (KindOf(child)) {
    case Kind::Group:
        return {};
    case Kind::Film: {
        const int group = m_content.films[static_cast<std::size_t>(NumberOf(child))].group;
        return Make(group, Kind::Group, group);
    }
    default:
        return IndexOfFilm(NumberOf(child));
    }
}

int CatalogModel::rowCount(const QModelIndex& parent) const
{
    if (!parent.isValid())
        return GroupCount();
    const int number = NumberOf(parent);
    switch (KindOf(parent)) {
    case Kind::Group:
        return static_cast<int>(m_content.groups[static_cast<std::size_t>(number)].films.size());
    case Kind::Film: {
        const auto cast = m_casts.constFind(number);
        return cast == m_casts.cend() ? 1 : static_cast<int>(cast->size());
    }
    default:
        return 0;
    }
}

int CatalogModel::columnCount(const QModelIndex&) const
{
    return 1;
}

CatalogModel::Face CatalogModel::FaceOf(const QModelIndex& index) const
{
    const auto number = static_cast<std::size_t>(NumberOf(index));
    switch (KindOf(index)) {
    case Kind::Group:
        return {m_content.groups[number].text, m_content.groups[number].image, true};
    case Kind::Film:
        return {m_content.films[number].title, m_content.films[number].image, false};
    case Kind::Placeholder:
        return {{}, 0, true};
    case Kind::Actor: {
        const TreeActor& actor = m_casts.constFind(NumberOf(index))->at(static_cast<std::size_t>(index.row()));
        return {actor.name, actor.image, false};
    }
    }
    return {};
}

QString CatalogModel::KeyOf(const QModelIndex& index) const
{
    const auto number = static_cast<std::size_t>(NumberOf(index));
    switch (KindOf(index)) {
    case Kind::Group:
        return GroupKey(m_content.groups[number].value);
    case Kind::Film:
        return FilmKey(m_content.films[number].id, m_content.films[number].value);
    case Kind::Placeholder:
        return {};
    case Kind::Actor: {
        const TreeActor& actor = m_casts.constFind(NumberOf(index))->at(static_cast<std::size_t>(index.row()));
        const FilmId film = m_content.films[number].id;
        return actor.genre.isNull() ? FilmKey(film, QString::number(actor.id)) : ActorKeyInGenre(film, actor.id, actor.genre);
    }
    }
    return {};
}

QVariant CatalogModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    switch (role) {
    case Qt::DisplayRole:
        // A title may hold line ends; a row shows one line.
        return FaceOf(index).text.simplified();
    case Qt::ToolTipRole:
        return KindOf(index) == Kind::Film ? QVariant(u"<qt>"_s + FaceOf(index).text.left(1000).toHtmlEscaped() + u"</qt>"_s) : QVariant();
    case Qt::DecorationRole: {
        // Number 0 is a blank picture: a film of a carrier without one keeps in line with its neighbours.
        const int image = FaceOf(index).image;
        if (image == 0 && KindOf(index) != Kind::Film)
            return {};
        return m_images[static_cast<std::size_t>(image)];
    }
    case Qt::AccessibleDescriptionRole:
        return KindOf(index) == Kind::Film ? FormatOfImage(FaceOf(index).image) : QString();
    case Qt::FontRole:
        if (FaceOf(index).bold) {
            QFont font;
            font.setBold(true);
            return font;
        }
        return {};
    case Qt::ForegroundRole:
        return m_textColor.isValid() ? m_textColor : QVariant();
    case Qt::BackgroundRole:
        return m_backColor.isValid() ? m_backColor : QVariant();
    case KeyRole:
        return KeyOf(index);
    case TagRole:
        switch (KindOf(index)) {
        case Kind::Film:
            return QString(kTagFilm);
        case Kind::Actor:
            return QString(kTagActor);
        default:
            return QString(kTagGroup);
        }
    case TextRole: // as it stands; what is displayed has no line ends
        return FaceOf(index).text;
    case ImageRole:
        return FaceOf(index).image;
    default:
        return {};
    }
}

} // namespace kelvado
