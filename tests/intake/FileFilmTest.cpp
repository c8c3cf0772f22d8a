#include "intake/FileFilm.h"
#include "core/Literals.h"
#include "intake/cCDMonitor.h"
#include "support/ScriptedDiscs.h"

namespace kelvado {
namespace {

TEST(FileFilm, TheNameOfAFileGivesTitleAndGroup)
{
    for (const QString& wanted :
         {u"The.Matrix-GRP.avi|the matrix|grp"_s, u"The.Matrix-GRP.MKV|the matrix|grp"_s, u"dvdrip-movie.avi||movie"_s,
          u"movie43-grp.avi|43|grp"_s, u"a-b.c.avi|a b|c"_s, u"Alien||alien"_s, u".avi||"_s, u"x-ray.x-x.avi|ray|x"_s,
          u"Movie.Some_Film.(DVDRip.XviD)-[My_Team].avi|some film|[my team]"_s, u"a....b-.avi|a  b|"_s}) {
        const QString name = wanted.section(u'|', 0, 0);
        QString group = u"before"_s, title = group;
        DeriveTitleAndGroup(name, group, title);
        EXPECT_EQ(name + u'|' + title + u'|' + group, wanted);
    }
    for (const auto& [handler, format] : {std::pair(u"div3"_s, u"DivX"_s), {u"xvid"_s, u"XviD"_s}, {u"xvi\0"_s, u"-"_s}, {{}, u"-"_s}})
        EXPECT_EQ(FormatOfHandler(handler).value_or(u"-"_s), format) << handler.toStdString();
}

TEST(FileFilm, FactsGetTheirTextsAndTheSizeCountsForEachDisc)
{
    constexpr qint64 kSize = 734'527'488;      // 700.5 MB
    constexpr const char* k90Minutes = "5430"; // 90.5, of which the even number stays
    AVIDetails details{{}, {}, {}, u"film.avi"_s, kSize, u"640x480"_s, QLatin1StringView(k90Minutes), {}, 900, 128, u"AC-3"_s, u"XviD"_s};
    details.audio.nChannels = 6;
    const FileLabels labels = LabelsOf(details);
    EXPECT_EQ(labels.lblFilesize + labels.lblRuntime + labels.lblAudioBitrate + labels.lblVideoBitrate, u"73452748890128Kbp/s900Kbp/s");

    FilmRecord film;
    SetFileFilm(details, {u"2"_s, u"grp"_s, u"XviD"_s, u"A7"_s}, film);
    const QStringList fields{film.Filesize, film.FileName, film.VidBitrate, film.AudBitrate, film.AudChannels, film.VidType,
                             film.AudType,  film.Number,   film.Group,      film.Format,     film.Resolution,  film.Index};
    EXPECT_EQ(fields.join(u'|'), u"700mb|film.avi|900 kbp/s|128 kbp/s|6 channel|XviD|AC-3|2|grp|XviD|640x480|A7");

    for (const auto& [discs, error] : {std::pair(u"two"_s, kErrTypeMismatch), {u"3"_s, kErrOverflow}, {u"2"_s, 0}}) {
        EXPECT_EQ(details.FileSize, kSize);
        EXPECT_EQ(ErrorOf([&, &number = discs] { return MultiplyByDiscs(details, number), 0; }), error);
    }
    EXPECT_EQ(details.FileSize, 2 * kSize);
}

TEST(FileFilm, TheNextDriveWithANamedDiscIsTakenInTurn)
{
    ScriptedDiscs discs;
    discs.drives = {{u"sr0"_s, u"FILM1 "_s, true}, {u"sr1"_s, {}, true}, {u"sr2"_s, u"FILM2"_s, true}, {u"sr10"_s, {}, false}};
    const QList<DriveEntry> entries = ListCDDrives(discs);
    EXPECT_EQ(entries[0].text, u" FILM1 (sr0)");
    EXPECT_EQ(entries[1].text, u"  (sr1)");
    for (const auto& [selected, next] : {std::pair(0, 2), {1, 2}, {2, 0}, {3, 0}})
        EXPECT_EQ(NextDisc(entries, selected), next) << selected;
    EXPECT_EQ(NextDisc(entries.first(2), 0), 0);
    EXPECT_EQ(NextDisc({}, -1), -1);
}

TEST(FileFilm, AMonitorWatchesOnceAndNoLongerThanItLives)
{
    ScriptedDiscs discs, other;
    QList<int> actions;
    auto monitor = std::make_unique<cCDMonitor>();
    QObject::connect(monitor.get(), &cCDMonitor::CDROMChanged, monitor.get(), [&](std::int32_t action) { actions << action; });
    monitor->SubClass(discs);
    monitor->SubClass(other);
    discs.Tell(kDiscArrived);
    monitor.reset();
    EXPECT_EQ(actions, QList<int>{kDiscArrived});
    EXPECT_FALSE(discs.watcher || other.watcher);
}

} // namespace
} // namespace kelvado
