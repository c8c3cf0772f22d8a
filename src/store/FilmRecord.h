#pragma once

#include "core/Conversions.h"
#include "core/FilmId.h"

#include <QByteArray>
#include <QDate>
#include <QList>
#include <QString>

namespace kelvado {

/// A person in one of the four roles. `Extended` is the credit's note (writers, directors, producers), `Character` the role (actors).
struct FilmPerson
{
    QString Name;
    qint64 ID = 0;
    QString IMDB_Link;
    QString Extended;
    QString Character;
};

struct FilmCompany
{
    QString Company;
    qint64 ID = 0;
    QString Type;
    QString Extended;
};

struct FilmGenre
{
    QString Genre;
    qint64 ID = 0;
};

struct FilmFeature
{
    QString Feature;
    qint64 ID = 0;
};

/// A film in memory. What is not set is empty, the zero date, 0 or false. The film's number in the catalog is no part of it.
struct FilmRecord
{
    QString Title, TitleNY; ///< with and without the year
    QString Year, Rating, Votes, Runtime, Language, IMDB, Format, Number, Index;
    QString ImageURL, ImageExtention; ///< where the picture came from; its kind, empty for none
    QString Image_ID, ImageBack_ID;   ///< read back only
    QString HiResImageURL;            ///< wins over `ImageURL`
    QString Rated, Group, Filesize, Studio, Quality, Resolution, AudBitrate, VidBitrate, AudType, AudChannels, FileName, VidType,
        SubLanguage, Comments, FileNotes, Custom1, Custom2, Custom3, Plot, UserURL1, UserURL2, TrailerURL;
    Currency PurchasePrice;
    QString PurchasedWhere;
    bool SeenIt = false;
    QDate LastViewing = ZeroDate(); ///< written, never read back
    QString MyRating, MyRatingNotes, Country, Color;
    QByteArray ImageData;
    QList<FilmFeature> Features; ///< read back only
    QList<FilmCompany> Companies;
    QList<FilmGenre> Genres;
    QList<FilmPerson> Producers, Writers, Directors;
    QList<FilmPerson> Actors; ///< in billing order
};

} // namespace kelvado
