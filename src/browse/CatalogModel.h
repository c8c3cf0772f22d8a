#pragma once

#include "core/FilmId.h"
#include <QAbstractItemModel>
#include <QColor>
#include <QHash>
#include <QIcon>
#include <QString>

#include <array>
#include <functional>
#include <optional>
#include <vector>

namespace kelvado {

/// A group of the first level. `value` is what stands in its key, `text` what is shown.
struct TreeGroup
{
    QString value;
    QString text;
    int image = 0; ///< number of the picture, 0 for none
    std::vector<int> films;
};

struct TreeFilm
{
    FilmId id = 0;
    QString title;
    QString value; ///< the second part of its key
    int group = 0;
    int row = 0; ///< its place in the group
    int image = 0;
};

struct TreeActor
{
    qint64 id = 0;
    QString name;
    QString genre; ///< third part of the key, where the tree is sorted by genre
    int image = 0;
};

/// The films that stand under one group of the tree, in its order.
struct FilmGroup
{
    QString name; ///< what the tree shows
    QList<FilmId> films;
};

/// The groups and films of a tree, in display order.
struct TreeContent
{
    std::vector<TreeGroup> groups;
    std::vector<TreeFilm> films;

    int AddGroup(const QString& value, const QString& text, int image);
    void AddFilm(TreeFilm film, int group);
};

/// The catalog tree over plain data: groups, the films of each, and under a film its cast, which comes later. A film whose cast has not
/// been fetched has one empty placeholder child, which is what gives it its expand mark.
class CatalogModel : public QAbstractItemModel
{
    Q_OBJECT
public:
    enum Role { KeyRole = Qt::UserRole + 1, TagRole, ImageRole, TextRole };
    static constexpr int kImages = 13; ///< pictures are numbered from 1
    static constexpr int kImageGroup = 11;
    static constexpr int kImageNoFormat = 5;
    static constexpr int kImagePerson = 6;
    static constexpr int kImagePersonRetrieved = 7;

    using QAbstractItemModel::QAbstractItemModel;

    void SetContent(TreeContent content);
    bool HasFilms() const { return static_cast<int>(m_content.films.size()) > m_removedFilms; }
    /// Puts `cast` under a film in place of all its children. Anything but a film is left alone.
    void SetCast(const QModelIndex& film, const std::vector<TreeActor>& cast);

    /// Colours of every node; an invalid colour leaves the view's own.
    void SetColors(const QColor& text, const QColor& back);
    void SetImages(const std::array<QIcon, kImages + 1>& images);

    /// The node with this key, its values compared without regard to case; an invalid index where there is none.
    QModelIndex Find(const QString& key) const;
    /// The first node of this film from the top; an invalid index where the tree does not show it.
    QModelIndex FindFilm(FilmId movieId) const;
    QString Key(const QModelIndex& index) const { return index.data(KeyRole).toString(); }
    QString Tag(const QModelIndex& index) const { return index.data(TagRole).toString(); }
    void SetFilmTitle(const QModelIndex& film, const QString& title);
    /// Gives a film the second part of its key; it stays where it stands.
    void SetFilmValue(const QModelIndex& film, const QString& value);
    /// Gives the person the picture of one who was retrieved, in all casts.
    void SetRetrieved(qint64 actorId);
    /// Gives the person another name, in all casts.
    void SetActorName(qint64 actorId, const QString& name);
    /// The films of all groups; for a node only those of its group, or the one film that it is or stands under.
    QList<FilmGroup> FilmGroups(const QModelIndex& node = {}) const;
    /// Takes one film node out of the tree, with its cast; the same film under other groups stays. Anything but a film is left alone.
    void RemoveFilm(const QModelIndex& film);

    /// All nodes in the order in which they came into the tree: groups, films, then the casts that were fetched. Placeholders do not count.
    int NodeCount() const;
    /// Node `place`, from 1 to `NodeCount`; an invalid index outside.
    QModelIndex NodeAt(int place) const;
    /// True for a film whose cast was not fetched: a waiting row stands below it.
    bool IsWaiting(const QModelIndex& film) const;
    int GroupCount() const { return static_cast<int>(m_content.groups.size()); }

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    bool hasChildren(const QModelIndex& parent = {}) const override { return rowCount(parent) > 0; }
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

private:
    enum class Kind : quintptr { Group, Film, Placeholder, Actor };
    static Kind KindOf(const QModelIndex& index) { return static_cast<Kind>(index.internalId() & 3); }
    /// Group or film number of a group or film; the film's number of a placeholder or actor.
    static int NumberOf(const QModelIndex& index) { return static_cast<int>(index.internalId() >> 2); }
    QModelIndex Make(int row, Kind kind, int number) const;
    QModelIndex IndexOfFilm(int film) const;
    void ForEachActor(qint64 actorId, const std::function<void(TreeActor&)>& change);
    /// The numbers of the film's nodes.
    QList<int> FilmsWithId(FilmId movieId) const;

    struct Face
    {
        QString text;
        int image = 0;
        bool bold = false;
    };
    Face FaceOf(const QModelIndex& index) const;
    QString KeyOf(const QModelIndex& index) const;

    TreeContent m_content;
    QHash<int, std::vector<TreeActor>> m_casts; ///< by film
    std::vector<int> m_castOrder;               ///< the films of `m_casts` in the order in which they were fetched
    int m_removedFilms = 0;
    std::vector<int> m_liveFilms;                ///< those that are left, once one was removed
    mutable QMultiHash<FilmId, int> m_filmsById; ///< made at the first search
    QColor m_textColor, m_backColor;
    std::array<QIcon, kImages + 1> m_images;
};

} // namespace kelvado
