#include "web/VisitAddress.h"

#include "core/Literals.h"
#include "store/mDBConnection.h"

namespace kelvado {

namespace {

QString ColumnOf(const QString& query, const QString& column, const QString& catalogPath)
{
    Connection connection = OpenCatalog(catalogPath);
    Recordset row;
    row.Open(query, connection);
    return row.Eof() ? QString() : FieldString(column, row);
}

QString FilmColumn(const NodeRef& node, const QString& column, const QString& catalogPath)
{
    return ColumnOf("SELECT * FROM Movie WHERE Movie_ID = "_L1 + KeyPart(node.key, 0), column, catalogPath);
}

bool IsPath(const QString& personLink)
{
    return personLink.startsWith("nm"_L1);
}

} // namespace

QString FilmAddress(const QString& number, const WebHosts& hosts)
{
    return "http://"_L1 + hosts.ImdbPersonHost + "/Title?"_L1 + number;
}

QString PersonAddress(const QString& link, const WebHosts& hosts)
{
    return IsPath(link) ? "http://"_L1 + hosts.ImdbPersonHost + "/name/"_L1 + link : PersonQueryAddress(link, hosts);
}

QString BiographyAddress(const QString& link, const WebHosts& hosts)
{
    return IsPath(link) ? PersonAddress(link, hosts) + "/bio"_L1 : "http://"_L1 + hosts.ImdbPersonHost + "/Bio?"_L1 + link;
}

QString PersonQueryAddress(const QString& link, const WebHosts& hosts)
{
    return "http://"_L1 + hosts.ImdbPersonHost + "/Name?"_L1 + link;
}

QString SiteAddressOf(const NodeRef& node, const QString& catalogPath, const WebHosts& hosts)
{
    if (node.tag == kTagFilm) {
        const QString number = FilmColumn(node, u"IMDB"_s, catalogPath);
        return number.isEmpty() ? QString() : FilmAddress(number, hosts);
    }
    if (node.tag != kTagActor)
        return {};
    const QString link = ColumnOf("SELECT * FROM Actor WHERE Actor_ID = "_L1 + KeyPart(node.key, 1), u"IMDB_LINK"_s, catalogPath);
    return link.isEmpty() ? QString() : PersonAddress(link, hosts);
}

QString ShopAddressOf(const NodeRef& node, const QString& catalogPath)
{
    return node.tag == kTagFilm ? FilmColumn(node, u"iSONEWS"_s, catalogPath) : QString();
}

} // namespace kelvado
