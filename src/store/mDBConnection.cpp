#include "store/mDBConnection.h"

#include "core/Conversions.h"
#include "core/Literals.h"
#include "core/Profile.h"
#include "core/RuntimeError.h"
#include "store/FilmColumns.h"
#include "store/FilmLinks.h"

#include <optional>
#include <span>

namespace kelvado {

namespace {

const QString kFilmById = u"SELECT * FROM Movie WHERE Movie_ID = "_s;

// At most `size` characters, and never half of one.
QString Cut(const QString& text, qsizetype size)
{
    const bool splitsOne = size > 0 && size < text.size() && text[size - 1].isHighSurrogate();
    return text.left(splitsOne ? size - 1 : size);
}

void PutColumns(std::span<const RecordColumn> columns, const FilmRecord& film, const cOptIMDbFilm& options, Recordset& movie,
                const WriterContext& context)
{
    for (const RecordColumn& column : columns) {
        if (column.gate && !IsOn(options.*column.gate))
            continue;
        Value value = std::visit([&film](auto member) { return Value(film.*member); }, column.member);
        PutField(value, column.column, movie, context);
    }
}

enum class LinkColumn { WhereKnown, Always };

// Stores the film's picture as a new row, which the film then names. Returns the number of the film for its links; nothing where both
// picture options are off, so that the links then belong to no film.
Value StorePicture(const FilmRecord& film, const cOptIMDbFilm& options, LinkColumn linkColumn, Recordset& movie, Connection& connection)
{
    if (!IsOn(options.Image) && !IsOn(options.HiImage))
        return {};
    if (!film.ImageExtention.isEmpty()) {
        Recordset images;
        images.Open(u"SELECT * FROM Images"_s, connection);
        images.AddNew();
        images[u"Image"].Set(film.ImageData);
        images[u"Extention"].Set(film.ImageExtention);
        const QString& link = film.HiResImageURL.isEmpty() ? film.ImageURL : film.HiResImageURL;
        if (linkColumn == LinkColumn::Always || !link.isEmpty())
            images[u"Image_Link"].Set(link);
        movie[u"Image_ID"].Set(images[u"Image_ID"].Get());
        images.Update();
    }
    return movie[u"Movie_ID"].Get();
}

// Stores the links and closes the connection, which commits what was stored, whatever happens to the links. Returns their failure, which
// names the film and what is missing. Raises where the commit fails: then nothing of the film is stored.
std::optional<IncompleteFilm> StoreLinksAndClose(const FilmRecord& film, FilmId storedId, const Value& movieId, LinkMode mode,
                                                 const cOptIMDbFilm& options, const WriterContext& context, Connection& connection)
{
    const std::optional<LinkFailure> failure = StoreFilmLinks(film, movieId, mode, options, context, connection);
    try {
        connection.Close();
    } catch (const RuntimeError& error) {
        if (failure)
            throw RuntimeError(failure->error.Number(), failure->error.Description() + u"\r\n"_s + error.Description());
        throw;
    }
    if (!failure)
        return std::nullopt;
    const QString state = mode == LinkMode::Add ? u"missing or not complete"_s : u"as they were"_s;
    return IncompleteFilm(failure->error.Number(),
                          failure->error.Description() + u"\r\n\""_s + film.Title + u"\" is in the catalog, but these lists are "_s +
                              state + u": "_s + failure->lists.join(u", "_s),
                          storedId);
}

} // namespace

FilmId AddFilm(const FilmRecord& film, const cOptIMDbFilm& options, const WriterContext& context)
{
    Connection connection = OpenCatalog(context.catalogPath);
    Value linkId;
    FilmId movieId = 0;
    connection.AllOrNothing([&] {
        Recordset movie;
        movie.Open(u"SELECT * FROM Movie"_s, connection);
        movie.AddNew();
        movie[u"Title"].Set(film.Title);
        PutColumns(kAddColumns, film, options, movie, context);
        PutColumns(kOriginColumns, film, options, movie, context);
        PutColumns(kPersonalColumns, film, options, movie, context);
        PutColumns(kAddFileColumns, film, options, movie, context);
        linkId = StorePicture(film, options, LinkColumn::WhereKnown, movie, connection);
        movieId = movie[u"Movie_ID"].Get().Integer();
        movie.Update();
    });
    if (const auto failure = StoreLinksAndClose(film, movieId, linkId, LinkMode::Add, options, context, connection))
        throw *failure;
    return movieId;
}

void UpdateFilm(const FilmRecord& film, FilmId movieId, const cOptIMDbFilm& options, const WriterContext& context, Shell& shell)
{
    Connection connection = OpenCatalog(context.catalogPath);
    Value linkId;
    FilmId storedId = 0;
    Recordset movie;
    movie.Open(kFilmById + QString::number(movieId), connection);
    movie[u"Title"].Set(film.Title);
    PutColumns(kUpdateColumns, film, options, movie, context);
    PutColumns(kOriginColumns, film, options, movie, context);
    connection.AllOrNothing([&] {
        linkId = StorePicture(film, options, LinkColumn::Always, movie, connection);
        storedId = movie[u"Movie_ID"].Get().Integer();
        movie.Update();
    });
    movie.Close();
    const auto failure = StoreLinksAndClose(film, storedId, linkId, LinkMode::Update, options, context, connection);
    // The node is told last: its key is made from what the catalog then holds.
    shell.RetitleSelectedNode(storedId, DecodeEntities(film.Title));
    shell.RekeySelectedNode(storedId);
    if (failure)
        throw *failure;
}

void SaveFilmEdit(const FilmRecord& film, FilmId movieId, const WriterContext& context)
{
    Connection connection = OpenCatalog(context.catalogPath);
    Recordset movie;
    movie.Open(kFilmById + QString::number(movieId), connection);
    if (movie.Eof())
        throw RuntimeError(kErrNoCurrentRecord);
    PutColumns(kEditColumns, film, {}, movie, context);
    PutColumns(kOriginColumns, film, {}, movie, context);
    PutColumns(kPersonalColumns, film, {}, movie, context);
    movie.Update();
    movie.Close();
    connection.Close();
}

FilmRecord ReadFilm(FilmId movieId, const QString& catalogPath)
{
    Connection connection = OpenCatalog(catalogPath);
    Recordset movie;
    movie.Open(kFilmById + QString::number(movieId), connection);
    if (movie.Eof())
        throw RuntimeError(kErrNoCurrentRecord);

    FilmRecord film;
    struct Reader
    {
        FilmRecord& film;
        const Recordset& movie;
        QString column;
        void operator()(QString FilmRecord::*member) const { film.*member = FieldString(column, movie); }
        void operator()(Currency FilmRecord::*member) const { film.*member = FieldCurrency(column, movie); }
        void operator()(bool FilmRecord::*member) const { film.*member = FieldNumber(column, movie) != 0; }
        void operator()(QDate FilmRecord::*) const {} // the day of the last viewing is written only
    };
    for (const std::span<const RecordColumn> columns :
         {std::span<const RecordColumn>(kEditColumns), {kOriginColumns}, {kPersonalColumns}}) {
        for (const RecordColumn& column : columns)
            std::visit(Reader{film, movie, column.column}, column.member);
    }
    film.Image_ID = NumberText(FieldNumber(u"Image_ID"_s, movie));
    film.ImageBack_ID = NumberText(FieldNumber(u"ImageBack_ID"_s, movie));
    ReadFilmLinks(film, movieId, connection);
    return film;
}

void PutField(Value& value, const QString& column, Recordset& recordset, const WriterContext& context)
{
    if (value.IsNull())
        return;
    const QString text = value.Text();
    if (TrimBlanks(text).isEmpty())
        return;
    const Field field = recordset[column];
    if (column.compare(u"SeenIt"_s, Qt::CaseInsensitive) != 0) {
        const qsizetype size = field.DefinedSize();
        if (text.size() > size) {
            const bool cuts = EqualsTrue(ReadProfileValue(u"IMDb"_s, u"AutoCut"_s, context.settingsFile));
            value = cuts ? Cut(text, size) : context.dialogs.AskFieldEdit(text, size, column.toUpper());
        }
        if (value.IsText())
            value = TrimBlanks(value.Text());
        if (value.IsText() && value.Text().isEmpty())
            return;
    }
    field.Set(value);
}

QString FieldString(const QString& column, const Recordset& recordset)
{
    const Field field = recordset[column];
    return field.IsNull() ? QString() : field.Get().Text();
}

Currency FieldCurrency(const QString& column, const Recordset& recordset)
{
    const Field field = recordset[column];
    return field.IsNull() ? Currency() : ToCurrency(field.Get().Text());
}

double FieldNumber(const QString& column, const Recordset& recordset)
{
    const Field field = recordset[column];
    return field.IsNull() ? 0 : field.Get().Number();
}

} // namespace kelvado
