#pragma once

#include "core/SafeFile.h"
#include "render/export/WebTemplates.h"
#include "store/Connection.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace kelvado {

/// The folder that a web export writes. A page or picture that cannot be written is put down in `Missing` and the export goes on; where the
/// folder takes nothing at all, as on a full disk, the failure is raised.
class WebFolder
{
public:
    /// Makes the folder and its "Images". Raises `kErrFileAccess`: with the name of an extra file that leads out of the folder, before
    /// anything is made, and with the path where the folder cannot be made.
    WebFolder(const QString& path, QList<ExtraFile> extraFiles);

    const QString& Path() const { return m_path; }
    const QStringList& Missing() const { return m_missing; }
    void AddMissing(const QString& line) { m_missing << line; }

    /// Copies a file to the name `target` below the folder.
    void Copy(const QString& source, const QString& target);
    /// The same with all extra files, which may have folders of their own.
    void CopyExtraFiles();

    /// Does `write`, which writes `path`, of about that size. False where that failed.
    bool Try(const QString& path, qint64 size, const std::function<void()>& write);

private:
    QString m_path;
    QList<ExtraFile> m_extraFiles;
    QStringList m_missing;
};

/// One page of an export. It takes its place with `Commit`; without that, an older page stands as it was. What is written to a page that
/// failed goes nowhere.
class WebPage
{
public:
    WebPage(WebFolder& folder, const QString& name);
    void Write(const QString& text);
    void Commit();

private:
    void Try(const std::function<void()>& write);

    WebFolder& m_folder;
    QString m_path;
    std::optional<FastFile> m_file;
};

/// Puts the pictures of films into the folder, each once.
class WebPictures
{
public:
    WebPictures(WebFolder& folder, Connection& catalog, QString skin);

    /// The path of the picture as pages name it. Number 0, a picture that the catalog does not have and one that cannot be written show the
    /// skin's stand-in.
    QString ExportFilmImage(std::int64_t imageId);
    qint64 Count() const { return m_count; }

private:
    QString StandIn();

    WebFolder& m_folder;
    Connection& m_catalog;
    QString m_skin;
    QHash<std::int64_t, QString> m_known;
    bool m_hasStandIn = false;
    qint64 m_count = 0;
};

} // namespace kelvado
