// The toolkit's dialog base on a template of its own: the keys and buttons
// that end a dialog with non-standard OK and Cancel ids, radio groups, child
// pages, and a template that does not exist.
#include <gtest/gtest.h>

#include <QTest>

#include "automation/ScriptedUser.h"
#include "ulo/ResourceModule.h"
#include "ulo/ctrl/Dialog.h"

using namespace ulo;

namespace {
constexpr unsigned kOk = 11196, kCancel = 11197;
constexpr unsigned kA1 = 601, kA2 = 602, kA3 = 603, kB1 = 611, kB2 = 612, kEdit = 630;

constexpr DlgRect at(short x, short y, short w = 60, short h = 12) {
    return {x, y, w, h};
}
#define ALL4(r) \
    { r, r, r, r }

const CtrlTemplate kDialogControls[] = {
    {kA1, CtrlKind::RadioButton, L"A1", kGroupStart, ALL4(at(4, 4))},
    {kA2, CtrlKind::RadioButton, L"A2", 0, ALL4(at(4, 18))},
    {kA3, CtrlKind::RadioButton, L"A3", 0, ALL4(at(4, 32))},
    {kB1, CtrlKind::RadioButton, L"B1", kGroupStart, ALL4(at(70, 4))},
    {kB2, CtrlKind::RadioButton, L"B2", 0, ALL4(at(70, 18))},
    {kEdit, CtrlKind::Edit, L"", kBorder, ALL4(at(4, 50))},
    {kOk, CtrlKind::PushButton, L"OK", kDefault, ALL4(at(4, 80, 40, 14))},
    {kCancel, CtrlKind::PushButton, L"Cancel", 0, ALL4(at(50, 80, 40, 14))},
};
const CtrlTemplate kPageControls[] = {
    {640, CtrlKind::Edit, L"", kBorder, ALL4(at(2, 2))},
};
const DialogTemplate kTemplates[] = {
    {500, L"Test dialog", nullptr, false, ALL4((DlgSize{138, 100})), kDialogControls, kOk, kCancel},
    {510, L"", nullptr, true, ALL4((DlgSize{100, 40})), kPageControls},
};
const CResourceModule kModule("dialog-test", {}, kTemplates);

/// Makes the test module current for one test, and puts the previous back.
struct ModuleScope {
    HINSTANCE previous = AfxGetResourceHandle();
    ModuleScope() { AfxSetResourceHandle(&kModule); }
    ~ModuleScope() { AfxSetResourceHandle(previous); }
};

class Recording : public CExDialog {
public:
    explicit Recording(unsigned templateId, CWnd* parent = nullptr)
        : CExDialog(templateId, parent) {}
    std::string calls;
    int endWhileSettingUp = 0;  // a code for EndDialog in OnInitDialog

protected:
    void OnInitDialog() override {
        calls += "init ";
        if (endWhileSettingUp)
            EndDialog(endWhileSettingUp);
    }
    void OnOK() override {
        calls += "ok ";
        CExDialog::OnOK();
    }
    void OnCancel() override {
        calls += "cancel ";
        CExDialog::OnCancel();
    }
};
}  // namespace

TEST(Dialog, EveryWayOutGoesThroughItsOwnOkAndCancel) {
    ModuleScope scope;
    const auto key = [](Qt::Key k) {
        return [k](automation::ScriptedUser& u) {
            u.Inspect([k](QWidget* w) { QTest::keyClick(w, k); });
        };
    };
    const struct {
        const char* what;
        std::function<void(automation::ScriptedUser&)> steps;
        INT_PTR result;
        const char* calls;
    } rows[] = {
        {"OK button", [](automation::ScriptedUser& u) { u.Click(kOk); }, IDOK, "init ok "},
        {"Cancel button", [](automation::ScriptedUser& u) { u.Click(kCancel); }, IDCANCEL,
         "init cancel "},
        {"Return", key(Qt::Key_Return), IDOK, "init ok "},
        {"Enter", key(Qt::Key_Enter), IDOK, "init ok "},
        {"Escape", key(Qt::Key_Escape), IDCANCEL, "init cancel "},
        {"close box", [](automation::ScriptedUser& u) { u.Close(); }, IDCANCEL, "init cancel "},
    };
    for (const auto& r : rows) {
        automation::ScriptedUser user;
        r.steps(user);
        Recording dialog(500);
        EXPECT_EQ(dialog.DoModal(), r.result) << r.what;
        EXPECT_TRUE(user.Finished()) << r.what << ": " << user.Report().toStdString();
        EXPECT_EQ(dialog.calls, r.calls) << r.what;
    }
}

TEST(Dialog, RadioButtonsFormAGroupFromEachGroupStart) {
    ModuleScope scope;
    automation::ScriptedUser user;
    unsigned a = 0, b = 0, afterCheck = 0;
    user.Click(kA1).Click(kB2).Click(kA3);
    user.Inspect([&](QWidget* w) {
        auto* d = static_cast<CWSizeDialog*>(w);
        a = d->GetCheckedRadioButton(kA1, kA3);
        b = d->GetCheckedRadioButton(kB1, kB2);
        d->CheckRadioButton(kA1, kA3, kA2);  // from code, as data exchange does
        afterCheck = d->GetCheckedRadioButton(kA1, kA3);
    });
    user.Click(kOk);
    Recording dialog(500);
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_TRUE(user.Finished()) << user.Report().toStdString();
    EXPECT_EQ(a, kA3) << "a click in a group clears the others of that group";
    EXPECT_EQ(b, kB2) << "and leaves the next group alone";
    EXPECT_EQ(afterCheck, kA2);
    EXPECT_FALSE(dialog.IsDlgButtonChecked(kA3));
}

TEST(Dialog, APageIsBuiltInsideItsContainerWhereItWasPlaced) {
    ModuleScope scope;
    QWidget container;
    container.resize(300, 200);
    Recording page(510);
    page.SetWindowedMode(true, true, 10, 20, 150, 60);
    ASSERT_TRUE(page.Create(510, &container));
    EXPECT_EQ(page.calls, "init ");
    EXPECT_EQ(page.parentWidget(), &container);
    EXPECT_FALSE(page.isWindow());
    EXPECT_EQ(page.geometry(), QRect(10, 20, 150, 60));
    EXPECT_NE(page.GetDlgItem(640), nullptr);
}

TEST(Dialog, ATemplateNoModuleHoldsFailsWithoutShowing) {
    ModuleScope scope;
    Recording missing(999);
    EXPECT_EQ(missing.DoModal(), -1);
    EXPECT_EQ(missing.calls, "");
    EXPECT_FALSE(missing.IsBuilt());
    AfxSetResourceHandle(nullptr);  // no module at all
    Recording none(500);
    EXPECT_EQ(none.DoModal(), -1);
}

TEST(Dialog, ADialogThatEndsWhileItSetsItselfUpIsNeverShown) {
    ModuleScope scope;
    automation::ScriptedUser user;
    Recording dialog(500);
    dialog.endWhileSettingUp = 7;
    EXPECT_EQ(dialog.DoModal(), 7);
    EXPECT_EQ(dialog.calls, "init ");
    EXPECT_TRUE(user.Dialogs().empty());
    QWidget container;
    Recording page(510);
    page.endWhileSettingUp = 3;
    EXPECT_FALSE(page.Create(510, &container));
}
