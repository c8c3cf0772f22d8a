#include "app/DesktopSeams.h"
#include "core/RuntimeError.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace kelvado {
namespace {

/// Runs `action` on the next modal window of that kind.
template<typename Dialog, typename Action>
void OnDialog(Action action)
{
    QTimer::singleShot(0, qApp, [action] {
        auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        action(*dialog);
    });
}

TEST(DesktopDialogs, AMessageIsPlainTextAndAnswersWithTheButton)
{
    DesktopDialogs dialogs;
    const QString text = QStringLiteral("<b>Alien</b> & co");
    OnDialog<QMessageBox>([&](QMessageBox& box) {
        EXPECT_EQ(box.text(), text);
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.icon(), QMessageBox::Critical);
        QTest::mouseClick(box.button(QMessageBox::Yes), Qt::LeftButton);
    });
    EXPECT_EQ(dialogs.MessageBox(text, kBoxYesNoCritical, QStringLiteral("Title")), kAnswerYes);
    OnDialog<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    EXPECT_EQ(dialogs.MessageBox(text, kBoxYesNo, QStringLiteral("Title")), kAnswerNo);
    OnDialog<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), QStringLiteral("Kelvado"));
        EXPECT_EQ(box.icon(), QMessageBox::Information);
        QTest::keyClick(&box, Qt::Key_Return);
    });
    EXPECT_EQ(dialogs.MessageBox(text, kBoxInformation), kAnswerOk);
}

TEST(DesktopDialogs, ACancelledFileDialogRaisesAndKeepsThePath)
{
    DesktopDialogs dialogs;
    for (const auto show : {&Dialogs::ShowOpen, &Dialogs::ShowSave}) {
        FileDialog file{QStringLiteral("/tmp/films.kvd"), QStringLiteral("Kelvado Catolog (*.kvd)| *.kvd")};
        OnDialog<QFileDialog>([](QFileDialog& dialog) {
            EXPECT_TRUE(dialog.nameFilters().constFirst().contains(u"*.kvd"));
            dialog.reject();
        });
        try {
            (dialogs.*show)(file);
            ADD_FAILURE() << "no cancel";
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number(), kErrCancelled);
        }
        EXPECT_EQ(file.fileName, QStringLiteral("/tmp/films.kvd"));
    }
}

TEST(DesktopDialogs, ALongTextIsTakenOnlyWithOkay)
{
    DesktopDialogs dialogs;
    OnDialog<QDialog>([](QDialog& dialog) {
        dialog.findChild<QPlainTextEdit*>()->setPlainText(QStringLiteral("short"));
        QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("cmdOkay")), Qt::LeftButton);
    });
    EXPECT_EQ(dialogs.AskFieldEdit(QStringLiteral("long text"), 5, QStringLiteral("TITLE")), QStringLiteral("short"));
    OnDialog<QDialog>([](QDialog& dialog) {
        dialog.findChild<QPlainTextEdit*>()->setPlainText(QStringLiteral("short"));
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    EXPECT_EQ(dialogs.AskFieldEdit(QStringLiteral("long text"), 5, QStringLiteral("TITLE")), QString());
}

} // namespace
} // namespace kelvado
