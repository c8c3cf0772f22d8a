#include "PanelFixture.h"

#include "panels/FilmPeople.h"
#include "panels/PictureStore.h"
#include "panels/forms/frmEditAddChar.h"

#include <QTest>
#include <QtWidgets>

namespace kelvado {
namespace {

const PersonKind& Actors()
{
    return PersonKinds()[0];
}

class FilmPeople : public PanelFixture
{
protected:
    QString Cast() const { return Links("Actor", "Character"); }
};

TEST_F(FilmPeople, AnAddedPersonComesLastAndABlankRoleIsNotStored)
{
    EXPECT_EQ(AddFilmPerson(Actors(), 1, 2, u"Parker"_s, writer), u"Parker"_s);
    EXPECT_EQ(AddFilmPerson(Actors(), 2, 3, u"  "_s, writer), QString());
    EXPECT_EQ(AddFilmPerson(PersonKinds()[3], 2, 2, u"executive"_s, writer), u"executive"_s);
    EXPECT_EQ(Cast(), u"1:1:Queen:1 1:3:Ash:2 1:1:Twin:3 2:1:Zoe:1 1:2:Parker:4 2:3:-:2"_s);
    EXPECT_EQ(Links("Producer", "Extended"), u"2:2:executive:1"_s);
}

TEST_F(FilmPeople, OfTwoRolesOfOnePersonTheEntrysOwnIsMeant)
{
    const FilmPersonEntry second{1, 1, 1};
    EXPECT_EQ(FilmPersonText(Actors(), second, catalog.Path()), u"Twin"_s);
    EXPECT_EQ(ChangeFilmPerson(Actors(), second, u"Sister"_s, writer), u"Sister"_s);
    EXPECT_EQ(Cast(), u"1:1:Queen:1 1:3:Ash:2 1:1:Sister:3 2:1:Zoe:1"_s);
    EXPECT_EQ(ChangeFilmPerson(Actors(), second, u" "_s, writer), u"Sister"_s) << "blanks change nothing";
    EXPECT_TRUE(RemoveFilmPerson(Actors(), {1, 1, 0}, catalog.Path()));
    EXPECT_EQ(Cast(), u"1:3:Ash:2 1:1:Sister:3 2:1:Zoe:1"_s);

    EXPECT_EQ(FilmPersonText(Actors(), second, catalog.Path()), std::nullopt);
    EXPECT_EQ(ChangeFilmPerson(Actors(), second, u"x"_s, writer), std::nullopt);
    EXPECT_FALSE(RemoveFilmPerson(Actors(), second, catalog.Path()));
    EXPECT_EQ(Cast(), u"1:3:Ash:2 1:1:Sister:3 2:1:Zoe:1"_s);
}

TEST_F(FilmPeople, APersonIsFoundByTypingAndNoOtherOneIsTaken)
{
    frmEditAddChar window(Actors(), catalog.Path(), nullptr);
    auto& people = *window.findChild<QComboBox*>(u"cboActor"_s);
    auto& role = *window.findChild<QLineEdit*>(u"txtCharacter"_s);
    auto& okay = *window.findChild<QPushButton*>(u"cmdOkay"_s);
    auto& missing = *window.findChild<QLabel*>(u"lblMissing"_s);
    QTimer::singleShot(0, &window, [&] {
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        EXPECT_FALSE(okay.isEnabled());
        EXPECT_EQ(missing.text(), QString());
        QTest::keyClicks(QApplication::focusWidget(), u" dus"_s); // the middle of the name
        EXPECT_FALSE(okay.isEnabled());
        EXPECT_NE(missing.text(), QString());
        for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Return})
            QTest::keyClick(people.completer()->popup(), key);
        EXPECT_EQ(missing.text(), QString());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QTest::keyClicks(&role, QString(300, u'x'));
        EXPECT_NE(window.findChild<QLabel*>(u"lblLeft"_s)->text(), QString());
        QTest::keyClick(&role, Qt::Key_Return);
    });
    const auto chosen = window.Ask();
    ASSERT_TRUE(chosen);
    EXPECT_EQ(chosen->id, 2);
    EXPECT_EQ(chosen->name, u"André Dussol"_s);
    EXPECT_EQ(chosen->text, QString(255, u'x'));
}

TEST_F(FilmPeople, TheWindowSpeaksOfItsKindAndACancelChoosesNobody)
{
    frmEditAddChar window(PersonKinds()[3], catalog.Path(), nullptr);
    EXPECT_EQ(window.windowTitle(), u"Add Producer"_s);
    EXPECT_EQ(window.findChild<QLabel*>(u"lblPeople"_s)->text().remove(u'&'), u"Existing Producers"_s);
    EXPECT_EQ(window.findChild<QLabel*>(u"lblExtend"_s)->text().remove(u'&'), u"Details"_s);
    auto& people = *window.findChild<QComboBox*>(u"cboActor"_s);
    EXPECT_EQ(people.count(), 1) << "the producer without a name cannot be chosen";
    QTimer::singleShot(0, &window, [&] {
        people.setCurrentIndex(0);
        window.findChild<QPushButton*>(u"cmdCancel"_s)->click();
    });
    EXPECT_FALSE(window.Ask());
}

class Pictures : public PanelFixture
{
protected:
    QString Stored() const { return catalog.Ask("SELECT group_concat(Image_ID || ':' || Extention, ' ') FROM Images"); }
};

TEST_F(Pictures, ANewPictureTakesThePlaceOfTheOldOneWholeOrNotAtAll)
{
    home.Write(u"a.jpg"_s, "first");
    home.Write(u"b.gif"_s, "second");
    home.Write(u"empty.gif"_s, "");
    EXPECT_EQ(ReplacePicture(FrontCover(1), home.Path(u"a.jpg"_s), catalog.Path()), QString());
    EXPECT_EQ(ReplacePicture(BackCover(1), home.Path(u"b.gif"_s), catalog.Path()), QString());
    EXPECT_EQ(ReplacePicture(FrontCover(1), home.Path(u"b.gif"_s), catalog.Path()), QString());
    EXPECT_EQ(Stored(), u"2:gif 3:gif"_s);
    EXPECT_EQ(catalog.Ask("SELECT Image_ID || ' ' || ImageBack_ID FROM Movie WHERE Movie_ID = 1"), u"3 2"_s);

    for (const QString& name : {u"empty.gif"_s, u"gone.gif"_s})
        EXPECT_EQ(ReplacePicture(FrontCover(1), home.Path(name), catalog.Path()), home.Path(name) + u" empty or not found."_s);
    EXPECT_EQ(ErrorOf([&] { return ReplacePicture(FrontCover(9), home.Path(u"a.jpg"_s), catalog.Path()); }), kErrNoCurrentRecord);
    catalog.Run("CREATE TRIGGER stop BEFORE DELETE ON Images BEGIN SELECT RAISE(FAIL, 'stop'); END");
    EXPECT_EQ(ErrorOf([&] { return ReplacePicture(BackCover(1), home.Path(u"a.jpg"_s), catalog.Path()); }), kErrDatabase);
    EXPECT_EQ(Stored(), u"2:gif 3:gif"_s);
    EXPECT_EQ(catalog.Ask("SELECT Image_ID || ' ' || ImageBack_ID FROM Movie WHERE Movie_ID = 1"), u"3 2"_s);
}

TEST_F(Pictures, AMissingPictureRowShowsTheSkinsOwnAndNoneShowsNone)
{
    home.Write(u"a.jpg"_s, "first");
    const QString base = home.Path(u"temp/MImage"_s);
    const auto read = [&](const PictureSlot& slot) { return ReadPicture(slot, base, state.skin, catalog.Path()); };
    EXPECT_FALSE(read(Portrait(1)).isSet);
    ReplacePicture(Portrait(1), home.Path(u"a.jpg"_s), catalog.Path());
    EXPECT_TRUE(read(Portrait(1)).isSet);
    EXPECT_EQ(read(Portrait(1)).file, base + u".jpg"_s);
    EXPECT_EQ(home.Read(u"temp/MImage.jpg"_s), QByteArray("first\0", 6));
    catalog.Run("DELETE FROM Images");
    EXPECT_EQ(read(Portrait(1)).file, home.Path(u"Skins/Plain/No Image.jpg"_s));
    EXPECT_TRUE(read(Portrait(1)).isSet);
    EXPECT_EQ(ErrorOf([&] { return read(Portrait(9)); }), kErrNoCurrentRecord);
}

TEST(MatchingChoices, WhatBeginsWithTheTextStandsBeforeWhatHoldsIt)
{
    QStringList texts;
    for (const Choice& match :
         MatchesOf({{u"Chizuru Ikewaki"_s, 1}, {u"Mc-Ewa Boe"_s, 2}, {u"ewa Fr"_s, 3}, {u"Jo"_s, 4}, {u"Tewa Ewan"_s, 5}}, u"Ewa"_s))
        texts << match.text;
    EXPECT_EQ(texts, (QStringList{u"ewa Fr"_s, u"Mc-Ewa Boe"_s, u"Tewa Ewan"_s, u"Chizuru Ikewaki"_s}));
}

} // namespace
} // namespace kelvado
