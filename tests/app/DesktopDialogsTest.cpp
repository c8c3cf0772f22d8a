#include "app/DesktopSeams.h"
#include "support/ErrorOf.h"

#include <QTest>
#include <QtWidgets>

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
    const QString text = u"<b>Alien</b> & co"_s;
    OnDialog<QMessageBox>([&](QMessageBox& box) {
        EXPECT_EQ(box.text(), text);
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.icon(), QMessageBox::Critical);
        QTest::mouseClick(box.button(QMessageBox::Yes), Qt::LeftButton);
    });
    EXPECT_EQ(dialogs.MessageBox(text, kBoxYesNoCritical, u"Title"_s), kAnswerYes);
    OnDialog<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    EXPECT_EQ(dialogs.MessageBox(text, kBoxYesNo, u"Title"_s), kAnswerNo);
    OnDialog<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); });
    EXPECT_FALSE(dialogs.ConfirmLoss(text, kBoxYesNoCritical, u"Title"_s));
    OnDialog<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), u"Kelvado"_s);
        EXPECT_EQ(box.icon(), QMessageBox::Information);
        QTest::keyClick(&box, Qt::Key_Return);
    });
    EXPECT_EQ(dialogs.MessageBox(text, kBoxInformation), kAnswerOk);
}

TEST(DesktopDialogs, ACancelledFileDialogRaisesAndKeepsThePath)
{
    DesktopDialogs dialogs;
    for (const auto show : {&Dialogs::ShowOpen, &Dialogs::ShowSave}) {
        FileDialog file{u"/tmp/films.kvd"_s, u"Kelvado Catolog (*.kvd)| *.kvd"_s};
        OnDialog<QFileDialog>([](QFileDialog& dialog) {
            EXPECT_TRUE(dialog.nameFilters().constFirst().contains(u"*.kvd"));
            if (dialog.acceptMode() == QFileDialog::AcceptSave) {
                EXPECT_EQ(dialog.selectedFiles(), QStringList(u"/tmp/films.kvd"_s)); // the name that is proposed
            }
            dialog.reject();
        });
        EXPECT_EQ(ErrorOf([&] { (dialogs.*show)(file); }), kErrCancelled);
        EXPECT_EQ(file.fileName, u"/tmp/films.kvd"_s);
    }
}

TEST(DesktopDialogs, ALongTextIsTakenOnlyWithOkay)
{
    DesktopDialogs dialogs;
    OnDialog<QDialog>([](QDialog& dialog) {
        dialog.findChild<QPlainTextEdit*>()->setPlainText(u"short"_s);
        QTest::mouseClick(dialog.findChild<QPushButton*>(u"cmdOkay"_s), Qt::LeftButton);
    });
    EXPECT_EQ(dialogs.AskFieldEdit(u"long text"_s, 5, u"TITLE"_s), u"short"_s);
    OnDialog<QDialog>([](QDialog& dialog) {
        dialog.findChild<QPlainTextEdit*>()->setPlainText(u"short"_s);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    EXPECT_EQ(dialogs.AskFieldEdit(u"long text"_s, 5, u"TITLE"_s), QString());
}

} // namespace
} // namespace kelvado
