#include "Covers.h"

#include "core/Literals.h"

#include <QGuiApplication>

#include <gtest/gtest.h>

#include <memory>

std::unique_ptr<QCoreApplication> MakeTestApplication(int& argc, char** argv)
{
    return std::make_unique<QGuiApplication>(argc, argv);
}

namespace kelvado {
namespace {

CoverText Film()
{
    return {u"The Valley"_s, 1987, {u"Drama"_s}, u"Ida Lindqvist"_s};
}

TEST(Covers, OneSeedGivesOnePictureAndAnotherSeedAnother)
{
    const QImage cover = PaintCover(Film(), 1);
    EXPECT_EQ(cover.size(), QSize(600, 900));
    EXPECT_EQ(cover, PaintCover(Film(), 1));
    EXPECT_NE(cover, PaintCover(Film(), 2));
    EXPECT_NE(cover, PaintBackCover(Film(), u"A plot."_s, 1));
}

TEST(Covers, TheTitleIsOnTheCoverInEveryEra)
{
    for (const int year : {0, 1903, 1945, 1968, 1987, 2015}) {
        for (quint32 seed = 0; seed < 12; ++seed) {
            CoverText film = Film();
            film.year = year;
            CoverText other = film;
            other.title = u"Nothing Alike"_s;
            EXPECT_NE(PaintCover(film, seed), PaintCover(other, seed)) << "year " << year << ", seed " << seed;
        }
    }
}

TEST(Covers, TextsOfAnyLengthStayInsideTheirMargins)
{
    CoverText film = Film();
    film.title = QString(10000, u'W');
    film.director = film.title;
    const QString plot = film.title + u" word"_s.repeated(5000);
    for (quint32 seed = 0; seed < 12; ++seed) {
        PaintCover(film, seed);
        const QImage back = PaintBackCover(film, plot, seed);
        for (int y = 222; y < 810; ++y) { // between the picture and the foot, the margin is plain paper
            ASSERT_EQ(back.pixel(599, y), back.pixel(0, y));
            ASSERT_EQ(back.pixel(40, y), back.pixel(0, y)) << "line " << y;
        }
        EXPECT_EQ(back.pixel(300, 800), back.pixel(0, 800));
    }
    EXPECT_FALSE(PaintCover({}, 0).isNull());
    EXPECT_FALSE(PaintBackCover({}, {}, 0).isNull());
}

} // namespace
} // namespace kelvado
