#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace kelvado {

/// A template package: one file of the catalog's engine that carries a whole look for web pages. It has the texts of the pages, two
/// pictures that show it, and any number of further files. Each routine that touches a package opens it for itself and closes it.
/// They raise `kErrDatabase` with the engine's text for what is no package, and where a table is missing.
class cTemplate
{
public:
    QString PackagePath;
    QString ThumbnailExtention, PreviewExtention; ///< the kinds of the two pictures, "JPG" and the like
    QString Header, Body, Footer, Detail, CSS;    ///< the pages' templates and their style sheet
    bool Nav = false;                             ///< its pages lead to one another
    bool FilmsPerPage = false;                    ///< its films are spread over pages
    bool DetailsPage = false;                     ///< it has a page for each film
    bool StandardPage = false;                    ///< false for pages of the groups of a view

    /// The number of further files: those of the package that `LoadSettings` read, and those added since.
    qint64 FileCount() const { return m_fileCount; }
    const QByteArray& ThumbnailData() const { return m_thumbnail; }
    void SetThumbnailData(const QByteArray& bytes) { m_thumbnail = bytes; }
    const QByteArray& PreviewData() const { return m_preview; }
    void SetPreviewData(const QByteArray& bytes) { m_preview = bytes; }

    /// Adds a file for `SaveTemplate`. `path` is its folder, relative, with "/" or "\".
    void AddFile(const QByteArray& data, const QString& filename, const QString& path);
    // Of the files added, from 0. Each raises `kErrSubscript` for a place that is none.
    QByteArray GetFileData(qint64 index) const { return FileAt(index).data; }
    QString GetFilename(qint64 index) const { return FileAt(index).filename; }
    QString GetFilePath(qint64 index) const { return FileAt(index).path; }

    /// Writes the first picture of the package to "preview" and its kind in `folder`, and returns that path. Raises `kErrNoCurrentRecord`
    /// where the package has no picture, `kErrFileAccess` where it cannot be written.
    QString SaveThumbnail(const QString& folder) const;

    /// Unpacks the further files into `folder`. Raises `kErrFileAccess` with the name of one that leads out of the folder, before anything
    /// is written, or that cannot be written.
    void SaveAdditionalFiles(const QString& folder) const;

    /// Reads the four flags and the number of files. Raises `kErrNoCurrentRecord` where the package has no row of flags.
    void LoadSettings(const QString& packagePath);

    /// Reads the texts of the pages. Raises `kErrInvalidNull` where one is Null; all texts are then as they were.
    void LoadTemplate(const QString& packagePath);

    /// Adds texts, files and pictures to an existing package, which has its flags already. All of it is stored or nothing.
    void SaveTemplate(const QString& packagePath) const;

    /// Creates every missing folder of `path`.
    static void MakePackagePath(const QString& path);
    /// The whole content of a file. Raises `kErrFileNotFound` for a missing one.
    static QByteArray GetBinaryFile(const QString& path);

private:
    struct File
    {
        QByteArray data;
        QString filename;
        QString path;
    };
    const File& FileAt(qint64 index) const;

    QList<File> m_files; ///< those added
    qint64 m_fileCount = 0;
    QByteArray m_thumbnail, m_preview;
};

/// Makes a package at `path`, over whatever stands there, that has the flags of `flags` and nothing else; `cTemplate::SaveTemplate` fills
/// it. Raises `kErrFileAccess` where it cannot be written.
void MakeEmptyPackage(const QString& path, const cTemplate& flags);

} // namespace kelvado
