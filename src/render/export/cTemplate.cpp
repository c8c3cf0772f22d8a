#include "render/export/cTemplate.h"

#include "core/Literals.h"
#include "core/Paths.h"
#include "core/RuntimeError.h"
#include "core/SafeFile.h"
#include "store/CatalogTemplate.h"
#include "store/mFileAccess.h"

#include <QFileInfo>

#include <array>
#include <utility>

namespace kelvado {

namespace {

// The mark in the engine's file header is "KVDT". Tables and columns have the names that packages have always had.
const QString kSchema = u"PRAGMA application_id = 0x4B564454;"
                        "BEGIN;"
                        "CREATE TABLE HTML (Header TEXT, Body TEXT, Footer TEXT, Detail TEXT, CSS TEXT);"
                        "CREATE TABLE Options (Nav BOOLEAN, FilmsPerPage BOOLEAN, DetailsPage BOOLEAN, StandardPage BOOLEAN);"
                        "CREATE TABLE Files (Path VARCHAR(255), Filename VARCHAR(255), FileData LONGBLOB);"
                        "CREATE TABLE Previews (Image LONGBLOB, Extention VARCHAR(3));"
                        "COMMIT;"_s;

struct TextColumn
{
    QStringView column;
    QString cTemplate::*text;
};
constexpr std::array<TextColumn, 5> kTexts{{
    {u"Header", &cTemplate::Header},
    {u"Body", &cTemplate::Body},
    {u"Footer", &cTemplate::Footer},
    {u"Detail", &cTemplate::Detail},
    {u"CSS", &cTemplate::CSS},
}};

struct FlagColumn
{
    QStringView column;
    bool cTemplate::*flag;
};
constexpr std::array<FlagColumn, 4> kFlags{{
    {u"Nav", &cTemplate::Nav},
    {u"FilmsPerPage", &cTemplate::FilmsPerPage},
    {u"DetailsPage", &cTemplate::DetailsPage},
    {u"StandardPage", &cTemplate::StandardPage},
}};

Recordset OpenTable(QLatin1StringView table, Connection& package, LockType lock)
{
    Recordset rows;
    rows.Open("SELECT * FROM "_L1 + table, package, lock);
    return rows;
}

void AddPicture(Recordset& previews, const QByteArray& picture, const QString& extention)
{
    previews.AddNew();
    previews[u"Image"].Set(picture);
    previews[u"Extention"].Set(extention);
    previews.Update();
}

QString TargetOf(const QString& folder, const Recordset& file)
{
    const QString name = file[u"Filename"].Get().Text();
    if (name.isEmpty() || name == "."_L1)
        throw RuntimeError::WithDetail(kErrFileAccess, u"a file of the package has no name"_s);
    QString path = file[u"Path"].Get().Text().replace(u'\\', u'/') + u'/' + name;
    while (path.startsWith(u'/'))
        path.remove(0, 1);
    return PathBelow(folder, path);
}

} // namespace

void cTemplate::AddFile(const QByteArray& data, const QString& filename, const QString& path)
{
    m_files.append({data, filename, path});
    ++m_fileCount;
}

const cTemplate::File& cTemplate::FileAt(qint64 index) const
{
    if (index < 0 || index >= m_files.size())
        throw RuntimeError(kErrSubscript);
    return m_files[index];
}

QString cTemplate::SaveThumbnail(const QString& folder) const
{
    Connection package = OpenCatalog(PackagePath);
    const Recordset previews = OpenTable("Previews"_L1, package, LockType::ReadOnly);
    return ExportPicture(folder + u"/preview"_s, previews);
}

void cTemplate::SaveAdditionalFiles(const QString& folder) const
{
    Connection package = OpenCatalog(PackagePath);
    Recordset files = OpenTable("Files"_L1, package, LockType::ReadOnly);
    for (; !files.Eof(); files.MoveNext())
        TargetOf(folder, files);
    for (files.MoveFirst(); !files.Eof(); files.MoveNext()) {
        const QString path = TargetOf(folder, files);
        MakePackagePath(QFileInfo(path).path());
        WriteFileFast(path, BytesOf(files[u"FileData"]));
    }
}

void cTemplate::LoadSettings(const QString& packagePath)
{
    Connection package = OpenCatalog(packagePath);
    const Recordset options = OpenTable("Options"_L1, package, LockType::ReadOnly);
    const qint64 fileCount = OpenTable("Files"_L1, package, LockType::ReadOnly).RecordCount();
    cTemplate read;
    for (const FlagColumn& flag : kFlags)
        read.*flag.flag = options[flag.column].Get().Integer() != 0;
    for (const FlagColumn& flag : kFlags)
        this->*flag.flag = read.*flag.flag;
    m_fileCount = fileCount;
}

void cTemplate::LoadTemplate(const QString& packagePath)
{
    Connection package = OpenCatalog(packagePath);
    const Recordset html = OpenTable("HTML"_L1, package, LockType::ReadOnly);
    std::array<QString, kTexts.size()> texts;
    for (std::size_t i = 0; i < kTexts.size(); ++i) {
        const Value value = html[kTexts[i].column].Get();
        if (value.IsNull())
            throw RuntimeError::WithDetail(kErrInvalidNull, kTexts[i].column.toString() + u" ("_s + packagePath + u')');
        texts[i] = value.Text();
    }
    for (std::size_t i = 0; i < kTexts.size(); ++i)
        this->*kTexts[i].text = std::move(texts[i]);
}

void cTemplate::SaveTemplate(const QString& packagePath) const
{
    Connection package = OpenCatalog(packagePath);
    package.AllOrNothing([&] {
        Recordset html = OpenTable("HTML"_L1, package, LockType::Optimistic);
        html.AddNew();
        for (const TextColumn& text : kTexts)
            html[text.column].Set(this->*text.text);
        html.Update();

        Recordset files = OpenTable("Files"_L1, package, LockType::Optimistic);
        for (const File& file : m_files) {
            files.AddNew();
            files[u"FileData"].Set(file.data);
            files[u"Filename"].Set(file.filename);
            files[u"Path"].Set(file.path);
        }
        files.Update();

        Recordset previews = OpenTable("Previews"_L1, package, LockType::Optimistic);
        AddPicture(previews, m_thumbnail, ThumbnailExtention);
        AddPicture(previews, m_preview, PreviewExtention);
    });
    package.Close();
}

void cTemplate::MakePackagePath(const QString& path)
{
    MakeDirs(path);
}

QByteArray cTemplate::GetBinaryFile(const QString& path)
{
    return ReadBytes(path);
}

void MakeEmptyPackage(const QString& path, const cTemplate& flags)
{
    BuildBlankCatalog(path, kSchema);
    Connection package = OpenCatalog(path);
    Recordset options = OpenTable("Options"_L1, package, LockType::Optimistic);
    options.AddNew();
    for (const FlagColumn& flag : kFlags)
        options[flag.column].Set(flags.*flag.flag ? 1 : 0);
    options.Update();
    package.Close();
}

} // namespace kelvado
