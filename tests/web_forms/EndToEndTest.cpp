// The real panels over real sockets against the page source itself.

#include "WebPanels.h"
#include "support/PageSource.h"

namespace kelvado {
namespace {

/// The parameter is the seed by which the pages get their shapes.
class EndToEnd : public FilmPanels, public testing::WithParamInterface<int>
{
protected:
    void Search(const QString& text)
    {
        Get<QLineEdit>("txtSearch").setText(text);
        Press("Image1");
    }

    /// Puts the row of this film into the queue.
    void Choose(const char* number)
    {
        QTreeWidgetItem* found = List("lstSearch").findItems(QString::fromLatin1(number), Qt::MatchExactly, 1).value(0);
        DoubleClick("lstSearch", List("lstSearch").indexOfTopLevelItem(found));
    }
};

INSTANTIATE_TEST_SUITE_P(Pages, EndToEnd, testing::Values(0, 11), testing::PrintToStringParamName());

TEST_P(EndToEnd, FilmsAreFoundQueuedNamedAddedAndShown)
{
    const QString folder = u"" PAGESOURCE_FOLDER ""_s;
    const PageSource source(folder, {u"--seed"_s, QString::number(GetParam())});
    SetHosts(source.Host());
    Set("DefaultValues", "PromptAKA", u"1"_s);
    StartAdding();
    Search(u"of"_s);
    EXPECT_GT(List("lstSearch").topLevelItemCount(), 10);
    Choose("0317248");
    Choose("0056172");
    Search(u"der Anderen"_s); // one film has this other title: the site leads straight to its page
    EXPECT_EQ(Rows("lstSearch"), "The Lives of Others (2006)|0405094");
    Choose("0405094");

    InWindow("frmAkaSet", [&](QWidget& modal) {
        modal.findChild<QListWidget*>(u"lstAkaSel"_s)->setCurrentRow(1);
        QTest::mouseClick(modal.findChild<QWidget*>(u"cmdOkay"_s), Qt::LeftButton);
    });
    Press("Command2");
    EXPECT_EQ(TakeMessages(), "0 Movie Grab Complete: Successfully Added 3 Films");

    EXPECT_EQ(NewTitles(), "Cidade de Deus (2002) / Lawrence of Arabia (1962) / The Lives of Others (2006)");
    EXPECT_EQ(catalog.Ask("SELECT TitleNY || ' ' || Year || ' ' || IMDB || ' ' || Rating FROM Movie WHERE Movie_ID = 5"),
              u"Lawrence of Arabia 1962 0056172 8.5"_s);
    EXPECT_EQ(catalog.Ask("SELECT group_concat(Actor || ': ' || Character, '; ') FROM (SELECT Actor, Character FROM ActorLink JOIN Actor "
                          "USING (Actor_ID) WHERE Movie_ID = 5 ORDER BY ActorLink.rowid LIMIT 2)"),
              u"Peter O'Toole: T.E. Lawrence; Alec Guinness: Prince Faisal"_s);
    EXPECT_EQ(catalog.Ask("SELECT lower(hex(Image)) FROM Images JOIN Movie USING (Image_ID) WHERE Movie.Movie_ID = 6").toLatin1(),
              FileContent(folder + u"/pagesource-images/0405094-large.jpg"_s).toHex())
        << "the shop's larger picture is looked up";

    Press("ImgTabMovieList");
    ClickNode(u"Lawrence of Arabia (1962)"_s);
    EXPECT_TRUE(Page(u"/temp/htmltemp0.html"_s).contains(u"Peter O'Toole"));
    EXPECT_EQ(RunInPage(u"document.querySelector('img[src*=\"temp\"]').naturalWidth > 0"_s), true);
}

} // namespace
} // namespace kelvado
