// Behaviour of the toolkit's controls under real input events, their colours
// and the ids they carry.
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>
#include <QVBoxLayout>
#include <memory>
#include <vector>

#include "ulo/ResourceModule.h"
#include "ulo/ctrl/Controls.h"
#include "ulo/ctrl/Dialog.h"
#include "ulo/ctrl/MessageBox.h"

using namespace Qt::StringLiterals;

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

TEST(ColourControls, SwatchColours) {
    CColorStatic swatch(nullptr, 0x0000FF);
    EXPECT_EQ(ulo::ColorFromRef(swatch.GetColor()), QColor(255, 0, 0));
    EXPECT_EQ(ulo::RefFromColor(QColor(1, 2, 3)), 0x030201u);
}

// The toolkit's controls and dialogs declare the properties code and tests
// read them by: setting them adds no dynamic property.
TEST(ControlIds, ControlsAndBuiltDialogsDeclareTheirIdAndIndex) {
    using ulo::CtrlKind;
    const ulo::DlgRect r{4, 4, 60, 12};
    const ulo::CtrlTemplate controls[] = {
        {700, CtrlKind::GroupBox, L"Group", 0, {r, r, r, r}},
        {701, CtrlKind::Static, L"Label", 0, {r, r, r, r}},
        {702, CtrlKind::RadioButton, L"Radio", ulo::kGroupStart, {r, r, r, r}},
        {703, CtrlKind::CheckBox, L"Check", 0, {r, r, r, r}},
        {704, CtrlKind::Edit, L"", ulo::kNumeric, {r, r, r, r}},
        {705, CtrlKind::Edit, L"", 0, {r, r, r, r}},
        {706, CtrlKind::ComboBox, L"", 0, {r, r, r, r}},
        {707, CtrlKind::PushButton, L"OK", 0, {r, r, r, r}},
    };
    const ulo::DialogTemplate templates[] = {
        {700, L"Ids", nullptr, true, {{80, 40}, {80, 40}, {80, 40}, {80, 40}}, controls}};
    const ulo::CResourceModule module("controls-test", {}, templates);
    const ulo::HINSTANCE previous = ulo::AfxGetResourceHandle();
    ulo::AfxSetResourceHandle(&module);
    QWidget host;
    CWSizeDialog dialog(0, nullptr);
    const bool built = dialog.Create(702, &host);  // layout 2
    ulo::AfxSetResourceHandle(previous);
    ASSERT_TRUE(built);
    EXPECT_EQ(dialog.property(ulo::prop::kTemplateId).toUInt(), 702u);
    EXPECT_EQ(dialog.property(ulo::prop::kBaseId).toUInt(), 700u);
    EXPECT_EQ(dialog.property(ulo::prop::kLayout).toInt(), 2);
    EXPECT_EQ(dialog.property(ulo::prop::kOkId).toUInt(), 1u);
    EXPECT_EQ(dialog.property(ulo::prop::kCancelId).toUInt(), 2u);
    EXPECT_TRUE(dialog.dynamicPropertyNames().isEmpty());
    for (int i = 0; i < static_cast<int>(std::size(controls)); ++i) {
        QWidget* w = dialog.GetDlgItem(controls[i].id);
        ASSERT_NE(w, nullptr) << controls[i].id;
        EXPECT_EQ(ulo::GetDlgCtrlID(w), controls[i].id);
        EXPECT_EQ(w->property(ulo::prop::kCtrlIndex).toInt(), i) << controls[i].id;
        EXPECT_TRUE(w->dynamicPropertyNames().isEmpty()) << controls[i].id;
    }
    // Each control class, the ones no template builds too.
    std::vector<std::unique_ptr<QWidget>> widgets;
    widgets.push_back(std::make_unique<CColButton>());
    widgets.push_back(std::make_unique<CCEBaseButton>());
    widgets.push_back(std::make_unique<ulo::CCERadioButton>());
    widgets.push_back(std::make_unique<ulo::CCEStatic>());
    widgets.push_back(std::make_unique<ulo::CCEGroupBox>());
    widgets.push_back(std::make_unique<CCEEditKeybNum>());
    widgets.push_back(std::make_unique<CCEEditKeybTxt>());
    widgets.push_back(std::make_unique<CCEBaseKeybCombo>());
    widgets.push_back(std::make_unique<CColorStatic>());
    widgets.push_back(std::make_unique<CCEMSGridCtrl>(0, 3));
    for (const auto& w : widgets) {
        const char* kind = w->metaObject()->className();
        EXPECT_FALSE(w->property(ulo::prop::kCtrlId).isValid()) << kind;  // no control yet
        w->setProperty(ulo::prop::kCtrlId, 4779u);
        w->setProperty(ulo::prop::kCtrlIndex, 3);
        EXPECT_EQ(ulo::GetDlgCtrlID(w.get()), 4779u) << kind;
        EXPECT_EQ(w->property(ulo::prop::kCtrlIndex).toInt(), 3) << kind;
        EXPECT_TRUE(w->dynamicPropertyNames().isEmpty()) << kind;
    }
}
