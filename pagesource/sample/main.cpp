// pagesource-sample FILMS-FOLDER PEOPLE.json OUT.db PICTURES-FOLDER ART-FOLDER: makes the delivered data file of the page source from
// the sample films, and paints its pictures.

#include "Covers.h"
#include "FilmWriter.h"
#include "Text.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPainter>

#include <algorithm>
#include <cstdio>
#include <map>
#include <set>

using namespace pagesource;
using namespace Qt::StringLiterals;

namespace {

// Numbers for what has none of its own. They are made of the name, so that they stay when films are added.
constexpr std::int64_t kFirstOwnNumber = 9'000'000;
constexpr std::uint64_t kOwnNumbers = 900'000;
// People who only share the name of one in the films.
constexpr std::int64_t kFirstNamesake = kFirstOwnNumber + kOwnNumbers;
constexpr QSize kPosterSize(200, 300);
constexpr int kPosterQuality = 85;
constexpr int kLargeQuality = 88;

std::string Utf8(const QJsonValue& value)
{
    return (value.isDouble() ? QString::number(value.toDouble()) : value.toString()).toStdString();
}

class OwnNumbers
{
public:
    void Reserve(std::int64_t number) { m_taken.insert(number); }

    std::int64_t Of(const std::string& name)
    {
        const auto known = m_numbers.find(name);
        if (known != m_numbers.end())
            return known->second;
        std::int64_t number = kFirstOwnNumber + static_cast<std::int64_t>(Hash(name) % kOwnNumbers);
        while (!m_taken.insert(number).second)
            ++number;
        return m_numbers[name] = number;
    }

    const std::map<std::string, std::int64_t>& All() const { return m_numbers; }

private:
    std::map<std::string, std::int64_t> m_numbers;
    std::set<std::int64_t> m_taken;
};

QJsonArray ReadList(const QString& path)
{
    QFile file(path);
    QJsonParseError fault{};
    const QJsonDocument list = file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll(), &fault) : QJsonDocument();
    if (!list.isArray())
        throw Failure((path + u": "_s + (file.isOpen() ? fault.errorString() : file.errorString())).toStdString());
    return list.array();
}

Film FilmOf(const QJsonValue& json, OwnNumbers& numbers)
{
    Film film;
    film.title = Utf8(json[u"title"]);
    film.year = json[u"year"].toInt();
    film.number = Number(Utf8(json[u"imdb"])).value_or(0);
    if (film.number == 0)
        film.number = numbers.Of(film.title + '\n' + std::to_string(film.year));
    film.minutes = Utf8(json[u"runtime"]).empty() ? 0 : std::stoi(Utf8(json[u"runtime"]));
    film.ratingTenths = qRound(json[u"rating"].toVariant().toDouble() * 10);
    film.votes = film.ratingTenths > 0 ? 1 : 0; // each film was rated once, by who typed it
    for (const QJsonValue genre : json[u"genres"].toArray())
        film.genres.push_back(Utf8(genre));
    film.languages = Split(Utf8(json[u"language"]), " / ");
    film.countries = Split(Utf8(json[u"country"]), " / ");
    film.certificate = Utf8(json[u"rated"]);
    film.colour = Utf8(json[u"color"]);
    film.plot = Utf8(json[u"plot"]);
    film.hasPoster = true;
    return film;
}

void AddOtherTitles(FilmWriter& writer, std::int64_t film, const QJsonValue& list)
{
    int place = 0;
    for (const QJsonValue entry : list.toArray())
        writer.AddOtherTitle(film, ++place, {Utf8(entry[u"title"]), Utf8(entry[u"region"]), Utf8(entry[u"note"])});
}

void AddPeople(FilmWriter& writer, OwnNumbers& people, std::int64_t film, Section section, const QJsonValue& list)
{
    int place = 0;
    for (const QJsonValue entry : list.toArray()) {
        const std::string name = Utf8(entry.isString() ? entry : entry[u"name"]);
        std::string note = Utf8(entry[section == Section::Cast ? u"role" : u"note"]);
        if (section != Section::Cast && !note.empty())
            note.insert(0, 1, '(').push_back(')');
        writer.AddCredit(film, section, ++place, people.Of(name), note);
    }
}

void AddCompanies(FilmWriter& writer, OwnNumbers& companies, std::int64_t film, const QJsonValue& list)
{
    int place = 0;
    for (const QJsonValue entry : list.toArray()) {
        const QString type = entry[u"type"].toString();
        const CompanySection section = type == u"Production Companies" ? CompanySection::Production
                                       : type == u"Distributors"       ? CompanySection::Distributor
                                       : type == u"Special Effects"    ? CompanySection::Effects
                                                                       : CompanySection::Other;
        writer.AddCompanyLink(film, section, ++place, companies.Of(Utf8(entry[u"name"])), {});
    }
}

void Save(const QImage& picture, const QString& path, int quality)
{
    if (!picture.save(path, "JPG", quality))
        throw Failure("Cannot write " + path.toStdString());
}

void PaintPoster(const kelvado::Covers& covers, const Film& film, const QJsonValue& json, quint32 seed, const QDir& pictures)
{
    kelvado::CoverText text{QString::fromStdString(film.title), film.year, {}, {}, {}};
    for (const std::string& genre : film.genres)
        text.genres << QString::fromStdString(genre);
    QStringList directors;
    for (const QJsonValue director : json[u"directors"].toArray())
        directors << (director.isString() ? director.toString() : director[u"name"].toString());
    text.director = directors.join(u", "_s);
    const QImage cover = covers.Front(text, seed);
    const QString name = QString::fromStdString(Padded(film.number, 7));
    Save(cover, pictures.filePath(name + u"-large.jpg"_s), kLargeQuality);
    Save(cover.scaled(kPosterSize, Qt::IgnoreAspectRatio, Qt::SmoothTransformation), pictures.filePath(name + u".jpg"_s), kPosterQuality);
}

// Head and shoulders of nobody, for everybody.
void PaintPerson(const QString& art, const QDir& pictures)
{
    const kelvado::Drawing drawing({art}, u"person.svg"_s, {});
    QImage picture(drawing.Size().toSize(), QImage::Format_RGB32);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing.Draw(painter, picture.rect());
    painter.end();
    Save(picture, pictures.filePath(u"person.jpg"_s), kLargeQuality);
}

void AddPersons(FilmWriter& writer, const OwnNumbers& people, const QString& facts)
{
    std::map<std::string, Person> known;
    std::int64_t namesake = kFirstNamesake;
    for (const QJsonValue json : ReadList(facts)) {
        Person person;
        person.name = Utf8(json[u"name"]);
        person.birthDay = Utf8(json[u"birthDay"]);
        person.birthYear = json[u"birthYear"].toInt();
        person.deathYear = json[u"deathYear"].toInt();
        person.birthPlace = Utf8(json[u"birthPlace"]);
        person.birthName = Utf8(json[u"birthName"]);
        person.height = Utf8(json[u"height"]);
        for (const QJsonValue paragraph : json[u"biography"].toArray())
            person.biography.append(person.biography.empty() ? "" : "\n").append(Utf8(paragraph));
        for (const QJsonValue profession : json[u"professions"].toArray())
            person.professions.push_back(Utf8(profession));
        if (json[u"namesake"].toBool()) {
            person.number = namesake++;
            writer.AddPerson(person);
        } else {
            known[person.name] = person;
        }
    }
    for (const auto& [name, number] : people.All()) {
        Person person = known[name];
        person.name = name;
        person.number = number;
        writer.AddPerson(person);
    }
}

void MakeSample(const QStringList& arguments)
{
    const QDir films(arguments[0]);
    const kelvado::Covers covers(arguments[4] + u"/covers"_s);
    const QDir pictures(arguments[3]);
    if (!pictures.mkpath(u"."_s))
        throw Failure("Cannot make " + arguments[3].toStdString());
    std::vector<QJsonValue> list;
    for (const QString& name : films.entryList({u"*.json"_s}, QDir::Files, QDir::Name)) {
        for (const QJsonValue film : ReadList(films.filePath(name)))
            list.push_back(film);
    }
    OwnNumbers filmNumbers;
    for (const QJsonValue& film : list)
        filmNumbers.Reserve(Number(Utf8(film[u"imdb"])).value_or(0));
    OwnNumbers people;
    OwnNumbers companies;
    FilmWriter writer(arguments[2].toStdString());
    quint32 count = 0;
    for (const QJsonValue& json : list) {
        const Film film = FilmOf(json, filmNumbers);
        if (!writer.AddFilm(film))
            throw Failure("Two films have the number " + Padded(film.number, 7));
        AddOtherTitles(writer, film.number, json[u"otherTitles"]);
        AddPeople(writer, people, film.number, Section::Director, json[u"directors"]);
        AddPeople(writer, people, film.number, Section::Writer, json[u"writers"]);
        AddPeople(writer, people, film.number, Section::Cast, json[u"cast"]);
        AddPeople(writer, people, film.number, Section::Producer, json[u"producers"]);
        AddCompanies(writer, companies, film.number, json[u"companies"]);
        PaintPoster(covers, film, json, ++count, pictures);
    }
    PaintPerson(arguments[4], pictures);
    AddPersons(writer, people, arguments[1]);
    for (const auto& [name, number] : companies.All())
        writer.AddCompany(number, name);
    writer.Finish([](const char*) {});
    std::printf("%u films and %zu people in %s\n", count, people.All().size(), qPrintable(arguments[2]));
}

} // namespace

int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    try {
        const QStringList arguments = QGuiApplication::arguments().mid(1);
        if (arguments.size() != 5)
            throw Failure("usage: pagesource-sample FILMS-FOLDER PEOPLE.json OUT.db PICTURES-FOLDER ART-FOLDER");
        MakeSample(arguments);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "pagesource-sample: %s\n", error.what());
        return 1;
    }
}
