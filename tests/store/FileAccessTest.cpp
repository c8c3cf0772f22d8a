#include "store/mFileAccess.h"

#include "store/Recordset.h"
#include "support/ScriptedDialogs.h"
#include "support/TempCatalog.h"
#include "support/TempHome.h"

namespace kelvado {
namespace {

class FileAccess : public ::testing::Test
{
protected:
    QString Put(const QString& name, const QByteArray& bytes)
    {
        home.Write(name, bytes);
        return home.Path(name);
    }

    TempHome home;
    TempCatalog catalog;
    const QString folder = home.Path({});
    ScriptedDialogs dialogs;
};

TEST_F(FileAccess, ReadsTextsInTheirEncoding)
{
    const std::pair<QByteArray, QString> cases[] = {
        {"", u""_s},
        {"plain\r\n", u"plain\r\n"_s},
        {"\xEF\xBB\xBFÉté \xE4\xB8\xAD", u"Été 中"_s},
        {"caf\xE9 \x80", u"café €"_s},
        {"cut in a character \xC3", u"cut in a character Ã"_s},
        {QByteArray("\xFF\xFE\xE9\0\x2D\x4E", 6), u"é中"_s},
    };
    for (const auto& [bytes, text] : cases)
        EXPECT_EQ(ReadWholeFile(Put(u"text.txt"_s, bytes), dialogs), text) << bytes.constData();
    EXPECT_TRUE(dialogs.boxes.isEmpty());

    const QString missing = folder + u"\\missing.txt"_s;
    EXPECT_EQ(ReadWholeFile(missing, dialogs), QString());
    EXPECT_EQ(dialogs.boxes, (QList<ScriptedDialogs::Box>{{u"File does not exist.\r\n"_s + missing, 16, u"File Access Error"_s}}));
    EXPECT_THROW(ReadWholeFile(folder, dialogs), RuntimeError);
}

TEST_F(FileAccess, WritesTextsWholeOrNotAtAll)
{
    const QString path = folder + u"\\out.txt"_s;
    WriteWholeFile(path, u"Ü"_s);
    EXPECT_EQ(home.Read(u"out.txt"_s), "\xC3\x9C\r\n");

    OpenTextFile(path, true);
    PrintTextLine(u"first"_s);
    EXPECT_EQ(home.Read(u"out.txt"_s), "\xC3\x9C\r\n"); // until it is closed, the old file stands
    PrintTextLine(QString());
    CloseTextFile();
    EXPECT_EQ(home.Read(u"out.txt"_s), "first\r\n\r\n");
    OpenTextFile(path, true);
    PrintTextLine(u"abandoned"_s);
    OpenTextFile(path, false);
    EXPECT_THROW(PrintTextLine(u"x"_s), RuntimeError);
    EXPECT_EQ(ReadTextFile(), u"first\r\n\r\n"_s);
    CloseTextFile();
    CloseTextFile();
    EXPECT_THROW(ReadTextFile(), RuntimeError);
    EXPECT_THROW(OpenTextFile(folder + u"/none.txt"_s, false), RuntimeError);
    EXPECT_THROW(WriteWholeFile(folder + u"/no/such/folder.txt"_s, u"x"_s), RuntimeError);
}

TEST_F(FileAccess, TellsThePictureKindByTheFirstBytes)
{
    const std::pair<QByteArray, QString> cases[] = {
        {QByteArray("GIF89a"), u"GIF"_s},
        {QByteArray("GIFxx"), u"GIF"_s},
        {QByteArray("text about GIF87"), u"GIF"_s},
        {QByteArray(295, 'x') + "GIF89", u"GIF"_s},
        {QByteArray(296, 'x') + "GIF89", u"JPG"_s},
        {QByteArray("\xFF\xD8\xFF\xE0\0\x10JFIF", 10), u"GIF"_s},
        {QByteArray("\xFF\xD8\xFF\xE1\x10", 5), u"JPG"_s},
        {QByteArray("\xFF\0\0\0", 4), u"JPG"_s},
        {QByteArray("BM"), u"BMP"_s},
        {QByteArray("BMGIF89"), u"GIF"_s},
        {QByteArray("\x89PNG"), u"JPG"_s},
        {QByteArray(), u"JPG"_s},
    };
    for (const auto& [bytes, kind] : cases) {
        EXPECT_EQ(ImageKindOfBytes(bytes), kind) << bytes.constData();
        EXPECT_EQ(ImageKindOfFile(Put(u"picture"_s, bytes)), kind);
    }
    EXPECT_EQ(ImageKindOfFile(u"/no/such/file"_s), u"JPG"_s);
    EXPECT_EQ(ImageKindOfFile(folder), u"JPG"_s);
}

TEST_F(FileAccess, MakesFoldersForBothSeparators)
{
    const QString deep = folder + u"\\a/b\\c"_s;
    MakeDirs(deep);
    MakeDirs(deep + u'\\');
    EXPECT_TRUE(QDir(folder + u"/a/b/c"_s).exists());
    const QString file = Put(u"file"_s, "x");
    EXPECT_NE(ErrorTextOf([&] { MakeDirs(file + u"/below"_s); }).find(file.toStdString() + '/'), std::string::npos);
}

TEST_F(FileAccess, PicturesKeepTheirZerosOnTheWayThroughTheCatalog)
{
    for (const qint64 size : {0, 1, 99999, 100000, 100001, 250000}) {
        QByteArray bytes(size, '\0');
        for (qint64 i = 0; i < size; ++i)
            bytes[i] = static_cast<char>(i % 251 + 1);
        const QString path = Put(u"cover.jpeg"_s, bytes);
        Connection connection = OpenCatalog(catalog.Path());
        const qint64 id = StoreImageFile(path, connection);
        QString base = folder + u"\\MImage"_s;
        const QString exported = ExportImageFile(base, QString::number(id), connection);
        EXPECT_EQ(exported, folder + u"/MImage.peg"_s);
        EXPECT_EQ(base, exported);
        EXPECT_EQ(home.Read(u"MImage.peg"_s), bytes + QByteArray(1 + size / 100000, '\0')) << size;
    }
}

TEST_F(FileAccess, ABadPictureLeavesNoFileAndNoRow)
{
    catalog.Run("INSERT INTO Images (Image, Extention) VALUES (x'00', '/../../evil'), (NULL, NULL)");
    Connection connection = OpenCatalog(catalog.Path());
    QString base = folder + u"/x"_s;
    EXPECT_EQ(ErrorOf([&] { ExportImageFile(base, u"99"_s, connection); }), kErrNoCurrentRecord);
    EXPECT_EQ(ErrorOf([&] { ExportImageFile(base, u"1"_s, connection); }), kErrFileAccess);
    EXPECT_EQ(ExportImageFile(base, u"2"_s, connection), folder + u"/x."_s);
    EXPECT_EQ(home.Read(u"x."_s), QByteArray());
    EXPECT_EQ(ErrorOf([&] { StoreImageFile(folder + u"/none.jpg"_s, connection); }), kErrFileNotFound);
    EXPECT_EQ(ErrorOf([&] { StoreImageFile(folder, connection); }), kErrFileNotFound);
    connection.Close();
    EXPECT_EQ(catalog.Ask("SELECT count(*) FROM Images"), u"2"_s);
}

} // namespace
} // namespace kelvado
