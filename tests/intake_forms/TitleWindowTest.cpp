#include "web_forms/WebPanels.h"

namespace kelvado {
namespace {

class TitleWindow : public FilmPanels
{
protected:
    /// Opens the window, reads a file of these lines and presses "Add Movies".
    void Import(const QByteArray& lines, const std::function<void(QWidget& modal)>& behind = {})
    {
        home.Write(u"titles.txt"_s, lines);
        dialogs.files << home.Path(u"titles.txt"_s);
        Start();
        InWindow("frmImpTitles", [this, behind](QWidget& modal) {
            auto& add = *modal.findChild<QPushButton*>(u"Command2"_s);
            EXPECT_FALSE(add.isEnabled());
            QTest::mouseClick(modal.findChild<QPushButton*>(u"cmdSelFile"_s), Qt::LeftButton);
            EXPECT_TRUE(add.isEnabled() && add.hasFocus());
            rows = modal.findChild<QListView*>(u"lstTitles"_s)->model()->rowCount();
            QTest::keyClick(&add, Qt::Key_Return);
            if (behind)
                behind(modal);
        });
        Entry("mnuImportTitles").trigger();
    }

    int rows = 0;
};

TEST_F(TitleWindow, EachLineThatIsNotEmptyBecomesAFilm)
{
    Import("Metropolis\r\n\r\n  \nMetropolis\n");
    EXPECT_EQ(rows, 3);
    EXPECT_EQ(TakeMessages(), "0 Import Status: Import Complete");
    EXPECT_EQ(NewTitles(), "Metropolis /    / Metropolis");
    EXPECT_TRUE(Node(u"Metropolis"_s).isValid());
    EXPECT_TRUE(window->isEnabled());
}

TEST_F(TitleWindow, ACancelStoresNothingAndKeepsTheList)
{
    QStringList status;
    events.hook = [&] {
        for (QWidget* progress : window->findChildren<QWidget*>(u"frmProgress"_s)) {
            if (!progress->isVisible())
                continue;
            status << progress->findChild<QLabel*>(u"lblFilmOf"_s)->text();
            QTest::keyClick(progress, Qt::Key_Escape);
        }
    };
    Import(QByteArray("A\n").repeated(50), [&](QWidget& modal) {
        EXPECT_TRUE(modal.isVisible() && modal.isEnabled());
        QTest::keyClick(&modal, Qt::Key_Escape);
    });
    EXPECT_EQ(status, QStringList{u"Proccessing 1 of 50"_s});
    EXPECT_EQ(TakeMessages(), "64 : The import was cancelled. No title was stored.");
    EXPECT_EQ(NewTitles(), "<null>");
}

TEST_F(TitleWindow, ATitleThatIsTooLongIsToldAndNothingIsStored)
{
    Import("A\n" + QByteArray(5000, 'x'), [](QWidget& modal) { QTest::keyClick(&modal, Qt::Key_Escape); });
    EXPECT_NE(TakeMessages().find("Title 2 has 5000 characters"), std::string::npos);
    EXPECT_EQ(NewTitles(), "<null>");
}

} // namespace
} // namespace kelvado
