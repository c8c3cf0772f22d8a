#include "PanelFixture.h"

#include "panels/forms/fManageList.h"
#include "ui/Skinner.h"

#include <QTest>
#include <QtWidgets>

#include <functional>

namespace kelvado {
namespace {

class ManagedLists : public PanelFixture
{
protected:
    ManagedLists() { catalog.Run("DELETE FROM AudioCodecs; INSERT INTO AudioCodecs VALUES (5, 85, 'MP3'), (7, 9, 'Nine'), (9, 1, NULL)"); }

    void Show(fManageList& window)
    {
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    static QTreeView& List(fManageList& window) { return *window.findChild<QTreeView*>(u"lvManage"_s); }
    static QStringList Shown(fManageList& window)
    {
        QStringList rows;
        for (int row = 0; row < List(window).model()->rowCount(); ++row)
            rows << List(window).model()->index(row, 0).data().toString() + u':' + List(window).model()->index(row, 1).data().toString();
        return rows;
    }
    static void Select(fManageList& window, int row) { List(window).setCurrentIndex(List(window).model()->index(row, 0)); }
    QString Stored() const
    {
        return catalog.Ask("SELECT group_concat(ID || ':' || Codec_ID || ':' || ifnull(DisplayName, '-'), ' ') FROM AudioCodecs");
    }

    /// Fills the entry window that the next action opens, presses "Okay", and leaves it if it is still there.
    void InEntry(const QString& code, const QString& name)
    {
        QTimer::singleShot(0, &m_owner, [=, this] {
            QWidget* entry = QApplication::activeModalWidget();
            ASSERT_TRUE(entry && entry->windowTitle() == u"Edit Item"_s);
            for (const auto& [field, text] : {std::pair(u"txtEdit_0"_s, code), std::pair(u"txtEdit_1"_s, name)})
                entry->findChild<QLineEdit*>(field)->setText(text);
            m_couldStore = entry->findChild<QPushButton*>(u"cmdOkay"_s)->isEnabled();
            QTest::keyClick(entry, Qt::Key_Return);
            if (entry->isVisible())
                static_cast<QDialog*>(entry)->reject();
        });
    }

    Skinner skinner;
    bool m_couldStore = false;

private:
    QObject m_owner;
};

TEST_F(ManagedLists, TheKeyStaysOutOfTheHeadsAndNullShowsAsABlank)
{
    fManageList window(u"AudioCodecs"_s, context, skinner, nullptr);
    EXPECT_EQ(List(window).model()->columnCount(), 2);
    EXPECT_EQ(List(window).model()->headerData(0, Qt::Horizontal).toString(), u"Codec_ID"_s);
    EXPECT_EQ(Shown(window), QStringList({u"85:MP3"_s, u"9:Nine"_s, u"1: "_s}));
    EXPECT_EQ(window.findChild<QStatusBar*>(u"statusMain"_s)->currentMessage(), u"AudioCodecs: 3 entries"_s);
}

TEST_F(ManagedLists, ARowIsRenamedByEnterAndStaysSelectedInTheSortedList)
{
    fManageList window(u"AudioCodecs"_s, context, skinner, nullptr);
    Show(window);
    Select(window, 0);
    List(window).header()->setSortIndicator(0, Qt::AscendingOrder); // by value, not by letters
    EXPECT_EQ(Shown(window), QStringList({u"1: "_s, u"9:Nine"_s, u"85:MP3"_s}));
    EXPECT_EQ(List(window).currentIndex().row(), 2);
    InEntry(u" 3 "_s, u"MPEG-1 Layer 3"_s);
    QTest::keyClick(&List(window), Qt::Key_Return);
    EXPECT_EQ(Stored(), u"5:3:MPEG-1 Layer 3 7:9:Nine 9:1:-"_s);
    EXPECT_EQ(Shown(window), QStringList({u"1: "_s, u"3:MPEG-1 Layer 3"_s, u"9:Nine"_s}));
    EXPECT_EQ(List(window).currentIndex().row(), 1);
}

TEST_F(ManagedLists, WhatWouldBreakTheListIsRefusedAndToldWhy)
{
    const struct
    {
        const char* table;
        const char* code;
        const char* name;
        const char* reason; ///< null where the entry cannot be accepted at all, empty where it is stored
    } cases[] = {
        {"AudioCodecs", "abc", "x", "is a number"}, {"AudioCodecs", "9", "x", "already"},    {"AudioCodecs", "12", " ", nullptr},
        {"AudioCodecs", "12", "Twelve", ""},        {"VideoCodecs", "xvid", "x", "already"}, {"VideoCodecs", "abcd", "New", ""},
    };
    for (const auto& entry : cases) {
        SCOPED_TRACE(entry.code);
        dialogs.boxes.clear();
        fManageList window(QLatin1StringView(entry.table), context, skinner, nullptr);
        Show(window);
        const qsizetype before = Shown(window).size();
        InEntry(QLatin1StringView(entry.code), QLatin1StringView(entry.name));
        QTest::keyClick(&List(window), Qt::Key_Insert);
        EXPECT_EQ(m_couldStore, entry.reason != nullptr);
        const bool isStored = entry.reason && *entry.reason == 0;
        EXPECT_EQ(Shown(window).size(), before + (isStored ? 1 : 0));
        const QString told = dialogs.Texts().join(u' ');
        EXPECT_EQ(told.isEmpty(), isStored || !entry.reason);
        EXPECT_TRUE(told.contains(QLatin1StringView(entry.reason))) << qPrintable(told);
    }
    EXPECT_EQ(catalog.Ask("SELECT DisplayName FROM VideoCodecs WHERE Codec_ID = 'ABCD' COLLATE BINARY"), u"New"_s);
}

TEST_F(ManagedLists, DeletingAsksWithNoAndSelectsNoOtherRow)
{
    fManageList window(u"AudioCodecs"_s, context, skinner, nullptr);
    Show(window);
    const auto press = [&](const char* key) { window.findChild<QAbstractButton*>(QLatin1StringView(key))->click(); };
    press("Delete"); // off without a row
    EXPECT_TRUE(dialogs.boxes.isEmpty());
    Select(window, 1);
    press("Delete");
    EXPECT_EQ(dialogs.lossQuestions, QStringList({u"Are you sure you wish to delete 9 Nine ?"_s}));
    EXPECT_EQ(Shown(window).size(), 3);
    dialogs.answers << kAnswerYes;
    QTest::keyClick(&List(window), Qt::Key_Delete);
    EXPECT_EQ(Stored(), u"5:85:MP3 9:1:-"_s);
    EXPECT_FALSE(List(window).selectionModel()->hasSelection());
}

} // namespace
} // namespace kelvado
