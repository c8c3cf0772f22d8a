#pragma once

#include <QString>

namespace kelvado {

/// The film site's address without a slash at its end: "http://" and the host (with its port, if any) that key `ImdbMainHost` of section
/// `Hosts` in the settings file at `settingsFile` names; a host on this machine where the key is missing or empty.
QString SiteAddress(const QString& settingsFile);

/// The address of the maker's page in the same form, by key `MakerHost`.
QString MakerAddress(const QString& settingsFile);

} // namespace kelvado
