#include "PanelFixture.h"

#include "panels/forms/Form3.h"
#include "panels/forms/frmAddManual.h"
#include "panels/forms/frmEditAddChar.h"
#include "support/AviBuilder.h"
#include "support/MapMarks.h"
#include "ui/AppStyle.h"
#include "ui/ChoiceBox.h"
#include "ui/DatePicker.h"
#include "ui/PictureBox.h"

#include <QTest>
#include <QtWidgets>

namespace kelvado {
namespace {

// Each box of a film with the column that it is stored in.
constexpr struct
{
    const char* control;
    const char* column;
    bool isNumber = false;
} kBoxes[] = {
    {"txtTitle", "Title"},
    {"txtTitleNY", "TitleNY"},
    {"txtYear", "Year", true},
    {"cboFormat", "Format"},
    {"txtDiscs", "Number", true},
    {"txtIndex", "[Index]"},
    {"txtRuntime", "Runtime"},
    {"cboRated", "Rated"},
    {"cboCountry", "Country"},
    {"txtColor", "Color"},
    {"txtLanguage", "Language"},
    {"TxtSubLanguage", "SubLanguage"},
    {"txtCustom_0", "Custom1"},
    {"txtCustom_1", "Custom2"},
    {"txtCustom_2", "Custom3"},
    {"txtFilename", "Filename"},
    {"txtGroup", "[Group]"},
    {"txtFilesize", "Filesize"},
    {"TxtVidType", "VidType"},
    {"TxtAudType", "AudType"},
    {"TxtVidBitrate", "VidBitrate"},
    {"TxtAudBitrate", "AudBitrate"},
    {"TxtResolution", "Resolution"},
    {"TxtAudChannels", "AudChannels"},
    {"txtTrailerLink", "TrailerURL"},
    {"txtCustomLink1", "UserURL1"},
    {"txtCustomLink2", "UserURL2"},
    {"txtRating", "Rating"},
    {"txtVotes", "Votes"},
    {"txtMyRatingNotes", "MyRatingNotes"},
    {"txtPurchasedWhere", "PurchasedWhere"},
    {"TxtInfos_0", "Plot"},
    {"TxtInfos_1", "Comments"},
    {"TxtInfos_2", "FileNotes"},
};

class FilmPanels : public PanelFixture
{
protected:
    FilmPanels()
    {
        home.Write(u"Settings.ini"_s, FileContent(u"" KELVADO_SOURCE_DIR "/data/Settings.ini"_s));
        state.gOptions = std::make_unique<cOptions>(SettingsFile(), marks);
        state.gOptions->View.PrimarySort = u"Movie.Title"_s;
        state.gOptions->View.SecondarySort = u"Movie.Year"_s;
        catalog.Run("UPDATE Movie SET Plot = 'Caf&#233;' || char(13, 10) || 'Lo' || char(13, 10), SeenIt = 1, LastViewing = '2020-02-29',"
                    "iSONEWS = 'http://shop/1' WHERE Movie_ID = 1; INSERT INTO GenreLink (Movie_ID, Genre_ID) VALUES (1, 2), (2, 3);"
                    "INSERT INTO Writer (Writer_ID, Writer) VALUES (4, 'Wil D'); INSERT INTO WriterLink (Movie_ID, Writer_ID, Extended) "
                    "VALUES (1, 4, 'story'); INSERT INTO Company (Company_ID, Company) VALUES (1, 'Fox'), (2, 'Else');"
                    "INSERT INTO CompanyLink (Movie_ID, Company_ID, Type, Extended) VALUES (1, 1, 'Distributor', NULL), (1, 2, 'x', 'y')");
    }
    void SetUp() override { Open(film); }
    template<typename Panel>
    void Open(Panel& panel)
    {
        if constexpr (std::is_same_v<Panel, Form3>)
            panel.Edit_Page(1);
        else
            panel.Reopen();
        dialogs.boxes.clear(); // the skin of these tests has no strips, which was told
    }
    template<typename Control>
    static Control& Find(const QWidget& panel, const char* name)
    {
        return *panel.findChild<Control*>(QLatin1StringView(name));
    }
    static void Press(const QWidget& panel, const char* button) { Find<QPushButton>(panel, button).click(); }
    static void Type(const QWidget& panel, const char* name, const QString& text)
    {
        auto& control = Find<QWidget>(panel, name);
        if (auto* line = qobject_cast<QLineEdit*>(&control)) {
            line->selectAll();
            QTest::keyClicks(line, text);
        } else if (auto* list = qobject_cast<QComboBox*>(&control)) {
            list->setEditText(text);
        } else {
            static_cast<QPlainTextEdit&>(control).setPlainText(text);
        }
    }
    static QListWidgetItem& Tick(const QWidget& panel, const char* list, const char* text)
    {
        return *Find<QListWidget>(panel, list).findItems(QLatin1StringView(text), Qt::MatchExactly).value(0);
    }
    static void FillBoxes(const QWidget& panel)
    {
        for (std::size_t i = 0; i < std::size(kBoxes); ++i)
            Type(panel, kBoxes[i].control, kBoxes[i].isNumber ? QString::number(i) : u"it's & <%1>"_s.arg(i));
        Type(panel, "txtPurchasePrice", u"12.5"_s);
        Find<QSlider>(panel, "sldMyRating").setValue(7);
        Find<QCheckBox>(panel, "chkSeenIt").setChecked(true);
        Find<DatePicker>(panel, "DTLastViewing").SetDate(QDate(2024, 5, 6));
    }
    void ExpectBoxesStored(int id) const
    {
        const auto stored = [&](const char* column) {
            return catalog.Ask(qPrintable(u"SELECT %1 FROM Movie WHERE Movie_ID = %2"_s.arg(QLatin1StringView(column)).arg(id)));
        };
        for (std::size_t i = 0; i < std::size(kBoxes); ++i)
            EXPECT_EQ(stored(kBoxes[i].column), kBoxes[i].isNumber ? QString::number(i) : u"it's & <%1>"_s.arg(i)) << kBoxes[i].column;
        EXPECT_EQ(stored("PurchasePrice || ' ' || MyRating || ' ' || SeenIt || ' ' || LastViewing"), u"12.5 7 1 2024-05-06"_s);
    }
    /// Chooses a person in the window that "Add Actor" and its like open.
    static void ChoosePerson(const char* name, const char* text)
    {
        QTimer::singleShot(0, [=] {
            const QWidget& window = *QApplication::activeModalWidget();
            Find<ChoiceBox>(window, "cboActor").setCurrentText(QLatin1StringView(name));
            Find<QLineEdit>(window, "txtCharacter").setText(QLatin1StringView(text));
            Press(window, "cmdOkay");
        });
    }
    QString Genres(int id) const
    {
        return catalog.Ask(qPrintable(u"SELECT group_concat(Genre_ID, ' ') FROM GenreLink WHERE Movie_ID = %1"_s.arg(id)));
    }

    MapMarks marks;
    Skinner skinner;
    Form3 film{context, skinner};
};

TEST_F(FilmPanels, EveryFieldReachesItsColumnAndComesBack)
{
    EXPECT_FALSE(film.HasChanges());
    FillBoxes(film);
    EXPECT_TRUE(film.HasChanges());
    Press(film, "cmdSave");
    EXPECT_EQ(dialogs.Texts(), QStringList{u"Your Changes Have Been Saved"_s});
    EXPECT_FALSE(film.HasChanges());
    ExpectBoxesStored(1);
    EXPECT_EQ(shell.calls, (QStringList{u"Retitle 1 it's & <0>"_s, u"Rekey 1"_s, u"RefreshCatalogTree"_s, u"UpdateStatus 1"_s}));

    // A field that is emptied keeps what the catalog has, and the panel shows that. What the tree does not show leaves it alone.
    shell.calls.clear();
    Type(film, "txtColor", u" "_s);
    Find<QWidget>(film, "txtColor").setFocus();
    film.Save();
    EXPECT_EQ(Find<QLineEdit>(film, "txtColor").text(), u"it's & <9>"_s);
    EXPECT_EQ(shell.calls, QStringList{u"Retitle 1 it's & <0>"_s});
}

TEST_F(FilmPanels, WhatNobodyTouchedGoesBackAsItWas)
{
    EXPECT_EQ(Find<QPlainTextEdit>(film, "TxtInfos_0").toPlainText(), u"Caf\u00e9\nLo\n"_s);
    EXPECT_EQ(Find<DatePicker>(film, "DTLastViewing").Date(), QDate(2020, 2, 29));
    EXPECT_TRUE(Find<QLabel>(film, "lblDVDEmpURL").text().contains("http://shop/1"_L1));
    EXPECT_TRUE(Find<QLabel>(film, "lblIMDbURL").text().contains("/Title?0078748"_L1));
    Type(film, "txtIndex", u"7"_s);
    film.Save();
    EXPECT_EQ(catalog.Ask("SELECT Plot || LastViewing || SeenIt FROM Movie WHERE Movie_ID = 1"), u"Caf\u00e9\r\nLo\r\n2020-02-291"_s);
}

TEST_F(FilmPanels, APriceThatIsNoneIsToldAtItsFieldAndStopsTheSave)
{
    for (const auto& price : {u""_s, u"12 euros"_s, u"12,50"_s}) {
        Find<QLineEdit>(film, "txtPurchasePrice").setText(price);
        Press(film, "cmdSave");
        EXPECT_TRUE(dialogs.boxes.takeLast().text.contains(u"Purchase Price"_s));
        EXPECT_FALSE(Find<QWidget>(film, "txtPurchasePrice").accessibleDescription().isEmpty());
        EXPECT_TRUE(film.HasChanges());
    }
    EXPECT_EQ(catalog.Ask("SELECT ifnull(PurchasePrice, '-') FROM Movie WHERE Movie_ID = 1"), u"-"_s);
}

TEST_F(FilmPanels, WhatTheUserDidNotDoIsNoChange)
{
    film.show();
    film.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&film));
    for (const char* list : {"cboRated", "cboCountry"})
        Find<QWidget>(film, list).setFocus(); // their values are read now
    EXPECT_FALSE(film.HasChanges());
    QApplication::setStyle(new AppStyle);
    const auto turnWheel = [](QWidget& control) {
        QWheelEvent turn(QPointF(5, 5), control.mapToGlobal(QPointF(5, 5)), {}, QPoint(0, -120), Qt::NoButton, {}, Qt::NoScrollPhase,
                         false);
        QApplication::sendEvent(&control, &turn);
    };
    turnWheel(Find<QWidget>(film, "cboFormat"));
    turnWheel(Find<QWidget>(film, "sldMyRating"));
    EXPECT_FALSE(film.HasChanges());

    // What another changed meanwhile in fields that were not touched here stays, whatever their length.
    catalog.Run("UPDATE Movie SET Format = 'Request', MyRating = 7.5, Runtime = printf('%.*c', 400, 'x') WHERE Movie_ID = 1");
    film.Discard();
    catalog.Run("UPDATE Movie SET Format = 'VHS' WHERE Movie_ID = 1");
    Type(film, "txtIndex", u"1"_s);
    film.Save();
    EXPECT_EQ(catalog.Ask("SELECT Format || ' ' || MyRating || ' ' || length(Runtime) FROM Movie WHERE Movie_ID = 1"), u"VHS 7.5 400"_s);
    EXPECT_TRUE(dialogs.fieldEdits.isEmpty());
}

TEST_F(FilmPanels, TicksAreStoredAtOnceAndUndoneWhereTheyCannotBe)
{
    auto& drama = Tick(film, "lstGenre", "Adventure");
    const QString before = Genres(1);
    drama.setCheckState(Qt::Checked);
    EXPECT_NE(Genres(1), before);
    drama.setCheckState(Qt::Unchecked);
    EXPECT_EQ(Genres(1), before);
    EXPECT_EQ(Genres(2), u"3"_s);
    Tick(film, "lstFeatures", "Games").setCheckState(Qt::Checked);
    EXPECT_EQ(catalog.Ask("SELECT Feature FROM Feature_Link JOIN Features USING (Feature_ID) WHERE Movie_ID = 1"), u"Games"_s);
    EXPECT_FALSE(film.HasChanges());

    catalog.Run("DELETE FROM Movie WHERE Movie_ID = 1");
    drama.setCheckState(Qt::Checked);
    EXPECT_EQ(drama.checkState(), Qt::Unchecked);
    EXPECT_EQ(dialogs.boxes.size(), 1);
    EXPECT_EQ(Genres(1), before);
}

TEST_F(FilmPanels, GenresAreAddedOnceAndDeletedAfterAQuestion)
{
    const auto count = [this] { return catalog.Ask("SELECT count(*) FROM Genre").toInt(); };
    const int before = count();
    dialogs.inputs << u"x"_s << u"   "_s << u"Children's"_s << u"CHILDREN'S "_s;
    for (int i = 0; i < 4; ++i)
        Press(film, "cmdAddGenre");
    EXPECT_EQ(count(), before + 1);
    auto& list = Find<QListWidget>(film, "lstGenre");
    EXPECT_EQ(list.currentItem()->text() + QString::number(list.count()), u"Children's"_s + QString::number(before + 1));
    list.currentItem()->setCheckState(Qt::Checked);
    Press(film, "cmdDelGenre");
    EXPECT_EQ(dialogs.lossQuestions, QStringList{u"Are you sure you wish to delete Genre Children's"_s});
    dialogs.answers << kAnswerYes;
    Press(film, "cmdDelGenre");
    EXPECT_EQ(count(), before);
    EXPECT_EQ(Genres(1).split(u' ').size(), 2) << "links to a genre that goes stay";
}

TEST_F(FilmPanels, PeopleAndCompaniesStandInTheirListsAndChangeAtOnce)
{
    EXPECT_EQ(Find<PairList>(film, "lstPeople_1").Rows()[0].text, u"story"_s);
    EXPECT_EQ(Find<PairList>(film, "lstCompany_2").Rows()[0].name, u"Fox"_s);
    EXPECT_EQ(Find<PairList>(film, "lstCompany_3").Rows()[0].text, u"y"_s);

    auto& actors = Find<PairList>(film, "lstPeople_0");
    Press(film, "cmdEditPeople");
    EXPECT_EQ(dialogs.boxes.takeLast().text, u"You Must Select An Item To Edit First"_s);
    actors.Select(2); // the second role of the first one
    dialogs.inputs << u"Clone"_s;
    Press(film, "cmdEditPeople");
    ChoosePerson("Andr\xE9 Dussol", "");
    Press(film, "cmdAddPeople");
    EXPECT_EQ(actors.Rows()[2].text + actors.Rows()[3].name, u"CloneAndr\u00e9 Dussol"_s);
    EXPECT_EQ(Links("Actor", "Character"), u"1:1:Queen:1 1:3:Ash:2 1:1:Clone:3 2:1:Zoe:1 1:2:-:4"_s);
    actors.Select(0);
    Press(film, "cmdRemovePeople");
    EXPECT_EQ(actors.Rows().size(), 4) << "No is the answer unless the user says otherwise";
    dialogs.answers << kAnswerYes;
    QTest::keyClick(&actors, Qt::Key_Delete);
    EXPECT_EQ(Links("Actor", "Character"), u"1:3:Ash:2 1:1:Clone:3 2:1:Zoe:1 1:2:-:4"_s);

    dialogs.inputs << u"ab"_s << u"FOX"_s << u"New & Co"_s;
    for (int i = 0; i < 3; ++i)
        Press(film, "cmdAddCompany");
    EXPECT_EQ(dialogs.boxes.takeLast().title, u"Add Company"_s);
    const auto companies = [this] {
        return catalog.Ask("SELECT group_concat(Company || '/' || Type, ' ') FROM CompanyLink JOIN Company USING (Company_ID)");
    };
    EXPECT_EQ(companies(), u"Fox/Distributor Else/x Fox/Production New & Co/Production"_s);
    Find<PairList>(film, "lstCompany_0").Select(0);
    dialogs.answers << kAnswerYes;
    Press(film, "cmdRemoveCompany");
    EXPECT_EQ(companies(), u"Fox/Distributor Else/x New & Co/Production"_s);
    EXPECT_FALSE(film.HasChanges());
}

TEST_F(FilmPanels, PicturesAndNfoAreStoredAtOnce)
{
    QImage picture(30, 40, QImage::Format_RGB32);
    picture.fill(Qt::blue);
    ASSERT_TRUE(picture.save(home.Path(u"front.png"_s)));
    home.Write(u"empty.jpg"_s, "");
    home.Write(u"film.nfo"_s, "Caf\xE9 \xB0");
    const auto image = [this] {
        return catalog.Ask("SELECT Image_ID || ' ' || (SELECT count(*) FROM Images) FROM Movie WHERE Movie_ID = 1");
    };
    dialogs.files << home.Path(u"front.png"_s);
    Press(film, "cmdImage");
    EXPECT_TRUE(Find<PictureBox>(film, "Picture1").HasPicture());
    EXPECT_EQ(Find<QPushButton>(film, "cmdImage").text(), u"Change &Image"_s);
    const QString first = image();
    dialogs.files << home.Path(u"empty.jpg"_s);
    Press(film, "cmdImage");
    EXPECT_EQ(dialogs.boxes.takeLast().text, home.Path(u"empty.jpg"_s) + u" empty or not found."_s);
    dialogs.files << home.Path(u"film.nfo"_s);
    Press(film, "cmdImage");
    EXPECT_TRUE(dialogs.boxes.takeLast().text.contains(u"is not a picture"_s));
    EXPECT_EQ(image(), first);
    Press(film, "cmdImage"); // cancelled
    EXPECT_TRUE(dialogs.boxes.isEmpty());

    dialogs.files << home.Path(u"film.nfo"_s);
    Press(film, "cmdNfo");
    EXPECT_EQ(catalog.Ask("SELECT Nfo FROM Movie WHERE Movie_ID = 1"), u"Caf\u00e9 \u00b0"_s);
    EXPECT_FALSE(film.HasChanges());

    home.Write(u"film.avi"_s, AviBuilder().Bytes());
    for (const QString& file : {u"film.nfo"_s, u"none.avi"_s}) { // neither is told
        dialogs.files << home.Path(file);
        Press(film, "cmdAVI");
        EXPECT_FALSE(film.HasChanges());
    }
    dialogs.files << home.Path(u"film.avi"_s);
    Press(film, "cmdAVI");
    EXPECT_TRUE(film.HasChanges() && dialogs.boxes.isEmpty());
    Press(film, "cmdSave");
    EXPECT_EQ(catalog.Ask("SELECT VidType || AudType || VidBitrate || AudBitrate || Filename || Resolution || AudChannels || Filesize "
                          "FROM Movie WHERE Movie_ID = 1"),
              u"XviDMPEG-1 Layer 3-128 kbp/s128 kbp/sfilm.avi640x4802 channel0mb"_s);
    catalog.Run("DELETE FROM Movie WHERE Movie_ID = 1");
    dialogs.files << home.Path(u"front.png"_s);
    Press(film, "cmdImage");
    EXPECT_EQ(dialogs.boxes.takeLast().title, u"Error: Please Contact Support"_s);
}

TEST_F(FilmPanels, AFilmThatIsGoneAndAnotherCatalogLeaveAnEmptyPanel)
{
    Type(film, "txtTitle", u"Aliens"_s);
    EXPECT_EQ(ErrorOf([&] { return film.Edit_Page(99), 0; }), kErrNoCurrentRecord);
    EXPECT_FALSE(film.isEnabled() || film.HasChanges() || film.Film());
    EXPECT_EQ(film.Name(), QString());
    film.Edit_Page(2);
    TempCatalog other;
    state.comDiagFile.fileName = other.Path();
    film.ClearIfGone();
    EXPECT_FALSE(film.Film());
}

TEST_F(FilmPanels, AFilmIsEnteredByHandWithAllThatBelongsToIt)
{
    QImage picture(30, 40, QImage::Format_RGB32);
    ASSERT_TRUE(picture.save(home.Path(u"back.png"_s)));
    home.Write(u"none.gif"_s, "");
    frmAddManual manual(context, skinner);
    Open(manual);
    Type(manual, "txtYear", u"1999"_s);
    EXPECT_FALSE(Find<QPushButton>(manual, "cmdSave").isEnabled());
    FillBoxes(manual);
    Tick(manual, "lstGenre", "Adventure").setCheckState(Qt::Checked);
    catalog.Run("INSERT INTO Actor (Actor_ID, Actor) VALUES (7, 'Bob Holm')"); // a namesake
    ChoosePerson("Bob Holm", "M");
    Press(manual, "cmdAddPeople");
    ChoosePerson("Zoe Moor", "");
    Press(manual, "cmdAddPeople");
    Find<PairList>(manual, "lstPeople_0").Select(1);
    Press(manual, "cmdRemovePeople");
    dialogs.files << home.Path(u"none.gif"_s) << home.Path(u"back.png"_s);
    Press(manual, "cmdImage");
    Press(manual, "cmdBackImage");
    EXPECT_EQ(catalog.Ask("SELECT count(*) FROM Movie"), u"2"_s) << "nothing is written before the film is added";
    Press(manual, "cmdSave");
    EXPECT_EQ(dialogs.Texts(), (QStringList{home.Path(u"none.gif"_s) + u" empty or not found."_s, u"Successfully Added it's & <0>"_s}));
    ExpectBoxesStored(3);
    EXPECT_EQ(catalog.Ask("SELECT (SELECT group_concat(Genre) FROM GenreLink JOIN Genre USING (Genre_ID) WHERE Movie_ID = 3) || ' ' || "
                          "(SELECT group_concat(Actor_ID || Character) FROM ActorLink WHERE Movie_ID = 3) || ' ' || "
                          "Image_ID || ' ' || (ImageBack_ID > 0) FROM Movie WHERE Movie_ID = 3"),
              u"Adventure 3M 0 1"_s);
    EXPECT_EQ(Find<QLineEdit>(manual, "txtTitle").text(), QString());
    EXPECT_FALSE(Find<QPushButton>(manual, "cmdSave").isEnabled());
    EXPECT_TRUE(shell.calls.contains(u"RefreshCatalogTree"_s));
}

TEST_F(FilmPanels, AFilmThatCouldNotBeStoredWholeIsNotEnteredTwice)
{
    frmAddManual manual(context, skinner);
    Open(manual);
    Type(manual, "txtTitle", u"Half"_s);
    Type(manual, "TxtInfos_1", u"comment"_s);
    Tick(manual, "lstGenre", "Adventure").setCheckState(Qt::Checked);
    catalog.Run("CREATE TRIGGER stop BEFORE INSERT ON GenreLink BEGIN SELECT RAISE(FAIL, 'stop'); END");
    Press(manual, "cmdSave");
    EXPECT_TRUE(dialogs.boxes.takeLast().text.contains(u"\"Half\" was added, but not all of it"_s));
    EXPECT_EQ(catalog.Ask("SELECT Title || Comments FROM Movie WHERE Movie_ID = 3"), u"Halfcomment"_s);
    EXPECT_FALSE(manual.HasChanges());
    EXPECT_TRUE(shell.calls.contains(u"RefreshCatalogTree"_s));

    Tick(manual, "lstGenre", "Adventure").setCheckState(Qt::Checked);
    Type(manual, "txtYear", u"1999"_s);
    TempCatalog other;
    other.Run("UPDATE Genre SET Genre = 'Precious' WHERE Genre = 'Action'");
    state.comDiagFile.fileName = other.Path();
    dialogs.answers << kAnswerYes;
    manual.findChild<QListWidget*>(u"lstGenre"_s)->setCurrentRow(0);
    Press(manual, "cmdDelGenre"); // the list is still that of the first catalog
    EXPECT_EQ(other.Ask("SELECT count(*) FROM Genre WHERE Genre = 'Precious'"), u"1"_s);
    manual.Reopen();
    EXPECT_EQ(Tick(manual, "lstGenre", "Adventure").checkState(), Qt::Checked);
    EXPECT_EQ(Find<QLineEdit>(manual, "txtYear").text(), u"1999"_s);
}

} // namespace
} // namespace kelvado
