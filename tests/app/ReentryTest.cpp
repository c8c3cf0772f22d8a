#include "MainWindow.h"
#include "ui/BusyPicture.h"

namespace kelvado {
namespace {

/// A catalog that is large enough for events to be served in the midst of a fill.
class LongFill : public MainWindow
{
protected:
    LongFill()
    {
        catalog.Run("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 400)"
                    "INSERT INTO Movie (Title, Year) SELECT 'Z' || i, 1900 + i % 90 FROM n");
        Start();
        m_whole = Shown();
    }

    /// Runs `action` once, when events are served for the `call`th time from now.
    void During(int call, std::function<void()> action)
    {
        reached = false;
        m_left = call;
        events.hook = [this, action = std::move(action)] {
            if (--m_left > 0)
                return;
            events.hook = nullptr;
            reached = true;
            action();
        };
    }

    const std::string& Whole() const { return m_whole; }

    bool reached = false;

private:
    int m_left = 0;
    std::string m_whole;
};

TEST_F(LongFill, TheTreeIsHiddenAndTheWorkIsShown)
{
    bool busy = false, hidden = false;
    int calls = 0, most = 0;
    events.hook = [&] {
        busy = busy || Get<BusyPicture>("Working").IsBusy();
        hidden = hidden || !Tree().isVisible();
        most = std::max(most, Get<QProgressBar>("ProgressMain").value());
        if (++calls == 6)
            events.Pause(600); // progress is shown only of a fill that takes its time
    };
    Press("Refresh");
    EXPECT_TRUE(busy);
    EXPECT_TRUE(hidden);
    EXPECT_GT(most, 50);
    EXPECT_EQ(Get<QProgressBar>("ProgressMain").value(), 0);
    EXPECT_FALSE(Get<BusyPicture>("Working").IsBusy());
    EXPECT_TRUE(Tree().isVisible());
}

TEST_F(LongFill, ARefreshInTheMidstOfOneWaitsForItsEnd)
{
    for (const int call : {1, 2, 4, 8}) {
        int depth = 0, deepest = 0;
        During(call, [&] {
            ++depth;
            Press("Refresh");
            deepest = std::max(deepest, depth--);
        });
        Press("Refresh");
        EXPECT_TRUE(reached);
        EXPECT_EQ(Shown(), Whole());
        EXPECT_EQ(deepest, 1);
    }
}

TEST_F(LongFill, ACatalogOpenedInTheMidstIsTheOneThatShowsInTheEnd)
{
    const TempCatalog other;
    other.Run("INSERT INTO Movie (Title) VALUES ('Other')");
    During(5, [&] {
        dialogs.files << other.Path();
        Press("Open");
    });
    Press("Refresh");
    EXPECT_TRUE(reached);
    EXPECT_EQ(window->State().CatalogPath(), other.Path());
    EXPECT_TRUE(QTest::qWaitFor([&] { return Shown() == "O\n Other"; })) << Shown().substr(0, 100);
}

TEST_F(LongFill, ClosingInTheMidstClosesBehindIt)
{
    During(5, [&] {
        window->close();
        EXPECT_TRUE(window->isVisible());
    });
    Press("Refresh");
    EXPECT_TRUE(reached);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !window->isVisible(); }));
}

TEST_F(LongFill, ARefreshOrAnEndWhileACastIsFetchedWaitsForItsEnd)
{
    Tree().expand(Node(u"A"_s));
    During(1, [&] { Press("Refresh"); });
    Tree().expand(Node(u"Alien"_s));
    EXPECT_TRUE(reached);
    EXPECT_EQ(Shown(), Whole());
    Tree().expand(Node(u"A"_s));
    Tree().expand(Node(u"Alien"_s));
    EXPECT_TRUE(Node(u"Tom Skerritt"_s).isValid());
    Tree().collapse(Node(u"Alien"_s));
    During(1, [&] { window->close(); });
    Tree().expand(Node(u"Alien"_s)); // fetches the cast anew
    EXPECT_TRUE(reached);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !window->isVisible(); }));
}

} // namespace
} // namespace kelvado
