#include "render/forms/frmExportWeb.h"
#include "render/forms/frmPrint.h"
#include "render/forms/frmPrintCollection.h"
#include "support/IdleEvents.h"
#include "support/RecordingShell.h"
#include "support/ScriptedDialogs.h"
#include "support/TempCatalog.h"
#include "support/TempHome.h"
#include "ui/PictureBox.h"

#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPrinter>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QTest>

namespace kelvado {
namespace {

template<typename T>
T& Get(const QWidget& window, const char* name)
{
    T* found = window.findChild<T*>(QString::fromLatin1(name));
    EXPECT_TRUE(found) << name;
    return *found;
}

void Press(const QWidget& window, const char* name)
{
    QTest::mouseClick(&Get<QPushButton>(window, name), Qt::LeftButton);
}

class Wizard : public ::testing::Test
{
protected:
    Wizard()
    {
        cTemplate look;
        look.Nav = look.StandardPage = look.FilmsPerPage = true;
        look.ThumbnailExtention = u"BMP"_s;
        QImage(2, 2, QImage::Format_RGB32).save(home.Path(u"thumb.bmp"_s));
        look.SetThumbnailData(home.Read(u"thumb.bmp"_s));
        look.AddFile("data", u"a.txt"_s, u"sub"_s);
        QDir().mkpath(home.Path(u"Templates"_s));
        MakeEmptyPackage(Package(), look);
        look.SaveTemplate(Package());
        home.Write(u"Templates/broken.kmt"_s, "no package");
        home.Write(u"Templates/notes.txt"_s, "");
    }
    QString Package() const { return home.Path(u"Templates/A. look.kmt"_s); }
    frmExportWeb& Window()
    {
        window = std::make_unique<frmExportWeb>(frmExportWeb::Context{dialogs, [this](const QString& path) { opened = path; },
                                                                      [this](const WebChoice& choice) { choices << choice; }},
                                                nullptr);
        window->show();
        return *window;
    }

    TempHome home;
    ScriptedDialogs dialogs;
    QString opened;
    QList<WebChoice> choices;
    std::unique_ptr<frmExportWeb> window;
};

TEST_F(Wizard, ATemplateIsSeenAndUsedByKeysAlone)
{
    frmExportWeb& wizard = Window();
    EXPECT_EQ(Get<QLabel>(wizard, "lblStep").text(), u"1 of 5"_s);
    EXPECT_FALSE(Get<QLabel>(wizard, "lblType").isVisible());
    QTest::keyClick(&wizard, Qt::Key_Return);
    const auto& templates = Get<QListWidget>(wizard, "lstTemplates");
    ASSERT_EQ(templates.count(), 2);
    EXPECT_EQ(templates.item(0)->text(), u"A. look"_s);
    EXPECT_TRUE(templates.item(0)->isSelected());
    EXPECT_EQ(Get<QLabel>(wizard, "lblType").text() + Get<QLabel>(wizard, "lblDetail").text() + Get<QLabel>(wizard, "lblPerPage").text() +
                  Get<QLabel>(wizard, "lblNav").text() + Get<QLabel>(wizard, "lblFiles").text(),
              u"StandardNoYesYes1"_s);
    EXPECT_TRUE(Get<PictureBox>(wizard, "picPreview").HasPicture());
    Press(wizard, "lblFullScreen");
    EXPECT_EQ(opened, home.Path(u"temp/preview.BMP"_s));
    dialogs.files << home.Path(u"out"_s);
    Press(wizard, "Command1");
    EXPECT_EQ(home.Read(u"out/sub/a.txt"_s), "data");

    QTest::keyClick(&wizard, Qt::Key_Return);
    EXPECT_FALSE(Get<QRadioButton>(wizard, "optDetail").isEnabled());
    QTest::keyClick(&wizard, Qt::Key_Return);
    QTest::keyClicks(wizard.focusWidget(), u"25"_s);
    QTest::keyClick(&wizard, Qt::Key_Return);
    EXPECT_EQ(Get<QPushButton>(wizard, "cmdNext").text().remove(u'&'), u"Finish"_s);
    QTest::keyClick(&wizard, Qt::Key_Return); // the button that exports is the default one
    ASSERT_EQ(choices.size(), 1);
    EXPECT_EQ(choices[0].package, Package());
    EXPECT_EQ(choices[0].filmsPerPage, 25);
    EXPECT_FALSE(choices[0].details);
    Press(wizard, "cmdNext");
    EXPECT_FALSE(wizard.isVisible());
    EXPECT_EQ(choices.size(), 1);
}

TEST_F(Wizard, ABrokenTemplateIsToldAndCannotBeUsed)
{
    frmExportWeb& wizard = Window();
    Press(wizard, "cmdNext");
    QTest::keyClick(&Get<QListWidget>(wizard, "lstTemplates"), Qt::Key_Down);
    EXPECT_EQ(dialogs.boxes.size(), 1);
    EXPECT_FALSE(Get<QPushButton>(wizard, "cmdNext").isEnabled());
    EXPECT_FALSE(Get<QLabel>(wizard, "lblType").isVisible());
    EXPECT_FALSE(Get<PictureBox>(wizard, "picPreview").HasPicture());
    QTest::keyClick(&Get<QListWidget>(wizard, "lstTemplates"), Qt::Key_Up);
    EXPECT_TRUE(Get<QPushButton>(wizard, "cmdNext").isEnabled());
}

class Printing : public ::testing::Test
{
protected:
    Printing()
    {
        for (const char* name : {"header", "footer", "group", "group-end", "row", "film"})
            home.Write(u"Skins/Plain/Templates/Print/"_s + QString::fromLatin1(name) + u".html"_s, "<p>text</p>");
        state.skin = u"Plain"_s;
        state.comDiagFile.fileName = catalog.Path();
        catalog.Run("INSERT INTO Movie(Movie_ID, Title) VALUES (1, 'One')");
        window.show();
    }

    TempHome home;
    TempCatalog catalog;
    AppState state;
    ScriptedDialogs dialogs;
    IdleEvents events;
    RecordingShell shell;
    Skinner skinner;
    ExportRun run{{dialogs, events, shell, skinner}};
    QString printed = home.Path(u"printed.pdf"_s);
    frmPrintCollection window{{state, dialogs, run,
                               [this](QWidget&) {
                                   auto printer = std::make_unique<QPrinter>();
                                   printer->setOutputFileName(printed);
                                   return printer;
                               }},
                              {{u"All"_s, {{u"O"_s, {1}}}}, {u"None"_s, {}}},
                              nullptr};
};

TEST_F(Printing, AListGoesIntoAFileAndToAPrinter)
{
    const QString target = home.Path(u"list.pdf"_s);
    dialogs.files << target;
    Press(window, "cmdPdf");
    EXPECT_EQ(dialogs.Texts().join(u'|'), u"The films were written to "_s + target);
    EXPECT_TRUE(FileContent(target).startsWith("%PDF"));
    EXPECT_EQ(dialogs.made.join(u'|'), target);

    Press(window, "cmdPrint");
    EXPECT_TRUE(FileContent(printed).startsWith("%PDF"));
    EXPECT_EQ(dialogs.Texts().last(), u"The films were sent to the printer."_s);

    home.Write(u"old.pdf"_s, "old");
    dialogs.files << home.Path(u"old.pdf"_s); // the answer is No
    Press(window, "cmdPdf");
    EXPECT_EQ(home.Read(u"old.pdf"_s), "old");
    dialogs.files << home.Path(u"none/list.pdf"_s);
    Press(window, "cmdPdf");
    EXPECT_TRUE(dialogs.Texts().last().contains(u"none/list.pdf"_s));
    QTest::keyClick(window.findChild<QComboBox*>(), Qt::Key_Down);
    Press(window, "cmdPdf");
    EXPECT_EQ(dialogs.Texts().last(), u"No films to print."_s);
}

TEST(PrintPreview, EachPageIsShownAndPrinted)
{
    const TempHome home;
    home.Write(u"print.html"_s, "<p>start</p>");
    home.Write(u"keldb3.mdb"_s, "");
    ScriptedDialogs dialogs;
    QStringList pages;
    frmPrint window(
        dialogs, [&](const QString& path) { pages << QFileInfo(path).fileName(); }, nullptr);
    window.show();
    Press(window, "Command1");
    EXPECT_EQ(dialogs.boxes.size(), 1); // no table
    OtherProgram(home.Path(u"keldb3.mdb"_s))
        .Run("CREATE TABLE Movie(Title, TitleNY, Year, Format, \"Index\", Runtime, Plot, Image); CREATE TABLE Actor(Title, Actor);"
             "INSERT INTO Movie(Title) VALUES ('1'), ('2'), ('3'), ('4'), ('5')");
    Press(window, "Command1");
    EXPECT_EQ(pages.join(u' '), u"print1.html print2.html"_s);
}

} // namespace
} // namespace kelvado
