#include "render/forms/frmPageView.h"

#include "render/forms/PageEngine.h"
#include "support/TempHome.h"

#include <QImage>
#include <QProcessEnvironment>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTest>
#include <QWebEngineScript>
#include <QWebEngineView>

#include <csignal>

// What the user gave the program, before the engine was prepared.
QProcessEnvironment userEnvironment;

void PrepareTestApplication()
{
    qputenv("QTWEBENGINE_CHROMIUM_FLAGS", "--disable-breakpad");
    userEnvironment = QProcessEnvironment::systemEnvironment();
    kelvado::PreparePageEngine();
}

namespace kelvado {
namespace {

/// A page view on a program folder of its own. What lies beside that folder is outside.
class PageView : public ::testing::Test
{
protected:
    PageView()
    {
        QDir(m_folder.Path({})).mkpath(u"home/temp"_s);
        qputenv("KELVADO_HOME", m_folder.Path(u"home"_s).toUtf8());
        QImage picture(4, 4, QImage::Format_RGB32);
        picture.fill(Qt::red);
        picture.save(File("home/temp/inside.png"));
        picture.save(File("outside.png"));
        QFile::link(File("outside.png"), File("home/temp/link.png"));
        QObject::connect(&view, &frmPageView::Clicked, &view, [this](const PageClick& click) {
            told << u"%1 %2 %3%4"_s.arg(click.id, click.tagName, click.href.section(u'/', -1), click.controlDown ? u" Ctrl"_s : QString());
        });
        QObject::connect(&view, &frmPageView::ContextMenu, &view, [this] { told << u"menu"_s; });
        view.resize(600, 400);
        view.show();
    }

    QString File(const char* name) const { return m_folder.Path(QString::fromLatin1(name)); }

    QString Write(const char* name, const QByteArray& body)
    {
        m_folder.Write(QLatin1StringView(name), "<!doctype html><meta charset=\"utf-8\"><title>" + QByteArray(name) + "</title>" + body);
        return File(name);
    }

    void Show(const QString& path)
    {
        QSignalSpy complete(&view, &frmPageView::DocumentComplete);
        view.Navigate(path);
        ASSERT_TRUE(complete.count() > 0 || complete.wait(20000));
        ASSERT_TRUE(complete.last()[1].toBool());
    }

    QVariant Ask(const char* script, quint32 world = QWebEngineScript::MainWorld)
    {
        QVariant answer;
        bool answered = false;
        view.WebBrowser1()->page()->runJavaScript(QString::fromUtf8(script), world, [&](const QVariant& value) {
            answer = value;
            answered = true;
        });
        EXPECT_TRUE(QTest::qWaitFor([&] { return answered; }, 10000));
        return answer;
    }

    void Click(const char* selector, Qt::MouseButton button = Qt::LeftButton, Qt::KeyboardModifiers modifiers = {})
    {
        const QByteArray script = "(() => { const r = document.querySelector('" + QByteArray(selector) +
                                  "').getBoundingClientRect(); return [r.left + r.width / 2, r.top + r.height / 2]; })()";
        const QVariantList place = Ask(script.constData()).toList();
        ASSERT_EQ(place.size(), 2) << selector;
        QTest::mouseClick(view.WebBrowser1()->focusProxy(), button, modifiers, QPoint(place[0].toInt(), place[1].toInt()));
    }

    /// What was told of clicks and menus, once it is `count` things.
    std::string Told(qsizetype count)
    {
        EXPECT_TRUE(QTest::qWaitFor([&] { return told.size() >= count; }, 10000));
        return std::exchange(told, {}).join(u" | "_s).toStdString();
    }

    TempHome m_folder;
    QStringList told;
    frmPageView view;
};

TEST_F(PageView, OpensTheLastPathThatItWasToldBeforeTheBrowserWasThere)
{
    view.Navigate(Write("home/temp/one.html", "one"));
    view.Navigate(Write("home/temp/two.html", "two"));
    QSignalSpy complete(&view, &frmPageView::DocumentComplete);
    EXPECT_EQ(view.WebBrowser1(), nullptr);
    view.CreateBrowser();
    ASSERT_TRUE(complete.wait(20000));
    EXPECT_EQ(Ask("document.body.textContent").toString(), u"two"_s);
}

TEST_F(PageView, ClicksReachTheHostAndNeverTheBrowser)
{
    view.CreateBrowser();
    Show(Write("home/temp/page.html", R"html(<style>a, button, span { display: inline-block; margin: 4px }</style>
        <p><a id="SendMessage:GOTO:12:Action" href="#">go</a>
        <a class="credits" id="SendMessage:PAGE_CREDITS:12" href="#">credits</a>
        <p><a class="web" href="https://example.org/a?b=1&amp;c=2">web</a> <a class="mail" href="mailto:a@example.org">mail</a>
        <a class="file" href="two.html">file</a> <a class="script" href="javascript:document.title='gone'">script</a>
        <a class="nested" href="https://example.org/"><b>inner</b></a>
        <p><button id="javascript:fold" onclick="document.title = 'folded'">fold</button>
        <a class="swallow" id="SendMessage:GOTO:13:Drama" href="#" onclick="event.stopImmediatePropagation()">swallow</a>)html"));
    // What is not told comes first; what stands behind it proves that it was not.
    Click(".web", Qt::MiddleButton);
    Ask("for (const kind of ['.web', '.mail', '.swallow']) document.querySelector(kind).click()");
    Ask("document.body.dispatchEvent(new MouseEvent('contextmenu', { bubbles: true }))");
    Click(".nested b");
    Click("button");
    Click("a[id*=Action]");
    EXPECT_EQ(Told(3), " B  | javascript:fold BUTTON  | SendMessage:GOTO:12:Action A page.html#");
    EXPECT_EQ(Ask("document.title").toString(), u"folded"_s); // the page's own script ran, the address did not

    Click(".web");
    Click(".credits", Qt::LeftButton, Qt::ControlModifier);
    Click(".swallow");
    Click("p", Qt::RightButton);
    view.activateWindow();
    view.setFocus();
    ASSERT_TRUE(QTest::qWaitFor([&] { return Ask("document.hasFocus()").toBool(); }, 10000));
    Ask("document.querySelector('.web').focus()");
    QTest::keyClick(view.WebBrowser1()->focusProxy(), Qt::Key_Return);
    EXPECT_EQ(Told(5), " A a?b=1&c=2 | SendMessage:PAGE_CREDITS:12 A page.html# Ctrl | SendMessage:GOTO:13:Drama A page.html# | menu | "
                       " A a?b=1&c=2");
}

TEST_F(PageView, LoadsNothingFromOutsideTheProgramFolder)
{
    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    const QByteArray site = "127.0.0.1:" + QByteArray::number(server.serverPort());
    const QByteArray data = "data:image/gif;base64,R0lGODlhAQABAIAAAP///wAAACwAAAAAAQABAAACAkQBADs=";
    view.CreateBrowser();
    Show(Write("home/temp/page.html",
               "<img src=\"inside.png\"><img src=\"" + data + "\"><img src=\"../../outside.png\"><img src=\"link.png\">" +
                   "<img src=\"http://" + site + "/a.png\"><iframe src=\"file://" + File("outside.png").toUtf8() +
                   "\"></iframe><iframe src=\"http://" + site + "/\"></iframe><link rel=\"stylesheet\" href=\"http://" + site +
                   "/a.css\"><script src=\"http://" + site + "/a.js\"></script>"));
    EXPECT_EQ(Ask("[...document.images].map(image => image.naturalWidth).join()").toString(), u"4,1,0,0,0"_s);
    const QByteArray attempts = "window.done = []; for (const attempt of [() => fetch('http://" + site +
                                "/'), () => fetch('file:///etc/passwd'), " +
                                "() => new Promise((good, bad) => { const socket = new WebSocket('ws://" + site +
                                "/'); socket.onopen = good; socket.onerror = bad; }), () => navigator.sendBeacon('http://" + site +
                                "/', 'x') && Promise.reject()]) attempt().then(() => done.push('in'), () => done.push('out'));";
    Ask(attempts.constData());
    EXPECT_TRUE(QTest::qWaitFor([&] { return Ask("done.length").toInt() == 4; }, 10000));
    EXPECT_EQ(Ask("done.join()").toString(), u"out,out,out,out"_s);
    EXPECT_FALSE(server.hasPendingConnections());
    EXPECT_EQ(Ask("typeof qt + typeof QWebChannel").toString(), u"undefinedundefined"_s); // nor does it reach the bridge
}

TEST_F(PageView, GoesOnlyWhereTheProgramSendsIt)
{
    view.CreateBrowser();
    const QString page = Write("home/temp/page.html", "<form action=\"two.html\"><button id=\"javascript:send\">send</button></form>");
    const QString two = Write("home/temp/two.html", "two");
    for (const char* attempt : {"location.href = 'two.html'", "window.open('two.html')", "history.back()", "document.forms[0].submit()",
                                "location.reload()", "document.forms[0].requestSubmit()", "alert('modal')"}) {
        Show(two);
        Show(page);
        Ask("window.kept = true");
        Ask(attempt);
        for (int round = 0; round < 20; ++round)
            EXPECT_TRUE(Ask("window.kept === true").toBool()) << attempt;
    }
}

TEST_F(PageView, TheEnvironmentIsTheUsersOnceTheEngineRuns)
{
    view.CreateBrowser();
    Show(Write("home/temp/one.html", "one"));
    const QProcessEnvironment now = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"QTWEBENGINE_CHROMIUM_FLAGS", "QT_QUICK_BACKEND", "QT_XCB_GL_INTEGRATION", "QTWEBENGINE_DISABLE_SANDBOX"})
        EXPECT_EQ(now.value(QLatin1StringView(name), u"unset"_s), userEnvironment.value(QLatin1StringView(name), u"unset"_s));
    // An engine process that starts later works without it.
    QSignalSpy complete(&view, &frmPageView::DocumentComplete);
    const qint64 process = view.WebBrowser1()->page()->renderProcessPid();
    ASSERT_EQ(::kill(static_cast<pid_t>(process), SIGKILL), 0);
    ASSERT_TRUE(complete.wait(20000));
    EXPECT_NE(view.WebBrowser1()->page()->renderProcessPid(), process);
    Show(Write("home/temp/two.html", "two"));
    EXPECT_EQ(Ask("document.body.innerText").toString(), u"two"_s);
}

TEST_F(PageView, TemplatesHideAWholeTokenAndShowAValueThatLooksLikeOne)
{
    const std::pair<const char*, const char*> cases[] = {
        {"art/skin/Templates/default.html", "!!TITLE!!"},  {"art/skin/Templates/default.html", "!!PLOT!!"},
        {"art/skin/Templates/default.html", "!!ACTOR7!!"}, {"art/skin/Templates/credits.html", "!!ACTOR!!"},
        {"art/skin/Templates/person.html", "!!BIO!!"},     {"art/skin/Templates/nfo.html", "!!NFO!!"},
    };
    const QString value = u"!!! (2004) !!"_s;
    view.CreateBrowser();
    for (const auto& [name, token] : cases) {
        QByteArray page = FileContent(u"" KELVADO_SOURCE_DIR "/data/"_s + QLatin1StringView(name));
        ASSERT_TRUE(page.contains(token)) << name;
        page.replace(token, value.toUtf8()).replace("!!NAME!!", "Name").replace("!!INFILM!!", "");
        Show(Write("home/temp/page.html", page));
        const QString shown = Ask("document.body.innerText").toString();
        EXPECT_TRUE(shown.contains(value)) << name << token;
        EXPECT_FALSE(shown.contains(QRegularExpression(u"!![A-Z]+\\d*!!"_s))) << qPrintable(shown);
    }
}

TEST_F(PageView, TheStyleSheetShowsAFilmAsTextAndItsLinksAreTold)
{
    view.CreateBrowser();
    m_folder.Write(u"home/Default.xsl"_s, FileContent(u"" KELVADO_SOURCE_DIR "/data/Skins/Default XML/Templates/Default.xsl"_s));
    QByteArray cast;
    for (int i = 0; i < 20; ++i)
        cast += "<Actor><Name>Actor " + QByteArray::number(i) + "</Name><Character>&lt;b&gt;</Character><WebLink></WebLink></Actor>";
    m_folder.Write(
        u"home/temp/page.xml"_s,
        "<?xml version='1.0' ?><?xml-stylesheet type='text/xsl' href='" + File("home/Default.xsl").toUtf8() +
            "' ?><list><Config><maxDirectors>2</maxDirectors></Config><Movie>"
            "<Title>Cops &amp; &lt;script&gt;alert(1)&lt;/script&gt; (1954)</Title><Year>1954</Year><Comments></Comments>"
            "<Plot>a\r\n&lt;/p&gt; b</Plot><ImageFront>No Image.jpg</ImageFront><ImageBack>No Image.jpg</ImageBack>"
            "<WebDetails><IMDbRating>N/A</IMDbRating><IMDbRatingBar>barna.gif</IMDbRatingBar><UserURL1>javascript:alert(1)</UserURL1>"
            "<UserURL2>www.film.example/a</UserURL2></WebDetails>" +
            cast + "</Movie></list>");
    Show(File("home/temp/page.xml"));
    EXPECT_EQ(Ask("document.querySelector('h1').textContent").toString(), u"Cops & <script>alert(1)</script> "_s);
    EXPECT_EQ(Ask("document.querySelector('.plot').innerText").toString(), u"a\n</p> b"_s);
    EXPECT_EQ(Ask("[...document.querySelectorAll('.links a')].map(a => a.href).join()").toString(), u"https://www.film.example/a"_s);
    EXPECT_EQ(Ask("document.querySelectorAll('img, .bar, section').length").toInt(), 2); // the front cover and the cast
    const char* const shown = "[...document.querySelectorAll('.cast li')].filter(row => row.offsetHeight).length";
    EXPECT_EQ(Ask(shown).toInt(), 12);
    Click(".links a");
    EXPECT_EQ(Told(1), " A a");
    Ask("document.querySelector('button.more').scrollIntoView()");
    Click("button.more");
    Told(1);
    EXPECT_EQ(Ask(shown).toInt(), 20);
}

TEST_F(PageView, AnEndlessScriptDoesNotHoldUpTheNextPage)
{
    view.SetPatience(1000);
    view.CreateBrowser();
    Show(Write("home/temp/endless.html", "<script>setTimeout(() => { while (true); }, 1)</script>"));
    Show(Write("home/temp/two.html", "two"));
    EXPECT_EQ(Ask("document.body.textContent").toString(), u"two"_s);
    Show(Write("home/temp/endless.html", "<script>while (true);</script>")); // blank in the end
    EXPECT_EQ(Ask("location.href").toString(), u"about:blank"_s);
    Show(File("home/temp/missing.html"));
    EXPECT_EQ(Ask("location.href").toString(), u"about:blank"_s);
}

} // namespace
} // namespace kelvado
