#include "support/ErrorOf.h"
#include "ui/Accessibility.h"
#include "ui/AlignPicker.h"
#include "ui/ctxListItem.h"
#include "ui/ctxListObjects.h"

#include <QAccessible>
#include <QScrollBar>
#include <QTest>
#include <QtWidgets>

namespace kelvado {
namespace {

/// A list of rows whose captions are single letters: capitals for header lines, digits for footer lines.
class RowEditor : public ::testing::Test
{
protected:
    RowEditor()
    {
        InstallAccessibility();
        list.resize(700, 300);
        list.show();
        list.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&list));
        list.setFocus();
    }
    void Add(char16_t letter, const QString& rowKind)
    {
        const QChar caption(letter);
        const QString table = caption.isDigit() ? QString(kCustomFooter) : caption.isUpper() ? QString(kCustomHeader) : u"Movie"_s;
        list.Add(caption, u"Field"_s, table, true, 20, false, 10, CellAlign::Right, rowKind);
    }
    void Load(const QString& letters)
    {
        list.Clear();
        for (const QChar letter : letters)
            Add(letter.unicode(), u"LOAD"_s);
    }
    /// The captions from top to bottom, the selected row's in brackets.
    std::string Shown() const
    {
        QString shown;
        for (int row = 1; row <= list.ListCount(); ++row) {
            const ctxListItem& item = list.List(row);
            shown += item.Selected() ? u'[' + item.Entry().Caption + u']' : item.Entry().Caption;
            EXPECT_EQ(item.y(), (row - 1) * item.height()) << row;
            EXPECT_EQ(item.Selected(), row == list.ListIndex());
        }
        return shown.toStdString();
    }
    template<typename Editor = QWidget>
    Editor& Of(int row, const char* name)
    {
        return *list.List(row).findChild<Editor*>(QString::fromLatin1(name));
    }
    static void Keys(std::initializer_list<Qt::Key> keys, Qt::KeyboardModifiers modifiers = {})
    {
        for (const Qt::Key key : keys)
            QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    void Mouse(QEvent::Type type, QPoint at)
    {
        const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, at, list.viewport()->mapToGlobal(at), type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, held, {});
        QApplication::sendEvent(list.viewport(), &event);
    }
    QPoint MiddleOf(int row) const { return list.List(row).geometry().center() - QPoint(0, list.verticalScrollBar()->value()); }
    /// Drags a row to a place in the window without letting it go.
    void Drag(int row, QPoint to)
    {
        Mouse(QEvent::MouseButtonPress, MiddleOf(row));
        Mouse(QEvent::MouseMove, to);
    }
    void Drop(QPoint at) { Mouse(QEvent::MouseButtonRelease, at); }

    ctxListObjects list;
};

TEST_F(RowEditor, TheKindPlacesARowByTheTablesThatStandThere)
{
    const struct
    {
        const char16_t* before;
        char16_t added;
        const char* kind;
        const char* after;
    } cases[] = {
        {u"", u'a', "NORMAL", "[a]"},           {u"ab", u'c', "NORMAL", "ab[c]"},     {u"Aa1", u'b', "NORMAL", "Aa[b]1"},
        {u"a12", u'A', "HEADER", "[A]a12"},     {u"ABa1", u'C', "HEADER", "AB[C]a1"}, {u"aAb", u'B', "HEADER", "[B]aAb"},
        {u"Aa1", u'2', "FOOTER", "Aa1[2]"},     {u"A1a", u'b', "NORMAL", "A[b]1a"},   {u"a1", u'A', "LOAD", "a1[A]"},
        {u"a1", u'b', "CUSTOMFOOTER", "a1[b]"},
    };
    for (const auto& [before, added, kind, after] : cases) {
        Load(QString::fromUtf16(before));
        Add(added, QString::fromLatin1(kind));
        EXPECT_EQ(Shown(), after);
    }
    for (const int none : {0, -1, 4})
        EXPECT_EQ(ErrorOf([&] { return list.List(none).x(); }), kErrSubscript);
    list.Clear();
    EXPECT_EQ(list.ListCount(), 0);
    EXPECT_EQ(list.ListIndex(), 0);
}

TEST_F(RowEditor, KeysMoveSelectAndRemoveRowsWithinTheirRegion)
{
    Load(u"ABabc12"_s);
    list.SetListIndex(4);
    const struct
    {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        const char* after;
    } steps[] = {
        {Qt::Key_Up, {}, "AB[b]ac12"},    {Qt::Key_Up, {}, "AB[b]ac12"}, // above lie the header lines
        {Qt::Key_Down, {}, "ABa[b]c12"},  {Qt::Key_Down, {}, "ABac[b]12"},
        {Qt::Key_Down, {}, "ABac[b]12"},  {Qt::Key_Down, Qt::ControlModifier, "ABacb[1]2"},
        {Qt::Key_Down, {}, "ABacb2[1]"},  {Qt::Key_Down, Qt::ControlModifier, "ABacb2[1]"},
        {Qt::Key_Delete, {}, "ABacb[2]"}, {Qt::Key_Home, {}, "[A]Bacb2"},
        {Qt::Key_Up, {}, "[A]Bacb2"},     {Qt::Key_Down, {}, "B[A]acb2"},
        {Qt::Key_Delete, {}, "B[a]cb2"},  {Qt::Key_End, {}, "Bacb[2]"},
    };
    for (const auto& [key, modifiers, after] : steps) {
        Keys({key}, modifiers);
        EXPECT_EQ(Shown(), after);
    }
    Keys({Qt::Key_Delete, Qt::Key_Delete, Qt::Key_Delete, Qt::Key_Delete, Qt::Key_Delete, Qt::Key_Delete, Qt::Key_Up});
    EXPECT_EQ(Shown(), "");
    EXPECT_TRUE(list.hasFocus());
}

TEST_F(RowEditor, TheEditorsOfTheSelectedRowAreReachedAndTakeDigitsOnly)
{
    Load(u"Aab"_s);
    list.SetListIndex(2);
    Keys({Qt::Key_Tab, Qt::Key_Left, Qt::Key_Left, Qt::Key_Left});
    EXPECT_EQ(list.List(2).Entry().TextAlign, CellAlign::Left);
    Keys({Qt::Key_Right, Qt::Key_Tab, Qt::Key_Space, Qt::Key_Tab});
    QTest::keyClicks(QApplication::focusWidget(), u"-1x2.345678"_s);
    Keys({Qt::Key_Tab, Qt::Key_Tab});
    QTest::keyClicks(QApplication::focusWidget(), u"x7"_s);
    const TextEntry expected{u"a"_s, u"Field"_s, u"Movie"_s, true, 7, true, 1234, CellAlign::Centre};
    EXPECT_EQ(list.List(2).Entry(), expected);
    Keys({Qt::Key_Delete, Qt::Key_Backspace}); // change the text, not the rows
    EXPECT_EQ(list.List(2).Entry().FormatedLength, 0);
    Keys({Qt::Key_Down});
    EXPECT_EQ(Shown(), "Ab[a]");
    EXPECT_TRUE(Of(3, "txtFieldWidth").hasFocus());

    QTest::mouseClick(&Of<QLineEdit>(2, "txtFieldWidth"), Qt::LeftButton);
    EXPECT_EQ(Shown(), "A[b]a");
    Keys({Qt::Key_Return});
    EXPECT_TRUE(list.hasFocus());
    Keys({Qt::Key_Return, Qt::Key_Tab, Qt::Key_Up}); // from a check box
    EXPECT_EQ(Shown(), "A[b]a");
    EXPECT_TRUE(Of(2, "chkCut").hasFocus());
    Keys({Qt::Key_Down, Qt::Key_Delete});
    EXPECT_EQ(Shown(), "A[a]");
    EXPECT_TRUE(list.hasFocus());
    EXPECT_EQ(list.List(1).findChild<QLineEdit*>(), nullptr) << "a fixed line has nothing to edit";

    list.resize(300, 300);
    for (const char* editor : {"PicAlign", "chkCut", "txtFieldWidth"}) {
        Of(2, editor).setFocus();
        EXPECT_EQ(Of(2, editor).visibleRegion().boundingRect(), Of(2, editor).rect()) << "the editor comes into view";
    }
    AlignPicker& picker = Of<AlignPicker>(2, "PicAlign");
    for (const int zone : {0, 2, 1}) {
        QTest::mouseClick(&picker, Qt::LeftButton, {}, QPoint(picker.width() * (2 * zone + 1) / 6, 10));
        EXPECT_EQ(static_cast<int>(list.List(2).Entry().TextAlign), zone);
    }
}

TEST_F(RowEditor, TheMouseDragsARowWithinItsRegion)
{
    Load(u"Aabc1"_s);
    QWidget& mark = *list.findChild<QWidget*>(u"PicInsert"_s);
    list.resize(700, 900);
    Drag(4, MiddleOf(2));
    EXPECT_TRUE(mark.isVisible());
    EXPECT_EQ(mark.y(), list.List(2).y() - mark.height() / 2);
    EXPECT_EQ(Shown(), "Aab[c]1") << "nothing moves before the button is up";
    Drop(MiddleOf(2));
    EXPECT_EQ(Shown(), "A[c]ab1");
    EXPECT_FALSE(mark.isVisible());
    Drag(2, MiddleOf(5));
    Drop(MiddleOf(5));
    EXPECT_EQ(Shown(), "Aab[c]1") << "the footer lines end the region";
    Drag(4, MiddleOf(2));
    Keys({Qt::Key_Escape});
    Drop(MiddleOf(2));
    EXPECT_EQ(Shown(), "Aab[c]1");
    QTest::mousePress(list.viewport(), Qt::RightButton, {}, MiddleOf(2));
    Mouse(QEvent::MouseMove, MiddleOf(4));
    Drop(MiddleOf(4));
    EXPECT_EQ(Shown(), "Aab[c]1");
}

TEST_F(RowEditor, NearAnEdgeADragScrollsUntilTheMouseComesBack)
{
    Load(QString(300, u'a'));
    QTimer& timer = *list.findChild<QTimer*>(u"tmrScroll"_s, Qt::FindDirectChildrenOnly);
    const QScrollBar& bar = *list.verticalScrollBar();
    list.SetListIndex(1);
    EXPECT_EQ(bar.value(), 0);
    const QPoint bottom(100, list.viewport()->height() - 2);
    Drag(1, bottom);
    EXPECT_TRUE(timer.isActive());
    EXPECT_TRUE(QTest::qWaitFor([&] { return bar.value() > 3 * list.List(1).height(); }));
    Mouse(QEvent::MouseMove, QPoint(100, 150));
    EXPECT_FALSE(timer.isActive());
    const int under = (bar.value() + 150) / list.List(1).height() + 1;
    Drop(QPoint(100, 150));
    EXPECT_EQ(list.ListIndex(), under);
    list.SetListIndex(300);
    EXPECT_EQ(bar.value(), bar.maximum());
    list.MouseScroll(120);
    EXPECT_EQ(bar.value(), bar.maximum() - list.List(1).height());
}

TEST_F(RowEditor, AssistiveProgramsHearTheRows)
{
    Load(u"Aab"_s);
    list.SetListIndex(2);
    QAccessibleInterface* rows = QAccessible::queryAccessibleInterface(&list);
    EXPECT_EQ(rows->role(), QAccessible::List);
    ASSERT_EQ(rows->childCount(), 3);
    QAccessibleInterface* row = rows->child(1);
    EXPECT_EQ(row->role(), QAccessible::ListItem);
    EXPECT_EQ(row->text(QAccessible::Name), u"a"_s);
    EXPECT_TRUE(row->state().selected && !rows->child(2)->state().selected);
    EXPECT_EQ(rows->focusChild(), row);
    EXPECT_EQ(row->parent(), rows);
    EXPECT_EQ(rows->indexOfChild(row), 1);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&Of(2, "PicAlign"))->text(QAccessible::Value), u"Right"_s);
    for (const char* editor : {"PicAlign", "chkCut", "txtCut", "chkFieldWidth", "txtFieldWidth"})
        EXPECT_NE(Of(2, editor).accessibleName(), QString()) << editor;
}

} // namespace
} // namespace kelvado
