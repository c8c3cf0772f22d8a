#include "core/Literals.h"
#include "support/ErrorOf.h"
#include "support/TempHome.h"
#include "ui/Accessibility.h"
#include "ui/cTabControl.h"

#include <QAccessible>
#include <QSignalSpy>
#include <QTest>
#include <QtWidgets>

namespace kelvado {
namespace {

constexpr QRgb kSelected = 0xFFFF0000, kPlain = 0xFF0000FF, kGround = 0xFF00FF00;

// A strip whose selected pieces are red, its plain ones blue, and its joints grey: 10 for left on, 20 for right on, 30 for none.
class TabStrip : public ::testing::Test
{
protected:
    TabStrip()
    {
        QImage picture(80, 20, QImage::Format_RGB32);
        picture.fill(kSelected);
        QPainter painter(&picture);
        painter.fillRect(0, 10, 80, 10, QColor(kPlain));
        for (int joint = 0; joint < 3; ++joint)
            painter.fillRect(60 + 4 * joint, 0, 4, 10, QColor(10 * (joint + 1), 10 * (joint + 1), 10 * (joint + 1)));
        painter.fillRect(10, 0, 3, 3, Qt::black);
        painter.end();
        QDir().mkpath(home.Path(u"Skins/Own/Tabs"_s));
        EXPECT_TRUE(picture.save(home.Path(u"Skins/Own/Tabs/strip.bmp"_s)));
        Write("One,10,0,10,10,20,10|Two,30,0,30,10,24,10");
        host.setPalette(QColor(kGround));
        host.setAutoFillBackground(true);
        host.resize(200, 40);
    }
    void Write(const char* tabs, const char* mids = "MidLOn,60,0,4,10|MidROn,64,0,4,10|MidOff,68,0,4,10") const
    {
        home.Write(u"Skins/Own/Tabs/strip.ini"_s,
                   QByteArray("[Tabs]\nTabs=") + tabs + "\nSeperators=Left,0,0,0,10,6,10|Right,54,0,54,10,6,10\nMids=" + mids + "\n");
    }
    void Initialize(const QList<cTabControl::Tab>& tabs = {{"One", "First"}, {"Two", "Second"}})
    {
        strip.Initialize(tabs, u"Own"_s, u"tabs/STRIP.ini"_s, u"Tabs/strip.bmp"_s);
    }
    QRgb PixelAt(int x, int y = 5) { return host.grab().toImage().pixel(x, y); }

    TempHome home;
    QWidget host;
    cTabControl strip{&host};
};

TEST_F(TabStrip, PiecesStandSideBySideInTheFormOfTheSelection)
{
    Initialize();
    EXPECT_EQ(strip.size(), QSize(6 + 20 + 4 + 24 + 6, 10));
    EXPECT_EQ(strip.Bars().Item(u"two"_s).XPos, 30);
    EXPECT_EQ(PixelAt(2), kSelected) << "the left end belongs to the first tab";
    EXPECT_EQ(PixelAt(15), kSelected);
    EXPECT_EQ(PixelAt(28), qRgb(10, 10, 10));
    EXPECT_EQ(PixelAt(40), kPlain);
    EXPECT_EQ(PixelAt(57), kPlain);
    EXPECT_EQ(PixelAt(7, 1), kGround) << "black shows what is behind";
    strip.DrawBar(2);
    EXPECT_EQ(PixelAt(2), kPlain);
    EXPECT_EQ(PixelAt(28), qRgb(20, 20, 20));
    EXPECT_EQ(PixelAt(57), kSelected);
    Write("One,10,0,10,10,20,10", "");
    Initialize({{"One", "First"}});
    EXPECT_EQ(strip.width(), 6 + 20 + 6) << "one tab has no joint";
}

TEST_F(TabStrip, TheLeftButtonTheKeysAndAssistiveProgramsChooseATab)
{
    InstallAccessibility();
    Initialize();
    host.show();
    host.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&host));
    QSignalSpy chosen(&strip, &cTabControl::MouseDown);
    QTest::mouseClick(&strip, Qt::RightButton, {}, QPoint(40, 5));
    QTest::mouseClick(&strip, Qt::LeftButton, {}, QPoint(15, 5)); // selected already
    QTest::mouseClick(&strip, Qt::LeftButton, {}, QPoint(28, 5)); // a joint
    QTest::mouseClick(&host, Qt::LeftButton, {}, QPoint(100, 5));
    EXPECT_EQ(chosen.size(), 0);
    QTest::mousePress(&strip, Qt::LeftButton, {}, QPoint(40, 5));
    EXPECT_EQ(chosen.takeFirst().value(0), 2);
    strip.setFocus();
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Left, Qt::Key_End, Qt::Key_Home})
        QTest::keyClick(&strip, key);
    EXPECT_EQ(chosen.size(), 3) << "there is nothing behind the last tab";
    QAccessibleInterface* row = QAccessible::queryAccessibleInterface(&strip);
    EXPECT_EQ(row->role(), QAccessible::PageTabList);
    ASSERT_EQ(row->childCount(), 2);
    EXPECT_EQ(row->focusChild(), row->child(0));
    EXPECT_EQ(row->child(1)->text(QAccessible::Name), u"Second"_s);
    row->child(1)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(row->child(1)->state().selected);
    EXPECT_EQ(strip.Selected(), 2);
}

TEST_F(TabStrip, ABrokenCoordinateFileLeavesTheCaptions)
{
    const std::tuple<const char*, const char*, int> files[] = {
        {"One,10,0,10,10,20,10", "", kErrItemNotFound},
        {"One,10,0,10,10,20,10|Two,30,0,30,10,24,10", "MidLOn,60,0,4,10", kErrItemNotFound},
        {"One,10,0,10|Two,30,0,30,10,24,10", "", kErrSubscript},
        {"One,a,0,10,10,20,10|Two,30,0,30,10,24,10", "", kErrTypeMismatch},
        {"One,10,0,10,10,20,10|One,30,0,30,10,24,10", "", kErrInvalidCall},
        {"One,10,0,10,10,20,10|Two,30,0,30,10,24,10|Three,1,1,1,1,1,1", "MidLOn,60,0,4,10|MidROn,64,0,4,10|MidOff,68,0,4,10",
         kErrSubscript}};
    for (const auto& [tabs, mids, error] : files) {
        Write(tabs, mids);
        EXPECT_EQ(ErrorOf([this] { return Initialize(), 0; }), error) << tabs;
        EXPECT_GT(strip.width(), 60);
        strip.DrawBar(2);
        EXPECT_EQ(strip.Selected(), 2);
    }
    QFile::remove(home.Path(u"Skins/Own/Tabs/strip.ini"_s));
    EXPECT_EQ(ErrorOf([this] { return Initialize(), 0; }), kErrFileNotFound);
}

} // namespace
} // namespace kelvado
