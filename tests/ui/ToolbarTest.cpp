#include "ui/ctxToolbar.h"

#include "core/Literals.h"
#include "core/RuntimeError.h"

#include <QAbstractButton>
#include <QApplication>
#include <QSignalSpy>
#include <QTest>

namespace kelvado {
namespace {

QPixmap Plain(const QColor& color, int side = 24)
{
    QPixmap picture(side, side);
    picture.fill(color);
    return picture;
}

/// "Back", a separator, "New", "Delete": one red picture each, blue when dimmed.
class Toolbar : public ::testing::Test
{
protected:
    Toolbar()
    {
        const ToolbarPictures pictures{Plain(Qt::red), {}, {}, {}};
        bar.Add(pictures, ctxToolbar::Style::Button, u"Back"_s, u"Back"_s, u"Go back"_s);
        bar.Add({}, ctxToolbar::Style::Separator, {}, {}, {});
        bar.Add(pictures, ctxToolbar::Style::Button, u"New"_s, {}, u"Create a file"_s);
        bar.Add({Plain(Qt::red), {}, {}, Plain(Qt::blue)}, ctxToolbar::Style::Button, u"Delete"_s, {}, u"Delete"_s);
        bar.show();
        bar.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&bar));
    }

    QWidget& Button(const char* key) { return *bar.findChild<QAbstractButton*>(QString::fromLatin1(key)); }
    QColor MiddleOf(const char* key) { return Button(key).grab().toImage().pixelColor(Button(key).rect().center()); }
    QStringList Clicked() const
    {
        QStringList keys;
        for (const QList<QVariant>& click : clicks)
            keys << click[0].toString();
        return keys;
    }

    ctxToolbar bar;
    QSignalSpy clicks{&bar, &ctxToolbar::ButtonClick};
};

TEST_F(Toolbar, NumbersCountSeparatorsAndKeysAreLetterForLetter)
{
    EXPECT_EQ(bar.ButtonCount(), 4);
    const std::pair<const char*, int> numbers[] = {{"Back", 1}, {"New", 3}, {"Delete", 4}, {"back", 0}, {"", 0}, {"None", 0}};
    for (const auto& [key, number] : numbers)
        EXPECT_EQ(bar.ButtonIndex(QString::fromLatin1(key)), number) << key;
    for (const int outside : {0, -1, 5}) {
        EXPECT_THROW(bar.SetButtonEnabled(outside, true), RuntimeError) << outside;
        EXPECT_THROW(bar.IsButtonEnabled(outside), RuntimeError) << outside;
    }
    bar.SetButtonEnabled(2, false); // a separator takes it
    bar.SetPictures(QString(), {Plain(Qt::green), {}, {}, {}});
}

TEST_F(Toolbar, EnabledButtonsFireByMouseAndKeysAndDisabledOnesDoNot)
{
    bar.SetButtonEnabled(4, false);
    EXPECT_TRUE(bar.IsButtonEnabled(3) && !bar.IsButtonEnabled(4));
    for (const char* key : {"New", "Delete", "Back"}) {
        QTest::mouseClick(&Button(key), Qt::LeftButton);
        QTest::mouseClick(&Button(key), Qt::RightButton);
        for (const Qt::Key press : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space})
            QTest::keyClick(&Button(key), press);
    }
    EXPECT_EQ(Clicked().join(u' '), u"New New New New Back Back Back Back"_s);
    QTest::mousePress(&Button("New"), Qt::LeftButton);
    QTest::mouseRelease(&Button("New"), Qt::LeftButton, {}, QPoint(-50, 5)); // let go outside
    EXPECT_EQ(Clicked().size(), 8);
}

TEST_F(Toolbar, TabPassesDisabledButtonsAndSeparators)
{
    bar.SetButtonEnabled(3, false);
    Button("Back").setFocus();
    QTest::keyClick(&Button("Back"), Qt::Key_Tab);
    EXPECT_TRUE(Button("Delete").hasFocus());
    EXPECT_EQ(Button("New").accessibleName(), u"Create a file"_s);
}

TEST_F(Toolbar, PicturesFollowTheStateAndTheMaskIsTransparent)
{
    EXPECT_EQ(MiddleOf("Delete"), QColor(Qt::red));
    bar.SetButtonEnabled(4, false);
    EXPECT_EQ(MiddleOf("Delete"), QColor(Qt::blue));
    bar.SetButtonEnabled(3, false); // without a picture of its own it is dimmed
    EXPECT_NE(MiddleOf("New"), QColor(Qt::red));
    bar.SetButtonEnabled(3, true);
    bar.SetPictures(u"New"_s, {Plain(bar.MaskColor()), {}, {}, {}});
    EXPECT_EQ(MiddleOf("New"), bar.palette().color(QPalette::Window));
    EXPECT_TRUE(bar.MakeAdvBitmap({}).isNull());
}

} // namespace
} // namespace kelvado
