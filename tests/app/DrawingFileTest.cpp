// JSON keys and values in this file are ASCII literals: let them convert.
#undef QT_NO_CAST_FROM_ASCII
// Drawing files: the sample drawing survives save and load, plain and sealed;
// damaged and hand-edited files are refused with a message naming the fault
// and the open drawing stays as it was.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtEndian>
#include <functional>

#include "app/DrawingFile.h"
#include "app/SampleDrawing.h"
#include "app/VELD.h"
#include "app/view/VELDView.h"

namespace {

/// Answers the password questions from a list (null: cancel); never retries.
class ScriptedPasswords : public veld::IFileReaderPasswordRequest {
public:
    explicit ScriptedPasswords(std::vector<const wchar_t*> answers)
        : answers_(std::move(answers)) {}
    bool RequestPassword(ulo::WString& password, const ulo::WString&) override {
        calls += "ask ";
        if (next_ >= answers_.size() || !answers_[next_]) {
            ++next_;
            return false;
        }
        password = answers_[next_++];
        return true;
    }
    bool AskRetry(const ulo::WString&) override {
        calls += "retry ";
        return false;
    }
    std::string calls;

private:
    std::vector<const wchar_t*> answers_;
    size_t next_ = 0;
};

QByteArray sampleJson() {
    CVELD cad;
    BuildSampleDrawing(cad);
    return drawingfile::Write(cad);
}

QString path(const QTemporaryDir& dir, const char* name) {
    return dir.filePath(QString::fromLatin1(name));
}

void writeFile(const QString& file, const QByteArray& bytes) {
    QFile f(file);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(bytes);
}

/// @p node with the value at @p path set to @p value, or removed when that is undefined.
QJsonValue with(const QJsonValue& node, const QStringList& path, const QJsonValue& value) {
    const QStringList rest = path.mid(1);
    if (node.isArray()) {
        QJsonArray a = node.toArray();
        const int i = path.front().toInt();
        if (!rest.isEmpty())
            a[i] = with(a[i], rest, value);
        else if (value.isUndefined())
            a.removeAt(i);
        else
            a[i] = value;
        return a;
    }
    QJsonObject o = node.toObject();
    if (!rest.isEmpty())
        o[path.front()] = with(o[path.front()], rest, value);
    else if (value.isUndefined())
        o.remove(path.front());
    else
        o[path.front()] = value;
    return o;
}

/// A change made to a drawing document by hand.
using Edit = std::function<void(QJsonObject&)>;

/// Sets the value at a slash-separated @p path ("layers/1/ltype"), or removes it.
Edit set(const char* path, const QJsonValue& value = QJsonValue(QJsonValue::Undefined)) {
    return [=](QJsonObject& root) {
        root = with(root, QString::fromLatin1(path).split('/'), value).toObject();
    };
}

/// Appends @p count views, each with its own preset and a grid the writer
/// writes back as it is.
Edit addViews(int count) {
    const QJsonObject grid = QJsonDocument::fromJson(
                                 R"({"gridOn": true, "gridBySnap": false, "gridEast": 5,
                                     "gridNorth": 2.5, "snapOn": true, "baseEast": 1,
                                     "baseNorth": 2, "snapEast": 0.5, "snapNorth": 0.25,
                                     "snapAngle": 0.5})")
                                 .object();
    return [=](QJsonObject& root) {
        QJsonArray views = root["views"].toArray();
        for (int i = 0; i < count; ++i)
            views.append(QJsonObject{{"preset", 3 + i}, {"grid", grid}});
        root["views"] = views;
    };
}

}  // namespace

TEST(SampleDrawing, HoldsWhatTheDialogsNeedToShow) {
    CVELD cad;
    BuildSampleDrawing(cad);
    veld::CData* data = cad.GetData();
    unsigned frozen = 0, locked = 0, off = 0, xref = 0, priv = 0;
    for (unsigned i = 0; i < data->GetLayerTable().GetNoItems(); ++i) {
        const veld::CLayer* l = data->GetLayerTable().GetNo(i);
        frozen += l->IsFrozen();
        locked += l->IsLocked();
        off += l->IsOff();
        xref += l->IsXRef();
        priv += l->IsPrivate();
    }
    EXPECT_GE(data->GetLayerTable().GetNoItems(), 8u);
    EXPECT_TRUE(frozen && locked && off && xref && priv);

    unsigned withText = 0;
    for (unsigned i = 0; i < data->GetLtypeTable().GetNoItems(); ++i) {
        const veld::CLtype* t = data->GetLtypeTable().GetNo(i);
        for (unsigned j = 0; j < t->GetNoDashes(); ++j)
            withText += t->GetDash(j)->GetText() != nullptr;
    }
    EXPECT_GE(data->GetLtypeTable().GetNoItems(), 15u);  // a dozen beside the three built in
    EXPECT_GE(withText, 3u);

    bool trueType = false, shapeFont = false;
    for (unsigned i = 0; i < data->GetStyleTable().GetNoItems(); ++i) {
        const veld::ICADFont* f = data->GetStyleTable().GetNo(i)->GetFont();
        (f->IsTrueType() ? trueType : shapeFont) = true;
    }
    EXPECT_GE(data->GetStyleTable().GetNoItems(), 3u);
    EXPECT_TRUE(trueType && shapeFont);

    const veld::CDrawingManager* sets = data->GetDrawingManager();
    bool hidden = false;
    for (unsigned i = 0; i < sets->GetNoDrawings(); ++i)
        hidden |= sets->GetDrawingAtPos(i)->IsHidden();
    EXPECT_TRUE(hidden);
    ASSERT_NE(sets->GetActiveDrawing(0), nullptr);
    ASSERT_NE(sets->GetActiveDrawing(1), nullptr);
    EXPECT_GT(sets->GetActiveDrawing(0)->GetEntTable()->GetNoEnts(), 20u);
    EXPECT_GT(sets->GetActiveDrawing(1)->GetEntTable()->GetNoEnts(), 20u);
    EXPECT_GE(data->GetEntTable().GetNoEnts(), 100u);
    EXPECT_EQ(cad.GetNoImages(), 1);
}

TEST(DrawingFile, SaveAndLoadGiveTheSameDrawingPlainAndSealed) {
    QTemporaryDir dir;
    CVELD cad;
    BuildSampleDrawing(cad);
    SetAngleSystem(&cad, 2, 0.5, true);
    SetLtypeScale(&cad, 2.5);
    cad.SetOSnapper(true, 0x25);
    // Placed before its picture is loaded: the reader refuses an empty picture.
    cad.AddImage(std::make_unique<CVELDImage>(QStringLiteral("Sketch"), nullptr, 0.5, 10, 20));
    const QByteArray before = drawingfile::Write(cad);

    for (const char* password : {"", "s3cret pass"}) {
        QString error;
        const QString file = path(dir, *password ? "sealed.veld" : "plain.veld");
        ASSERT_TRUE(drawingfile::Save(cad, file, QString::fromLatin1(password), error))
            << error.toStdString();
        CVELD other;
        ScriptedPasswords request({L"s3cret pass"});
        ASSERT_TRUE(drawingfile::Load(other, file, &request, error)) << error.toStdString();
        EXPECT_EQ(drawingfile::Write(other), before) << password;
        EXPECT_EQ(request.calls, *password ? "ask " : "") << password;

        QFile raw(file);
        ASSERT_TRUE(raw.open(QIODevice::ReadOnly));
        const QByteArray bytes = raw.readAll();
        EXPECT_EQ(bytes.contains("Building A"), !*password) << "a sealed file shows no plaintext";
        EXPECT_FALSE(bytes.contains("s3cret")) << "nor the password";
    }
}

TEST(DrawingFile, LoadingTheSameFileTwiceGivesTheSameObjectsInTableOrder) {
    // A file keeps the table order as it stands, built-in items included:
    // here layer 0 comes after WALLS (the emptied table took a new order).
    CVELD cad;
    veld::CLayer* zero = cad.GetData()->GetLayerTable().Find(L"0");
    zero->AddReference();
    cad.GetData()->GetLayerTable().Remove(zero);
    veld::CLayer* walls = cad.GetData()->GetObjectFactory()->CreateLayer(
        L"WALLS", cad.GetData()->GetLtypeTable().GetLtypeContinuous(), 1, veld::kLineWidthDefault,
        0, 0);
    cad.GetData()->GetLayerTable().Add(walls);
    walls->SubReference();
    cad.GetData()->GetLayerTable().Add(zero);
    zero->SubReference();
    const QByteArray json = drawingfile::Write(cad);
    CVELD other;
    QString error;
    ASSERT_TRUE(drawingfile::Read(other, json, error)) << error.toStdString();
    EXPECT_EQ(drawingfile::Write(other), json);
    EXPECT_EQ(other.GetData()->GetLayerTable().GetNo(1)->GetName(), L"0");
}

// The order of the questions and what damage the sealed file reader finds are
// tests/veld's; here: what a refusal tells the user, and that it never yields
// a drawing.
TEST(DrawingFile, RefusalsNameTheFileAndTheFaultAndNeverOpen) {
    QTemporaryDir dir;
    CVELD cad;
    BuildSampleDrawing(cad);
    QString error;
    const QString file = path(dir, "bad.veld");
    ASSERT_TRUE(drawingfile::Save(cad, file, QStringLiteral("pw"), error));
    QFile f(file);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QByteArray sealed = f.readAll();
    f.close();
    const QByteArray plain = drawingfile::Write(cad);
    QByteArray flipped = sealed;
    flipped[flipped.size() / 2] = static_cast<char>(flipped[flipped.size() / 2] ^ 0x10);
    QByteArray version = sealed;
    version[8] = 2;

    const char* const wrongOrDamaged = "bad.veld was not opened: wrong password or damaged file";
    const struct {
        const char* name;
        QByteArray bytes;
        std::vector<const wchar_t*> answers;  // null: cancel
        const char* message;                  // null: it opens
        const char* calls;
    } cases[] = {
        {"the right password", sealed, {L"pw"}, nullptr, "ask "},
        {"a wrong password", sealed, {L"wrong"}, wrongOrDamaged, "ask retry "},
        {"no password",
         sealed,
         {nullptr},
         "bad.veld was not opened: no password was given",
         "ask "},
        {"flipped byte", flipped, {L"pw"}, wrongOrDamaged, "ask retry "},
        {"version byte",
         version,
         {L"pw"},
         "bad.veld is damaged: its sealed content does not open",
         ""},
        {"truncated plain", plain.left(plain.size() / 2), {}, "bad.veld: not a drawing file", ""},
        {"empty", QByteArray(), {}, "bad.veld: not a drawing file", ""},
    };
    for (const auto& c : cases) {
        writeFile(file, c.bytes);
        CVELD target;
        const QByteArray untouched = drawingfile::Dump(target);
        ScriptedPasswords request(c.answers);
        EXPECT_EQ(drawingfile::Load(target, file, &request, error), !c.message) << c.name;
        EXPECT_EQ(request.calls, c.calls) << c.name;
        if (c.message) {
            // The parser's own words on the fault follow a second ": ".
            EXPECT_EQ(error.section(QStringLiteral(": "), 0, 1).toStdString(), c.message) << c.name;
            EXPECT_EQ(drawingfile::Dump(target), untouched) << c.name;
        }
    }
}

TEST(DrawingFile, HandEditedFilesNameThePlaceOfTheFault) {
    const QJsonObject sample = QJsonDocument::fromJson(sampleJson()).object();
    // The sample's active sets, in type order: Plan (0), Survey (1), Stations (2), Basemap (4);
    // Details is a second set of type 0.
    ASSERT_EQ(sample["active"].toArray(), (QJsonArray{1, 3, 0, 5}));
    const struct {
        Edit edit;
        const char* message;  // names the case too
        int views = 0;        // of the drawing read into
    } cases[] = {
        {set("format", "other"), "format: expected \"veld-drawing\""},
        {set("version", 7), "version: this program reads version 1"},
        {set("layers"), "layers: expected a list"},
        {set("layers/1/ltype", "NOPE"), "layers[1].ltype: no line type \"NOPE\""},
        {set("layers/1/color", 300), "layers[1].color: 300 is out of range"},
        {set("layers/2/name", "buildings"), "layers[2].name: \"buildings\" appears twice"},
        {set("styles/1/font", "Comic"), "styles[1].font: no font \"Comic\""},
        {set("entities/0/layer", "GONE"), "entities[0].layer: no layer \"GONE\""},
        {set("entities/0/kind", "SPLINE"), "entities[0].kind: no entity kind"},
        {set("entities/0/set", 99), "entities[0].set: 99 is out of range"},
        {set("entities/1/handle", sample["entities"][0]["handle"]), "entities[1].handle: handle"},
        {set("entities/5/points", QJsonArray{QJsonArray{1, 2, 3}}),
         "entities[5].points: a line has 2 points"},
        {set("entities/5/points", QJsonArray{QJsonArray{1, 2}, QJsonArray{1, 2, 3}}),
         "entities[5].points[0]: expected a point"},
        {set("ltypes/1"), "the line type \"ByLayer\" is missing"},
        {set("current/layer", "CONTOURS"),
         "current.layer: the layer \"CONTOURS\" cannot be current"},
        {set("settings/colors/grid", "red"), "settings.colors.grid: expected a colour"},
        {set("settings/colors/grid", "#+fffff"),
         "settings.colors.grid: expected a colour \"#rrggbb\", found \"#+fffff\""},
        {set("settings/colors/background", "# fffff"),
         "settings.colors.background: expected a colour \"#rrggbb\", found \"# fffff\""},
        {set("settings/colors/selected", "#fffff "), "settings.colors.selected: expected a colour"},
        {set("settings/colors/crossHair", "#0xfff0"),
         "settings.colors.crossHair: expected a colour"},
        {set("entities/0/user", 7), "entities[0].user: no user type 7"},
        {set("layers/1/ltype", "ByLayer"),
         "layers[1].ltype: a layer needs a real line type, not \"ByLayer\""},
        {set("layers/2/ltype", "byblock"),
         "layers[2].ltype: a layer needs a real line type, not \"byblock\""},
        {set("layers/1/lineWidth", 7), "layers[1].lineWidth: 7 is not a standard line width"},
        {set("layers/2/lineWidth", 1), "layers[2].lineWidth: 1 is not a standard line width"},
        {set("layers/3/lineWidth", 210), "layers[3].lineWidth: 210 is not a standard line width"},
        {addViews(1), "views[0]: the drawing has no views"},
        {addViews(2), "views[1]: the drawing has 1 view", 1},
        {set("images/0/png", ""), "images[0].png: the picture is empty"},
        {set("images/0/png", "iVBORw0KGgo*"), "images[0].png: the picture is not base64"},
        {set("images/0/png", "aGVsbG8="), "images[0].png: the picture is not a readable PNG"},
        {set("active", QJsonArray{}), "active: no active entity set of type 0"},
        {set("active", QJsonArray{1, 2, 3, 0, 5}),
         "active[1]: a second active entity set of type 0"},
        {set("active", QJsonArray{1, 3, 0, 5, 1}),
         "active[4]: a second active entity set of type 0"},
        {set("active", QJsonArray{1, 3, 0}), "active: no active entity set of type 4"},
        {set("settings/angleSystem", 1),
         "settings.angleSystem: expected 0 (degrees), 2 (gons) or 3 (radians)"},
    };
    for (const auto& c : cases) {
        QJsonObject root = sample;
        c.edit(root);
        CVELD cad;
        std::vector<std::unique_ptr<CVELDView>> views;
        for (int i = 0; i < c.views; ++i)
            views.push_back(std::make_unique<CVELDView>(&cad));
        BuildSampleDrawing(cad);
        const QByteArray untouched = drawingfile::Dump(cad);
        QString error;
        EXPECT_FALSE(drawingfile::Read(cad, QJsonDocument(root).toJson(), error)) << c.message;
        EXPECT_TRUE(error.contains(QString::fromLatin1(c.message)))
            << "wanted " << c.message << ", got " << error.toStdString();
        EXPECT_EQ(drawingfile::Dump(cad), untouched) << c.message;
    }
}

TEST(DrawingFile, HandEditedFilesWithinTheRulesReadAndWriteBackAsTheyWere) {
    const QJsonObject sample = QJsonDocument::fromJson(sampleJson()).object();
    using Check = std::function<void(CVELD&)>;
    // The set keeps its entities, stays hidden, and they are drawn only when it is on.
    const auto hiddenSet = [](const char* name, bool drawn) {
        return Check([=](CVELD& cad) {
            veld::CDrawingManager* manager = cad.GetData()->GetDrawingManager();
            veld::CDrawing* set = nullptr;
            for (unsigned i = 0; i < manager->GetNoDrawings(); ++i)
                if (manager->GetDrawingAtPos(i)->GetName() ==
                    ulo::WString::FromQString(QLatin1String(name)))
                    set = manager->GetDrawingAtPos(i);
            ASSERT_NE(set, nullptr);
            EXPECT_TRUE(set->IsHidden());
            const unsigned ents = set->GetEntTable()->GetNoEnts();
            EXPECT_GT(ents, 0u);
            unsigned shown = 0;
            veld::CData::CHandleObjectIterator it(cad.GetData(), false);
            while (const veld::CEnt* e = it.GetNext())
                shown += e->GetDrawing() == set;
            EXPECT_EQ(shown, drawn ? ents : 0u);
        });
    };
    struct Case {
        QString name;
        Edit edit;
        Check check;
        int views = 0;        // of the drawing read into
        Edit canonical = {};  // how the writer writes the edit, when not as it was read
    };
    std::vector<Case> cases = {
        {"a hidden set that is on", set("sets/2/hidden", true), hiddenSet("Details", true)},
        {"a hidden set that is off", set("sets/0/visible", false), hiddenSet("Stations", false)},
        {"an image without a picture", set("images/0/png", QJsonValue::Null),
         [](CVELD& cad) {
             ASSERT_EQ(cad.GetNoImages(), 1);
             const pix::CDibImage* dib = cad.GetImage(0)->GetImage();
             EXPECT_TRUE(!dib || dib->GetQImage().isNull());
         }},
        {"as many views as the drawing", addViews(2),
         [](CVELD& cad) {
             EXPECT_EQ(cad.GetView(0)->GetPresetView(), 3);
             EXPECT_EQ(cad.GetView(1)->GetPresetView(), 4);
         },
         2},
        {"an uppercase colour", set("settings/colors/grid", "#A0B1C2"),
         [](CVELD& cad) { EXPECT_EQ(GetClrGrid(&cad), GColor(0xC2B1A0)); }, 0,
         set("settings/colors/grid", "#a0b1c2")},
    };
    for (int width : {-3, -1, 0, 53, 211})
        cases.push_back({QStringLiteral("line width %1").arg(width),
                         set("layers/2/lineWidth", width), [=](CVELD& cad) {
                             EXPECT_EQ(cad.GetData()->GetLayerTable().GetNo(2)->GetLineWidth(),
                                       width);
                         }});
    for (const auto& c : cases) {
        QJsonObject root = sample;
        c.edit(root);
        const QByteArray json = QJsonDocument(root).toJson();
        CVELD cad;
        std::vector<std::unique_ptr<CVELDView>> views;
        for (int i = 0; i < c.views; ++i)
            views.push_back(std::make_unique<CVELDView>(&cad));
        QString error;
        ASSERT_TRUE(drawingfile::Read(cad, json, error))
            << c.name.toStdString() << ": " << error.toStdString();
        c.check(cad);
        if (c.canonical)
            c.canonical(root);
        EXPECT_EQ(drawingfile::Write(cad), QJsonDocument(root).toJson()) << c.name.toStdString();
    }
}
