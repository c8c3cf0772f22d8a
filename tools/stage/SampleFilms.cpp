#include "SampleFilms.h"

#include "core/Literals.h"
#include "core/RuntimeError.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUrl>

using namespace kelvado;

namespace {

struct TextKey
{
    const char* key;
    QString FilmRecord::*field;
};
constexpr TextKey kTextKeys[] = {
    {"rated", &FilmRecord::Rated},        {"runtime", &FilmRecord::Runtime},
    {"language", &FilmRecord::Language},  {"country", &FilmRecord::Country},
    {"color", &FilmRecord::Color},        {"studio", &FilmRecord::Studio},
    {"plot", &FilmRecord::Plot},          {"format", &FilmRecord::Format},
    {"index", &FilmRecord::Index},        {"imdb", &FilmRecord::IMDB},
    {"rating", &FilmRecord::Rating},      {"myRatingNotes", &FilmRecord::MyRatingNotes},
    {"comments", &FilmRecord::Comments},  {"purchasedWhere", &FilmRecord::PurchasedWhere},
    {"url1", &FilmRecord::UserURL1},      {"url2", &FilmRecord::UserURL2},
    {"trailer", &FilmRecord::TrailerURL}, {"subtitles", &FilmRecord::SubLanguage},
    {"custom1", &FilmRecord::Custom1},
};

QString Text(const QJsonValue& value)
{
    return value.isDouble() ? NumberText(value.toDouble()) : value.toString();
}

QList<FilmPerson> People(const QJsonValue& list)
{
    QList<FilmPerson> people;
    for (const auto entry : list.toArray()) {
        FilmPerson person;
        person.Name = entry.isString() ? entry.toString() : entry[u"name"_s].toString();
        person.Extended = entry[u"note"_s].toString();
        person.Character = entry[u"role"_s].toString();
        people << person;
    }
    return people;
}

SampleFilm ReadFilm(const QJsonValue& json)
{
    SampleFilm film;
    FilmRecord& record = film.record;
    const auto at = [&](const char* key) { return json[QLatin1StringView(key)]; };
    record.TitleNY = Text(at("title"));
    record.Year = Text(at("year"));
    record.Title = record.TitleNY + u" ("_s + record.Year + u')';
    for (const TextKey& key : kTextKeys)
        record.*key.field = Text(at(key.key));
    record.Number = Text(at("discs"));
    record.MyRating = Text(at("myRating"));
    record.SeenIt = at("seen").toBool();
    if (const QString price = Text(at("purchasePrice")); !price.isEmpty())
        record.PurchasePrice = ToCurrency(price);
    for (const auto genre : at("genres").toArray())
        record.Genres << FilmGenre{genre.toString(), 0};
    for (const auto company : at("companies").toArray())
        record.Companies << FilmCompany{company[u"name"_s].toString(), 0, company[u"type"_s].toString(), {}};
    record.Directors = People(at("directors"));
    record.Writers = People(at("writers"));
    record.Producers = People(at("producers"));
    for (FilmPerson& producer : record.Producers)
        producer.IMDB_Link = producer.Name; // a new producer that brings no link is stored without a name
    record.Actors = People(at("cast"));
    for (FilmPerson& actor : record.Actors) // the page source finds people by their names too
        actor.IMDB_Link = QString::fromLatin1(QUrl::toPercentEncoding(actor.Name)).replace("%20"_L1, "+"_L1);
    film.movieNight = at("movieNight").toBool();
    film.backCover = at("backCover").toBool();
    film.nfo = Text(at("nfo"));
    film.loanedTo = Text(at("loanedTo"));
    return film;
}

} // namespace

std::vector<SampleFilm> ReadSampleFilms(const QString& folder)
{
    const QFileInfoList files = QDir(folder).entryInfoList({u"*.json"_s}, QDir::Files, QDir::Name);
    if (files.isEmpty())
        throw RuntimeError::WithDetail(kErrFileNotFound, folder);
    std::vector<SampleFilm> films;
    for (const QFileInfo& entry : files) {
        QFile file(entry.filePath());
        QJsonParseError fault;
        const QJsonDocument list = file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll(), &fault) : QJsonDocument();
        if (!list.isArray())
            throw RuntimeError::WithDetail(kErrTypeMismatch, entry.filePath() + u": "_s + fault.errorString());
        for (const auto film : list.array())
            films.push_back(ReadFilm(film));
    }
    return films;
}
