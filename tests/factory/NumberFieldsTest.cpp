// One way of typing a number for every number field: what a user types with
// thousands separators of either notation reads as the same number in each
// dialog, never as the number before the second separator.
#include <functional>

#include "app/Grid.h"
#include "app/SampleDrawing.h"
#include "app/VELD.h"
#include "app/view/VELDView.h"
#include "app/view/ViewAccess.h"
#include "support/FactoryFixture.h"
#include "ulo/ctrl/Win.h"
#include "veld/Ent.h"
#include "veld/EntCollection.h"

using automation::ScriptedUser;

namespace {
constexpr unsigned kOk = 11196;
}  // namespace

TEST_F(FactoryTest, NumbersTypedWithThousandsSeparatorsReadAlikeInEveryDialog) {
    CVELD cad;
    BuildSampleDrawing(cad);
    CVELDView view(&cad);
    // Each field: types the text, confirms, and gives what the dialog read.
    using Field = std::function<double(const QString&)>;
    const struct {
        const char* name;
        Field read;
    } fields[] = {
        {"value entry",
         [&](const QString& text) {
             ScriptedUser user;
             user.SetText(11137, text).Click(kOk);
             double value = 0;
             factory->ShowDlgGetDouble(nullptr, L"", value, true, true, true);
             ExpectFinished(user);
             return value;
         }},
        {"rotation",
         [&](const QString& text) {
             ScriptedUser user;
             user.SetText(11137, text).Click(kOk);
             double value = 0;
             factory->ShowDlgRotate(nullptr, value);
             ExpectFinished(user);
             return value;
         }},
        {"point entry",
         [&](const QString& text) {
             ScriptedUser user;
             user.SetText(11185, text).SetText(11186, QStringLiteral("0"));
             user.SetText(11188, QStringLiteral("0")).Click(kOk);
             ulo::geom::PNT_3D point{};
             factory->ShowDlSnapInsertPnt(nullptr, cad, point);
             ExpectFinished(user);
             return point.x;
         }},
        {"line type scale",
         [&](const QString& text) {
             ScriptedUser user;
             user.SetText(11130, text).Click(ulo::IDOK);
             factory->ShowDlgLtype(nullptr, cad);
             ExpectFinished(user);
             return GetLtypeScale(&cad);
         }},
        {"grid base",
         [&](const QString& text) {
             GetViewGridForEdit(&view).SetSnap(true, 0, 0, 1, 1, 0);
             ScriptedUser user;
             user.SetText(11169, text).Click(kOk);
             factory->ShowDlgGridProp(&view);
             ExpectFinished(user);
             double e, n, ie, in, a;
             GetViewGrid(&view).GetSnap(e, n, ie, in, a);
             return e;
         }},
        {"text height",
         [&](const QString& text) {
             ScriptedUser user;
             user.SetText(11139, QStringLiteral("A")).SetText(11140, text).Click(kOk);
             ulo::geom::PNT_3D at{};
             veld::CEntCollection ents;
             factory->ShowDlgInsText(nullptr, cad, at, ents);
             ExpectFinished(user);
             return ents.GetNoEnts() == 1 ? static_cast<veld::CEntText*>(ents.GetEnt(0))
                                                ->GetText()
                                                .GetContext()
                                                .GetHeight()
                                          : -1.0;
         }},
    };
    const struct {
        const char* typed;
        double read;
    } numbers[] = {
        {"1.234,5", 1234.5},
        {"1,234.5", 1234.5},
        {"12.345.678,25", 12345678.25},
        {"\u0663\u066b\u0661\u0664", 3.14},
        {"2,5e3", 2500},
    };
    for (const auto& f : fields)
        for (const auto& n : numbers)
            EXPECT_EQ(f.read(QString::fromUtf8(n.typed)), n.read) << f.name << ": " << n.typed;
}
