#include "web/retrieval/IMDBActor.h"

#include "core/Afterwards.h"
#include "core/Conversions.h"
#include "core/Literals.h"
#include "core/Paths.h"
#include "core/RuntimeError.h"
#include "web/VisitAddress.h"
#include "web/readers/WebText.h"
#include "web/retrieval/PictureFetch.h"

namespace kelvado {

namespace {

/// What the pages of one person tell; all of it empty at first, so that nothing of the person before is left.
struct ActorDetails
{
    QString BirthDate, BirthLocation, BirthName, HeightText, Biography, FilmHistory;
    QString ImageLink;
    FetchedPicture Image;
};

struct SizedColumn
{
    QLatin1StringView column;
    QLatin1StringView dialogName; ///< by which the user is asked to shorten the value
    QString ActorDetails::*value;
};
constexpr SizedColumn kSizedColumns[] = {
    {"BirthDate"_L1, "BIRTH DATE"_L1, &ActorDetails::BirthDate},
    {"Height"_L1, "HEIGHT"_L1, &ActorDetails::HeightText},
    {"BirthLocation"_L1, "BIRTH LOCATION"_L1, &ActorDetails::BirthLocation},
    {"BirthName"_L1, "BIRTH NAME"_L1, &ActorDetails::BirthName},
};

QString ActorQuery(qint64 actorId)
{
    return "SELECT * FROM Actor WHERE Actor_ID = "_L1 + QString::number(actorId);
}

QString StoredLink(qint64 actorId, const QString& catalogPath)
{
    Connection connection = OpenCatalog(catalogPath);
    Recordset actor;
    actor.Open(ActorQuery(actorId), connection);
    if (actor.Eof())
        throw RuntimeError(kErrNoCurrentRecord);
    return FieldString(u"IMDB_LINK"_s, actor);
}

QString BlanksForBreaks(QString page)
{
    return page.replace("\r\n"_L1, " "_L1).replace(u'\r', u' ').replace(u'\n', u' ').replace(u'\t', u' ');
}

// Lets the user shorten what does not fit. The catalog is not open while that is asked; a value that is given up leaves its column alone.
void FitToColumns(ActorDetails& details, qint64 actorId, FilmDesk& desk)
{
    QList<qsizetype> sizes;
    {
        Connection connection = OpenCatalog(desk.state.CatalogPath());
        Recordset actor;
        actor.Open(ActorQuery(actorId), connection);
        for (const SizedColumn& column : kSizedColumns)
            sizes << actor[QString(column.column)].DefinedSize();
    }
    for (std::size_t i = 0; i < std::size(kSizedColumns); ++i) {
        QString& value = details.*kSizedColumns[i].value;
        const qsizetype size = sizes[static_cast<qsizetype>(i)];
        if (value.size() > size)
            value = desk.dialogs.AskFieldEdit(value, size, kSizedColumns[i].dialogName);
    }
}

void Store(const ActorDetails& details, qint64 actorId, const QString& catalogPath)
{
    Connection connection = OpenCatalog(catalogPath);
    connection.AllOrNothing([&] {
        Recordset actor;
        actor.Open(ActorQuery(actorId), connection);
        if (!details.Image.kind.isEmpty()) {
            Recordset images;
            images.Open(u"SELECT * FROM Images"_s, connection);
            images.AddNew();
            images[u"Image"].Set(details.Image.data);
            images[u"Extention"].Set(details.Image.kind);
            images[u"Image_Link"].Set(details.ImageLink);
            actor[u"Image_ID"].Set(images[u"Image_ID"].Get());
            images.Update();
        }
        const auto put = [&actor](QLatin1StringView column, const QString& value) {
            if (!TrimBlanks(value).isEmpty())
                actor[QString(column)].Set(value);
        };
        for (const SizedColumn& column : kSizedColumns)
            put(column.column, details.*column.value);
        put("Biography"_L1, details.Biography);
        put("Film_History"_L1, details.FilmHistory);
        actor[u"IsRetreived"].Set(1);
        actor.Update();
    });
    connection.Close();
}

void ShowDebugBox(const ActorDetails& details, const RuntimeError& error, Dialogs& dialogs)
{
    // A page can give a value of any length, and a box that is larger than the screen cannot be closed.
    constexpr qsizetype kLongestShown = 255;
    const auto value = [](const char* label, const QString& text) {
        return QLatin1StringView(label) + text.left(kLongestShown) + "\r\n      (length): "_L1 + QString::number(text.size()) + "\r\n"_L1;
    };
    const auto length = [](const char* label, const QString& text) {
        return QLatin1StringView(label) + QString::number(text.size()) + " characters long\r\n"_L1;
    };
    QString box = u"Actor Retrieval has caused an error and \r\nKelvado will now be closed, please take \r\n"
                  "a screenshot of this and send it to the Dev. Team. \r\n\r\n"_s;
    box += value("Date Of Birth : ", details.BirthDate);
    box += value("Height          : ", details.HeightText);
    box += value("Birth Name     : ", details.BirthName);
    box += value("Birth Location: ", details.BirthLocation);
    box += length("Biography     : ", details.Biography);
    box += length("Filmography   : ", details.FilmHistory);
    box += "Error Description : "_L1 + error.Description() + "\r\nError Number  : "_L1 + QString::number(error.Number());
    dialogs.MessageBox(box, kBoxPlain, u"Actor Retreive Debug Box"_s);
}

// False where that failed, which the user was told. The box says that the program ends, but it goes on.
bool SaveActor(ActorDetails& details, qint64 actorId, FilmDesk& desk)
{
    try {
        FitToColumns(details, actorId, desk);
        Store(details, actorId, desk.state.CatalogPath());
        return true;
    } catch (const RuntimeError& error) {
        ShowDebugBox(details, error, desk.dialogs);
        return false;
    }
}

/// One person on the way through the pages.
class Retrieval
{
public:
    Retrieval(FilmDesk& desk, PersonWindows& windows) : m_desk(desk), m_windows(windows) {}

    /// Nothing where there is nothing to store.
    std::optional<ActorDetails> Run(const QString& storedLink);

private:
    bool IsCancelled() const { return m_desk.job.RetrievalCancelled; }
    bool Fetch(const QString& address);
    bool FetchPersonPage();
    bool ChooseActorMatch();
    ActorDetails ReadPersonPage() const;

    FilmDesk& m_desk;
    PersonWindows& m_windows;
    const WebHosts m_hosts = ReadWebHosts(SettingsFile());
    QString m_chosenLink;
    QString m_pageText;
};

// False where the page did not arrive whole, which the user was told.
bool Retrieval::Fetch(const QString& address)
{
    m_pageText = m_desk.transport.Get_HTML(address);
    return !m_desk.transport.FailureTold();
}

bool Retrieval::FetchPersonPage()
{
    const bool whole = Fetch(PersonAddress(m_chosenLink, m_hosts));
    m_pageText = FlattenPage(m_pageText);
    return whole;
}

// False where there is no choice. After a failure that is told here the caller tells its own.
bool Retrieval::ChooseActorMatch()
{
    const std::optional<QList<ActorMatch>> matches = ParseActorMatches(m_pageText);
    if (!matches)
        m_desk.dialogs.MessageBox(u"Parsing Error"_s, kBoxPlain);
    if (!matches || matches->isEmpty()) {
        m_desk.dialogs.MessageBox(u"Error Parsing Actor Search Page"_s, kBoxExclamation);
        return false;
    }
    const std::optional<qsizetype> choice = m_windows.ChooseMatch(*matches);
    if (!choice || IsCancelled())
        return false;
    m_chosenLink = matches->at(*choice).Link;
    return FetchPersonPage();
}

ActorDetails Retrieval::ReadPersonPage() const
{
    ActorDetails details;
    details.ImageLink = ParseHeadShot(m_pageText);
    if (details.ImageLink.contains("ttp://"_L1))
        details.Image = FetchPicture(details.ImageLink, TempFolder() + "/temp.img"_L1, m_desk.transport);
    details.BirthName = ParseBirthName(m_pageText);
    const BirthDetails birth = ParseBirthDetails(m_pageText);
    details.BirthDate = birth.Date;
    details.BirthLocation = birth.Location;
    details.FilmHistory = ParseFilmography(m_pageText);
    return details;
}

std::optional<ActorDetails> Retrieval::Run(const QString& storedLink)
{
    m_chosenLink = storedLink;
    try {
        if (!FetchPersonPage() || (IsMatchingNamesPage(m_pageText) && !ChooseActorMatch()))
            return std::nullopt;
        ActorDetails details = ReadPersonPage();
        if (!Fetch(BiographyAddress(m_chosenLink, m_hosts)))
            return std::nullopt;
        m_pageText = BlanksForBreaks(m_pageText);
        details.Biography = ParseBiography(m_pageText, m_hosts.ImdbMainHost);
        details.HeightText = ParseHeight(m_pageText);
        return IsCancelled() ? std::nullopt : std::optional(details);
    } catch (const RuntimeError& error) {
        // A page that says nothing of a person is read like any other, so the reader's error is all that tells of it.
        if (error.Number() != kErrInvalidCall)
            throw;
        throw RuntimeError::WithDetail(kErrInvalidCall, u"the pages of this person could not be fetched or read"_s);
    }
}

} // namespace

bool RetrieveActor(qint64 actorId, FilmDesk& desk, PersonWindows& windows)
{
    desk.job.RetrievalCancelled = false;
    std::optional<ActorDetails> details;
    try {
        details = Retrieval(desk, windows).Run(StoredLink(actorId, desk.state.CatalogPath()));
    } catch (const RuntimeError& error) {
        if (!WasCancelledByUser(error, desk))
            throw;
    }
    return details && SaveActor(*details, actorId, desk);
}

bool RunActorRetrieval(qint64 actorId, FilmDesk& desk, PersonWindows& windows)
{
    bool stored = false;
    desk.shell.ShowWorking(true);
    Afterwards([&] { RunJob(desk, windows, [&] { stored = RetrieveActor(actorId, desk, windows); }); },
               [&] { desk.shell.ShowWorking(false); });
    if (stored)
        desk.shell.ShowSelection();
    return stored;
}

} // namespace kelvado
