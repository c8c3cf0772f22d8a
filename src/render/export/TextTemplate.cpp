#include "render/export/TextTemplate.h"

#include "core/Conversions.h"
#include "core/RuntimeError.h"
#include "render/export/TextFields.h"
#include "store/mFileAccess.h"

#include <QDir>
#include <QFileInfo>
#include <QStringList>

namespace kelvado {

namespace {

constexpr qsizetype kValues = 8;
constexpr qsizetype kMostEntries = 1000;
constexpr qint64 kMostBytes = 4 << 20;

[[noreturn]] void Refuse(const QString& reason)
{
    throw RuntimeError(kErrTypeMismatch, reason);
}

int WidthOf(const QString& text)
{
    const std::int32_t width = IsNumeric(text) ? ToLong(text) : -1;
    if (width < 0 || width > kMostWidth)
        Refuse(u"\"%1\" is no width from 0 to %2"_s.arg(text).arg(kMostWidth));
    return width;
}

bool TruthOf(const QString& text)
{
    try {
        return ToBoolean(text);
    } catch (const RuntimeError&) {
        Refuse(u"\"%1\" is neither True nor False"_s.arg(text));
    }
}

CellAlign AlignOf(const QString& text)
{
    if (text != u"0" && text != u"1" && text != u"2")
        Refuse(u"\"%1\" is no alignment: 0, 1 or 2"_s.arg(text));
    return static_cast<CellAlign>(text.toInt());
}

TextEntry EntryOf(const QString& line, Connection& catalog)
{
    const QStringList values = line.split(kTemplateMark);
    if (values.size() != kValues)
        Refuse(u"there are %1 values where %2 belong"_s.arg(values.size()).arg(kValues));
    TextEntry entry{values[0],          values[1],          values[2],          TruthOf(values[3]),
                    WidthOf(values[4]), TruthOf(values[5]), WidthOf(values[6]), AlignOf(values[7])};
    const bool isText = RegionOf(entry) != EntryRegion::Cell || entry.TableName == kCustomChar || entry.TableName == kSiteLink;
    if (!isText && !HomeOfColumn(entry, catalog))
        Refuse(u"the catalog has no field \"%1.%2\""_s.arg(entry.TableName, entry.FieldName));
    return entry;
}

QString LineOf(const TextEntry& entry)
{
    const auto truth = [](bool value) { return value ? u"True"_s : u"False"_s; };
    return QStringList{entry.Caption,
                       entry.FieldName,
                       entry.TableName,
                       truth(entry.Formated),
                       QString::number(entry.FormatedLength),
                       truth(entry.AutoCutt),
                       QString::number(entry.AutoCutLength),
                       QString::number(static_cast<int>(entry.TextAlign))}
        .join(kTemplateMark);
}

QStringList LinesOf(const QString& path)
{
    OpenTextFile(path, false);
    QString text = ReadTextFile();
    CloseTextFile();
    text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
    QStringList lines = text.split(u'\n');
    if (lines.constLast().isEmpty()) // the file ends with a line end
        lines.removeLast();
    return lines;
}

} // namespace

QList<TextEntry> ReadTextTemplate(const QString& path, Connection& catalog)
{
    const QString name = QDir::toNativeSeparators(path);
    if (QFileInfo(path).size() > kMostBytes)
        Refuse(name + u": the file is too large for a template"_s);
    QList<TextEntry> entries;
    for (const QString& line : LinesOf(path)) {
        const qsizetype number = entries.size() + 1;
        try {
            if (number > kMostEntries)
                Refuse(u"a template has %1 lines at most"_s.arg(kMostEntries));
            entries << EntryOf(line, catalog);
        } catch (const RuntimeError& error) {
            throw RuntimeError(error.Number(), name + u", line %1: "_s.arg(number) + error.Description());
        }
    }
    return entries;
}

void WriteTextTemplate(const QString& path, const QList<TextEntry>& entries)
{
    OpenTextFile(path, true);
    for (const TextEntry& entry : entries)
        PrintTextLine(LineOf(entry));
    CloseTextFile();
}

} // namespace kelvado
