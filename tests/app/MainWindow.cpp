#include "MainWindow.h"

#include "app/hMain.h"
#include "core/Profile.h"
#include "render/forms/PageEngine.h"
#include "render/forms/frmPageView.h"
#include "ui/ctxToolbar.h"

#include <QWebEngineView>

void PrepareTestApplication()
{
    kelvado::PreparePageEngine();
}

namespace kelvado {

namespace {

constexpr int kWait = 15000;

// Pages load files below the program folder only, links resolved, so the skin is copied; as a file of the test's own, for a copy by the
// toolkit is forced onto the disk.
void CopyTree(const QString& source, const TempHome& home, const QString& target)
{
    QDirIterator files(source, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString file = files.next();
        home.Write(target + file.mid(source.size()), FileContent(file));
    }
}

} // namespace

MainWindow::MainWindow()
{
    home.Write(u"Settings.ini"_s, FileContent(u"" KELVADO_SOURCE_DIR "/data/Settings.ini"_s));
    home.Write(u"keldb.dat"_s, FileContent(catalog.Path()));
    CopyTree(u"" KELVADO_SKINS_DIR "/Default XP"_s, home, u"Skins/Default XP"_s);
    catalog.Run(
        "INSERT INTO Movie (Movie_ID, Title, Year, Format, IMDB, Nfo, Loan_ID) VALUES"
        "(1, 'Alien', 1979, 'DVD', '0078748', 'Seen in the dark.', 0), (2, 'Brazil', 1985, 'Request', NULL, NULL, 0),"
        "(3, '2001', 1968, 'VHS', NULL, NULL, 7);"
        "INSERT INTO Actor (Actor_ID, Actor, IMDB_LINK) VALUES (11, 'Sigourney Weaver', '/name/nm0000244'), (12, 'Tom Skerritt', NULL);"
        "INSERT INTO ActorLink (Movie_ID, Actor_ID, Character) VALUES (1, 11, 'Ripley'), (1, 12, 'Dallas');");
    Set("Settings", "Default", catalog.Path());
    Set("Settings", "Skin", u"Default XP"_s);
}

MainWindow::~MainWindow()
{
    events.hook = nullptr;
    EXPECT_EQ(TakeMessages(), "");
}

void MainWindow::Start()
{
    window = std::make_unique<Form1>(dialogs, events, discs);
    m_complete = std::make_unique<QSignalSpy>(&window->PageView(), &frmPageView::DocumentComplete);
    QSignalSpy ready(window.get(), &Form1::Ready);
    LoaderMain(*window, {});
    ASSERT_TRUE(ready.count() > 0 || ready.wait(kWait));
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
}

QString MainWindow::FailureOfStart(const QStringList& arguments)
{
    window = std::make_unique<Form1>(dialogs, events, discs);
    try {
        LoaderMain(*window, arguments);
        return u"none"_s;
    } catch (const RuntimeError& error) {
        EXPECT_FALSE(window->isVisible());
        return QString::number(error.Number()) + u' ' + error.Description();
    }
}

void MainWindow::Set(const char* section, const char* key, const QString& value)
{
    WriteProfileValue(QString::fromLatin1(section), QString::fromLatin1(key), value, home.Path(u"Settings.ini"_s));
}

QString MainWindow::Setting(const char* section, const char* key) const
{
    return ReadProfileValue(QString::fromLatin1(section), QString::fromLatin1(key), home.Path(u"Settings.ini"_s));
}

std::string MainWindow::TakeMessages()
{
    QStringList lines;
    for (const ScriptedDialogs::Box& box : std::exchange(dialogs.boxes, {}))
        lines << u"%1 %2: %3"_s.arg(QString::number(box.type), box.title, box.text);
    return lines.join(u" | "_s).toStdString();
}

CatalogTreeView& MainWindow::Tree() const
{
    return Get<CatalogTreeView>("TreeView1");
}

bool MainWindow::IsOn(const char* entryOrButton) const
{
    const auto& toolbar = Get<ctxToolbar>("cToolbar");
    if (const int button = toolbar.ButtonIndex(QString::fromLatin1(entryOrButton)))
        return toolbar.IsButtonEnabled(button);
    if (const auto* menu = window->findChild<QMenu*>(QString::fromLatin1(entryOrButton)))
        return menu->menuAction()->isEnabled() && menu->menuAction()->isVisible();
    return Entry(entryOrButton).isEnabled() && Entry(entryOrButton).isVisible();
}

QModelIndex MainWindow::Node(const QString& text) const
{
    const QAbstractItemModel& model = *Tree().model();
    if (model.rowCount() == 0)
        return {};
    return model.match(model.index(0, 0), Qt::DisplayRole, text, 1, Qt::MatchExactly | Qt::MatchCaseSensitive | Qt::MatchRecursive)
        .value(0);
}

std::string MainWindow::Shown() const
{
    const QAbstractItemModel& model = *Tree().model();
    QStringList lines;
    for (int g = 0; g < model.rowCount(); ++g) {
        const QModelIndex group = model.index(g, 0);
        lines << group.data().toString();
        for (int f = 0; f < model.rowCount(group); ++f)
            lines << u" "_s + model.index(f, 0, group).data().toString();
    }
    return lines.join(u'\n').toStdString();
}

void MainWindow::ClickNode(const QString& text, Qt::MouseButton button)
{
    const QModelIndex node = Node(text);
    ASSERT_TRUE(node.isValid()) << qPrintable(text);
    if (node.parent().isValid())
        Tree().expand(node.parent());
    Tree().scrollTo(node);
    QTest::mouseClick(Tree().viewport(), button, {}, Tree().visualRect(node).center());
    QCoreApplication::processEvents(); // the click's own handler is queued
}

void MainWindow::Choose(const char* menu, const char* entry)
{
    auto& popup = Get<QMenu>(menu);
    QMenuBar& bar = *window->menuBar();
    QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.actionGeometry(popup.menuAction()).center());
    ASSERT_TRUE(QTest::qWaitFor([&] { return popup.isVisible(); }, kWait)) << menu;
    QTest::mouseClick(&popup, Qt::LeftButton, {}, popup.actionGeometry(&Entry(entry)).center());
}

void MainWindow::Key(Qt::Key key, int times)
{
    for (int i = 0; i < times; ++i) {
        ASSERT_NE(QApplication::focusWidget(), nullptr);
        QTest::keyClick(QApplication::focusWidget(), key);
    }
    QCoreApplication::processEvents();
}

QString MainWindow::Page(const QString& name)
{
    const QDeadlineTimer patience(kWait);
    QString address;
    while (!patience.hasExpired()) {
        const QVariantList page = RunInPage(u"[location.href, document.readyState, document.body.innerText]"_s).toList();
        address = page.value(0).toString();
        if (address.endsWith(name) && page.value(1) == u"complete"_s)
            return page.value(2).toString();
    }
    ADD_FAILURE() << "the page is " << qPrintable(address) << " instead of " << qPrintable(name);
    return {};
}

QVariant MainWindow::RunInPage(const QString& script)
{
    if (m_complete->isEmpty() && !m_complete->wait(kWait)) {
        ADD_FAILURE() << "no page";
        return {};
    }
    // The engine works in many small steps on this thread: an event loop serves them at once, where a poll would sleep between them.
    QEventLoop loop;
    QVariant answer;
    window->PageView().WebBrowser1()->page()->runJavaScript(script, [&, guard = QPointer<QEventLoop>(&loop)](const QVariant& value) {
        if (!guard)
            return;
        answer = value;
        loop.quit();
    });
    QTimer::singleShot(kWait, &loop, [&] {
        ADD_FAILURE() << "no answer to " << qPrintable(script);
        loop.quit();
    });
    loop.exec();
    return answer;
}

void MainWindow::ClickInPage(const char* selector)
{
    const QVariantList place =
        RunInPage(u"(() => { const link = document.querySelector('%1'); link.scrollIntoView({block: 'center'});"
                  "const r = link.getBoundingClientRect(); return [r.left + r.width / 2, r.top + r.height / 2]; })()"_s.arg(
                      QString::fromLatin1(selector)))
            .toList();
    ASSERT_EQ(place.size(), 2) << selector;
    QTest::mouseClick(window->PageView().WebBrowser1()->focusProxy(), Qt::LeftButton, {}, QPoint(place[0].toInt(), place[1].toInt()));
}

} // namespace kelvado
