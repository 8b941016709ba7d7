// Behaviour of the toolkit's controls under real input events, and their
// colours. (The ids they carry: every scripted-user test finds controls by id;
// an edit ended by taking its keyboard away: the layer name edit in
// TableDialogsTest.)
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QTest>
#include <QToolTip>
#include <QVBoxLayout>

#include "ulo/ctrl/Controls.h"
#include "ulo/ctrl/MessageBox.h"

using namespace Qt::StringLiterals;

// An edit holds 32767 characters. Input beyond them, typed, committed by an
// input method, pasted or inserted, keeps what fits at the cursor and is never
// cut silently: one beep and a tooltip naming the limit. Input that fits,
// also over a selection it replaces, neither beeps nor tips.
TEST(KeyboardEdit, InputBeyondTheLimitKeepsWhatFitsBeepsAndTips) {
    constexpr int N = CCEBaseKeybEdit::kMaxChars;
    static_assert(N == 32767);
    enum class Kind { Text, Number, Password };
    enum class Way { Keys, Commit, Paste, Insert };
    const auto run = [](QChar c, int n) { return QString(n, c); };
    const QString digits = QStringLiteral("0123456789").repeated(N / 10 + 2);
    const QString a = run(u'a', N - 2);
    const struct {
        const char* what;
        Kind kind;
        QString start;
        int cursor;  // -1: at the end; -2: all selected
        Way way;
        QString input, result;
        bool refused;
    } cases[] = {
        {"typing within", Kind::Text, QString(), -1, Way::Keys, u"hello"_s, u"hello"_s, false},
        {"typing up to the limit", Kind::Text, a, -1, Way::Keys, u"bc"_s, a + u"bc"_s, false},
        {"a key past the limit", Kind::Text, a, -1, Way::Keys, u"bcd"_s, a + u"bc"_s, true},
        {"a key into a full number edit", Kind::Number, run(u'1', N - 1), -1, Way::Keys, u"23"_s,
         run(u'1', N - 1) + u"2"_s, true},
        {"an input method's commit", Kind::Text, run(u'a', N - 1), -1, Way::Commit, u"xyz"_s,
         run(u'a', N - 1) + u"x"_s, true},
        {"a long paste into an empty edit", Kind::Text, QString(), -1, Way::Paste,
         digits.left(N + 10), digits.left(N), true},
        {"a paste in the middle", Kind::Text, a, 1, Way::Paste, u"XYZ"_s,
         u"aXY"_s + run(u'a', N - 3), true},
        {"a paste over a selection that fits", Kind::Text, run(u'a', N), -2, Way::Paste,
         run(u'b', N), run(u'b', N), false},
        {"a long paste into a password", Kind::Password, QString(), -1, Way::Paste,
         run(u'p', N + 1), run(u'p', N), true},
        {"an insertion into a full edit", Kind::Text, run(u'a', N), -1, Way::Insert, u"q"_s,
         run(u'a', N), true},
    };
    struct BeepCount {
        int n = 0;
        const int id = ulo::AddBeepListener([this](unsigned) { ++n; });
        ~BeepCount() { ulo::RemoveBeepListener(id); }
    } beeps;
    for (const auto& c : cases) {
        QToolTip::hideText();  // hides after a delay: wait for the last case's tip to go
        for (int i = 0; i < 200 && QToolTip::isVisible(); ++i)
            QTest::qWait(10);
        ASSERT_FALSE(QToolTip::isVisible()) << c.what;

        QWidget window;
        auto* layout = new QVBoxLayout(&window);
        CCEBaseKeybEdit* edit = c.kind == Kind::Number
                                    ? static_cast<CCEBaseKeybEdit*>(new CCEEditKeybNum(&window))
                                    : new CCEEditKeybTxt(&window);
        if (c.kind == Kind::Password)
            edit->setEchoMode(QLineEdit::Password);
        layout->addWidget(edit);
        window.show();
        edit->setText(c.start);
        if (c.cursor == -2)
            edit->selectAll();
        else
            edit->setCursorPosition(c.cursor < 0 ? int(c.start.size()) : c.cursor);
        beeps.n = 0;
        switch (c.way) {
            case Way::Keys:
                QTest::keyClicks(edit, c.input);
                break;
            case Way::Commit: {
                QInputMethodEvent commit;
                commit.setCommitString(c.input);
                QApplication::sendEvent(edit, &commit);
                break;
            }
            case Way::Paste:
                QApplication::clipboard()->setText(c.input);
                QTest::keyClick(edit, Qt::Key_V, Qt::ControlModifier);
                break;
            case Way::Insert:
                edit->insert(c.input);
                break;
        }
        EXPECT_EQ(edit->maxLength(), 32767) << c.what;
        EXPECT_EQ(edit->text().size(), c.result.size()) << c.what;
        EXPECT_TRUE(edit->text() == c.result) << c.what;
        EXPECT_EQ(beeps.n, c.refused ? 1 : 0) << c.what;
        EXPECT_EQ(QToolTip::isVisible(), c.refused) << c.what;
        if (c.refused) {
            EXPECT_EQ(QToolTip::text().toStdString(), "This field holds at most 32767 characters.")
                << c.what;
        }
    }
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

TEST(ColourControls, ButtonsShowTheirSchemeOverWhatTheyInherit) {
    struct Case {
        int text, back;
        QColor textColour, backColour;
    };
    const Case cases[] = {
        {0, 2, QColor(0x10, 0x3c, 0x8c), QColor(0xff, 0xff, 0xff)},  // OK and Cancel
        {2, 3, QColor(0x20, 0x20, 0x20), QColor(0xd8, 0xd8, 0xd8)},
        {1, 0, QColor(0x40, 0x40, 0x40), QColor(0xdc, 0xe8, 0xf8)},
        {0, 2, QColor(0x10, 0x3c, 0x8c), QColor(0xff, 0xff, 0xff)},  // the same scheme again
    };
    QWidget parent;
    QPalette inherited = parent.palette();
    inherited.setColor(QPalette::Window, QColor(0x00, 0x60, 0x00));
    parent.setPalette(inherited);
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << "scheme (" << c.text << ", " << c.back << ")");
        auto* button = new CColButton(&parent);
        button->SetBtnColor(c.text, c.back);
        const QPalette p = button->palette();
        for (const auto group : {QPalette::Active, QPalette::Inactive}) {
            EXPECT_EQ(p.color(group, QPalette::ButtonText), c.textColour);
            EXPECT_EQ(p.color(group, QPalette::Button), c.backColour);
        }
        EXPECT_EQ(p.color(QPalette::Disabled, QPalette::ButtonText), QColor(0x9a, 0x9a, 0x9a));
        EXPECT_EQ(p.color(QPalette::Window), QColor(0x00, 0x60, 0x00));
    }
}
