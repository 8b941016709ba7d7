// The factory operations veld-play can call (and the library's two line type
// pickers): all of them, with their arguments' defaults and out-parameters.
// An operation whose dialog is not built yet returns at once, as a cancelled
// dialog would. Every operation reads its arguments first and runs nothing
// when one was refused (c.ArgumentsOk()); one that works on the drawing takes
// the CAD instance from c.CAD(), which is null then, and also sets c.error
// when the host has none.
#include <QJsonArray>
#include <memory>
#include <utility>

#include "PlayHost.h"
#include "Player.h"
#include "app/Grid.h"
#include "app/VELD.h"
#include "app/view/VELDView.h"
#include "automation/ScriptedUser.h"
#include "factory/IVELDDlgFactory.h"
#include "linetypes/LtypePickers.h"
#include "ulo/Geom.h"
#include "veld/Data.h"
#include "veld/Ent.h"
#include "veld/EntCollection.h"
#include "veld/FileReaderPasswordRequest.h"
#include "veld/HandleObjectVectorCollection.h"
#include "veld/HatchType.h"
#include "veld/Ltype.h"
#include "veld/Style.h"

namespace veldplay {

namespace {

/// Calls an operation that works on the drawing and returns nothing.
Operation onDrawing(void (IVELDDlgFactory::*op)(CWnd*, CVELD&)) {
    return [op](OperationCall& c) -> QJsonValue {
        if (CVELD* cad = c.CAD())
            (c.factory->*op)(nullptr, *cad);
        return QJsonValue();
    };
}

/// Calls an operation that works on the drawing and answers OK or not.
Operation onDrawingBool(bool (IVELDDlgFactory::*op)(CWnd*, CVELD&)) {
    return [op](OperationCall& c) -> QJsonValue {
        CVELD* cad = c.CAD();
        return cad ? QJsonValue((c.factory->*op)(nullptr, *cad)) : QJsonValue();
    };
}

ulo::geom::PNT_3D pointArgs(OperationCall& c) {
    return {c.Number(QStringLiteral("x"), 0.0), c.Number(QStringLiteral("y"), 0.0),
            c.Number(QStringLiteral("z"), 0.0)};
}

void pointOut(OperationCall& c, const ulo::geom::PNT_3D& p) {
    c.numbers.insert(QStringLiteral("x"), p.x);
    c.numbers.insert(QStringLiteral("y"), p.y);
    c.numbers.insert(QStringLiteral("z"), p.z);
}

}  // namespace

const QMap<QString, Operation>& Operations() {
    static const QMap<QString, Operation> ops = {
        {QStringLiteral("ShowDlgInsText"),
         [](OperationCall& c) -> QJsonValue {
             ulo::geom::PNT_3D point = pointArgs(c);
             CVELD* cad = c.CAD();
             if (!cad)
                 return QJsonValue();
             veld::CEntCollection ents;
             c.factory->ShowDlgInsText(nullptr, *cad, point, ents);
             // The texts belong to the caller, who would insert them; they
             // are reported, not inserted.
             QJsonArray texts;
             for (unsigned i = 0; i < ents.GetNoEnts(); ++i) {
                 const auto* t = dynamic_cast<const veld::CEntText*>(ents.GetEnt(i));
                 if (!t)
                     continue;
                 const veld::TEXT_3D text = t->GetText();
                 const veld::CTextContext& context = text.GetContext();
                 texts.append(QJsonObject{
                     {QStringLiteral("text"), context.GetString().ToQString()},
                     {QStringLiteral("style"),
                      text.GetStyle() ? text.GetStyle()->GetName().ToQString() : QString()},
                     {QStringLiteral("height"), context.GetHeight()},
                     {QStringLiteral("widthFactor"), context.GetWidthFactor()},
                     {QStringLiteral("rotation"), context.GetRotate()},
                     {QStringLiteral("slant"), context.GetSlant()},
                     {QStringLiteral("justify"),
                      veld::TEXT_3D::GetAlignName(text.GetAlignment()).ToQString()},
                     {QStringLiteral("x"), text.GetPoint().x},
                     {QStringLiteral("y"), text.GetPoint().y},
                     {QStringLiteral("z"), text.GetPoint().z}});
             }
             c.out.insert(QStringLiteral("texts"), texts);
             return QJsonValue();
         }},
        {QStringLiteral("ShowDlgOSnap"),
         [](OperationCall& c) -> QJsonValue {
             CVELD* cad = c.CAD();
             if (!cad)
                 return QJsonValue();
             c.factory->ShowDlgOSnap(nullptr, *cad);
             c.out.insert(QStringLiteral("on"), cad->IsOSnapperOn());
             c.numbers.insert(QStringLiteral("mask"), cad->GetOSnapperMask());
             return QJsonValue();
         }},
        {QStringLiteral("ShowDlSnapInsertPnt"),
         [](OperationCall& c) -> QJsonValue {
             ulo::geom::PNT_3D point = pointArgs(c);
             CVELD* cad = c.CAD();
             if (!cad)
                 return QJsonValue();
             const bool ok = c.factory->ShowDlSnapInsertPnt(nullptr, *cad, point);
             pointOut(c, point);
             return ok;
         }},
        {QStringLiteral("ShowDlgGridProp"),
         [](OperationCall& c) -> QJsonValue {
             CVELDView* view = c.View();
             if (!view)
                 return QJsonValue();
             const bool ok = c.factory->ShowDlgGridProp(view);
             const CGrid& grid = GetViewGrid(view);
             double be = 0, bn = 0, se = 0, sn = 0, angle = 0, ge = 0, gn = 0;
             grid.GetSnap(be, bn, se, sn, angle);
             grid.GetGrid(ge, gn);
             c.out.insert(QStringLiteral("snapOn"), grid.IsSnapActive());
             c.out.insert(QStringLiteral("gridOn"), grid.IsGridActive());
             c.out.insert(QStringLiteral("gridBySnap"), grid.IsGridBySnap());
             const std::pair<const char*, double> numbers[] = {
                 {"baseEast", be},     {"baseNorth", bn}, {"snapEast", se}, {"snapNorth", sn},
                 {"snapAngle", angle}, {"gridEast", ge},  {"gridNorth", gn}};
             for (const auto& [name, value] : numbers)
                 c.numbers.insert(QLatin1String(name), value);
             return ok;
         }},
        {QStringLiteral("ShowDlgOptColors"), onDrawing(&IVELDDlgFactory::ShowDlgOptColors)},
        {QStringLiteral("ShowDlgLayer"), onDrawing(&IVELDDlgFactory::ShowDlgLayer)},
        {QStringLiteral("ShowDlgLtype"), onDrawing(&IVELDDlgFactory::ShowDlgLtype)},
        {QStringLiteral("ShowDlgTextStyle"), onDrawing(&IVELDDlgFactory::ShowDlgTextStyle)},
        {QStringLiteral("ShowDlgColor"),
         [](OperationCall& c) -> QJsonValue {
             const short start = c.Short(QStringLiteral("start"), 1);
             const short byLayer = c.Short(QStringLiteral("byLayer"), 7);
             const short byBlock = c.Short(QStringLiteral("byBlock"), 7);
             short chosen = c.Short(QStringLiteral("chosen"), start);
             const bool logical = c.Flag(QStringLiteral("logical"), true);
             if (!c.ArgumentsOk())
                 return QJsonValue();
             const bool ok = c.factory->ShowDlgColor(nullptr, c.host ? c.host->GetCAD() : nullptr,
                                                     start, byLayer, byBlock, logical, chosen);
             c.numbers.insert(QStringLiteral("chosen"), chosen);
             return ok;
         }},
        // The two line type pickers are entries of the library of their own
        // (the layer and line type dialogs run them); the result is the code
        // the dialog ended with.
        {QStringLiteral("ShowDlgSelLtype"),
         [](OperationCall& c) -> QJsonValue {
             CVELD* cad = c.CAD();
             if (!cad)
                 return QJsonValue();
             veld::CLtype* preset = GetCurLtype(cad);
             if (const QString name = c.Text(QStringLiteral("preset"), QString());
                 !name.isEmpty()) {
                 preset = cad->GetData()->GetLtypeTable().Find(ulo::WString::FromQString(name));
                 if (!preset) {
                     c.error = QStringLiteral("the drawing has no line type \"%1\"").arg(name);
                     return QJsonValue();
                 }
             }
             veld::CLtype* chosen = nullptr;
             const int r = ShowDlgSelLtype(nullptr, cad, preset, &chosen);
             c.out.insert(QStringLiteral("chosen"),
                          chosen ? QJsonValue(chosen->GetName().ToQString()) : QJsonValue());
             return r;
         }},
        {QStringLiteral("ShowDlgLoadLtype"),
         [](OperationCall& c) -> QJsonValue {
             CVELD* cad = c.CAD();
             if (!cad)
                 return QJsonValue();
             veld::CHandleObjectVectorCollection created;
             const int r = ShowDlgLoadLtype(cad, &created);
             // Reported, not added: adding is the caller's part.
             QJsonArray names;
             for (unsigned i = 0; i < created.GetNoElems(); ++i)
                 names.append(
                     static_cast<veld::CLtype*>(created.GetObjectNo(i))->GetName().ToQString());
             c.out.insert(QStringLiteral("created"), names);
             return r;
         }},
        {QStringLiteral("ShowDlgOptCursor"), onDrawing(&IVELDDlgFactory::ShowDlgOptCursor)},
        {QStringLiteral("ShowDlgAngle"),
         [](OperationCall& c) -> QJsonValue {
             CVELD* cad = c.CAD();
             if (!cad)
                 return QJsonValue();
             const bool ok = c.factory->ShowDlgAngle(nullptr, *cad);
             short system = 0;
             double base = 0;
             bool clockwise = false;
             GetAngleSystem(cad, system, base, clockwise);
             c.numbers.insert(QStringLiteral("system"), system);
             c.numbers.insert(QStringLiteral("base"), base);
             c.out.insert(QStringLiteral("clockwise"), clockwise);
             return ok;
         }},
        {QStringLiteral("ShowDlgHatch"),
         [](OperationCall& c) -> QJsonValue {
             // A legacy hatch number (-1..67); none chosen by default.
             const int number = c.Int(QStringLiteral("hatch"), -2);
             if (!c.ArgumentsOk())
                 return QJsonValue();
             const veld::CHatchType* hatch =
                 veld::CHatchTypeProvider::GetInstance()->GetLegacyHatchType(number);
             const bool ok = c.factory->ShowDlgHatch(nullptr, &hatch);
             c.numbers.insert(QStringLiteral("hatch"), hatch ? hatch->GetLegacyNumber() : -2);
             return ok;
         }},
        {QStringLiteral("ShowDlgDrawings"), onDrawingBool(&IVELDDlgFactory::ShowDlgDrawings)},
        {QStringLiteral("ShowDlgProperty"),
         [](OperationCall& c) -> QJsonValue {
             const bool undoable = c.Flag(QStringLiteral("undoable"), true);
             CVELD* cad = c.CAD();
             return cad ? QJsonValue(c.factory->ShowDlgProperty(nullptr, *cad, undoable))
                        : QJsonValue();
         }},
        {QStringLiteral("ShowDlgCalibraLineare"),
         [](OperationCall& c) -> QJsonValue {
             const int index = c.Int(QStringLiteral("image"), 0);
             CVELD* cad = c.CAD();
             if (!cad)
                 return QJsonValue();
             CVELDImage* image = cad->GetImage(index);
             if (!image) {
                 c.error = QStringLiteral("the drawing has no image %1").arg(index);
                 return QJsonValue();
             }
             return c.factory->ShowDlgCalibraLineare(nullptr, *cad, image);
         }},
        {QStringLiteral("GetDlgPasswordRequest"),
         [](OperationCall& c) -> QJsonValue {
             // Shows the password dialog as the drawing reader would, then,
             // with retry=1, the question after a wrong password.
             const bool retry = c.Flag(QStringLiteral("retry"), false);
             if (!c.ArgumentsOk())
                 return QJsonValue();
             std::unique_ptr<veld::IFileReaderPasswordRequest> req(
                 c.factory->GetDlgPasswordRequest(nullptr));
             if (!req)
                 return QJsonValue();
             ulo::WString password;
             const bool ok = req->RequestPassword(password, L"drawing");
             c.out.insert(QStringLiteral("password"),
                          ok ? QJsonValue(password.ToQString()) : QJsonValue());
             if (retry)
                 c.out.insert(QStringLiteral("retry"), req->AskRetry(L"drawing"));
             return ok;
         }},
        {QStringLiteral("ShowDlgGetDouble"),
         [](OperationCall& c) -> QJsonValue {
             double value = c.Number(QStringLiteral("value"), 0.0);
             const std::wstring title = c.Text(QStringLiteral("title"), QString()).toStdWString();
             const bool negative = c.Flag(QStringLiteral("allowNegative"), true);
             const bool zero = c.Flag(QStringLiteral("allowZero"), true);
             const bool positive = c.Flag(QStringLiteral("allowPositive"), true);
             if (!c.ArgumentsOk())
                 return QJsonValue();
             const long r = c.factory->ShowDlgGetDouble(nullptr, title.c_str(), value, negative,
                                                        zero, positive);
             c.numbers.insert(QStringLiteral("value"), value);
             return static_cast<int>(r);
         }},
        {QStringLiteral("ShowDlgRotate"),
         [](OperationCall& c) -> QJsonValue {
             double angle = c.Number(QStringLiteral("angle"), 0.0);
             if (!c.ArgumentsOk())
                 return QJsonValue();
             const long r = c.factory->ShowDlgRotate(nullptr, angle);
             c.numbers.insert(QStringLiteral("angle"), angle);
             return static_cast<int>(r);
         }},
        {QStringLiteral("ShowDlgGetString"),
         [](OperationCall& c) -> QJsonValue {
             ulo::WString result =
                 ulo::WString::FromQString(c.Text(QStringLiteral("text"), QString()));
             const bool ok = c.factory->ShowDlgGetString(
                 nullptr,
                 ulo::WString::FromQString(
                     c.Text(QStringLiteral("caption"), QStringLiteral("Enter..."))),
                 ulo::WString::FromQString(
                     c.Text(QStringLiteral("prompt"), QStringLiteral("Insert value:"))),
                 result);
             c.out.insert(QStringLiteral("text"), result.ToQString());
             return ok;
         }},
    };
    return ops;
}

QStringList BuiltOperations(IVELDDlgFactory* factory, PlayHost& host) {
    QStringList built;
    for (auto it = Operations().begin(); it != Operations().end(); ++it) {
        bool shown = false;
        automation::ScriptedUser user;
        user.whenIdle = [&](QWidget*) {
            shown = true;
            user.Close();  // closed as its close box would: nothing changes
        };
        OperationCall call;
        call.factory = factory;
        call.host = &host;
        it.value()(call);
        if (shown)
            built << it.key();
    }
    return built;
}

}  // namespace veldplay
