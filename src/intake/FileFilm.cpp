#include "intake/FileFilm.h"

#include "core/Conversions.h"
#include "core/Literals.h"
#include "core/RuntimeError.h"
#include "intake/MediaFile.h"

#include <algorithm>
#include <cmath>

namespace kelvado {

namespace {

// Each replacement is one pass, so that of three blanks two are left.
QString WithBlanks(QString text, std::initializer_list<QChar> marks)
{
    for (const QChar mark : marks)
        text.replace(mark, u' ');
    return text.replace("  "_L1, " "_L1);
}

QString EntryText(const QString& volume, const QString& root)
{
    return u' ' + TrimBlanks(volume) + u" ("_s + TrimBlanks(root) + u')';
}

} // namespace

void DeriveTitleAndGroup(const QString& fileName, QString& group, QString& title)
{
    constexpr QLatin1StringView kMovie = "movie"_L1;
    QString text = WithoutVideoEnding(fileName).toLower();
    for (const QLatin1StringView word : {".avi"_L1, "dvdrip"_L1, "dvddivx"_L1, "xvidvd"_L1, "divx"_L1, "xvid"_L1})
        text.remove(word);
    if (text.startsWith(kMovie))
        text.remove(0, kMovie.size());
    text.remove(u'(').remove(u')');

    group = text.mid(std::max(text.lastIndexOf(u'-'), text.lastIndexOf(u'.')) + 1);
    if (!group.isEmpty())
        text.remove(group);
    group = WithBlanks(group, {u'_', u'-', u'.'});
    title = TrimBlanks(WithBlanks(text, {u'-', u'_', u'.'}));
}

std::optional<QString> FormatOfHandler(const QString& fccHandler)
{
    if (fccHandler.startsWith("DIV"_L1, Qt::CaseInsensitive))
        return u"DivX"_s;
    if (fccHandler.compare("XVID"_L1, Qt::CaseInsensitive) == 0)
        return u"XviD"_s;
    return std::nullopt;
}

FileLabels LabelsOf(const AVIDetails& details)
{
    constexpr double kMinute = 60;
    return {.lblFilename = details.FileName,
            .lblFilesize = QString::number(details.FileSize),
            .lblFPS = details.FPS,
            .lblResolution = details.Resolution,
            .lblRuntime = NumberText(RoundHalfEven(ToDouble(details.Runtime) / kMinute)),
            .lblAudioType = details.AudioType,
            .lblAudioBitrate = QString::number(details.AudioBitrate) + u"Kbp/s"_s,
            .lblVideoType = details.VideoType,
            .lblVideoBitrate = QString::number(details.VideoBitrate) + u"Kbp/s"_s};
}

void MultiplyByDiscs(AVIDetails& details, const QString& discs)
{
    const double product = RoundHalfEven(static_cast<double>(details.FileSize) * ToDouble(discs));
    if (std::abs(product) > static_cast<double>(details.sizeLimit))
        throw RuntimeError(kErrOverflow);
    details.FileSize = static_cast<qint64>(product);
}

void SetFileFacts(const AVIDetails& details, FilmRecord& film)
{
    constexpr double kMegabyte = 1048576;
    film.Filesize = NumberText(RoundHalfEven(static_cast<double>(details.FileSize) / kMegabyte)) + u"mb"_s;
    film.FileName = details.FileName;
    film.VidBitrate = QString::number(details.VideoBitrate) + u" kbp/s"_s;
    film.AudBitrate = QString::number(details.AudioBitrate) + u" kbp/s"_s;
    film.AudChannels = QString::number(details.audio.nChannels) + u" channel"_s;
    film.VidType = details.VideoType;
    film.AudType = details.AudioType;
    film.Resolution = details.Resolution;
}

void SetFileFilm(const AVIDetails& details, const FileEntries& entries, FilmRecord& film)
{
    SetFileFacts(details, film);
    film.Number = entries.discs;
    film.Group = entries.group;
    film.Format = entries.format;
    film.Index = entries.index;
}

QList<DriveEntry> ListCDDrives(Discs& discs)
{
    QList<DriveEntry> entries;
    for (const DiscDrive& drive : discs.Drives())
        entries.append({EntryText(drive.volume, drive.root), drive.root});
    return entries;
}

int NextDisc(const QList<DriveEntry>& entries, int selected)
{
    const int count = static_cast<int>(entries.size());
    for (int step = 1; step < count; ++step) {
        const int place = (std::max(selected, 0) + step) % count;
        const DriveEntry& entry = entries[place];
        if (entry.text.size() > EntryText({}, entry.tag).size())
            return place;
    }
    return selected;
}

QString EjectDrive(const QString& driveRoot, Discs& discs)
{
    return discs.Eject(driveRoot);
}

} // namespace kelvado
