#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

#include <utility>

namespace kelvado {

/// An ini file, read once. Sections and keys are compared without regard to case; of a key that stands twice, the first counts.
class Profile
{
public:
    /// A missing file has no values.
    explicit Profile(const QString& path);

    /// At most 255 characters, without outer blanks and one pair of quotes around them. A missing section or key gives the empty text.
    QString Value(const QString& section, const QString& key) const;
    const QString& Path() const { return m_path; }

private:
    QString m_path;
    QHash<std::pair<QString, QString>, QString> m_values; // by section and key, in lower case
};

/// One value of the ini file at `path`, as `Profile::Value` gives it; for a single question.
QString ReadProfileValue(const QString& section, const QString& key, const QString& path);

/// Sets `key` in `section`; adds what is missing and leaves every other line, comment and its order alone. The file is replaced as a
/// whole, so that a failure leaves the old one standing. Returns false where nothing was written; no failure is raised.
bool WriteProfileValue(const QString& section, const QString& key, const QString& value, const QString& path);

/// Many changes of one ini file that reach it together, in one write.
class ProfileChanges
{
public:
    explicit ProfileChanges(const QString& path);

    void Set(const QString& section, const QString& key, const QString& value);
    /// Replaces the file. False where it could not be read or written; it then stands as it was.
    bool Write() const;

private:
    QString m_path;
    QStringList m_lines;
    QString m_lineEnd;
    bool m_readable = true;
};

} // namespace kelvado
