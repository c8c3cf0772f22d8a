// Makes what is delivered beside the program:
//   stage blank SCHEMA.sql OUT            the blank catalog
//   stage sample FILMS-FOLDER COVERS-FOLDER BLANK OUT
//                                         the sample collection, stored as the program itself stores films
//   stage package FOLDER OUT.kmt          a template package for web pages
//   stage settings DELIVERED TARGET KEY=VALUE…
//                                         adds the settings that TARGET lacks; what stands there stays

#include "Covers.h"
#include "Package.h"
#include "SampleFilms.h"
#include "core/Literals.h"
#include "core/Paths.h"
#include "core/Profile.h"
#include "core/RuntimeError.h"
#include "core/SafeFile.h"
#include "store/CatalogTemplate.h"
#include "store/mDBConnection.h"
#include "store/mFileAccess.h"

#include <QBuffer>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <cstdio>

using namespace kelvado;

namespace {

constexpr int kCoverQuality = 88;

// Nothing of the sample is too long for its column; a question would be a fault in the data.
class NoDialogs : public Dialogs
{
public:
    using Dialogs::MessageBox;
    int MessageBox(const QString& text, int, const QString&) override { throw RuntimeError(kErrInvalidCall, text); }
    void TellMade(const QString&, const QString&, const QString&) override {}
    QString InputBox(const QString& prompt, const QString&, const QString&) override { throw RuntimeError(kErrInvalidCall, prompt); }
    void ShowOpen(FileDialog&) override { throw RuntimeError(kErrCancelled); }
    void ShowSave(FileDialog&) override { throw RuntimeError(kErrCancelled); }
    QString BrowseForFolder(const QString&) override { return {}; }
    QString AskFieldEdit(const QString& value, qsizetype, const QString& column) override
    {
        throw RuntimeError(kErrInvalidCall, column + u" is too long: "_s + value);
    }
};

QByteArray Jpeg(const QImage& picture)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "JPG", kCoverQuality);
    return bytes;
}

CoverText CoverTextOf(const FilmRecord& film)
{
    CoverText text{film.TitleNY, film.Year.toInt(), {}, {}, film.Plot};
    for (const FilmGenre& genre : film.Genres)
        text.genres << genre.Genre;
    QStringList directors;
    for (const FilmPerson& director : film.Directors)
        directors << director.Name;
    text.director = directors.join(u", "_s);
    return text;
}

// What no writer of films stores: the list for the evening, the NFO text, the second picture, and who has the film.
void StoreRest(const SampleFilm& film, qint64 movieId, const Covers& covers, quint32 seed, const QString& catalog, const QString& folder)
{
    Connection connection = OpenCatalog(catalog);
    Recordset row;
    row.Open(u"SELECT * FROM Movie WHERE Movie_ID = "_s + QString::number(movieId), connection);
    if (film.movieNight)
        row[u"MovieNight"].Set(1);
    if (!film.nfo.isEmpty())
        row[u"Nfo"].Set(film.nfo);
    if (film.backCover) {
        const QString path = folder + u"/back.JPG"_s;
        WriteFileWhole(path, Jpeg(covers.Back(CoverTextOf(film.record), seed)));
        row[u"ImageBack_ID"].Set(static_cast<std::int64_t>(StoreImageFile(path, connection)));
    }
    if (!film.loanedTo.isEmpty()) {
        Recordset loan;
        loan.Open(u"SELECT * FROM Loans"_s, connection);
        loan.AddNew();
        loan[u"Movie_ID"].Set(static_cast<std::int64_t>(movieId));
        loan[u"LoanedTo"].Set(film.loanedTo);
        loan[u"LoanDate"].Set(QDate(2026, 9, 5));
        loan[u"DueDate"].Set(QDate(2026, 12, 5));
        row[u"Loan_ID"].Set(loan[u"Loan_ID"].Get());
        loan.Update();
    }
    row.Update();
    connection.Close();
}

void MakeSample(const QString& filmsFolder, const QString& coversFolder, const QString& blank, const QString& target)
{
    const Covers covers(coversFolder);
    const QTemporaryDir folder;
    const QString catalog = folder.filePath(u"sample.kvd"_s);
    CopyFileWhole(blank, catalog);
    NoDialogs dialogs;
    const WriterContext context{catalog, QString(), dialogs};
    quint32 count = 0;
    for (SampleFilm& film : ReadSampleFilms(filmsFolder)) {
        FilmRecord& record = film.record;
        ++count;
        record.ImageData = Jpeg(covers.Front(CoverTextOf(record), count));
        record.ImageExtention = u"JPG"_s;
        const qint64 movieId = AddFilm(record, cOptIMDbFilm::Everything(), context);
        SaveFilmEdit(record, movieId, context);
        StoreRest(film, movieId, covers, count, catalog, folder.path());
    }
    CopyFileWhole(catalog, target);
    std::printf("%u films in %s\n", count, qPrintable(target));
}

void CompleteSettings(const QString& delivered, const QString& target, const QStringList& extra)
{
    if (!QFile::exists(target))
        CopyFileWhole(delivered, target);
    ProfileChanges changes(target);
    QString section;
    for (const QString& line : QString::fromUtf8(ReadBytes(delivered)).split(u'\n')) {
        if (line.startsWith(u'['))
            section = line.section(u'[', 1).section(u']', 0, 0);
        const QString key = line.section(u'=', 0, 0);
        if (line.startsWith(u';') || key == line)
            continue;
        if (ReadProfileValue(section, key, target).isEmpty())
            changes.Set(section, key, line.section(u'=', 1));
    }
    for (const QString& entry : extra) {
        const QString key = entry.section(u'=', 0, 0);
        if (ReadProfileValue(u"Settings"_s, key, target).isEmpty())
            changes.Set(u"Settings"_s, key, entry.section(u'=', 1));
    }
    if (!changes.Write())
        throw RuntimeError::WithDetail(kErrFileAccess, target);
}

} // namespace

int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments().mid(1);
    const QString job = arguments.value(0);
    try {
        if (job == u"blank" && arguments.size() == 3)
            BuildBlankCatalog(arguments[2], QString::fromUtf8(ReadBytes(arguments[1])));
        else if (job == u"sample" && arguments.size() == 5)
            MakeSample(arguments[1], arguments[2], arguments[3], arguments[4]);
        else if (job == u"package" && arguments.size() == 3)
            MakePackage(arguments[1], arguments[2]);
        else if (job == u"settings" && arguments.size() >= 3)
            CompleteSettings(arguments[1], arguments[2], arguments.mid(3));
        else
            throw RuntimeError(kErrInvalidCall, u"usage: stage blank|sample|package|settings …"_s);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "stage: %s\n", error.what());
        return 1;
    }
}
