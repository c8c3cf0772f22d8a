#include "render/export/WebTemplates.h"

#include "core/Conversions.h"
#include "core/Literals.h"
#include "core/Paths.h"
#include "core/Profile.h"
#include "core/RuntimeError.h"
#include "store/mFileAccess.h"

#include <QStringList>

namespace kelvado {

namespace {

const QString kSection = u"Export"_s;

QString ReadTemplate(const QString& folder, const QString& name)
{
    return ReadFileText(FindFileCaseBlind(folder, name));
}

QList<ExtraFile> ReadExtraFiles(const Profile& file, const QString& folder)
{
    QList<ExtraFile> files;
    for (const QString& entry : file.Value(kSection, u"ExtraFiles"_s).split(u';')) {
        if (TrimBlanks(entry).isEmpty())
            continue;
        const qsizetype bar = entry.indexOf(u'|');
        if (bar < 0)
            throw RuntimeError::WithDetail(kErrSubscript, u"\"%1\" has no target in %2"_s.arg(entry, file.Path()));
        const QString source = TrimBlanks(entry.left(bar));
        PathBelow(folder, source); // before the look for a file of that name
        const QString found = FindFileCaseBlind(folder, source);
        files << ExtraFile{PathBelow(folder, found.sliced(AppPathOf(folder).size() + 1)), TrimBlanks(entry.sliced(bar + 1))};
    }
    return files;
}

qint64 ReadPageSize(const Profile& file)
{
    const QString text = file.Value(kSection, u"PageSize"_s);
    if (text.isEmpty())
        return 0;
    if (!IsNumeric(text))
        throw RuntimeError::WithDetail(kErrTypeMismatch, u"PageSize=%1 in %2"_s.arg(text, file.Path()));
    const qint64 size = ToLong(text);
    if (size < 1)
        throw RuntimeError::WithDetail(kErrInvalidCall, u"PageSize=%1 in %2"_s.arg(text, file.Path()));
    return size;
}

} // namespace

QString WebTemplateFolder(const QString& skin)
{
    return FindFileCaseBlind(SkinFolder(skin), u"Templates/Web"_s);
}

WebTemplates ReadPageTemplates(const QString& folder)
{
    WebTemplates templates;
    templates.header = ReadTemplate(folder, u"header.html"_s);
    templates.body = ReadTemplate(folder, u"body.html"_s);
    templates.footer = ReadTemplate(folder, u"footer.html"_s);
    const Profile file(FindFileCaseBlind(folder, u"Export.ini"_s));
    templates.extraFiles = ReadExtraFiles(file, folder);
    templates.pageSize = ReadPageSize(file);
    return templates;
}

WebTemplates ReadViewTemplates(const QString& folder)
{
    WebTemplates templates;
    templates.header = ReadViewTemplate(u"header"_s, folder);
    templates.body = ReadViewTemplate(u"body"_s, folder);
    templates.footer = ReadViewTemplate(u"footer"_s, folder);
    templates.detail = ReadViewTemplate(u"detail"_s, folder);
    templates.extraFiles = ReadExtraFiles(Profile(FindFileCaseBlind(folder, u"Export.ini"_s)), folder);
    return templates;
}

QString ReadViewTemplate(const QString& name, const QString& folder)
{
    return ReadTemplate(folder, name + u"-byview.html"_s);
}

} // namespace kelvado
