#include "MainWindow.h"

#include "ui/SectionTabRow.h"
#include "ui/SkinList.h"
#include "ui/cTabControl.h"

#include <cmath>

namespace kelvado {
namespace {

using ::testing::HasSubstr;

const QString kLight = u"Default XP"_s;
const QString kDark = u"Midnight"_s;

/// The main window where all delivered skins are there.
class Looks : public MainWindow
{
protected:
    Looks()
    {
        for (const QString& skin : {kDark, u"Default XML"_s})
            CopySkin(skin, skin);
    }
    ~Looks() override { QApplication::setPalette(QPalette()); }

    void CopySkin(const QString& skin, const QString& as)
    {
        const QString source = u"" KELVADO_SKINS_DIR "/"_s + skin;
        for (QDirIterator files(source, QDir::Files, QDirIterator::Subdirectories); files.hasNext();) {
            const QString file = files.next();
            home.Write(u"Skins/"_s + as + file.mid(source.size()), FileContent(file));
        }
    }

    /// Opens the selector, runs `act` in it and closes it by Cancel where it is still open.
    void InSelector(const std::function<void(QDialog& selector, QListWidget& skins)>& act)
    {
        QTimer::singleShot(0, window.get(), [&] {
            auto& selector = Get<QDialog>("frmChangeSkin");
            act(selector, *selector.findChild<QListWidget*>(u"AllSkins"_s));
            if (selector.isVisible())
                selector.reject();
        });
        Entry("mnuSkin").trigger();
    }
    static void Select(QListWidget& skins, const QString& skin)
    {
        ASSERT_EQ(skins.findItems(skin, Qt::MatchExactly).size(), 1) << qPrintable(skin);
        skins.setCurrentItem(skins.findItems(skin, Qt::MatchExactly).constFirst());
    }
    void Choose(const QString& skin)
    {
        InSelector([&](QDialog& selector, QListWidget& skins) {
            Select(skins, skin);
            selector.accept();
        });
        ASSERT_EQ(window->State().skin, skin);
    }

    QString PageBackground() { return RunInPage(u"getComputedStyle(document.documentElement).backgroundColor"_s).toString(); }
};

double Contrast(const QColor& one, const QColor& other)
{
    const auto light = [](const QColor& color) {
        const auto part = [](double value) { return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4); };
        return 0.2126 * part(color.redF()) + 0.7152 * part(color.greenF()) + 0.0722 * part(color.blueF()) + 0.05;
    };
    return std::max(light(one), light(other)) / std::min(light(one), light(other));
}

TEST_F(Looks, TheSelectedSkinShowsAtOnceAndCancelGoesBack)
{
    Start();
    ClickNode(u"Alien"_s);
    Page(u"htmltemp0.html"_s);
    QSignalSpy rebuilt(Tree().model(), &QAbstractItemModel::modelReset);
    const auto colors = [&] {
        return std::tuple(window->palette().color(QPalette::Window).name(),
                          Node(u"Alien"_s).data(Qt::ForegroundRole).value<QColor>().name(),
                          Get<TabImage>("ImgTabMovieGrab").grab().toImage().pixelColor(1, 1).lightness() < 128);
    };
    const auto light = colors();
    InSelector([&](QDialog&, QListWidget& skins) {
        EXPECT_EQ(skins.currentItem()->text(), kLight);
        Select(skins, kDark);
        EXPECT_EQ(colors(), std::tuple(u"#161c24"_s, u"#e6ebf1"_s, true));
        EXPECT_TRUE(QTest::qWaitFor([&] { return PageBackground() == u"rgb(22, 28, 36)"; }));
    });
    EXPECT_EQ(window->State().skin, kLight);
    EXPECT_EQ(colors(), light);
    EXPECT_TRUE(QTest::qWaitFor([&] { return PageBackground() == u"rgb(247, 248, 250)"; }));
    EXPECT_EQ(rebuilt.count(), 0);
    Choose(kDark);
    window->close();
    EXPECT_EQ(Setting("Settings", "Skin"), kDark);
}

TEST_F(Looks, NothingKeepsTheColorsOfTheSkinBefore)
{
    Start();
    ClickNode(u"Alien"_s);
    window->ShowManualEntry();
    for (const QLatin1StringView section : {kMovieGrab, kActorInfo, kMovieEdit, kMovieList})
        window->ShowSection(section);
    Entry("mnuLoansManage").trigger();
    TakeMessages(); // of the section that shows people
    const QImage strip = Get<cTabControl>("TabBarMovie").grab().toImage();
    Choose(kDark);
    for (const QWidget* widget : QApplication::allWidgets()) {
        if (widget->windowType() == Qt::ToolTip || widget->windowType() == Qt::Desktop)
            continue; // none of ours
        const std::string name = qPrintable(widget->objectName() + u' ' + QString::fromLatin1(widget->metaObject()->className()));
        for (const QPalette::ColorRole back : {QPalette::Window, QPalette::Base, QPalette::Button})
            EXPECT_LT(widget->palette().color(back).lightness(), 100) << name << ' ' << back;
        for (const QPalette::ColorRole text : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
            EXPECT_GT(widget->palette().color(text).lightness(), 128) << name << ' ' << text;
    }
    EXPECT_NE(Get<cTabControl>("TabBarMovie").grab().toImage(), strip);
}

TEST_F(Looks, TextIsReadableInEveryDeliveredSkin)
{
    using Pair = std::pair<QPalette::ColorRole, QPalette::ColorRole>;
    const Pair pairs[] = {{QPalette::WindowText, QPalette::Window},
                          {QPalette::Text, QPalette::Base},
                          {QPalette::ButtonText, QPalette::Button},
                          {QPalette::HighlightedText, QPalette::Highlight},
                          {QPalette::ToolTipText, QPalette::ToolTipBase},
                          {QPalette::PlaceholderText, QPalette::Base},
                          {QPalette::Link, QPalette::Window},
                          {QPalette::Link, QPalette::Base}};
    Skinner skinner;
    for (const QString& skin : SkinNames()) {
        skinner.ApplySkin(skin);
        EXPECT_EQ(skinner.BadColors(), QStringList()) << qPrintable(skin);
        for (const char* kind : {"QWidget", "QMenu", "QMenuBar"}) {
            const QPalette palette = QApplication::palette(kind);
            for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
                for (const auto& [text, back] : pairs)
                    EXPECT_GE(Contrast(palette.color(group, text), palette.color(group, back)), 4.5)
                        << qPrintable(skin) << ' ' << kind << ' ' << group << ' ' << text;
            }
        }
    }
}

TEST_F(Looks, AnOlderPageIsMadeAnewWhenItIsWalkedTo)
{
    Start();
    ClickNode(u"Brazil"_s);
    Page(u"htmltemp0.html"_s);
    ClickNode(u"Alien"_s);
    Page(u"htmltemp1.html"_s);
    Choose(u"Default XML"_s);
    EXPECT_THAT(Page(u"htmltemp1.xml"_s).toStdString(), HasSubstr("Alien"));
    window->GoBack();
    EXPECT_THAT(Page(u"htmltemp0.xml"_s).toStdString(), HasSubstr("Brazil"));
    window->GoForward();
    EXPECT_THAT(Page(u"htmltemp1.xml"_s).toStdString(), HasSubstr("Alien"));
}

TEST_F(Looks, ASkinThatCannotBeShownIsNamedAndLeavesTheOneBefore)
{
    struct Fault
    {
        const char* file;
        QByteArray content; ///< null for a file that goes
    };
    const Fault faults[] = {{"skin.ini", {}},
                            {"Toolbar/New.png", {}},
                            {"Tree/3.png", "no picture"},
                            {"ToolMovieEditSel.BMP", {}},
                            {"Searchbar/ToolManualSel.BMP", "no picture"}};
    CopySkin(kDark, u"Broken"_s);
    Start();
    for (const Fault& fault : faults) {
        SCOPED_TRACE(fault.file);
        const QString file = u"Skins/Broken/"_s + QString::fromLatin1(fault.file);
        const QByteArray whole = home.Read(file);
        if (fault.content.isNull())
            ASSERT_TRUE(QFile::remove(home.Path(file)));
        else
            home.Write(file, fault.content);
        InSelector([&](QDialog& selector, QListWidget& skins) {
            const auto* ok = selector.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
            Select(skins, u"Broken"_s);
            EXPECT_THAT(skins.accessibleDescription().toStdString(), HasSubstr(home.Path(file).toStdString()));
            EXPECT_FALSE(ok->isEnabled());
            EXPECT_EQ(window->State().skin, kLight);
            EXPECT_EQ(window->palette().color(QPalette::Window), QColor(0xF7, 0xF8, 0xFA));
            Select(skins, kDark);
            EXPECT_TRUE(ok->isEnabled());
            EXPECT_EQ(skins.accessibleDescription(), QString());
        });
        home.Write(file, whole);
    }
    WriteProfileValue(u"Skin"_s, u"TreeBackColor"_s, u"blue"_s, home.Path(u"Skins/Broken/skin.ini"_s));
    InSelector([&](QDialog&, QListWidget& skins) {
        Select(skins, u"Broken"_s);
        EXPECT_THAT(skins.accessibleDescription().toStdString(), HasSubstr("[Skin] TreeBackColor"));
        EXPECT_EQ(window->State().skin, u"Broken"_s);
    });
}

TEST_F(Looks, AnotherSkinTakesThePlaceOfOneThatIsGone)
{
    Set("Settings", "Skin", u"Gone"_s);
    Start();
    EXPECT_THAT(TakeMessages(),
                ::testing::AllOf(HasSubstr("The skin \"Gone\" cannot be shown."),
                                 HasSubstr(home.Path(u"Skins/Gone/skin.ini"_s).toStdString()), HasSubstr("\"Default XP\"")));
    EXPECT_EQ(window->State().skin, kLight);
    Choose(kDark);
    ASSERT_TRUE(QDir(home.Path(u"Skins/Midnight"_s)).removeRecursively());
    Press("ImgTabMovieGrab");
    EXPECT_THAT(TakeMessages(), HasSubstr("The skin \"Midnight\" cannot be shown."));
    EXPECT_EQ(window->State().CurrentSection, kMovieGrab);
    EXPECT_TRUE(Get("picGrabSelect").isVisible());
}

TEST_F(Looks, TheFirstStartGoesByTheDesktop)
{
    for (const auto& [back, skin] : {std::pair(Qt::black, kDark), std::pair(Qt::white, kLight)}) {
        Set("Settings", "Skin", {});
        QApplication::setPalette(QPalette(back));
        Start();
        EXPECT_EQ(window->State().skin, skin);
        window.reset();
    }
}

TEST_F(Looks, DisplayOptionsShowWhileTheirWindowIsOpen)
{
    Start();
    QTimer::singleShot(0, window.get(), [this] {
        auto& options = Get<QDialog>("frmOptions");
        const auto press = [&](const char* box) { options.findChild<QCheckBox*>(QString::fromLatin1(box))->click(); };
        press("chkDisplay_8");
        EXPECT_THAT(window->windowTitle().toStdString(), HasSubstr("films – Kelvado 2.0 (Beta) – Total Movies: "));
        press("chkDisplay_4");
        EXPECT_FALSE(Node(u"Alien"_s).data(Qt::ForegroundRole).isValid());
        options.reject();
    });
    Entry("mnuOptions").trigger();
    EXPECT_EQ(window->State().gOptions->Display.StatusCaption, 1);
}

} // namespace
} // namespace kelvado
