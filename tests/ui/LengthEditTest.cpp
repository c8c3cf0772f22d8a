#include "ui/fLengthEdit.h"

#include <QApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

namespace kelvado {
namespace {

TEST(LengthEdit, OkayIsOnOnlyWhileTheTextFits)
{
    fLengthEdit window(QStringLiteral("seven t"), 5, QStringLiteral("TITLE"), nullptr);
    auto* edit = window.findChild<QPlainTextEdit*>(QStringLiteral("txtEdit"));
    auto* okay = window.findChild<QPushButton*>(QStringLiteral("cmdOkay"));
    const auto length = [&] { return window.findChild<QLabel*>(QStringLiteral("lblCLen"))->text(); };
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_EQ(window.findChild<QLabel*>(QStringLiteral("lblInfo"))->text(),
              QStringLiteral("The Information Retrived For TITLE Is To Long To Fit Into The Database. "
                             "Please Edit The Information Information So That It Will Fit Into The Database."));
    EXPECT_EQ(window.findChild<QLabel*>(QStringLiteral("lblRLen"))->text(), QStringLiteral("5"));
    EXPECT_EQ(length(), QStringLiteral("7"));
    EXPECT_FALSE(okay->isEnabled());

    const std::pair<QString, bool> texts[] = {{QStringLiteral("six ch"), false},
                                              {QStringLiteral("fives"), true},
                                              {QString(), false},
                                              {QStringLiteral("x"), true},
                                              {QStringLiteral("a\nb\nc"), true}};
    for (const auto& [text, fits] : texts) {
        edit->setPlainText(text);
        EXPECT_EQ(okay->isEnabled(), fits) << qPrintable(text);
        EXPECT_EQ(length().toInt(), text.size());
    }
    edit->selectAll();
    QTest::keyClicks(edit, QStringLiteral("four"));
    QTest::keyClick(edit, Qt::Key_Tab);
    EXPECT_TRUE(okay->hasFocus());
    QTest::keyClick(okay, Qt::Key_Return);
    EXPECT_EQ(window.result(), QDialog::Accepted);
    EXPECT_EQ(window.Text(), QStringLiteral("four"));
}

} // namespace
} // namespace kelvado
