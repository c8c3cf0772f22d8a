#pragma once

#include "core/NodeKey.h"
#include "core/WebHosts.h"

#include <QString>

namespace kelvado {

/// The film's page on the film site.
QString FilmAddress(const QString& number, const WebHosts& hosts);
/// A person's page: a link that begins with "nm" is a path, any other an old query.
QString PersonAddress(const QString& link, const WebHosts& hosts);
QString BiographyAddress(const QString& link, const WebHosts& hosts);
/// The old query, whatever the link.
QString PersonQueryAddress(const QString& link, const WebHosts& hosts);

/// The page on the film site of the film or person that `node` stands for; "" for a group and where the catalog holds no link.
QString SiteAddressOf(const NodeRef& node, const QString& catalogPath, const WebHosts& hosts);
/// The page of the film's disc at the shop, as the catalog holds it; "" for no film and where there is none.
QString ShopAddressOf(const NodeRef& node, const QString& catalogPath);

} // namespace kelvado
