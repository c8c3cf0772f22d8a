#include "ui/ScreenFit.h"

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QScreen>
#include <QScrollArea>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace kelvado {
namespace {

TEST(ScreenFit, AWindowThatIsLargerThanTheScreenIsCutToItAndScrolls)
{
    ScreenFit fit;
    qApp->installEventFilter(&fit);
    const QSize screen = QGuiApplication::primaryScreen()->availableGeometry().size();
    for (const int tall : {screen.height() / 2, screen.height() * 2}) {
        QDialog window;
        auto* content = new QLabel(QString::fromLatin1("content"));
        content->setMinimumSize(100, tall);
        (new QVBoxLayout(&window))->addWidget(content);
        for (int shown = 0; shown < 2; ++shown) { // the second time it fits already
            window.show();
            ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
            EXPECT_LT(window.height(), screen.height());
            EXPECT_EQ(window.findChildren<QScrollArea*>().size(), tall > screen.height() ? 1 : 0);
            EXPECT_EQ(content->window(), &window);
            EXPECT_GE(content->height(), tall);
            window.hide();
        }
    }
}

} // namespace
} // namespace kelvado
