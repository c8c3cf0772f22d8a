#include "intake/FileFilm.h"
#include "core/Literals.h"
#include "intake/cCDMonitor.h"
#include "support/ErrorOf.h"
#include "support/ScriptedDiscs.h"

#include <tuple>

namespace kelvado {
namespace {

AVIDetails Details()
{
    AVIDetails details;
    details.FileName = u"film.avi"_s;
    details.FileSize = 734'527'488; // 700.5 MB
    details.Resolution = u"640x480"_s;
    details.Runtime = u"5430"_s; // 90.5 minutes
    details.FPS = u"25.000"_s;
    details.VideoBitrate = 900;
    details.AudioBitrate = 128;
    details.AudioType = u"AC-3"_s;
    details.VideoType = u"XviD"_s;
    details.audio.nChannels = 6;
    return details;
}

TEST(FileFilm, TheNameOfAFileGivesTitleAndGroup)
{
    const QList<std::tuple<QString, QString, QString>> kNames{
        {u"The.Matrix-GRP.avi"_s, u"the matrix"_s, u"grp"_s},
        {u"The.Matrix-GRP.MKV"_s, u"the matrix"_s, u"grp"_s},
        {u"dvdrip-movie.avi"_s, QString(), u"movie"_s},
        {u"movie43-grp.avi"_s, u"43"_s, u"grp"_s},
        {u"a-b.c.avi"_s, u"a b"_s, u"c"_s},
        {u"Alien"_s, QString(), u"alien"_s},
        {u"Movie.Some_Film.(DVDRip.XviD)-[My_Team].avi"_s, u"some film"_s, u"[my team]"_s},
        {u"a....b-.avi"_s, u"a  b"_s, QString()}, // each double blank goes in one pass
        {u"x-ray.x-x.avi"_s, u"ray"_s, u"x"_s},
        {u".avi"_s, QString(), QString()},
    };
    for (const auto& [name, wantedTitle, wantedGroup] : kNames) {
        QString group = u"before"_s, title = group;
        DeriveTitleAndGroup(name, group, title);
        EXPECT_EQ(title, wantedTitle) << name.toStdString();
        EXPECT_EQ(group, wantedGroup) << name.toStdString();
    }
    for (const auto& [handler, format] : {std::pair(u"div3"_s, u"DivX"_s),
                                          {u"DIVX"_s, u"DivX"_s},
                                          {u"xvid"_s, u"XviD"_s},
                                          {u"xvi\0"_s, u"-"_s},
                                          {u"DX50"_s, u"-"_s},
                                          {QString(), u"-"_s}})
        EXPECT_EQ(FormatOfHandler(handler).value_or(u"-"_s), format) << handler.toStdString();
}

TEST(FileFilm, FactsGetTheirTextsAndTheSizeCountsForEachDisc)
{
    AVIDetails details = Details();
    const FileLabels labels = LabelsOf(details);
    EXPECT_EQ(labels.lblFilesize, u"734527488");
    EXPECT_EQ(labels.lblRuntime, u"90");
    EXPECT_EQ(labels.lblAudioBitrate, u"128Kbp/s");
    EXPECT_EQ(labels.lblVideoBitrate, u"900Kbp/s");

    FilmRecord film;
    SetFileFilm(details, {u"2"_s, u"grp"_s, u"XviD"_s, u"A7"_s}, film);
    const QStringList fields{film.Filesize, film.FileName, film.VidBitrate, film.AudBitrate, film.AudChannels, film.VidType,
                             film.AudType,  film.Number,   film.Group,      film.Format,     film.Resolution,  film.Index};
    EXPECT_EQ(fields.join(u'|'), u"700mb|film.avi|900 kbp/s|128 kbp/s|6 channel|XviD|AC-3|2|grp|XviD|640x480|A7");

    EXPECT_EQ(ErrorOf([&] { return MultiplyByDiscs(details, u"two"_s), 0; }), kErrTypeMismatch);
    EXPECT_EQ(ErrorOf([&] { return MultiplyByDiscs(details, u"3"_s), 0; }), kErrOverflow);
    EXPECT_EQ(details.FileSize, Details().FileSize);
    MultiplyByDiscs(details, u"2"_s);
    EXPECT_EQ(details.FileSize, 2 * Details().FileSize);
}

TEST(FileFilm, TheNextDriveWithANamedDiscIsTakenInTurn)
{
    ScriptedDiscs discs;
    for (const QString& volume : {u"FILM1 "_s, QString(), u"FILM2"_s, QString()})
        discs.drives << DiscDrive{u"sr%1"_s.arg(discs.drives.size()), volume, true};
    const QList<DriveEntry> entries = ListCDDrives(discs);
    EXPECT_EQ(entries[0].text, u" FILM1 (sr0)");
    EXPECT_EQ(entries[1].text.size(), 7);
    EXPECT_EQ(entries[1].tag, u"sr1");
    for (const auto& [selected, next] : {std::pair(0, 2), {1, 2}, {2, 0}, {3, 0}})
        EXPECT_EQ(NextDisc(entries, selected), next) << selected;
    EXPECT_EQ(NextDisc(entries.first(2), 0), 0);
    EXPECT_EQ(NextDisc({}, -1), -1);
}

TEST(FileFilm, AMonitorWatchesOnceAndNoLongerThanItLives)
{
    ScriptedDiscs discs;
    QList<int> actions;
    {
        cCDMonitor monitor;
        QObject::connect(&monitor, &cCDMonitor::CDROMChanged, &monitor, [&](std::int32_t action) { actions << action; });
        monitor.SubClass(discs);
        ScriptedDiscs other;
        monitor.SubClass(other);
        EXPECT_FALSE(other.watcher);
        discs.Tell(kDiscArrived);
    }
    discs.Tell(kDiscLeft);
    EXPECT_EQ(actions, QList<int>{1});
}

} // namespace
} // namespace kelvado
