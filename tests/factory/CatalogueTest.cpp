// Every dialog of the library as the operation catalogue opens it (as the host
// and the QA tools do), on the sample drawing: what the dialog base applies
// from each template in every layout, and number fields that read a typed
// number alike.
#include <gtest/gtest.h>

#include <QJsonArray>
#include <memory>

#include "DrawingHost.h"
#include "Player.h"
#include "app/Grid.h"
#include "app/VELD.h"
#include "app/view/ViewAccess.h"
#include "automation/OperationCatalogue.h"
#include "automation/ScriptedUser.h"
#include "factory/IVELDDlgFactory.h"
#include "res/templates/ControlIds.h"
#include "ulo/HelpTopic.h"
#include "ulo/PalmDevice.h"
#include "ulo/ctrl/Dialog.h"

using automation::ScriptedUser;
namespace ctl = veld5::ctl;

namespace {

class Catalogue : public ::testing::TestWithParam<int> {
protected:
    void SetUp() override {
        QString error;
        ASSERT_TRUE(host.Open(QString(), true, QString(), error)) << error.toStdString();
        factory = CreateFactory();
    }
    void TearDown() override {
        CPalmDevice::SetLayoutOverride(-1);
        ulo::SetHelpCommandHandler({});
    }
    /// Runs @p operation with the steps @p user holds; fails when one is left.
    void Run(const char* operation, const ScriptedUser& user) {
        call.reset(new catalogue::Call(veldplay::NewCall(factory, host)));
        catalogue::Find(QString::fromLatin1(operation))->Run(*call);
        EXPECT_TRUE(user.Finished()) << user.Report().toStdString();
    }
    veldplay::DrawingHost host;
    IVELDDlgFactory* factory = nullptr;
    std::unique_ptr<catalogue::Call> call;
};

bool StandardColours(QWidget* window, unsigned id) {
    auto* b = qobject_cast<CColButton*>(ulo::FindControl(window, id));
    return b && b->GetTextScheme() == 0 && b->GetBackScheme() == 2;
}

}  // namespace

TEST_P(Catalogue, EveryDialogGetsItsTemplatesTopicHelpKeyAndButtons) {
    const struct {
        const char* operation;
        unsigned base, ok, cancel;
        const char* topic;  // null: the one in force before stays
        int hostHelp;       // how often the help key reached the host
    } rows[] = {
        {"ShowDlgGetDouble", 11012, ctl::GetDouble::kOk, ctl::GetDouble::kCancel, "InsValore", 0},
        {"ShowDlgRotate", 11068, ctl::Rotate::kOk, ctl::Rotate::kCancel, "ScegliRotazione", 0},
        {"ShowDlgGetString", 11016, ctl::GetString::kOk, ctl::GetString::kCancel, nullptr, 1},
        {"GetDlgPasswordRequest", 11000, ctl::Password::kOk, ctl::Password::kCancel, nullptr, 1},
        {"ShowDlgInsText", 11024, ctl::InsText::kOk, ctl::InsText::kCancel, "InsGrafText", 0},
        {"ShowDlgOSnap", 11060, ctl::OSnap::kOk, ctl::OSnap::kCancel, "SelTypeSnap", 1},
        {"ShowDlSnapInsertPnt", 11072, ctl::SnapPoint::kOk, ctl::SnapPoint::kCancel, "InsGrafCoord",
         1},
        // The page in front announces its topic; the container's help key reaches the host.
        {"ShowDlgGridProp", 11020, ctl::GridSnap::kOk, ctl::GridSnap::kCancel, "OpzSnap", 1},
        {"ShowDlgAngle", 11040, ctl::Angle::kOk, ctl::Angle::kCancel, "AngleSystem", 0},
        {"ShowDlgColor", 11044, ctl::Color::kOk, ctl::Color::kCancel, "OpzColori", 0},
        {"ShowDlgLayer", 11028, ctl::Layers::kOk, ctl::Layers::kCancel, "OpzPiano", 1},
        {"ShowDlgLtype", 11032, ctl::Ltypes::kOk, ctl::Ltypes::kCancel, "OpzTipoLinea", 1},
        {"ShowDlgSelLtype", 11092, ctl::SelType::kOk, ctl::SelType::kCancel, nullptr, 1},
        {"ShowDlgLoadLtype", 11036, ctl::LtypeLoad::kOk, ctl::LtypeLoad::kCancel, "LoadTipoLinea",
         1},
    };
    const int layout = GetParam();
    CPalmDevice::SetLayoutOverride(layout);
    int hostHelp = 0;
    ulo::SetHelpCommandHandler([&](QWidget*) { ++hostHelp; });
    for (const auto& r : rows) {
        SCOPED_TRACE(r.operation);
        ulo::SetHelpTopic(L"before");
        hostHelp = 0;
        QString buttons;  // OK and Cancel ids, whether both have the standard colours
        ScriptedUser user;
        user.Inspect([&](QWidget* w) {
                buttons = QStringLiteral("%1 %2 %3")
                              .arg(w->property(ulo::prop::kOkId).toUInt())
                              .arg(w->property(ulo::prop::kCancelId).toUInt())
                              .arg(StandardColours(w, r.ok) && StandardColours(w, r.cancel));
            })
            .Help()
            .Close();
        Run(r.operation, user);
        ASSERT_EQ(user.Dialogs().size(), 1u);
        EXPECT_EQ(user.Dialogs()[0].templateId, r.base);
        EXPECT_EQ(user.Dialogs()[0].layout, layout);
        EXPECT_EQ(user.Dialogs()[0].help,
                  r.topic ? QStringLiteral("QuadraCE.htm#Dlg ") + QLatin1String(r.topic)
                          : QStringLiteral("before"));
        EXPECT_EQ(hostHelp, r.hostHelp);
        EXPECT_EQ(buttons, QStringLiteral("%1 %2 1").arg(r.ok).arg(r.cancel));
    }
}

INSTANTIATE_TEST_SUITE_P(AllLayouts, Catalogue, ::testing::Values(0, 1, 2, 3));

// What a user types with thousands separators of either notation reads as the
// same number in each dialog, never as the number before the second separator.
TEST_F(Catalogue, NumbersTypedWithThousandsSeparatorsReadAlikeInEveryDialog) {
    const struct {
        const char* operation;
        unsigned field, ok;
        const char* out;  // the number read: an out-parameter, or where else to find it
    } fields[] = {
        {"ShowDlgGetDouble", ctl::GetDouble::kValue, ctl::GetDouble::kOk, "value"},
        {"ShowDlSnapInsertPnt", ctl::SnapPoint::kEast, ctl::SnapPoint::kOk, "x"},
        {"ShowDlgGridProp", ctl::SnapPage::kBaseEast, ctl::GridSnap::kOk, "baseEast"},
        {"ShowDlgInsText", ctl::InsText::kHeight, ctl::InsText::kOk, "text height"},
        {"ShowDlgLtype", ctl::Ltypes::kScale, ctl::Ltypes::kOk, "line type scale"},
    };
    const std::pair<const char*, double> numbers[] = {{"1.234,5", 1234.5},
                                                      {"1,234.5", 1234.5},
                                                      {"12.345.678,25", 12345678.25},
                                                      {"\u0663\u066b\u0661\u0664", 3.14},
                                                      {"2,5e3", 2500}};
    GetViewGridForEdit(host.GetView()).SetSnap(true, 0, 0, 1, 1, 0);
    // (The rotation entry reads its field as the number entry does: one base.)
    for (const auto& f : fields)
        for (const auto& [typed, expected] : numbers) {
            SCOPED_TRACE(std::string(f.operation) + ": " + typed);
            ScriptedUser user;
            // The point entry reads all three fields, the text insertion a line.
            for (unsigned id : {ctl::SnapPoint::kNorth, ctl::SnapPoint::kElevation})
                if (f.field == ctl::SnapPoint::kEast)
                    user.SetText(id, QString::fromUtf8(typed));
            if (f.field == ctl::InsText::kHeight)
                user.SetText(ctl::InsText::kLine1, QStringLiteral("A"));
            user.SetText(f.field, QString::fromUtf8(typed)).Click(f.ok);
            Run(f.operation, user);
            const QString out = QString::fromLatin1(f.out);
            const QJsonValue text = call->out.value(QStringLiteral("texts"))[0];
            EXPECT_EQ(call->numbers.contains(out) ? call->numbers.value(out)
                      : out == QLatin1String("text height")
                          ? text[QStringLiteral("height")].toDouble()
                          : GetLtypeScale(host.GetCAD()),
                      expected);
        }
}
