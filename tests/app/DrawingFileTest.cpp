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

class ScriptedPasswords : public veld::IFileReaderPasswordRequest {
public:
    explicit ScriptedPasswords(std::vector<const wchar_t*> answers, bool retry = true)
        : answers_(std::move(answers)), retry_(retry) {}
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
        return retry_;
    }
    std::string calls;

private:
    std::vector<const wchar_t*> answers_;
    size_t next_ = 0;
    bool retry_;
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

/// A change made to a drawing document by hand.
using Edit = std::function<void(QJsonObject&)>;

Edit setIn(const char* table, int index, const char* key, QJsonValue value) {
    return [=](QJsonObject& root) {
        QJsonArray list = root[QLatin1String(table)].toArray();
        QJsonObject item = list[index].toObject();
        item[QLatin1String(key)] = value;
        list[index] = item;
        root[QLatin1String(table)] = list;
    };
}

Edit setColour(const char* which, const char* text) {
    return [=](QJsonObject& root) {
        QJsonObject s = root["settings"].toObject();
        QJsonObject c = s["colors"].toObject();
        c[QLatin1String(which)] = QLatin1String(text);
        s["colors"] = c;
        root["settings"] = s;
    };
}

Edit setActive(QJsonArray active) {
    return [=](QJsonObject& root) { root["active"] = active; };
}

/// Appends @p count views, each with its own preset and a grid the writer
/// writes back as it is.
Edit addViews(int count) {
    return [=](QJsonObject& root) {
        QJsonArray views = root["views"].toArray();
        for (int i = 0; i < count; ++i)
            views.append(QJsonObject{{"preset", 3 + i},
                                     {"grid", QJsonObject{{"gridOn", true},
                                                          {"gridBySnap", false},
                                                          {"gridEast", 5},
                                                          {"gridNorth", 2.5},
                                                          {"snapOn", true},
                                                          {"baseEast", 1},
                                                          {"baseNorth", 2},
                                                          {"snapEast", 0.5},
                                                          {"snapNorth", 0.25},
                                                          {"snapAngle", 0.5}}}});
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
    // Items restored by undo join the end of their table: the order is kept
    // as it stands, built-in items included.
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

// The order of the questions is the sealed file reader's (tests/veld); here:
// what a refusal tells the user, and that it never yields a drawing.
TEST(DrawingFile, PasswordQuestionsComeInOrderAndAWrongPasswordNeverOpens) {
    QTemporaryDir dir;
    CVELD cad;
    BuildSampleDrawing(cad);
    QString error;
    const QString file = path(dir, "locked.veld");
    ASSERT_TRUE(drawingfile::Save(cad, file, QStringLiteral("right"), error));

    const struct {
        std::vector<const wchar_t*> answers;
        bool retry;
        bool opens;
        const char* calls;
        const char* message;
    } cases[] = {
        {{L"right"}, true, true, "ask ", ""},
        {{L"wrong"},
         false,
         false,
         "ask retry ",
         "locked.veld was not opened: wrong password or damaged file"},
        {{nullptr}, true, false, "ask ", "locked.veld was not opened: no password was given"},
    };
    for (const auto& c : cases) {
        CVELD target;
        const QByteArray untouched = drawingfile::Write(target);
        ScriptedPasswords request(c.answers, c.retry);
        EXPECT_EQ(drawingfile::Load(target, file, &request, error), c.opens) << c.calls;
        EXPECT_EQ(request.calls, c.calls);
        if (!c.opens) {
            EXPECT_EQ(error.toStdString(), c.message);
            EXPECT_EQ(drawingfile::Write(target), untouched);
        }
    }
}

TEST(DrawingFile, DamagedFilesAreRefusedWithAClearMessage) {
    QTemporaryDir dir;
    CVELD cad;
    BuildSampleDrawing(cad);
    QString error;
    const QString sealedFile = path(dir, "s.veld");
    ASSERT_TRUE(drawingfile::Save(cad, sealedFile, QStringLiteral("pw"), error));
    QFile f(sealedFile);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QByteArray sealed = f.readAll();
    const QByteArray plain = drawingfile::Write(cad);

    QByteArray flipped = sealed;
    flipped[flipped.size() / 2] = static_cast<char>(flipped[flipped.size() / 2] ^ 0x10);
    QByteArray flippedHeader = sealed;
    flippedHeader[12] = static_cast<char>(flippedHeader[12] ^ 0x01);  // in the salt
    QByteArray version = sealed;
    version[8] = 2;
    QByteArray sensitive = sealed;  // libsodium's slowest Argon2id limits: 4 passes, 1 GiB
    qToLittleEndian(quint64(4), sensitive.data() + 25);
    qToLittleEndian(quint64(1) << 30, sensitive.data() + 33);

    const char* const wrongOrDamaged = "bad.veld was not opened: wrong password or damaged file";
    const char* const damaged = "bad.veld is damaged: its sealed content does not open";
    const struct {
        const char* name;
        QByteArray bytes;
        const char* message;
        const char* calls;
    } cases[] = {
        {"truncated plain", plain.left(plain.size() / 2), "not a drawing file", ""},
        {"empty", QByteArray(), "not a drawing file", ""},
        {"not JSON", QByteArray("hello"), "not a drawing file", ""},
        {"truncated sealed", sealed.left(sealed.size() - 20), wrongOrDamaged, "ask retry "},
        {"sealed header only", sealed.left(20), damaged, ""},
        {"version byte", version, damaged, ""},
        {"sensitive limits", sensitive, damaged, ""},
        {"flipped byte", flipped, wrongOrDamaged, "ask retry "},
        {"flipped header byte", flippedHeader, wrongOrDamaged, "ask retry "},
    };
    for (const auto& c : cases) {
        const QString file = path(dir, "bad.veld");
        writeFile(file, c.bytes);
        CVELD target;
        const QByteArray untouched = drawingfile::Dump(target);
        ScriptedPasswords request({L"pw"}, false);
        EXPECT_FALSE(drawingfile::Load(target, file, &request, error)) << c.name;
        EXPECT_TRUE(error.contains(QString::fromLatin1(c.message)))
            << c.name << ": " << error.toStdString();
        EXPECT_TRUE(error.startsWith(QStringLiteral("bad.veld"))) << error.toStdString();
        EXPECT_EQ(request.calls, c.calls) << c.name;
        EXPECT_EQ(drawingfile::Dump(target), untouched) << c.name;
    }
    CVELD target;
    EXPECT_FALSE(drawingfile::Load(target, dir.path(), nullptr, error));
    EXPECT_TRUE(error.contains(QStringLiteral("folder"))) << error.toStdString();
    EXPECT_FALSE(drawingfile::Load(target, path(dir, "missing.veld"), nullptr, error));
}

TEST(DrawingFile, HandEditedFilesNameThePlaceOfTheFault) {
    const QJsonObject sample = QJsonDocument::fromJson(sampleJson()).object();
    // The sample's active sets, in type order: Plan (0), Survey (1), Stations (2), Basemap (4);
    // Details is a second set of type 0.
    ASSERT_EQ(sample["active"].toArray(), (QJsonArray{1, 3, 0, 5}));
    const struct {
        const char* name;
        Edit edit;
        const char* message;
        int views = 0;  // of the drawing read into
    } cases[] = {
        {"format", [](QJsonObject& r) { r["format"] = "other"; },
         "format: expected \"veld-drawing\""},
        {"version", [](QJsonObject& r) { r["version"] = 7; },
         "version: this program reads version 1"},
        {"no layers", [](QJsonObject& r) { r.remove("layers"); }, "layers: expected a list"},
        {"layer ltype", setIn("layers", 1, "ltype", "NOPE"),
         "layers[1].ltype: no line type \"NOPE\""},
        {"layer colour", setIn("layers", 1, "color", 300), "layers[1].color: 300 is out of range"},
        {"layer twice", setIn("layers", 2, "name", "buildings"),
         "layers[2].name: \"buildings\" appears twice"},
        {"font", setIn("styles", 1, "font", "Comic"), "styles[1].font: no font \"Comic\""},
        {"entity layer", setIn("entities", 0, "layer", "GONE"),
         "entities[0].layer: no layer \"GONE\""},
        {"entity kind", setIn("entities", 0, "kind", "SPLINE"), "entities[0].kind: no entity kind"},
        {"entity set", setIn("entities", 0, "set", 99), "entities[0].set: 99 is out of range"},
        {"handle twice",
         [](QJsonObject& r) {
             QJsonArray e = r["entities"].toArray();
             QJsonObject one = e[1].toObject();
             one["handle"] = e[0].toObject()["handle"];
             e[1] = one;
             r["entities"] = e;
         },
         "entities[1].handle: handle"},
        {"line points", setIn("entities", 5, "points", QJsonArray{QJsonArray{1, 2, 3}}),
         "entities[5].points: a line has 2 points"},
        {"point shape",
         setIn("entities", 5, "points", QJsonArray{QJsonArray{1, 2}, QJsonArray{1, 2, 3}}),
         "entities[5].points[0]: expected a point"},
        {"no ByLayer",
         [](QJsonObject& r) {
             QJsonArray t = r["ltypes"].toArray();
             t.removeAt(1);
             r["ltypes"] = t;
         },
         "the line type \"ByLayer\" is missing"},
        {"frozen current",
         [](QJsonObject& r) {
             QJsonObject c = r["current"].toObject();
             c["layer"] = "CONTOURS";
             r["current"] = c;
         },
         "current.layer: the layer \"CONTOURS\" cannot be current"},
        {"colour text",
         [](QJsonObject& r) {
             QJsonObject s = r["settings"].toObject();
             QJsonObject c = s["colors"].toObject();
             c["grid"] = "red";
             s["colors"] = c;
             r["settings"] = s;
         },
         "settings.colors.grid: expected a colour"},
        {"colour with a sign", setColour("grid", "#+fffff"),
         "settings.colors.grid: expected a colour \"#rrggbb\", found \"#+fffff\""},
        {"colour with a blank", setColour("background", "# fffff"),
         "settings.colors.background: expected a colour \"#rrggbb\", found \"# fffff\""},
        {"colour with a blank after", setColour("selected", "#fffff "),
         "settings.colors.selected: expected a colour"},
        {"colour in C notation", setColour("crossHair", "#0xfff0"),
         "settings.colors.crossHair: expected a colour"},
        {"user type", setIn("entities", 0, "user", 7), "entities[0].user: no user type 7"},
        {"layer ByLayer", setIn("layers", 1, "ltype", "ByLayer"),
         "layers[1].ltype: a layer needs a real line type, not \"ByLayer\""},
        {"layer ByBlock", setIn("layers", 2, "ltype", "byblock"),
         "layers[2].ltype: a layer needs a real line type, not \"byblock\""},
        {"line width 7", setIn("layers", 1, "lineWidth", 7),
         "layers[1].lineWidth: 7 is not a standard line width"},
        {"line width 1", setIn("layers", 2, "lineWidth", 1),
         "layers[2].lineWidth: 1 is not a standard line width"},
        {"line width 210", setIn("layers", 3, "lineWidth", 210),
         "layers[3].lineWidth: 210 is not a standard line width"},
        {"a view without a view", addViews(1), "views[0]: the drawing has no views"},
        {"two views for one", addViews(2), "views[1]: the drawing has 1 view", 1},
        {"empty picture", setIn("images", 0, "png", ""), "images[0].png: the picture is empty"},
        {"picture not base64", setIn("images", 0, "png", "iVBORw0KGgo*"),
         "images[0].png: the picture is not base64"},
        {"picture not PNG", setIn("images", 0, "png", "aGVsbG8="),
         "images[0].png: the picture is not a readable PNG"},
        {"no active sets", setActive({}), "active: no active entity set of type 0"},
        {"two active sets of a type", setActive({1, 2, 3, 0, 5}),
         "active[1]: a second active entity set of type 0"},
        {"the same set twice", setActive({1, 3, 0, 5, 1}),
         "active[4]: a second active entity set of type 0"},
        {"a type without its active set", setActive({1, 3, 0}),
         "active: no active entity set of type 4"},
        {"angle system",
         [](QJsonObject& r) {
             QJsonObject s = r["settings"].toObject();
             s["angleSystem"] = 1;
             r["settings"] = s;
         },
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
        EXPECT_FALSE(drawingfile::Read(cad, QJsonDocument(root).toJson(), error)) << c.name;
        EXPECT_TRUE(error.contains(QString::fromLatin1(c.message)))
            << c.name << ": " << error.toStdString();
        EXPECT_EQ(drawingfile::Dump(cad), untouched) << c.name;
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
        {"a hidden set that is on", setIn("sets", 2, "hidden", true), hiddenSet("Details", true)},
        {"a hidden set that is off", setIn("sets", 0, "visible", false),
         hiddenSet("Stations", false)},
        {"an image without a picture", setIn("images", 0, "png", QJsonValue::Null),
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
        {"an uppercase colour", setColour("grid", "#A0B1C2"),
         [](CVELD& cad) { EXPECT_EQ(GetClrGrid(&cad), GColor(0xC2B1A0)); }, 0,
         setColour("grid", "#a0b1c2")},
    };
    for (int width : {-3, -1, 0, 53, 211})
        cases.push_back({QStringLiteral("line width %1").arg(width),
                         setIn("layers", 2, "lineWidth", width), [=](CVELD& cad) {
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
