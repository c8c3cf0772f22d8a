#include "browse/CatalogModel.h"

#include "core/Literals.h"
#include "core/NodeKey.h"

#include <QAbstractItemModelTester>

#include <gtest/gtest.h>

namespace kelvado {
namespace {

TreeContent TwoGroups()
{
    TreeContent content;
    const int a = content.AddGroup(u"65"_s, u"A"_s, 0);
    content.AddGroup(u"66"_s, u"B"_s, 0);
    content.AddFilm({5, u"Alien\nsecond line"_s, u"65"_s, 0, 0, 3}, a);
    content.AddFilm({6, u"Amour"_s, u"65"_s, 0, 0, 5}, a);
    return content;
}

TEST(CatalogModel, KeepsTheRulesOfAModelWhileItChanges)
{
    CatalogModel model;
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.SetContent(TwoGroups());
    const QModelIndex film = model.Find(FilmKey(6, u"65"));
    ASSERT_TRUE(film.isValid());
    EXPECT_EQ(model.rowCount(film), 1);
    model.SetCast(film, {{11, u"Ann"_s, {}, 6}, {12, u"Ben"_s, {}, 7}});
    EXPECT_EQ(model.Find(FilmKey(6, u"12")).data().toString(), u"Ben");
    model.SetCast(film, {});
    EXPECT_EQ(model.rowCount(film), 0);
    EXPECT_FALSE(model.hasChildren(film));
    model.SetCast(model.index(0, 0), {{1, u"x"_s, {}, 0}});
    EXPECT_EQ(model.rowCount(model.index(0, 0)), 2);
    model.SetContent({});
    EXPECT_EQ(model.rowCount(), 0);
}

TEST(CatalogModel, FindsNodesByKeyWithoutRegardToCase)
{
    CatalogModel model;
    TreeContent content = TwoGroups();
    content.AddFilm({5, u"Alien"_s, u"Science Fiction"_s, 0, 0, 3}, 1);
    model.SetContent(content);
    EXPECT_EQ(model.Find(GroupKey(u"66")).row(), 1);
    EXPECT_EQ(model.Find(FilmKey(5, u"SCIENCE fiction")).parent().row(), 1);
    EXPECT_EQ(model.Find(FilmKey(5, u"65")).parent().row(), 0);
    for (const QString& key : {QString(), u"\""_s, u"\"67\""_s, FilmKey(5, u"67"), u"\"x\n65\""_s})
        EXPECT_FALSE(model.Find(key).isValid()) << qPrintable(key);
    const QModelIndex film = model.Find(FilmKey(5, u"65"));
    model.SetFilmValue(film, u"90"_s);
    EXPECT_EQ(model.Key(film), FilmKey(5, u"90"));
    EXPECT_EQ(film.data().toString(), u"Alien second line");

    EXPECT_EQ(model.FindFilm(5), film) << "the first one from the top";
    EXPECT_FALSE(model.FindFilm(8).isValid());
    for (const QString& value : {u"90"_s, u"Science Fiction"_s})
        model.SetCast(model.Find(FilmKey(5, value)),
                      {{11, u"Ann"_s, {}, CatalogModel::kImagePerson}, {12, u"Ben"_s, {}, CatalogModel::kImagePerson}});
    model.SetRetrieved(12);
    for (const QString& value : {u"90"_s, u"Science Fiction"_s})
        EXPECT_EQ(model.index(1, 0, model.Find(FilmKey(5, value))).data(CatalogModel::ImageRole), CatalogModel::kImagePersonRetrieved);
    EXPECT_EQ(model.Find(FilmKey(5, u"11")).data(CatalogModel::ImageRole), CatalogModel::kImagePerson);
}

} // namespace
} // namespace kelvado
