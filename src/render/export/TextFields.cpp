#include "render/export/TextFields.h"

#include "browse/FilmElements.h"
#include "core/RuntimeError.h"
#include "render/export/TextTemplate.h"
#include "store/Recordset.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace kelvado {

namespace {

constexpr TextField kCustomFields[] = {
    {"Custom", "CUSTOMMAIN", true},
    {"Custom Character", "CHAR", false},
    {"Header Row", "HEADER", false},
    {"Footer Row", "FOOTER", false},
};

constexpr TextField kNameFields[] = {
    {"Actor", "ActorMAIN", true},         {"Actor", "Actor.Actor", false},          {"Character", "Actor.Character", false},
    {"Director", "DirectorMAIN", true},   {"Director", "Director.Director", false}, {"Director Details", "Director.Extended", false},
    {"Producer", "ProducerMAIN", true},   {"Producer", "Producer.Producer", false}, {"Producer Details", "Producer.Extended", false},
    {"Writer", "WriterMAIN", true},       {"Writer", "Writer.Writer", false},       {"Writer Details", "Writer.Extended", false},
    {"Companies", "CompaniesMAIN", true},
};

constexpr CustomText kCustomTexts[] = {
    {"CHAR", "Custom character entry", "Please enter custom character(s)", "Custom Character: \"", kCustomChar, "NORMAL"},
    {"HEADER", "Header row entry", "Please enter header line", "Header Line: \"", kCustomHeader, "HEADER"},
    {"FOOTER", "Footer row entry", "Please enter footer line", "Footer Line: \"", kCustomFooter, "FOOTER"},
};

constexpr int kSiteLinkWidth = 33;
const QString kSiteLinkSort = u"IMDB Link"_s;
constexpr QLatin1StringView kNotSorted[] = {"SeenIt"_L1, "IsRequest"_L1, "Image_ID"_L1, "Movie_ID"_L1};

// Names come where the films' own columns go on with what the web says of them.
std::vector<TextField> MakeFields()
{
    std::vector<TextField> fields(std::begin(kCustomFields), std::end(kCustomFields));
    for (const FilmElement& element : FilterElements()) {
        if (std::strcmp(element.key, "WebMAIN") == 0)
            fields.insert(fields.end(), std::begin(kNameFields), std::end(kNameFields));
        fields.push_back({element.caption, element.key, element.kind == ElementKind::Group});
    }
    return fields;
}

bool HasColumn(const QString& table, const QString& column, Connection& catalog)
{
    Recordset rows;
    rows.Open(u"SELECT * FROM "_s + table, catalog, LockType::ReadOnly);
    try {
        rows.ColumnIndex(column);
        return true;
    } catch (const RuntimeError& error) {
        if (error.Number() != kErrItemNotFound)
            throw;
        return false;
    }
}

} // namespace

std::span<const TextField> TextFields()
{
    static const std::vector<TextField> fields = MakeFields();
    return fields;
}

const CustomText* CustomTextOf(const TextField& field)
{
    const auto* text = std::ranges::find_if(kCustomTexts, [&](const CustomText& kind) { return std::strcmp(kind.key, field.key) == 0; });
    return text == std::end(kCustomTexts) ? nullptr : text;
}

bool IsStorable(const QString& text)
{
    return !text.contains(u'\r') && !text.contains(u'\n') && !text.contains(kTemplateMark);
}

TextEntry CustomEntry(const CustomText& kind, const QString& text)
{
    TextEntry entry;
    entry.Caption = QString::fromLatin1(kind.caption) + text + u'"';
    entry.FieldName = text;
    entry.TableName = kind.table;
    entry.FormatedLength = entry.AutoCutLength = static_cast<int>(std::min<qsizetype>(text.size(), kMostWidth));
    return entry;
}

TextEntry ColumnEntry(const TextField& field, Connection& catalog)
{
    const QString key = QString::fromLatin1(field.key);
    TextEntry entry;
    entry.Caption = QString::fromLatin1(field.caption);
    entry.TableName = key.section(u'.', 0, 0);
    entry.FieldName = key.section(u'.', 1);
    qsizetype width = kSiteLinkWidth;
    if (entry.FieldName == kSiteLink) {
        entry.TableName = kSiteLink;
    } else {
        const std::optional<QString> home = HomeOfColumn(entry, catalog);
        if (!home)
            throw RuntimeError::WithDetail(kErrItemNotFound, key);
        Recordset column;
        column.Open(u"SELECT "_s + *home + u'.' + entry.FieldName + u" FROM "_s + *home, catalog, LockType::ReadOnly);
        width = column[0].DefinedSize();
    }
    // A column without a size of its own cannot be padded to it.
    entry.Formated = width <= kMostWidth;
    entry.FormatedLength = entry.AutoCutLength = static_cast<int>(std::min<qsizetype>(width, kMostWidth));
    return entry;
}

const NameTable* LinkedTable(const QString& table)
{
    for (const NameTable* names : {&kGenre, &kActor, &kDirector, &kProducer, &kWriter, &kCompany}) {
        if (table.compare(names->table, Qt::CaseInsensitive) == 0)
            return names;
    }
    return nullptr;
}

std::optional<QString> HomeOfColumn(const TextEntry& entry, Connection& catalog)
{
    const NameTable* names = LinkedTable(entry.TableName);
    if (!names && entry.TableName.compare("Movie"_L1, Qt::CaseInsensitive) != 0)
        return std::nullopt;
    const QString& own = names ? names->table : u"Movie"_s;
    if (HasColumn(own, entry.FieldName, catalog))
        return own;
    return names && HasColumn(names->linkTable, entry.FieldName, catalog) ? std::optional(names->linkTable) : std::nullopt;
}

QStringList TextSorts(Connection& catalog)
{
    Recordset films;
    films.Open(u"SELECT * FROM Movie"_s, catalog, LockType::ReadOnly);
    QStringList sorts;
    for (int column = 0; column < films.ColumnCount(); ++column) {
        const QString name = films[column].Name();
        if (std::ranges::none_of(kNotSorted, [&](QLatin1StringView other) { return name.compare(other, Qt::CaseInsensitive) == 0; }))
            sorts << name;
    }
    return sorts << kSiteLinkSort;
}

QString TextOrder(const QString& sort, bool descending)
{
    const QString column = sort == kSiteLinkSort ? u"IMDB"_s : sort;
    return u"ORDER BY ["_s + column + (descending ? u"] DESC"_s : u"]"_s);
}

} // namespace kelvado
