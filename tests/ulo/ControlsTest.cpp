// Behaviour of the toolkit's controls under real input events.
#include <gtest/gtest.h>

#include <QApplication>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include "ulo/ctrl/Controls.h"

TEST(KeyboardEdit, TakingTheKeyboardAwayEndsTheEdit) {
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    auto* edit = new CCEEditKeybTxt(&window);
    auto* other = new CCEEditKeybNum(&window);
    layout->addWidget(edit);
    layout->addWidget(other);
    window.show();
    QApplication::setActiveWindow(&window);
    QSignalSpy ended(edit, &CCEBaseKeybEdit::keyboardTakenAway);

    QTest::mouseClick(edit, Qt::LeftButton);
    EXPECT_TRUE(edit->HasKeyb());
    QTest::keyClicks(edit, QStringLiteral("ab"));
    QTest::mouseClick(other, Qt::LeftButton);  // focus moves on: the edit ends
    EXPECT_EQ(ended.count(), 1);
    EXPECT_FALSE(edit->HasKeyb());

    QTest::mouseClick(edit, Qt::LeftButton);
    QTest::keyClick(edit, Qt::Key_Return);  // Return puts the keyboard away too
    EXPECT_EQ(ended.count(), 2);
    EXPECT_EQ(edit->text(), QStringLiteral("ab"));
    EXPECT_EQ(other->inputMethodHints() & Qt::ImhFormattedNumbersOnly, Qt::ImhFormattedNumbersOnly);
}

TEST(CheckGrid, ATapAnywhereInTheCheckCellTogglesOnce) {
    CCEMSGridCtrl grid(0, 3);
    grid.resize(300, 200);
    grid.show();
    for (int i = 0; i < 3; ++i)
        grid.SetItemPtr(grid.AddRow(), quintptr(100 + i));
    const QRect cell = grid.visualItemRect(grid.item(1, 0));
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, cell.center());
    EXPECT_TRUE(grid.GetCheck(1));
    EXPECT_FALSE(grid.GetCheck(0));
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, cell.topLeft() + QPoint(2, 2));
    EXPECT_FALSE(grid.GetCheck(1));
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {},
                      grid.visualItemRect(grid.item(2, 1)).center());
    EXPECT_FALSE(grid.GetCheck(2));  // other columns do not toggle
    EXPECT_EQ(grid.GetItemPtr(2), quintptr(102));
    grid.DeleteRow(0);
    EXPECT_EQ(grid.GetItemPtr(0), quintptr(101));
}

TEST(KeyboardCombo, SortedInsertionKeepsItemData) {
    CCEBaseKeybCombo combo;
    combo.SetSorted(true);
    combo.AddString(QStringLiteral("Romans"), 3);
    combo.AddString(QStringLiteral("Arial"), 1);
    combo.AddString(QStringLiteral("Courier"), 2);
    ASSERT_EQ(combo.count(), 3);
    EXPECT_EQ(combo.itemText(0), QStringLiteral("Arial"));
    EXPECT_EQ(combo.GetItemDataAt(2), quintptr(3));
    EXPECT_EQ(combo.FindItemData(2), 1);
    EXPECT_EQ(combo.FindItemData(9), -1);
    EXPECT_EQ(combo.GetItemDataAt(7), quintptr(0));
}

TEST(ColourControls, SchemesAndSwatchColours) {
    CColButton button;
    button.SetBtnColor(0, 2);
    EXPECT_EQ(button.GetTextScheme(), 0);
    EXPECT_EQ(button.palette().color(QPalette::ButtonText), QColor(0x10, 0x3c, 0x8c));
    CColorStatic swatch(nullptr, 0x0000FF);
    EXPECT_EQ(ulo::ColorFromRef(swatch.GetColor()), QColor(255, 0, 0));
    EXPECT_EQ(ulo::RefFromColor(QColor(1, 2, 3)), 0x030201u);
}
