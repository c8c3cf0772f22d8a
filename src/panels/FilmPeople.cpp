#include "panels/FilmPeople.h"

#include "core/Conversions.h"
#include "core/Literals.h"
#include "core/RuntimeError.h"

namespace kelvado {

namespace {

// Leads to the link row of `entry`; past the last row where it is gone.
void OpenLink(const PersonKind& kind, const FilmPersonEntry& entry, Recordset& links, Connection& connection)
{
    const QString& link = kind.names.linkTable;
    links.Open(u"SELECT "_s + link + u".* FROM "_s + link + u" WHERE "_s + link + u'.' + kind.names.idColumn + u" = "_s +
                   QString::number(entry.personId) + u" AND "_s + link + u".Movie_ID = "_s + QString::number(entry.movieId),
               connection);
    for (int place = 0; place < entry.place && !links.Eof(); ++place)
        links.MoveNext();
}

QString TextOf(const PersonKind& kind, const Recordset& links)
{
    return FieldString(QString(kind.textColumn), links);
}

} // namespace

std::vector<Choice> AllPeople(const PersonKind& kind, const QString& catalogPath)
{
    Connection connection = OpenCatalog(catalogPath);
    Recordset people;
    const QString& name = kind.names.table;
    // The two columns stand in the index of the names, so the biographies are not read.
    people.Open(u"SELECT "_s + kind.names.idColumn + u", "_s + name + u" FROM "_s + name + u" ORDER BY "_s + name, connection,
                LockType::ReadOnly);
    std::vector<Choice> rows;
    for (; !people.Eof(); people.MoveNext()) {
        QString text = people.Text(1);
        if (text.contains(u'&'))
            text = DecodeEntities(text);
        if (!text.isEmpty())
            rows.push_back({std::move(text), people.Integer(0)});
    }
    return rows;
}

qsizetype LongestPersonText(const PersonKind& kind, const QString& catalogPath)
{
    Connection connection = OpenCatalog(catalogPath);
    Recordset links;
    links.Open(u"SELECT * FROM "_s + kind.names.linkTable, connection);
    return links[QString(kind.textColumn)].DefinedSize();
}

QString AddFilmPerson(const PersonKind& kind, FilmId movieId, qint64 personId, const QString& text, const WriterContext& context)
{
    Connection connection = OpenCatalog(context.catalogPath);
    QString shown = AddFilmPerson(kind, movieId, personId, text, connection, context);
    connection.Close();
    return shown;
}

QString AddFilmPerson(const PersonKind& kind, FilmId movieId, qint64 personId, const QString& text, Connection& connection,
                      const WriterContext& context)
{
    const QString& link = kind.names.linkTable;
    Recordset links;
    links.Open(u"SELECT "_s + link + u".* FROM "_s + link + u" WHERE "_s + link + u".Movie_ID = "_s + QString::number(movieId), connection);
    const qint64 order = links.RecordCount() + 1;
    links.AddNew();
    links[u"Movie_ID"].Set(movieId);
    Value stored = text;
    PutField(stored, QString(kind.textColumn), links, context);
    links[u"Order"].Set(order);
    links[kind.names.idColumn].Set(personId);
    QString shown = TextOf(kind, links);
    links.Update();
    return shown;
}

std::optional<QString> FilmPersonText(const PersonKind& kind, const FilmPersonEntry& entry, const QString& catalogPath)
{
    Connection connection = OpenCatalog(catalogPath);
    Recordset links;
    OpenLink(kind, entry, links, connection);
    return links.Eof() ? std::nullopt : std::optional(TextOf(kind, links));
}

std::optional<QString> ChangeFilmPerson(const PersonKind& kind, const FilmPersonEntry& entry, const QString& text,
                                        const WriterContext& context)
{
    Connection connection = OpenCatalog(context.catalogPath);
    Recordset links;
    OpenLink(kind, entry, links, connection);
    if (links.Eof())
        return std::nullopt;
    Value stored = text;
    PutField(stored, QString(kind.textColumn), links, context);
    QString shown = TextOf(kind, links);
    links.Update();
    links.Close();
    connection.Close();
    return shown;
}

bool RemoveFilmPerson(const PersonKind& kind, const FilmPersonEntry& entry, const QString& catalogPath)
{
    Connection connection = OpenCatalog(catalogPath);
    Recordset links;
    OpenLink(kind, entry, links, connection);
    if (links.Eof())
        return false;
    links.Delete();
    links.Close();
    connection.Close();
    return true;
}

} // namespace kelvado
