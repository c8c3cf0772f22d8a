#pragma once

#include "store/Recordset.h"

#include <QString>

#include <functional>

namespace kelvado {

/// What the tokens of a film need beside its row.
struct TokenSettings
{
    QString skin;
    QString siteAddress; ///< as `SiteAddress` gives it
    /// Picture paths are relative to the export folder; otherwise they lie below the skin's folder.
    bool exported = false;
};

/// The routines below replace tokens (`!!TITLE!!`) in `text` by values as they stand, without any escaping. They work one token after the
/// other over the whole text, so a value that holds a token of a later step is replaced in its turn. A token that `text` does not hold
/// costs nothing; one that no value reaches stays in it.

/// All single-value tokens. `film` stands on the film's row of `Movie`. "N/A" for Null; an empty text is a value.
/// Raises `kErrTypeMismatch` for a rating that begins with a digit and does not end with one.
void FillFilmTokens(QString& text, const Recordset& film, const TokenSettings& settings);

/// `!!GENRE!!`: the genres with ", " between them and a blank in front, or "N/A".
void FillGenreToken(QString& text, Connection& connection, FilmId movieId);

/// The numbered tokens, `!!ACTOR1!!` and up. All rows are put in, also those above 50; tokens up to 50 that have no row become "N/A".
void FillActorTokens(QString& text, Connection& connection, FilmId movieId);
void FillProducerTokens(QString& text, Connection& connection, FilmId movieId);
void FillDirectorTokens(QString& text, Connection& connection, FilmId movieId);
void FillWriterTokens(QString& text, Connection& connection, FilmId movieId);

/// The genres and all people of a film, in the order in which a page takes them.
void FillLinkedTokens(QString& text, Connection& connection, FilmId movieId);

/// The tokens of an index that is spread over pages. `page` counts from 1.
void FillPageTokens(QString& text, qint64 page, qint64 pageCount, qint64 pageSize, qint64 filmCount);

/// Copies a file to a name below the folder of a web export.
using CopyIntoExport = std::function<void(const QString& source, const QString& target)>;
/// Copies the pictures of the rating bar of `skin` to the export's "Images"; what the skin does not have is left out.
void CopyRatingBarImages(const QString& skin, const CopyIntoExport& copy);
/// The same with the pictures of the certificates.
void CopyCertificateImages(const QString& skin, const CopyIntoExport& copy);

/// `path` as pages take it: "/" for "\", and the few characters that would end or change the path in an attribute's address given as %XX.
QString PathForPage(const QString& path);

} // namespace kelvado
