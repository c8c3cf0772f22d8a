#include "core/Literals.h"
#include "intake/MediaFile.h"
#include "support/AviBuilder.h"
#include "support/TempCatalog.h"
#include "support/TempHome.h"

namespace kelvado {
namespace {

const QString kClips = u"" KELVADO_SOURCE_DIR "/tests/data/intake/"_s; // a second each, made by the program `make-clips` there

class VideoFiles : public ::testing::Test
{
protected:
    QString Store(const QByteArray& bytes, const QString& name = u"film.avi"_s) const
    {
        home.Write(name, bytes);
        return home.Path(name);
    }
    AVIDetails Read(const QString& path) const { return GetMediaDetails(path, catalog.Path()); }

    TempHome home;
    TempCatalog catalog;
};

QByteArray Replaced(QByteArray bytes, qsizetype at, const QByteArray& by)
{
    return bytes.replace(at, by.size(), by);
}

TEST_F(VideoFiles, AnAviGivesAllItsFactsRoundedAsTold)
{
    AviBuilder avi;
    avi.streams[0] = {"vids", "xvid", {}, 1001, 30000, 300};
    AVIDetails details = Read(Store(avi.Bytes() + QByteArray(1'000'000, 'x')));
    EXPECT_EQ(
        QStringList({details.FileName, details.Resolution, details.FPS, details.Runtime, details.VideoType, details.AudioType}).join(u'|'),
        u"film.avi|640x480|29.970|10.01|XviD|MPEG-1 Layer 3");
    EXPECT_EQ(details.FileSize, avi.Bytes().size() + 1'000'000);
    EXPECT_EQ(details.AudioBitrate, 128);
    EXPECT_EQ(details.VideoBitrate, 653); // 1000488 / 1024 / 10.01 * 8 - 128 = 652.85

    for (const auto& [rate, scale, text] : {std::tuple(1u, 2000u, u"0.001"_s), {~0u, 1u, u"4294967295.000"_s}})
        EXPECT_EQ(FrameRateText(rate, scale), text);
    details.FileSize = 1024; // 8 units
    for (const auto& [bytes, seconds, video] : {std::tuple(16063u, 1.0, 8 - 129), {0u, 16.0, 0}, {187u, 16.0 / 7, 2}, {0u, 16.0 / 3, 2}}) {
        details.audio.nAvgBytesPerSec = bytes;
        SetBitrates(details, seconds);
        EXPECT_EQ(details.VideoBitrate, video) << seconds;
    }
}

TEST_F(VideoFiles, TheFirstVideoStreamIsFoundWhereverItStands)
{
    AviBuilder plain, soundFirst, twoSounds, farOff, odd;
    soundFirst.streams = {AviBuilder::Audio(), AviBuilder::Video("DX50"), AviBuilder::Video("MJPG")};
    twoSounds.streams << AviBuilder::Audio(8192, 24000, 6);
    farOff.junk = AviBuilder::Chunk("JUNK", QByteArray(70'000, 'j'));
    odd.junk = AviBuilder::Chunk("JUNK", "j"); // its end lies between two groups of four
    const QByteArray bytes = plain.Bytes();
    QByteArray bigEndian = Replaced(bytes, 0, "RIFX");
    for (const qsizetype at : {16, 28, 64, 68, 92, 104, 128, 132, 140}) // sizes of lists and headers, and the facts in them
        std::reverse(bigEndian.begin() + at, bigEndian.begin() + at + 4);
    // The last number is that of the channels of the sound that follows the video as the second stream.
    for (const auto& [name, content, handler, channels] :
         {std::tuple("sound first", soundFirst.Bytes(), "DX50", 0),
          {"two sounds", twoSounds.Bytes(), "XVID", 2},
          {"behind 70 KB", farOff.Bytes(), "XVID", 2},
          {"behind an odd size", odd.Bytes(), "XVID", 0},
          {"small letters", bytes.toLower(), "xvid", 2},
          {"a list without a size", Replaced(bytes, 16, AviBuilder::Number(0)), "XVID", 2},
          {"a file with too much of it", Replaced(bytes, 4, AviBuilder::Number(~0u)), "XVID", 2},
          {"large numbers first", bigEndian, "XVID", 0},
          {"more behind the film", bytes + AviBuilder::Chunk("RIFF", "AVIX" + soundFirst.Bytes().mid(12)), "XVID", 2},
          {"cut in the film", bytes.left(bytes.indexOf("movi") + 9), "XVID", 2},
          {"cut in the sound's format", bytes.left(bytes.lastIndexOf("strf") + 20), "XVID", 0}}) {
        SCOPED_TRACE(name);
        AVIFILEINFO file;
        AVISTREAMINFO stream;
        ReadAVIStreamInfo(Store(content), file, stream);
        EXPECT_EQ(stream.fccHandler, QLatin1StringView(handler));
        EXPECT_EQ(QList({file.dwWidth, file.dwRate, file.dwLength}), QList({640u, 25u, 250u}));
        EXPECT_EQ(ReadAudioFormat(home.Path(u"film.avi"_s)).nChannels, channels);
    }
}

TEST_F(VideoFiles, WhatIsNoWholeAviFailsAndStoresNothing)
{
    const auto with = [](std::uint32_t scale, std::uint32_t rate, std::uint32_t length) {
        AviBuilder avi;
        avi.streams[0] = {"vids", "NEW1", {}, scale, rate, length};
        return avi.Bytes();
    };
    const QByteArray bytes = with(1, 25, 250);
    QByteArray nested = "film";
    for (int i = 0; i < 2000; ++i)
        nested = AviBuilder::List("deep", nested);
    const QByteArray chunks = AviBuilder::Chunk("JUNK", {}).repeated(100'000);
    for (const QByteArray& content :
         {with(0, 25, 250), with(1, 0, 250), with(1, 25, 0), QByteArray(), QByteArray("RIFF"), QByteArray(5000, '\xFF'),
          bytes.left(bytes.indexOf("avih") + 6), bytes.left(bytes.indexOf("strh") + 30), Replaced(bytes, bytes.indexOf("vids"), "txts"),
          AviBuilder::Chunk("RIFF", "AVI " + nested), AviBuilder::Chunk("RIFF", "AVI " + chunks + bytes.mid(12))})
        EXPECT_EQ(ErrorOf([&] { return GetAVIDetails(Store(content), catalog.Path()), 0; }), kErrDivisionByZero) << content.size();
    EXPECT_EQ(ErrorOf([&] { return Read(Store(with(1, 4'000'000'000u, 1))), 0; }), kErrOverflow);
    EXPECT_EQ(ErrorOf([&] { return GetAVIDetails(home.Path(u"none"_s), catalog.Path()), 0; }), kErrFileNotFound);
    EXPECT_EQ(catalog.Ask("SELECT count(*) FROM VideoCodecs WHERE Codec_ID = 'NEW1'"), u"0");

    QFile large(Store(bytes));
    ASSERT_TRUE(large.resize(qint64(1) << 31));
    EXPECT_EQ(ErrorOf([&] { return ReadChosenFile(large.fileName(), catalog.Path()), 0; }), kErrOverflow);
    ASSERT_TRUE(large.resize((qint64(1) << 31) - 1));
    EXPECT_EQ(Read(large.fileName()).FileSize, (qint64(1) << 31) - 1);
}

TEST_F(VideoFiles, AnUnknownCodecIsAddedOnceAndKeepsTheNameThatItGets)
{
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(LookupVideoCodec(u"o'x\0"_s, catalog.Path()), u"Unknown (fccHandler: O'X)");
        EXPECT_EQ(LookupVideoCodec(QString(4, QChar(u'\0')), catalog.Path()), u"Unknown (fccHandler: )");
        EXPECT_EQ(LookupAudioCodec(-3667, catalog.Path()), u"Unknown (Audio ID: -3667)");
    }
    EXPECT_EQ(catalog.Ask("SELECT group_concat(Codec_ID, '|') FROM VideoCodecs WHERE DisplayName LIKE 'Unknown%'"), u"O'X|");
    EXPECT_EQ(catalog.Ask("SELECT group_concat(Codec_ID) FROM AudioCodecs WHERE DisplayName LIKE 'Unknown%'"), u"-3667");
    catalog.Run("UPDATE VideoCodecs SET DisplayName = 'Ox' WHERE Codec_ID = 'O''X'");
    EXPECT_EQ(LookupVideoCodec(u"O'x"_s, catalog.Path()), u"Ox");
}

TEST_F(VideoFiles, OtherContainersGiveTheSameFacts)
{
    for (const QString& wanted :
         {u"h264_mp3.mkv|64x48|H.264|25.000|MPEG-1 Layer 3|64|1"_s, u"mpeg4_aac.mp4|64x48|MPEG-4|23.976|AAC|66|1"_s,
          u"mpeg2_ac3.vob|64x48|MPEG-2|25.000|AC-3|64|1"_s, u"theora_vorbis.ogv|64x48|Theora|25.000|Ogg Vorbis 1|80|1"_s,
          u"wmv2_wma.wmv|64x48|Windows Media Video 8|25.000|Windows Media Audio 2|64|1"_s}) {
        const AVIDetails details = Read(kClips + wanted.section(u'|', 0, 0));
        const QString seconds = QString::number(details.Runtime.toDouble(), 'f', 0);
        EXPECT_EQ(QStringList({details.FileName, details.Resolution, details.VideoType, details.FPS, details.AudioType,
                               QString::number(details.AudioBitrate), seconds})
                      .join(u'|'),
                  wanted);
    }
}

TEST_F(VideoFiles, AFileIsReadByWhatItHoldsAndAFailureNamesIt)
{
    const QByteArray mp4 = FileContent(kClips + u"mpeg4_aac.mp4"_s);
    EXPECT_EQ(Read(Store(mp4)).VideoType, u"MPEG-4");
    EXPECT_EQ(Read(Store(AviBuilder().Bytes(), u"film.mkv"_s)).VideoType, u"XviD");
    for (const QByteArray& content : {QByteArray(), QByteArray(200'000, '\0'), mp4.left(30)}) {
        const QString path = Store(content, u"broken.mkv"_s);
        EXPECT_NE(ErrorTextOf([&] { return ReadChosenFile(path, catalog.Path()); }).find("broken.mkv"), std::string::npos);
        EXPECT_FALSE(ReadChosenFile(Store(content), catalog.Path()));
    }
    EXPECT_FALSE(ReadChosenFile(Store(mp4, u"film.txt"_s), catalog.Path()));
    EXPECT_TRUE(ReadChosenFile(Store(mp4, u"FILM.MKV"_s), catalog.Path()));
    EXPECT_EQ(ErrorOf([&] { return Read(home.Path({})), 0; }), kErrFileNotFound);
}

TEST_F(VideoFiles, AFolderIsWalkedInOrderAndWithoutLoops)
{
    const QString deep = u"1/"_s.repeated(16) + u"deep.avi"_s;
    for (const QString& name : {u"b/Zorn.MKV"_s, u"b/a.ts"_s, u"A.avi"_s, u"c/vts_01_1.vob"_s, u"c/VTS_01_2.VOB"_s, u"notes.txt"_s,
                                u".hidden/d.avi"_s, deep, u"1/"_s + deep})
        Store("x", name);
    ASSERT_TRUE(QFile::link(home.Path({}), home.Path(u"b/loop"_s)));
    QStringList wanted;
    for (const QString& name : {deep, u"A.avi"_s, u"b/a.ts"_s, u"b/Zorn.MKV"_s, u"c/vts_01_1.vob"_s})
        wanted << home.Path(name);
    EXPECT_EQ(FindVideoFiles(QFileInfo(home.Path(u"A.avi"_s)).path()), wanted);
    EXPECT_TRUE(FindVideoFiles(home.Path({}), [] { return false; }).isEmpty());

    EXPECT_EQ(FirstFilmIn(home.Path(u"b"_s)), home.Path(u"b/a.ts"_s));
    Store("x", u"b/xAvi"_s); // an AVI goes first, and no dot is asked for
    EXPECT_EQ(FirstFilmIn(home.Path(u"b"_s)), home.Path(u"b/xAvi"_s));
    EXPECT_FALSE(FirstFilmIn(home.Path(u"1"_s)));
}

} // namespace
} // namespace kelvado
