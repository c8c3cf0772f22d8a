#include "ui/frmOptions.h"

#include "core/Literals.h"
#include "support/MapMarks.h"
#include "support/TempHome.h"

#include <QTest>
#include <QtWidgets>

namespace kelvado {
namespace {

class Options : public ::testing::Test
{
protected:
    Options()
    {
        home.Write(u"Settings.ini"_s, FileContent(u"" KELVADO_SOURCE_DIR "/data/Settings.ini"_s));
        options.emplace(home.Path(u"Settings.ini"_s), marks);
        options->Display.MaxWriters = 5;
    }

    void Open()
    {
        window = std::make_unique<frmOptions>(
            frmOptions::Context{*options, [this] { ++told; }, [](const QFont&, QWidget*) { return std::nullopt; }}, nullptr);
        window->show();
    }
    template<typename Widget>
    Widget& Get(const QString& name)
    {
        return *window->findChild<Widget*>(name);
    }
    QCheckBox& Box(const char* array, int index) { return Get<QCheckBox>(QString::fromLatin1(array) + QString::number(index)); }
    void ShowPage(const QString& text)
    {
        auto& tree = Get<QTreeWidget>(u"tvOptions"_s);
        tree.setCurrentItem(tree.findItems(text, Qt::MatchExactly | Qt::MatchRecursive).constFirst());
    }
    QStringList Visible() const
    {
        QStringList visible;
        for (const char* frame : {"frmDisplay", "frmXMLPage", "frmIMDBGrab", "frmIMDbUpdateFilm"}) {
            if (window->findChild<QWidget*>(QString::fromLatin1(frame))->isVisible())
                visible << QString::fromLatin1(frame);
        }
        return visible;
    }

    TempHome home;
    MapMarks marks;
    std::optional<cOptions> options;
    int told = 0;
    std::unique_ptr<frmOptions> window;
};

TEST_F(Options, ANodeShowsItsPageOrNone)
{
    Open();
    const std::pair<const char*, QStringList> pages[] = {{"XML Page Views", {u"frmXMLPage"_s}},
                                                         {"IMDb Retrieval", {u"frmXMLPage"_s}},
                                                         {"IMDb Film Add", {u"frmIMDBGrab"_s}},
                                                         {"Movie Update", {u"frmIMDbUpdateFilm"_s}},
                                                         {"Actor Retrieval", {}},
                                                         {"Display Settings", {u"frmDisplay"_s}}};
    for (const auto& [page, visible] : pages) {
        ShowPage(QString::fromLatin1(page));
        EXPECT_EQ(Visible(), visible) << page;
    }
}

TEST_F(Options, ALimitCountsAtOnceAndEndsWithItsBox)
{
    Open();
    auto& text = Get<QLineEdit>(u"txtDisplay_1"_s);
    EXPECT_TRUE(Box("chkDisplay_", 1).isChecked());
    EXPECT_EQ(text.text(), u"5"_s);
    EXPECT_FALSE(Get<QSpinBox>(u"UpDownDisplay_0"_s).isEnabled());
    text.selectAll();
    QTest::keyClicks(&text, u"1x2"_s);
    EXPECT_EQ(options->Display.MaxWriters, 12);
    text.selectAll();
    QTest::keyClick(&text, Qt::Key_Delete); // no number counts as none typed yet
    EXPECT_EQ(options->Display.MaxWriters, 12);
    QTest::keyClicks(&text, u"9"_s);
    EXPECT_EQ(options->Display.MaxWriters, 9);
    Box("chkDisplay_", 1).click();
    EXPECT_EQ(options->Display.MaxWriters, 0);
    EXPECT_FALSE(text.isEnabled());
    Get<QPushButton>(u"cmdCancel"_s).click();
    EXPECT_EQ(options->Display.MaxWriters, 0);
    EXPECT_GE(told, 4);
}

TEST_F(Options, TheTwoConfirmationsExcludeEachOther)
{
    Open();
    cOptDisplay& display = options->Display;
    Box("chkDisplay_", 7).click();
    EXPECT_EQ(display.FlashCon, 1); // as the box of the tree says
    EXPECT_FALSE(Box("chkDisplay_", 6).isEnabled());
    Box("chkDisplay_", 7).click();
    EXPECT_EQ(display.FlashCon, 1);
    Box("chkDisplay_", 6).click();
    EXPECT_EQ(display.RestoreCon, 1);
    EXPECT_EQ(display.FlashCon, 0);
    EXPECT_FALSE(Box("chkDisplay_", 7).isEnabled());
    display.FlashCon = 1; // as settings written by hand may have it
    Open();
    EXPECT_TRUE(Box("chkDisplay_", 6).isEnabled() && Box("chkDisplay_", 7).isEnabled());
}

TEST_F(Options, OkStoresBothPagesOfPartsAsTheyStand)
{
    Open();
    ShowPage(u"IMDb Film Add"_s);
    EXPECT_TRUE(Box("chkIMDBAdd_", 0).isChecked());
    Box("chkIMDBAdd_", 0).click();
    Box("chkIMDBAdd_", 16).click();
    auto& note = *Get<QWidget>(u"frmIMDBGrab"_s).findChild<QLabel*>(u"lblNoImage"_s);
    EXPECT_FALSE(note.isVisible());
    Box("chkIMDBAdd_", 14).click();
    Box("chkIMDBAdd_", 15).click();
    EXPECT_TRUE(note.isVisible());
    EXPECT_EQ(options->IMDbFilmAdd.Title, 1);
    Get<QPushButton>(u"cmdOK"_s).click();
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(options->IMDbFilmAdd.Title, 0);
    EXPECT_EQ(options->IMDbFilmAdd.ShortTitle, 1);
    EXPECT_EQ(options->IMDbFilmAdd.HiImage, 0);
    EXPECT_EQ(options->IMDbFilmAdd.SpokenLanguages, 1);
    EXPECT_EQ(options->IMDbFilmUpdate.ShortTitle, 0); // its page was not opened
}

} // namespace
} // namespace kelvado
