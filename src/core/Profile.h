#pragma once

#include <QString>

namespace kelvado {

/// The value of `key` in `section` of the ini file at `path`, at most 255 characters, without outer blanks and one pair of quotes around
/// it. Sections and keys are compared without regard to case. A missing file, section or key gives the empty text.
QString ReadProfileValue(const QString& section, const QString& key, const QString& path);

/// Sets `key` in `section`; adds what is missing and leaves every other line, comment and its order alone. The file is replaced as a
/// whole, so that a failure leaves the old one standing. Returns false where nothing was written; no failure is raised.
bool WriteProfileValue(const QString& section, const QString& key, const QString& value, const QString& path);

} // namespace kelvado
