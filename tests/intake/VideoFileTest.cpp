#include "core/Literals.h"
#include "intake/MediaFile.h"
#include "intake/mAVIInfo.h"
#include "support/AviBuilder.h"
#include "support/ErrorOf.h"
#include "support/TempCatalog.h"
#include "support/TempHome.h"

#include <QDir>

#include <functional>

namespace kelvado {
namespace {

class VideoFiles : public ::testing::Test
{
protected:
    QString Store(const QByteArray& bytes, const QString& name = u"film.avi"_s) const
    {
        home.Write(name, bytes);
        return home.Path(name);
    }
    AVIDetails Read(const QByteArray& bytes) const { return GetAVIDetails(Store(bytes), catalog.Path()); }

    TempHome home;
    TempCatalog catalog;
};

QByteArray Replaced(QByteArray bytes, const QByteArray& from, const QByteArray& to)
{
    return bytes.replace(bytes.indexOf(from), from.size(), to);
}

QByteArray BigEndian(const QByteArray& bytes, qsizetype strh)
{
    QByteArray other = Replaced(bytes, "RIFF", "RIFX");
    const auto turn = [&other](qsizetype at) { std::reverse(other.begin() + at, other.begin() + at + 4); };
    const qsizetype hdrl = bytes.indexOf("hdrl"), avih = bytes.indexOf("avih"), strl = bytes.indexOf("strl");
    for (const qsizetype at : {hdrl - 4, avih + 4, avih + 40, avih + 44, strl - 4, strh + 4, strh + 28, strh + 32, strh + 40})
        turn(at);
    return other;
}

TEST_F(VideoFiles, AnAviGivesAllItsFacts)
{
    AviBuilder avi;
    avi.streams[0].scale = 1001;
    avi.streams[0].rate = 30000;
    avi.streams[0].length = 300;
    const QByteArray bytes = avi.Bytes() + QByteArray(1'000'000, 'x');
    const AVIDetails details = Read(bytes);
    EXPECT_EQ(details.FileName, u"film.avi");
    EXPECT_EQ(details.FileSize, bytes.size());
    EXPECT_EQ(details.Resolution, u"640x480");
    EXPECT_EQ(details.FPS, u"29.970");
    EXPECT_EQ(details.Runtime, u"10.01");
    EXPECT_EQ(details.AudioBitrate, 128);
    EXPECT_EQ(details.VideoBitrate, 653); // 1000722 / 1024 / 10.01 * 8 - 128 = 653.03
    EXPECT_EQ(details.VideoType, u"XviD");
    EXPECT_EQ(details.AudioType, u"MPEG-1 Layer 3");
    EXPECT_EQ(details.audio.nChannels, 2);
    EXPECT_EQ(details.audio.nSamplesPerSec, 44100u);
    EXPECT_EQ(details.stream.fccHandler, u"XVID");
}

TEST_F(VideoFiles, TheFirstVideoStreamIsFoundWhereverItStands)
{
    AviBuilder plain, soundFirst, twoSounds, farOff, odd;
    soundFirst.streams = {AviBuilder::Audio(), AviBuilder::Video("DX50"), AviBuilder::Video("MJPG")};
    twoSounds.streams << AviBuilder::Audio(8192, 24000, 6);
    farOff.junk = AviBuilder::Chunk("JUNK", QByteArray(70'000, 'j'));
    odd.junk = AviBuilder::Chunk("JUNK", "j"); // its end lies between two groups of four
    const QByteArray bytes = plain.Bytes();
    const QByteArray untold = Replaced(bytes, bytes.mid(bytes.indexOf("hdrl") - 4, 4), AviBuilder::Number(0));
    const QByteArray boastful = Replaced(bytes, bytes.mid(4, 4), AviBuilder::Number(~0u));
    const struct
    {
        const char* name;
        QByteArray bytes;
        const char* handler;
        int channels; ///< of the sound that follows the video as the second stream
    } kCases[] = {
        {"plain", bytes, "XVID", 2},
        {"sound first", soundFirst.Bytes(), "DX50", 0},
        {"two sounds", twoSounds.Bytes(), "XVID", 2},
        {"behind 70 KB", farOff.Bytes(), "XVID", 2},
        {"behind an odd size", odd.Bytes(), "XVID", 0},
        {"small letters", bytes.toLower(), "xvid", 2},
        {"a list without a size", untold, "XVID", 2},
        {"a file with too much of it", boastful, "XVID", 2},
        {"large numbers first", BigEndian(bytes, bytes.indexOf("strh")), "XVID", 0},
        {"more behind the film", bytes + AviBuilder::Chunk("RIFF", "AVIX" + soundFirst.Bytes().mid(12)), "XVID", 2},
        {"cut in the film", bytes.left(bytes.indexOf("movi") + 9), "XVID", 2},
        {"cut in the sound's format", bytes.left(bytes.lastIndexOf("strf") + 20), "XVID", 0},
    };
    for (const auto& one : kCases) {
        SCOPED_TRACE(one.name);
        const QString path = Store(one.bytes);
        AVIFILEINFO file;
        AVISTREAMINFO stream;
        ReadAVIStreamInfo(path, file, stream);
        EXPECT_EQ(stream.fccHandler, QLatin1StringView(one.handler));
        EXPECT_EQ(file.dwWidth, 640u);
        EXPECT_EQ(file.dwRate, 25u);
        EXPECT_EQ(file.dwLength, 250u);
        EXPECT_EQ(ReadAudioFormat(path).nChannels, one.channels);
    }
}

TEST_F(VideoFiles, WhatIsNoWholeAviFailsAndStoresNothing)
{
    const auto with = [](std::uint32_t scale, std::uint32_t rate, std::uint32_t length) {
        AviBuilder avi;
        avi.streams[0].handler = "NEW1";
        avi.streams[0].scale = scale;
        avi.streams[0].rate = rate;
        avi.streams[0].length = length;
        return avi.Bytes();
    };
    const QByteArray bytes = with(1, 25, 250);
    QByteArray nested = "film";
    for (int i = 0; i < 2000; ++i)
        nested = AviBuilder::List("deep", nested);
    const QByteArray chunks = AviBuilder::Chunk("JUNK", {}).repeated(100'000);
    const QList<QPair<QByteArray, int>> kCases{
        {with(0, 25, 250), kErrDivisionByZero},
        {with(1, 0, 250), kErrDivisionByZero},
        {with(1, 25, 0), kErrDivisionByZero},
        {with(1, 4'000'000'000u, 1), kErrOverflow},
        {"", kErrDivisionByZero},
        {"RIFF", kErrDivisionByZero},
        {QByteArray(5000, '\xFF'), kErrDivisionByZero},
        {bytes.left(bytes.indexOf("avih") + 6), kErrDivisionByZero},
        {bytes.left(bytes.indexOf("strh") + 30), kErrDivisionByZero},
        {Replaced(bytes, "vids", "txts"), kErrDivisionByZero},
        {AviBuilder::Chunk("RIFF", "AVI " + nested) + bytes, kErrDivisionByZero},
        {AviBuilder::Chunk("RIFF", "AVI " + chunks) + bytes, kErrDivisionByZero},
    };
    for (const auto& [content, error] : kCases)
        EXPECT_EQ(ErrorOf([&, &film = content] { return Read(film), 0; }), error) << content.left(60).toStdString();
    EXPECT_EQ(ErrorOf([&] { return GetAVIDetails(home.Path(u"none"_s), catalog.Path()), 0; }), kErrFileNotFound);
    EXPECT_EQ(catalog.Ask("SELECT count(*) FROM VideoCodecs WHERE Codec_ID = 'NEW1'"), u"0");

    QFile large(Store(bytes));
    ASSERT_TRUE(large.resize(qint64(1) << 31));
    const QString path = large.fileName();
    EXPECT_EQ(ErrorOf([&] { return GetMediaDetails(path, catalog.Path()), 0; }), kErrOverflow);
    ASSERT_TRUE(large.resize((qint64(1) << 31) - 1));
    EXPECT_EQ(GetMediaDetails(path, catalog.Path()).FileSize, (qint64(1) << 31) - 1);
}

TEST_F(VideoFiles, FiguresAreRoundedAsTold)
{
    const QList<std::tuple<std::uint32_t, std::uint32_t, QString>> kRates{{25000, 1000, u"25.000"_s}, {24000, 1001, u"23.976"_s},
                                                                          {1, 2000, u"0.001"_s},      {3, 2000, u"0.002"_s},
                                                                          {1, 2001, u"0.000"_s},      {~0u, 1, u"4294967295.000"_s}};
    for (const auto& [rate, scale, text] : kRates)
        EXPECT_EQ(FrameRateText(rate, scale), text);
    AVIDetails details;
    details.FileSize = 1024;
    for (const auto& [bytes, seconds, audio, video] : {std::tuple(16062u, 1.0, 128, -120),
                                                       {16062u + 1, 1.0, 129, -121},
                                                       {0u, 16.0, 0, 0},
                                                       {312u, 16.0 / 3, 2, 0},
                                                       {187u, 16.0 / 7, 1, 2}}) {
        details.audio.nAvgBytesPerSec = bytes;
        SetBitrates(details, seconds);
        EXPECT_EQ(details.AudioBitrate, audio) << bytes;
        EXPECT_EQ(details.VideoBitrate, video) << bytes;
    }
}

TEST_F(VideoFiles, AnUnknownCodecIsAddedOnceAndKeepsTheNameThatItGets)
{
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(LookupVideoCodec(u"o'x\0"_s, catalog.Path()), u"Unknown (fccHandler: O'X)");
        EXPECT_EQ(LookupVideoCodec(QString(4, QChar(u'\0')), catalog.Path()), u"Unknown (fccHandler: )");
        EXPECT_EQ(LookupAudioCodec(0, catalog.Path()), u"Unknown (Audio ID: 0)");
        EXPECT_EQ(LookupAudioCodec(-3667, catalog.Path()), u"Unknown (Audio ID: -3667)");
    }
    EXPECT_EQ(catalog.Ask("SELECT group_concat(Codec_ID, '|') FROM VideoCodecs WHERE DisplayName LIKE 'Unknown%'"), u"O'X|");
    EXPECT_EQ(catalog.Ask("SELECT group_concat(Codec_ID) FROM AudioCodecs WHERE DisplayName LIKE 'Unknown%'"), u"0,-3667");
    catalog.Run("UPDATE VideoCodecs SET DisplayName = 'Ox' WHERE Codec_ID = 'O''X'; UPDATE AudioCodecs SET DisplayName = NULL");
    EXPECT_EQ(LookupVideoCodec(u"O'x"_s, catalog.Path()), u"Ox");
    EXPECT_EQ(LookupAudioCodec(0, catalog.Path()), QString());
    EXPECT_EQ(LookupVideoCodec(u"divx"_s, catalog.Path()), u"DivX 4");
}

// The clips are made by `tests/data/intake/make-clips`: a second of film with sound on one channel.
TEST_F(VideoFiles, OtherContainersGiveTheSameFacts)
{
    const QString folder = u"" KELVADO_SOURCE_DIR "/tests/data/intake/"_s;
    const struct
    {
        QString file, video, audio, fps;
        double seconds;
        int audioBitrate;
    } kCases[] = {
        {u"h264_mp3.mkv"_s, u"H.264"_s, u"MPEG-1 Layer 3"_s, u"25.000"_s, 1, 64},
        {u"mpeg4_aac.mp4"_s, u"MPEG-4"_s, u"AAC"_s, u"23.976"_s, 1, 66},
        {u"mpeg2_ac3.vob"_s, u"MPEG-2"_s, u"AC-3"_s, u"25.000"_s, 1, 64},
        {u"theora_vorbis.ogv"_s, u"Theora"_s, u"Ogg Vorbis 1"_s, u"25.000"_s, 1, 80},
        {u"wmv2_wma.wmv"_s, u"Windows Media Video 8"_s, u"Windows Media Audio 2"_s, u"25.000"_s, 1, 64},
    };
    for (const auto& one : kCases) {
        SCOPED_TRACE(one.file.toStdString());
        const AVIDetails details = GetMediaDetails(folder + one.file, catalog.Path());
        EXPECT_EQ(details.Resolution, u"64x48");
        EXPECT_EQ(details.VideoType, one.video);
        EXPECT_EQ(details.AudioType, one.audio);
        EXPECT_EQ(details.FPS, one.fps);
        EXPECT_NEAR(details.Runtime.toDouble(), one.seconds, 0.1);
        EXPECT_EQ(details.AudioBitrate, one.audioBitrate);
        EXPECT_EQ(details.audio.nChannels, 1);
        EXPECT_EQ(details.FileName, one.file);
    }
    EXPECT_EQ(catalog.Ask("SELECT count(*) FROM VideoCodecs WHERE DisplayName LIKE 'Unknown%'"), u"0");
}

TEST_F(VideoFiles, AFileIsReadByWhatItHoldsAndAFailureNamesIt)
{
    QFile clip(u"" KELVADO_SOURCE_DIR "/tests/data/intake/mpeg4_aac.mp4"_s);
    ASSERT_TRUE(clip.open(QIODevice::ReadOnly));
    const QByteArray mp4 = clip.readAll();
    const QString wrongName = Store(mp4, u"film.avi"_s);
    EXPECT_EQ(GetMediaDetails(wrongName, catalog.Path()).VideoType, u"MPEG-4");
    EXPECT_EQ(GetMediaDetails(Store(AviBuilder().Bytes(), u"film.mkv"_s), catalog.Path()).VideoType, u"XviD");

    for (const QByteArray& content : {QByteArray(), QByteArray("no film"), QByteArray(200'000, '\0'), mp4.left(30)}) {
        const QString path = Store(content, u"broken.mkv"_s);
        const auto read = [&] { return GetMediaDetails(path, catalog.Path()), 0; };
        EXPECT_EQ(ErrorOf(read), kErrFileAccess);
        EXPECT_NE(ErrorTextOf(read).find("broken.mkv"), std::string::npos);
        EXPECT_EQ(ErrorOf([&] { return ReadChosenFile(path, catalog.Path()), 0; }), kErrFileAccess);
        EXPECT_FALSE(ReadChosenFile(Store(content), catalog.Path()));
    }
    EXPECT_FALSE(ReadChosenFile(Store(mp4, u"film.txt"_s), catalog.Path()));
    EXPECT_TRUE(ReadChosenFile(Store(mp4, u"FILM.MKV"_s), catalog.Path()));
    EXPECT_EQ(ErrorOf([&] { return GetMediaDetails(home.Path({}), catalog.Path()), 0; }), kErrFileNotFound);
}

TEST_F(VideoFiles, AFolderIsWalkedInOrderAndWithoutLoops)
{
    for (const QString& name : {u"b/Zorn.MKV"_s, u"b/a.ts"_s, u"A.avi"_s, u"c.mp4"_s, u"notes.txt"_s, u"b/mkv"_s, u".hidden/d.avi"_s})
        home.Write(name, "x");
    home.Write(u"1/"_s.repeated(16) + u"deep.avi"_s, "x");
    home.Write(u"1/"_s.repeated(17) + u"deeper.avi"_s, "x");
    ASSERT_TRUE(QFile::link(home.Path({}), home.Path(u"b/loop"_s)));
    QStringList found;
    for (const QString& path : FindVideoFiles(home.Path({})))
        found << QDir(home.Path({})).relativeFilePath(path);
    EXPECT_EQ(found, QStringList({u"1/"_s.repeated(16) + u"deep.avi"_s, u"A.avi"_s, u"b/a.ts"_s, u"b/Zorn.MKV"_s, u"c.mp4"_s}));
    int folders = 0;
    EXPECT_LT(FindVideoFiles(home.Path({}), [&] { return ++folders < 3; }).size(), 5);
    EXPECT_EQ(folders, 3);
    EXPECT_EQ(ErrorOf([&] { return FindVideoFiles(home.Path(u"none"_s)).size(); }), kErrFileNotFound);

    EXPECT_EQ(FirstFilmIn(home.Path({})), home.Path(u"A.avi"_s));
    EXPECT_EQ(FirstFilmIn(home.Path(u"b"_s)), home.Path(u"b/a.ts"_s));
    home.Write(u"b/xAvi"_s, "x"); // no dot is asked for
    EXPECT_EQ(FirstFilmIn(home.Path(u"b"_s)), home.Path(u"b/xAvi"_s));
    EXPECT_FALSE(FirstFilmIn(home.Path(u"1"_s)));
}

} // namespace
} // namespace kelvado
