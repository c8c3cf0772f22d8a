#include "render/export/WebFolder.h"

#include "core/Literals.h"
#include "core/Paths.h"
#include "core/RuntimeError.h"
#include "store/mFileAccess.h"

#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace kelvado {

namespace {

constexpr qint64 kProbeBytes = 1 << 16;

/// True where a file of that size can be written into the folder.
bool TakesFiles(const QString& folder, qint64 size)
{
    try {
        FastFile probe(folder + u"/~probe"_s);
        for (; size > 0; size -= kProbeBytes)
            probe.Write(QByteArray(kProbeBytes, '\0'));
        probe.Flush();
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

} // namespace

WebFolder::WebFolder(const QString& path, QList<ExtraFile> extraFiles) : m_path(AppPathOf(path)), m_extraFiles(std::move(extraFiles))
{
    for (const ExtraFile& file : m_extraFiles)
        PathBelow(m_path, file.target);
    MakeDirs(m_path + u"/Images"_s);
}

bool WebFolder::Try(const QString& path, qint64 size, const std::function<void()>& write)
{
    try {
        write();
        return true;
    } catch (const RuntimeError& error) {
        const bool isOfFiles = error.Number() == kErrFileAccess || error.Number() == kErrFileNotFound;
        if (!isOfFiles || !TakesFiles(QFileInfo(path).path(), std::max(size, kProbeBytes)))
            throw;
        m_missing << error.Description();
        return false;
    }
}

void WebFolder::Copy(const QString& source, const QString& target)
{
    const QString path = m_path + u'/' + target;
    Try(path, QFileInfo(source).size(), [&] { CopyFileWhole(source, path); });
}

void WebFolder::CopyExtraFiles()
{
    for (const ExtraFile& file : m_extraFiles) {
        const QString target = PathBelow(m_path, file.target);
        if (Try(m_path + u"/folder"_s, 0, [&] { MakeDirs(QFileInfo(target).path()); }))
            Copy(file.source, target.sliced(m_path.size() + 1));
    }
}

WebPage::WebPage(WebFolder& folder, const QString& name) : m_folder(folder), m_path(folder.Path() + u'/' + name)
{
    Try([this] { m_file.emplace(m_path); });
}

void WebPage::Write(const QString& text)
{
    if (m_file)
        Try([&] { m_file->Write(text.toUtf8()); });
}

void WebPage::Commit()
{
    if (m_file)
        Try([this] { m_file->Commit(); });
    m_file.reset();
}

void WebPage::Try(const std::function<void()>& write)
{
    if (!m_folder.Try(m_path, m_file ? m_file->Size() : 0, write))
        m_file.reset();
}

WebPictures::WebPictures(WebFolder& folder, Connection& catalog, QString skin)
    : m_folder(folder), m_catalog(catalog), m_skin(std::move(skin))
{
}

QString WebPictures::ExportFilmImage(std::int64_t imageId)
{
    if (imageId == 0)
        return StandIn();
    QString& known = m_known[imageId];
    if (!known.isEmpty())
        return known;
    QString path = m_folder.Path() + u"/Images/"_s + QString::number(imageId);
    bool isStored = true;
    const bool isWritten = m_folder.Try(path, 0, [&] {
        try {
            ExportImageFile(path, QString::number(imageId), m_catalog);
        } catch (const RuntimeError& error) {
            if (error.Number() != kErrNoCurrentRecord)
                throw;
            isStored = false;
        }
    });
    if (isWritten && isStored) {
        ++m_count;
        known = "Images\\"_L1 + QFileInfo(path).fileName();
    } else {
        known = StandIn();
    }
    return known;
}

QString WebPictures::StandIn()
{
    if (!std::exchange(m_hasStandIn, true))
        m_folder.Copy(FindFileCaseBlind(SkinFolder(m_skin), u"No Image.jpg"_s), u"Images/No Image.jpg"_s);
    return u"Images\\No Image.jpg"_s;
}

} // namespace kelvado
