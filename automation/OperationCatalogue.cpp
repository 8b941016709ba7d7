#include "OperationCatalogue.h"

#include <QJsonArray>
#include <initializer_list>
#include <memory>
#include <utility>

#include "ScriptNumbers.h"
#include "app/Grid.h"
#include "app/VELD.h"
#include "app/view/VELDView.h"
#include "app/view/ViewAccess.h"
#include "factory/IVELDDlgFactory.h"
#include "res/templates/ControlIds.h"
#include "ulo/Geom.h"
#include "veld/Data.h"
#include "veld/Ent.h"
#include "veld/FileReaderPasswordRequest.h"
#include "veld/HatchType.h"
#include "veld/Ltype.h"
#include "veld/Style.h"

namespace catalogue {

template <class T, class Reader>
T Call::Read(const QString& name, std::optional<T> fallback, Reader reader) {
    // Called for every argument of every call (the dialog-opening benchmark
    // counts it): nothing is allocated unless something is wrong. An entry
    // takes a handful of arguments; past the 64th none is marked read.
    const Argument* declared = nullptr;
    if (operation)
        for (std::size_t i = 0; i < operation->arguments.size() && !declared; ++i)
            if (name == QLatin1String(operation->arguments[i].name)) {
                declared = &operation->arguments[i];
                if (i < 64)
                    read |= std::uint64_t(1) << i;
            }
    const auto entry = [this] {
        return QLatin1String(operation ? operation->name : "the operation");
    };
    QString why;
    std::optional<T> v;
    if (!declared)
        why = QStringLiteral("%1 does not declare it").arg(entry());
    else if (const auto given = args.constFind(name); given != args.cend())
        v = reader(*given, why);
    else if (fallback)
        v = fallback;
    else if (declared->value)
        v = reader(QString::fromLatin1(declared->value), why);
    else
        why = QStringLiteral("%1 gives it no default").arg(entry());
    if (!v && error.isEmpty())
        error = QStringLiteral("argument %1: %2").arg(name, why);
    return v.value_or(fallback.value_or(T()));
}

bool Call::ReadEveryArgument() const {
    const std::size_t n = operation ? operation->arguments.size() : 0;
    return read == (n >= 64 ? ~std::uint64_t(0) : (std::uint64_t(1) << n) - 1);
}

double Call::Number(const QString& name, std::optional<double> fallback) {
    return numberInputs[name] = Read(name, fallback, automation::ReadDouble);
}

short Call::Short(const QString& name, std::optional<short> fallback) {
    const short v = Read(name, fallback, automation::ReadShort);
    numberInputs.insert(name, v);
    return v;
}

int Call::Int(const QString& name, std::optional<int> fallback) {
    const int v = Read(name, fallback, automation::ReadInt);
    numberInputs.insert(name, v);
    return v;
}

bool Call::Flag(const QString& name) {
    return Read(name, std::optional<bool>(), automation::ReadBool);
}

QString Call::Text(const QString& name) {
    const QString v = Read(name, std::optional<QString>(),
                           [](const QString& text, QString&) { return std::optional(text); });
    textInputs.insert(name, v);
    return v;
}

CVELD* Call::CAD() {
    if (ArgumentsOk() && !cad)
        error = QStringLiteral("this operation needs a drawing");
    return ArgumentsOk() ? cad : nullptr;
}

CVELDView* Call::View() {
    if (ArgumentsOk() && !view)
        error = QStringLiteral("this operation needs a view");
    return ArgumentsOk() ? view : nullptr;
}

QJsonValue Operation::Run(Call& c) const {
    c.operation = this;
    return run(c);
}

QString Operation::Refuse(const QMap<QString, QString>& args) const {
    QStringList names;
    for (const Argument& a : arguments)
        names << QLatin1String(a.name);
    for (auto it = args.begin(); it != args.end(); ++it)
        if (!names.contains(it.key()))
            return QStringLiteral("argument %1: not an argument of %2 (it takes %3)")
                .arg(it.key(), QLatin1String(name),
                     names.isEmpty() ? QStringLiteral("none") : names.join(QStringLiteral(", ")));
    return {};
}

std::vector<Picture> Operation::Pictures() const {
    return pictures.empty() ? std::vector<Picture>{{name, {}}} : pictures;
}

namespace {

/// Calls an operation that works on the drawing and returns nothing.
template <void (IVELDDlgFactory::*op)(CWnd*, CVELD&)>
QJsonValue onDrawing(Call& c) {
    if (CVELD* cad = c.CAD())
        (c.factory->*op)(c.parent, *cad);
    return QJsonValue();
}

/// Calls an operation that works on the drawing and answers OK or not.
template <bool (IVELDDlgFactory::*op)(CWnd*, CVELD&)>
QJsonValue onDrawingBool(Call& c) {
    CVELD* cad = c.CAD();
    return cad ? QJsonValue((c.factory->*op)(c.parent, *cad)) : QJsonValue();
}

ulo::geom::PNT_3D pointArgs(Call& c) {
    return {c.Number(QStringLiteral("x")), c.Number(QStringLiteral("y")),
            c.Number(QStringLiteral("z"))};
}

void pointOut(Call& c, const ulo::geom::PNT_3D& p) {
    c.numbers.insert(QStringLiteral("x"), p.x);
    c.numbers.insert(QStringLiteral("y"), p.y);
    c.numbers.insert(QStringLiteral("z"), p.z);
}

const std::vector<Argument> kPoint = {{"x", "0"}, {"y", "0"}, {"z", "0"}};

QJsonValue insText(Call& c) {
    ulo::geom::PNT_3D point = pointArgs(c);
    CVELD* cad = c.CAD();
    if (!cad)
        return QJsonValue();
    c.factory->ShowDlgInsText(c.parent, *cad, point, c.texts);
    // The texts belong to the caller, who would insert them; they are
    // reported, not inserted.
    QJsonArray texts;
    for (unsigned i = 0; i < c.texts.GetNoEnts(); ++i) {
        const auto* t = dynamic_cast<const veld::CEntText*>(c.texts.GetEnt(i));
        if (!t)
            continue;
        const veld::TEXT_3D text = t->GetText();
        const veld::CTextContext& context = text.GetContext();
        texts.append(
            QJsonObject{{QStringLiteral("text"), context.GetString().ToQString()},
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
}

QJsonValue osnap(Call& c) {
    CVELD* cad = c.CAD();
    if (!cad)
        return QJsonValue();
    c.factory->ShowDlgOSnap(c.parent, *cad);
    c.out.insert(QStringLiteral("on"), cad->IsOSnapperOn());
    c.numbers.insert(QStringLiteral("mask"), cad->GetOSnapperMask());
    return QJsonValue();
}

QJsonValue snapInsertPoint(Call& c) {
    ulo::geom::PNT_3D point = pointArgs(c);
    CVELD* cad = c.CAD();
    if (!cad)
        return QJsonValue();
    const bool ok = c.factory->ShowDlSnapInsertPnt(c.parent, *cad, point);
    pointOut(c, point);
    return ok;
}

QJsonValue gridProp(Call& c) {
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
}

QJsonValue color(Call& c) {
    const short start = c.Short(QStringLiteral("start"));
    const short byLayer = c.Short(QStringLiteral("byLayer"));
    const short byBlock = c.Short(QStringLiteral("byBlock"));
    short chosen = c.Short(QStringLiteral("chosen"), start);
    const bool logical = c.Flag(QStringLiteral("logical"));
    if (!c.ArgumentsOk())
        return QJsonValue();
    const bool ok =
        c.factory->ShowDlgColor(c.parent, c.cad, start, byLayer, byBlock, logical, chosen);
    c.numbers.insert(QStringLiteral("chosen"), chosen);
    return ok;
}

// The two line type pickers are entries of the library of their own (the
// layer and line type dialogs run them); the result is the code the dialog
// ended with.
QJsonValue selLtype(Call& c) {
    CVELD* cad = c.CAD();
    if (!cad)
        return QJsonValue();
    if (!c.selLtype) {
        c.error = QStringLiteral("the library has no line type selection");
        return QJsonValue();
    }
    veld::CLtype* preset = GetCurLtype(cad);
    if (const QString name = c.Text(QStringLiteral("preset")); !name.isEmpty()) {
        preset = cad->GetData()->GetLtypeTable().Find(ulo::WString::FromQString(name));
        if (!preset) {
            c.error = QStringLiteral("the drawing has no line type \"%1\"").arg(name);
            return QJsonValue();
        }
    }
    veld::CLtype* chosen = nullptr;
    const int r = c.selLtype(c.parent, cad, preset, &chosen);
    c.out.insert(QStringLiteral("chosen"),
                 chosen ? QJsonValue(chosen->GetName().ToQString()) : QJsonValue());
    return r;
}

QJsonValue loadLtype(Call& c) {
    CVELD* cad = c.CAD();
    if (!cad)
        return QJsonValue();
    if (!c.loadLtype) {
        c.error = QStringLiteral("the library has no line type loading");
        return QJsonValue();
    }
    const int r = c.loadLtype(cad, &c.ltypes);
    // Reported, not added: adding is the caller's part.
    QJsonArray names;
    for (unsigned i = 0; i < c.ltypes.GetNoElems(); ++i)
        names.append(static_cast<veld::CLtype*>(c.ltypes.GetObjectNo(i))->GetName().ToQString());
    c.out.insert(QStringLiteral("created"), names);
    return r;
}

QJsonValue angle(Call& c) {
    CVELD* cad = c.CAD();
    if (!cad)
        return QJsonValue();
    const bool ok = c.factory->ShowDlgAngle(c.parent, *cad);
    short system = 0;
    double base = 0;
    bool clockwise = false;
    GetAngleSystem(cad, system, base, clockwise);
    c.numbers.insert(QStringLiteral("system"), system);
    c.numbers.insert(QStringLiteral("base"), base);
    c.out.insert(QStringLiteral("clockwise"), clockwise);
    return ok;
}

QJsonValue hatch(Call& c) {
    // A legacy hatch number (-1..67); -2 for none.
    const int number = c.Int(QStringLiteral("hatch"));
    if (!c.ArgumentsOk())
        return QJsonValue();
    const veld::CHatchType* hatch =
        veld::CHatchTypeProvider::GetInstance()->GetLegacyHatchType(number);
    const bool ok = c.factory->ShowDlgHatch(c.parent, &hatch);
    c.numbers.insert(QStringLiteral("hatch"), hatch ? hatch->GetLegacyNumber() : -2);
    return ok;
}

QJsonValue property(Call& c) {
    const bool undoable = c.Flag(QStringLiteral("undoable"));
    CVELD* cad = c.CAD();
    return cad ? QJsonValue(c.factory->ShowDlgProperty(c.parent, *cad, undoable)) : QJsonValue();
}

QJsonValue calibration(Call& c) {
    const int index = c.Int(QStringLiteral("image"));
    CVELD* cad = c.CAD();
    if (!cad)
        return QJsonValue();
    CVELDImage* image = cad->GetImage(index);
    if (!image) {
        c.error = QStringLiteral("the drawing has no image %1").arg(index);
        return QJsonValue();
    }
    return c.factory->ShowDlgCalibraLineare(c.parent, *cad, image);
}

QJsonValue password(Call& c) {
    // Shows the password dialog as the drawing reader would, then, with
    // retry=1, the question after a wrong password.
    const bool retry = c.Flag(QStringLiteral("retry"));
    if (!c.ArgumentsOk())
        return QJsonValue();
    std::unique_ptr<veld::IFileReaderPasswordRequest> req(
        c.factory->GetDlgPasswordRequest(c.parent));
    if (!req)
        return QJsonValue();
    ulo::WString password;
    const bool ok = req->RequestPassword(password, L"drawing");
    c.out.insert(QStringLiteral("password"), ok ? QJsonValue(password.ToQString()) : QJsonValue());
    if (retry)
        c.out.insert(QStringLiteral("retry"), req->AskRetry(L"drawing"));
    return ok;
}

QJsonValue getDouble(Call& c) {
    double value = c.Number(QStringLiteral("value"));
    const std::wstring title = c.Text(QStringLiteral("title")).toStdWString();
    const bool negative = c.Flag(QStringLiteral("allowNegative"));
    const bool zero = c.Flag(QStringLiteral("allowZero"));
    const bool positive = c.Flag(QStringLiteral("allowPositive"));
    if (!c.ArgumentsOk())
        return QJsonValue();
    const long r =
        c.factory->ShowDlgGetDouble(c.parent, title.c_str(), value, negative, zero, positive);
    c.numbers.insert(QStringLiteral("value"), value);
    return static_cast<int>(r);
}

QJsonValue rotate(Call& c) {
    double angle = c.Number(QStringLiteral("angle"));
    if (!c.ArgumentsOk())
        return QJsonValue();
    const long r = c.factory->ShowDlgRotate(c.parent, angle);
    c.numbers.insert(QStringLiteral("angle"), angle);
    return static_cast<int>(r);
}

QJsonValue getString(Call& c) {
    ulo::WString result = ulo::WString::FromQString(c.Text(QStringLiteral("text")));
    const ulo::WString caption = ulo::WString::FromQString(c.Text(QStringLiteral("caption")));
    const ulo::WString prompt = ulo::WString::FromQString(c.Text(QStringLiteral("prompt")));
    const bool ok = c.factory->ShowDlgGetString(c.parent, caption, prompt, result);
    c.out.insert(QStringLiteral("text"), result.ToQString());
    return ok;
}

}  // namespace

namespace {

namespace ctl = veld5::ctl;

/// A picture's steps with the controls' ids in place of %1, %2...
QString Steps(const char* steps, std::initializer_list<unsigned> ids) {
    QString text = QString::fromUtf8(steps);
    for (unsigned id : ids)
        text = text.arg(id);
    return text;
}

}  // namespace

// The picture steps name controls by their names; veld-play reads the numbers.
const std::vector<Operation>& Operations() {
    static const std::vector<Operation> ops = {
        {.name = "ShowDlgInsText",
         .label = "Insert text...",
         .arguments = kPoint,
         .run = insText,
         .pictureArguments = {{"x", "40"}, {"y", "25"}},
         .pictures = {{"ins-text", Steps("type %1 \"PLOT 12\"\ntype %2 \"Survey 2026\"",
                                         {ctl::InsText::kLine1, ctl::InsText::kLine2})}}},
        {.name = "ShowDlgOSnap",
         .label = "Object snap...",
         .run = osnap,
         .settings = {"settings/osnapOn", "settings/osnapMask"},
         .pictures = {{"osnap", {}}}},
        {.name = "ShowDlSnapInsertPnt",
         .label = "Go to point...",
         .arguments = kPoint,
         .run = snapInsertPoint,
         .pictureArguments = {{"x", "1250.5"}, {"y", "-310.25"}, {"z", "12"}},
         .pictures = {{"snap-point", {}}}},
        {.name = "ShowDlgGridProp",
         .label = "Grid and snap...",
         .run = gridProp,
         .pictures = {{"grid-snap", {}}, {"grid-grid", Steps("tab %1 1", {ctl::GridSnap::kTabs})}}},
        {.name = "ShowDlgOptColors",
         .label = "Window colours...",
         .run = onDrawing<&IVELDDlgFactory::ShowDlgOptColors>,
         .settings = {"settings/colors", "session/colorSelected"}},
        {.name = "ShowDlgLayer",
         .label = "Layers...",
         .run = onDrawing<&IVELDDlgFactory::ShowDlgLayer>,
         .pictures = {{"layers", Steps("tap %1 4 3\ntap %1 4 3", {ctl::Layers::kList})}}},
        {.name = "ShowDlgLtype",
         .label = "Line types...",
         .run = onDrawing<&IVELDDlgFactory::ShowDlgLtype>,
         .pictures = {{"ltypes", Steps("tap %1 12 0", {ctl::Ltypes::kList})}}},
        {.name = "ShowDlgTextStyle",
         .label = "Text styles...",
         .run = onDrawing<&IVELDDlgFactory::ShowDlgTextStyle>},
        {.name = "ShowDlgColor",
         .label = "Colour...",
         .arguments = {{"start", "1"},
                       {"byLayer", "7"},
                       {"byBlock", "7"},
                       {"logical", "1"},
                       {"chosen", nullptr}},
         .run = color,
         .pictureArguments = {{"start", "256"}, {"byLayer", "3"}},
         .pictures = {{"color", Steps("press %1 0.3 0.5", {ctl::Color::kPaletteEven})}}},
        {.name = "ShowDlgSelLtype",
         .label = "Line type of selection...",
         .arguments = {{"preset", ""}},
         .run = selLtype,
         .pictureArguments = {{"preset", "GAS_LINE"}},
         .pictures = {{"sel-ltype", {}}}},
        {.name = "ShowDlgLoadLtype",
         .label = "Load line types...",
         .run = loadLtype,
         .pictures = {{"load-ltype", Steps("check %1 1\nkey %1 Down", {ctl::LtypeLoad::kGrid})}}},
        {.name = "ShowDlgOptCursor",
         .label = "Cursor...",
         .run = onDrawing<&IVELDDlgFactory::ShowDlgOptCursor>,
         .settings = {"settings/crossDim", "settings/deltaPick", "session/cursor"}},
        {.name = "ShowDlgAngle",
         .label = "Angle system...",
         .run = angle,
         .settings = {"settings/angleSystem", "settings/angleBase", "settings/angleClockwise"},
         .pictures = {{"angle", {}}}},
        {.name = "ShowDlgHatch",
         .label = "Hatch pattern...",
         .arguments = {{"hatch", "-2"}},
         .run = hatch},
        {.name = "ShowDlgDrawings",
         .label = "Entity sets...",
         .run = onDrawingBool<&IVELDDlgFactory::ShowDlgDrawings>},
        {.name = "ShowDlgProperty",
         .label = "Entity properties...",
         .arguments = {{"undoable", "1"}},
         .run = property,
         .randomArguments = {{"undoable", "1"}}},
        {.name = "ShowDlgCalibraLineare",
         .label = "Image calibration...",
         .arguments = {{"image", "0"}},
         .run = calibration},
        {.name = "GetDlgPasswordRequest",
         .label = "Password request...",
         .arguments = {{"retry", "0"}},
         .run = password,
         .pictures = {{"password", {}}}},
        {.name = "ShowDlgGetDouble",
         .label = "Enter a value...",
         .arguments = {{"title", ""},
                       {"value", "0"},
                       {"allowNegative", "1"},
                       {"allowZero", "1"},
                       {"allowPositive", "1"}},
         .run = getDouble,
         .randomArguments = {{"allowNegative", "*"},
                             {"allowZero", "*"},
                             {"allowPositive", "*"},
                             {"value", "12.5"}},
         .pictureArguments = {{"title", "Height"}, {"value", "12.5"}},
         .pictures = {{"get-double", {}}}},
        {.name = "ShowDlgGetString",
         .label = "Enter a text...",
         .arguments = {{"caption", "Enter..."}, {"prompt", "Insert value:"}, {"text", ""}},
         .run = getString,
         .randomArguments = {{"text", "Survey point"}},
         .pictureArguments = {{"caption", "Point name"}, {"text", "P101"}},
         .pictures = {{"get-string", {}}}},
        {.name = "ShowDlgRotate",
         .label = "Rotation...",
         .arguments = {{"angle", "0"}},
         .run = rotate,
         .randomArguments = {{"angle", "-0.75"}},
         .pictureArguments = {{"angle", "30"}},
         .pictures = {{"rotate", {}}}},
    };
    return ops;
}

const Operation* Find(const QString& name) {
    for (const Operation& op : Operations())
        if (name == QLatin1String(op.name))
            return &op;
    return nullptr;
}

QStringList Names() {
    QStringList names;
    for (const Operation& op : Operations())
        names << QLatin1String(op.name);
    return names;
}

}  // namespace catalogue
