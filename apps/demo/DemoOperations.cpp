#include "DemoOperations.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QStringList>
#include <functional>

#include "app/ChangeEntitiesCmdExecuted.h"
#include "app/InsertEntsCmdExecuted.h"
#include "app/PropLayerLtypeCmdExecuted.h"
#include "app/VELD.h"
#include "app/view/VELDView.h"
#include "automation/OperationCatalogue.h"
#include "ulo/NumberText.h"
#include "veld/Colors.h"
#include "veld/Data.h"
#include "veld/EntCollection.h"

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

/// The point as the arguments x, y and z, exactly.
void pointArgs(catalogue::Call& call, const ulo::geom::PNT_3D& p) {
    const std::pair<const char*, double> xyz[] = {{"x", p.x}, {"y", p.y}, {"z", p.z}};
    for (const auto& [name, value] : xyz)
        call.args.insert(QLatin1String(name), QString::fromStdWString(ulo::ExactText(value)));
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

namespace {

const QHash<QString, DemoUse>& demoUses() {
    using catalogue::Call;
    static const QHash<QString, DemoUse> uses = {
        {QStringLiteral("ShowDlgInsText"),
         {[](DemoContext& c, Call& call) {
              // At the cross-hair: where the pointer or a typed point left it.
              pointArgs(call, c.point);
              return QString();
          },
          [](DemoContext& c, Call& call, const QJsonValue&) {
              if (call.texts.GetNoEnts() > 0)
                  c.cad->AddChange(new CInsertEntsCmdExecuted(c.cad, call.texts));
              return QStringLiteral("%1 text(s) inserted at %2")
                  .arg(call.texts.GetNoEnts())
                  .arg(point(c.point));
          }}},
        {QStringLiteral("ShowDlgOSnap"),
         {nullptr, [](DemoContext& c, Call&, const QJsonValue&) { return DraftingState(*c.cad); }}},
        {QStringLiteral("ShowDlSnapInsertPnt"),
         {[](DemoContext& c, Call& call) {
              pointArgs(call, c.point);
              return QString();
          },
          [](DemoContext& c, Call& call, const QJsonValue& ok) {
              const ulo::geom::PNT_3D p{call.numbers.value(QStringLiteral("x")),
                                        call.numbers.value(QStringLiteral("y")),
                                        call.numbers.value(QStringLiteral("z"))};
              if (ok.toBool() && c.view)
                  c.view->MoveCrossHairTo(p.x, p.y);
              return QStringLiteral("point %1: %2").arg(yesNo(ok.toBool()), point(p));
          }}},
        {QStringLiteral("ShowDlgLayer"),
         {nullptr,
          [](DemoContext& c, Call&, const QJsonValue&) {
              return QStringLiteral("current layer %1")
                  .arg(GetCurLayer(c.cad)->GetName().ToQString());
          }}},
        {QStringLiteral("ShowDlgLtype"),
         {nullptr,
          [](DemoContext& c, Call&, const QJsonValue&) {
              return QStringLiteral("current line type %1, scale %2")
                  .arg(GetCurLtype(c.cad)->GetName().ToQString())
                  .arg(GetLtypeScale(c.cad));
          }}},
        {QStringLiteral("ShowDlgTextStyle"),
         {nullptr,
          [](DemoContext& c, Call&, const QJsonValue&) {
              return QStringLiteral("current style %1")
                  .arg(GetCurStyle(c.cad)->GetName().ToQString());
          }}},
        {QStringLiteral("ShowDlgColor"),
         {[](DemoContext& c, Call& call) {
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
              call.args.insert(QStringLiteral("start"), QString::number(start));
              call.args.insert(QStringLiteral("byLayer"), QString::number(layerColour));
              return QString();
          },
          [](DemoContext& c, Call& call, const QJsonValue& ok) {
              if (!ok.toBool())
                  return QStringLiteral("colour cancelled");
              const auto chosen = static_cast<short>(call.numbers.value(QStringLiteral("chosen")));
              const QString named = QStringLiteral("colour %1 (%2)")
                                        .arg(chosen)
                                        .arg(veld::CColors::GetInstance()[chosen].ToQString());
              const unsigned changed =
                  changeSelection(*c.cad, [chosen](veld::CEnt& e) { e.SetColor(chosen); });
              return changed ? QStringLiteral("%1 given to %2 entities").arg(named).arg(changed)
                             : named + QStringLiteral(" chosen (select entities to colour them)");
          }}},
        {QStringLiteral("ShowDlgSelLtype"),
         {[](DemoContext& c, Call& call) {
              // Preset: the line type of the selected entities when they share
              // one, else the drawing's current line type.
              const veld::CEntCollection& sel = c.cad->GetSelection();
              veld::CLtype* preset = sel.GetNoEnts() > 0 ? sel.GetEnt(0)->GetLtype() : nullptr;
              for (unsigned i = 1; i < sel.GetNoEnts(); ++i)
                  if (sel.GetEnt(i)->GetLtype() != preset)
                      preset = nullptr;
              if (preset)
                  call.args.insert(QStringLiteral("preset"), preset->GetName().ToQString());
              return QString();
          },
          [](DemoContext& c, Call& call, const QJsonValue& code) {
              const QString name = call.out.value(QStringLiteral("chosen")).toString();
              veld::CLtype* chosen =
                  c.cad->GetData()->GetLtypeTable().Find(ulo::WString::FromQString(name));
              if (code.toInt() != 1 || name.isEmpty() || !chosen)
                  return QStringLiteral("line type: nothing chosen");
              const unsigned changed =
                  changeSelection(*c.cad, [chosen](veld::CEnt& e) { e.SetLtype(chosen); });
              return QStringLiteral("line type %1 given to %2 entities").arg(name).arg(changed);
          }}},
        {QStringLiteral("ShowDlgLoadLtype"),
         {nullptr,
          [](DemoContext& c, Call& call, const QJsonValue& code) {
              if (code.toInt() != 1)
                  return QStringLiteral("line types: cancelled");
              if (call.ltypes.GetNoElems() == 0)
                  return QStringLiteral("no new line types");
              // Into the drawing's table, as one command that Undo takes out.
              veld::CLtypeTable& table = c.cad->GetData()->GetLtypeTable();
              veld::CHandleObjectVectorCollection added, none;
              QStringList names;
              for (unsigned i = 0; i < call.ltypes.GetNoElems(); ++i) {
                  auto* ltype = static_cast<veld::CLtype*>(call.ltypes.GetObjectNo(i));
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
          }}},
        {QStringLiteral("ShowDlgOptCursor"),
         {nullptr,
          [](DemoContext& c, Call&, const QJsonValue&) {
              return QStringLiteral("cursor size %1, pick size %2")
                  .arg(GetCrossDim(c.cad))
                  .arg(GetDeltaPick(c.cad));
          }}},
        {QStringLiteral("ShowDlgProperty"),
         {[](DemoContext& c, Call&) {
              return GetSelectedEntCollection(c.cad).GetNoEnts() == 0
                         ? QStringLiteral("select entities first (tap them in the view)")
                         : QString();
          },
          nullptr}},
        {QStringLiteral("GetDlgPasswordRequest"),
         {nullptr,
          [](DemoContext&, Call& call, const QJsonValue& ok) {
              return QStringLiteral("password %1 (%2 characters)")
                  .arg(yesNo(ok.toBool()))
                  .arg(call.out.value(QStringLiteral("password")).toString().size());
          }}},
        {QStringLiteral("ShowDlgGetDouble"),
         {[](DemoContext&, Call& call) {
              call.args = {{QStringLiteral("title"), QStringLiteral("Height")},
                           {QStringLiteral("value"), QStringLiteral("12.5")},
                           {QStringLiteral("allowNegative"), QStringLiteral("0")},
                           {QStringLiteral("allowZero"), QStringLiteral("0")}};
              return QString();
          },
          nullptr}},
        {QStringLiteral("ShowDlgGetString"),
         {[](DemoContext&, Call& call) {
              call.args = {{QStringLiteral("caption"), QStringLiteral("Name")},
                           {QStringLiteral("text"), QStringLiteral("Survey point")}};
              return QString();
          },
          nullptr}},
    };
    return uses;
}

}  // namespace

DemoUse DemoUseOf(const catalogue::Operation& operation) {
    return demoUses().value(QLatin1String(operation.name));
}

QString ReportLine(const catalogue::Call& call, const QJsonValue& result) {
    // A value as JSON writes it: the one member of an array, brackets cut.
    const auto shown = [](const QJsonValue& v) {
        return QString::fromUtf8(QJsonDocument(QJsonArray{v}).toJson(QJsonDocument::Compact))
            .mid(1)
            .chopped(1);
    };
    QStringList parts{QStringLiteral("result ") + shown(result)};
    for (auto it = call.out.begin(); it != call.out.end(); ++it)
        parts << it.key() + QLatin1Char(' ') + shown(it.value());
    for (auto it = call.numbers.begin(); it != call.numbers.end(); ++it)
        parts << it.key() + QLatin1Char(' ') + QString::number(it.value());
    return parts.join(QStringLiteral(", "));
}
