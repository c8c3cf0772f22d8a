#include "Covers.h"

#include "support/TempHome.h"

#include <QGuiApplication>

#include <memory>

std::unique_ptr<QCoreApplication> MakeTestApplication(int& argc, char** argv)
{
    return std::make_unique<QGuiApplication>(argc, argv);
}

namespace kelvado {
namespace {

const QString kFolder = u"" KELVADO_DATA_SOURCE "/art/covers"_s;

CoverText Film()
{
    return {u"The Valley"_s, 1987, {u"Drama"_s}, u"Ida Lindqvist"_s, u"A plot."_s};
}

TEST(Covers, OneSeedGivesOnePictureAndAnotherSeedAnother)
{
    const Covers covers(kFolder);
    const QImage cover = covers.Front(Film(), 1);
    EXPECT_EQ(cover.size(), QSize(600, 900));
    EXPECT_EQ(cover, covers.Front(Film(), 1));
    EXPECT_NE(cover, covers.Front(Film(), 2));
    EXPECT_NE(cover, covers.Back(Film(), 1));
}

/// A folder of covers with one layout, whose only box is black on white, and one motif.
class OneBox : public ::testing::Test
{
protected:
    OneBox()
    {
        home.Write(u"covers.json"_s, R"({"styles": [{"genres": [], "colors": [["#ffffff", "#ffffff", "#ffffff", "#ffffff", "#000000"]],
            "motifs": ["plain"]}], "eras": [{"until": 9999, "layouts": ["box"], "faces": ["plain"]}],
            "faces": {"plain": {"families": ["Inter"], "weight": 800}}})");
        home.Write(u"layouts/back.svg"_s, "<svg viewBox=\"0 0 200 100\"/>");
        home.Write(u"motifs/plain.svg"_s, R"(<svg viewBox="0 0 10 10"><rect width="10" height="10" fill="#fff"/></svg>)");
        home.Write(u"layouts/box.svg"_s, R"(<svg xmlns:skin="urn:kelvado:skin" viewBox="0 0 200 100">
            <rect class="motif" x="0" y="0" width="200" height="100" fill="none"/>
            <rect class="text" x="20" y="20" width="160" height="60" fill="none" skin:holds="{Title}" skin:face="title" skin:color="{Ink}"
                skin:align="center middle" skin:most="50" skin:least="12" skin:leading="1"/></svg>)");
    }

    TempHome home;
};

TEST_F(OneBox, ATitleOfAnyLengthAndScriptStaysInItsBox)
{
    const Covers covers(home.Path({}));
    const QString titles[] = {u"M"_s,
                              u"The Valley"_s,
                              u"Donaudampfschifffahrtsgesellschaft"_s,
                              QString(10000, u'W'),
                              u"many short words "_s.repeated(500),
                              u"Броненосец «Потёмкин» и другие"_s,
                              u"七人の侍 羅生門 東京物語"_s,
                              u"العربية فيلم طويل"_s,
                              u"<b>&amp; {Ink} \"x\""_s,
                              QString::fromUcs4(U"🎬").repeated(600)};
    for (const QString& title : titles) {
        const QImage card = covers.Front({title, 0, {}, {}, {}}, 1);
        int inked = 0;
        for (int y = 0; y < card.height(); ++y) {
            for (int x = 0; x < card.width(); ++x) {
                const bool plain = card.pixel(x, y) == qRgb(255, 255, 255);
                inked += plain ? 0 : 1;
                // Letters may reach past their line by a hair.
                ASSERT_TRUE(plain || QRect(17, 17, 166, 66).contains(x, y)) << title.left(40).toStdString() << " at " << x << ", " << y;
            }
        }
        EXPECT_GT(inked, 20) << title.left(40).toStdString();
    }
}

TEST_F(OneBox, AFaultNamesItsFile)
{
    for (const QString& file : {u"motifs/plain.svg"_s, u"layouts/box.svg"_s, u"covers.json"_s}) {
        const QByteArray before = home.Read(file);
        home.Write(file, "{}");
        try {
            Covers(home.Path({})).Front(Film(), 1);
            ADD_FAILURE() << file.toStdString();
        } catch (const ArtFault& fault) {
            EXPECT_TRUE(QString::fromUtf8(fault.what()).contains(file)) << fault.what();
        }
        home.Write(file, before);
    }
}

} // namespace
} // namespace kelvado
