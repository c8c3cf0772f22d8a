#include "panels/PictureStore.h"

#include "core/Literals.h"
#include "core/Paths.h"
#include "core/RuntimeError.h"
#include "store/Recordset.h"
#include "store/mFileAccess.h"

#include <QFileInfo>

namespace kelvado {

namespace {

constexpr qint64 kLargestPicture = 128 * 1024 * 1024; // that of a fetched one, too

void OpenOwner(const PictureSlot& slot, Recordset& owner, Connection& connection)
{
    owner.Open(u"SELECT * FROM "_s + slot.table + u" WHERE "_s + slot.keyColumn + u" = "_s + QString::number(slot.id), connection);
    if (owner.Eof())
        throw RuntimeError(kErrNoCurrentRecord);
}

} // namespace

PictureSlot FrontCover(qint64 movieId)
{
    return {"Movie"_L1, "Movie_ID"_L1, "Image_ID"_L1, movieId};
}

PictureSlot BackCover(qint64 movieId)
{
    return {"Movie"_L1, "Movie_ID"_L1, "ImageBack_ID"_L1, movieId};
}

PictureSlot Portrait(qint64 actorId)
{
    return {"Actor"_L1, "Actor_ID"_L1, "Image_ID"_L1, actorId};
}

ShownPicture ReadPicture(const PictureSlot& slot, const QString& basePath, const QString& skin, const QString& catalogPath)
{
    Connection connection = OpenCatalog(catalogPath);
    Recordset owner;
    OpenOwner(slot, owner, connection);
    const qint64 imageId = owner.Integer(owner.ColumnIndex(QString(slot.column)));
    if (imageId == 0)
        return {};
    try {
        QString path = basePath;
        MakeDirs(QFileInfo(basePath).path());
        return {true, true, ExportImageFile(path, QString::number(imageId), connection)};
    } catch (const RuntimeError& error) {
        if (error.Number() != kErrNoCurrentRecord)
            throw;
        return {true, false, FindFileCaseBlind(SkinFolder(skin), u"No Image.jpg"_s)};
    }
}

QString PictureFault(const QString& path)
{
    const QFileInfo file(path);
    if (!file.isFile() || file.size() == 0)
        return path + u" empty or not found."_s;
    if (file.size() > kLargestPicture)
        throw RuntimeError::WithDetail(kErrFileAccess, path + u" (a picture takes 128 MB at most)"_s);
    return {};
}

QString ReplacePicture(const PictureSlot& slot, const QString& path, const QString& catalogPath)
{
    if (QString fault = PictureFault(path); !fault.isEmpty())
        return fault;
    Connection connection = OpenCatalog(catalogPath);
    connection.AllOrNothing([&] {
        Recordset owner;
        OpenOwner(slot, owner, connection);
        const Field column = owner[QString(slot.column)];
        const qint64 old = owner.Integer(owner.ColumnIndex(QString(slot.column)));
        column.Set(StoreImageFile(path, connection));
        owner.Update();
        connection.Execute(u"DELETE FROM Images WHERE Image_ID = ?"_s, {Value(old)});
    });
    connection.Close();
    return {};
}

} // namespace kelvado
