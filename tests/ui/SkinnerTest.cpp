#include "ui/Skinner.h"

#include "support/TempHome.h"
#include "ui/SkinPictures.h"

#include <QtWidgets>

namespace kelvado {
namespace {

TEST(ParseColor, ReadsSixDigitsAndTheSystemsNumbers)
{
    const std::pair<const char*, QColor> colors[] = {{"FF0000", QColor(255, 0, 0)},   {"0a141E", QColor(10, 20, 30)},
                                                     {"", QColor(0, 0, 0)},           {"zz8000", QColor(0, 128, 0)},
                                                     {"&H0000FF", QColor(255, 0, 0)}, {"&H00C08040&", QColor(0x40, 0x80, 0xC0)},
                                                     {"&hff", QColor(255, 0, 0)},     {"&H", QColor(0, 0, 0)},

                                                     {"F", QColor(15, 0, 15)},        {"112233445566", QColor(17, 34, 102)}};
    for (const auto& [text, color] : colors)
        EXPECT_EQ(ParseColor(QString::fromLatin1(text)), color)
            << text << " gave " << qPrintable(ParseColor(QString::fromLatin1(text)).name());
}

/// A program folder with the skin "Test", every colour of which differs.
class Skins : public ::testing::Test
{
protected:
    Skins()
    {
        home.Write(u"Skins/Test/SKIN.INI"_s,
                   "[Skin]\nFontFile=0\nFont=DejaVu Serif\nLabelBackColor=010101\nLabelFontColor=020202\nTextFontColor=030303\n"
                   "TextBackColor=040404\nTextHasBorder=0\nGeneralBackColor=F5F5F5\n[Menu]\nMenuBlockColor=0A0A0A\nMenuBackColor=0B0B0B\n"
                   "MenuHighlightColor=0C0C0C\nMenuBarBackColor=0D0D0D\n");
    }

    static QColor Back(const QWidget& widget) { return widget.palette().color(QPalette::Window); }
    static QColor BoxBack(const QWidget& widget) { return widget.palette().color(QPalette::Base); }
    static QColor Text(const QWidget& widget) { return widget.palette().color(QPalette::WindowText); }
    static QColor BoxText(const QWidget& widget) { return widget.palette().color(QPalette::Text); }

    TempHome home;
    Skinner skinner;
};

TEST_F(Skins, AFormIsPaintedByKind)
{
    QWidget form;
    QGroupBox frame(&form);
    QLabel label(&form), link(&form);
    link.setObjectName(u"lblIMDbURL"_s);
    QPalette blue;
    blue.setColor(QPalette::WindowText, Qt::blue);
    link.setPalette(blue);
    QLineEdit line(&form);
    QPlainTextEdit memo(&form);
    QPushButton button(&form);
    QListWidget list(&form);
    QComboBox combo(&form);
    skinner.ApplySkin(u"Test"_s);
    skinner.SkinForm(form);
    const QColor labelBack(1, 1, 1), labelText(2, 2, 2), boxText(3, 3, 3), boxBack(4, 4, 4);
    EXPECT_EQ(Back(form), QColor(0xF5, 0xF5, 0xF5));
    for (const QWidget* plain : std::initializer_list<const QWidget*>{&frame, &label, &link})
        EXPECT_EQ(Back(*plain), labelBack) << plain->metaObject()->className();
    EXPECT_EQ(Text(label), labelText);
    EXPECT_EQ(Text(link), QColor(Qt::blue));
    for (const QWidget* box : std::initializer_list<const QWidget*>{&line, &memo, &list, &combo}) {
        EXPECT_EQ(BoxBack(*box), boxBack) << box->metaObject()->className();
        EXPECT_EQ(BoxText(*box), boxText) << box->metaObject()->className();
    }
    EXPECT_FALSE(line.hasFrame());
    EXPECT_EQ(memo.frameShape(), QFrame::NoFrame);
    EXPECT_EQ(button.font().family(), u"DejaVu Serif"_s);
    EXPECT_EQ(label.font().family(), u"DejaVu Serif"_s);
    EXPECT_NE(button.palette().color(QPalette::Button), boxBack);
}

TEST_F(Skins, ASkinWithoutSettingsIsBlack)
{
    skinner.ApplySkin(u"None"_s);
    EXPECT_EQ(skinner.Values().windowBack, QColor(Qt::black));
    EXPECT_EQ(skinner.Values().treeItemText, QColor(Qt::black));
    EXPECT_EQ(skinner.GetMenuColor(u"MENU_BACK"_s), QColor(Qt::black));
}

TEST_F(Skins, MenuColoursGoByNameAndFallBackOnTheSettings)
{
    home.Write(u"Settings.ini"_s, "[Settings]\nSkin=Test\n");
    const std::pair<const char*, int> grays[] = {{"MENU_BLOCK", 10},   {"MENU_BACK", 11}, {"MENU_HIGHLIGHT", 12},
                                                 {"MENUBAR_BACK", 13}, {"menu_back", 0},  {"", 0}};
    for (const auto& [name, gray] : grays)
        EXPECT_EQ(skinner.GetMenuColor(QString::fromLatin1(name)), QColor(gray, gray, gray)) << name;
}

TEST_F(Skins, TheMarkerIsMadeOnceForEachSkin)
{
    skinner.ApplySkin(u"Test"_s);
    EXPECT_EQ(home.Read(u"Skins/Test/install.skn"_s), "");
    home.Write(u"Skins/Test/install.skn"_s, "kept");
    skinner.ApplySkin(u"Test"_s);
    EXPECT_EQ(home.Read(u"Skins/Test/install.skn"_s), "kept");
    home.Write(u"Skins/Broken/skin.ini"_s, "[Skin]\nFontFile=broken.ttf\n");
    home.Write(u"Skins/Broken/broken.ttf"_s, "no font");
    skinner.ApplySkin(u"Broken"_s);
    EXPECT_EQ(home.Read(u"Skins/Broken/install.skn"_s), "");
}

TEST_F(Skins, PicturesAreFoundCaseBlindAndInDoubleSize)
{
    const auto paint = [&](const char* name, int side) {
        QImage picture(side, side, QImage::Format_RGB32);
        picture.fill(Qt::red);
        ASSERT_TRUE(picture.save(home.Path(u"Skins/Test/"_s + QString::fromLatin1(name)), "PNG"));
    };
    paint("ToolLeft.BMP", 10); // a picture of another format than its name says
    paint("ToolLeft@2x.BMP", 20);
    paint("ToolEnd.BMP", 10);
    home.Write(u"Skins/Test/Broken.bmp"_s, "no picture");
    const auto load = [](const char* name, qreal scale) { return LoadSkinPicture(u"Test"_s, QString::fromLatin1(name), scale); };
    EXPECT_EQ(load("toolleft.bmp", 1).width(), 10);
    const QPixmap sharp = load("toolleft.bmp", 2);
    EXPECT_EQ(sharp.width(), 20);
    EXPECT_EQ(sharp.deviceIndependentSize(), QSizeF(10, 10));
    EXPECT_EQ(load("ToolEnd.bmp", 2).deviceIndependentSize(), QSizeF(10, 10));
    const std::pair<const char*, int> failures[] = {{"Missing.bmp", kErrFileNotFound}, {"Broken.bmp", kErrInvalidPicture}};
    for (const auto& [name, number] : failures) {
        EXPECT_EQ(ErrorOf([&, file = name] { return load(file, 1); }), number) << name;
        EXPECT_NE(ErrorTextOf([&, file = name] { return load(file, 1); }).find(name), std::string::npos) << name;
    }
}

} // namespace
} // namespace kelvado
