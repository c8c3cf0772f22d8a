#include "intake/TitleImport.h"

#include "core/Afterwards.h"
#include "core/Guard.h"
#include "core/Literals.h"
#include "core/RuntimeError.h"
#include "store/Recordset.h"
#include "store/mFileAccess.h"

#include <QFileInfo>

namespace kelvado {

namespace {

void Take(const TitleStep& step, qsizetype done, qsizetype count)
{
    if (step && !step(done, count))
        throw RuntimeError(kErrCancelled);
}

void AddRows(const QStringList& titles, Connection& connection, const TitleStep& step)
{
    constexpr qsizetype kShown = 60; // characters of a title in a message
    Recordset films;
    films.Open(u"SELECT * FROM Movie"_s, connection);
    const Field column = films[u"Title"];
    for (qsizetype i = 0; i < titles.size(); ++i) {
        Take(step, i + 1, titles.size());
        const QString& title = titles[i];
        if (title.size() > column.DefinedSize()) {
            throw RuntimeError(kErrDatabase, u"Title %1 has %2 characters, and the column takes %3: \"%4…\""_s.arg(
                                                 QString::number(i + 1), QString::number(title.size()),
                                                 QString::number(column.DefinedSize()), title.left(kShown)));
        }
        films.AddNew();
        column.Set(title);
    }
    films.Update();
}

} // namespace

QStringList ReadTitles(const QString& path, const TitleStep& step)
{
    constexpr qsizetype kStride = qsizetype(1) << 20;
    constexpr qint64 kLargest = qint64(512) << 20;
    if (QFileInfo(path).size() > kLargest)
        throw RuntimeError::WithDetail(kErrFileAccess, path + u" (it is too large for a list of titles)"_s);
    const QString text = TextOfBytes(ReadBytes(path));
    QStringList titles;
    qsizetype begin = 0;
    for (qsizetype at = 0; at <= text.size(); ++at) {
        if (at % kStride == 0)
            Take(step, at, text.size());
        if (at < text.size() && text[at] != u'\r' && text[at] != u'\n')
            continue;
        if (at > begin)
            titles << text.sliced(begin, at - begin);
        begin = at + 1;
    }
    return titles;
}

QString TitleProgress(qsizetype done, qsizetype count)
{
    return u"Proccessing "_s + QString::number(done) + u" of "_s + QString::number(count);
}

void StoreTitles(const QStringList& titles, const QString& catalogPath, const TitleStep& step)
{
    try {
        Connection connection = OpenCatalog(catalogPath);
        connection.AllOrNothing([&] { AddRows(titles, connection, step); });
        connection.Close();
    } catch (const RuntimeError& error) {
        if (error.Number() == kErrCancelled)
            throw;
        throw RuntimeError(error.Number(),
                           error.Description() + u"\r\n\r\nStored: 0 of "_s + QString::number(titles.size()) + u" titles."_s);
    }
}

void ImportTitles(const QStringList& titles, const QString& catalogPath, Shell& shell, Dialogs& dialogs, const TitleStep& step)
{
    shell.ShowWorking(true);
    Afterwards(
        [&] {
            StoreTitles(titles, catalogPath, step);
            // The titles are in the catalog: a tree that cannot be filled must not let them look as if they were not.
            Guarded(dialogs, [&] { shell.RefreshCatalogTree(); });
        },
        [&] { shell.ShowWorking(false); });
    dialogs.MessageBox(u"Import Complete"_s, kBoxPlain, u"Import Status"_s);
}

} // namespace kelvado
