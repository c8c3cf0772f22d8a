#include "core/Options.h"

#include "support/MapMarks.h"
#include "support/TempHome.h"

namespace kelvado {
namespace {

const QString kName = u"Settings.ini"_s;

QByteArray Delivered()
{
    return FileContent(u"" KELVADO_SOURCE_DIR "/data/Settings.ini"_s);
}

TEST(Options, AreAllInTheDeliveredFileAndComeBackAsTheyWere)
{
    const TempHome home;
    home.Write(kName, Delivered());
    MapMarks marks;
    cOptions options(home.Path(kName), marks);
    options.Save();
    EXPECT_EQ(home.Read(kName), Delivered());

    options.Display.SectionTotal = 7;
    options.IMDbFilmUpdate.HiImage = 0;
    options.IMDbFilmAdd.SpokenLanguages = 1;
    options.Defaults.Format = u"DVD"_s;
    options.Save();
    MapMarks later;
    const cOptions read(home.Path(kName), later);
    EXPECT_TRUE(read.Display.SectionTotal == 7 && read.Defaults.Format == u"DVD");
    EXPECT_TRUE(read.IMDbFilmUpdate.HiImage == 0 && read.IMDbFilmAdd.HiImage == 1);
    EXPECT_EQ(read.IMDbFilmAdd.SpokenLanguages, 0);
}

TEST(Options, CheckTheMenuEntriesThatStandForThem)
{
    const TempHome home;
    home.Write(kName, Delivered());
    WriteProfileValue(u"View"_s, u"PrimarySort"_s, u"Genre.Genre"_s, home.Path(kName));
    WriteProfileValue(u"View"_s, u"SecondarySort"_s, u"Movie.Year"_s, home.Path(kName));
    WriteProfileValue(u"View"_s, u"ViewMode"_s, u"Loans"_s, home.Path(kName));
    WriteProfileValue(u"View"_s, u"PrimaryExpand"_s, u"2"_s, home.Path(kName));
    MapMarks marks;
    const cOptions options(home.Path(kName), marks);
    const QStringList checked = marks.CheckedEntries();
    for (const char* entry :
         {"mnuSortPrimDetail_3", "mnuSortSecDetail_3", "mnuViewMode_2", "mnuSortPrimExpanded", "mnuStatusItem_0", "mnuStatusItem_1"})
        EXPECT_TRUE(checked.contains(QLatin1StringView(entry))) << entry;
    EXPECT_EQ(checked.filter(u"Sort"_s).size(), 3);
    EXPECT_EQ(options.View.PrimaryOrder, u"");
    EXPECT_FALSE(marks.enabled.value(u"mnuStatusItem_0"_s, true));
}

TEST(Options, SaveBothDirectionsFromThePrimaryMark)
{
    const std::tuple<bool, bool, const char16_t*> cases[] = {{false, true, u""}, {true, false, u"DESC"}};
    for (const auto& [primary, secondary, afterwards] : cases) {
        const TempHome home;
        home.Write(kName, Delivered());
        MapMarks marks;
        const cOptions options(home.Path(kName), marks);
        marks.SetChecked(u"mnuSortPrimDESC"_s, -1, primary);
        marks.SetChecked(u"mnuSortSecDESC"_s, -1, secondary);
        options.Save();
        MapMarks later;
        const cOptions read(home.Path(kName), later);
        EXPECT_EQ(read.View.PrimaryOrder, QString::fromUtf16(afterwards));
        EXPECT_EQ(read.View.SecondaryOrder, QString::fromUtf16(afterwards));
    }
}

TEST(Options, NameTheSettingThatIsNoNumber)
{
    const TempHome home;
    home.Write(kName, Delivered().replace("MaxWriters=0", "MaxWriters="));
    MapMarks marks;
    const QString failure = QString::fromStdString(ErrorTextOf([&] { return cOptions(home.Path(kName), marks).View; }));
    for (const QString& part : {u"MaxWriters"_s, u"[Display]"_s, home.Path(kName)})
        EXPECT_TRUE(failure.contains(part)) << qPrintable(failure);
}

} // namespace
} // namespace kelvado
