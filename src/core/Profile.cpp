#include "core/Profile.h"

#include "core/Conversions.h"
#include "core/Literals.h"
#include "core/RuntimeError.h"
#include "core/SafeFile.h"

#include <QFile>
#include <QStringDecoder>

#include <optional>

namespace kelvado {

namespace {

constexpr qsizetype kLongestValue = 255;

struct IniLine
{
    enum class Kind { Other, Section, Key } kind = Kind::Other;
    QStringView name;
    QStringView value;
};

IniLine ReadLine(QStringView line)
{
    const QStringView trimmed = line.trimmed();
    if (trimmed.startsWith(u'[')) {
        const qsizetype close = trimmed.indexOf(u']');
        return {IniLine::Kind::Section, trimmed.sliced(1, (close < 0 ? trimmed.size() : close) - 1).trimmed(), {}};
    }
    const qsizetype equals = trimmed.indexOf(u'=');
    if (equals <= 0 || trimmed.startsWith(u';') || trimmed.startsWith(u'#'))
        return {};
    QStringView value = trimmed.sliced(equals + 1).trimmed();
    if (value.size() >= 2 && (value.front() == u'"' || value.front() == u'\'') && value.front() == value.back())
        value = value.sliced(1, value.size() - 2);
    return {IniLine::Kind::Key, trimmed.first(equals).trimmed(), value};
}

bool SameName(QStringView a, QStringView b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

// The file's text; the empty text for a missing file, nothing for one that cannot be read.
std::optional<QString> ReadText(const QString& path)
{
    QFile file(path);
    if (!file.exists())
        return QString();
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    QByteArray bytes = file.readAll();
    if (bytes.startsWith("\xEF\xBB\xBF"))
        bytes.remove(0, 3);
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder(bytes);
    return decoder.hasError() ? FromWindows1252(bytes) : text;
}

// What a value may hold in one line: no line ends; quotes around it where outer blanks or quotes would be lost by reading.
QString OneLine(QString value)
{
    value.replace(u"\r\n"_s, u" "_s).replace(u'\r', u' ').replace(u'\n', u' ');
    const bool quoted = value.size() >= 2 && (value.front() == u'"' || value.front() == u'\'') && value.front() == value.back();
    return quoted || value != value.trimmed() ? u'"' + value + u'"' : value;
}

} // namespace

Profile::Profile(const QString& path) : m_path(path)
{
    const QString text = ReadText(path).value_or(QString());
    QString section;
    bool inSection = false;
    for (const QStringView line : QStringView(text).split(u'\n')) {
        const IniLine parsed = ReadLine(line);
        if (parsed.kind == IniLine::Kind::Section) {
            section = parsed.name.toString().toLower();
            inSection = true;
        } else if (inSection && parsed.kind == IniLine::Kind::Key) {
            const std::pair<QString, QString> name(section, parsed.name.toString().toLower());
            if (!m_values.contains(name))
                m_values.insert(name, parsed.value.left(kLongestValue).toString());
        }
    }
}

QString Profile::Value(const QString& section, const QString& key) const
{
    return m_values.value({section.toLower(), key.toLower()});
}

QString ReadProfileValue(const QString& section, const QString& key, const QString& path)
{
    return Profile(path).Value(section, key);
}

bool WriteProfileValue(const QString& section, const QString& key, const QString& value, const QString& path)
{
    ProfileChanges changes(path);
    changes.Set(section, key, value);
    return changes.Write();
}

ProfileChanges::ProfileChanges(const QString& path) : m_path(path), m_lineEnd(u"\n"_s)
{
    const std::optional<QString> text = ReadText(path);
    m_readable = text.has_value();
    if (!m_readable || text->isEmpty())
        return;
    if (text->contains(u"\r\n"))
        m_lineEnd = u"\r\n"_s;
    m_lines = text->split(u'\n');
    for (QString& line : m_lines) {
        if (line.endsWith(u'\r'))
            line.chop(1);
    }
    if (m_lines.last().isEmpty())
        m_lines.removeLast();
}

void ProfileChanges::Set(const QString& section, const QString& key, const QString& value)
{
    const QString entry = key + u'=' + OneLine(value);
    qsizetype behindSection = -1; // behind the last key of the wanted section, or its heading
    bool inSection = false;
    for (qsizetype i = 0; i < m_lines.size(); ++i) {
        const IniLine parsed = ReadLine(m_lines[i]);
        if (parsed.kind == IniLine::Kind::Section) {
            if (behindSection >= 0)
                break;
            inSection = SameName(parsed.name, section);
        }
        if (!inSection)
            continue;
        if (parsed.kind == IniLine::Kind::Key && SameName(parsed.name, key)) {
            m_lines[i] = entry;
            return;
        }
        if (parsed.kind != IniLine::Kind::Other)
            behindSection = i + 1;
    }
    if (behindSection >= 0) {
        m_lines.insert(behindSection, entry);
        return;
    }
    if (!m_lines.isEmpty())
        m_lines.append(QString());
    m_lines << u'[' + section + u']' << entry;
}

bool ProfileChanges::Write() const
{
    if (!m_readable)
        return false;
    try {
        WriteFileWhole(m_path, (m_lines.join(m_lineEnd) + m_lineEnd).toUtf8());
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

} // namespace kelvado
