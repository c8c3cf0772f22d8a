#include "ui/fLengthEdit.h"

#include "core/Literals.h"

#include <QTest>
#include <QtWidgets>

namespace kelvado {
namespace {

TEST(LengthEdit, OkayIsOnOnlyWhileTheTextFits)
{
    fLengthEdit window(u"seven t"_s, 5, u"TITLE"_s, nullptr);
    auto* edit = window.findChild<QPlainTextEdit*>(u"txtEdit"_s);
    auto* okay = window.findChild<QPushButton*>(u"cmdOkay"_s);
    const auto length = [&] { return window.findChild<QLabel*>(u"lblCLen"_s)->text(); };
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_TRUE(window.findChild<QLabel*>(u"lblInfo"_s)->text().contains(u"For TITLE Is"));
    EXPECT_EQ(window.findChild<QLabel*>(u"lblRLen"_s)->text(), u"5"_s);
    EXPECT_EQ(length(), u"7"_s);
    EXPECT_FALSE(okay->isEnabled());

    const std::pair<QString, bool> texts[] = {
        {u"six ch"_s, false}, {u"fives"_s, true}, {QString(), false}, {u"x"_s, true}, {u"a\nb\nc"_s, true}};
    for (const auto& [text, fits] : texts) {
        edit->setPlainText(text);
        EXPECT_EQ(okay->isEnabled(), fits) << qPrintable(text);
        EXPECT_EQ(length().toInt(), text.size());
    }
    edit->selectAll();
    QTest::keyClicks(edit, u"four"_s);
    QTest::keyClick(edit, Qt::Key_Tab);
    EXPECT_TRUE(okay->hasFocus());
    QTest::keyClick(okay, Qt::Key_Return);
    EXPECT_EQ(window.result(), QDialog::Accepted);
    EXPECT_EQ(window.Text(), u"four"_s);
}

} // namespace
} // namespace kelvado
