// The toolkit's dialog base on a template of its own: the keys and buttons
// that end a dialog with non-standard OK and Cancel ids, and a template that
// does not exist. (Radio groups: AngleDialogTest, GridDialogTest; pages:
// GridDialogTest.)
#include <gtest/gtest.h>

#include <QTest>

#include "automation/ScriptedUser.h"
#include "ulo/ResourceModule.h"
#include "ulo/ctrl/Dialog.h"

using namespace ulo;

namespace {
constexpr unsigned kOk = 11196, kCancel = 11197;
constexpr unsigned kEdit = 630;

constexpr DlgRect at(short x, short y, short w = 60, short h = 12) {
    return {x, y, w, h};
}
#define ALL4(r) \
    { r, r, r, r }

const CtrlTemplate kDialogControls[] = {
    {601, CtrlKind::RadioButton, L"A1", kGroupStart, ALL4(at(4, 4))},
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
