#include "DemoOperations.h"

#include <QStringList>
#include <functional>
#include <memory>

#include "app/ChangeEntitiesCmdExecuted.h"
#include "app/InsertEntsCmdExecuted.h"
#include "app/PropLayerLtypeCmdExecuted.h"
#include "app/VELD.h"
#include "app/view/VELDView.h"
#include "factory/IVELDDlgFactory.h"
#include "veld/Colors.h"
#include "veld/Data.h"
#include "veld/EntCollection.h"
#include "veld/FileReaderPasswordRequest.h"
#include "veld/HatchType.h"

namespace {

QString yesNo(bool b) {
    return b ? QStringLiteral("OK") : QStringLiteral("cancelled");
}

QString point(const ulo::geom::PNT_3D& p) {
    return QStringLiteral("(%1, %2, %3)")
        .arg(p.x, 0, 'f', 3)
        .arg(p.y, 0, 'f', 3)
        .arg(p.z, 0, 'f', 3);
}

/// Changes every selected entity with @p change, as one command that Undo
/// reverses; returns how many there were.
unsigned changeSelection(CVELD& cad, const std::function<void(veld::CEnt&)>& change) {
    const veld::CEntCollection& sel = cad.GetSelection();
    if (sel.GetNoEnts() == 0)
        return 0;
    auto* command = new CChangeEntitiesCmdExecuted(&cad);
    for (unsigned i = 0; i < sel.GetNoEnts(); ++i) {
        veld::CEnt* ent = sel.GetEnt(i);
        ulo::IMemento* before = ent->CreateMemento();
        change(*ent);
        command->add(ent, before);
        ReflectEntModified(&cad, ent);
    }
    cad.AddChange(command);
    return sel.GetNoEnts();
}

}  // namespace

QString DraftingState(const CVELD& cad) {
    static const struct {
        unsigned bit;
        const char* name;
    } kinds[] = {{0x001, "End"}, {0x002, "Mid"},  {0x004, "Int"}, {0x010, "Cen"},  {0x020, "Quad"},
                 {0x040, "Tan"}, {0x080, "Perp"}, {0x100, "Ins"}, {0x200, "Conn"}, {0x400, "Near"}};
    constexpr unsigned kCoordinates = 0x20000;
    QString snap;
    if (!cad.IsOSnapperOn()) {
        snap = QStringLiteral("free drawing");
    } else if (cad.GetOSnapperMask() & kCoordinates) {
        snap = QStringLiteral("coordinates");
    } else {
        QStringList on;
        for (const auto& k : kinds)
            if (cad.GetOSnapperMask() & k.bit)
                on << QLatin1String(k.name);
        snap = on.isEmpty() ? QStringLiteral("none") : on.join(QStringLiteral(", "));
    }
    short system = 0;
    double base = 0;
    bool clockwise = false;
    GetAngleSystem(&cad, system, base, clockwise);
    return QStringLiteral("snap: %1 | %2")
        .arg(snap, system == 0 ? QStringLiteral("degrees") : QStringLiteral("gons"));
}

const std::vector<DemoOperation>& DemoOperations() {
    static const std::vector<DemoOperation> ops = {
        {"ShowDlgInsText", "Insert text...", true,
         [](DemoContext& c) {
             // At the cross-hair: where the pointer or a typed point left it.
             veld::CEntCollection ents;
             c.factory->ShowDlgInsText(c.parent, *c.cad, c.point, ents);
             if (ents.GetNoEnts() > 0)
                 c.cad->AddChange(new CInsertEntsCmdExecuted(c.cad, ents));
             return QStringLiteral("%1 text(s) inserted at %2")
                 .arg(ents.GetNoEnts())
                 .arg(point(c.point));
         }},
        {"ShowDlgOSnap", "Object snap...", true,
         [](DemoContext& c) {
             c.factory->ShowDlgOSnap(c.parent, *c.cad);
             return DraftingState(*c.cad);
         }},
        {"ShowDlSnapInsertPnt", "Go to point...", true,
         [](DemoContext& c) {
             const bool ok = c.factory->ShowDlSnapInsertPnt(c.parent, *c.cad, c.point);
             if (ok && c.view)
                 c.view->MoveCrossHairTo(c.point.x, c.point.y);
             return QStringLiteral("point %1: %2").arg(yesNo(ok), point(c.point));
         }},
        {"ShowDlgGridProp", "Grid and snap...", true,
         [](DemoContext& c) { return yesNo(c.factory->ShowDlgGridProp(c.view)); }},
        {"ShowDlgOptColors", "Window colours...", false,
         [](DemoContext& c) {
             c.factory->ShowDlgOptColors(c.parent, *c.cad);
             redrawAllViews(*c.cad);
             return QStringLiteral("window colours done");
         }},
        {"ShowDlgLayer", "Layers...", true,
         [](DemoContext& c) {
             c.factory->ShowDlgLayer(c.parent, *c.cad);
             return QStringLiteral("current layer %1")
                 .arg(GetCurLayer(c.cad)->GetName().ToQString());
         }},
        {"ShowDlgLtype", "Line types...", true,
         [](DemoContext& c) {
             c.factory->ShowDlgLtype(c.parent, *c.cad);
             return QStringLiteral("current line type %1, scale %2")
                 .arg(GetCurLtype(c.cad)->GetName().ToQString())
                 .arg(GetLtypeScale(c.cad));
         }},
        {"ShowDlgTextStyle", "Text styles...", false,
         [](DemoContext& c) {
             c.factory->ShowDlgTextStyle(c.parent, *c.cad);
             return QStringLiteral("current style %1")
                 .arg(GetCurStyle(c.cad)->GetName().ToQString());
         }},
        {"ShowDlgColor", "Colour...", true,
         [](DemoContext& c) {
             // The colour of the selected entities (-1 when they differ),
             // ByLayer when none is selected; a pick is given to them.
             const veld::CEntCollection& sel = c.cad->GetSelection();
             short start = sel.GetNoEnts() > 0 ? sel.GetEnt(0)->GetColor() : 256;
             short layerColour = sel.GetNoEnts() > 0 && sel.GetEnt(0)->GetLayer()
                                     ? short(sel.GetEnt(0)->GetLayer()->GetColor())
                                     : short(7);
             for (unsigned i = 1; i < sel.GetNoEnts(); ++i) {
                 if (sel.GetEnt(i)->GetColor() != start)
                     start = -1;
                 if (sel.GetEnt(i)->GetLayer() &&
                     sel.GetEnt(i)->GetLayer()->GetColor() != layerColour)
                     layerColour = 250;
             }
             short chosen = start;
             if (!c.factory->ShowDlgColor(c.parent, c.cad, start, layerColour, 7, true, chosen))
                 return QStringLiteral("colour cancelled");
             const QString named = QStringLiteral("colour %1 (%2)")
                                       .arg(chosen)
                                       .arg(veld::CColors::GetInstance()[chosen].ToQString());
             const unsigned changed =
                 changeSelection(*c.cad, [chosen](veld::CEnt& e) { e.SetColor(chosen); });
             return changed ? QStringLiteral("%1 given to %2 entities").arg(named).arg(changed)
                            : named + QStringLiteral(" chosen (select entities to colour them)");
         }},
        {"ShowDlgSelLtype", "Line type of selection...", true,
         [](DemoContext& c) {
             if (!c.selLtype)
                 return QStringLiteral("the library has no line type selection");
             // Preset: the line type of the selected entities when they share
             // one, else the drawing's current line type.
             const veld::CEntCollection& sel = c.cad->GetSelection();
             veld::CLtype* preset = sel.GetNoEnts() > 0 ? sel.GetEnt(0)->GetLtype() : nullptr;
             for (unsigned i = 1; i < sel.GetNoEnts(); ++i)
                 if (sel.GetEnt(i)->GetLtype() != preset)
                     preset = nullptr;
             if (!preset)
                 preset = GetCurLtype(c.cad);
             veld::CLtype* chosen = nullptr;
             if (c.selLtype(c.parent, c.cad, preset, &chosen) != 1 || !chosen)
                 return QStringLiteral("line type: nothing chosen");
             const unsigned changed =
                 changeSelection(*c.cad, [chosen](veld::CEnt& e) { e.SetLtype(chosen); });
             return QStringLiteral("line type %1 given to %2 entities")
                 .arg(chosen->GetName().ToQString())
                 .arg(changed);
         }},
        {"ShowDlgLoadLtype", "Load line types...", true,
         [](DemoContext& c) {
             if (!c.loadLtype)
                 return QStringLiteral("the library has no line type loading");
             veld::CHandleObjectVectorCollection created;
             if (c.loadLtype(c.cad, &created) != 1)
                 return QStringLiteral("line types: cancelled");
             if (created.GetNoElems() == 0)
                 return QStringLiteral("no new line types");
             // Into the drawing's table, as one command that Undo takes out.
             veld::CLtypeTable& table = c.cad->GetData()->GetLtypeTable();
             veld::CHandleObjectVectorCollection added, none;
             QStringList names;
             for (unsigned i = 0; i < created.GetNoElems(); ++i) {
                 auto* ltype = static_cast<veld::CLtype*>(created.GetObjectNo(i));
                 if (table.Add(ltype)) {
                     added.Add(ltype);
                     names << ltype->GetName().ToQString();
                 }
             }
             c.cad->AddChange(
                 new CPropLayerLtypeCmdExecuted(c.cad, GetCurLayer(c.cad), GetCurLtype(c.cad),
                                                GetLtypeScale(c.cad), none, none, added, none));
             return QStringLiteral("%1 line types added: %2")
                 .arg(added.GetNoElems())
                 .arg(names.join(QStringLiteral(", ")));
         }},
        {"ShowDlgOptCursor", "Cursor...", false,
         [](DemoContext& c) {
             c.factory->ShowDlgOptCursor(c.parent, *c.cad);
             return QStringLiteral("cursor size %1, pick size %2")
                 .arg(GetCrossDim(c.cad))
                 .arg(GetDeltaPick(c.cad));
         }},
        {"ShowDlgAngle", "Angle system...", true,
         [](DemoContext& c) {
             const bool ok = c.factory->ShowDlgAngle(c.parent, *c.cad);
             short system;
             double base;
             bool clockwise;
             GetAngleSystem(c.cad, system, base, clockwise);
             return QStringLiteral("angles %1: system %2").arg(yesNo(ok)).arg(system);
         }},
        {"ShowDlgHatch", "Hatch pattern...", false,
         [](DemoContext& c) {
             const veld::CHatchType* hatch = nullptr;
             const bool ok = c.factory->ShowDlgHatch(c.parent, &hatch);
             return QStringLiteral("hatch %1: %2")
                 .arg(yesNo(ok), hatch ? hatch->GetName().ToQString() : QStringLiteral("none"));
         }},
        {"ShowDlgDrawings", "Entity sets...", false,
         [](DemoContext& c) { return yesNo(c.factory->ShowDlgDrawings(c.parent, *c.cad)); }},
        {"ShowDlgProperty", "Entity properties...", false,
         [](DemoContext& c) {
             if (GetSelectedEntCollection(c.cad).GetNoEnts() == 0)
                 return QStringLiteral("select entities first (tap them in the view)");
             return yesNo(c.factory->ShowDlgProperty(c.parent, *c.cad, true));
         }},
        {"ShowDlgCalibraLineare", "Image calibration...", false,
         [](DemoContext& c) {
             CVELDImage* image = c.cad->GetImage(0);
             if (!image)
                 return QStringLiteral("the drawing has no image");
             return yesNo(c.factory->ShowDlgCalibraLineare(c.parent, *c.cad, image));
         }},
        {"GetDlgPasswordRequest", "Password request...", true,
         [](DemoContext& c) {
             std::unique_ptr<veld::IFileReaderPasswordRequest> req(
                 c.factory->GetDlgPasswordRequest(c.parent));
             ulo::WString password;
             const bool ok = req && req->RequestPassword(password, L"demo.veld");
             return QStringLiteral("password %1 (%2 characters)")
                 .arg(yesNo(ok))
                 .arg(password.Length());
         }},
        {"ShowDlgGetDouble", "Enter a value...", true,
         [](DemoContext& c) {
             double v = 12.5;
             const long r = c.factory->ShowDlgGetDouble(c.parent, L"Height", v, false, false, true);
             return QStringLiteral("value: result %1, %2").arg(r).arg(v);
         }},
        {"ShowDlgGetString", "Enter a text...", true,
         [](DemoContext& c) {
             ulo::WString text(L"Survey point");
             const bool ok = c.factory->ShowDlgGetString(c.parent, L"Name", L"Insert value:", text);
             return QStringLiteral("text %1: \"%2\"").arg(yesNo(ok), text.ToQString());
         }},
        {"ShowDlgRotate", "Rotation...", true,
         [](DemoContext& c) {
             double angle = 0;
             const long r = c.factory->ShowDlgRotate(c.parent, angle);
             return QStringLiteral("rotation: result %1, angle %2").arg(r).arg(angle);
         }},
    };
    return ops;
}
