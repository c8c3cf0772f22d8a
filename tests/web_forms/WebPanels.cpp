#include "WebPanels.h"

namespace kelvado {

namespace {

QByteArray StoredPage(const char* name)
{
    return FileContent(u"" KELVADO_SOURCE_DIR "/tests/data/web/%1.html"_s.arg(QLatin1StringView(name)));
}

QByteArray Ok(const QByteArray& body, const char* type = "text/html; charset=iso-8859-1")
{
    return QByteArray("HTTP/1.0 200 OK\r\nContent-Type: ") + type + "\r\n\r\n" + body;
}

} // namespace

WebPanels::WebPanels() : site([this](const QByteArray& path) { return Answer(path); })
{
    SetHosts(site.Host());
    Set("Options", "GetHighResImage", u"0"_s);
    Set("DefaultValues", "PromptAKA", u"0"_s);
}

LoopbackServer::Reply WebPanels::Answer(const QByteArray& path)
{
    if (onRequest)
        onRequest(path);
    if (instead) {
        if (const LoopbackServer::Reply reply = instead(path); !reply.bytes.isEmpty() || reply.then != LoopbackServer::Then::Close)
            return reply;
    }
    const QByteArray number = path.mid(path.indexOf('?') + 1);
    if (path.startsWith("/Tsearch?"))
        return {StoredPage("search")};
    if (path.startsWith("/media/"))
        return {Ok("\xFF\xD8\xFFposter", "image/jpeg")};
    if (path.startsWith("/downloads/"))
        return {Ok("2247\r\n")};
    if (!titles.contains(number))
        return {"HTTP/1.0 404 Not Found\r\n\r\n<html>gone</html>"};
    if (path.startsWith("/Title?"))
        return {Ok(StoredPage("title")
                       .replace("The L&#246;wen Affair (1987/II) (TV)", titles[number])
                       .replace("tt0912345", "tt" + number)
                       .replace("posters.test", site.Host().toUtf8()))};
    for (const char* name : {"plot", "companies", "credits"}) {
        if (path.mid(1).toLower().startsWith(name))
            return {Ok(StoredPage(name))};
    }
    return {"HTTP/1.0 404 Not Found\r\n\r\n"};
}

void FilmPanels::SetHosts(const QString& host)
{
    for (const char* key : {"ImdbMainHost", "ImdbSearchHost", "ImdbPersonHost", "ImdbHeadsHost", "ImdbPosterHost", "ImdbOldPosterHost",
                            "AmazonMainHost", "AmazonImageHost", "UpdateHost"})
        Set("Hosts", key, host);
}

void FilmPanels::StartAdding()
{
    Start();
    Press("AddIMDb");
}

void FilmPanels::QueueAll()
{
    Press("Image1");
    while (List("lstSearch").topLevelItemCount() > 0)
        DoubleClick("lstSearch", 0);
}

std::string FilmPanels::Rows(const char* list) const
{
    QStringList rows;
    for (int i = 0; i < List(list).topLevelItemCount(); ++i) {
        const QTreeWidgetItem* row = List(list).topLevelItem(i);
        rows << row->text(0) + u'|' + row->text(1);
    }
    return rows.join(u'\n').toStdString();
}

void FilmPanels::DoubleClick(const char* list, int row)
{
    QTreeWidget& rows = List(list);
    const QPoint place = rows.visualItemRect(rows.topLevelItem(row)).center();
    QTest::mouseClick(rows.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(rows.viewport(), Qt::LeftButton, {}, place);
}

void FilmPanels::InWindow(const char* name, std::function<void(QWidget& modal)> action)
{
    auto* timer = new QTimer(window.get());
    QObject::connect(timer, &QTimer::timeout, timer, [timer, name = QString::fromLatin1(name), action = std::move(action)] {
        QWidget* modal = QApplication::activeModalWidget();
        if (!modal || modal->objectName() != name)
            return;
        timer->stop();
        timer->deleteLater();
        action(*modal);
    });
    timer->start(5);
}

std::string FilmPanels::NewTitles() const
{
    return catalog.Ask("SELECT group_concat(Title, ' / ') FROM (SELECT Title FROM Movie WHERE Movie_ID > 3 ORDER BY Movie_ID)")
        .toStdString();
}

} // namespace kelvado
